// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include <rvopen/xml/XmlScanner.h>

#include <rvopen/xml/XmlCharacters.h>
#include <rvopen/xml/XmlGuard.h>

#include <QXmlStreamReader>

#include <algorithm>

namespace rvopen::xml {

Scanner::Scanner(const QString& text)
    : m_text(viewOf(text))
{
    m_in.at = m_text.data();
    m_in.end = m_in.at + m_text.size();
    m_in.copied = m_in.at;
}

bool Scanner::document()
{
    if (!declaration())
        return false;
    bool typed = false;
    bool rooted = false;
    for (;;) {
        skipBlanks();
        if (atEnd())
            return rooted || fail("There is no root element");
        if (isAt(u"<?")) {
            if (!instruction())
                return false;
        } else if (isAt(u"<!--")) {
            if (!comment())
                return false;
        } else if (isAt(u"<!DOCTYPE") && !typed && !rooted) {
            typed = true;
            if (!documentType())
                return false;
        } else if (isAt(u'<') && !rooted) {
            rooted = true;
            if (!content())
                return false;
        } else {
            return fail(rooted ? "There is something else after the root element"
                               : "There is something else before the root element");
        }
    }
}

bool Scanner::declaration()
{
    if (!isAt(u"<?xml") || m_in.end - m_in.at < 6 || !isBlank(m_in.at[5]))
        return true;
    m_in.at += 5;
    skipBlanks();
    if (!accept(u"version") || !pseudoAttribute(m_declaration.version))
        return fail("The XML declaration has no version");
    const View version = m_declaration.version;
    if (version.size() < 3 || version.substr(0, 2) != u"1." ||
        version.find_first_not_of(u"0123456789", 2) != View::npos)
        return fail("The version of XML is unknown");
    bool separated = skipBlanks();
    if (separated && accept(u"encoding")) {
        if (!pseudoAttribute(m_declaration.encoding))
            return fail("The XML declaration is malformed");
        separated = skipBlanks();
    }
    if (separated && accept(u"standalone")) {
        if (!pseudoAttribute(m_declaration.standalone))
            return fail("The XML declaration is malformed");
        skipBlanks();
    }
    const View encoding = m_declaration.encoding;
    const bool encodingIsName =
        std::all_of(encoding.begin(), encoding.end(),
                    [](char16_t c) { return c < 0x80 && isNamePart(c); }) &&
        (encoding.data() == nullptr ||
         (!encoding.empty() && isNameStart(encoding[0]) && encoding[0] != u'_'));
    const View standalone = m_declaration.standalone;
    if (!encodingIsName || (standalone.data() && standalone != u"yes" && standalone != u"no") ||
        !accept(u"?>"))
        return fail("The XML declaration is malformed");
    m_declaration.end = m_in.at;
    return true;
}

QString Scanner::output()
{
    flush();
    return m_output;
}

qsizetype Scanner::failedAt() const
{
    const char16_t* const place = m_outer.empty() ? m_in.at : m_outer.front().at;
    return place - m_text.data();
}

bool Scanner::fail(const char* message)
{
    // The first failure is the reason; what it makes fail is not.
    if (m_message.isEmpty())
        m_message = QLatin1String(message);
    return false;
}

bool Scanner::fail(const char* message, View name)
{
    if (m_message.isEmpty())
        m_message = QString(QLatin1String(message)).arg(toQString(name.substr(0, 100)));
    return false;
}

bool Scanner::failAtCharacter()
{
    if (m_message.isEmpty()) {
        m_message = QStringLiteral("A document may not contain the character U+%1")
                        .arg(uint(*m_in.at), 4, 16, QLatin1Char('0'));
    }
    return false;
}

bool Scanner::accept(char16_t c)
{
    const bool there = isAt(c);
    m_in.at += there ? 1 : 0;
    return there;
}

bool Scanner::accept(View text)
{
    const bool there = isAt(text);
    m_in.at += there ? text.size() : 0;
    return there;
}

/// Whether there were any.
bool Scanner::skipBlanks()
{
    const char16_t* const start = m_in.at;
    while (!atEnd() && isBlank(*m_in.at))
        ++m_in.at;
    return m_in.at != start;
}

bool Scanner::blanks()
{
    return skipBlanks() || fail("A blank is missing");
}

/// To the character or the end of the input; fails at a character that no document may contain.
bool Scanner::skipTo(char16_t stop)
{
    const char16_t* p = m_in.at;
    while (p != m_in.end && *p != stop) {
        if (!isPlain(*p) && !isBlank(*p)) {
            const int length = characterLength(p, m_in.end);
            if (length == 0) {
                m_in.at = p;
                return failAtCharacter();
            }
            p += length;
        } else {
            ++p;
        }
    }
    m_in.at = p;
    return true;
}

/// A run of characters that may stand in a name, colons included; empty when there is none.
View Scanner::word()
{
    const char16_t* const start = m_in.at;
    const char16_t* p = start;
    while (p != m_in.end && (isNamePart(*p) || *p == u':'))
        ++p;
    m_in.at = p;
    return View(start, static_cast<size_t>(p - start));
}

/// A name without colon; empty when there is none.
View Scanner::name()
{
    const char16_t* const start = m_in.at;
    const char16_t* p = start;
    if (p == m_in.end || !isNameStart(*p)) {
        fail("A name is missing");
        return View();
    }
    char16_t all = 0;
    while (p != m_in.end && isNamePart(*p))
        all |= *p++;
    const View name(start, static_cast<size_t>(p - start));
    if (name.size() > MaxNameLength) {
        fail("A name is too long");
        return View();
    }
    if (all >= 0x80 && m_names.count(name) == 0) {
        if (!isReadableName(toQString(name))) {
            fail("A name contains a character that no name may contain");
            return View();
        }
        m_names.insert(name);
    }
    m_in.at = p;
    return name;
}

/// A name with at most one colon, inside it; empty when there is none.
View Scanner::qualifiedName()
{
    const View first = name();
    if (first.empty() || !isAt(u':'))
        return first;
    const char16_t* const start = first.data();
    ++m_in.at;
    if (name().empty())
        return View();
    const View whole(start, static_cast<size_t>(m_in.at - start));
    if (whole.size() > MaxNameLength) {
        fail("A name is too long");
        return View();
    }
    return whole;
}

/// From the equals sign to the closing quote.
bool Scanner::pseudoAttribute(View& value)
{
    skipBlanks();
    if (!accept(u'='))
        return false;
    skipBlanks();
    if (!isAtQuote())
        return false;
    const View rest = remaining();
    const size_t end = rest.find(rest[0], 1);
    if (end == View::npos)
        return false;
    value = rest.substr(1, end - 1);
    m_in.at += end + 1;
    return true;
}

/// The root element, from its start tag to its end tag.
bool Scanner::content()
{
    if (!startTag())
        return false;
    while (m_depth > 0) {
        if (!characters())
            return false;
        if (isAt(u'<'))
            endRun();
        bool done = false;
        if (atEnd()) {
            if (m_outer.empty())
                return fail("The element \"%1\" is not closed", m_elements[m_depth - 1]);
            done = leaveEntity();
        } else {
            done = isAt(u'&') ? reference(Place::Content) : markup();
        }
        if (!done)
            return false;
    }
    return true;
}

bool Scanner::markup()
{
    switch (m_in.end - m_in.at > 1 ? m_in.at[1] : u'\0') {
    case u'/':
        return endTag();
    case u'?':
        return instruction();
    case u'!':
        if (isAt(u"<!--"))
            return comment();
        if (isAt(u"<![CDATA["))
            return cdata();
        return fail("There is a declaration inside the root element");
    default:
        return startTag();
    }
}

bool Scanner::startTag()
{
    ++m_in.at;
    const View element = qualifiedName();
    if (element.empty())
        return false;
    if (m_depth == m_elements.size())
        return fail("The elements are nested too deeply");
    if (!attributes() || !expand(defaultsOf(element)))
        return false;
    if (accept(u'/'))
        return accept(u'>') || fail("The tag of \"%1\" is malformed", element);
    if (!accept(u'>'))
        return fail("The tag of \"%1\" is malformed", element);
    m_elements[m_depth++] = element;
    return true;
}

bool Scanner::endTag()
{
    m_in.at += 2;
    if (m_depth == m_in.depth)
        return fail("An element ends that did not begin here");
    const View element = m_elements[m_depth - 1];
    const bool same = accept(element);
    skipBlanks();
    if (!same || !accept(u'>'))
        return fail("The element \"%1\" is not closed", element);
    --m_depth;
    return true;
}

bool Scanner::attributes()
{
    m_attributes.clear();
    for (;;) {
        const bool separated = skipBlanks();
        if (isAt(u'>') || isAt(u'/'))
            return uniqueAttributes();
        if (!separated)
            return fail("A blank is missing in a tag");
        const View attribute = qualifiedName();
        if (attribute.empty())
            return false;
        if (m_attributes.size() == MaxAttributes)
            return fail("An element has too many attributes");
        m_attributes.push_back(attribute);
        skipBlanks();
        if (!accept(u'='))
            return fail("The attribute \"%1\" has no value", attribute);
        skipBlanks();
        if (!attributeValue())
            return false;
    }
}

bool Scanner::uniqueAttributes()
{
    const size_t few = 12;
    if (m_attributes.size() > few) {
        std::sort(m_attributes.begin(), m_attributes.end());
        const auto twice = std::adjacent_find(m_attributes.begin(), m_attributes.end());
        return twice == m_attributes.end() || fail("The attribute \"%1\" stands twice", *twice);
    }
    for (size_t i = 1; i < m_attributes.size(); ++i) {
        for (size_t j = 0; j < i; ++j) {
            if (m_attributes[i] == m_attributes[j])
                return fail("The attribute \"%1\" stands twice", m_attributes[i]);
        }
    }
    return true;
}

/// Characters that the tag may get from declarations.
qint64 Scanner::defaultsOf(View element) const
{
    if (m_defaults.empty())
        return 0;
    const auto found = m_defaults.find(element);
    return found == m_defaults.end() ? 0 : found->second.size;
}

bool Scanner::attributeValue()
{
    if (!isAtQuote())
        return fail("A quote is missing");
    const char16_t quote = *m_in.at++;
    const size_t outside = m_outer.size();
    for (;;) {
        const char16_t* p = m_in.at;
        while (p != m_in.end && isPlain(*p))
            ++p;
        m_in.at = p;
        if (atEnd()) {
            if (m_outer.size() == outside)
                return fail("The closing quote is missing");
            if (!leaveEntity())
                return false;
            continue;
        }
        const char16_t c = *p;
        if (c == quote) {
            if (m_outer.size() == outside) {
                ++m_in.at;
                return true;
            }
            substitute(quote == u'"' ? "&quot;" : "&apos;");
        } else if (c == u'&') {
            if (!reference(Place::Value))
                return false;
        } else if (c == u'<') {
            return fail("There is a \"<\" in the value of an attribute");
        } else if (c == u'\r' && !m_outer.empty()) {
            substitute(" ");
        } else {
            const int length = characterLength(p, m_in.end);
            if (length == 0)
                return failAtCharacter();
            m_in.at += length;
        }
    }
}

/// Up to markup, a reference or the end of the input.
bool Scanner::characters()
{
    for (;;) {
        const char16_t* p = m_in.at;
        while (p != m_in.end && (*p == u' ' || *p == u'\n'))
            ++p;
        const char16_t* const inked = p;
        while (p != m_in.end && (isPlain(*p) || *p == u'\n'))
            ++p;
        noteCharacters(inked, p);
        m_in.at = p;
        if (p == m_in.end || *p == u'<' || *p == u'&')
            return true;
        if (*p == u']' && isAt(u"]]>"))
            return fail("There is a \"]]>\" outside a CDATA section");
        if (*p == u'\r' && !m_outer.empty()) {
            substitute("&#13;");
            continue;
        }
        const int length = characterLength(p, m_in.end);
        if (length == 0)
            return failAtCharacter();
        noteCharacters(p, p + length);
        m_in.at += length;
    }
}

bool Scanner::cdata()
{
    m_in.at += 9;
    const char16_t* const start = m_in.at;
    while (skipTo(u']')) {
        if (isAt(u"]]>")) {
            if (std::all_of(start, m_in.at, isMarkable))
                mark();
            m_in.at += 3;
            return true;
        }
        if (!accept(u']'))
            return fail("A CDATA section is not closed");
    }
    return false;
}

bool Scanner::comment()
{
    m_in.at += 4;
    while (skipTo(u'-')) {
        if (accept(u"-->"))
            return true;
        if (isAt(u"--"))
            return fail("There is a \"--\" in a comment");
        if (!accept(u'-'))
            return fail("A comment is not closed");
    }
    return false;
}

bool Scanner::instruction()
{
    m_in.at += 2;
    const View target = name();
    if (target.empty())
        return false;
    if (target.size() == 3 && (target[0] | 0x20) == u'x' && (target[1] | 0x20) == u'm' &&
        (target[2] | 0x20) == u'l')
        return fail("The XML declaration is malformed or not at the start");
    if (accept(u"?>"))
        return true;
    if (!blanks())
        return false;
    while (skipTo(u'?')) {
        if (accept(u"?>"))
            return true;
        if (!accept(u'?'))
            return fail("A processing instruction is not closed");
    }
    return false;
}

bool Scanner::reference(Place place)
{
    const char16_t* const start = m_in.at;
    ++m_in.at;
    if (isAt(u'#')) {
        char32_t character = 0;
        if (!characterReference(character))
            return false;
        const char16_t unit = character < 0x10000 ? static_cast<char16_t>(character) : u'?';
        if (place == Place::Content)
            noteCharacters(&unit, &unit + 1);
        return true;
    }
    const View name = this->name();
    if (name.empty())
        return false;
    if (!accept(u';'))
        return fail("The reference to \"%1\" has no semicolon", name);
    if (name == u"lt" || name == u"gt" || name == u"amp" || name == u"quot" || name == u"apos") {
        m_hasInk = m_hasInk || place == Place::Content;
        return true;
    }
    const auto found = m_entities.find(name);
    if (found != m_entities.end() && found->second.kind == Entity::Internal)
        return enterEntity(found->second, start);
    if (found == m_entities.end() && !m_declaredElsewhere)
        return fail("The entity \"%1\" is not declared", name);
    if (found != m_entities.end() &&
        (found->second.kind == Entity::Unparsed || place == Place::Value))
        return fail("The entity \"%1\" may not be referred to here", name);
    if (place == Place::Value)
        return true;
    const char16_t* const behind = m_in.at;
    m_in.at = start;
    endRun();
    if (found != m_entities.end())
        markReference(name);
    m_in.at = behind;
    if (found != m_entities.end())
        m_in.copied = behind;
    return true;
}

bool Scanner::characterReference(char32_t& character)
{
    ++m_in.at;
    const bool hexadecimal = accept(u'x');
    const char32_t base = hexadecimal ? 16 : 10;
    const char16_t* const start = m_in.at;
    character = 0;
    for (; !atEnd(); ++m_in.at) {
        const char16_t c = *m_in.at;
        char32_t digit = 0;
        if (c >= u'0' && c <= u'9')
            digit = c - U'0';
        else if (hexadecimal && c >= u'a' && c <= u'f')
            digit = c - U'a' + 10;
        else if (hexadecimal && c >= u'A' && c <= u'F')
            digit = c - U'A' + 10;
        else
            break;
        character = std::min<char32_t>(character * base + digit, 0x110000);
    }
    if (m_in.at == start || !isAt(u';'))
        return fail("A character reference is malformed");
    if (!isCharacter(character))
        return fail("A character reference stands for a character that no document may contain");
    ++m_in.at;
    return true;
}

/// Goes on with what the entity stands for. A part of it that could not stand by itself, such as
/// half a tag, fails where it ends.
bool Scanner::enterEntity(Entity& entity, const char16_t* reference)
{
    if (entity.open)
        return fail("An entity refers to itself");
    // One more, so that references to nothing count.
    if (!expand(static_cast<qint64>(entity.text.size()) + 1))
        return false;
    const char16_t* const behind = m_in.at;
    m_in.at = reference;
    flush();
    separateBrackets();
    m_in.at = behind;
    m_in.copied = behind;
    entity.open = true;
    m_outer.push_back(m_in);
    m_in.at = entity.text.data();
    m_in.end = m_in.at + entity.text.size();
    m_in.copied = m_in.at;
    m_in.entity = &entity;
    m_in.depth = m_depth;
    return true;
}

/// Counts what references and defaults add to the text.
bool Scanner::expand(qint64 size)
{
    m_expansion += size;
    return m_expansion <= std::max(MaxEntityExpansion, static_cast<qint64>(m_text.size())) ||
           fail("The declarations of the document expand it too much");
}

bool Scanner::leaveEntity()
{
    if (m_depth != m_in.depth)
        return fail("An entity does not close the element \"%1\"", m_elements[m_depth - 1]);
    flush();
    separateBrackets();
    m_in.entity->open = false;
    m_in = m_outer.back();
    m_outer.pop_back();
    return true;
}

void Scanner::noteCharacters(const char16_t* start, const char16_t* end)
{
    for (; start != end && !m_hasInk; ++start) {
        if (isBlank(*start))
            continue;
        m_hasOtherSpace = isMarkable(*start);
        m_hasInk = !m_hasOtherSpace;
    }
}

void Scanner::endRun()
{
    if (!m_hasInk && m_hasOtherSpace)
        mark();
    m_hasInk = false;
    m_hasOtherSpace = false;
}

/// Qt leaves out character data in which it sees spaces only, though few of them are white space in
/// XML, and Qt 5 does so with CDATA sections; a mark in them keeps them.
void Scanner::mark()
{
    flush();
    m_output += QChar(SpacesMark);
    m_marked = true;
}

/// Qt leaves out references to external entities that the document declares.
void Scanner::markReference(View entity)
{
    flush();
    m_output += QLatin1String("<?") + QLatin1String(ReferenceMark) + QLatin1Char(' ');
    m_output += toQString(entity);
    m_output += QLatin1String("?>");
    m_marked = true;
}

/// What was passed since the last call goes to the output.
void Scanner::flush()
{
    m_output.append(reinterpret_cast<const QChar*>(m_in.copied),
                    static_cast<Size>(m_in.at - m_in.copied));
    m_in.copied = m_in.at;
    m_rewritten = true;
}

/// What was passed since the last call is not for the output, but for its line ends.
void Scanner::drop()
{
    if (m_outer.empty()) {
        m_output.append(
            QString(static_cast<Size>(std::count(m_in.copied, m_in.at, u'\n')), QLatin1Char('\n')));
    }
    m_in.copied = m_in.at;
}

/// \p replacement goes to the output in the place of the next character.
void Scanner::substitute(const char* replacement)
{
    flush();
    m_output += QLatin1String(replacement);
    m_in.copied = ++m_in.at;
}

/// Keeps a "]]>" from arising where an entity's text meets its surroundings.
void Scanner::separateBrackets()
{
    if (m_output.endsWith(QLatin1Char(']'))) {
        m_output.chop(1);
        m_output += QLatin1String("&#93;");
    }
}

bool isReadableName(const QString& name)
{
    QXmlStreamReader reader(QLatin1Char('<') + name + QLatin1String("/>"));
    return reader.readNextStartElement();
}

} // namespace rvopen::xml
