// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "Target.h"

#include "Arguments.h"
#include "Failure.h"
#include "FileWriting.h"
#include "Input.h"
#include "NewFiles.h"

#include "edit/Editing.h"

#include <rvopen/RVOpenPaths.h>
#include <rvopen/RVOpenWriter.h>

#include <QFileInfo>

namespace rvopen::tools {

void Target::declare(Arguments& arguments, const char* force)
{
    arguments.option("-o,--output", m_output, "FILE",
                     "Write to this file, or to standard output for \"-\"");
    arguments.flag("--in-place", m_inPlace, "Write over the input");
    arguments.onlyOne({QStringLiteral("--output"), QStringLiteral("--in-place")});
    declareSafety(arguments, force);
}

void Target::declareSafety(Arguments& arguments, const char* force)
{
    arguments.flag("--dry-run", m_isDryRun, "Only tell what would be done");
    arguments.flag("--backup", m_backup, "~",
                   "Keep what is written over under its name with \"~\" behind it, or with "
                   "--backup=SUFFIX with that");
    arguments.flag("--force", m_isForced, force);
}

void Target::lock(const QString& input)
{
    if (m_inPlace && !m_isDryRun)
        m_lock.take(input);
}

bool Target::isGiven() const
{
    return m_inPlace || !m_output.isEmpty();
}

bool Target::isInPlace() const
{
    return m_inPlace;
}

bool Target::isStandardOutput() const
{
    return m_output == QLatin1String("-") && !m_isDryRun;
}

bool Target::isDryRun() const
{
    return m_isDryRun;
}

bool Target::isForced() const
{
    return m_isForced;
}

void Target::checkFree(const QString& output) const
{
    if (!m_isForced && QFileInfo(PathToOpen(output)).isFile())
        throw Failure(
            QStringLiteral("\"%1\" is there already: --force writes over it").arg(output));
}

QString Target::problemOfBackup(const QString& path) const
{
    const QString file = PathToOpen(path);
    if (m_backup.isEmpty() || !QFileInfo(file).isFile())
        return QString();
    if (m_backup.contains(QLatin1Char('/')) || m_backup.contains(QLatin1Char('\\')))
        return QStringLiteral("\"%1\" is no end of a file name").arg(m_backup);
    QByteArray bytes;
    const QString problem = readWhole(file, bytes) ? problemOfWriting(bytes, file + m_backup)
                                                   : QStringLiteral("it could not be read");
    return problem.isEmpty() ? QString() : QLatin1String("the backup: ") + problem;
}

void Target::check(const Document& input) const
{
    if (!isGiven() && !m_isDryRun)
        throw Failure(QStringLiteral("say where to write: --output FILE or --in-place"));
    if (m_inPlace && input.isStandardInput())
        throw Failure(QStringLiteral("standard input cannot be written over: use --output"));
    if (m_inPlace && input.isStream())
        throw Failure(QStringLiteral("\"%1\" is no file that could be written over: use --output")
                          .arg(input.name()));
    if (!m_inPlace && isSameFile(m_output, input.path())) {
        throw Failure(
            QStringLiteral("\"%1\" is the input: say --in-place to write over it").arg(m_output));
    }
    if (!m_inPlace && QFileInfo(m_output).isDir())
        throw Failure(QStringLiteral("\"%1\" is a folder").arg(m_output));
    if (!m_inPlace && !isStandardOutput())
        checkFree(m_output);
}

QString Target::file(const Document& input) const
{
    if (m_inPlace)
        return input.path();
    if (m_isDryRun && m_output == QLatin1String("-"))
        return QString();
    return isStandardOutput() ? QString() : m_output;
}

void Target::write(const Document& document, const Document& input, Session& session) const
{
    if (m_isDryRun)
        return;
    const int indent = indentOf(document.kind());
    const QString path = file(input);
    if (path.isEmpty()) {
        session.out.text(XmlText(document.dom(), indent));
        return;
    }
    if (!m_inPlace)
        takeAlong(document, input, path, session);
    QString problem = problemOfBackup(path);
    if (problem.isEmpty())
        problem = problemOfWriting(document.dom(), indent, path);
    if (!problem.isEmpty())
        throw Failure(QStringLiteral("\"%1\": %2; nothing was changed").arg(path, problem));
}

} // namespace rvopen::tools
