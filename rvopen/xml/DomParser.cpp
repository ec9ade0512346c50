// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include <rvopen/xml/DomParser.h>

#include <rvopen/xml/TextDecoding.h>
#include <rvopen/xml/XmlScanner.h>

#include <QDomImplementation>

namespace rvopen::xml {

namespace {

/// As long as it lives, Qt takes all characters. A host may have asked Qt to refuse or to drop some
/// that it thinks invalid, among them all that are outside the basic plane.
class AnyCharacter {
public:
    AnyCharacter()
        : m_before(QDomImplementation::invalidDataPolicy())
    {
        if (m_before != QDomImplementation::AcceptInvalidChars)
            QDomImplementation::setInvalidDataPolicy(QDomImplementation::AcceptInvalidChars);
    }
    ~AnyCharacter()
    {
        if (m_before != QDomImplementation::AcceptInvalidChars)
            QDomImplementation::setInvalidDataPolicy(m_before);
    }
    AnyCharacter(const AnyCharacter&) = delete;
    AnyCharacter& operator=(const AnyCharacter&) = delete;

private:
    const QDomImplementation::InvalidDataPolicy m_before;
};

} // namespace

std::unique_ptr<QDomDocument> parse(QString text, Namespaces namespaces, ReadError& error)
{
    normaliseLineEnds(text);
    const AnyCharacter policy;
    Scanner scanner(viewOf(text));
    DomBuilder builder(namespaces);
    if (scan(scanner, builder))
        return std::make_unique<QDomDocument>(builder.document());
    scanner.describe(error);
    return nullptr;
}

bool isDocument(QString text, ReadError& error)
{
    normaliseLineEnds(text);
    Scanner scanner(viewOf(text));
    NoHandler nobody;
    if (scan(scanner, nobody))
        return true;
    scanner.describe(error);
    return false;
}

} // namespace rvopen::xml
