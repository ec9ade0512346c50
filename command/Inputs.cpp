// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "Inputs.h"

#include "Arguments.h"
#include "toolkit/documents/ForeignFormat.h"

#include <rvopen/RVOpenPaths.h>
#include <rvopen/toolkit/documents/Failure.h>

#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <cstdio>
#include <thread>

namespace rvopen::command {

using namespace toolkit;

namespace {

/// Whether it can only be documents: one that is there, a pattern of their names, or a folder with
/// a slash at its end, where no path has one.
bool isInput(const QString& argument)
{
    const QFileInfo file(PathToOpen(argument));
    if (argument.endsWith(QLatin1Char('/')))
        return file.isDir();
    return isDocumentName(argument) && (file.isFile() || isPattern(argument));
}

} // namespace

void Inputs::declare(Arguments& arguments)
{
    arguments.option("--files-from", m_list, "FILE",
                     "Also the files that this one lists, one to a line; \"-\" for standard input");
    arguments.flag("-0,--null", m_isNulled,
                   "The list has a null byte after each name, as find "
                   "-print0 writes it");
    arguments.option("--jobs", m_jobs, "N",
                     "Read so many documents at a time, 0 for as many as there are processors; "
                     "what is written over is read one by one");
}

QStringList Inputs::files(const QStringList& arguments, Session& session) const
{
    const QStringList names = listed();
    if (m_list == QLatin1String("-") && (arguments + names).contains(QStringLiteral("-")))
        throw Failure(QStringLiteral("standard input is the list of files already"));
    return expandedInputs(arguments + names, session);
}

QStringList Inputs::taken(QStringList& arguments) const
{
    QStringList files;
    if (m_list.isEmpty() && !arguments.isEmpty())
        files << arguments.takeFirst();
    while (!arguments.isEmpty() && isInput(arguments.first()))
        files << arguments.takeFirst();
    return files;
}

int Inputs::jobs() const
{
    return m_jobs > 0 ? m_jobs : std::max(1, int(std::thread::hardware_concurrency()));
}

QStringList Inputs::listed() const
{
    if (m_list.isEmpty()) {
        if (m_isNulled)
            throw Failure(QStringLiteral("--null goes with --files-from"));
        return {};
    }
    const bool isStandardInput = m_list == QLatin1String("-");
    QFile file(PathToOpen(m_list));
    if (isStandardInput ? !file.open(stdin, QIODevice::ReadOnly) : !file.open(QIODevice::ReadOnly))
        throw Failure(QStringLiteral("\"%1\": %2").arg(m_list, file.errorString()));
    QStringList names;
    for (QByteArray name : file.readAll().split(m_isNulled ? '\0' : '\n')) {
        if (!m_isNulled && name.endsWith('\r'))
            name.chop(1);
        if (!name.isEmpty())
            names << QString::fromUtf8(name);
    }
    if (file.error() != QFileDevice::NoError)
        throw Failure(QStringLiteral("\"%1\": %2").arg(m_list, file.errorString()));
    return names;
}

} // namespace rvopen::command
