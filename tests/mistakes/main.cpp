// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "Mistakes.h"

#include <QCoreApplication>
#include <QFile>
#include <QProcess>
#include <QTextStream>

#include <algorithm>

#ifdef __has_feature
#if __has_feature(address_sanitizer)
#define RVOPEN_UNDER_ADDRESS_SANITIZER
#endif
#endif
#ifdef __SANITIZE_ADDRESS__
#define RVOPEN_UNDER_ADDRESS_SANITIZER
#endif

namespace {

using rvopen::test::Mistake;
using rvopen::test::mistakes;

#ifdef RVOPEN_UNDER_ADDRESS_SANITIZER
constexpr bool s_isSanitized = true;
#else
constexpr bool s_isSanitized = false;
#endif

/// More than these few may not be left to chance.
constexpr int s_mostUndefined = 5;

QString table()
{
    QString text = QStringLiteral("| mistake | what happens |\n|---|---|\n");
    for (const Mistake& mistake : mistakes()) {
        text += QStringLiteral("| %1 | %2%3 |\n")
                    .arg(QLatin1String(mistake.text),
                         QLatin1String(mistake.isUndefined ? "**undefined**: " : ""),
                         QLatin1String(mistake.consequence));
    }
    return text;
}

/// What the process of one mistake says; empty when all was as told.
QString outcomeOf(std::size_t number)
{
    QProcess process;
    process.setProcessChannelMode(QProcess::MergedChannels);
    process.start(QCoreApplication::applicationFilePath(),
                  {QStringLiteral("--make"), QString::number(number)});
    if (!process.waitForFinished(60000)) {
        process.kill();
        process.waitForFinished();
        return QStringLiteral("does not end");
    }
    if (process.exitStatus() == QProcess::NormalExit && process.exitCode() == 0)
        return QString();
    const QString said = QString::fromLocal8Bit(process.readAll()).trimmed();
    return said.isEmpty() ? QStringLiteral("ends by a signal") : said.left(4000);
}

int makeAll(QTextStream& out)
{
    int undefined = 0;
    int failures = 0;
    for (std::size_t i = 0; i < mistakes().size(); ++i) {
        const Mistake& mistake = mistakes()[i];
        undefined += mistake.isUndefined ? 1 : 0;
        if (mistake.isUndefined && !s_isSanitized)
            continue;
        const QString outcome = outcomeOf(i);
        const bool isAsTold =
            mistake.isUndefined ? outcome.contains(QLatin1String("Sanitizer")) : outcome.isEmpty();
        if (isAsTold)
            continue;
        ++failures;
        out << mistake.text << ":\n    "
            << (outcome.isEmpty() ? QStringLiteral("is not undefined any more") : outcome) << '\n';
    }
    if (undefined > s_mostUndefined) {
        ++failures;
        out << undefined << " mistakes are undefined; at most " << s_mostUndefined << " may be\n";
    }
    out << mistakes().size() << " mistakes, " << undefined << " of them undefined, " << failures
        << " otherwise than told\n";
    return failures == 0 ? 0 : 1;
}

/// Whether the guide has the table as it is.
int compareWith(const QString& path, QTextStream& out)
{
    QFile file(path);
    if (file.open(QIODevice::ReadOnly) && QString::fromUtf8(file.readAll()).contains(table()))
        return 0;
    out << path << " does not have this table:\n" << table();
    return 1;
}

} // namespace

/// Without arguments: makes each mistake in a process of its own and compares. --table prints the
/// guide's table, --guide FILE compares it, --make NUMBER makes one mistake here.
int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    const QStringList arguments = application.arguments();
    QTextStream out(stdout);
    if (arguments.size() == 1)
        return makeAll(out);
    if (arguments[1] == QLatin1String("--table")) {
        out << table();
        return 0;
    }
    if (arguments.size() == 3 && arguments[1] == QLatin1String("--guide"))
        return compareWith(arguments[2], out);
    const std::size_t number = arguments.size() == 3 ? arguments[2].toUInt() : mistakes().size();
    if (number >= mistakes().size())
        return 2;
    const QString outcome = mistakes()[number].make();
    out << outcome;
    return outcome.isEmpty() ? 0 : 1;
}
