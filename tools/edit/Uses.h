// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QDomElement>
#include <QSet>
#include <QString>
#include <QStringList>
#include <QVector>

namespace rvopen::tools {

class Document;
class Session;

/// Something that goes by a reference name, a link name or an archive as a whole.
struct Use {
    QString file;
    QString path;
    /// What it uses, as for a message: "material m.brass".
    QString what;
};

/// The presets whose names nobody will find any more, and who may look for them.
class Uses {
public:
    /// \p elements are presets, folders, snapshots and materials of palettes of the document.
    Uses(const Document& document, const QVector<QDomElement>& elements);

    /// References by components, base materials and materials of palettes that stand outside of the
    /// elements, in the document itself.
    QVector<Use> inDocument() const;
    /// The elements that refer in this way, to be given another name.
    QVector<QDomElement> elementsInDocument() const;
    /// The same in other files; one that cannot be read is an error of the session.
    QVector<Use> inFiles(const QStringList& files, Session& session) const;
    /// Folders of other archives that stand for this one, and show what is in it.
    QVector<Use> ofArchive(const QStringList& files, Session& session) const;
    /// Objects of the host to which the materials belong.
    QVector<Use> ofObjects() const;

private:
    bool isUse(const QDomElement& element) const;
    QVector<Use> in(const Document& document, const QVector<QDomElement>& without) const;

    const Document& m_document;
    QVector<QDomElement> m_elements;
    /// "kind/reference name".
    QSet<QString> m_keys;
};

} // namespace rvopen::tools
