// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "Arguments.h"
#include "Command.h"
#include "Editing.h"
#include "Input.h"
#include "OutputOptions.h"
#include "SelectionOptions.h"
#include "Session.h"
#include "toolkit/documents/FileTransaction.h"
#include "toolkit/documents/FileWriting.h"
#include "toolkit/documents/Interruption.h"
#include "toolkit/documents/SafeFiles.h"
#include "toolkit/drawing/Drawing.h"
#include "toolkit/images/ImageFiles.h"
#include "toolkit/images/PictureApplication.h"
#include "toolkit/images/PictureMoves.h"

#include <rvopen/toolkit/documents/Failure.h>
#include <rvopen/toolkit/drawing/Picture.h>
#include <rvopen/toolkit/drawing/Subjects.h>
#include <rvopen/toolkit/images/EmbeddedPreview.h>
#include <rvopen/toolkit/images/PictureLocations.h>

#include <QDir>
#include <QFileInfo>
#include <QImage>
#include <QJsonArray>
#include <QSet>

namespace rvopen::command {

using namespace toolkit;

namespace {

/// Pictures that are drawn together.
const int s_batch = 16;
/// Bytes of a name that every file system takes, with room for a number and the extension.
const int s_maxNameBytes = 200;

/// What becomes of one preset or snapshot.
struct Job {
    Subject subject;
    drawing::Draw draw;
    /// Empty when the picture is embedded.
    QString file;
};

/// Pictures that are not made. One of each reason is told: there may be hundreds of the same.
class Refusals {
public:
    void add(const QString& reason, const QString& file, const QString& message)
    {
        for (Refusal& refusal : m_refusals) {
            if (refusal.reason == reason) {
                ++refusal.others;
                return;
            }
        }
        m_refusals.append({reason, file, message, 0});
    }

    /// The next begins anew.
    void report(Session& session)
    {
        for (const Refusal& refusal : m_refusals) {
            session.error(
                refusal.file,
                refusal.others == 0
                    ? refusal.message
                    : QStringLiteral("%1; the same goes for %2")
                          .arg(refusal.message, counted(refusal.others, QStringLiteral("other"))));
        }
        m_refusals.clear();
    }

private:
    struct Refusal {
        QString reason;
        QString file;
        QString message;
        int others = 0;
    };

    QVector<Refusal> m_refusals;
};

/// Usable as the name of a file on every system.
QString fileSafe(const QString& text)
{
    QString name;
    for (const QChar character : text) {
        const bool isBad = character.unicode() < 32 || character.unicode() == 127 ||
                           QStringLiteral("\\/:*?\"<>|%").contains(character);
        name += isBad ? QLatin1Char('-') : character;
    }
    while (name.toUtf8().size() > s_maxNameBytes)
        name.chop(1);
    return name;
}

class Render : public Command {
public:
    const char* name() const override
    {
        return "render";
    }

    const char* summary() const override
    {
        return "Draw pictures of presets and snapshots";
    }

    void declare(Arguments& arguments) override
    {
        arguments.description(
            "Draws from the values alone, the same picture every time. It goes where the host "
            "looks for it: below --install, for a user's archive below --custom or beside it, for "
            "a snapshot in --snapshots or beside the document. Pictures that are there are "
            "replaced "
            "with --all.");
        arguments.positional("files", m_files, "Documents, archives, folders, or \"-\"");
        arguments.flag("--missing", m_missing, "What has no picture that can be shown");
        arguments.flag("--all", m_all, "All of them");
        arguments.flag("--embed", m_embed, "Embed the pictures in the documents instead");
        arguments.option("-o,--output", m_output, "DIR",
                         "Write PNG files into this folder instead, named by kind and preset");
        arguments.option("--size", m_wish.size, "PIXELS",
                         "The longer side, 16 to 2048; 256 when not given");
        arguments.flag("--flat", m_wish.isFlat,
                       "Materials and what they are made of as a flat piece, not as a ball");
        arguments.onlyOne({QStringLiteral("--missing"), QStringLiteral("--all")});
        arguments.onlyOne({QStringLiteral("--embed"), QStringLiteral("--output")});
        m_options.declare(arguments, "Write over other files in the folder of --output");
        m_selection.declare(arguments);
        arguments.example("rvopen render --missing --size 64 --install install "
                          "install/xml/Product_extra.rvx",
                          "thumbnails below install/sethumbs, where the host looks for them");
        arguments.example("rvopen render --all --size 64 archives/Zorvane/Product.rvx -o pictures",
                          "the same as files to look at");
    }

