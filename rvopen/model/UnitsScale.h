// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QDomDocument>
#include <QDomElement>
#include <QDomNodeList>

#include <memory>

namespace rvopen {

/// The first "snapRoot" of a document whose root element is another one, archives above all, found
/// by walking through the document once and not for each parameter.
///
/// The list of a document's elements of one name is kept up to date by Qt, which walks again only
/// after the document was changed, by whomever. So the answer is never stale, and reading costs one
/// walk for all parameters.
class InnerSnapRoot {
public:
    /// The one search of that document, shared as long as somebody holds it. It keeps the document.
    static std::shared_ptr<const InnerSnapRoot> of(const QDomDocument& document);

    explicit InnerSnapRoot(const QDomDocument& document);

    /// A null element when there is none.
    QDomElement element() const;

private:
    QDomDocument m_document;
    QDomNodeList m_elements;
};

} // namespace rvopen
