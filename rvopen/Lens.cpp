// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include <rvopen/Lens.h>

#include <rvopen/model/Rows.h>

namespace rvopen {

Lens::Lens(RVOpenNode* source)
    : RVOpenNode(source)
{
}

Lens::~Lens() = default;

RVOPEN_GET(Lens, GetAngle, angle, Float, float*)
RVOPEN_SET(Lens, SetAngle, angle, Float, float)

} // namespace rvopen
