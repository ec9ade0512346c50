// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include <rvopen/ShaderPlainColour.h>

#include <rvopen/RVOpenStatus.h>
#include <rvopen/model/ComponentEquality.h>
#include <rvopen/model/Names.h>
#include <rvopen/model/ParamAccess.h>

#include <algorithm>
#include <iterator>

namespace rvopen {

ShaderPlainColour::ShaderPlainColour() = default;

ShaderPlainColour::~ShaderPlainColour() = default;

unsigned int ShaderPlainColour::GetColour(float* const out)
{
    return onParam(this, names::parameter::colour, &Param::GetValColour, out);
}

unsigned int ShaderPlainColour::SetColour(float* const rgb)
{
    return onParamOrNew(this, {names::parameter::colour, ParamType::Colour}, &Param::SetValColour,
                        rgb);
}

bool ShaderPlainColour::Equal(ShaderPlainColour* other)
{
    if (!other || IsEnabled() != other->IsEnabled())
        return false;
    const ArchivesStayClosed closed;
    if (const auto decided = equalByArchive(this, other))
        return *decided;
    float colour[3] = {};
    float otherColour[3] = {};
    return GetColour(colour) != StatusOk || other->GetColour(otherColour) != StatusOk ||
           std::equal(std::begin(colour), std::end(colour), std::begin(otherColour));
}

} // namespace rvopen
