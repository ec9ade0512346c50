// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include <rvopen/xml/MarkupText.h>

#include <algorithm>
#include <utility>

namespace rvopen::xml {

namespace {

/// Stands for the character itself.
const QLatin1String s_itself;

/// Characters by which a text grows at most: a large one stays below what a string can have.
constexpr compat::Size s_largestStep = 1 << 25;

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

QString MarkupText::take()
{
    m_text.truncate(m_length);
    return std::move(m_text);
}

void MarkupText::append(QLatin1String text)
{
    std::copy(text.begin(), text.end(), room(text.size()));
    m_length += text.size();
}

void MarkupText::append(const QString& text)
{
    const View view = viewOf(text);
    append(view.data(), view.data() + view.size());
}

void MarkupText::appendBlanks(compat::Size count)
{
    std::fill_n(room(count), count, u' ');
    m_length += count;
}

void MarkupText::appendDocumentType(const QString& name, const QString& publicId,
                                    const QString& systemId)
{
    append(QLatin1String("<!DOCTYPE ") + encodedName(name));
    if (!publicId.isNull())
        append(QLatin1String(" PUBLIC ") + quoted(publicLiteral(publicId)) + QLatin1Char(' '));
    else if (!systemId.isNull())
        append(QLatin1String(" SYSTEM "));
    if (!publicId.isNull() || !systemId.isNull())
        append(quoted(systemLiteral(systemId)), [](char16_t) { return s_itself; });
    append(QLatin1String(">\n"));
}

void MarkupText::appendAttribute(const QString& name, const QString& value)
{
    append(u' ');
    append(name);
    append(QLatin1String("=\""));
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
    append(u'"');
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
    append(QLatin1String("<![CDATA["));
    append(text, [this](char16_t c) {
        return c == u'>' && endsInBrackets() ? QLatin1String("]]><![CDATA[>") : s_itself;
    });
    append(QLatin1String("]]>"));
}

void MarkupText::appendComment(QString text)
{
    const QLatin1String hyphens("--");
    while (text.contains(hyphens))
        text.replace(hyphens, QLatin1String("- -"));
    if (text.endsWith(QLatin1Char('-')))
        text += QLatin1Char(' ');
    append(QLatin1String("<!--"));
    append(text, [](char16_t) { return s_itself; });
    append(QLatin1String("-->"));
}

void MarkupText::appendInstruction(const QString& target, const QString& data)
{
    const bool isReserved = target.compare(QLatin1String("xml"), Qt::CaseInsensitive) == 0;
    append(isReserved ? QLatin1String("<?_") : QLatin1String("<?"));
    append(encodedName(target) + QLatin1Char(' '));
    append(data, [this](char16_t c) {
        return c == u'>' && endsIn(u'?') ? QLatin1String(" >") : s_itself;
    });
    append(QLatin1String("?>"));
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
            append(char16_t(QChar::ReplacementCharacter));
        else if (replacement.size() > 0)
            append(replacement);
        else
            continue;
        run = at;
    }
    append(run, end);
}

void MarkupText::append(const char16_t* begin, const char16_t* end)
{
    const auto count = static_cast<compat::Size>(end - begin);
    std::copy(begin, end, room(count));
    m_length += count;
}

bool MarkupText::endsInBrackets() const
{
    return m_length > 1 && endsIn(u']') && m_data[m_length - 2] == u']';
}

bool MarkupText::endsIn(char16_t c) const
{
    return m_length > 0 && m_data[m_length - 1] == c;
}

void MarkupText::grow(compat::Size count)
{
    const compat::Size more = std::min(m_size / 2 + 1024, s_largestStep);
    m_text.resize(m_length + std::max(count, m_size - m_length + more));
    m_size = m_text.size();
    m_data = reinterpret_cast<char16_t*>(m_text.data());
}

} // namespace rvopen::xml
