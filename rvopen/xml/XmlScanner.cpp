// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include <rvopen/xml/XmlScanner.h>

#include <rvopen/xml/DomMemory.h>
#include <rvopen/xml/XmlReferences.h>

#include <algorithm>

namespace rvopen::xml {

namespace {

/// Behind the ASCII of that class that begins there.
template <detail::Class Wanted>
const char16_t* behindAscii(const char16_t* at, const char16_t* end)
{
    while (at != end && detail::isAscii(*at, Wanted))
        ++at;
    return at;
}

qint64 memoryOf(View text)
{
    return static_cast<qint64>(text.size()) * CharacterMemory;
}

} // namespace

Scanner::Scanner(View text)
    : m_text(text)
    , m_at(text.data())
    , m_end(text.data() + text.size())
    , m_maxMemory(GetMaxDocumentMemory())
{
}

Markup Scanner::markup() const
{
    switch (m_end - m_at > 1 ? m_at[1] : u'\0') {
    case u'/':
        return Markup::EndTag;
    case u'?':
        return Markup::Instruction;
    case u'!':
        if (isAt(u"<!--"))
            return Markup::Comment;
        return isAt(u"<![CDATA[") ? Markup::Cdata : Markup::Declaration;
    default:
        return Markup::StartTag;
    }
}

bool Scanner::fail(const char* message)
{
    if (m_message.isEmpty())
        m_message = QLatin1String(message);
    return false;
}

void Scanner::describe(ReadError& error) const
{
    error.message = m_message;
    setPlace(error, m_text, m_at - m_text.data());
}

/// True when there were some.
bool Scanner::skipBlanks()
{
    const char16_t* p = m_at;
    while (p != m_end && isBlank(*p))
        ++p;
    const bool isThere = p != m_at;
    m_at = p;
    return isThere;
}

bool Scanner::startTag(StartTag& tag)
{
    const char16_t* const start = m_at++;
    tag.name = name();
    if (tag.name.empty())
        return false;
    if (m_depth == m_elements.size())
        return fail("The elements are nested too deeply");
    const qint64 memory = ElementMemory + memoryOf(tag.name);
    if (!attributes(tag) || !use(tag.attributes.empty() ? memory : memory + AttributeTableMemory))
        return false;
    tag.isEmpty = accept(u'/');
    if (!accept(u'>'))
        return fail("The tag of \"%1\" is malformed", tag.name);
    tag.text = since(start);
    m_isEmptyElement = tag.isEmpty;
    m_elements[m_depth++] = tag.name;
    return true;
}

bool Scanner::endTag(View& tag)
{
    const char16_t* const start = m_at;
    if (m_isEmptyElement) {
        m_isEmptyElement = false;
    } else {
        m_at += 2;
        const View element = m_elements[m_depth - 1];
        const bool isSame = accept(element);
        skipBlanks();
        if (!isSame || !accept(u'>'))
            return unclosed();
    }
    --m_depth;
    tag = since(start);
    return true;
}

bool Scanner::unclosed()
{
    return fail("The element \"%1\" is not closed", m_elements[m_depth - 1]);
}

bool Scanner::characters(Characters& characters)
{
    const char16_t* const start = m_at;
    const char16_t* p = m_at;
    for (;;) {
        p = behindAscii<detail::Blank>(p, m_end);
        const char16_t* const inked = p;
        while (p != m_end && (isPlain(*p) || *p == u'\n'))
            ++p;
        characters.isBlank = characters.isBlank && p == inked;
        m_at = p;
        if (p == m_end || *p == u'<')
            break;
        char32_t character = *p;
        if (character == u'&') {
            View entity;
            const bool isNumber = m_end - p > 1 && p[1] == u'#';
            if (isNumber ? !characterReference(character) : !entityReference(entity))
                return false;
            if (!isNumber && predefined(entity) == u'\0') {
                m_at = p;
                break;
            }
            characters.isPlain = false;
        } else {
            const int length = characterLength(p, m_end);
            if (length == 0)
                return failAtCharacter();
            if (isAt(u"]]>"))
                return fail("There is a \"]]>\" outside a CDATA section");
            m_at += length;
        }
        characters.isBlank =
            characters.isBlank && character < 0x80 && isBlank(static_cast<char16_t>(character));
        p = m_at;
    }
    characters.text = since(start);
    return characters.text.empty() || use(LeafMemory + memoryOf(characters.text));
}

bool Scanner::reference(View& entity)
{
    if (!entityReference(entity))
        return false;
    return use(LeafMemory + memoryOf(entity));
}

bool Scanner::cdata(View& text)
{
    m_at += 9;
    const char16_t* const start = m_at;
    while (skipTo(u']')) {
        if (isAt(u"]]>")) {
            text = since(start);
            m_at += 3;
            return use(LeafMemory + memoryOf(text));
        }
        if (!accept(u']'))
            return fail("A CDATA section is not closed");
    }
    return false;
}

bool Scanner::comment(View& text)
{
    m_at += 4;
    const char16_t* const start = m_at;
    while (skipTo(u'-')) {
        if (isAt(u"--")) {
            text = since(start);
            return accept(u"-->") ? use(LeafMemory + memoryOf(text))
                                  : fail("There is a \"--\" in a comment");
        }
        if (!accept(u'-'))
            return fail("A comment is not closed");
    }
    return false;
}

bool Scanner::instruction(Instruction& instruction)
{
    m_at += 2;
    const View target = name();
    if (target.empty())
        return false;
    if (target.size() == 3 && (target[0] | 0x20) == u'x' && (target[1] | 0x20) == u'm' &&
        (target[2] | 0x20) == u'l')
        return fail("The XML declaration is malformed or not at the start");
    instruction.target = target;
    if (!isAt(u"?>") && !blanks())
        return false;
    const char16_t* const start = m_at;
    while (skipTo(u'?')) {
        if (isAt(u"?>")) {
            instruction.data = since(start);
            m_at += 2;
            return use(LeafMemory + memoryOf(target) + memoryOf(instruction.data));
        }
        if (!accept(u'?'))
            return fail("A processing instruction is not closed");
    }
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
                        .arg(uint(*m_at), 4, 16, QLatin1Char('0'));
    }
    return false;
}

