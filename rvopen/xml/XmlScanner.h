// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include <rvopen/QtCompat.h>
#include <rvopen/RVOpenLimits.h>

#include <QString>

#include <array>
#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>
#include <vector>

namespace rvopen::xml {

using View = std::u16string_view;
using compat::Size;

inline View viewOf(const QString& text)
{
    return View(reinterpret_cast<const char16_t*>(text.constData()),
                static_cast<size_t>(text.size()));
}

inline QString toQString(View view)
{
    return QString(reinterpret_cast<const QChar*>(view.data()), static_cast<Size>(view.size()));
}

struct Entity {
    enum Kind { Internal, External, Unparsed };
    Kind kind = Internal;
    /// What an internal entity stands for.
    std::u16string text;
    /// Being read, so that a reference to it would never end.
    bool open = false;
};

using Entities = std::unordered_map<View, Entity>;

/// Of the attributes of one element, those that have a default.
struct Defaults {
    int count = 0;
    /// Characters that each tag without them gets.
    qint64 size = 0;
};

struct Declaration {
    View version;
    View encoding;
    View standalone;
    /// Just behind it; null when there is none.
    const char16_t* end = nullptr;
};

/// A text being read: the document, or the replacement of an entity in the place of a reference.
struct Input {
    const char16_t* at = nullptr;
    const char16_t* end = nullptr;
    /// What stands before this is in the output already, or is not meant for it.
    const char16_t* copied = nullptr;
    Entity* entity = nullptr;
    /// Elements open at its start.
    size_t depth = 0;
};

/// One pass over the text. Each operation moves the place in the current input behind what it is
/// named after, or fails; none recurses with the depth of elements or entities.
class Scanner {
public:
    explicit Scanner(const QString& text);

    bool document();
    bool declaration();

    const Declaration& declared() const
    {
        return m_declaration;
    }
    bool isMarked() const
    {
        return m_marked;
    }
    bool isRewritten() const
    {
        return m_rewritten;
    }
    /// All of the text as the parser is to read it, after document().
    QString output();
    const QString& message() const
    {
        return m_message;
    }
    qsizetype failedAt() const;

private:
    bool fail(const char* message);
    bool fail(const char* message, View name);
    bool failAtCharacter();

    bool atEnd() const
    {
        return m_in.at == m_in.end;
    }
    bool isAt(char16_t c) const
    {
        return m_in.at != m_in.end && *m_in.at == c;
    }
    bool isAt(View text) const
    {
        return remaining().substr(0, text.size()) == text;
    }
    bool isAtQuote() const
    {
        return isAt(u'"') || isAt(u'\'');
    }
    View remaining() const
    {
        return View(m_in.at, static_cast<size_t>(m_in.end - m_in.at));
    }
    bool accept(char16_t c);
    bool accept(View text);
    bool skipBlanks();
    bool blanks();
    bool skipTo(char16_t stop);
    View word();
    View name();
    View qualifiedName();

    bool pseudoAttribute(View& value);

    bool content();
    bool markup();
    bool startTag();
    bool endTag();
    bool attributes();
    bool uniqueAttributes();
    qint64 defaultsOf(View element) const;
    bool attributeValue();
    bool characters();
    bool cdata();
    bool comment();
    bool instruction();

    enum class Place { Content, Value };
    bool reference(Place place);
    bool characterReference(char32_t& character);
    bool enterEntity(Entity& entity, const char16_t* reference);
    bool expand(qint64 size);
    bool leaveEntity();

    bool documentType();
    bool subset();
    bool subsetItem();
    bool parameterReference();
    bool elementDeclaration();
    bool contentModel();
    bool mixedModel();
    bool modelGroup(int depth);
    void occurrence();
    bool attributeListDeclaration();
    bool attributeType();
    bool alternatives(bool names);
    bool attributeDefault(View element, View attribute);
    bool entityDeclaration();
    bool entityValue(std::u16string& value);
    bool notationDeclaration();
    enum class SystemId { Needed, Optional };
    bool externalId(SystemId systemId);
    bool publicLiteral();
    bool systemLiteral();
    bool literal(View& value);

    void noteCharacters(const char16_t* start, const char16_t* end);
    void endRun();
    void mark();
    void markReference(View entity);

    void flush();
    void drop();
    void substitute(const char* replacement);
    void separateBrackets();

    View m_text;
    Input m_in;
    std::vector<Input> m_outer;

    std::array<View, MaxNestingDepth> m_elements;
    size_t m_depth = 0;
    std::vector<View> m_attributes;
    /// Of the character data since the last markup: whether it has a character that is no space in
    /// Qt's eyes, and one that is a space in Qt's eyes only.
    bool m_hasInk = false;
    bool m_hasOtherSpace = false;

    /// Names that are not all ASCII and were found good.
    std::unordered_set<View> m_names;

    Declaration m_declaration;
    Entities m_entities;
    Entities m_parameterEntities;
    std::unordered_map<View, Defaults> m_defaults;
    bool m_declaredElsewhere = false;
    qint64 m_expansion = 0;

    QString m_output;
    bool m_rewritten = false;
    bool m_marked = false;

    QString m_message;
};

/// Whether Qt reads it as a name. Of the characters that may stand in names by the fifth edition of
/// XML 1.0, Qt takes those that the earlier ones allowed; and it does not look at the names of all
/// things.
bool isReadableName(const QString& name);

} // namespace rvopen::xml
