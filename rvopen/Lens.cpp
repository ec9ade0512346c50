// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include <rvopen/Lens.h>

#include <rvopen/model/ParamAccess.h>

namespace rvopen {

Lens::Lens(RVOpenNode* source)
    : RVOpenNode(source)
{
}

Lens::~Lens() = default;

unsigned int Lens::GetAngle(float* out)
{
    return onParam(this, names::parameter::angle, &Param::GetValFloat, out);
}

unsigned int Lens::SetAngle(float angle)
{
    return onParam(this, names::parameter::angle, &Param::SetValFloat, angle);
}

} // namespace rvopen
