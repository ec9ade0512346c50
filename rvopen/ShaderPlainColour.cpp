// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include <rvopen/ShaderPlainColour.h>

#include <rvopen/RVOpenStatus.h>
#include <rvopen/model/ComponentEquality.h>
#include <rvopen/model/Rows.h>

#include <algorithm>
#include <iterator>

namespace rvopen {

ShaderPlainColour::ShaderPlainColour() = default;

ShaderPlainColour::~ShaderPlainColour() = default;

RVOPEN_GET(ShaderPlainColour, GetColour, colour, Colour, float*)
RVOPEN_SET_OR_NEW(ShaderPlainColour, SetColour, colour, Colour, float*)

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
