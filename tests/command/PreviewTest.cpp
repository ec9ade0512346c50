// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "Program.h"

#include <QFile>
#include <QImage>

namespace rvopen::test {

TEST(Preview, WritesAnEmbeddedPicture)
{
    Workspace workspace;
    workspace.copySamples();
    const Outcome run =
        workspace.run("preview archives/Custom/MyPresets.rvx 'colour[Our orange]' -o a.png");
    EXPECT_EQ(run.code, 0) << run.err.toStdString();
    EXPECT_EQ(QImage(workspace.path(QStringLiteral("a.png"))).size(), QSize(32, 32));
}

TEST(Preview, FindsTheThumbnailOfASnapShotBesideTheDocument)
{
    Workspace workspace;
    workspace.copySamples();
    const Outcome run =
        workspace.run("preview snapshots/import_me.xml 'snapshot[Winter noon]' -o a.jpg");
    EXPECT_EQ(run.code, 0) << run.err.toStdString();
    EXPECT_EQ(QImage(workspace.path(QStringLiteral("a.jpg"))).size(), QSize(128, 96));
    EXPECT_EQ(workspace.read(QStringLiteral("snapshots/import_me.xml")), [&] {
        QFile file(QStringLiteral(RVOPEN_DATA_DIR "/snapshots/import_me.xml"));
        file.open(QIODevice::ReadOnly);
        return file.readAll();
    }());
}

TEST(Preview, FindsTheThumbnailOfASnapShotWhereTheHostKeepsThem)
{
    const Workspace workspace;
    workspace.write(QStringLiteral("in/a.xml"),
                    "<snapRoot><snapshots><snapshot name=\"A\"/></snapshots></snapRoot>");
    for (const auto& place :
         {qMakePair(QStringLiteral("in"), 3), qMakePair(QStringLiteral("host"), 5)}) {
        QImage image(4, place.second, QImage::Format_RGB32);
        image.fill(Qt::red);
        workspace.write(place.first + QStringLiteral("/x"), "");
        EXPECT_TRUE(image.save(workspace.path(place.first + QStringLiteral("/icon_A.jpg"))));
    }
    EXPECT_EQ(workspace.run("preview in/a.xml snapshot[A] -o a.bmp").code, 0);
    EXPECT_EQ(QImage(workspace.path(QStringLiteral("a.bmp"))).height(), 3);
    EXPECT_EQ(workspace.run("preview --snapshots host in/a.xml snapshot[A] -o b.bmp").code, 0);
    EXPECT_EQ(QImage(workspace.path(QStringLiteral("b.bmp"))).height(), 5);
}

TEST(Preview, FindsTheThumbnailOfAPresetBelowTheInstallation)
{
    const Workspace workspace;
    workspace.write(QStringLiteral("a.rvx"),
                    "<presets><colours><colour name=\"Red\" cat=\"C\"/></colours></presets>");
    workspace.write(QStringLiteral("sethumbs/C/x"), "");
    QImage image(4, 3, QImage::Format_RGB32);
    image.fill(Qt::red);
    EXPECT_TRUE(image.save(workspace.path(QStringLiteral("sethumbs/C/Red.jpg"))));
    const Outcome run = workspace.run("preview --install . a.rvx colour[Red] -o a.bmp");
    EXPECT_EQ(run.code, 0) << run.err.toStdString();
    EXPECT_EQ(QImage(workspace.path(QStringLiteral("a.bmp"))).size(), QSize(4, 3));
}

TEST(Preview, TellsProgramsWhatItWrote)
{
    Workspace workspace;
    workspace.copySamples();
    const Outcome run =
        workspace.run("preview --json archives/Custom/MyPresets.rvx 'colour[Our orange]' -o a.png");
    EXPECT_TRUE(isOfSchema(run, QStringLiteral("preview")));
    EXPECT_EQ(run.json().value(QStringLiteral("written")).toString(), QStringLiteral("a.png"));
    EXPECT_EQ(run.json().value(QStringLiteral("width")).toInt(), 32);
}

TEST(Preview, WithoutPictureAnswersOne)
{
    const Workspace workspace;
    workspace.write(QStringLiteral("a.xml"), smallDocument());
    EXPECT_EQ(workspace.run("preview a.xml snapshot[Größe] -o a.png").code, 1);
    EXPECT_FALSE(workspace.exists(QStringLiteral("a.png")));
}

TEST(Preview, OverwritesNothingUnlessForced)
{
    Workspace workspace;
    workspace.copySamples();
    workspace.write(QStringLiteral("a.png"), "old");
    const QStringList arguments =
        words("preview archives/Custom/MyPresets.rvx 'colour[Our orange]' -o a.png");
    EXPECT_EQ(workspace.run(arguments).code, 2);
    EXPECT_EQ(workspace.read(QStringLiteral("a.png")), QByteArray("old"));
    EXPECT_EQ(workspace.run(arguments + QStringList(QStringLiteral("--force"))).code, 0);
}

} // namespace rvopen::test
