// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "Vocabulary.h"

#include <rvopen/RVOpenNode.h>
#include <rvopen/RVOpenSchema.h>
#include <rvopen/toolkit/schema/ElementInfo.h>
#include <rvopen/toolkit/schema/ParamInfo.h>

#include <QDomDocument>

namespace rvopen::toolkit {

KindSource kindSourceOf(const QString& element)
{
    if (element == QLatin1String("finish"))
        return KindSource::ShaderClass;
    const bool isOfShader =
        element == QLatin1String("plainColour") || element == QLatin1String("map");
    return isOfShader ? KindSource::Grandparent : KindSource::SubCategory;
}

const Vocabulary& Vocabulary::instance()
{
    static const Vocabulary vocabulary;
    return vocabulary;
}

bool Vocabulary::isSection(const QString& name) const
{
    const ElementInfo* const info = FindElement(name);
    return info && info->isSection;
}

bool Vocabulary::isAttribute(const QString& element, const QString& attribute) const
{
    return FindAttribute(element, attribute) || attribute == QLatin1String("xmlns") ||
           attribute.startsWith(QLatin1String("xmlns:"));
}

bool Vocabulary::canAdd(const QString& parent, const QString& child) const
{
    const QString key = parent + QLatin1Char('/') + child;
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        const auto known = m_placement.constFind(key);
        if (known != m_placement.cend())
            return *known;
    }
    QDomDocument document;
    QDomElement parentElement = document.createElement(parent);
    document.appendChild(parentElement);
    RVOpenNode* const parentNode = RVOpenSchema::createNode(parentElement);
    RVOpenNode* const childNode = RVOpenSchema::createNode(document.createElement(child));
    const bool can = RVOpenSchema::canAddNode(parentNode, childNode) != 0;
    delete childNode;
    delete parentNode;
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_placement.insert(key, can);
    return can;
}

} // namespace rvopen::toolkit
