// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "OutputOptions.h"

#include "Arguments.h"
#include "toolkit/documents/FileTransaction.h"
#include "toolkit/documents/FileWriting.h"

#include <rvopen/RVOpenPaths.h>
#include <rvopen/toolkit/documents/Failure.h>

#include <QFileInfo>

namespace rvopen::command {

using namespace toolkit;

namespace {

/// A file, no device or pipe.
bool isThere(const QString& path)
{
    return QFileInfo(PathToOpen(path)).isFile();
}

} // namespace

void OutputOptions::declare(Arguments& arguments, const char* force)
{
    arguments.flag("--force", m_isForced, force ? force : "Also over a file that is there");
    arguments.flag("--dry-run", m_isDryRun, "Only tell what would be done");
    arguments.flagOrValue("--backup", m_backup, "~",
                          "Keep what is written over under its name with \"~\", or as "
                          "--backup=SUFFIX says");
}

bool OutputOptions::isForced() const
{
    return m_isForced;
}

bool OutputOptions::isDryRun() const
{
    return m_isDryRun;
}

void OutputOptions::check(const QString& path) const
{
    if (!m_isForced && isThere(path))
        throw Failure(QStringLiteral("\"%1\" is there already: --force writes over it").arg(path));
}

void OutputOptions::backUp(const QString& path) const
{
    const QString problem = problemOfBackup(path);
    if (!problem.isEmpty())
        throw Failure(QStringLiteral("\"%1\": %2; nothing was changed").arg(path, problem));
}

QString OutputOptions::problemOfBackup(const QString& path) const
{
    if (m_backup.isEmpty() || !isThere(path))
        return QString();
    if (m_backup.contains(QLatin1Char('/')) || m_backup.contains(QLatin1Char('\\')))
        return QStringLiteral("\"%1\" is no end of a file name").arg(m_backup);
    const QString file = PathToOpen(path);
    QByteArray bytes;
    const QString problem = readWhole(file, bytes) ? problemOfWriting(bytes, file + m_backup)
                                                   : QStringLiteral("it could not be read");
    return problem.isEmpty() ? QString() : QLatin1String("the backup: ") + problem;
}

} // namespace rvopen::command
