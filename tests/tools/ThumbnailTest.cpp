// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "Program.h"

#include <QDirIterator>
#include <QImage>

namespace rvopen::test {

namespace {

Outcome thumbnail(const Workspace& workspace, const char* input, QStringList more = {})
{
    return workspace.run(QStringList{QStringLiteral("thumbnail"), QString::fromLatin1(input),
                                     QStringLiteral("a.png")} +
                         more);
}

QImage made(const Workspace& workspace)
{
    return QImage(workspace.path(QStringLiteral("a.png")));
}

} // namespace

TEST(Thumbnail, IsAsLargeAsAskedFor)
{
    Workspace workspace;
    workspace.copySamples();
    const Outcome run = thumbnail(workspace, "archives/Custom/MyPresets.rvx", words("-s 64"));
    EXPECT_EQ(run.code, 0) << run.err.toStdString();
    EXPECT_EQ(run.out, "");
    EXPECT_EQ(made(workspace).size(), QSize(64, 64));
}

TEST(Thumbnail, ShowsASnapShotDocument)
{
    Workspace workspace;
    workspace.copySamples();
    const Outcome run = thumbnail(workspace, "snapshots/house.xml");
    EXPECT_EQ(run.code, 0) << run.err.toStdString();
    EXPECT_EQ(std::max(made(workspace).width(), made(workspace).height()), 256);
}

TEST(Thumbnail, ShowsOnePresetAlone)
{
    const Workspace workspace;
    workspace.write(QStringLiteral("a.rvx"),
                    "<presets><colours><colour name='Red'><shader_colour name='plain'>"
                    "<params name='colour' type='rgb' value='1 0 0'/></shader_colour></colour>"
                    "</colours></presets>");
    const Outcome run = thumbnail(workspace, "a.rvx", words("--json"));
    EXPECT_EQ(run.code, 0) << run.err.toStdString();
    EXPECT_EQ(run.json()[QStringLiteral("pictures")].toInt(), 1);
}

TEST(Thumbnail, ReplacesTheOneThatIsThere)
{
    Workspace workspace;
    workspace.copySamples();
    workspace.write(QStringLiteral("a.png"), "old");
    EXPECT_EQ(thumbnail(workspace, "archives/Custom/MyPresets.rvx").code, 0);
    EXPECT_FALSE(made(workspace).isNull());
}

TEST(Thumbnail, ReadsNothingButTheDocument)
{
    const Workspace workspace;
    const QByteArray document =
        "<presets><backgrounds><background name='Wall' subcat='Image'>"
        "<params name='Image Name' type='string' value='wall.png'/></background></backgrounds>"
        "<folder name='F' archive='other.rvx'/></presets>";
    workspace.write(QStringLiteral("a.rvx"), document);
    ASSERT_EQ(thumbnail(workspace, "a.rvx").code, 0);
    const QImage without = made(workspace);
    QImage wall(16, 16, QImage::Format_RGB32);
    wall.fill(Qt::magenta);
    ASSERT_TRUE(wall.save(workspace.path(QStringLiteral("wall.png"))));
    workspace.write(QStringLiteral("other.rvx"), document);
    ASSERT_EQ(thumbnail(workspace, "a.rvx").code, 0);
    EXPECT_EQ(made(workspace), without);
}

TEST(Thumbnail, IsNotMadeOfADocumentWithNothingToShow)
{
    const Workspace workspace;
    workspace.write(QStringLiteral("a.rvx"), "<presets/>");
    EXPECT_EQ(thumbnail(workspace, "a.rvx").code, 1);
    EXPECT_FALSE(workspace.exists(QStringLiteral("a.png")));
}

TEST(Thumbnail, IsNotMadeOfWhatIsNoDocument)
{
    const Workspace workspace;
    workspace.write(QStringLiteral("a.rvx"), "<presets>&bomb;");
    EXPECT_EQ(thumbnail(workspace, "a.rvx").code, 2);
    EXPECT_FALSE(workspace.exists(QStringLiteral("a.png")));
}

TEST(Thumbnail, OutlivesFilesMadeToHurt)
{
    const Workspace workspace;
    QDirIterator files(QStringLiteral(RVOPEN_SOURCE_DIR "/fuzz/corpus"), QDir::Files,
                       QDirIterator::Subdirectories);
    int count = 0;
    for (; files.hasNext(); ++count) {
        const QString file = files.next();
        const Outcome run = workspace.run(
            {QStringLiteral("thumbnail"), file, QStringLiteral("a.png"), QStringLiteral("-s32")});
        EXPECT_TRUE(run.code >= 0 && run.code <= 2) << file.toStdString() << run.err.toStdString();
    }
    EXPECT_GT(count, 50);
}

TEST(Thumbnail, IsNotWrittenOverTheDocument)
{
    const Workspace workspace;
    workspace.write(QStringLiteral("a.png"),
                    "<presets><colours><colour name='Red'/></colours></presets>");
    EXPECT_EQ(thumbnail(workspace, "a.png").code, 2);
    EXPECT_EQ(workspace.read(QStringLiteral("a.png")).left(9), "<presets>");
}

TEST(Thumbnail, RefusesSizesThatNobodyShows)
{
    Workspace workspace;
    workspace.copySamples();
    for (const char* const size : {"0", "-1", "15", "1025", "100000"})
        EXPECT_EQ(thumbnail(workspace, "archives/Custom/MyPresets.rvx",
                            {QStringLiteral("--size=") + QString::fromLatin1(size)})
                      .code,
                  2)
            << size;
}

TEST(Thumbnail, TellsProgramsWhatItWrote)
{
    Workspace workspace;
    workspace.copySamples();
    const Outcome run = thumbnail(workspace, "archives/Custom/MyPresets.rvx", words("--json"));
    EXPECT_EQ(run.json()[QStringLiteral("written")].toString(), QStringLiteral("a.png"));
    EXPECT_EQ(run.json()[QStringLiteral("width")].toInt(), 256);
    EXPECT_TRUE(isOfSchema(run, QStringLiteral("thumbnail")));
}

} // namespace rvopen::test
