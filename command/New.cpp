// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "Arguments.h"
#include "Command.h"
#include "Input.h"
#include "OutputOptions.h"
#include "Session.h"
#include "toolkit/documents/FileTransaction.h"
#include "toolkit/documents/FileWriting.h"
#include "toolkit/documents/Interruption.h"

#include <rvopen/RVOpenPaths.h>
#include <rvopen/RVOpenWriter.h>
#include <rvopen/toolkit/documents/Failure.h>
#include <rvopen/toolkit/documents/NewDocuments.h>

#include <QDomDocument>

#include <cmath>

namespace rvopen::command {

using namespace toolkit;

namespace {

class New : public Command {
public:
    const char* name() const override
    {
        return "new";
    }

    const char* summary() const override
    {
        return "Make an empty snapshot document or archive";
    }

    void declare(Arguments& arguments) override
    {
        arguments.description(
            "A snapshot document has a current snapshot with default settings and "
            "scenery, an archive a section for each kind of preset. A file that "
            "is there already is left alone without --force.");
        arguments.positional("kind", m_kind, "snapshots or archive", true,
                             {QStringLiteral("snapshots"), QStringLiteral("archive")});
        arguments.positional("file", m_file, "The file to make, or \"-\" for standard output");
        arguments.option("--name", m_name, "NAME",
                         "Name of the archive; its file name when not given");
        arguments.option("--document-version", m_version, "MAJOR.MINOR",
                         "Version of the host that the document is for; 3.1 when not given");
        arguments.option("--units-scale", m_scale, "NUMBER",
                         "Document units per scene unit, 1000 for millimetres and metres");
        m_options.declare(arguments);
        arguments.example("rvopen new snapshots empty.xml", "a document to start from");
        arguments.example("rvopen new archive Mine.rvx --name \"My presets\"", "a user's archive");
    }

    int run(Session& session) override
    {
        if (m_kind != QLatin1String("snapshots") && m_kind != QLatin1String("archive"))
            throw Failure(QStringLiteral("a new document is \"snapshots\" or \"archive\""));
        const bool isArchive = m_kind == QLatin1String("archive");
        checkVersion();
        const QDomDocument document = isArchive ? archive() : snapShots();
        const int indent = isArchive ? ArchiveFileIndent : SnapShotFileIndent;
        if (m_file == QLatin1String("-")) {
            session.out.text(XmlText(document, indent));
            return ExitFine;
        }
        const QByteArray text = XmlText(document, indent).toUtf8();
        m_options.check(m_file);
        if (!m_options.isDryRun())
            write(text);
        if (session.json) {
            QJsonObject result = Session::envelope(name());
            result.insert(QStringLiteral("kind"), m_kind);
            result.insert(QStringLiteral("written"), m_file);
            session.out.json(result);
        }
        return ExitFine;
    }

private:
    void write(const QByteArray& text) const
    {
        if (m_options.isForced()) {
            m_options.backUp(m_file);
            writeOrFail(text, m_file);
            return;
        }
        const Uninterrupted writing;
        FileTransaction files;
        if (!files.create(text, PathToOpen(m_file)))
            throw Failure(QStringLiteral("\"%1\": %2").arg(m_file, files.problem()));
        files.keep();
    }

    void checkVersion()
    {
        bool isMajor = false;
        bool isMinor = false;
        m_host.major = m_version.section(QLatin1Char('.'), 0, 0).toUInt(&isMajor);
        m_host.minor = m_version.section(QLatin1Char('.'), 1).toUInt(&isMinor);
        if (!isMajor || !isMinor)
            throw Failure(QStringLiteral("a version is MAJOR.MINOR, as in 3.1"));
    }

    QDomDocument snapShots() const
    {
        if (!m_name.isEmpty())
            throw Failure(QStringLiteral("--name goes with archives"));
        // As the document will give it back.
        if (!(float(m_scale) > 0) || !std::isfinite(float(m_scale)))
            throw Failure(QStringLiteral("the units scale is a number above 0"));
        return NewSnapShots(m_host, m_scale);
    }

    QDomDocument archive() const
    {
        return NewArchive(m_file == QLatin1String("-") ? QString() : m_file, m_name, m_host);
    }

    QString m_kind;
    QString m_file;
    OutputOptions m_options;
    QString m_name;
    QString m_version = QStringLiteral("3.1");
    HostVersion m_host;
    double m_scale = 1;
};

} // namespace

std::unique_ptr<Command> makeNew()
{
    return std::make_unique<New>();
}

} // namespace rvopen::command
