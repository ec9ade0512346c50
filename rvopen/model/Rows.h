// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include <rvopen/model/ParamAccess.h>

/// Definitions of operations that differ in a name and a type alone, a row each. The classes'
/// headers declare and document them.

/// A typed getter or setter of one parameter.
#define RVOPEN_GET(Class, Operation, name, Type, Value)                                            \
    unsigned int Class::Operation(Value out)                                                       \
    {                                                                                              \
        return onParam(this, names::parameter::name, &Param::GetVal##Type, out);                   \
    }
#define RVOPEN_SET(Class, Operation, name, Type, Value)                                            \
    unsigned int Class::Operation(Value value)                                                     \
    {                                                                                              \
        return onParam(this, names::parameter::name, &Param::SetVal##Type, value);                 \
    }
/// A setter that creates its parameter.
#define RVOPEN_SET_OR_NEW(Class, Operation, name, Type, Value)                                     \
    unsigned int Class::Operation(Value value)                                                     \
    {                                                                                              \
        return onParamOrNew(this, {names::parameter::name, ParamType::Type}, &Param::SetVal##Type, \
                            value);                                                                \
    }
/// A getter of a text, empty when it is missing or of another type.
#define RVOPEN_GET_TEXT(Class, Operation, name)                                                    \
    QString Class::Operation()                                                                     \
    {                                                                                              \
        return stringParam(this, names::parameter::name);                                          \
    }
/// Whether the sub-category is the one of that name.
#define RVOPEN_IS_KIND(Class, Operation, kind)                                                     \
    int Class::Operation() const                                                                   \
    {                                                                                              \
        return GetSubCat() == names::subCategory::kind();                                          \
    }
