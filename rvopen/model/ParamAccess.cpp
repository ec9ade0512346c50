// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include <rvopen/model/ParamAccess.h>

#include <rvopen/model/NodeAccess.h>
#include <rvopen/model/NodeCast.h>

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

bool hasParam(RVOpenNode* node)
{
    for (RVOpenNode* child = node->GetChild(0, 1); child; child = child->GetNext(0)) {
        if (nodeCast<Param>(child))
            return true;
    }
    return false;
}

} // namespace

Param* addParam(RVOpenNode* node, const ParamSpec& spec)
{
    Param* const param = addOfType(node->GetParamHelper(), spec.name(), spec.type);
    if (!param)
        return nullptr;
    if (spec.dimensional)
        NodeAccess::setAttribute(param, names::attribute::prop(), names::value::dimensional());
    if (spec.initialise)
        spec.initialise(*param);
    return param;
}

void populateParams(RVOpenNode* node, const ParamSpec* specs, std::size_t count)
{
    node->GetParamHelper()->Populate();
    if (hasParam(node))
        return;
    for (std::size_t i = 0; i < count; ++i)
        addParam(node, specs[i]);
}

} // namespace rvopen
