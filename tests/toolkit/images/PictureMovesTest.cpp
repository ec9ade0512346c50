// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "toolkit/images/PictureMoves.h"

#include "../InAFolder.h"
#include "toolkit/documents/FileTransaction.h"

namespace rvopen::test {

namespace {

using namespace toolkit;
using Old = PictureMoves::Old;

class MovedPictures : public InAFolder {
protected:
    PictureLocation place(const char* name) const
    {
        return {path(name), m_folder.path(), PictureLack::Nothing};
    }

    /// Answers what was complained of.
    QStringList finish(PictureMoves& moves, const QString& problemOfBackup = QString())
    {
        QStringList complaints;
        moves.finish(
            [&](const QString& file) {
                m_backedUp << file;
                return problemOfBackup;
            },
            [&complaints](const QString& file, const QString& message) {
                complaints << QFileInfo(file).fileName() + QLatin1String(": ") + message;
            });
        return complaints;
    }

    bool isThere(const char* name) const
    {
        return QFileInfo::exists(path(name));
    }

    QStringList m_backedUp;
};

} // namespace

TEST_F(MovedPictures, GoToTheNewPlaceAndLeaveNoEmptyFolder)
{
    paint("old/sub/a.jpg", qRgb(1, 2, 3));
    PictureMoves moves(false);
    moves.follow(place("old/sub/a.jpg"), place("new/b.jpg"), Old::Removed);
    ASSERT_EQ(moves.moves().size(), 1);
    moves.make();
    EXPECT_TRUE(isThere("new/b.jpg"));
    EXPECT_TRUE(isThere("old/sub/a.jpg"));
    EXPECT_EQ(joinedBy(" ", finish(moves)), "");
    EXPECT_TRUE(isThere("new/b.jpg"));
    EXPECT_FALSE(isThere("old"));
    EXPECT_EQ(joinedBy(" ", m_backedUp), "");
}

TEST_F(MovedPictures, AreGoneFromTheNewPlaceUnlessTheyAreFinished)
{
    paint("a.jpg", qRgb(1, 2, 3));
    {
        PictureMoves moves(false);
        moves.follow(place("a.jpg"), place("new/b.jpg"), Old::Removed);
        moves.make();
        EXPECT_TRUE(isThere("new/b.jpg"));
    }
    EXPECT_FALSE(isThere("new"));
    EXPECT_TRUE(isThere("a.jpg"));
}

TEST_F(MovedPictures, ThatOthersShowStay)
{
    paint("a.jpg", qRgb(1, 2, 3));
    paint("b.jpg", qRgb(1, 2, 3));
    PictureMoves moves(false);
    moves.follow(place("a.jpg"), place("c.jpg"), Old::Removed);
    moves.remove(place("b.jpg"));
    moves.keep({path("a.jpg"), path("b.jpg")});
    ASSERT_EQ(moves.moves().size(), 1);
    moves.make();
    finish(moves);
    EXPECT_TRUE(isThere("a.jpg"));
    EXPECT_TRUE(isThere("b.jpg"));
    EXPECT_TRUE(isThere("c.jpg"));
}

TEST_F(MovedPictures, WithoutANewPlaceAreStrays)
{
    paint("a.jpg", qRgb(1, 2, 3));
    PictureMoves moves(false);
    moves.follow(place("a.jpg"), {QString(), QString(), PictureLack::Names}, Old::Removed);
    EXPECT_TRUE(moves.moves().isEmpty());
    ASSERT_EQ(moves.strays().size(), 1);
    EXPECT_EQ(moves.strays().first().file, path("a.jpg"));
    EXPECT_EQ(moves.strays().first().lack, PictureLack::Names);
}

TEST_F(MovedPictures, ThatWereNotLookedForSayEachReasonOnce)
{
    PictureMoves moves(false);
    const PictureLocation unknown{QString(), QString(), PictureLack::InstallFolder};
    moves.follow(unknown, place("b.jpg"), Old::Removed);
    moves.remove(unknown);
    EXPECT_EQ(moves.lacks(), QVector<PictureLack>{PictureLack::InstallFolder});
    EXPECT_TRUE(moves.moves().isEmpty());
    EXPECT_TRUE(moves.strays().isEmpty());
}

TEST_F(MovedPictures, ReplaceAnotherOnlyWhenTheyMay)
{
    const QString from = paint("a.jpg", qRgb(1, 2, 3));
    const QString to = paint("b.jpg", qRgb(9, 9, 9));
    PictureMoves refused(false);
    refused.follow(place("a.jpg"), place("b.jpg"), Old::Removed);
    EXPECT_EQ(refused.problems().size(), 1);
    PictureMoves moves(true);
    moves.follow(place("a.jpg"), place("b.jpg"), Old::Kept);
    EXPECT_TRUE(moves.problems().isEmpty());
    moves.make();
    EXPECT_FALSE(haveSameBytes(from, to));
    EXPECT_EQ(joinedBy(" ", finish(moves)), "");
    EXPECT_TRUE(haveSameBytes(from, to));
    EXPECT_EQ(m_backedUp, QStringList(to));
}

TEST_F(MovedPictures, InARowAreNotMistakenForEachOther)
{
    paint("a.jpg", qRgb(1, 2, 3));
    paint("b.jpg", qRgb(4, 5, 6));
    paint("c.jpg", qRgb(9, 9, 9));
    PictureMoves moves(true);
    moves.follow(place("a.jpg"), place("b.jpg"), Old::Removed);
    moves.follow(place("b.jpg"), place("c.jpg"), Old::Removed);
    moves.keep({path("b.jpg"), path("c.jpg")});
    moves.make();
    EXPECT_EQ(joinedBy(" ", finish(moves)), "");
    EXPECT_FALSE(isThere("a.jpg"));
    EXPECT_EQ(QImage(path("b.jpg")).pixel(0, 0), qRgb(1, 2, 3));
    EXPECT_EQ(QImage(path("c.jpg")).pixel(0, 0), qRgb(4, 5, 6));
}

TEST_F(MovedPictures, IntoALinkToTheirFolderStay)
{
    paint("old/a.jpg", qRgb(1, 2, 3));
    if (!QFile::link(path("old"), path("new")) || !isThere("new/a.jpg"))
        GTEST_SKIP() << "there are no links";
    PictureMoves moves(false);
    moves.follow(place("old/a.jpg"), place("new/a.jpg"), Old::Removed);
    moves.make();
    EXPECT_EQ(joinedBy(" ", finish(moves)), "");
    EXPECT_TRUE(isThere("old/a.jpg"));
}

TEST_F(MovedPictures, AreNotRemovedWithoutTheirBackup)
{
    paint("a.jpg", qRgb(1, 2, 3));
    PictureMoves moves(false);
    moves.remove(place("a.jpg"));
    moves.make();
    EXPECT_EQ(joinedBy(" ", finish(moves, QStringLiteral("no room"))), "a.jpg: no room");
    EXPECT_TRUE(isThere("a.jpg"));
}

TEST_F(MovedPictures, ThatAreNoPicturesAreLeft)
{
    write("a.jpg", "text");
    PictureMoves moves(false);
    moves.remove(place("a.jpg"));
    EXPECT_TRUE(moves.moves().isEmpty());
    EXPECT_EQ(moves.notes().size(), 1);
}

} // namespace rvopen::test
