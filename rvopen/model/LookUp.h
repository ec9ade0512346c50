// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include <rvopen/RVOpenNode.h>
#include <rvopen/model/NodeCast.h>
#include <rvopen/xml/XmlCharacters.h>

#include <QDomNode>

#include <algorithm>

namespace rvopen {

/// Text of white space alone is layout.
inline bool isBlankText(const QDomNode& node)
{
    if (node.nodeType() != QDomNode::TextNode)
        return false;
    const QString text = node.nodeValue();
    return std::all_of(text.cbegin(), text.cend(),
                       [](QChar c) { return xml::isBlank(c.unicode()); });
}

/// What is no child in the sense of a look-up.
inline bool isSteppedOver(const QDomNode& node)
{
    return node.isComment() || node.isProcessingInstruction() || isBlankText(node);
}

/// The parameter at \p node or behind what look-ups step over from there, among the objects that
/// are made; null when another child or the end comes first.
template <typename Parameter>
Parameter* paramFrom(RVOpenNode* node)
{
    for (; node; node = node->GetNext(0)) {
        if (auto* const param = nodeCast<Parameter>(node))
            return param;
        if (!isSteppedOver(node->GetDomNode()))
            return nullptr;
    }
    return nullptr;
}

} // namespace rvopen
