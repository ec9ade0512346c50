// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include <rvopen/xml/XmlScanner.h>

#include <rvopen/xml/XmlCharacters.h>

#include <algorithm>
#include <iterator>

// What stands between "<!DOCTYPE" and its end.

namespace rvopen::xml {

bool Scanner::documentType()
{
    m_in.at += 9;
    if (!blanks() || qualifiedName().empty())
        return false;
    if (skipBlanks() && (isAt(u"SYSTEM") || isAt(u"PUBLIC"))) {
        if (!externalId(SystemId::Needed))
            return false;
        m_declaredElsewhere = m_declaration.standalone != u"yes";
        skipBlanks();
    }
    if (accept(u'[')) {
        if (!subset())
            return false;
        skipBlanks();
    }
    return accept(u'>') || fail("The document type declaration is malformed");
}

bool Scanner::subset()
{
    flush();
    for (;;) {
        skipBlanks();
        drop();
        if (!atEnd()) {
            if (m_outer.empty() && accept(u']'))
                return true;
            if (!subsetItem())
                return false;
        } else if (m_outer.empty()) {
            return fail("The document type declaration is not closed");
        } else if (!leaveEntity()) {
            return false;
        }
    }
}

bool Scanner::subsetItem()
{
    if (isAt(u'%'))
        return parameterReference();
    if (isAt(u"<!--"))
        return comment();
    if (isAt(u"<?"))
        return instruction();
    if (accept(u"<!ELEMENT"))
        return elementDeclaration();
    if (accept(u"<!ATTLIST"))
        return attributeListDeclaration();
    if (accept(u"<!ENTITY"))
        return entityDeclaration();
    if (accept(u"<!NOTATION"))
        return notationDeclaration();
    return fail("The document type declaration is malformed");
}

bool Scanner::parameterReference()
{
    const char16_t* const start = m_in.at;
    ++m_in.at;
    const View name = this->name();
    if (name.empty())
        return false;
    if (!accept(u';'))
        return fail("The reference to \"%1\" has no semicolon", name);
    const auto found = m_parameterEntities.find(name);
    if (found != m_parameterEntities.end() && found->second.kind == Entity::Internal)
        return enterEntity(found->second, start);
    // What it stands for is not read, so that nobody knows what else is declared there.
    if (m_declaration.standalone != u"yes")
        m_declaredElsewhere = true;
    return true;
}

bool Scanner::elementDeclaration()
{
    if (!blanks() || qualifiedName().empty() || !blanks() || !contentModel())
        return false;
    skipBlanks();
    return accept(u'>') || fail("An element declaration is malformed");
}

bool Scanner::contentModel()
{
    if (accept(u"EMPTY") || accept(u"ANY"))
        return true;
    if (!accept(u'('))
        return fail("An element declaration is malformed");
    skipBlanks();
    return accept(u"#PCDATA") ? mixedModel() : modelGroup(1);
}

/// From behind "#PCDATA".
bool Scanner::mixedModel()
{
    bool named = false;
    for (;;) {
        skipBlanks();
        if (accept(u')')) {
            const bool starred = accept(u'*');
            return starred || !named || fail("An element declaration is malformed");
        }
        if (!accept(u'|'))
            return fail("An element declaration is malformed");
        skipBlanks();
        if (qualifiedName().empty())
            return false;
        named = true;
    }
}

/// From behind the opening bracket.
bool Scanner::modelGroup(int depth)
{
    if (depth > MaxNestingDepth)
        return fail("An element declaration is nested too deeply");
    char16_t separator = 0;
    for (;;) {
        skipBlanks();
        if (accept(u'(')) {
            if (!modelGroup(depth + 1))
                return false;
        } else {
            if (qualifiedName().empty())
                return false;
            occurrence();
        }
        skipBlanks();
        if (accept(u')')) {
            occurrence();
            return true;
        }
        if ((!isAt(u'|') && !isAt(u',')) || (separator != 0 && !isAt(separator)))
            return fail("An element declaration is malformed");
        separator = *m_in.at++;
    }
}

void Scanner::occurrence()
{
    if (isAt(u'?') || isAt(u'*') || isAt(u'+'))
        ++m_in.at;
}

bool Scanner::attributeListDeclaration()
{
    if (!blanks())
        return false;
    const View element = qualifiedName();
    if (element.empty())
        return false;
    for (;;) {
        const bool separated = skipBlanks();
        if (accept(u'>')) {
            flush();
            return true;
        }
        if (!separated)
            return fail("A blank is missing in an attribute declaration");
        const View attribute = qualifiedName();
        if (attribute.empty() || !blanks() || !attributeType() || !blanks() ||
            !attributeDefault(element, attribute))
            return false;
    }
}

bool Scanner::attributeType()
{
    if (accept(u'('))
        return alternatives(false);
    const View type = word();
    if (type == u"NOTATION")
        return blanks() && (accept(u'(') || fail("A notation list is missing")) &&
               alternatives(true);
    const View types[] = {u"CDATA",  u"ID",       u"IDREF",   u"IDREFS",
                          u"ENTITY", u"ENTITIES", u"NMTOKEN", u"NMTOKENS"};
    return std::find(std::begin(types), std::end(types), type) != std::end(types) ||
           fail("The type of an attribute is unknown");
}

/// From behind the opening bracket.
bool Scanner::alternatives(bool names)
{
    do {
        skipBlanks();
        if (names ? name().empty() : word().empty())
            return fail("A list of values is malformed");
        skipBlanks();
    } while (accept(u'|'));
    return accept(u')') || fail("A list of values is malformed");
}

bool Scanner::attributeDefault(View element, View attribute)
{
    if (accept(u"#REQUIRED") || accept(u"#IMPLIED"))
        return true;
    if (accept(u"#FIXED") && !blanks())
        return false;
    const char16_t* const start = m_in.at;
    const qint64 expansion = m_expansion;
    if (!attributeValue())
        return false;
    Defaults& defaults = m_defaults[element];
    defaults.size +=
        static_cast<qint64>(attribute.size()) + (m_in.at - start) + m_expansion - expansion;
    return ++defaults.count <= MaxAttributes || fail("An element has too many attributes");
}

bool Scanner::entityDeclaration()
{
    if (!blanks())
        return false;
    const bool parameter = accept(u'%');
    if (parameter && !blanks())
        return false;
    const View name = this->name();
    if (name.empty() || !blanks())
        return false;
    Entity entity;
    if (isAtQuote()) {
        if (!entityValue(entity.text))
            return false;
    } else {
        entity.kind = Entity::External;
        if (!externalId(SystemId::Needed))
            return false;
        const bool separated = skipBlanks();
        if (separated && !parameter && accept(u"NDATA")) {
            entity.kind = Entity::Unparsed;
            if (!blanks() || this->name().empty())
                return false;
        }
    }
    skipBlanks();
    if (!accept(u'>'))
        return fail("The declaration of \"%1\" is malformed", name);
    // Of several declarations the first one counts.
    const bool isKept = !parameter && entity.kind != Entity::Internal;
    const bool isFirst =
        (parameter ? m_parameterEntities : m_entities).emplace(name, std::move(entity)).second;
    if (isKept && isFirst)
        flush();
    return true;
}

bool Scanner::entityValue(std::u16string& value)
{
    const char16_t quote = *m_in.at++;
    while (!atEnd()) {
        const char16_t* const start = m_in.at;
        if (accept(quote))
            return true;
        if (isAt(u'%'))
            return fail("A parameter entity may not be referred to inside a declaration");
        if (accept(u'&')) {
            char32_t character = 0;
            if (isAt(u'#')) {
                if (!characterReference(character))
                    return false;
                if (character >= 0x10000) {
                    value += static_cast<char16_t>(0xD7C0 + (character >> 10));
                    value += static_cast<char16_t>(0xDC00 + (character & 0x3FF));
                } else {
                    value += static_cast<char16_t>(character);
                }
                continue;
            }
            const View name = this->name();
            if (name.empty())
                return false;
            if (!accept(u';'))
                return fail("The reference to \"%1\" has no semicolon", name);
        } else {
            const int length = characterLength(start, m_in.end);
            if (length == 0)
                return failAtCharacter();
            m_in.at += length;
        }
        value.append(start, m_in.at);
    }
    return fail("The closing quote is missing");
}

bool Scanner::notationDeclaration()
{
    if (!blanks() || name().empty() || !blanks() || !externalId(SystemId::Optional))
        return false;
    skipBlanks();
    if (!accept(u'>'))
        return fail("A notation declaration is malformed");
    flush();
    return true;
}

bool Scanner::externalId(SystemId systemId)
{
    if (accept(u"SYSTEM"))
        return blanks() && systemLiteral();
    if (!accept(u"PUBLIC"))
        return fail("An external identifier is missing");
    if (!blanks() || !publicLiteral())
        return false;
    const char16_t* const behind = m_in.at;
    const bool separated = skipBlanks();
    if (systemId == SystemId::Optional && !isAtQuote()) {
        m_in.at = behind;
        return true;
    }
    return (separated || fail("A blank is missing")) && systemLiteral();
}

bool Scanner::publicLiteral()
{
    View value;
    return literal(value) && (std::all_of(value.begin(), value.end(), isPublicIdCharacter) ||
                              fail("A public identifier contains a forbidden character"));
}

bool Scanner::systemLiteral()
{
    // XML allows both characters there, Qt neither.
    View value;
    return literal(value) && (value.find_first_of(u"<&") == View::npos ||
                              fail("A system identifier contains a \"<\" or a \"&\""));
}

bool Scanner::literal(View& value)
{
    if (!isAtQuote())
        return fail("A quote is missing");
    const char16_t quote = *m_in.at++;
    const char16_t* const start = m_in.at;
    if (!skipTo(quote))
        return false;
    value = View(start, static_cast<size_t>(m_in.at - start));
    return accept(quote) || fail("The closing quote is missing");
}

} // namespace rvopen::xml
