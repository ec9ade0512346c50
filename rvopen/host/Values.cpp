// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include <rvopen/host/Values.h>

#include <rvopen/model/Changes.h>
#include <rvopen/model/ParamAccess.h>

#include <optional>

namespace rvopen::host {

namespace {

/// Calls \p access with the parameter of that name wherever it stands among the children; nothing
/// where there is none.
template <typename Access>
std::optional<bool> withParam(RVOpenNode* node, const QString& name, Access access)
{
    if (Param* const param = node ? node->GetParamHelper()->GetParam(name) : nullptr)
        return access(*param);
    const QDomElement element = node ? hiddenParam(node, name) : QDomElement();
    if (element.isNull())
        return std::nullopt;
    ViewOf<Param> view(element);
    return access(view.object());
}

template <typename Access>
bool read(RVOpenNode* node, const QString& name, Access access)
{
    return withParam(node, name, access).value_or(false);
}

/// Reads by an operation of Param whose output is of another type.
template <typename Stored, typename Value>
bool readAs(RVOpenNode* node, const QString& name, unsigned int (Param::*getter)(Stored*) const,
            Value& out)
{
    return read(node, name, [&](const Param& param) {
        Stored stored{};
        if ((param.*getter)(&stored) != StatusOk)
            return false;
        out = static_cast<Value>(stored);
        return true;
    });
}

template <typename Value>
bool readThree(RVOpenNode* node, const QString& name, unsigned int (Param::*getter)(float*) const,
               Value& out)
{
    return read(node, name, [&](const Param& param) {
        float three[3] = {};
        if ((param.*getter)(three) != StatusOk)
            return false;
        out = Value{three[0], three[1], three[2]};
        return true;
    });
}

/// \p add is the operation that creates one, \p set answers whether the parameter took the value.
template <typename Set>
bool write(RVOpenNode* node, const QString& name, Param* (ParamHelper::*add)(QString), Set set)
{
    if (!node || node->GetDomNode().isNull())
        return false;
    const changes::Block block;
    if (const std::optional<bool> isSet = withParam(node, name, set))
        return *isSet;
    Param* const param = (node->GetParamHelper()->*add)(name);
    return param && set(*param);
}

/// By an operation of Param that takes the value as it is.
template <typename Value, typename Taken>
bool writeAs(RVOpenNode* node, const QString& name, Param* (ParamHelper::*add)(QString),
             unsigned int (Param::*setter)(Taken), const Value& value)
{
    return write(node, name, add, [&](Param& param) { return (param.*setter)(value) == StatusOk; });
}

bool writeThree(RVOpenNode* node, const QString& name, Param* (ParamHelper::*add)(QString),
                unsigned int (Param::*setter)(float*), float first, float second, float third)
{
    return write(node, name, add, [&](Param& param) {
        float three[] = {first, second, third};
        return (param.*setter)(three) == StatusOk;
    });
}

} // namespace

bool readValue(RVOpenNode* node, const QString& name, float& out)
{
    return read(node, name, [&](Param& param) {
        int whole = 0;
        if (param.GetValInt(&whole) == StatusOk) {
            out = static_cast<float>(whole);
            return true;
        }
        // A length without a value would be converted.
        float number = 0;
        if (param.GetValFloat(&number) != StatusOk)
            return false;
        out = number;
        return true;
    });
}

bool readValue(RVOpenNode* node, const QString& name, int& out)
{
    return readAs(node, name, &Param::GetValInt, out);
}

bool readValue(RVOpenNode* node, const QString& name, bool& out)
{
    return readAs(node, name, &Param::GetValBool, out);
}

bool readValue(RVOpenNode* node, const QString& name, QString& out)
{
    return read(node, name, [&](const Param& param) {
        if (!param.IsString())
            return false;
        out = param.GetValString();
        return true;
    });
}

bool readValue(RVOpenNode* node, const QString& name, Rgb& out)
{
    return readThree(node, name, &Param::GetValColour, out);
}

bool readValue(RVOpenNode* node, const QString& name, Point& out)
{
    return readThree(node, name, &Param::GetValPoint, out);
}

bool readValue(RVOpenNode* node, const QString& name, Vector& out)
{
    return readThree(node, name, &Param::GetValVector, out);
}

bool setValue(RVOpenNode* node, const QString& name, float value)
{
    return writeAs(node, name, &ParamHelper::AddFloatParam, &Param::SetValFloat, value);
}

bool setValue(RVOpenNode* node, const QString& name, double value)
{
    return setValue(node, name, static_cast<float>(value));
}

bool setValue(RVOpenNode* node, const QString& name, int value)
{
    return write(node, name, &ParamHelper::AddIntParam, [&](Param& param) {
        return (param.IsFloat() ? param.SetValFloat(static_cast<float>(value))
                                : param.SetValInt(value)) == StatusOk;
    });
}

bool setValue(RVOpenNode* node, const QString& name, bool value)
{
    return writeAs(node, name, &ParamHelper::AddBoolParam, &Param::SetValBool, value);
}

bool setValue(RVOpenNode* node, const QString& name, const QString& value)
{
    return writeAs(node, name, &ParamHelper::AddStringParam, &Param::SetValString, value);
}

bool setValue(RVOpenNode* node, const QString& name, const char* value)
{
    return setValue(node, name, QString::fromUtf8(value));
}

bool setValue(RVOpenNode* node, const QString& name, const Rgb& value)
{
    return writeThree(node, name, &ParamHelper::AddColourParam, &Param::SetValColour, value.red,
                      value.green, value.blue);
}

bool setValue(RVOpenNode* node, const QString& name, const Point& value)
{
    return writeThree(node, name, &ParamHelper::AddPointParam, &Param::SetValPoint, value.x,
                      value.y, value.z);
}

bool setValue(RVOpenNode* node, const QString& name, const Vector& value)
{
    return writeThree(node, name, &ParamHelper::AddVectorParam, &Param::SetValVector, value.x,
                      value.y, value.z);
}

} // namespace rvopen::host
