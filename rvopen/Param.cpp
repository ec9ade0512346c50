// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include <rvopen/Param.h>

#include <rvopen/RVOpenStatus.h>
#include <rvopen/model/Changes.h>
#include <rvopen/model/LookUp.h>
#include <rvopen/model/Names.h>
#include <rvopen/model/NodeAccess.h>
#include <rvopen/model/UnitsScale.h>
#include <rvopen/model/ValueText.h>

#include <QDomElement>

#include <algorithm>
#include <cmath>

/// Definitions of the operations that are alike for several types, a row each.
#define RVOPEN_IS_TYPE(Operation, type)                                                            \
    int Param::Operation() const                                                                   \
    {                                                                                              \
        return isType(names::paramType::type());                                                   \
    }
#define RVOPEN_SET_TRIPLE_TYPE(Operation, type)                                                    \
    void Param::Operation(float* const triple)                                                     \
    {                                                                                              \
        if (triple)                                                                                \
            setTypeAndValue(names::paramType::type(), valueText::fromTriple(triple));              \
    }
#define RVOPEN_TRIPLE(Get, Set, IsType)                                                            \
    unsigned int Param::Get(float* const out) const                                                \
    {                                                                                              \
        return IsType() ? valueText::toTriple(value(), out) : StatusMissing;                       \
    }                                                                                              \
    unsigned int Param::Set(float* const newValue)                                                 \
    {                                                                                              \
        return IsType() && newValue ? setValue(valueText::fromTriple(newValue)) : StatusMissing;   \
    }

