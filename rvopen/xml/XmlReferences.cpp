// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include <rvopen/xml/XmlReferences.h>

namespace rvopen::xml {

namespace {

/// What stands between "&#" and ";" of a good reference.
char32_t characterOf(View digits)
{
    const bool isHexadecimal = digits[0] == u'x';
    char32_t character = 0;
    for (const char16_t c : digits.substr(isHexadecimal ? 1 : 0)) {
        const char32_t digit = c <= u'9' ? c - U'0' : (c | 0x20) - U'a' + 10;
        character = character * (isHexadecimal ? 16 : 10) + digit;
    }
    return character;
}

/// \p reference stands between "&" and ";". Moves \p to behind what is written; false when the
/// reference is none to a character.
bool decodeReference(View reference, QChar*& to)
{
    const bool isNumber = reference[0] == u'#';
    const char32_t character =
        isNumber ? characterOf(reference.substr(1)) : char32_t(predefined(reference));
    if (character == 0)
        return false;
    if (QChar::requiresSurrogates(character)) {
        *to++ = QChar(QChar::highSurrogate(character));
        *to++ = QChar(QChar::lowSurrogate(character));
    } else {
        *to++ = QChar(static_cast<ushort>(character));
    }
    return true;
}

/// \p blank takes the place of white space, unless it is 0.
QString decoded(View text, char16_t blank)
{
    // No reference is shorter than what it stands for.
    QString result(static_cast<compat::Size>(text.size()), Qt::Uninitialized);
    QChar* to = result.data();
    for (std::size_t i = 0; i < text.size(); ++i) {
        const char16_t c = text[i];
        if (c == u'&') {
            const std::size_t end = text.find(u';', i);
            if (decodeReference(text.substr(i + 1, end - i - 1), to)) {
                i = end;
                continue;
            }
        }
        *to++ = QChar(blank != 0 && isBlank(c) ? blank : c);
    }
    result.truncate(static_cast<compat::Size>(to - result.constData()));
    return result;
}

} // namespace

char16_t predefined(View entity)
{
    if (entity == u"lt")
        return u'<';
    if (entity == u"gt")
        return u'>';
    if (entity == u"amp")
        return u'&';
    if (entity == u"quot")
        return u'"';
    return entity == u"apos" ? u'\'' : u'\0';
}

QString decodedText(View text)
{
    return decoded(text, u'\0');
}

QString decodedValue(View value)
{
    return decoded(value, u' ');
}

} // namespace rvopen::xml
