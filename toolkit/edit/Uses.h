// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QDomElement>
#include <QSet>
#include <QString>
#include <QVector>

namespace rvopen::toolkit {

class Document;

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
    /// Whether other documents can have uses at all.
    bool canBeElsewhere() const;
    /// The same in another document.
    QVector<Use> inOther(const Document& other) const;
    /// Folders of another archive that stand for this one, and show what is in it.
    QVector<Use> ofArchive(const Document& other) const;
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

} // namespace rvopen::toolkit
