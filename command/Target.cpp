// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "Target.h"

#include "Arguments.h"
#include "Editing.h"
#include "Input.h"
#include "toolkit/documents/FileWriting.h"
#include "toolkit/documents/SafeFiles.h"

#include <rvopen/RVOpenWriter.h>
#include <rvopen/toolkit/documents/Failure.h>

#include <QFileInfo>

namespace rvopen::command {

using namespace toolkit;

void Target::declare(Arguments& arguments, const char* force)
{
    arguments.option("-o,--output", m_output, "FILE",
                     "Write to this file, or to standard output for \"-\"");
    arguments.flag("--in-place", m_inPlace, "Write over the input");
    arguments.onlyOne({QStringLiteral("--output"), QStringLiteral("--in-place")});
    m_options.declare(arguments, force);
}

void Target::lock(const QString& input)
{
    if (m_inPlace && !m_options.isDryRun())
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
    return m_output == QLatin1String("-") && !m_options.isDryRun();
}

bool Target::isForced() const
{
    return m_options.isForced();
}

bool Target::isDryRun() const
{
    return m_options.isDryRun();
}

QString Target::problemOfBackup(const QString& path) const
{
    return m_options.problemOfBackup(path);
}

void Target::check(const Document& input) const
{
    if (m_options.isDryRun() && !isGiven())
        return;
    if (!isGiven())
        throw Failure(QStringLiteral("say where to write: --output FILE or --in-place"));
    if (m_inPlace && input.IsStandardInput())
        throw Failure(QStringLiteral("standard input cannot be written over: use --output"));
    if (m_inPlace && input.IsStream())
        throw Failure(QStringLiteral("\"%1\" is no file that could be written over: use --output")
                          .arg(input.Name()));
    if (!m_inPlace && isSameFile(m_output, input.Path())) {
        throw Failure(
            QStringLiteral("\"%1\" is the input: say --in-place to write over it").arg(m_output));
    }
    if (!m_inPlace && QFileInfo(m_output).isDir())
        throw Failure(QStringLiteral("\"%1\" is a folder").arg(m_output));
    if (!m_inPlace)
        m_options.check(m_output);
}

void Target::checkFile(const QString& path) const
{
    m_options.check(path);
}

QString Target::file(const Document& input) const
{
    if (m_inPlace)
        return input.Path();
    return m_output == QLatin1String("-") ? QString() : m_output;
}

void Target::write(const Document& document, const Document& input, Session& session) const
{
    if (m_options.isDryRun())
        return;
    const int indent = document.Indent();
    const QString path = file(input);
    if (path.isEmpty()) {
        session.out.text(XmlText(document.Dom(), indent));
        return;
    }
    const QStringList left =
        m_inPlace ? QStringList() : takeAlong(document, input, path, session.folders);
    m_options.backUp(path);
    const QString problem = problemOfWriting(document.Dom(), indent, path);
    if (!problem.isEmpty())
        throw Failure(QStringLiteral("\"%1\": %2; nothing was changed").arg(path, problem));
    for (const QString& note : left)
        session.warning(input.Name(), note);
}

void Target::backUp(const QString& path) const
{
    m_options.backUp(path);
}

} // namespace rvopen::command
