// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include <rvopen/AspectRatioOrient.h>

#include <rvopen/model/ParamAccess.h>

namespace rvopen {

AspectRatioOrient::AspectRatioOrient(RVOpenNode* source)
    : RVOpenNode(source)
{
}

AspectRatioOrient::~AspectRatioOrient() = default;

unsigned int AspectRatioOrient::IsPortrait(int* out)
{
    return onParam(this, names::parameter::portrait, &Param::GetValBool, out);
}

} // namespace rvopen
