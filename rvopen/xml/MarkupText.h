// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include <rvopen/xml/XmlCharacters.h>

#include <QLatin1String>
#include <QString>

namespace rvopen::xml {

/// \p name, or where a character of it may stand in no name, its code for it, as in "_x0020_".
QString encodedName(const QString& name);

/// The text of a document while it grows. Whatever a piece is made of, it can be read again: what
/// has a meaning of its own is escaped, what would end the piece early is broken up, and U+FFFD
/// takes the place of what no document may contain.
class MarkupText {
public:
    const QString& text() const
    {
        return m_text;
    }

    /// \name As it is
    /// @{
    void append(QLatin1Char c)
    {
        m_text += c;
    }
    void append(QLatin1String text)
    {
        m_text += text;
    }
    void append(const QString& text)
    {
        m_text += text;
    }
    void appendBlanks(compat::Size count);
    /// @}

    /// \name Pieces
    /// @{
    void appendDocumentType(const QString& name, const QString& publicId, const QString& systemId);
    void appendAttribute(const QString& name, const QString& value);
    void appendCharacters(const QString& text);
    void appendCdata(const QString& text);
    void appendComment(QString text);
    void appendInstruction(const QString& target, const QString& data);
    /// @}

private:
    template <typename Replace>
    void append(const QString& text, Replace replace);
    void append(const char16_t* begin, const char16_t* end);
    bool endsInBrackets() const;

    QString m_text;
    QString m_blanks;
};

} // namespace rvopen::xml
