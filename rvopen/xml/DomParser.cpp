// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include <rvopen/xml/DomParser.h>

#include <rvopen/QtCompat.h>
#include <rvopen/xml/XmlScanner.h>

#include <QDomImplementation>

namespace rvopen::xml {

namespace {

/// Each line end becomes a line feed.
void normaliseLineEnds(QString& text)
{
    const QChar cr = QLatin1Char('\r');
    const QChar lf = QLatin1Char('\n');
    const auto first = text.indexOf(cr);
    if (first < 0)
        return;
    QChar* const begin = text.data();
    const QChar* const end = begin + text.size();
    QChar* to = begin + first;
    for (const QChar* from = to; from != end; ++from) {
        if (*from != cr)
            *to++ = *from;
        else if (from + 1 == end || from[1] != lf)
            *to++ = lf;
    }
    text.truncate(static_cast<compat::Size>(to - begin));
}

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

} // namespace rvopen::xml
