// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "Program.h"

#include <QDirIterator>
#include <QFile>
#include <QImage>
#include <QRegularExpression>

#include <algorithm>

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

namespace {

struct Reference {
    const char* what;
    const char* document;
    QByteArray xml;
    /// The file that is referred to.
    const char* file;
    /// Whether check looks for it.
    bool isChecked = true;
};

void PrintTo(const Reference& reference, std::ostream* out)
{
    *out << reference.what;
}

class ThumbnailReference : public ::testing::TestWithParam<Reference> {
protected:
    /// As a host would have it, with all folders that references lead into.
    static QString folders()
    {
        return QStringLiteral("--install host --archives theirs --custom mine --snapshots icons");
    }

    /// How many files check misses that the document refers to.
    int missing() const
    {
        int count = 0;
        const Outcome run =
            workspace.shell(QStringLiteral("rvopen check --json %1 d/%2")
                                .arg(folders(), QLatin1String(GetParam().document)));
        for (const auto& finding : run.json()[QStringLiteral("findings")].toArray())
            count += finding.toObject()[QStringLiteral("rule")].toString().startsWith(
                         QLatin1String("missing-"))
                         ? 1
                         : 0;
        return count;
    }

    Workspace workspace;
};

/// A shader with a texture, which bumps and transparencies have too.
QByteArray map(const char* file)
{
    return QByteArray("<param name='Colour' type='shader' val='colour'><map enabled='1'><param "
                      "name='Texture' type='string' val='") +
           file + "'/></map></param>";
}

QByteArray inSnapShot(const QByteArray& settings, const QByteArray& xml)
{
    return "<snapRoot><snapshots name='Model SnapShots'><snapshot name='A'><snapShotSettings>" +
           settings + "</snapShotSettings><camera/>" + xml + "</snapshot></snapshots></snapRoot>";
}

QByteArray fileName(const char* type, const char* subcat)
{
    return QByteArray("<") + type + " name='x' subcat='" + subcat +
           "'><param name='File Name' type='string' val='p.png'/></" + type + ">";
}

} // namespace

TEST_P(ThumbnailReference, IsNotFollowed)
{
    const Reference& reference = GetParam();
    for (const char* const folder : {"host", "theirs", "mine", "icons"})
        workspace.write(QLatin1String(folder) + QLatin1String("/x"), "");
    if (reference.xml.contains("<snapRoot"))
        workspace.write(QStringLiteral("icons/icon_A.jpg"), pictureOf("A"));
    workspace.write(QLatin1String("d/") + QLatin1String(reference.document),
                    QByteArray(reference.xml).replace("%1", workspace.path().toUtf8()));
    // What the words of the document mean is known by what check says without the file.
    const QString file = QLatin1String(reference.file);
    QFile::remove(workspace.path(file));
    ASSERT_EQ(missing(), reference.isChecked ? 1 : 0);
    workspace.write(file, file.endsWith(QLatin1String(".rvx")) ? smallArchive() : pictureOf("x"));
    ASSERT_EQ(missing(), 0);

    QString trace;
    const Outcome run = workspace.traced(QStringLiteral("-y -e 'trace=/^(open|creat)'"),
                                         QStringLiteral("rvopen thumbnail -s 16 %1 d/%2 t.png")
                                             .arg(folders(), QLatin1String(reference.document)),
                                         trace);
    EXPECT_EQ(run.code, 0) << run.err.toStdString();
    // The command itself and the library, wherever they were built.
    QStringList foreign{QStringLiteral(RVOPEN_LIBRARIES)};
    foreign << words("/usr/ /lib /etc/ /proc/ /sys/ /dev/ /var/ /run/ /opt/");
    int documents = 0;
    for (const QString& line : trace.split(QLatin1Char('\n'))) {
        static const QRegularExpression result(QStringLiteral("\\) = \\d+<(.*)>$"));
        const QString opened = result.match(line).captured(1);
        const bool isForeign = std::any_of(foreign.cbegin(), foreign.cend(), [&](const auto& part) {
            return opened.startsWith(part);
        });
        if (opened.isEmpty() || isForeign)
            continue;
        const QString name = opened.mid(workspace.path().size() + 1);
        EXPECT_TRUE(opened == workspace.path() ||
                    opened.startsWith(workspace.path() + QLatin1String("/")))
            << line.toStdString();
        // The output is a new file first, and its folder is made lasting.
        const bool isOutput = name.isEmpty() || line.contains(QLatin1String("O_EXCL"));
        if (name == QLatin1String("d/") + QLatin1String(reference.document))
            ++documents;
        else
            EXPECT_TRUE(isOutput) << line.toStdString();
    }
    EXPECT_GT(documents, 0) << trace.toStdString();
}

