// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include <rvopen/xml/XmlGuard.h>

#include <rvopen/xml/XmlCharacters.h>
#include <rvopen/xml/XmlScanner.h>

#include <algorithm>
#include <utility>

namespace rvopen::xml {

namespace {

QString dataOf(const Declaration& declaration)
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

} // namespace

bool guard(QString text, GuardedText& guarded, ReadError& error)
{
    Scanner scanner(text);
    if (!scanner.document()) {
        error.message = scanner.message();
        setPlace(error, text, scanner.failedAt());
        return false;
    }
    guarded.isMarked = scanner.isMarked();
    guarded.declaration = QString();
    qsizetype declarationSize = 0;
    if (const Declaration& declaration = scanner.declared(); declaration.end) {
        guarded.declaration = dataOf(declaration);
        declarationSize = declaration.end - viewOf(text).data();
    }
    guarded.text = scanner.isRewritten() ? scanner.output() : std::move(text);
    if (declarationSize > 0) {
        QChar* const blanked = guarded.text.data();
        std::replace_if(
            blanked, blanked + declarationSize, [](QChar c) { return c != QLatin1Char('\n'); },
            QLatin1Char(' '));
    }
    return true;
}

bool isAccepted(const QString& text)
{
    return Scanner(text).document();
}

void setPlace(ReadError& error, const QString& text, qsizetype index)
{
    error.line = 1;
    error.column = 1;
    for (const QChar c : viewOf(text).substr(0, static_cast<size_t>(index))) {
        if (c == QLatin1Char('\n')) {
            ++error.line;
            error.column = 1;
        } else if (!c.isLowSurrogate()) {
            ++error.column;
        }
    }
}

bool isName(const QString& name)
{
    const View view = viewOf(name);
    return !view.empty() && view.size() <= MaxNameLength && isNameStart(view[0]) &&
           std::all_of(view.begin(), view.end(), isNamePart) &&
           (std::all_of(view.begin(), view.end(), [](char16_t c) { return c < 0x80; }) ||
            isReadableName(name));
}

QString normalDeclaration(const QString& data)
{
    const QString text = QLatin1String("<?xml ") + data + QLatin1String("?>");
    Scanner scanner(text);
    if (scanner.declaration() && scanner.declared().end)
        return dataOf(scanner.declared());
    return QStringLiteral("version=\"1.0\" encoding=\"utf-8\"");
}

} // namespace rvopen::xml