bool Scanner::accept(char16_t c)
{
    const bool isThere = isAt(c);
    m_at += isThere ? 1 : 0;
    return isThere;
}

bool Scanner::accept(View text)
{
    const bool isThere = isAt(text);
    m_at += isThere ? text.size() : 0;
    return isThere;
}

bool Scanner::blanks()
{
    return skipBlanks() || fail("A blank is missing");
}

/// To the character or the end of the text; fails at a character that no document may contain.
bool Scanner::skipTo(char16_t stop)
{
    const char16_t* p = m_at;
    while (p != m_end && *p != stop) {
        if (!isPlain(*p) && !isBlank(*p)) {
            const int length = characterLength(p, m_end);
            if (length == 0) {
                m_at = p;
                return failAtCharacter();
            }
            p += length;
        } else {
            ++p;
        }
    }
    m_at = p;
    return true;
}

/// Empty when there is none.
View Scanner::name()
{
    const char16_t* p = m_at;
    if (p == m_end || !isNameStart(*p)) {
        fail("A name is missing");
        return View();
    }
    while (p != m_end && isNamePart(*p))
        ++p;
    const View name(m_at, static_cast<std::size_t>(p - m_at));
    if (name.size() > MaxNameLength) {
        fail("A name is too long");
        return View();
    }
    m_at = p;
    return name;
}

bool Scanner::literal(View& value)
{
    if (!isAtQuote())
        return fail("A quote is missing");
    const char16_t quote = *m_at++;
    const char16_t* const start = m_at;
    if (!skipTo(quote))
        return false;
    value = since(start);
    return accept(quote) || fail("The closing quote is missing");
}

bool Scanner::attributes(StartTag& tag)
{
    tag.attributes.clear();
    for (;;) {
        if (!commonAttributes(tag))
            return false;
        const bool isSeparated = skipBlanks();
        if (isAt(u'>') || isAt(u'/'))
            return uniqueNames(tag.attributes);
        if (!isSeparated)
            return fail("A blank is missing in a tag");
        const View name = this->name();
        if (name.empty())
            return false;
        if (tag.attributes.size() == MaxAttributes)
            return fail("An element has too many attributes");
        skipBlanks();
        if (!accept(u'='))
            return fail("The attribute \"%1\" has no value", name);
        skipBlanks();
        Attribute& attribute = tag.attributes.emplace_back();
        attribute.name = name;
        if (!attributeValue(attribute))
            return false;
        if (!use(AttributeMemory + memoryOf(name) + memoryOf(attribute.value)))
            return false;
    }
}