INSTANTIATE_TEST_SUITE_P(
    Kinds, ThumbnailReference,
    ::testing::Values(
        Reference{"texture of a colour", "a.rvx",
                  "<presets><colours><colour name='x'><diffuse>" + map("p.png") +
                      "</diffuse></colour></colours></presets>",
                  "d/p.png"},
        Reference{"texture of a material's colour", "a.rvx",
                  "<presets><materials><material name='x'><colour><diffuse>" + map("p.png") +
                      "</diffuse></colour></material></materials></presets>",
                  "d/p.png"},
        Reference{"texture of a transparency", "a.rvx",
                  "<presets><transparencies><transparency name='x'>" + map("p.png") +
                      "</transparency></transparencies></presets>",
                  "d/p.png"},
        Reference{"texture of a bump", "a.rvx",
                  "<presets><bumps><bump name='x'>" + map("p.png") + "</bump></bumps></presets>",
                  "d/p.png"},
        Reference{"texture by a whole path", "a.rvx",
                  "<presets><colours><colour name='x'><diffuse>" + map("%1/far/p.png") +
                      "</diffuse></colour></colours></presets>",
                  "far/p.png"},
        Reference{"texture above the document", "a.rvx",
                  "<presets><colours><colour name='x'><diffuse>" + map("..\\far\\p.png") +
                      "</diffuse></colour></colours></presets>",
                  "far/p.png"},
        Reference{"image of a background", "a.rvx",
                  "<presets><backgrounds>" + fileName("background", "Image") +
                      "</backgrounds></presets>",
                  "d/p.png"},
        Reference{"image of a background with a horizon", "a.rvx",
                  "<presets><backgrounds>" + fileName("background", "Image3D") +
                      "</backgrounds></presets>",
                  "d/p.png"},
        Reference{"environment of a background", "a.rvx",
                  "<presets><backgrounds>" + fileName("background", "Reflection") +
                      "</backgrounds></presets>",
                  "d/p.png"},
        Reference{"image of a snapshot's background", "a.xml",
                  inSnapShot("", fileName("background", "Image")), "d/p.png"},
        Reference{"environment of a snapshot", "a.xml",
                  inSnapShot("<param name='Reflected Env Path' type='string' val='p.png'/>", ""),
                  "d/p.png"},
        Reference{"texture of a palette's material", "a.xml",
                  inSnapShot("", "<materialRepository><material name='x' linkname='x'><bump>" +
                                     map("p.png") + "</bump></material></materialRepository>"),
                  "d/p.png"},
        Reference{"picture of a snapshot", "a.xml",
                  inSnapShot("<param name='Image File Name' type='string' val='p.png'/>", ""),
                  "d/p.png", false},
        Reference{"thumbnail of a snapshot", "a.xml", inSnapShot("", ""), "icons/icon_A.jpg"},
        Reference{"thumbnail of a preset", "a.rvx",
                  "<presets type='Zorvane'><colours><colour cat='C' path='P' name='x' "
                  "imgname='p'/></colours></presets>",
                  "host/sethumbs/C/P/p.jpg"},
        Reference{"thumbnail of a user's preset", "a.rvx",
                  "<presets type='UserArchives'><colours><colour cat='C' name='x' imgname='p'/>"
                  "</colours></presets>",
                  "mine/C/thumbs/p.jpg"},
        Reference{"archive of the host", "a.rvx",
                  "<presets><colours><colour name='x'/><dir name='y' archiveType='Zorvane' "
                  "path='P' archiveFilename='a'/></colours></presets>",
                  "theirs/P/a.rvx"},
        Reference{"archive of the user", "a.rvx",
                  "<presets><colours><colour name='x'/><dir name='y' archiveType='Custom' "
                  "archiveFilename='a'/></colours></presets>",
                  "mine/a.rvx"}));

