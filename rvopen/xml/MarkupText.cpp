// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include <rvopen/xml/MarkupText.h>

#include <algorithm>

namespace rvopen::xml {

namespace {

/// Stands for the character itself.
const QLatin1String s_itself;

bool isName(View name)
{
    return !name.empty() && isNameStart(name.front()) &&
           std::all_of(name.begin(), name.end(), isNamePart);
}

/// In quotes of the kind that \p literal has none of.
QString quoted(const QString& literal)
{
    const QChar quote = QLatin1Char(literal.contains(QLatin1Char('\'')) ? '"' : '\'');
    return quote + literal + quote;
}

QString publicLiteral(QString id)
{
    std::replace_if(
        id.begin(), id.end(), [](QChar c) { return !isPublicIdCharacter(c.unicode()); },
        QLatin1Char('_'));
    return id;
}

/// Of two kinds of quotes one becomes its code in an address.
QString systemLiteral(QString id)
{
    if (id.contains(QLatin1Char('\'')))
        id.replace(QLatin1Char('"'), QLatin1String("%22"));
    return id;
}

} // namespace

QString encodedName(const QString& name)
{
    if (isName(viewOf(name)))
        return name;
    QString encoded;
    for (const QChar c : name) {
        if (encoded.isEmpty() ? isNameStart(c.unicode()) : isNamePart(c.unicode())) {
            encoded += c;
        } else {
            encoded +=
                QLatin1String("_x") +
                QString::number(c.unicode(), 16).toUpper().rightJustified(4, QLatin1Char('0')) +
                QLatin1Char('_');
        }
    }
    return encoded.isEmpty() ? QStringLiteral("_") : encoded;
}

void MarkupText::appendBlanks(compat::Size count)
{
    if (m_blanks.size() < count)
        m_blanks.fill(QLatin1Char(' '), count * 2);
    m_text.append(m_blanks.constData(), count);
}

void MarkupText::appendDocumentType(const QString& name, const QString& publicId,
                                    const QString& systemId)
{
    m_text += QLatin1String("<!DOCTYPE ") + encodedName(name);
    if (!publicId.isNull())
        m_text += QLatin1String(" PUBLIC ") + quoted(publicLiteral(publicId)) + QLatin1Char(' ');
    else if (!systemId.isNull())
        m_text += QLatin1String(" SYSTEM ");
    if (!publicId.isNull() || !systemId.isNull())
        append(quoted(systemLiteral(systemId)), [](char16_t) { return s_itself; });
    m_text += QLatin1String(">\n");
}

void MarkupText::appendAttribute(const QString& name, const QString& value)
{
    m_text += QLatin1Char(' ');
    m_text += name;
    m_text += QLatin1String("=\"");
    append(value, [this](char16_t c) {
        switch (c) {
        case u'<':
            return QLatin1String("&lt;");
        case u'&':
            return QLatin1String("&amp;");
        case u'"':
            return QLatin1String("&quot;");
        case u'>':
            return endsInBrackets() ? QLatin1String("&gt;") : s_itself;
        case u'\t':
            return QLatin1String("&#x9;");
        case u'\n':
            return QLatin1String("&#xa;");
        case u'\r':
            return QLatin1String("&#xd;");
        default:
            return s_itself;
        }
    });
    m_text += QLatin1Char('"');
}

void MarkupText::appendCharacters(const QString& text)
{
    append(text, [this](char16_t c) {
        switch (c) {
        case u'<':
            return QLatin1String("&lt;");
        case u'&':
            return QLatin1String("&amp;");
        case u'>':
            return endsInBrackets() ? QLatin1String("&gt;") : s_itself;
        case u'\r':
            return QLatin1String("&#xd;");
        default:
            return s_itself;
        }
    });
}

void MarkupText::appendCdata(const QString& text)
{
    m_text += QLatin1String("<![CDATA[");
    append(text, [this](char16_t c) {
        return c == u'>' && endsInBrackets() ? QLatin1String("]]><![CDATA[>") : s_itself;
    });
    m_text += QLatin1String("]]>");
}

void MarkupText::appendComment(QString text)
{
    const QLatin1String hyphens("--");
    while (text.contains(hyphens))
        text.replace(hyphens, QLatin1String("- -"));
    if (text.endsWith(QLatin1Char('-')))
        text += QLatin1Char(' ');
    m_text += QLatin1String("<!--");
    append(text, [](char16_t) { return s_itself; });
    m_text += QLatin1String("-->");
}

void MarkupText::appendInstruction(const QString& target, const QString& data)
{
    const bool isReserved = target.compare(QLatin1String("xml"), Qt::CaseInsensitive) == 0;
    m_text += isReserved ? QLatin1String("<?_") : QLatin1String("<?");
    m_text += encodedName(target) + QLatin1Char(' ');
    append(data, [this](char16_t c) {
        return c == u'>' && m_text.endsWith(QLatin1Char('?')) ? QLatin1String(" >") : s_itself;
    });
    m_text += QLatin1String("?>");
}

/// \p replace gives what is written for a character that needs a second look.
template <typename Replace>
void MarkupText::append(const QString& text, Replace replace)
{
    const View view = viewOf(text);
    const char16_t* const end = view.data() + view.size();
    const char16_t* run = view.data();
    for (const char16_t* at = run; at != end;) {
        if (isPlain(*at)) {
            ++at;
            continue;
        }
        append(run, at);
        run = at;
        const int length = characterLength(at, end);
        const QLatin1String replacement = replace(*at);
        at += std::max(length, 1);
        if (length == 0)
            m_text += QChar(QChar::ReplacementCharacter);
        else if (replacement.size() > 0)
            m_text += replacement;
        else
            continue;
        run = at;
    }
    append(run, end);
}

void MarkupText::append(const char16_t* begin, const char16_t* end)
{
    m_text.append(reinterpret_cast<const QChar*>(begin), static_cast<compat::Size>(end - begin));
}

bool MarkupText::endsInBrackets() const
{
    return m_text.endsWith(QLatin1String("]]"));
}

} // namespace rvopen::xml
