// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include <rvopen/files/JudgedDocument.h>
#include <rvopen/manager/Retired.h>

#include <QDomDocument>
#include <QString>

#include <memory>

namespace rvopen {

/// The default archives of an installation and the archive that a host chose: where a manager looks
/// presets up.
class PresetArchives {
public:
    /// What a host may still hold of archives that are read again goes to \p retired.
    explicit PresetArchives(Retired& retired);
    ~PresetArchives();
    PresetArchives(const PresetArchives&) = delete;
    PresetArchives& operator=(const PresetArchives&) = delete;

    /// Reads the default archive once and the two extra archives at each call, below \p folder.
    void read(const QString& folder);
    /// The root of the archive in the registry, or null when it cannot be read.
    RVOpenNode* choose(const QString& name, const QString& type);
    /// The type last given to choose().
    QString type() const;
    /// The section of that element name, with that of an extra archive merged into it, or null.
    RVOpenNode* section(const QString& type, bool fromDefault);
    /// The first preset of that reference name and, unless it is empty, that sub-category, or null.
    RVOpenNode* find(const QString& type, const QString& subcat, const QString& refName);
    /// The same, then in the extra archives and in all archives of the two folders.
    RVOpenNode* findInAll(const QString& type, const QString& subcat, const QString& refName);

private:
    /// An archive of the installation as it was when it was read. Its document, which a host may
    /// write to and which is this manager's own, is built when something is looked up in it.
    class Archive {
    public:
        /// Leaves what is there where the file cannot be read; otherwise the root that a host may
        /// still hold goes to \p retired.
        void read(const QString& path, Retired& retired);
        /// Whether there is one.
        explicit operator bool() const
        {
            return m_judged != nullptr;
        }
        /// Null when there is no archive.
        RVOpenNode* root();
        /// Has root() make an object anew.
        void renewRoot(Retired& retired);

    private:
        std::shared_ptr<const JudgedDocument> m_judged;
        QDomDocument m_document;
        View<RVOpenNode> m_root;
    };

    RVOpenNode* chosen() const;
    RVOpenNode* extra();

    Retired& m_retired;
    Archive m_default;
    Archive m_product;
    Archive m_architectural;
    QString m_path; ///< The registry's name of the chosen archive, which may be closed at any time.
    QString m_type;
    QString m_zorvaneName;
    QString m_customName;
};

} // namespace rvopen
