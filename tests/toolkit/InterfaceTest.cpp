// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "Parts.h"

#include <rvopen/toolkit/catalogue/Catalogue.h>
#include <rvopen/toolkit/check/Inspection.h>
#include <rvopen/toolkit/check/Rules.h>
#include <rvopen/toolkit/compare/Comparer.h>
#include <rvopen/toolkit/documents/Document.h>
#include <rvopen/toolkit/documents/Failure.h>
#include <rvopen/toolkit/documents/Load.h>
#include <rvopen/toolkit/drawing/Picture.h>
#include <rvopen/toolkit/drawing/PicturePlan.h>
#include <rvopen/toolkit/drawing/Subjects.h>
#include <rvopen/toolkit/edit/Links.h>
#include <rvopen/toolkit/edit/NodePath.h>
#include <rvopen/toolkit/edit/ParamValues.h>
#include <rvopen/toolkit/exchange/Exchange.h>
#include <rvopen/toolkit/images/DocumentTextures.h>
#include <rvopen/toolkit/images/EmbeddedPreview.h>
#include <rvopen/toolkit/images/PictureLocations.h>
#include <rvopen/toolkit/sheets/PictureSheet.h>

#include <QGuiApplication>

#include <stdexcept>

namespace rvopen::test {

namespace {

using namespace toolkit;

const QString s_house = QStringLiteral(RVOPEN_DATA_DIR "/snapshots/house.xml");
const QString s_presets = QStringLiteral(RVOPEN_DATA_DIR "/archives/Custom/MyPresets.rvx");

} // namespace

// What a program is linked with is all there, and passes through the library's border.

TEST(Interface, LoadsDocuments)
{
    const Load load = LoadDocument(s_house, DocumentKind::SnapShots);
    ASSERT_TRUE(load);
    EXPECT_EQ(KindName(load.document->Kind()), QStringLiteral("snapshots"));
    EXPECT_GT(load.document->Size(), 1000);
    EXPECT_FALSE(load.document->IsStream());
    EXPECT_FALSE(load.document->IsStandardInput());
    EXPECT_EQ(load.document->Path(), s_house);
    EXPECT_FALSE(LoadDocument(s_presets, DocumentKind::SnapShots));
    QVector<ReadError> problems;
    EXPECT_THAT(DocumentsBelow(load.document->Folder(), problems), ::testing::Contains(s_house));
}

TEST(Interface, ThrowsFailuresThatTheProgramCatches)
{
    try {
        const PathPattern pattern(QStringLiteral("a["));
        FAIL() << pattern.Text().toStdString();
    } catch (const Failure& failure) {
        EXPECT_EQ(failure.Message().toStdString(), "\"a[\" is no path: a \"]\" is missing");
    }
    EXPECT_THROW(PathPattern(QStringLiteral("")), std::runtime_error);
}

TEST(Interface, AddressesAndChangesValues)
{
    const Load load = LoadDocument(s_house);
    ASSERT_TRUE(load);
    const PathPattern pattern(QStringLiteral("/snapshot/camera:Field Of View"));
    EXPECT_TRUE(pattern.Attribute().isEmpty());
    const QVector<PathPattern::Match> matches = pattern.Find(load.document->Root());
    ASSERT_EQ(matches.size(), 1);
    const QDomElement param = matches.first().element;
    EXPECT_EQ(PathOf(param), matches.first().path);
    EXPECT_EQ(IdentityOf(param).toStdString(), "Field Of View");
    ParamValues values;
    EXPECT_EQ(values.Text(param).toStdString(), "65.4705");
    EXPECT_DOUBLE_EQ(values.Value(param).toDouble(), 65.4705);
    EXPECT_FALSE(values.Check(param, QStringLiteral("wide")).isEmpty());
    ASSERT_TRUE(values.Check(param, QStringLiteral("40")).isEmpty());
    values.Set(param, QStringLiteral("40"));
    const Load before = LoadDocument(s_house);
    const QVector<Difference> differences =
        Comparer().Run(before.document->Root(), load.document->Root());
    ASSERT_EQ(differences.size(), 1);
    EXPECT_EQ(differences.first().path, matches.first().path);
    EXPECT_EQ(differences.first().kind, DifferenceKind::Changed);
    int count = 0;
    Walk(load.document->Root(), QString(), [&](const QDomElement&, const QString& path) {
        count += path == matches.first().path ? 1 : 0;
        return true;
    });
    EXPECT_EQ(count, 1);
}

TEST(Interface, ChecksDocuments)
{
    Load load = LoadDocument(QStringLiteral(RVOPEN_DATA_DIR "/snapshots/interior_old.xml"));
    ASSERT_TRUE(load);
    QVector<Finding> findings = Inspect(*load.document, LookAround(Folders()));
    ASSERT_FALSE(findings.isEmpty());
    EXPECT_EQ(findings.first().rule, FindRule(QStringLiteral("old-collection-name")));
    EXPECT_TRUE(AllRules().contains(findings.first().rule));
    EXPECT_EQ(SeverityName(findings.first().rule->severity), QStringLiteral("note"));
    EXPECT_EQ(Mend(findings), 1);
    ReadError error;
    error.message = QStringLiteral("broken");
    EXPECT_EQ(FindingOf(error).message, QStringLiteral("broken"));
}

TEST(Interface, FindsAndOpensPresets)
{
    const Catalogue catalogue({s_presets, QStringLiteral("none.rvx")});
    EXPECT_EQ(catalogue.Problems().size(), 1);
    EXPECT_GT(catalogue.Count(), 10);
    CatalogueQuery query;
    query.text = QStringLiteral("letter");
    const QVector<ListedPreset> found = catalogue.Find(query);
    ASSERT_EQ(found.size(), 2);
    EXPECT_EQ(found[0].name, QStringLiteral("Letterhead blue"));
    const OpenPreset preset = catalogue.Open(found[1]);
    ASSERT_TRUE(preset);
    EXPECT_EQ(PathOf(preset.element), found[1].path);
    EXPECT_EQ(IdentityOf(preset.element), QStringLiteral("Our blue"));
    query.colour = QStringLiteral("no colour");
    EXPECT_THROW(catalogue.Find(query), Failure);
}

TEST(Interface, HasPicturesWithTheApplicationOfTheProgram)
{
    const QCoreApplication* const application = QCoreApplication::instance();
    const Load load = LoadDocument(s_presets);
    ASSERT_TRUE(load);
    const QVector<Subject> subjects = SubjectsOf(*load.document);
    ASSERT_FALSE(subjects.isEmpty());
    EXPECT_TRUE(PaletteSubjects(*load.document).isEmpty());
    int embedded = 0;
    for (const Subject& subject : subjects) {
        EXPECT_TRUE(IsDrawable(subject.element)) << subject.path.toStdString();
        const QString text = subject.element.attribute(QStringLiteral("xmlImage"));
        const QImage picture = ExistingPicture(subject.element, *load.document, Folders());
        EXPECT_EQ(!text.isEmpty() && HasEmbeddedPreview(subject.element),
                  !EmbeddedPreview(text).isNull());
        EXPECT_EQ(FindsPicture(subject.element, QString()), !picture.isNull());
        embedded += picture.isNull() ? 0 : 1;
    }
    EXPECT_GT(embedded, 0);
    EXPECT_EQ(LocatePicture(subjects.first().element, *load.document, Folders()).lack,
              PictureLack::CustomFolder);
    PictureWish wish;
    wish.size = MinPictureSize;
    const FindFile find = TextureFinder(*load.document, Folders());
    EXPECT_TRUE(find(QStringLiteral("nowhere.png")).isEmpty());
    const QImage picture = DrawPicture(subjects.first().element, wish, find);
    EXPECT_EQ(picture.width(), MinPictureSize);
    const PicturePlan plan(subjects.first().element, wish, find);
    EXPECT_EQ(plan.Draw(), picture);
    EXPECT_TRUE(plan.ImageState().startsWith("textures"));
    EXPECT_TRUE(ReadPicture(s_presets).isNull());
    EXPECT_EQ(QCoreApplication::instance(), application);
}

TEST(Interface, MakesSheets)
{
    const Load load = LoadDocument(s_presets);
    ASSERT_TRUE(load);
    PictureSheet sheet(SheetFormat::Page, {MinPictureSize, 4, false});
    sheet.Add(*load.document, SubjectsOf(*load.document).mid(0, 4), Folders());
    EXPECT_EQ(sheet.Count(), 4);
    EXPECT_FALSE(sheet.Title().isEmpty());
    EXPECT_THROW(PictureSheet::CheckFolder(load.document->Folder(), true), Failure);
}

TEST(Interface, EmbedsPictures)
{
    QImage picture(8, 8, QImage::Format_RGB32);
    picture.fill(qRgb(200, 100, 50));
    const QImage again = EmbeddedPreview(EmbeddedText(picture));
    EXPECT_EQ(again.size(), picture.size());
    EXPECT_NEAR(qRed(again.pixel(4, 4)), 200, 6);
    EXPECT_EQ(EmbeddedText(QImage()), QString());
}

TEST(Interface, HandsDocumentsOn)
{
    const Load load = LoadDocument(s_presets);
    const Load same = LoadDocument(s_presets);
    ASSERT_TRUE(load && same);
    EXPECT_EQ(Import(*same.document, *load.document).added, 0);
    EXPECT_EQ(Merge(nullptr, *load.document, *same.document).conflicts.size(), 0);
    const Load house = LoadDocument(s_house);
    ASSERT_TRUE(house);
    const QVector<Link> links = LinksFrom(house.document->Root());
    ASSERT_FALSE(links.isEmpty());
    EXPECT_FALSE(LinksTo(links[0].kind, links[0].refName, house.document->Root()).isEmpty());
    EXPECT_TRUE(LinksTo(QString(), QString(), load.document->Root()).isEmpty());
    for (const DocumentTexture& texture : TexturesOf(*load.document, Folders()))
        EXPECT_FALSE(texture.paths.isEmpty());
    EXPECT_THROW(RelinkTextures(*load.document, {s_presets}), Failure);
    EXPECT_THROW(CollectTextures(*load.document, load.document->Folder(), Folders()), Failure);
}

} // namespace rvopen::test
