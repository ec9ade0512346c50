// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "Labels.h"

#include "toolkit/documents/Utf8.h"

#include <rvopen/toolkit/edit/NodePath.h>

#include <algorithm>

namespace rvopen::toolkit {

namespace {

QString escaped(const QString& text, const char* special)
{
    const QLatin1String signs(special);
    const auto isSign = [signs](QChar c) {
        return c == EscapeSign || std::any_of(signs.begin(), signs.end(),
                                              [c](char sign) { return c == QLatin1Char(sign); });
    };
    const auto isPlain = [&isSign](QChar c) { return c.unicode() >= 0x20 && !isSign(c); };
    if (std::all_of(text.cbegin(), text.cend(), isPlain))
        return text;
    QString result;
    for (const QChar c : text) {
        if (isSign(c))
            result += EscapeSign;
        if (c == QLatin1Char('\n'))
            result += QLatin1String("\\n");
        else if (c == QLatin1Char('\t'))
            result += QLatin1String("\\t");
        else
            result += c;
    }
    return result;
}

/// Escaped in an identity, and escaped where it begins with them: conditions do.
constexpr std::string_view s_identitySigns = "]*";
constexpr std::string_view s_firstSigns = "@:";

/// Whether the identity stands in labels as it is.
bool isPlainIdentity(std::string_view identity)
{
    const auto isOneOf = [](std::string_view signs, char c) {
        return signs.find(c) != std::string_view::npos;
    };
    return (identity.empty() || !isOneOf(s_firstSigns, identity[0])) &&
           std::all_of(identity.begin(), identity.end(), [&](char c) {
               return static_cast<unsigned char>(c) >= 0x20 && QLatin1Char(c) != EscapeSign &&
                      !isOneOf(s_identitySigns, c);
           });
}

} // namespace

bool isParam(const QDomElement& element)
{
    return element.tagName() == QLatin1String("param");
}

QString Labels::next(const QDomElement& child)
{
    return next(labelOf(child));
}

QString Labels::next(const QString& label)
{
    return numbered(label, ++m_counts[label]);
}

QString joined(const QString& parentPath, const QString& label)
{
    if (parentPath.isEmpty() || label.startsWith(QLatin1Char(':')))
        return parentPath + label;
    return parentPath + QLatin1Char('/') + label;
}

QString attributePath(const QString& path, const QString& attribute)
{
    return path + QLatin1Char('@') + attribute;
}

QString labelOf(const QDomElement& element)
{
    if (isParam(element))
        return QLatin1Char(':') + escaped(element.attribute(QStringLiteral("name")), "/:@#=*");
    return labelOf(element.tagName(), IdentityOf(element));
}

QString labelOf(const QString& kind, const QString& identity)
{
    if (identity.isEmpty())
        return kind;
    QString name = escaped(identity, s_identitySigns.data());
    if (s_firstSigns.find(name[0].toLatin1()) != std::string_view::npos)
        name.prepend(EscapeSign);
    return kind + QLatin1Char('[') + name + QLatin1Char(']');
}

void appendLabel(std::string_view kind, std::string_view identity, std::string& path)
{
    if (!identity.empty() && !isPlainIdentity(identity)) {
        path += labelOf(fromUtf8(kind), fromUtf8(identity)).toStdString();
        return;
    }
    path += kind;
    if (!identity.empty()) {
        path += '[';
        path += identity;
        path += ']';
    }
}

QString numbered(const QString& label, int number)
{
    return number == 1 ? label : label + QLatin1Char('#') + QString::number(number);
}

bool hasParts(const QString& text, const QStringList& parts)
{
    if (parts.size() == 1)
        return text == parts.first();
    int at = int(parts.first().size());
    const int end = int(text.size() - parts.last().size());
    if (!text.startsWith(parts.first()) || end < at || !text.endsWith(parts.last()))
        return false;
    for (int i = 1; i + 1 < int(parts.size()); ++i) {
        const int found = int(text.indexOf(parts[i], at));
        at = found + int(parts[i].size());
        if (found < 0 || at > end)
            return false;
    }
    return true;
}

bool splitAssignment(const QString& text, QString& path, QString& value)
{
    bool isInBrackets = false;
    for (int i = 0; i < int(text.size()); ++i) {
        const QChar c = text[i];
        if (c == EscapeSign)
            ++i;
        else if (c == QLatin1Char('[') && !isInBrackets)
            isInBrackets = true;
        else if (c == QLatin1Char(']'))
            isInBrackets = false;
        else if (c == QLatin1Char('=') && !isInBrackets) {
            path = text.left(i);
            value = text.mid(i + 1);
            return true;
        }
    }
    return false;
}

} // namespace rvopen::toolkit
