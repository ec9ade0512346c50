// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include <rvopen/model/ParamAccess.h>

namespace rvopen {

/// As onParam(), but \p before when there is no such parameter: of a sequence of accesses the last
/// parameter that exists decides the status.
template <typename Operation, typename... Arguments>
unsigned int onParamAfter(unsigned int before, RVOpenNode* node, names::Name name,
                          Operation operation, Arguments&&... arguments)
{
    Param* const param = findParam(node, name);
    return param ? (param->*operation)(std::forward<Arguments>(arguments)...) : before;
}

} // namespace rvopen
