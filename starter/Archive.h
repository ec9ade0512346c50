// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include <rvopen/RVOpenVocabulary.h>

#include <QHash>
#include <QString>
#include <QStringList>

namespace rvopen {
class RVOpenManager;
class RVOpenNode;
} // namespace rvopen

namespace rvopen::starter {

/// The section of that element, which there must be.
ArchiveSection sectionOf(const char* element);

/// A new node over a new element of the document that \p owner stands in.
RVOpenNode* createNode(const RVOpenNode& owner, const char* element);

/// A preset archive that is being filled.
class Archive {
public:
    Archive(RVOpenManager& manager, const QString& name, const QString& description);
    Archive(const Archive&) = delete;
    Archive& operator=(const Archive&) = delete;
    ~Archive();

    RVOpenNode* root() const;

    /// Places the preset in the section, in these folders, where the library's rule lets it. Its
    /// path, where its picture is looked for, is that of the folders.
    void place(const ArchiveSection& section, const QStringList& folders, RVOpenNode* preset);

    void save(const QString& path);

private:
    RVOpenNode* sectionNode(const ArchiveSection& section);
    RVOpenNode* folderNode(RVOpenNode* parent, const QString& name);

    RVOpenManager& m_manager;
    QString m_name;
    RVOpenNode* m_root;
    QHash<QString, RVOpenNode*> m_sections;
    QHash<QString, RVOpenNode*> m_folders;
};

} // namespace rvopen::starter
