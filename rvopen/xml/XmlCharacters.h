// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include <array>

/// The character classes of XML 1.0, for reader and writer alike.
namespace rvopen::xml {

namespace detail {

enum Class : unsigned char {
    NameStart = 1,
    NamePart = 2,
    Blank = 4,
    /// In character data and attribute values: neither forbidden nor of any meaning of its own.
    Plain = 8,
};

constexpr std::array<unsigned char, 128> asciiClasses()
{
    std::array<unsigned char, 128> classes{};
    for (char16_t c = 0x20; c < 0x80; ++c) {
        const bool letter = (c >= u'a' && c <= u'z') || (c >= u'A' && c <= u'Z') || c == u'_';
        const bool part = letter || (c >= u'0' && c <= u'9') || c == u'-' || c == u'.';
        const bool special =
            c == u'<' || c == u'&' || c == u'>' || c == u']' || c == u'"' || c == u'\'';
        classes[c] = static_cast<unsigned char>((letter ? NameStart : 0) | (part ? NamePart : 0) |
                                                (special ? 0 : Plain));
    }
    classes[u' '] = Blank | Plain;
    classes[u'\t'] = Blank;
    classes[u'\n'] = Blank;
    classes[u'\r'] = Blank;
    return classes;
}

inline constexpr std::array<unsigned char, 128> classes = asciiClasses();

constexpr bool isAscii(char16_t c, Class wanted)
{
    return c < 0x80 && (classes[c] & wanted);
}

constexpr bool isOneOf(char16_t c, const char16_t (*ranges)[2], int count)
{
    for (int i = 0; i < count; ++i) {
        if (c <= ranges[i][1])
            return c >= ranges[i][0];
    }
    return false;
}

inline constexpr char16_t otherNameStarts[][2] = {
    {0xC0, 0xD6},     {0xD8, 0xF6},     {0xF8, 0x2FF},    {0x370, 0x37D},
    {0x37F, 0x1FFF},  {0x200C, 0x200D}, {0x2070, 0x218F}, {0x2C00, 0x2FEF},
    {0x3001, 0xD7FF}, {0xF900, 0xFDCF}, {0xFDF0, 0xFFFC}};
inline constexpr char16_t otherNameParts[][2] = {{0xB7, 0xB7}, {0x300, 0x36F}, {0x203F, 0x2040}};

} // namespace detail

constexpr bool isBlank(char16_t c)
{
    return detail::isAscii(c, detail::Blank);
}

/// By the fifth edition, without colon. Characters outside the basic plane are in no name: no
/// version of Qt reads them.
constexpr bool isNameStart(char16_t c)
{
    return c < 0x80 ? detail::isAscii(c, detail::NameStart)
                    : detail::isOneOf(c, detail::otherNameStarts, 11);
}

/// Without colon.
constexpr bool isNamePart(char16_t c)
{
    return c < 0x80 ? detail::isAscii(c, detail::NamePart)
                    : isNameStart(c) || detail::isOneOf(c, detail::otherNameParts, 3);
}

/// May stand in a public identifier.
constexpr bool isPublicIdCharacter(char16_t c)
{
    const char16_t allowed[] = u" \n\r-'()+,./:=?;!*#@$_%";
    for (const char16_t other : allowed) {
        if (c == other && c != 0)
            return true;
    }
    return (c >= u'a' && c <= u'z') || (c >= u'A' && c <= u'Z') || (c >= u'0' && c <= u'9');
}

/// May stand in character data and attribute values as it is, and needs no second look.
constexpr bool isPlain(char16_t c)
{
    return c < 0x80 ? detail::isAscii(c, detail::Plain) : c < 0xD800;
}

constexpr bool isHighSurrogate(char16_t c)
{
    return (c & 0xFC00) == 0xD800;
}

constexpr bool isLowSurrogate(char16_t c)
{
    return (c & 0xFC00) == 0xDC00;
}

/// Whether a document may contain the code point.
constexpr bool isCharacter(char32_t c)
{
    return c < 0x20 ? c == U'\t' || c == U'\n' || c == U'\r'
                    : c < 0xD800 || (c >= 0xE000 && c <= 0x10FFFF && c != 0xFFFE && c != 0xFFFF);
}

/// The number of code units, 1 or 2, of the character at \p at; 0 when a document may not contain
/// what stands there: a control character, half of a surrogate pair, U+FFFE or U+FFFF.
inline int characterLength(const char16_t* at, const char16_t* end)
{
    if (isHighSurrogate(*at))
        return end - at > 1 && isLowSurrogate(at[1]) ? 2 : 0;
    return isCharacter(*at) ? 1 : 0;
}

} // namespace rvopen::xml
