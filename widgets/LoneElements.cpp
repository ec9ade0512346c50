// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "LoneElements.h"

#include <algorithm>

namespace rvopen::widgets {

namespace {

const QString s_snapRoot = QStringLiteral("snapRoot");

/// Documents whose elements are looked at by turns.
constexpr std::size_t s_mostDocuments = 16;

} // namespace

QDomElement LoneElements::copyOf(const QDomElement& element, QDomDocument& document)
{
    std::vector<QDomElement> above;
    for (QDomElement at = element.parentNode().toElement(); !at.isNull();
         at = at.parentNode().toElement())
        above.push_back(at);
    // A document that has nothing yet is null until it is asked for a node.
    QDomNode place;
    const auto append = [&](const QDomNode& node) {
        return place.isNull() ? document.appendChild(node) : place.appendChild(node);
    };
    for (auto at = above.rbegin(); at != above.rend(); ++at)
        place = append(document.importNode(*at, false));
    const QDomElement copy = append(document.importNode(element, true)).toElement();
    if (above.empty() || above.back().tagName() == s_snapRoot)
        return copy;
    const QDomElement snapRoot = innerSnapRoot(element.ownerDocument());
    if (!snapRoot.isNull())
        document.documentElement().insertBefore(document.importNode(snapRoot, false), QDomNode());
    return copy;
}

void LoneElements::forget(const QDomDocument& document)
{
    m_snapRoots.erase(
        std::remove_if(m_snapRoots.begin(), m_snapRoots.end(),
                       [&](const SnapRoots& each) { return each.document == document; }),
        m_snapRoots.end());
}

QDomElement LoneElements::innerSnapRoot(const QDomDocument& document)
{
    auto known = std::find_if(m_snapRoots.begin(), m_snapRoots.end(),
                              [&](const SnapRoots& each) { return each.document == document; });
    if (known == m_snapRoots.end()) {
        if (m_snapRoots.size() == s_mostDocuments)
            m_snapRoots.erase(m_snapRoots.begin());
        m_snapRoots.push_back({document, document.elementsByTagName(s_snapRoot)});
        known = m_snapRoots.end() - 1;
    }
    return known->list.at(0).toElement();
}

} // namespace rvopen::widgets
