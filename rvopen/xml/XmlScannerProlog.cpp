// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include <rvopen/xml/XmlScanner.h>

#include <algorithm>

// What stands before the root element: the XML declaration and the document type.

namespace rvopen::xml {

namespace {

/// Digits, letters, ".", "_" and "-", a letter first.
bool isEncodingName(View name)
{
    const auto isPart = [](char16_t c) { return c < 0x80 && c != u':' && isNamePart(c); };
    return !name.empty() && isNameStart(name[0]) && name[0] != u'_' &&
           std::all_of(name.begin(), name.end(), isPart);
}

} // namespace

bool Scanner::declaration(Declaration& declaration)
{
    if (!isAt(u"<?xml") || m_end - m_at < 6 || !isBlank(m_at[5]))
        return true;
    m_at += 5;
    skipBlanks();
    if (!accept(u"version") || !pseudoAttribute(declaration.version))
        return fail("The XML declaration has no version");
    const View version = declaration.version;
    if (version.size() < 3 || version.substr(0, 2) != u"1." ||
        version.find_first_not_of(u"0123456789", 2) != View::npos)
        return fail("The version of XML is unknown");
    bool isGood = true;
    bool isSeparated = skipBlanks();
    if (isSeparated && accept(u"encoding")) {
        isGood = pseudoAttribute(declaration.encoding) && isEncodingName(declaration.encoding);
        isSeparated = skipBlanks();
    }
    if (isGood && isSeparated && accept(u"standalone")) {
        isGood = pseudoAttribute(declaration.standalone) &&
                 (declaration.standalone == u"yes" || declaration.standalone == u"no");
        skipBlanks();
    }
    m_isStandalone = declaration.standalone == u"yes";
    return (isGood && accept(u"?>")) || fail("The XML declaration is malformed");
}

bool Scanner::documentType(DocumentType& type)
{
    m_at += 9;
    if (!blanks())
        return false;
    type.name = name();
    if (type.name.empty())
        return false;
    if (skipBlanks() && (isAt(u"SYSTEM") || isAt(u"PUBLIC"))) {
        if (!externalId(type))
            return false;
        m_hasExternalSubset = true;
        skipBlanks();
    }
    if (isAt(u'['))
        return fail("The document type has an internal subset, which is not read");
    return accept(u'>') || fail("The document type declaration is malformed");
}

/// From the equals sign to the closing quote.
bool Scanner::pseudoAttribute(View& value)
{
    skipBlanks();
    if (!accept(u'='))
        return false;
    skipBlanks();
    return literal(value);
}

bool Scanner::externalId(DocumentType& type)
{
    const bool isPublic = isAt(u'P');
    m_at += 6;
    if (!blanks())
        return false;
    if (isPublic) {
        if (!literal(type.publicId))
            return false;
        if (!std::all_of(type.publicId.begin(), type.publicId.end(), isPublicIdCharacter))
            return fail("A public identifier contains a forbidden character");
        if (!blanks())
            return false;
    }
    return literal(type.systemId);
}

QString normalDeclaration(const Declaration& declaration)
{
    QString data = QLatin1String("version=\"") + toQString(declaration.version) + QLatin1Char('"');
    if (declaration.encoding.data()) {
        const QString utf8 = QStringLiteral("utf-8");
        const QString encoding = toQString(declaration.encoding);
        data += QLatin1String(" encoding=\"") +
                (encoding.compare(utf8, Qt::CaseInsensitive) == 0 ? encoding : utf8) +
                QLatin1Char('"');
    }
    if (declaration.standalone.data()) {
        data +=
            QLatin1String(" standalone=\"") + toQString(declaration.standalone) + QLatin1Char('"');
    }
    return data;
}

QString normalDeclaration(const QString& data)
{
    const QString text = QLatin1String("<?xml ") + data + QLatin1String("?>");
    Scanner scanner(viewOf(text));
    Declaration declaration;
    if (scanner.declaration(declaration) && declaration.version.data())
        return normalDeclaration(declaration);
    return QStringLiteral("version=\"1.0\" encoding=\"utf-8\"");
}

} // namespace rvopen::xml
