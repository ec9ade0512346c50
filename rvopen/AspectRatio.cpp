// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include <rvopen/AspectRatio.h>

#include <rvopen/model/ParamAccess.h>

namespace rvopen {

AspectRatio::AspectRatio(RVOpenNode* source)
    : RVOpenNode(source)
{
}

AspectRatio::~AspectRatio() = default;

unsigned int AspectRatio::GetAspectRatio(float* out)
{
    return onParam(this, names::parameter::aspectRatio, &Param::GetValFloat, out);
}

} // namespace rvopen
