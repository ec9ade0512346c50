// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include <rvopen/RVOpenLimits.h>
#include <rvopen/RVOpenReader.h>
#include <rvopen/xml/XmlTokens.h>

#include <QString>

#include <array>
#include <vector>

/// The judge of what is a document. Qt's parsers differ in what they take, from version to version,
/// and build what they are given whatever its depth; so one scan over the text decides: well-formed
/// by XML 1.0, without an internal subset in its document type, within the bounds of
/// RVOpenLimits.h. What it finds it tells to a handler. External entities and subsets are not read.
namespace rvopen::xml {

/// One pass over a text whose line ends are line feeds. Each operation moves the place behind what
/// it is named after and tells of it, or fails; none recurses with the depth of elements.
class Scanner {
public:
    explicit Scanner(View text);

    bool atEnd() const
    {
        return m_at == m_end;
    }
    bool isAt(char16_t c) const
    {
        return m_at != m_end && *m_at == c;
    }
    bool isAt(View text) const
    {
        return remaining().substr(0, text.size()) == text;
    }
    /// Between the start tag and the end tag of the root.
    bool isInElement() const
    {
        return m_depth > 0;
    }
    Markup markup() const;

    /// The first failure is the reason; what it makes fail is not. False in any case.
    bool fail(const char* message);
    /// Why and where it failed; the file of \p error stays.
    void describe(ReadError& error) const;

    bool skipBlanks();
    /// There need not be one.
    bool declaration(Declaration& declaration);
    bool documentType(DocumentType& type);

    bool startTag(StartTag& tag);
    /// Empty where the start tag ended the element.
    bool endTag(View& tag);
    bool unclosed();

    /// None when it is at markup, a reference to an entity or the end.
    bool characters(Characters& characters);
    /// To an entity that is not predefined.
    bool reference(View& entity);
    bool cdata(View& text);
    bool comment(View& text);
    bool instruction(Instruction& instruction);

private:
    bool fail(const char* message, View name);
    bool failAtCharacter();

    View remaining() const
    {
        return View(m_at, static_cast<std::size_t>(m_end - m_at));
    }
    View since(const char16_t* start) const
    {
        return View(start, static_cast<std::size_t>(m_at - start));
    }
    bool isAtQuote() const
    {
        return isAt(u'"') || isAt(u'\'');
    }
    bool accept(char16_t c);
    bool accept(View text);
    bool blanks();
    bool skipTo(char16_t stop);
    View name();

    bool pseudoAttribute(View& value);
    bool externalId(DocumentType& type);
    bool literal(View& value);

    bool attributes(StartTag& tag);
    bool commonAttributes(StartTag& tag);
    bool attributeValue(Attribute& attribute);
    bool uniqueNames(const std::vector<Attribute>& attributes);

    bool characterReference(char32_t& character);
    bool entityReference(View& entity);

    bool use(qint64 memory);

    const View m_text;
    const char16_t* m_at;
    const char16_t* const m_end;

    std::array<View, MaxNestingDepth> m_elements;
    std::size_t m_depth = 0;
    bool m_isEmptyElement = false;
    /// Those of a tag's attributes, while they are compared.
    std::vector<View> m_names;

    bool m_isStandalone = false;
    bool m_hasExternalSubset = false;

    const qint64 m_maxMemory;
    /// Of the document that can be built from what was passed, as far as it is known.
    qint64 m_memory = 0;

    QString m_message;
};

/// Takes no notice of anything. Other handlers have the same operations; what they are given is
/// valid until they return, and its views as long as the text.
struct NoHandler {
    void declaration(const Declaration&) {}
    void documentType(const DocumentType&) {}
    void startTag(const StartTag&) {}
    /// Empty where the start tag ended the element.
    void endTag(View) {}
    void characters(const Characters&) {}
    /// To an entity that is declared, if anywhere, where nobody reads.
    void reference(View) {}
    void cdata(View) {}
    void comment(View) {}
    void instruction(const Instruction&) {}
};

namespace detail {

template <typename Handler>
bool scanText(Scanner& scanner, Handler& handler)
{
    Characters characters;
    if (!scanner.characters(characters))
        return false;
    if (!characters.text.empty())
        handler.characters(characters);
    if (scanner.atEnd())
        return scanner.unclosed();
    View entity;
    if (scanner.isAt(u'<'))
        return true;
    if (!scanner.reference(entity))
        return false;
    handler.reference(entity);
    return true;
}

/// \p tag and what it holds serve for all start tags.
template <typename Handler>
bool scanMarkup(Scanner& scanner, Handler& handler, StartTag& tag)
{
    View text;
    Instruction instruction;
    switch (scanner.markup()) {
    case Markup::StartTag:
        if (!scanner.startTag(tag))
            return false;
        handler.startTag(tag);
        if (tag.isEmpty && scanner.endTag(text))
            handler.endTag(text);
        return true;
    case Markup::EndTag:
        if (!scanner.endTag(text))
            return false;
        handler.endTag(text);
        return true;
    case Markup::Cdata:
        if (!scanner.cdata(text))
            return false;
        handler.cdata(text);
        return true;
    case Markup::Comment:
        if (!scanner.comment(text))
            return false;
        handler.comment(text);
        return true;
    case Markup::Instruction:
        if (!scanner.instruction(instruction))
            return false;
        handler.instruction(instruction);
        return true;
    case Markup::Declaration:
        break;
    }
    return scanner.fail("There is a declaration where none may be");
}

} // namespace detail

/// Tells the handler of all that is in the document. False when it is none; the handler was then
/// told of what stands before the place of the failure.
template <typename Handler>
bool scan(Scanner& scanner, Handler& handler)
{
    Declaration declaration;
    if (!scanner.declaration(declaration))
        return false;
    if (declaration.version.data())
        handler.declaration(declaration);
    StartTag tag;
    bool isTyped = false;
    bool isRooted = false;
    while (scanner.skipBlanks(), !scanner.atEnd()) {
        if (scanner.isAt(u"<!DOCTYPE") && !isTyped && !isRooted) {
            isTyped = true;
            DocumentType type;
            if (!scanner.documentType(type))
                return false;
            handler.documentType(type);
            continue;
        }
        const bool isMarkup = scanner.isAt(u'<');
        const Markup markup = scanner.markup();
        const bool isAside =
            isMarkup && (markup == Markup::Comment || markup == Markup::Instruction);
        if (!isAside && isRooted)
            return scanner.fail("There is something else after the root element");
        if (!isMarkup || markup == Markup::EndTag || markup == Markup::Cdata)
            return scanner.fail("There is something else before the root element");
        if (!detail::scanMarkup(scanner, handler, tag))
            return false;
        isRooted = isRooted || !isAside;
        while (scanner.isInElement()) {
            if (scanner.isAt(u'<') ? !detail::scanMarkup(scanner, handler, tag)
                                   : !detail::scanText(scanner, handler))
                return false;
        }
    }
    return isRooted || scanner.fail("There is no root element");
}

/// Whether the text, whose line ends are line feeds, is a document.
bool isAccepted(const QString& text);

/// Gives the error the place of the character with this index.
void setPlace(ReadError& error, View text, qsizetype index);

/// The data of an XML declaration in the form that the library writes: double quotes, and UTF-8
/// where another encoding is declared. Data that is none gives `version="1.0" encoding="utf-8"`.
QString normalDeclaration(const QString& data);
QString normalDeclaration(const Declaration& declaration);

} // namespace rvopen::xml