namespace rvopen {

namespace {

unsigned int rangeValue(const Param* param, const QString& name, float* out)
{
    return valueText::toFloat(NodeAccess::attribute(param, name), out);
}

} // namespace

Param::Param() = default;

Param::~Param() = default;

void Param::SetDomNode(QDomNode node)
{
    RVOpenNode::SetDomNode(node);
}

Param* Param::GetNext()
{
    return paramFrom<Param>(GetNext(0));
}

RVOPEN_IS_TYPE(IsFloat, floatType)
RVOPEN_IS_TYPE(IsBool, boolean)
RVOPEN_IS_TYPE(IsShader, shader)
RVOPEN_IS_TYPE(IsColour, colour)
RVOPEN_IS_TYPE(IsVector, vector)
RVOPEN_IS_TYPE(IsPoint, point)
RVOPEN_IS_TYPE(IsString, string)
RVOPEN_IS_TYPE(IsInt, integer)

int Param::IsDimensional() const
{
    return NodeAccess::attribute(this, names::attribute::prop())
        .contains(names::value::dimensional());
}

int Param::IsReadOnly() const
{
    return NodeAccess::attribute(this, names::attribute::prop()).contains(names::value::readOnly());
}

void Param::SetTypeFloat(float sceneValue)
{
    setTypeAndValue(names::paramType::floatType(),
                    valueText::fromFloat(toDocumentUnits(sceneValue)));
}

void Param::SetTypeInt(int newValue)
{
    setTypeAndValue(names::paramType::integer(), QString::number(newValue));
}

void Param::SetTypeBool(int newValue)
{
    setTypeAndValue(names::paramType::boolean(), valueText::fromBool(newValue));
}

void Param::SetTypeString(QString newValue)
{
    setTypeAndValue(names::paramType::string(), newValue);
}

void Param::SetTypeShader(QString newValue)
{
    setTypeAndValue(names::paramType::shader(), newValue);
}

RVOPEN_SET_TRIPLE_TYPE(SetTypeColour, colour)
RVOPEN_SET_TRIPLE_TYPE(SetTypeVector, vector)
RVOPEN_SET_TRIPLE_TYPE(SetTypePoint, point)

unsigned int Param::GetValFloat(float* out)
{
    if (!IsFloat() || !out)
        return StatusMissing;
    const unsigned int status = valueText::toFloat(value(), out);
    if (IsDimensional())
        *out /= GetUnitsScale();
    return status;
}

unsigned int Param::SetValFloat(float newValue)
{
    return IsFloat() ? setValue(valueText::fromFloat(toDocumentUnits(newValue))) : StatusMissing;
}

unsigned int Param::GetValInt(int* out) const
{
    return IsInt() && out ? valueText::toInt(value(), out) : StatusMissing;
}

unsigned int Param::SetValInt(int newValue)
{
    return IsInt() ? setValue(QString::number(newValue)) : StatusMissing;
}

unsigned int Param::GetValBool(int* out) const
{
    return IsBool() && out ? valueText::toBool(value(), out) : StatusMissing;
}

unsigned int Param::SetValBool(int newValue)
{
    return IsBool() ? setValue(valueText::fromBool(newValue)) : StatusMissing;
}

RVOPEN_TRIPLE(GetValColour, SetValColour, IsColour)
RVOPEN_TRIPLE(GetValVector, SetValVector, IsVector)
RVOPEN_TRIPLE(GetValPoint, SetValPoint, IsPoint)

QString Param::GetValString() const
{
    return IsString() ? value() : QString();
}

unsigned int Param::SetValString(QString newValue)
{
    return IsString() ? setValue(newValue) : StatusMissing;
}

QString Param::GetValShaderType() const
{
    return IsShader() ? value() : QString();
}

unsigned int Param::SetValShaderType(QString newValue)
{
    return IsShader() ? setValue(newValue) : StatusMissing;
}

unsigned int Param::GetFloatRange(float* outMin, float* outMax) const
{
    if (!IsFloat())
        return StatusMissing;
    float rangeMin = 0.0f;
    float rangeMax = 0.0f;
    if (rangeValue(this, names::attribute::rangeMin(), &rangeMin) != StatusOk ||
        rangeValue(this, names::attribute::rangeMax(), &rangeMax) != StatusOk)
        return StatusMissing;

    float low = rangeMin;
    float high = rangeMax;
    float centre = 0.0f;
    float percent = 0.0f;
    if (rangeValue(this, names::attribute::centre(), &centre) == StatusOk &&
        rangeValue(this, names::attribute::range(), &percent) == StatusOk) {
        const float half =
            static_cast<float>(static_cast<double>(std::fabs(centre) * percent) * 0.01);
        low = centre - half;
        high = centre + half;
        if (low > rangeMax)
            low = rangeMax;
        if (rangeMin > high)
            high = rangeMin;
        low = std::max(rangeMin, low);
        high = std::min(high, rangeMax);
    }
    if (outMin)
        *outMin = low;
    if (outMax)
        *outMax = high;
    return StatusOk;
}

bool Param::isType(const QString& type) const
{
    return NodeAccess::attribute(this, names::attribute::type()) == type;
}

QString Param::value() const
{
    return NodeAccess::attribute(this, names::attribute::val());
}

unsigned int Param::setValue(const QString& text)
{
    NodeAccess::setAttribute(this, names::attribute::val(), text);
    return StatusOk;
}

void Param::setTypeAndValue(const QString& type, const QString& text)
{
    const changes::Block block;
    NodeAccess::setAttribute(this, names::attribute::type(), type);
    setValue(text);
}

float Param::toDocumentUnits(float sceneValue)
{
    return IsDimensional() ? sceneValue * GetUnitsScale() : sceneValue;
}

float Param::GetUnitsScale()
{
    if (m_unitsScale != 0.0f)
        return m_unitsScale;
    m_unitsScale = 1.0f;
    const QDomDocument document = GetDomNode().ownerDocument();
    QDomElement root = document.documentElement();
    if (!root.isNull() && root.tagName() != names::element::snapRoot()) {
        m_innerSnapRoot = InnerSnapRoot::of(document);
        root = m_innerSnapRoot->element();
    }
    valueText::toFloat(root.attribute(names::attribute::unitsScale()), &m_unitsScale);
    return m_unitsScale;
}

} // namespace rvopen
