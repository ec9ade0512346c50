// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "Arguments.h"
#include "Command.h"
#include "Failure.h"
#include "FileWriting.h"
#include "Input.h"
#include "NewFiles.h"
#include "Session.h"
#include "Target.h"

#include "edit/Editing.h"

#include <rvopen/RVOpenPaths.h>
#include <rvopen/RVOpenWriter.h>

#include <QFileInfo>
#include <QJsonArray>

namespace rvopen::tools {

namespace {

class Format : public Command {
public:
    const char* name() const override
    {
        return "format";
    }

    const char* summary() const override
    {
        return "Write documents as canonical text";
    }

    void declare(Arguments& arguments) override
    {
        arguments.description(
            "The text that the library itself writes: attributes in the order of their names, "
            "archives indented by 3, snapshot documents by 2, UTF-8; in another folder relative "
            "references to image files lead to the same files. To standard output, unless "
            "--in-place or --output is given. With --check nothing is written; exit code 1 when a "
            "document is not canonical.");
        arguments.positional("files", m_files, "Documents, archives, folders, or \"-\"");
        arguments.flag("--check", m_check, "Only tell which documents are not canonical");
        arguments.option("-o,--output", m_output, "FILE", "Write one document to this file");
        arguments.flag("--in-place", m_inPlace, "Write over the inputs");
        m_safety.declareSafety(arguments, "Write over another file than the input");
        arguments.onlyOne(
            {QStringLiteral("--check"), QStringLiteral("--output"), QStringLiteral("--in-place")});
        arguments.example("rvopen format --check snapshots archives", "what a build server asks");
        arguments.example("rvopen format - < snapshots/house.xml > canonical.xml", "as a filter");
    }

    int run(Session& session) override
    {
        const QStringList files = expandedInputs(m_files, session);
        if (!m_output.isEmpty() && files.size() != 1)
            throw Failure(QStringLiteral("--output takes one document"));
        if (m_inPlace && files.contains(QStringLiteral("-")))
            throw Failure(QStringLiteral("standard input cannot be written over"));
        bool isFound = false;
        QJsonArray list;
        forEachDocument(
            files, session,
            [&](Document& document) {
                if (!m_check && !m_inPlace && !m_output.isEmpty() && m_output != QLatin1String("-"))
                    takeAlong(document, document, m_output, session);
                const QString text = XmlText(document.dom(), indentOf(document.kind()));
                if (text.isNull()) {
                    session.error(document.name(), QStringLiteral("it could not be read again"));
                    return;
                }
                QByteArray bytes;
                if (!readWhole(PathToOpen(document.path()), bytes)) {
                    session.error(document.name(), QStringLiteral("it could not be read"));
                    return;
                }
                const bool isCanonical = bytes == text.toUtf8();
                if (!isCanonical)
                    isFound = true;
                list.append(QJsonObject{{QStringLiteral("file"), document.name()},
                                        {QStringLiteral("canonical"), isCanonical}});
                if (!m_check && !m_inPlace)
                    write(text, document, session);
                else if (!isCanonical && m_inPlace)
                    writeOver(text, document, session);
                if (!isCanonical && (m_check || m_inPlace) && !session.json)
                    session.out.line(visible(document.name()));
            },
            {}, m_inPlace ? Access::Changing : Access::Reading);
        if (session.json && (m_check || m_inPlace || !m_output.isEmpty())) {
            QJsonObject result = Session::envelope(name());
            result.insert(QStringLiteral("files"), list);
            session.out.json(result);
        }
        return session.result(m_check && isFound ? ExitFindings : ExitFine);
    }

private:
    void write(const QString& text, const Document& document, Session& session) const
    {
        if (m_output.isEmpty() || m_output == QLatin1String("-")) {
            session.out.text(text);
            return;
        }
        if (isSameFile(m_output, document.path()))
            throw Failure(QStringLiteral("\"%1\" is the input: say --in-place to write over it")
                              .arg(m_output));
        m_safety.checkFree(m_output);
        if (m_safety.isDryRun())
            return;
        QString problem = m_safety.problemOfBackup(m_output);
        if (problem.isEmpty())
            problem = problemOfWriting(text.toUtf8(), m_output);
        if (!problem.isEmpty())
            session.error(m_output, problem);
    }

    void writeOver(const QString& text, const Document& document, Session& session) const
    {
        if (document.isStream()) {
            session.error(document.name(), QStringLiteral("it is no file to write over"));
            return;
        }
        if (m_safety.isDryRun())
            return;
        QString problem = m_safety.problemOfBackup(document.path());
        if (problem.isEmpty())
            problem = problemOfWriting(text.toUtf8(), document.path());
        if (!problem.isEmpty())
            session.error(document.name(), problem + QLatin1String("; it is as it was"));
    }

    QStringList m_files;
    bool m_check = false;
    QString m_output;
    bool m_inPlace = false;
    Target m_safety;
};

} // namespace

std::unique_ptr<Command> makeFormat()
{
    return std::make_unique<Format>();
}

} // namespace rvopen::tools