    int run(Session& session) override
    {
        if (!m_missing && !m_all)
            throw Failure(QStringLiteral("say which pictures: --missing or --all"));
        if (m_wish.size < MinPictureSize || m_wish.size > MaxPictureSize)
            throw Failure(
                QStringLiteral("--size takes %1 to %2").arg(MinPictureSize).arg(MaxPictureSize));
        if (!m_output.isEmpty() && !m_options.isDryRun() && !m_folders.makeFolder(m_output))
            throw Failure(QStringLiteral("\"%1\": %2").arg(m_output, m_folders.problem()));
        m_selected = m_selection.selection();
        preparePictures();
        const auto visit = [&](Document& document) { render(document, session); };
        if (m_embed && !m_options.isDryRun())
            forEachDocument(m_files, session, visit, {}, Access::Changing);
        else
            forEachSelected(m_files, session, m_selected, visit);
        m_selection.tellMisspelling(session);
        if (session.json) {
            QJsonObject result = Session::envelope(name());
            result.insert(QStringLiteral("pictures"), m_pictures);
            result.insert(QStringLiteral("kept"), m_kept);
            session.out.json(result);
        }
        return session.result(ExitFine);
    }

private:
    void render(Document& document, Session& session)
    {
        if (m_embed && document.IsStream())
            throw Failure(QStringLiteral("%1 cannot be written over: use --output")
                              .arg(document.IsStandardInput() ? QStringLiteral("standard input")
                                                              : document.Name()));
        drawing::TextureReader textures(TextureFinder(document, session.folders));
        const QVector<Subject> subjects =
            selectedOf(SubjectsOf(document), m_selected.in(document.Root()));
        const PictureFolders places(document, session.folders);
        int kept = 0;
        int written = 0;
        bool isChanged = false;
        for (int i = 0; i < int(subjects.size());) {
            QVector<Job> jobs;
            for (; i < int(subjects.size()) && int(jobs.size()) < s_batch; ++i) {
                Job job;
                job.subject = subjects[i];
                if (!decide(job, document, places.folders(), session, kept))
                    continue;
                job.draw = drawing::drawingOf(job.subject.element, m_wish, textures);
                jobs.append(job);
            }
            session.progress(i, int(subjects.size()), document.Name());
            written += finish(jobs, document, session, isChanged);
        }
        session.clearProgress();
        m_refusals.report(session);
        if (isChanged && !m_options.isDryRun())
            save(document, session);
        m_kept += kept;
        if (!session.json)
            session.out.line(QStringLiteral("%1  %2%3")
                                 .arg(visible(document.Name()),
                                      counted(written, QStringLiteral("picture")),
                                      kept ? QStringLiteral(", %1 kept").arg(kept) : QString()));
    }

    /// Whether the picture is to be drawn, and where it goes then.
    bool decide(Job& job, const Document& document, const Folders& folders, Session& session,
                int& kept)
    {
        const QDomElement& element = job.subject.element;
        const PictureLocation place = LocatePicture(element, document, folders);
        if (m_missing && FindsPicture(element, place.file)) {
            ++kept;
            return false;
        }
        if (m_embed)
            return true;
        if (!m_output.isEmpty()) {
            job.file = outputFile(job.subject);
            // A dry run made no folder.
            return !QFileInfo::exists(m_output) ||
                   (isFree(job.file, m_output, session) && isOurs(job.file));
        }
        if (place.lack != PictureLack::Nothing) {
            m_refusals.add(problemOf(place.lack), document.Name(),
                           job.subject.path + QLatin1String(": ") + problemOf(place.lack));
            return false;
        }
        if (!element.attribute(QStringLiteral("xmlImage")).isEmpty()) {
            // The library would not look at a file.
            if (HasEmbeddedPreview(element))
                ++kept;
            else
                session.error(document.Name(),
                              job.subject.path + QLatin1String(": the embedded picture cannot be "
                                                               "decoded; --embed replaces it"));
            return false;
        }
        if (m_taken.contains(place.file)) {
            ++kept;
            return false;
        }
        m_taken.insert(place.file);
        job.file = place.file;
        return isFree(job.file, place.folder, session);
    }

