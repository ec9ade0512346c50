// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include <rvopen/toolkit/ToolkitExport.h>
#include <rvopen/toolkit/drawing/Subjects.h>

#include <QByteArray>
#include <QString>
#include <QVector>

#include <atomic>
#include <functional>
#include <memory>

namespace rvopen::toolkit {

class Document;
struct Folders;

/// \name What a sheet can have
/// @{
/// Pictures in a row.
constexpr int MaxSheetColumns = 40;
/// The widest picture of a sheet, in pixels: on paper it is drawn twice as fine.
constexpr int MaxSheetPicture = MaxPictureSize / 2;
/// @}

/// What a sheet becomes.
enum class SheetFormat {
    Png, ///< One long picture.
    Pdf, ///< Pages of A4.
    Page ///< A folder with a page for browsers, to search, filter and look into.
};

/// How somebody wants a sheet; what is out of its range is taken as the nearest that is in it.
struct SheetWish {
    /// The width of a picture in pixels, MinPictureSize to MaxSheetPicture.
    int size = 160;
    /// Pictures in a row, 1 to MaxSheetColumns; of no matter to a page for browsers.
    int columns = 6;
    /// Whether those are drawn that there are pictures of, too.
    bool isDrawn = false;
};

/// A contact sheet: pictures of presets, snapshots and palettes with their names under those of
/// their sections, folders and collections. Pictures that are there are taken, the others are drawn
/// when the sheet is made; no document is changed. The same documents give the same bytes.
///
/// \code
/// toolkit::PictureSheet sheet(toolkit::SheetFormat::Pdf);
/// sheet.Add(*load.document, toolkit::SubjectsOf(*load.document), folders);
/// WriteFile(sheet.Bytes(), "mine.pdf");
/// \endcode
///
/// A sheet may be made in any thread, and is used by one at a time, as are the documents that were
/// added: those of which something has to be drawn are held. PNG and PDF have words, which need
/// fonts, and these a QGuiApplication: a program without one gets one that needs no screen, unless
/// it had pictures read or drawn before, for which one without fonts was made.
class RVOPEN_TOOLKIT_EXPORT PictureSheet {
public:
    /// Throws a Failure where letters are needed and there are no fonts.
    explicit PictureSheet(SheetFormat format, const SheetWish& wish = {});
    ~PictureSheet();
    PictureSheet(const PictureSheet&) = delete;
    PictureSheet& operator=(const PictureSheet&) = delete;

    /// \name What is on it
    /// @{
    /// What comes next, of one document: SubjectsOf(), PaletteSubjects() or some of them.
    void Add(const Document& document, const QVector<Subject>& subjects, const Folders& folders);
    /// How many pictures.
    int Count() const;
    /// How many there are no pictures of, or that are drawn all the same.
    int DrawnCount() const;
    /// The names of the documents: an archive's own, a file's without its suffix.
    QString Title() const;
    /// @}

    /// \name Making it
    /// How many pictures are done is told every few pictures. Once \p stop, null for never, is
    /// true, which it has to stay, the work ends with the row of pixels that it is at.
    /// @{
    using Progress = std::function<void(int done)>;

    /// The greatest size, up to the one that was wished, at which all of it goes into one picture;
    /// 0 when none does. Paper and pages for browsers take every size.
    int FittingSize() const;
    /// The picture, or the pages; empty when it was stopped. Throws a Failure for what
    /// FittingSize() says is too large for one picture.
    QByteArray Bytes(const Progress& progress = {}, const std::atomic<bool>* stop = nullptr) const;
    /// How many pages these bytes have; 1 but for paper.
    int PageCount() const;
    /// Throws a Failure when the folder cannot become a page for browsers: something else is there,
    /// or such a page, and \p mayReplace does not say that this one takes its place.
    static void CheckFolder(const QString& folder, bool mayReplace);
    /// Makes that page: all of it, or the folder is as it was. False when it was stopped. Throws a
    /// Failure as CheckFolder() does, and when something cannot be written.
    bool WriteFolder(const QString& folder, bool mayReplace, const Progress& progress = {},
                     const std::atomic<bool>* stop = nullptr) const;
    /// @}

private:
    class Maker;

    std::unique_ptr<Maker> m_maker;
};

} // namespace rvopen::toolkit
