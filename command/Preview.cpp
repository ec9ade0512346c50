// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "Arguments.h"
#include "Command.h"
#include "Input.h"
#include "OutputOptions.h"
#include "Session.h"
#include "toolkit/documents/FileWriting.h"
#include "toolkit/documents/SafeFiles.h"
#include "toolkit/edit/Likeness.h"
#include "toolkit/images/HostPicture.h"
#include "toolkit/images/ImageFiles.h"
#include "toolkit/images/PictureMoves.h"

#include <rvopen/DirectoryHandler.h>
#include <rvopen/toolkit/documents/Failure.h>
#include <rvopen/toolkit/edit/NodePath.h>

#include <QFileInfo>
#include <QImage>
#include <QPixmap>

namespace rvopen::command {

using namespace toolkit;

namespace {

class Preview : public Command {
public:
    const char* name() const override
    {
        return "preview";
    }

    const char* summary() const override
    {
        return "Write the existing picture of a preset or snapshot";
    }

    void declare(Arguments& arguments) override
    {
        arguments.description(
            "The embedded picture, else the thumbnail below --install, for a user's archive below "
            "--custom or beside it, for a snapshot in --snapshots or beside the document. The name "
            "of the output tells the format, PNG to standard output. Exit code 1 when there is no "
            "picture.");
        arguments.positional("file", m_file, "Document, archive, or \"-\"");
        arguments.positional("path", m_path, "Path of a preset or snapshot, as for get");
        arguments.option("-o,--output", m_output, "FILE",
                         "Write to this file, or to standard output for \"-\"");
        m_options.declare(arguments);
        arguments.example("rvopen preview archives/Custom/MyPresets.rvx \"colour[Our orange]\" "
                          "-o orange.png",
                          "a picture that is embedded in an archive");
        arguments.example("rvopen preview snapshots/import_me.xml \"snapshot[Winter noon]\" -o - > "
                          "noon.png",
                          "a picture that lies beside the document");
    }

    int run(Session& session) override
    {
        if (m_output.isEmpty())
            throw Failure(QStringLiteral("say where to write: --output FILE"));
        const std::unique_ptr<Document> document = readOrFail(m_file, session);
        const QVector<PathPattern::Match> matches = PathPattern(m_path).Find(document->Root());
        if (matches.size() != 1)
            throw Failure(matches.isEmpty()
                              ? nothingHas(m_path, document->Root())
                              : QStringLiteral("%1 places have the path \"%2\", the first \"%3\"")
                                    .arg(matches.size())
                                    .arg(m_path, matches.first().path));
        if (session.folders.snapshots.isEmpty())
            GetDirectoryHandler()->SetSnapshotsFolder(document->Folder());
        const PictureFolders places(*document, session.folders);
        const QPixmap picture = hostPictureOf(matches.first().element, session.folders.install);
        if (picture.isNull()) {
            session.warning(document->Name(),
                            QStringLiteral("\"%1\" has no picture").arg(matches.first().path));
            return ExitFindings;
        }
        const bool isPiped = m_output == QLatin1String("-");
        const QByteArray bytes =
            encodedPicture(picture.toImage(), isPiped ? QByteArray("png") : suffix());
        if (isPiped) {
            session.out.bytes({bytes.constData(), std::size_t(bytes.size())});
            return ExitFine;
        }
        if (isSameFile(m_output, document->Path()))
            throw Failure(QStringLiteral("\"%1\" is the input").arg(m_output));
        m_options.check(m_output);
        if (!m_options.isDryRun()) {
            m_options.backUp(m_output);
            writeOrFail(bytes, m_output);
        }
        if (session.json) {
            QJsonObject result = Session::envelope(name());
            result.insert(QStringLiteral("file"), document->Name());
            result.insert(QStringLiteral("path"), matches.first().path);
            result.insert(QStringLiteral("written"), m_output);
            result.insert(QStringLiteral("width"), picture.width());
            result.insert(QStringLiteral("height"), picture.height());
            session.out.json(result);
        }
        return ExitFine;
    }

private:
    QByteArray suffix() const
    {
        return QFileInfo(m_output).suffix().toLower().toLatin1();
    }

    QString m_file;
    QString m_path;
    QString m_output;
    OutputOptions m_options;
};

} // namespace

std::unique_ptr<Command> makePreview()
{
    return std::make_unique<Preview>();
}

} // namespace rvopen::command
