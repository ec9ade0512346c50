// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include "toolkit/documents/FileTransaction.h"

#include <rvopen/toolkit/documents/Folders.h>
#include <rvopen/toolkit/images/PictureLocations.h>

#include <QByteArray>
#include <QDomElement>
#include <QPair>
#include <QSet>
#include <QString>
#include <QStringList>
#include <QVector>

#include <functional>

namespace rvopen::toolkit {

class Document;

/// The folders in which the pictures of a document are. Of a user's archive that does not lie below
/// the folder that is named the pictures lie beside it, or where its "path" starts; those of
/// snapshots in \p snapShots unless the user named their folder.
Folders foldersOf(const Document& document, const Folders& named, const QString& snapShots);

/// Folders that the library has for as long as this lives. Where the user named none for his
/// archives it is the one in which foldersOf() has the pictures of this document.
class PictureFolders {
public:
    PictureFolders(const Document& document, const Folders& named);
    ~PictureFolders();
    PictureFolders(const PictureFolders&) = delete;
    PictureFolders& operator=(const PictureFolders&) = delete;

    const Folders& folders() const;

private:
    Folders m_folders;
    QString m_before;
};

/// LocatePicture() in folders that may be others than those that the library was told.
PictureLocation pictureIn(const QDomElement& element, const Document& document,
                          const Folders& folders);

/// The files in which the pictures of all presets and collected snapshots of the document are.
QSet<QString> picturesOf(const Document& document, const Folders& folders);

/// How many pictures nobody finds who looks for them from the document in \p folder. \p input is
/// the document where it was read, \p named are the host's folders.
int picturesLeft(const Document& document, const Document& input, const QString& folder,
                 const Folders& named);

/// Pictures that follow what they show. New files are made before the documents are written and
/// are gone again if those are not; old ones go after that.
class PictureMoves {
public:
    enum class Old { Kept, Removed };

    struct Move {
        QString from;
        /// Empty for a picture that only goes.
        QString to;
        Old old = Old::Kept;
        /// The folder that stays even if it is empty.
        QString folder;
    };

    /// A picture without a new place.
    struct Stray {
        QString file;
        PictureLack lack = PictureLack::Nothing;
    };

    /// Keeps what is about to be written over or removed, if that is wanted. Empty when that went
    /// well, else why not.
    using Backup = std::function<QString(const QString& file)>;
    /// Hears of a file what is wrong with it, where the rest goes on.
    using Complaint = std::function<void(const QString& file, const QString& message)>;

    /// \p mayReplace: whether another picture in the new place is written over.
    explicit PictureMoves(bool mayReplace);

    /// Plans what becomes of a picture. Nothing is planned where there is none or it stays.
    void follow(const PictureLocation& before, const PictureLocation& after, Old old);
    void remove(const PictureLocation& place);
    /// What others show is not taken from them.
    void keep(const QSet<QString>& files);

    const QVector<Move>& moves() const;
    /// \name What is to be told of the plan
    /// @{

    /// What speaks against it as a whole, besides pictures without a place.
    const QStringList& problems() const;
    /// Pictures whose new place is not known, which speaks against it, too.
    const QVector<Stray>& strays() const;
    /// Which pictures are left where they are, and why.
    const QStringList& notes() const;
    /// Why there are pictures that were not looked for, each reason once.
    const QVector<PictureLack>& lacks() const;
    /// @}

    /// Makes the new files. Throws a Failure when one cannot be made or read.
    void make();
    /// From now on the new files stay. The old ones go, and the folders that they leave empty.
    void finish(const Backup& backUp, const Complaint& complain);

private:
    bool isWhole(const PictureLocation& place);
    void add(const Move& move);

    bool m_mayReplace;
    QVector<Move> m_moves;
    QStringList m_problems;
    QVector<Stray> m_strays;
    QStringList m_notes;
    QVector<PictureLack> m_lacks;
    FileTransaction m_made;
    /// What is written over another picture at the end, with its bytes: one of the others may be
    /// written over it before.
    QVector<QPair<Move, QByteArray>> m_replacing;
};

} // namespace rvopen::toolkit
