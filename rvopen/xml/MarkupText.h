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
    /// What has been appended. Nothing can be appended after that.
    QString take();

    /// \name As it is
    /// @{
    void append(char16_t c)
    {
        *room(1) = c;
        ++m_length;
    }
    void append(QLatin1String text);
    void append(const QString& text);
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
    bool endsIn(char16_t c) const;

    /// Where the next \p count characters go, which m_length does not count yet.
    char16_t* room(compat::Size count)
    {
        if (m_size - m_length < count)
            grow(count);
        return m_data + m_length;
    }
    void grow(compat::Size count);

    /// With what is not used yet: an operation of QString's for each piece of a tag would take
    /// longer than to write it.
    QString m_text;
    char16_t* m_data = nullptr;
    compat::Size m_size = 0;
    compat::Size m_length = 0;
};

} // namespace rvopen::xml
