// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include <rvopen/manager/Retired.h>

#include <rvopen/model/Components.h>

#include <algorithm>

namespace rvopen {

Retired::~Retired() = default;

void Retired::keep(View<RVOpenNode> object)
{
    if (object)
        m_objects.push_back(std::move(object));
}

void Retired::keep(std::unique_ptr<QDomDocument> document)
{
    if (document)
        m_documents.push_back(std::move(document));
}

bool Retired::holds(const RVOpenNode* object) const
{
    return std::any_of(m_objects.begin(), m_objects.end(),
                       [object](const auto& held) { return deletesAlong(held.get(), object); });
}

} // namespace rvopen
