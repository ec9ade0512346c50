// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "Arguments.h"
#include "Command.h"
#include "Input.h"
#include "Inputs.h"
#include "Session.h"
#include "Target.h"
#include "toolkit/documents/FileTransaction.h"
#include "toolkit/documents/FileWriting.h"

#include <rvopen/RVOpenPaths.h>
#include <rvopen/RVOpenWriter.h>
#include <rvopen/toolkit/documents/Failure.h>

#include <QJsonArray>

namespace rvopen::command {

using namespace toolkit;

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
        arguments.positional("files", m_files, "Documents, archives, folders, or \"-\"", false);
        arguments.flag("--check", m_check, "Only tell which documents are not canonical");
        m_target.declare(arguments);
        arguments.onlyOne({QStringLiteral("--check"), QStringLiteral("--output")});
        arguments.onlyOne({QStringLiteral("--check"), QStringLiteral("--in-place")});
        m_inputs.declare(arguments);
        arguments.example("rvopen format --check snapshots archives", "what a build server asks");
        arguments.example("rvopen format - < snapshots/house.xml > canonical.xml", "as a filter");
    }

    int run(Session& session) override
    {
        const QStringList files = m_inputs.files(m_files, session);
        if (files.isEmpty() && m_files.isEmpty())
            throw Failure(QStringLiteral("name the files to write"));
        const bool isInPlace = m_target.isInPlace();
        const bool isTold = m_check || isInPlace || m_target.isDryRun();
        if (m_target.isGiven() && !isInPlace && files.size() != 1)
            throw Failure(QStringLiteral("--output takes one document"));
        if (isInPlace && files.contains(QStringLiteral("-")))
            throw Failure(QStringLiteral("standard input cannot be written over"));
        bool isFound = false;
        QJsonArray list;
        forEachDocument(
            files, session,
            [&](Document& document) {
                const QString text = XmlText(document.Dom(), document.Indent());
                if (text.isNull()) {
                    session.error(document.Name(), QStringLiteral("it could not be read again"));
                    return;
                }
                QByteArray bytes;
                if (!readWhole(PathToOpen(document.Path()), bytes)) {
                    session.error(document.Name(), QStringLiteral("it could not be read"));
                    return;
                }
                const bool isCanonical = bytes == text.toUtf8();
                if (!isCanonical)
                    isFound = true;
                list.append(QJsonObject{{QStringLiteral("file"), document.Name()},
                                        {QStringLiteral("canonical"), isCanonical}});
                if (!isTold)
                    write(text, document, session);
                else if (!isCanonical && isInPlace && !m_target.isDryRun())
                    writeOver(text, document, session);
                if (!isCanonical && isTold && !session.json)
                    session.out.line(visible(document.Name()));
            },
            {}, isInPlace && !m_target.isDryRun() ? Access::Changing : Access::Reading,
            m_inputs.jobs());
        if (session.json && (isTold || m_target.isGiven())) {
            QJsonObject result = Session::envelope(name());
            result.insert(QStringLiteral("files"), list);
            session.out.json(result);
        }
        return session.result(m_check && isFound ? ExitFindings : ExitFine);
    }

private:
    void write(const QString& text, const Document& document, Session& session) const
    {
        if (!m_target.isGiven() || m_target.isStandardOutput()) {
            session.out.text(text);
            return;
        }
        m_target.check(document);
        m_target.write(document, document, session);
    }

    void writeOver(const QString& text, const Document& document, Session& session) const
    {
        if (document.IsStream()) {
            session.error(document.Name(), QStringLiteral("it is no file to write over"));
            return;
        }
        m_target.backUp(document.Path());
        const QString problem = problemOfWriting(text.toUtf8(), document.Path());
        if (!problem.isEmpty())
            session.error(document.Name(), problem + QLatin1String("; it is as it was"));
    }

    QStringList m_files;
    bool m_check = false;
    Target m_target;
    Inputs m_inputs;
};

} // namespace

std::unique_ptr<Command> makeFormat()
{
    return std::make_unique<Format>();
}

} // namespace rvopen::command
