// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "Arguments.h"
#include "Command.h"
#include "Input.h"
#include "OutputOptions.h"
#include "SelectionOptions.h"
#include "Session.h"
#include "toolkit/documents/FileWriting.h"
#include "toolkit/documents/Interruption.h"
#include "toolkit/documents/SafeFiles.h"

#include <rvopen/toolkit/documents/Failure.h>
#include <rvopen/toolkit/drawing/Subjects.h>
#include <rvopen/toolkit/sheets/PictureSheet.h>

#include <QFileInfo>

#include <algorithm>
#include <atomic>
#include <memory>

namespace rvopen::command {

using namespace toolkit;

namespace {

class Sheet : public Command {
public:
    const char* name() const override
    {
        return "sheet";
    }

    const char* summary() const override
    {
        return "Make a contact sheet of pictures with their names";
    }

    void declare(Arguments& arguments) override
    {
        arguments.description(
            "Presets, snapshots and palettes under the names of their sections, folders and "
            "collections. Pictures that are there are taken, the others are drawn; no document "
            "is changed. The name of the output tells the format: PNG is one long picture, PDF "
            "has pages of A4. With --html a folder with a page for browsers, to search, filter "
            "and look into.");
        arguments.positional("files", m_files, "Documents, archives, folders, or \"-\"");
        arguments.option("-o,--output", m_output, "FILE", "Write to this file, .png or .pdf");
        arguments.option("--html", m_html, "DIR",
                         "Write a page for browsers into this folder, which is empty or, with "
                         "--force, has such a page");
        arguments.option("--size", m_wish.size, "PIXELS",
                         "The width of a picture; 160 when not given");
        arguments.option("--columns", m_wish.columns, "NUMBER",
                         "Pictures in a row; 6 when not given");
        arguments.flag("--drawn", m_wish.isDrawn,
                       "Draw them all, also those that there are pictures of");
        m_options.declare(arguments);
        m_selection.declare(arguments);
        for (const char* const option : {"--output", "--columns", "--backup"})
            arguments.onlyOne({QStringLiteral("--html"), QLatin1String(option)});
        arguments.example("rvopen sheet archives/Custom/MyPresets.rvx --size 80 -o mine.pdf",
                          "a sheet to print");
        arguments.example("rvopen sheet archives --type material --html page",
                          "materials to look through in a browser: page/index.html");
    }

    int run(Session& session) override
    {
        const bool isPage = !m_html.isEmpty();
        const QString suffix = QFileInfo(m_output).suffix().toLower();
        const bool isPdf = suffix == QLatin1String("pdf");
        if (!isPage && !isPdf && suffix != QLatin1String("png"))
            throw Failure(QStringLiteral("say where to write: --output FILE.png or FILE.pdf, or "
                                         "--html DIR"));
        if (m_wish.size < MinPictureSize || m_wish.size > MaxSheetPicture)
            throw Failure(
                QStringLiteral("--size takes %1 to %2").arg(MinPictureSize).arg(MaxSheetPicture));
        if (m_wish.columns < 1 || m_wish.columns > MaxSheetColumns)
            throw Failure(QStringLiteral("--columns takes 1 to %1").arg(MaxSheetColumns));
        if (!isPage && isInput())
            throw Failure(QStringLiteral("\"%1\" is the input").arg(m_output));
        const Selection selected = m_selection.selection();
        if (isPage)
            PictureSheet::CheckFolder(m_html, m_options.isForced());
        else
            m_options.check(m_output);
        PictureSheet sheet(isPage  ? SheetFormat::Page
                           : isPdf ? SheetFormat::Pdf
                                   : SheetFormat::Png,
                           m_wish);
        forEachSelected(m_files, session, selected, [&](Document& document) {
            sheet.Add(document,
                      selectedOf(SubjectsOf(document) + PaletteSubjects(document),
                                 selected.in(document.Root())),
                      session.folders);
        });
        m_selection.tellMisspelling(session);
        if (sheet.Count() == 0 && !session.hasFailed())
            throw Failure(QStringLiteral("there is nothing to show"));
        if (session.hasFailed())
            return ExitFailed;
        write(sheet, session);
        session.clearProgress();
        if (session.json) {
            QJsonObject result = Session::envelope(name());
            result.insert(QStringLiteral("written"), isPage ? m_html : m_output);
            result.insert(QStringLiteral("pictures"), sheet.Count());
            result.insert(QStringLiteral("drawn"), sheet.DrawnCount());
            result.insert(QStringLiteral("pages"), sheet.PageCount());
            session.out.json(result);
        }
        return ExitFine;
    }

private:
    bool isInput() const
    {
        return std::any_of(m_files.begin(), m_files.end(),
                           [this](const QString& file) { return isSameFile(file, m_output); });
    }

    void write(const PictureSheet& sheet, Session& session) const
    {
        const bool isPage = !m_html.isEmpty();
        std::atomic<bool> stop{false};
        const auto progress = [&](int done) {
            session.progress(done, sheet.Count(), isPage ? m_html : m_output);
            stop = isInterrupted();
        };
        if (isPage) {
            if (m_options.isDryRun())
                return;
            const Uninterrupted writing;
            // Whoever ends the program waits for a few pictures.
            if (!sheet.WriteFolder(m_html, m_options.isForced(), progress, &stop))
                throw Failure(QStringLiteral("interrupted"));
            return;
        }
        const int fitting = sheet.FittingSize();
        if (fitting < m_wish.size)
            throw Failure(
                QStringLiteral("that is too much for one picture: take PDF, %1or more --columns")
                    .arg(fitting == 0 ? QString() : QStringLiteral("--size %1, ").arg(fitting)));
        const QByteArray bytes = sheet.Bytes(progress, &stop);
        if (stop)
            throw Failure(QStringLiteral("interrupted"));
        if (m_options.isDryRun())
            return;
        m_options.backUp(m_output);
        writeOrFail(bytes, m_output);
    }

    QStringList m_files;
    QString m_output;
    QString m_html;
    SheetWish m_wish;
    OutputOptions m_options;
    SelectionOptions m_selection;
};

} // namespace

std::unique_ptr<Command> makeSheet()
{
    return std::make_unique<Sheet>();
}

} // namespace rvopen::command
