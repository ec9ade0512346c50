// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include <rvopen/ParamHelper.h>

#include <rvopen/Param.h>
#include <rvopen/RVOpenStatus.h>
#include <rvopen/model/Changes.h>
#include <rvopen/model/LookUp.h>
#include <rvopen/model/Names.h>
#include <rvopen/model/NodeAccess.h>

#include <QDomDocument>

namespace rvopen {

namespace {

/// Gives a new parameter its type and value and links it as the owner's last child.
template <typename Setter, typename Value>
Param* add(ParamHelper* helper, RVOpenNode* owner, const QString& name, Setter setter, Value value)
{
    if (!NodeAccess::childOwner(owner))
        return nullptr;
    const changes::Block block;
    Param* const param = helper->CreateParam(name);
    if (!param)
        return nullptr;
    (param->*setter)(value);
    owner->AddNode(param, true);
    return param;
}

} // namespace

ParamHelper::ParamHelper(RVOpenNode* owner)
    : m_owner(owner)
{
}

ParamHelper::~ParamHelper() = default;

void ParamHelper::Populate()
{
    if (m_owner->GetChild(0, 1))
        return;
    RVOpenNode* child = m_owner->GetChild(1, 1);
    while (child)
        child = child->GetNext(1);
}

Param* ParamHelper::GetFirstParam()
{
    return paramFrom<Param>(m_owner->GetChild(0, 1));
}

Param* ParamHelper::CreateParam(QString name)
{
    Param* const param = new Param();
    if (!param)
        return nullptr;
    QDomDocument document = m_owner->GetDomNode().ownerDocument();
    param->SetDomNode(document.createElement(names::element::param()));
    param->SetName(name);
    return param;
}

Param* ParamHelper::AddFloatParam(QString name)
{
    return AddFloatParam(name, 0.0f);
}

Param* ParamHelper::AddFloatParam(QString name, float value)
{
    return add(this, m_owner, name, &Param::SetTypeFloat, value);
}

Param* ParamHelper::AddIntParam(QString name)
{
    return add(this, m_owner, name, &Param::SetTypeInt, 0);
}

Param* ParamHelper::AddStringParam(QString name)
{
    return add(this, m_owner, name, &Param::SetTypeString, QString());
}

Param* ParamHelper::AddBoolParam(QString name)
{
    return add(this, m_owner, name, &Param::SetTypeBool, 1);
}

Param* ParamHelper::AddColourParam(QString name)
{
    float white[] = {1.0f, 1.0f, 1.0f};
    return add(this, m_owner, name, &Param::SetTypeColour, white);
}

Param* ParamHelper::AddVectorParam(QString name)
{
    float unit[] = {1.0f, 1.0f, 1.0f};
    return add(this, m_owner, name, &Param::SetTypeVector, unit);
}

Param* ParamHelper::AddPointParam(QString name)
{
    float unit[] = {1.0f, 1.0f, 1.0f};
    return add(this, m_owner, name, &Param::SetTypePoint, unit);
}

Param* ParamHelper::FindParam(QString name)
{
    for (Param* param = GetFirstParam(); param; param = param->GetNext()) {
        const QString itsName = NodeAccess::attribute(param, names::attribute::name());
        if (itsName.size() == name.size() && itsName == name)
            return param;
    }
    return nullptr;
}

Param* ParamHelper::GetParam(QString name)
{
    Populate();
    return FindParam(name);
}

unsigned int ParamHelper::GetValColour(QString name, float* const out)
{
    const Param* const param = GetParam(name);
    return param ? param->GetValColour(out) : StatusMissing;
}

unsigned int ParamHelper::GetValBool(QString name, int* out)
{
    const Param* const param = GetParam(name);
    return param ? param->GetValBool(out) : StatusMissing;
}

unsigned int ParamHelper::GetValFloat(QString name, float* out)
{
    Param* const param = GetParam(name);
    return param ? param->GetValFloat(out) : StatusMissing;
}

} // namespace rvopen