/// With a declaration of a prefix the document is built.
TEST(Thumbnail, IsTheSameWhetherTheDocumentIsBuilt)
{
    QByteArray presets;
    for (int i = 0; i < 9; ++i) {
        presets +=
            "<param/><colour name='c'><plainColour><param name='Colour' type='colour' val='" +
            QByteArray::number(i / 9.0) + " 1 0'/></plainColour></colour><b/>";
        if (i % 4 == 0)
            presets += "</dir><dir name='d'>";
    }
    const QByteArray members = "<colour name='x'><plainColour><param name='Colour' type='colour' "
                               "val='1 0 0'/></plainColour></colour>";
    const Workspace workspace;
    for (const QByteArray& document :
         {"<presets><colours/><colours><dir>" + presets + "</dir></colours></presets>",
          "<presets><colours>" + members + members + members + "</colours></presets>",
          "<presets><colours>" + members + members + members + members.toUpper() +
              "</colours></presets>",
          "<snapRoot><snapshot name='now'><colour/></snapshot><snapshots name='s'><dir>" + presets +
              "</dir>" + members + "</snapshots><others>" + presets.split('/').first() +
              "/></others></snapRoot>",
          QByteArray("<snapRoot><snapshot name='now'/></snapRoot>"), smallDocument(),
          smallArchive()}) {
        Outcome runs[2];
        QByteArray pictures[2];
        for (int i = 0; i < 2; ++i) {
            workspace.write(QStringLiteral("a.rvx"),
                            i == 1 ? declaringAPrefix(document) : document);
            workspace.write(QStringLiteral("a.png"), QByteArray());
            runs[i] = thumbnail(workspace, "a.rvx", words("-s 32 --json"));
            pictures[i] = workspace.read(QStringLiteral("a.png"));
        }
        EXPECT_EQ(runs[0].code, runs[1].code);
        EXPECT_EQ(runs[0].out, runs[1].out);
        EXPECT_EQ(runs[0].err, runs[1].err);
        EXPECT_EQ(pictures[0], pictures[1]) << document.toStdString();
        EXPECT_EQ(runs[0].code == 0, !pictures[0].isEmpty());
    }
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

TEST(Thumbnail, IsMadeOfSmallDocumentsOnly)
{
    const Workspace workspace;
    const QByteArray head = "<presets type=\"UserArchives\"><colours><colour name=\"Red\"/>";
    const QByteArray tail = "</colours></presets>";
    workspace.write(QStringLiteral("long.rvx"),
                    head + "<!--" + QByteArray(8 * 1024 * 1024, 'x') + "-->" + tail);
    workspace.write(QStringLiteral("many.rvx"), head + QByteArray("<b/>").repeated(900000) + tail);
    workspace.write(QStringLiteral("fits.rvx"), head + "<!--" + QByteArray(7 * 1024 * 1024, 'x') +
                                                    "-->" + QByteArray("<b/>").repeated(100000) +
                                                    tail);
    for (const char* const name : {"long.rvx", "many.rvx"}) {
        const Outcome run =
            workspace.shell(QStringLiteral("rvopen thumbnail %1 out.png").arg(QLatin1String(name)));
        EXPECT_EQ(run.code, 2) << name;
        EXPECT_FALSE(workspace.exists(QStringLiteral("out.png")));
    }
    EXPECT_EQ(workspace.shell(QStringLiteral("rvopen thumbnail fits.rvx out.png")).code, 0);
}

} // namespace rvopen::test