/// Those that are written as nearly all are: a blank before the name, nothing around the sign,
/// double quotes, and ASCII that stands for itself. Ends before the first that is not, which takes
/// the longer way.
bool Scanner::commonAttributes(StartTag& tag)
{
    while (isAt(u' ') && tag.attributes.size() < MaxAttributes) {
        const char16_t* const name = m_at + 1;
        if (name == m_end || !detail::isAscii(*name, detail::NameStart))
            return true;
        const char16_t* const sign = behindAscii<detail::NamePart>(name, m_end);
        const auto nameLength = static_cast<std::size_t>(sign - name);
        if (m_end - sign < 2 || sign[0] != u'=' || sign[1] != u'"' || nameLength > MaxNameLength)
            return true;
        const char16_t* const value = sign + 2;
        const char16_t* const quote = behindAscii<detail::Plain>(value, m_end);
        if (quote == m_end || *quote != u'"')
            return true;
        Attribute& attribute = tag.attributes.emplace_back();
        attribute.name = View(name, nameLength);
        attribute.value = View(value, static_cast<std::size_t>(quote - value));
        m_at = quote + 1;
        if (!use(AttributeMemory + memoryOf(attribute.name) + memoryOf(attribute.value)))
            return false;
    }
    return true;
}

bool Scanner::attributeValue(Attribute& attribute)
{
    if (!isAtQuote())
        return fail("A quote is missing");
    const char16_t quote = *m_at++;
    const char16_t* const start = m_at;
    for (;;) {
        const char16_t* p = m_at;
        while (p != m_end && isPlain(*p))
            ++p;
        m_at = p;
        if (atEnd())
            return fail("The closing quote is missing");
        if (*p == quote) {
            attribute.value = since(start);
            ++m_at;
            return true;
        }
        if (*p == u'<')
            return fail("There is a \"<\" in the value of an attribute");
        if (*p == u'&') {
            char32_t character = 0;
            View entity;
            const bool isNumber = m_end - p > 1 && p[1] == u'#';
            if (isNumber ? !characterReference(character) : !entityReference(entity))
                return false;
            attribute.isPlain = false;
            continue;
        }
        const int length = characterLength(p, m_end);
        if (length == 0)
            return failAtCharacter();
        attribute.isPlain = attribute.isPlain && !isBlank(*p);
        m_at += length;
    }
}

bool Scanner::uniqueNames(const std::vector<Attribute>& attributes)
{
    const std::size_t few = 12;
    if (attributes.size() > few) {
        m_names.clear();
        for (const Attribute& attribute : attributes)
            m_names.push_back(attribute.name);
        std::sort(m_names.begin(), m_names.end());
        const auto twice = std::adjacent_find(m_names.begin(), m_names.end());
        return twice == m_names.end() || fail("The attribute \"%1\" stands twice", *twice);
    }
    for (std::size_t i = 1; i < attributes.size(); ++i) {
        for (std::size_t j = 0; j < i; ++j) {
            // Most differ in the first letter, and a comparison of views takes a loop.
            const View one = attributes[i].name;
            const View other = attributes[j].name;
            if (one[0] == other[0] && one == other)
                return fail("The attribute \"%1\" stands twice", attributes[i].name);
        }
    }
    return true;
}

bool Scanner::characterReference(char32_t& character)
{
    m_at += 2;
    const bool isHexadecimal = accept(u'x');
    const char32_t base = isHexadecimal ? 16 : 10;
    const char16_t* const start = m_at;
    character = 0;
    for (; !atEnd(); ++m_at) {
        const char16_t c = *m_at;
        char32_t digit = 0;
        if (c >= u'0' && c <= u'9')
            digit = c - U'0';
        else if (isHexadecimal && c >= u'a' && c <= u'f')
            digit = c - U'a' + 10;
        else if (isHexadecimal && c >= u'A' && c <= u'F')
            digit = c - U'A' + 10;
        else
            break;
        character = std::min<char32_t>(character * base + digit, 0x110000);
    }
    if (m_at == start || !isAt(u';'))
        return fail("A character reference is malformed");
    if (!isCharacter(character))
        return fail("A character reference stands for a character that no document may contain");
    ++m_at;
    return true;
}

/// To a predefined entity, or to one that may be declared where nobody reads.
bool Scanner::entityReference(View& entity)
{
    ++m_at;
    entity = name();
    if (entity.empty())
        return false;
    if (!accept(u';'))
        return fail("The reference to \"%1\" has no semicolon", entity);
    return predefined(entity) != u'\0' || (m_hasExternalSubset && !m_isStandalone) ||
           fail("The entity \"%1\" is not declared", entity);
}

bool Scanner::use(qint64 memory)
{
    m_memory += memory;
    return m_memory <= m_maxMemory || fail("The document would take more memory than it may have");
}

bool isAccepted(const QString& text)
{
    Scanner scanner(viewOf(text));
    NoHandler nothing;
    return scan(scanner, nothing);
}

void setPlace(ReadError& error, View text, qsizetype index)
{
    error.line = 1;
    error.column = 1;
    for (const char16_t c : text.substr(0, static_cast<std::size_t>(index))) {
        if (c == u'\n') {
            ++error.line;
            error.column = 1;
        } else if (!isLowSurrogate(c)) {
            ++error.column;
        }
    }
}

} // namespace rvopen::xml
