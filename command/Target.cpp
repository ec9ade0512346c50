// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "Target.h"

#include "Arguments.h"
#include "Input.h"
#include "toolkit/documents/FileWriting.h"
#include "toolkit/documents/SafeFiles.h"

#include <rvopen/RVOpenWriter.h>
#include <rvopen/toolkit/documents/Failure.h>

#include <QFileInfo>

namespace rvopen::command {

using namespace toolkit;

void Target::declare(Arguments& arguments)
{
    arguments.option("-o,--output", m_output, "FILE",
                     "Write to this file, or to standard output for \"-\"");
    arguments.flag("--in-place", m_inPlace, "Write over the input");
    arguments.onlyOne({QStringLiteral("--output"), QStringLiteral("--in-place")});
}

void Target::lock(const QString& input)
{
    if (m_inPlace)
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
    return m_output == QLatin1String("-");
}

void Target::check(const Document& input) const
{
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
}

QString Target::file(const Document& input) const
{
    if (m_inPlace)
        return input.Path();
    return isStandardOutput() ? QString() : m_output;
}

void Target::write(const Document& document, const Document& input, Session& session) const
{
    const int indent = document.Indent();
    const QString path = file(input);
    if (path.isEmpty()) {
        session.out.text(XmlText(document.Dom(), indent));
        return;
    }
    const QString problem = problemOfWriting(document.Dom(), indent, path);
    if (!problem.isEmpty())
        throw Failure(QStringLiteral("\"%1\": %2; nothing was changed").arg(path, problem));
}

} // namespace rvopen::command
