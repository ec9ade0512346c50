// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include <rvopen/xml/XmlCharacters.h>

namespace rvopen::xml {

inline constexpr View SpaceAttribute = u"xml:space";

/// Whether white space in an element is content, by the value of its SpaceAttribute and by what
/// holds around it. Values of no meaning change nothing.
constexpr bool preservesSpace(View value, bool isPreservedAround)
{
    return value == u"preserve" || (isPreservedAround && value != u"default");
}

} // namespace rvopen::xml
