// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include <rvopen/xml/XmlTokens.h>

#include <QString>

namespace rvopen::xml {

/// The character that a predefined entity stands for; 0 for other entities.
char16_t predefined(View entity);

/// What \p text, which passed the scanner, stands for: references to characters and predefined
/// entities become the characters. Other references stay as they are.
QString decodedText(View text);
/// The same for the value of an attribute, in which white space becomes blanks unless a reference
/// stands for it.
QString decodedValue(View value);

inline QString valueOf(const Attribute& attribute)
{
    return attribute.isPlain ? toQString(attribute.value) : decodedValue(attribute.value);
}

} // namespace rvopen::xml
