// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QDomDocument>
#include <QDomElement>
#include <QDomNodeList>

#include <vector>

namespace rvopen::widgets {

/// Copies of elements with what they stand in and nothing beside them, so that what is done with
/// one takes as long in a document of very many. The unit of lengths comes along: the first
/// "snapRoot" of the document, which is looked for once as long as the document is not changed.
class LoneElements {
public:
    /// In a document of its own, which it keeps alive as long as somebody has that.
    QDomElement copyOf(const QDomElement& element, QDomDocument& document);
    /// Nothing of the document is kept any more.
    void forget(const QDomDocument& document);

private:
    /// A list that stays up to date.
    struct SnapRoots {
        QDomDocument document;
        QDomNodeList list;
    };

    QDomElement innerSnapRoot(const QDomDocument& document);

    std::vector<SnapRoots> m_snapRoots;
};

} // namespace rvopen::widgets
