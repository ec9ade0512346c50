// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include "../NewFiles.h"
#include "../PictureFiles.h"
#include "../Session.h"

#include <QDomElement>
#include <QSet>
#include <QString>
#include <QStringList>
#include <QVector>

namespace rvopen::tools {

class Document;
class Target;

/// The folders in which the pictures of a document are. Of a user's archive that does not lie below
/// the folder that is named the pictures lie beside it, or where its "path" starts; those of
/// snapshots in \p snapShots unless the user named their folder.
Folders foldersOf(const Document& document, const Folders& named, const QString& snapShots);

/// pictureFileOf() in folders that may be others than those that the library was told.
PicturePlace pictureIn(const QDomElement& element, const Document& document,
                       const Folders& folders);

/// The files in which the pictures of all presets and collected snapshots of the document are.
QSet<QString> picturesOf(const Document& document, const Folders& folders);

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

    /// \p mayReplace: whether another picture in the new place is written over.
    explicit PictureMoves(bool mayReplace);

    /// Plans what becomes of a picture. Nothing is planned where there is none or it stays.
    void follow(const PicturePlace& before, const PicturePlace& after, Old old);
    void remove(const PicturePlace& place);
    /// What others show is not taken from them.
    void keep(const QSet<QString>& files);

    const QVector<Move>& moves() const;
    /// What speaks against the plan as a whole.
    const QStringList& problems() const;
    /// Which pictures are left where they are, and why.
    const QStringList& notes() const;

    /// Makes the new files. Throws a Failure when one cannot be made.
    void make();
    /// From now on the new files stay. The old ones go, and the folders that they leave empty.
    void finish(const Target& target, Session& session);

private:
    bool isWhole(const PicturePlace& place);
    void add(const Move& move);

    bool m_mayReplace;
    QVector<Move> m_moves;
    QStringList m_problems;
    QStringList m_notes;
    NewFiles m_made;
    /// New places that have another picture, written over at the end.
    QVector<Move> m_replacing;
};

} // namespace rvopen::tools
