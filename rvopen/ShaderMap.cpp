// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include <rvopen/ShaderMap.h>

#include <rvopen/RVOpenStatus.h>
#include <rvopen/model/Changes.h>
#include <rvopen/model/ComponentEquality.h>
#include <rvopen/model/Names.h>
#include <rvopen/model/Rows.h>

namespace rvopen {

namespace {

/// Sets two parameters. The status is the second one's; the first one's where the second parameter
/// does not exist and could not be created.
template <typename Setter, typename Value>
unsigned int setPair(RVOpenNode* node, const ParamSpec& first, const ParamSpec& second,
                     Setter setter, Value firstValue, Value secondValue)
{
    const changes::Block block;
    const unsigned int firstStatus = onParamOrNew(node, first, setter, firstValue);
    const unsigned int secondStatus = onParamOrNew(node, second, setter, secondValue);
    return secondStatus == StatusOk || findParam(node, second.name) ? secondStatus : firstStatus;
}

/// Whether the two parameters have the same value; one that cannot be read counts as 0.
template <typename Getter, typename Value>
bool sameInPair(RVOpenNode* node, names::Name first, names::Name second, Getter getter, Value zero)
{
    const auto read = [&](names::Name name) {
        Value value = zero;
        return onParam(node, name, getter, &value) == StatusOk ? value : zero;
    };
    return read(first) == read(second);
}

bool sameMapping(ShaderMap* map)
{
    return sameInPair(map, names::parameter::sReflect, names::parameter::tReflect,
                      &Param::GetValBool, 0);
}

bool sameOffset(ShaderMap* map)
{
    return sameInPair(map, names::parameter::sOffset, names::parameter::tOffset,
                      &Param::GetValFloat, 0.0f);
}

bool hasMapping(ShaderMap* map)
{
    int s = 0;
    int t = 0;
    return map->GetMapping(&s, &t) == StatusOk;
}

bool hasOffset(ShaderMap* map)
{
    float s = 0.0f;
    float t = 0.0f;
    return map->GetOffset(&s, &t) == StatusOk;
}

/// Each map is held against itself, and only where both have the pair.
bool equalPair(ShaderMap* one, ShaderMap* other, bool (*isThere)(ShaderMap*),
               bool (*isSame)(ShaderMap*))
{
    return !isThere(one) || !isThere(other) || (isSame(one) && isSame(other));
}

} // namespace

ShaderMap::ShaderMap() = default;

ShaderMap::~ShaderMap() = default;

unsigned int ShaderMap::GetMapping(int* s, int* t)
{
    onParam(this, names::parameter::sReflect, &Param::GetValBool, s);
    return onParam(this, names::parameter::tReflect, &Param::GetValBool, t);
}

unsigned int ShaderMap::SetMapping(int s, int t)
{
    return setPair(this, {names::parameter::sReflect, ParamType::Bool},
                   {names::parameter::tReflect, ParamType::Bool}, &Param::SetValBool, s, t);
}

unsigned int ShaderMap::GetOffset(float* s, float* t)
{
    const unsigned int status = onParam(this, names::parameter::sOffset, &Param::GetValFloat, s);
    Param* const second = findParam(this, names::parameter::tOffset);
    return second ? second->GetValFloat(t) : status;
}

unsigned int ShaderMap::SetOffset(float s, float t)
{
    return setPair(this, {names::parameter::sOffset, ParamType::Float, true},
                   {names::parameter::tOffset, ParamType::Float, true}, &Param::SetValFloat, s, t);
}

RVOPEN_GET(ShaderMap, GetRotation, rotation, Float, float*)
RVOPEN_SET_OR_NEW(ShaderMap, SetRotation, rotation, Float, float)
RVOPEN_GET_TEXT(ShaderMap, GetTexture, texture)
RVOPEN_SET_OR_NEW(ShaderMap, SetTexture, texture, String, QString)
RVOPEN_GET(ShaderMap, GetWidth, width, Float, float*)

unsigned int ShaderMap::SetWidth(float value)
{
    return onParamOrNew(this, {names::parameter::width, ParamType::Float, true},
                        &Param::SetValFloat, value);
}

RVOPEN_GET(ShaderMap, GetHeight, height, Float, float*)

unsigned int ShaderMap::SetHeight(float value)
{
    return onParamOrNew(this, {names::parameter::height, ParamType::Float, true},
                        &Param::SetValFloat, value);
}

RVOPEN_GET(ShaderMap, GetUseAlpha, useAlpha, Bool, int*)
RVOPEN_SET_OR_NEW(ShaderMap, SetUseAlpha, useAlpha, Bool, int)

bool ShaderMap::Equal(ShaderMap* other)
{
    if (!other || IsEnabled() != other->IsEnabled())
        return false;
    const ArchivesStayClosed closed;
    if (const auto decided = equalByArchive(this, other))
        return *decided;
    return GetTexture() == other->GetTexture() &&
           equalWhereReadable(this, other, &ShaderMap::GetWidth) &&
           equalWhereReadable(this, other, &ShaderMap::GetHeight) &&
           equalPair(this, other, hasMapping, sameMapping) &&
           equalPair(this, other, hasOffset, sameOffset) &&
           equalWhereReadable(this, other, &ShaderMap::GetRotation) &&
           equalWhereReadable(this, other, &ShaderMap::GetUseAlpha);
}

} // namespace rvopen
