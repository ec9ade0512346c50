// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include <rvopen/Param.h>
#include <rvopen/RVOpenStatus.h>
#include <rvopen/model/Changes.h>
#include <rvopen/model/Names.h>
#include <rvopen/model/NodeAccess.h>

#include <cstddef>
#include <utility>

namespace rvopen {

enum class ParamType { Float, Int, String, Bool, Colour, Vector, Point };

/// How a class creates one of its parameters.
struct ParamSpec {
    names::Name name;
    ParamType type;
    bool dimensional = false;
    /// Sets the initial value where it is not the one of ParamHelper's Add operation.
    void (*initialise)(Param&) = nullptr;
};

/// Appends the parameter to \p node; null when it could not be created.
Param* addParam(RVOpenNode* node, const ParamSpec& spec);

/// The element of the first parameter of that name among all children of \p node, also where no
/// look-up finds it: in an archive that the node stands for, or behind a child that is none. Null
/// when there is none.
QDomElement hiddenParam(RVOpenNode* node, const QString& name);

/// Creates the \p count parameters at \p specs in order, on a node that has no parameter at all.
void populateParams(RVOpenNode* node, const ParamSpec* specs, std::size_t count);

template <std::size_t Count>
void populateParams(RVOpenNode* node, const ParamSpec (&specs)[Count])
{
    populateParams(node, specs, Count);
}

inline Param* findParam(RVOpenNode* node, names::Name name)
{
    return node->GetParamHelper()->GetParam(name());
}

/// Calls \p operation, a typed getter or setter of Param, on the parameter of that name.
/// StatusMissing when there is none.
template <typename Operation, typename... Arguments>
unsigned int onParam(RVOpenNode* node, names::Name name, Operation operation,
                     Arguments&&... arguments)
{
    Param* const param = findParam(node, name);
    return param ? (param->*operation)(std::forward<Arguments>(arguments)...) : StatusMissing;
}

/// As onParam(), but \p before when there is no such parameter: of a sequence of accesses the last
/// parameter that exists decides the status.
template <typename Operation, typename... Arguments>
unsigned int onParamAfter(unsigned int before, RVOpenNode* node, names::Name name,
                          Operation operation, Arguments&&... arguments)
{
    Param* const param = findParam(node, name);
    return param ? (param->*operation)(std::forward<Arguments>(arguments)...) : before;
}

/// As onParam() with a typed getter, for parameters that older documents lack: where it cannot be
/// read, the output, unless it is null, gets what its absence means.
template <typename Getter, typename Value>
unsigned int onParamOrDefault(RVOpenNode* node, names::Name name, Getter getter, Value* out,
                              Value whenAbsent)
{
    const unsigned int status = onParam(node, name, getter, out);
    if (status != StatusOk && out)
        *out = whenAbsent;
    return status;
}

/// As onParam(), creating the parameter first when there is none among all children, so that a
/// document that is loaded, set and saved does not grow. StatusMissing when it cannot be created.
template <typename Operation, typename... Arguments>
unsigned int onParamOrNew(RVOpenNode* node, const ParamSpec& spec, Operation operation,
                          Arguments&&... arguments)
{
    Param* param = findParam(node, spec.name);
    const changes::Block block;
    if (!param) {
        const QDomElement element = hiddenParam(node, spec.name());
        if (!element.isNull()) {
            ViewOf<Param> view(element);
            return (view.object().*operation)(std::forward<Arguments>(arguments)...);
        }
        param = addParam(node, spec);
    }
    return param ? (param->*operation)(std::forward<Arguments>(arguments)...) : StatusMissing;
}

/// The text of a "string" parameter, empty when it is missing or of another type.
inline QString stringParam(RVOpenNode* node, names::Name name)
{
    const Param* const param = findParam(node, name);
    return param ? param->GetValString() : QString();
}

} // namespace rvopen
