// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include <rvopen/Scheme.h>

#include <rvopen/Background.h>
#include <rvopen/RVOpenSchema.h>
#include <rvopen/model/Names.h>

namespace rvopen {

Scheme::Scheme(RVOpenNode* source)
    : RVOpenNode(source)
{
}

Scheme::~Scheme() = default;

bool Scheme::IsExterior() const
{
    return GetSubCat() == names::subCategory::exterior();
}

bool Scheme::IsInterior() const
{
    return GetSubCat() == names::subCategory::interior();
}

bool Scheme::IsProduct() const
{
    return GetSubCat() == names::subCategory::product();
}

Background* Scheme::GetBackground()
{
    for (RVOpenNode* child = GetChild(1, 1); child; child = child->GetNext(1)) {
        if (Background* const background = RVOpenSchema::isNodeBackground(child))
            return background;
    }
    return nullptr;
}

} // namespace rvopen