    static bool isFree(const QString& file, const QString& folder, Session& session)
    {
        const QString problem = linkInTheWay(file, folder);
        if (!problem.isEmpty())
            session.error(file, problem);
        return problem.isEmpty();
    }

    /// Whether nothing else would be lost.
    bool isOurs(const QString& file)
    {
        try {
            m_options.check(file);
        } catch (const Failure& failure) {
            m_refusals.add(QStringLiteral("--force"), file, failure.Message());
            return false;
        }
        return true;
    }

    QString outputFile(const Subject& subject)
    {
        const QString name =
            fileSafe(subject.element.tagName() + QLatin1Char(' ') +
                     (subject.name.isEmpty() ? QStringLiteral("unnamed") : subject.name));
        QString file = name;
        // Not all file systems tell capitals from small letters.
        for (int i = 2; m_taken.contains(file.toLower()); ++i)
            file = name + QStringLiteral(" (%1)").arg(i);
        m_taken.insert(file.toLower());
        return QDir(m_output).filePath(file + QLatin1String(".png"));
    }

    int finish(const QVector<Job>& jobs, const Document& document, Session& session,
               bool& isChanged)
    {
        const bool isJpeg = m_output.isEmpty();
        std::vector<drawing::Draw> draws;
        for (const Job& job : jobs)
            draws.push_back(job.draw);
        const std::vector<QImage> images = drawing::drawnTogether(draws);
        int count = 0;
        for (int i = 0; i < int(jobs.size()); ++i) {
            const QImage& image = images[std::size_t(i)];
            const Job& job = jobs[i];
            if (job.file.isEmpty()) {
                const QString text = EmbeddedText(image);
                QDomElement element = job.subject.element;
                isChanged = isChanged || element.attribute(QStringLiteral("xmlImage")) != text;
                element.setAttribute(QStringLiteral("xmlImage"), text);
            } else if (const QString problem = write(encodedPicture(image, isJpeg ? "jpg" : "png",
                                                                    isJpeg ? PreviewQuality : -1),
                                                     job.file);
                       !problem.isEmpty()) {
                session.error(job.file, problem);
                continue;
            }
            ++count;
            if (session.json)
                m_pictures.append(
                    QJsonObject{{QStringLiteral("file"), document.Name()},
                                {QStringLiteral("path"), job.subject.path},
                                {QStringLiteral("written"),
                                 job.file.isEmpty() ? QJsonValue() : QJsonValue(job.file)},
                                {QStringLiteral("width"), image.width()},
                                {QStringLiteral("height"), image.height()}});
        }
        return count;
    }

    /// Empty when it was written.
    QString write(const QByteArray& bytes, const QString& file)
    {
        if (m_options.isDryRun())
            return QString();
        const Uninterrupted writing;
        m_options.backUp(file);
        return m_folders.makeFolder(QFileInfo(file).path()) ? problemOfWriting(bytes, file)
                                                            : m_folders.problem();
    }

    void save(const Document& document, Session& session) const
    {
        m_options.backUp(document.Path());
        const QString problem =
            problemOfWriting(document.Dom(), document.Indent(), document.Path());
        if (!problem.isEmpty())
            session.error(document.Name(), problem);
    }

    QStringList m_files;
    bool m_missing = false;
    bool m_all = false;
    bool m_embed = false;
    QString m_output;
    PictureWish m_wish;
    OutputOptions m_options;
    SelectionOptions m_selection;
    Selection m_selected;

    /// Folders that were made go again at the end if they stayed empty.
    FileTransaction m_folders;
    /// Files of this run, so that none is written twice.
    QSet<QString> m_taken;
    Refusals m_refusals;
    QJsonArray m_pictures;
    int m_kept = 0;
};

} // namespace

std::unique_ptr<Command> makeRender()
{
    return std::make_unique<Render>();
}

} // namespace rvopen::command
