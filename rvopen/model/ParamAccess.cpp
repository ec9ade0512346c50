// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include <rvopen/model/ParamAccess.h>

#include <rvopen/model/Changes.h>
#include <rvopen/model/NodeAccess.h>

namespace rvopen {

namespace {

Param* addOfType(ParamHelper* params, const QString& name, ParamType type)
{
    switch (type) {
    case ParamType::Float:
        return params->AddFloatParam(name);
    case ParamType::Int:
        return params->AddIntParam(name);
    case ParamType::String:
        return params->AddStringParam(name);
    case ParamType::Bool:
        return params->AddBoolParam(name);
    case ParamType::Colour:
        return params->AddColourParam(name);
    case ParamType::Vector:
        return params->AddVectorParam(name);
    case ParamType::Point:
        return params->AddPointParam(name);
    }
    return nullptr;
}

/// The element of the first parameter of that name among all children of \p owner; with a null name
/// of any parameter.
QDomElement paramElement(const RVOpenNode* owner, const QString& name)
{
    QDomElement element = owner->GetDomNode().firstChildElement(names::element::param());
    while (!element.isNull() && !name.isNull() &&
           element.attribute(names::attribute::name()) != name)
        element = element.nextSiblingElement(names::element::param());
    return element;
}

} // namespace

Param* addParam(RVOpenNode* node, const ParamSpec& spec)
{
    const changes::Block block;
    Param* const param = addOfType(node->GetParamHelper(), spec.name(), spec.type);
    if (!param)
        return nullptr;
    if (spec.dimensional)
        NodeAccess::setAttribute(param, names::attribute::prop(), names::value::dimensional());
    if (spec.initialise)
        spec.initialise(*param);
    return param;
}

QDomElement hiddenParam(RVOpenNode* node, const QString& name)
{
    const RVOpenNode* const owner = NodeAccess::childOwner(node);
    return owner ? paramElement(owner, name) : QDomElement();
}

void populateParams(RVOpenNode* node, const ParamSpec* specs, std::size_t count)
{
    node->GetParamHelper()->Populate();
    const RVOpenNode* const owner = NodeAccess::childOwner(node);
    if (owner && !paramElement(owner, QString()).isNull())
        return;
    const changes::Block block;
    for (std::size_t i = 0; i < count; ++i)
        addParam(node, specs[i]);
}

} // namespace rvopen
