// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include <rvopen/RVOpenManager.h>

#include <rvopen/Background.h>
#include <rvopen/Camera.h>
#include <rvopen/Material.h>
#include <rvopen/MaterialRepository.h>
#include <rvopen/SnapShotSettings.h>
#include <rvopen/TemporaryItems.h>

#include "ManagerSupport.h"

#include <QDir>

#include <gtest/gtest.h>

#include <memory>
#include <ostream>

namespace rvopen {
namespace {

using test::collectionNames;
using test::documentOf;
using test::load;
using test::namesIn;
using test::parse;
using test::readFile;
using test::textOf;
using test::writeFile;
using test::xmlOf;

const char s_malformed[] = "<snapRoot><snapshots></snapRoot>";

/// A folder for the files of a test.
class Folder {
public:
    /// Writes a file and gives its path.
    QString write(const QString& name, const QByteArray& bytes) const
    {
        writeFile(path(name), bytes);
        return path(name);
    }
    QString path(const QString& name) const
    {
        return m_folder.filePath(name);
    }

private:
    QTemporaryDir m_folder;
};

// Loading a file

class LoadingFileTest : public ::testing::Test {
protected:
    Folder m_folder;
    RVOpenManager m_manager;
};

TEST_F(LoadingFileTest, ReplacesTheDocument)
{
    const QByteArray xml = "<snapRoot name='loaded'><other/></snapRoot>";

    EXPECT_EQ(m_manager.LoadSnapShotDocFromFile(m_folder.write("a.xml", xml)), 1);
    EXPECT_EQ(textOf(m_manager), xmlOf(xml.constData()));
}

/// Paths that cannot be loaded.
class LoadingBadFileTest : public LoadingFileTest,
                           public ::testing::WithParamInterface<const char*> {
protected:
    void SetUp() override
    {
        m_folder.write("malformed.xml", s_malformed);
        m_folder.write("empty.xml", "");
        m_path = QByteArray(GetParam()).isEmpty() ? QString() : m_folder.path(GetParam());
    }

    QString m_path;
};

TEST_P(LoadingBadFileTest, GivesZero)
{
    EXPECT_EQ(m_manager.LoadSnapShotDocFromFile(m_path), 0);
}

TEST_P(LoadingBadFileTest, LeavesTheDocumentUntouched)
{
    SnapShot* const current = m_manager.GetCurrentSnapShot();
    const QString before = textOf(m_manager);
    m_manager.LoadSnapShotDocFromFile(m_path);

    EXPECT_EQ(m_manager.GetCurrentSnapShot(), current);
    EXPECT_EQ(textOf(m_manager), before);
}

INSTANTIATE_TEST_SUITE_P(All, LoadingBadFileTest,
                         ::testing::Values("", "missing.xml", "malformed.xml", "empty.xml"));

/// What reading must not change.
class LoadingUnchangedFileTest : public LoadingFileTest,
                                 public ::testing::WithParamInterface<const char*> {};

TEST_P(LoadingUnchangedFileTest, HasTheSameBytesAfterALoad)
{
    const QString path = m_folder.write("a.xml", GetParam());
    m_manager.LoadSnapShotDocFromFile(path);

    EXPECT_EQ(readFile(path), GetParam());
}

TEST_P(LoadingUnchangedFileTest, HasTheSameBytesAfterAnImport)
{
    const QString path = m_folder.write("a.xml", GetParam());
    m_manager.ImportSnapShotDoc(path, true, true);

    EXPECT_EQ(readFile(path), GetParam());
}

TEST_P(LoadingUnchangedFileTest, HasTheSameBytesAfterItWasOpenedAsAnArchive)
{
    const QString path = m_folder.write("a.xml", GetParam());
    const std::unique_ptr<RVOpenNode> root(m_manager.LoadArchive(path));

    EXPECT_EQ(readFile(path), GetParam());
}

INSTANTIATE_TEST_SUITE_P(
    All, LoadingUnchangedFileTest,
    ::testing::Values(
        "<snapRoot>\r\n<snapshots name='SnapShots'><snapshot/></snapshots></snapRoot>", s_malformed,
        "", "no XML at all"));

TEST_F(LoadingFileTest, TakesAPathWithBackslashes)
{
    ASSERT_TRUE(QDir().mkpath(m_folder.path("models/house")));
    m_folder.write("models/house/a.xml", "<snapRoot><loaded/></snapRoot>");

    EXPECT_EQ(m_manager.LoadSnapShotDocFromFile(m_folder.path("models\\house\\a.xml")), 1);
    EXPECT_EQ(textOf(m_manager), xmlOf("<snapRoot><loaded/></snapRoot>"));
}

#ifndef Q_OS_WIN
TEST_F(LoadingFileTest, PrefersAFileWhoseNameHasTheBackslash)
{
    ASSERT_TRUE(QDir().mkpath(m_folder.path("b")));
    m_folder.write("b/a.xml", "<mapped/>");
    m_folder.write("b\\a.xml", "<literal/>");

    EXPECT_EQ(m_manager.LoadSnapShotDocFromFile(m_folder.path("b\\a.xml")), 1);
    EXPECT_EQ(textOf(m_manager), xmlOf("<literal/>"));
}
#endif

TEST_F(LoadingFileTest, ReadsUtf8)
{
    const QString path =
        m_folder.write("a.xml", QStringLiteral("<snapRoot name='Gr\u00fc\u00dfe'/>").toUtf8());
    m_manager.LoadSnapShotDocFromFile(path);

    EXPECT_EQ(documentOf(m_manager).documentElement().attribute("name"),
              QStringLiteral("Gr\u00fc\u00dfe"));
}

// Loading a text

TEST(LoadingTest, ATextReplacesTheDocument)
{
    RVOpenManager manager;

    EXPECT_EQ(manager.LoadSnapShotDocFromString("<snapRoot><other/></snapRoot>"), 1);
    EXPECT_EQ(textOf(manager), xmlOf("<snapRoot><other/></snapRoot>"));
}

class LoadingBadTextTest : public ::testing::TestWithParam<const char*> {};

TEST_P(LoadingBadTextTest, GivesZeroAndLeavesTheDocumentUntouched)
{
    RVOpenManager manager;
    SnapShot* const current = manager.GetCurrentSnapShot();
    const QString before = textOf(manager);

    EXPECT_EQ(manager.LoadSnapShotDocFromString(GetParam()), 0);
    EXPECT_EQ(manager.GetCurrentSnapShot(), current);
    EXPECT_EQ(textOf(manager), before);
}

INSTANTIATE_TEST_SUITE_P(All, LoadingBadTextTest,
                         ::testing::Values("", "no XML", s_malformed, "<a/><b/>"));

// What the loaded document's children become

using Getter = SnapShots* (*)(RVOpenManager& manager);

SnapShots* mainCollection(RVOpenManager& manager)
{
    return manager.GetSnapShots();
}

SnapShots* cameras(RVOpenManager& manager)
{
    return manager.GetSnapShotsCameras();
}

SnapShots* palettes(RVOpenManager& manager)
{
    return manager.GetSnapShotsMaterialRepositories();
}

SnapShots* backgrounds(RVOpenManager& manager)
{
    return manager.GetSnapShotsBackgrounds();
}

struct Collection {
    const char* label;
    const char* name;
    Getter get;
};

void PrintTo(const Collection& collection, std::ostream* out)
{
    *out << collection.name;
}

class LoadingCollectionTest : public ::testing::TestWithParam<Collection> {
protected:
    static QString collectionOf(const char* content)
    {
        return QStringLiteral("<snapshots name='%1'>%2</snapshots>").arg(GetParam().name, content);
    }
};

TEST_P(LoadingCollectionTest, IsToldByItsName)
{
    RVOpenManager manager;
    load(manager,
         "<snapRoot>" + collectionOf("<snapshot name='a'/><snapshot name='b'/>") + "</snapRoot>");

    ASSERT_NE(GetParam().get(manager), nullptr);
    EXPECT_EQ(namesIn(GetParam().get(manager)), "a b");
}

TEST_P(LoadingCollectionTest, IsReadWithItsSnapShots)
{
    RVOpenManager manager;
    load(manager, "<snapRoot>" + collectionOf("<snapshot><camera/></snapshot>") + "</snapRoot>");
    RVOpenNode* const first = GetParam().get(manager)->GetChild(0, 0);

    ASSERT_NE(first, nullptr);
    EXPECT_NE(dynamic_cast<SnapShot*>(first)->GetCamera(), nullptr);
}

TEST_P(LoadingCollectionTest, IsTheLaterOfTwo)
{
    RVOpenManager manager;
    load(manager, "<snapRoot>" + collectionOf("<snapshot name='a'/>") +
                      collectionOf("<snapshot name='b'/>") + "</snapRoot>");

    EXPECT_EQ(namesIn(GetParam().get(manager)), "b");
}

TEST_P(LoadingCollectionTest, LeavesTheEarlierOfTwoInTheDocument)
{
    RVOpenManager manager;
    load(manager, "<snapRoot>" + collectionOf("<snapshot name='a'/>") +
                      collectionOf("<snapshot name='b'/>") + "</snapRoot>");
    const QDomElement first = documentOf(manager).documentElement().firstChildElement();

    EXPECT_EQ(first.firstChildElement().attribute("name"), "a");
    EXPECT_EQ(documentOf(manager).documentElement().childNodes().count(), 2);
}

TEST_P(LoadingCollectionTest, GoesWithTheDocument)
{
    RVOpenManager manager;
    load(manager, "<snapRoot>" + collectionOf("<snapshot name='a'/>") + "</snapRoot>");
    load(manager, "<snapRoot/>");

    EXPECT_EQ(namesIn(GetParam().get(manager)), QString());
}

INSTANTIATE_TEST_SUITE_P(
    All, LoadingCollectionTest,
    ::testing::Values(Collection{"SnapShots", "Model SnapShots", mainCollection},
                      Collection{"SnapShotsOfOldDocuments", "SnapShots", mainCollection},
                      Collection{"Cameras", "Model Cameras", cameras},
                      Collection{"MaterialPalettes", "Model Material Palettes", palettes},
                      Collection{"Backgrounds", "Model Backgrounds", backgrounds}),
    [](const auto& collection) { return std::string(collection.param.label); });

TEST(LoadingTest, TheMainCollectionOfOldDocumentsIsRenamed)
{
    RVOpenManager manager;
    load(manager, "<snapRoot><snapshots name='SnapShots'><snapshot/></snapshots></snapRoot>");

    EXPECT_EQ(textOf(manager), xmlOf("<snapRoot><snapshots name='Model SnapShots'><snapshot/>"
                                     "</snapshots></snapRoot>"));
}

TEST(LoadingTest, TheLaterMainCollectionCountsWhicheverNameItHas)
{
    RVOpenManager manager;
    load(manager, "<snapRoot><snapshots name='Model SnapShots'><snapshot name='a'/></snapshots>"
                  "<snapshots name='SnapShots'><snapshot name='b'/></snapshots></snapRoot>");

    EXPECT_EQ(namesIn(manager.GetSnapShots()), "b");
    EXPECT_EQ(manager.GetNumSnapShots(), 1);
}

class LoadingOtherCollectionTest : public ::testing::TestWithParam<const char*> {};

TEST_P(LoadingOtherCollectionTest, StaysInTheDocumentAndIsNoneOfTheKnownOnes)
{
    RVOpenManager manager;
    const QString xml =
        QStringLiteral("<snapRoot><snapshots name=\"%1\"><snapshot/></snapshots></snapRoot>")
            .arg(GetParam());
    load(manager, xml);

    EXPECT_EQ(manager.GetSnapShots(), nullptr);
    EXPECT_EQ(textOf(manager), xml);
}

INSTANTIATE_TEST_SUITE_P(All, LoadingOtherCollectionTest,
                         ::testing::Values("Temp SnapShots", "model snapshots", "Other", ""));

TEST(LoadingTest, ATemporaryCollectionOfTheDocumentIsNotTakenUp)
{
    RVOpenManager manager;
    load(manager, "<snapRoot><snapshots name='Temp SnapShots'><snapshot name='a'/></snapshots>"
                  "</snapRoot>");

    EXPECT_EQ(namesIn(manager.GetTempSnapShots()), QString());
    EXPECT_EQ(collectionNames(documentOf(manager)),
              QStringList({"Temp SnapShots", "Temp SnapShots"}));
}

TEST(LoadingTest, ASnapShotUnderTheRootBecomesTheCurrentOne)
{
    RVOpenManager manager;
    load(manager, "<snapRoot><snapshot name='now'><camera/></snapshot></snapRoot>");

    ASSERT_NE(manager.GetCurrentSnapShot(), nullptr);
    EXPECT_EQ(manager.GetCurrentSnapShot()->GetName(), "now");
    EXPECT_NE(manager.GetCurrentSnapShot()->GetCamera(), nullptr);
}

TEST(LoadingTest, TheLaterOfTwoSnapShotsUnderTheRootIsTheCurrentOne)
{
    RVOpenManager manager;
    load(manager, "<snapRoot><snapshot name='a'/><snapshot name='b'/></snapRoot>");

    EXPECT_EQ(manager.GetCurrentSnapShot()->GetName(), "b");
    EXPECT_EQ(textOf(manager),
              xmlOf("<snapRoot><snapshot name='a'/><snapshot name='b'/></snapRoot>"));
}

TEST(LoadingTest, ADocumentWithoutASnapShotHasNoCurrentOne)
{
    RVOpenManager manager;
    load(manager, "<snapRoot><snapshots name='Model SnapShots'><snapshot/></snapshots>"
                  "</snapRoot>");

    EXPECT_EQ(manager.GetCurrentSnapShot(), nullptr);
}

TEST(LoadingTest, ABackgroundUnderTheRootBecomesTheOriginalOne)
{
    RVOpenManager manager;
    load(manager, "<snapRoot><background subcat='Image'>"
                  "<param name='File Name' type='string' val='sky.jpg'/></background></snapRoot>");
    Background* const background = manager.GetOriginalBackground();

    ASSERT_NE(background, nullptr);
    EXPECT_NE(background->GetParamHelper()->FindParam("File Name"), nullptr);
    EXPECT_EQ(background->GetImageBackground(), "sky.jpg");
}

TEST(LoadingTest, TheLaterOfTwoBackgroundsUnderTheRootIsTheOriginalOne)
{
    RVOpenManager manager;
    load(manager, "<snapRoot><background subcat='Plain'/><background subcat='Image'/></snapRoot>");

    EXPECT_EQ(manager.GetOriginalBackground()->GetSubCat(), "Image");
    EXPECT_EQ(textOf(manager), xmlOf("<snapRoot><background subcat='Plain'/>"
                                     "<background subcat='Image'/></snapRoot>"));
}

TEST(LoadingTest, ABackgroundGetsNoParametersByBeingLoaded)
{
    RVOpenManager manager;
    load(manager, "<snapRoot><background subcat='Horizon'/></snapRoot>");
    manager.GetOriginalBackground();

    EXPECT_EQ(textOf(manager), xmlOf("<snapRoot><background subcat='Horizon'/></snapRoot>"));
}

TEST(LoadingTest, TheRootMayHaveAnyNameAndAttributes)
{
    RVOpenManager manager;
    load(manager, "<any type='other'><snapshot name='now'/></any>");

    EXPECT_EQ(manager.GetCurrentSnapShot()->GetName(), "now");
}

TEST(LoadingTest, WhatIsNotKnownComesOutAsItWentIn)
{
    const char xml[] = "<!-- before --><snapRoot unitsScale='2' extra='x'><unknown a='1'><deep/>"
                       "</unknown><!-- note --><snapshots name='Model SnapShots'>"
                       "<snapshot name='a'><lens/><camera><param name='P'/><other/></camera>"
                       "</snapshot></snapshots><camera/><snapshots name='Other'/></snapRoot>";
    RVOpenManager manager;
    load(manager, xml);

    EXPECT_EQ(textOf(manager), xmlOf(xml));
}

TEST(LoadingTest, ASavedTextLoadsAsTheSame)
{
    RVOpenManager manager;
    load(manager, "<snapRoot><snapshots name='Model SnapShots'><snapshot name='a'/></snapshots>"
                  "<snapshot name='now'><camera><param name='P' val='&lt;&amp;&quot;'/></camera>"
                  "</snapshot></snapRoot>");
    RVOpenManager other;
    load(other, manager.GetSnapShotDocumentAsString());

    EXPECT_EQ(other.GetSnapShotDocumentAsString().size(),
              manager.GetSnapShotDocumentAsString().size());
    EXPECT_EQ(textOf(other), textOf(manager));
}

TEST(LoadingTest, ALoadForgetsWhatBelongedToTheOldDocument)
{
    RVOpenManager manager;
    manager.SetResetSnapShot(manager.CreateInternalSnapShot(manager.GetCurrentSnapShot()));
    manager.GetTempSnapShots();
    manager.GetOriginalBackground();
    load(manager, "<snapRoot/>");

    EXPECT_EQ(manager.GetResetSnapShot(), nullptr);
    EXPECT_EQ(manager.GetCurrentSnapShot(), nullptr);
    EXPECT_EQ(manager.GetSnapShots(), nullptr);
    EXPECT_EQ(textOf(manager), xmlOf("<snapRoot/>"));
}

TEST(LoadingTest, ALoadKeepsTheImport)
{
    const Folder folder;
    RVOpenManager manager;
    manager.ImportSnapShotDoc(
        folder.write("a.xml", "<snapRoot><snapshot name='imported'/></snapRoot>"), false, false);
    load(manager, "<snapRoot/>");

    ASSERT_NE(manager.GetImportCurrentSnapShot(), nullptr);
    EXPECT_EQ(manager.GetImportCurrentSnapShot()->GetName(), "imported");
}

TEST(LoadingTest, ACopiedMaterialIsPastedIntoTheNextDocument)
{
    const char material[] = "<material linkname='m'><colour desc='d'/></material>";
    const QString document =
        QStringLiteral("<snapRoot><snapshot><materialRepository>%1</materialRepository></snapshot>"
                       "</snapRoot>");
    RVOpenManager manager;
    load(manager, document.arg(material));
    manager.GetTemporaryItems()->SetMaterial(
        manager.GetCurrentSnapShot()->GetMaterialRepository()->GetMaterial("m"));
    load(manager, document.arg(QString()));
    manager.GetCurrentSnapShot()->GetMaterialRepository()->AddMaterial(
        new Material(manager.GetTemporaryItems()->GetMaterial()));

    EXPECT_EQ(textOf(manager), xmlOf(document.arg(material).toUtf8().constData()));
}

TEST(LoadingTest, WhatALaterElementReplacesKeepsItsElementWhenTheDocumentIsUsedOn)
{
    RVOpenManager manager;
    load(manager, "<snapRoot><snapshots name='Model SnapShots'><snapshot name='a'/></snapshots>"
                  "<snapshots name='Model SnapShots'><snapshot name='b'/></snapshots>"
                  "<snapshot name='x'><camera/></snapshot><snapshot name='y'/></snapRoot>");
    manager.GetSnapShots()->Clear();

    EXPECT_EQ(textOf(manager),
              xmlOf("<snapRoot><snapshots name='Model SnapShots'><snapshot name='a'/></snapshots>"
                    "<snapshots name='Model SnapShots'/>"
                    "<snapshot name='x'><camera/></snapshot><snapshot name='y'/></snapRoot>"));
}

// Importing

class ImportTest : public ::testing::Test {
protected:
    /// Imports a document with the given content under its root.
    void import(const QByteArray& content, bool useCurrentCamera = false, bool addSnapShots = true)
    {
        m_manager.ImportSnapShotDoc(
            m_folder.write("import.xml", "<snapRoot>" + content + "</snapRoot>"), useCurrentCamera,
            addSnapShots);
    }
    void importCollection(const QByteArray& content, bool useCurrentCamera = false)
    {
        import("<snapshots name='Model SnapShots'>" + content + "</snapshots>", useCurrentCamera);
    }
    QString namesInMain() const
    {
        return namesIn(m_manager.GetSnapShots());
    }
    SnapShot* firstInMain() const
    {
        return m_manager.GetSnapShots()->GetFirstSnapShot();
    }

    Folder m_folder;
    RVOpenManager m_manager;
};

TEST_F(ImportTest, AppendsTheSnapShotsInTheirOrder)
{
    load(m_manager, "<snapRoot><snapshots name='Model SnapShots'><snapshot name='own'/>"
                    "</snapshots></snapRoot>");
    importCollection("<snapshot name='a'/><snapshot name='b'/>");

    EXPECT_EQ(namesInMain(), "own a b");
}

TEST_F(ImportTest, AppendsThemInObjectsAndDocumentAlike)
{
    importCollection("<snapshot name='a'><camera/></snapshot><snapshot name='b'/>");

    EXPECT_TRUE(test::mirrorsWholeDom(m_manager.GetSnapShots()));
    for (const RVOpenNode* snapShot : test::children(m_manager.GetSnapShots())) {
        EXPECT_EQ(snapShot->GetDomNode().ownerDocument(),
                  m_manager.GetSnapShots()->GetDomNode().ownerDocument());
    }
}

TEST_F(ImportTest, AppendsSnapShotsWithTheirComponents)
{
    importCollection("<snapshot name='a'><camera desc='d'/><lens/></snapshot>");

    ASSERT_NE(firstInMain()->GetCamera(), nullptr);
    EXPECT_EQ(firstInMain()->GetCamera()->GetDescription(), "d");
    EXPECT_EQ(test::domChildNames(firstInMain()->GetDomNode()), QStringList({"camera", "lens"}));
}

TEST_F(ImportTest, AppendsEveryChildNodeOfTheCollection)
{
    importCollection("<!-- note --><snapshot name='a'/><other name='b'/>");

    EXPECT_EQ(m_manager.GetNumSnapShots(), 3);
    EXPECT_EQ(test::domChildNames(m_manager.GetSnapShots()->GetDomNode()),
              QStringList({"#comment", "snapshot", "other"}));
}

TEST_F(ImportTest, MarksThemByTheirImageBorder)
{
    importCollection("<snapshot name='a'/>");

    EXPECT_EQ(firstInMain()->GetAttributeString("ImageBorder"), "1");
}

TEST_F(ImportTest, ReadsTheMainCollectionOfOldDocuments)
{
    import("<snapshots name='SnapShots'><snapshot name='a'/></snapshots>");

    EXPECT_EQ(namesInMain(), "a");
}

TEST_F(ImportTest, AddsNothingFromCollectionsOfOtherNames)
{
    const QString before = textOf(m_manager);
    import("<snapshots name='Model Cameras'><snapshot name='a'/></snapshots>"
           "<snapshots name='Other'><snapshot name='b'/></snapshots>"
           "<snapshots><snapshot name='c'/></snapshots>");

    EXPECT_EQ(textOf(m_manager), before);
}

TEST_F(ImportTest, ReadsTheLaterOfTwoMainCollections)
{
    import("<snapshots name='Model SnapShots'><snapshot name='a'/></snapshots>"
           "<snapshots name='SnapShots'><snapshot name='b'/></snapshots>");

    EXPECT_EQ(namesInMain(), "b");
}

TEST_F(ImportTest, AddsNothingFromAFileWithoutAMainCollectionAfterAGoodImport)
{
    importCollection("<snapshot name='a'/>");
    const QString before = textOf(m_manager);
    import("<snapshot name='now'/>");

    EXPECT_EQ(textOf(m_manager), before);
}

TEST_F(ImportTest, AddsNothingYetWhenItIsNotAskedTo)
{
    const QString before = textOf(m_manager);
    import("<snapshots name='Model SnapShots'><snapshot name='a'/></snapshots>", false, false);

    EXPECT_EQ(textOf(m_manager), before);
}

TEST_F(ImportTest, AddsTheSnapShotsLaterWhenAsked)
{
    import("<snapshots name='Model SnapShots'><snapshot name='a'/></snapshots>", false, false);
    m_manager.AddImportedSnapShot(false);

    EXPECT_EQ(namesInMain(), "a");
}

TEST_F(ImportTest, AddsTheSnapShotsAsOftenAsAsked)
{
    importCollection("<snapshot name='a'/>");
    m_manager.AddImportedSnapShot(false);

    EXPECT_EQ(namesInMain(), "a a");
}

TEST_F(ImportTest, AddsNothingWithoutAnImport)
{
    const QString before = textOf(m_manager);
    m_manager.AddImportedSnapShot(true);

    EXPECT_EQ(textOf(m_manager), before);
}

TEST_F(ImportTest, ChangesNothingElseInTheDocument)
{
    load(m_manager, "<snapRoot><snapshots name='Model SnapShots'/>"
                    "<snapshot name='now'><camera/></snapshot><background/></snapRoot>");
    SnapShot* const current = m_manager.GetCurrentSnapShot();
    import("<snapshots name='Model Cameras'><snapshot/></snapshots>"
           "<snapshots name='Model SnapShots'><snapshot name='a'/></snapshots>"
           "<snapshot name='imported'/><background subcat='Image'/>");

    EXPECT_EQ(m_manager.GetCurrentSnapShot(), current);
    EXPECT_EQ(textOf(m_manager),
              xmlOf("<snapRoot><snapshots name='Model SnapShots'>"
                    "<snapshot name='a' ImageBorder='1'/></snapshots>"
                    "<snapshot name='now'><camera/></snapshot><background/></snapRoot>"));
}

TEST_F(ImportTest, KeepsTheCurrentSnapShotOfTheImportedDocument)
{
    import("<snapshot name='imported'><camera/></snapshot>");
    SnapShot* const imported = m_manager.GetImportCurrentSnapShot();

    ASSERT_NE(imported, nullptr);
    EXPECT_EQ(imported->GetName(), "imported");
    EXPECT_NE(imported->GetCamera(), nullptr);
    EXPECT_FALSE(imported->GetDomNode().ownerDocument().isNull());
}

TEST_F(ImportTest, TheLaterOfTwoSnapShotsUnderTheImportedRootIsItsCurrentOne)
{
    import("<snapshot name='a'/><snapshot name='b'/>");

    EXPECT_EQ(m_manager.GetImportCurrentSnapShot()->GetName(), "b");
}

TEST_F(ImportTest, WhatTheHostHoldsOfAnImportOutlivesTheNext)
{
    import("<snapshot name='first'><camera/></snapshot>");
    SnapShot* const first = m_manager.GetImportCurrentSnapShot();
    import("<snapshot name='second'/>");

    EXPECT_EQ(m_manager.GetImportCurrentSnapShot()->GetName(), "second");
    EXPECT_EQ(first->GetName(), "first");
    EXPECT_NE(first->GetCamera(), nullptr);
    EXPECT_FALSE(first->GetDomNode().ownerDocument().isNull());
}

TEST_F(ImportTest, WithoutACurrentSnapShotLeavesTheOneOfTheImportBefore)
{
    import("<snapshot name='first'/>");
    SnapShot* const first = m_manager.GetImportCurrentSnapShot();
    import("<snapshots name='Model SnapShots'/>");

    EXPECT_EQ(m_manager.GetImportCurrentSnapShot(), first);
    EXPECT_EQ(first->GetName(), "first");
}

TEST_F(ImportTest, OfAnUnreadableFileChangesNothing)
{
    import("<snapshots name='Model SnapShots'><snapshot name='a'/></snapshots>"
           "<snapshot name='imported'/>");
    SnapShot* const imported = m_manager.GetImportCurrentSnapShot();
    const QString before = textOf(m_manager);
    m_manager.ImportSnapShotDoc(m_folder.write("bad.xml", s_malformed), true, true);
    m_manager.ImportSnapShotDoc(m_folder.path("missing.xml"), true, true);
    m_manager.ImportSnapShotDoc(QString(), true, true);

    EXPECT_EQ(textOf(m_manager), before);
    EXPECT_EQ(m_manager.GetImportCurrentSnapShot(), imported);
}

TEST_F(ImportTest, CreatesTheMainCollectionWhereTheDocumentHasNone)
{
    load(m_manager, "<snapRoot><other/></snapRoot>");
    importCollection("<snapshot name='a'/>");

    EXPECT_EQ(textOf(m_manager),
              xmlOf("<snapRoot><other/><snapshots name='Model SnapShots'>"
                    "<snapshot name='a' ImageBorder='1'/></snapshots></snapRoot>"));
    EXPECT_EQ(m_manager.GetNumSnapShots(), 1);
}

TEST_F(ImportTest, AddsNothingWithoutADocument)
{
    m_manager.ClearSnapShotDoc();
    importCollection("<snapshot name='a'/>");

    EXPECT_EQ(m_manager.GetSnapShots(), nullptr);
    EXPECT_EQ(m_manager.GetSnapShotDocumentAsString(), QString());
}

TEST_F(ImportTest, TakesAPathWithBackslashes)
{
    ASSERT_TRUE(QDir().mkpath(m_folder.path("sub")));
    m_folder.write("sub/a.xml", "<snapRoot><snapshots name='Model SnapShots'>"
                                "<snapshot name='a'/></snapshots></snapRoot>");
    m_manager.ImportSnapShotDoc(m_folder.path("sub\\a.xml"), false, true);

    EXPECT_EQ(namesInMain(), "a");
}

// Importing with the current camera

class ImportCameraTest : public ImportTest {
protected:
    void importTwo(bool useCurrentCamera)
    {
        importCollection("<snapshot name='a'><camera desc='own'/></snapshot>"
                         "<snapshot name='b'/>",
                         useCurrentCamera);
    }
    Camera* cameraOfFirst() const
    {
        return firstInMain()->GetCamera();
    }
    Camera* cameraOfSecond() const
    {
        return firstInMain()->GetNext()->GetCamera();
    }
};

const char s_withCamera[] = "<snapRoot><snapshots name='Model SnapShots'/>"
                            "<snapshot><camera desc='current'><param name='P'/></camera>"
                            "</snapshot></snapRoot>";

TEST_F(ImportCameraTest, GivesEverySnapShotACopyOfTheCurrentOne)
{
    load(m_manager, s_withCamera);
    importTwo(true);
    const QString camera = xmlOf("<camera desc='current'><param name='P'/></camera>");

    EXPECT_EQ(xmlOf(cameraOfFirst()->GetDomNode()), camera);
    EXPECT_EQ(xmlOf(cameraOfSecond()->GetDomNode()), camera);
    EXPECT_NE(cameraOfFirst()->GetDomNode(), cameraOfSecond()->GetDomNode());
}

TEST_F(ImportCameraTest, LeavesTheCurrentOneWhereItIs)
{
    load(m_manager, s_withCamera);
    Camera* const current = m_manager.GetCurrentSnapShot()->GetCamera();
    importTwo(true);

    EXPECT_EQ(m_manager.GetCurrentSnapShot()->GetCamera(), current);
    EXPECT_EQ(current->GetDomNode().parentNode(), m_manager.GetCurrentSnapShot()->GetDomNode());
}

TEST_F(ImportCameraTest, TakesTheImportedOneOut)
{
    load(m_manager, s_withCamera);
    importTwo(true);

    EXPECT_EQ(test::domChildNames(firstInMain()->GetDomNode()), QStringList("camera"));
}

TEST_F(ImportCameraTest, LeavesTheImportedOnesWhenItIsNotAskedFor)
{
    load(m_manager, s_withCamera);
    importTwo(false);

    EXPECT_EQ(cameraOfFirst()->GetDescription(), "own");
    EXPECT_EQ(cameraOfSecond(), nullptr);
}

TEST_F(ImportCameraTest, LeavesTheImportedOnesWhenTheCurrentSnapShotHasNone)
{
    importTwo(true);

    EXPECT_EQ(cameraOfFirst()->GetDescription(), "own");
    EXPECT_EQ(cameraOfSecond(), nullptr);
}

TEST_F(ImportCameraTest, LeavesTheImportedOnesWithoutACurrentSnapShot)
{
    load(m_manager, "<snapRoot><snapshots name='Model SnapShots'/></snapRoot>");
    importTwo(true);

    EXPECT_EQ(cameraOfFirst()->GetDescription(), "own");
    EXPECT_EQ(cameraOfSecond(), nullptr);
}

// Importing with thumbnails

class ImportThumbnailTest : public ImportTest {
protected:
    static QByteArray snapShotWithSession(const char* name)
    {
        return "<snapshot name='" + QByteArray(name) +
               "'><snapShotSettings><param name='Session Folder' type='string' val='theirs'/>"
               "</snapShotSettings></snapshot>";
    }
    void setOwnSession()
    {
        m_manager.GetCurrentSnapShot()->GetSnapShotSettings()->SetSessionName("ours");
    }
    QString sessionOfFirst() const
    {
        return firstInMain()->GetSnapShotSettings()->GetSessionName();
    }
    QString copied(const QString& name) const
    {
        return m_folders.snapshots() + QDir::separator() + name;
    }

    test::ArchiveFolders m_folders;
};

TEST_F(ImportThumbnailTest, IsCopiedIntoTheSnapShotsFolder)
{
    m_folder.write("icon_Street corner.jpg", "bytes");
    importCollection("<snapshot name='Street corner'/>");

    EXPECT_EQ(readFile(copied("icon_Street corner.jpg")), "bytes");
    EXPECT_EQ(readFile(m_folder.path("icon_Street corner.jpg")), "bytes");
}

TEST_F(ImportThumbnailTest, IsCopiedForEverySnapShot)
{
    m_folder.write("icon_a.jpg", "A");
    m_folder.write("icon_b.jpg", "B");
    importCollection("<snapshot name='a'/><snapshot name='b'/>");

    EXPECT_EQ(readFile(copied("icon_a.jpg")), "A");
    EXPECT_EQ(readFile(copied("icon_b.jpg")), "B");
}

TEST_F(ImportThumbnailTest, IsCopiedUnderTheFileSafeName)
{
    m_folder.write("icon_12:30.jpg", "bytes");
    importCollection("<snapshot name='12:30'/>");

    EXPECT_EQ(readFile(copied("icon_12%3a30.jpg")), "bytes");
}

TEST_F(ImportThumbnailTest, IsFoundForAPathWithBackslashes)
{
    ASSERT_TRUE(QDir().mkpath(m_folder.path("sub")));
    m_folder.write("sub/icon_a.jpg", "bytes");
    m_folder.write("sub/a.xml", "<snapRoot><snapshots name='Model SnapShots'>"
                                "<snapshot name='a'/></snapshots></snapRoot>");
    m_manager.ImportSnapShotDoc(m_folder.path("sub\\a.xml"), false, true);

    EXPECT_EQ(readFile(copied("icon_a.jpg")), "bytes");
}

TEST_F(ImportThumbnailTest, LiesBesideTheFileLastNamedEvenIfThatCannotBeRead)
{
    ASSERT_TRUE(QDir().mkpath(m_folder.path("sub")));
    m_folder.write("sub/icon_a.jpg", "bytes");
    import("<snapshots name='Model SnapShots'><snapshot name='a'/></snapshots>", false, false);
    m_manager.ImportSnapShotDoc(m_folder.path("sub/missing.xml"), false, false);
    m_manager.AddImportedSnapShot(false);

    EXPECT_EQ(readFile(copied("icon_a.jpg")), "bytes");
}

TEST_F(ImportThumbnailTest, BringsTheSessionOfTheCurrentSnapShot)
{
    setOwnSession();
    m_folder.write("icon_a.jpg", "bytes");
    importCollection(snapShotWithSession("a"));

    EXPECT_EQ(sessionOfFirst(), "ours");
}

TEST_F(ImportThumbnailTest, LeavesTheSessionWhenThereIsNone)
{
    setOwnSession();
    importCollection(snapShotWithSession("a"));

    EXPECT_EQ(namesInMain(), "a");
    EXPECT_EQ(sessionOfFirst(), "theirs");
}

TEST_F(ImportThumbnailTest, LeavesTheSessionAndTheOldFileWhenTheNameIsTaken)
{
    setOwnSession();
    m_folder.write("icon_a.jpg", "bytes");
    writeFile(copied("icon_a.jpg"), "old");
    importCollection(snapShotWithSession("a"));

    EXPECT_EQ(readFile(copied("icon_a.jpg")), "old");
    EXPECT_EQ(sessionOfFirst(), "theirs");
}

TEST_F(ImportThumbnailTest, LeavesTheSessionWithoutSettingsOfTheCurrentSnapShot)
{
    m_manager.GetCurrentSnapShot()->AddSnapShotSettings(nullptr);
    m_folder.write("icon_a.jpg", "bytes");
    importCollection(snapShotWithSession("a"));

    EXPECT_EQ(sessionOfFirst(), "theirs");
}

TEST_F(ImportThumbnailTest, LeavesTheSessionWithoutACurrentSnapShot)
{
    load(m_manager, "<snapRoot/>");
    m_folder.write("icon_a.jpg", "bytes");
    importCollection(snapShotWithSession("a"));

    EXPECT_EQ(sessionOfFirst(), "theirs");
}

TEST_F(ImportThumbnailTest, BringsNoSettings)
{
    setOwnSession();
    m_folder.write("icon_a.jpg", "bytes");
    importCollection("<snapshot name='a'/>");

    EXPECT_EQ(readFile(copied("icon_a.jpg")), "bytes");
    EXPECT_EQ(firstInMain()->GetSnapShotSettings(), nullptr);
}

TEST_F(ImportThumbnailTest, StaysWhereItIsWithoutASnapShotsFolder)
{
    GetDirectoryHandler()->SetSnapshotsFolder(QString());
    m_folder.write("icon_a.jpg", "bytes");
    importCollection("<snapshot name='a'/>");

    EXPECT_EQ(QDir::cleanPath(firstInMain()->GetThumbFilename()), m_folder.path("icon_a.jpg"));
}

/// Makes a folder the working directory for its lifetime.
class WorkingDirectory {
public:
    explicit WorkingDirectory(const QString& path)
    {
        EXPECT_TRUE(QDir::setCurrent(path));
    }
    ~WorkingDirectory()
    {
        QDir::setCurrent(m_before);
    }
    WorkingDirectory(const WorkingDirectory&) = delete;
    WorkingDirectory& operator=(const WorkingDirectory&) = delete;

private:
    const QString m_before = QDir::currentPath();
};

TEST_F(ImportThumbnailTest, IsLookedForBelowAPathWithoutAnySeparator)
{
    GetDirectoryHandler()->SetSnapshotsFolder(QString());
    const WorkingDirectory directory(m_folder.path("."));
    m_folder.write("plain.xml", "<snapRoot><snapshots name='Model SnapShots'>"
                                "<snapshot name='a'/></snapshots></snapRoot>");
    m_manager.ImportSnapShotDoc("plain.xml", false, true);

    EXPECT_EQ(firstInMain()->GetThumbFilename(),
              QString("plain.xml") + QDir::separator() + "icon_a.jpg");
}

// Saving archives

class SaveArchiveTest : public ::testing::Test {
protected:
    Folder m_folder;
    RVOpenManager m_manager;
};

TEST_F(SaveArchiveTest, WritesTheWholeDocumentOfTheNode)
{
    const QDomDocument document =
        parse("<!-- note --><archive type='t'><colours><colour refname='a'/></colours></archive>");
    const auto node = test::bind(document.documentElement().firstChild().firstChild());
    const QString path = m_folder.path("a.rvx");

    EXPECT_TRUE(m_manager.SaveArchive(path, node.get()));
    EXPECT_EQ(xmlOf(parse(readFile(path))), xmlOf(document));
}

TEST_F(SaveArchiveTest, IndentsByThree)
{
    const QDomDocument document = parse("<archive><colours><colour/></colours></archive>");
    const auto node = test::bind(document.documentElement());
    const QString path = m_folder.path("a.rvx");
    m_manager.SaveArchive(path, node.get());

    EXPECT_EQ(readFile(path), "<archive>\n   <colours>\n      <colour/>\n   </colours>\n"
                              "</archive>\n");
}

TEST_F(SaveArchiveTest, WritesUtf8)
{
    const QDomDocument document = parse(QStringLiteral("<archive name='\u00fc\u4e2d'/>"));
    const auto node = test::bind(document.documentElement());
    const QString path = m_folder.path("a.rvx");
    m_manager.SaveArchive(path, node.get());

    EXPECT_EQ(readFile(path), QStringLiteral("<archive name=\"\u00fc\u4e2d\"/>\n").toUtf8());
}

TEST_F(SaveArchiveTest, ReplacesALongerFile)
{
    const QDomDocument document = parse("<archive/>");
    const auto node = test::bind(document.documentElement());
    const QString path = m_folder.write("a.rvx", QByteArray(1000, 'x'));
    m_manager.SaveArchive(path, node.get());

    EXPECT_EQ(readFile(path), "<archive/>\n");
}

TEST_F(SaveArchiveTest, TakesAPathWithBackslashes)
{
    const QDomDocument document = parse("<archive/>");
    const auto node = test::bind(document.documentElement());
    ASSERT_TRUE(QDir().mkpath(m_folder.path("sub")));

    EXPECT_TRUE(m_manager.SaveArchive(m_folder.path("sub\\a.rvx"), node.get()));
    EXPECT_EQ(readFile(m_folder.path("sub/a.rvx")), "<archive/>\n");
}

TEST_F(SaveArchiveTest, SavesTheSnapShotDocumentToo)
{
    const QString path = m_folder.path("a.xml");

    EXPECT_TRUE(m_manager.SaveArchive(path, m_manager.GetCurrentSnapShot()));
    RVOpenManager other;
    EXPECT_EQ(other.LoadSnapShotDocFromFile(path), 1);
    EXPECT_EQ(textOf(other), textOf(m_manager));
}

TEST_F(SaveArchiveTest, RequiresANode)
{
    bool result = false;
    EXPECT_ASSERTION(result = m_manager.SaveArchive(m_folder.path("a.rvx"), nullptr),
                     "rootNode != 0", "RVOpenManager");
    EXPECT_FALSE(result);
    EXPECT_FALSE(QFile::exists(m_folder.path("a.rvx")));
}

TEST_F(SaveArchiveTest, RequiresADocument)
{
    RVOpenNode unbound;
    bool result = false;
    EXPECT_ASSERTION(result = m_manager.SaveArchive(m_folder.path("a.rvx"), &unbound),
                     "!doc.isNull()", "RVOpenManager");
    EXPECT_FALSE(result);
    EXPECT_FALSE(QFile::exists(m_folder.path("a.rvx")));
}

TEST_F(SaveArchiveTest, RequiresAFileThatCanBeOpened)
{
    bool result = false;
    EXPECT_ASSERTION(result = m_manager.SaveArchive(m_folder.path("missing/a.rvx"),
                                                    m_manager.GetCurrentSnapShot()),
                     "0", "RVOpenManager");
    EXPECT_FALSE(result);
}

// Archives outside of the registry

TEST(LoadArchiveTest, GivesANodeOverTheRoot)
{
    const Folder folder;
    RVOpenManager manager;
    const std::unique_ptr<RVOpenNode> root(manager.LoadArchive(
        folder.write("a.rvx", "<archive><colours><colour refname='a'/></colours></archive>")));

    ASSERT_NE(root, nullptr);
    EXPECT_EQ(xmlOf(root->GetDomNode()),
              xmlOf("<archive><colours><colour refname='a'/></colours></archive>"));
    EXPECT_EQ(root->GetParent(), nullptr);
}

TEST(LoadArchiveTest, GivesAPlainNodeWhateverTheRootIs)
{
    const Folder folder;
    RVOpenManager manager;
    const std::unique_ptr<RVOpenNode> root(manager.LoadArchive(folder.write("a.rvx", "<camera/>")));

    EXPECT_EQ(dynamic_cast<Camera*>(root.get()), nullptr);
}

TEST(LoadArchiveTest, GivesNullForAFileThatCannotBeRead)
{
    const Folder folder;
    RVOpenManager manager;

    EXPECT_EQ(manager.LoadArchive(folder.path("missing.rvx")), nullptr);
    EXPECT_EQ(manager.LoadArchive(folder.write("bad.rvx", s_malformed)), nullptr);
    EXPECT_EQ(manager.LoadArchive(QString()), nullptr);
}

TEST(LoadArchiveTest, ReadsTheFileAtEachCall)
{
    const Folder folder;
    RVOpenManager manager;
    const QString path = folder.write("a.rvx", "<archive/>");
    const std::unique_ptr<RVOpenNode> first(manager.LoadArchive(path));
    const std::unique_ptr<RVOpenNode> second(manager.LoadArchive(path));

    EXPECT_NE(first->GetDomNode().ownerDocument(), second->GetDomNode().ownerDocument());
}

TEST(LoadArchiveTest, DoesNotEnterTheRegistry)
{
    const Folder folder;
    RVOpenManager manager;
    const QString path = folder.write("a.rvx", "<archive/>");
    const std::unique_ptr<RVOpenNode> root(manager.LoadArchive(path));

    EXPECT_FALSE(GetDirectoryHandler()->SaveArchive(path));
}

TEST(LoadArchiveTest, GivesAnArchiveThatCanBeChangedAndSaved)
{
    const Folder folder;
    RVOpenManager manager;
    const QString path = folder.write("a.rvx", "<archive><colours/></archive>");
    const std::unique_ptr<RVOpenNode> root(manager.LoadArchive(path));
    root->GetChild(1, 1)->SetName("changed");

    EXPECT_TRUE(manager.SaveArchive(path, root.get()));
    EXPECT_EQ(xmlOf(parse(readFile(path))), xmlOf("<archive><colours name='changed'/></archive>"));
}

TEST(LoadArchiveTest, GivesANodeThatOutlivesTheManager)
{
    const Folder folder;
    std::unique_ptr<RVOpenNode> root;
    {
        RVOpenManager manager;
        root.reset(
            manager.LoadArchive(folder.write("a.rvx", "<archive><colours name='c'/></archive>")));
    }

    EXPECT_EQ(root->GetChild(1, 1)->GetName(), "c");
    EXPECT_FALSE(root->GetDomNode().ownerDocument().isNull());
}

TEST(LoadArchiveTest, TakesAPathWithBackslashes)
{
    const Folder folder;
    RVOpenManager manager;
    ASSERT_TRUE(QDir().mkpath(folder.path("sub")));
    folder.write("sub/a.rvx", "<archive/>");
    const std::unique_ptr<RVOpenNode> root(manager.LoadArchive(folder.path("sub\\a.rvx")));

    EXPECT_NE(root, nullptr);
}

TEST(DecodeXmlTest, GivesATypedNodeOverTheRoot)
{
    RVOpenManager manager;
    const std::unique_ptr<RVOpenNode> node(
        manager.DecodeXML("<camera name='c'><param name='P'/></camera>"));

    ASSERT_NE(dynamic_cast<Camera*>(node.get()), nullptr);
    EXPECT_EQ(node->GetName(), "c");
    EXPECT_NE(node->GetParamHelper()->FindParam("P"), nullptr);
}

TEST(DecodeXmlTest, GivesAPlainNodeForAnUnknownElement)
{
    RVOpenManager manager;
    const std::unique_ptr<RVOpenNode> node(manager.DecodeXML("<unknown name='u'/>"));

    ASSERT_NE(node, nullptr);
    EXPECT_EQ(node->GetName(), "u");
}

class DecodeBadXmlTest : public ::testing::TestWithParam<const char*> {};

TEST_P(DecodeBadXmlTest, GivesANodeBoundToNothing)
{
    RVOpenManager manager;
    const std::unique_ptr<RVOpenNode> node(manager.DecodeXML(GetParam()));

    ASSERT_NE(node, nullptr);
    EXPECT_TRUE(node->GetDomNode().isNull());
}

INSTANTIATE_TEST_SUITE_P(All, DecodeBadXmlTest,
                         ::testing::Values("", "no XML", "<camera>", "<camera/><camera/>"));

TEST(DecodeXmlTest, TakesPrefixesThatNobodyDeclared)
{
    RVOpenManager manager;
    const std::unique_ptr<RVOpenNode> node(manager.DecodeXML("<x:root y:name='n'/>"));

    EXPECT_EQ(node->GetNodeName(), "x:root");
    EXPECT_EQ(node->GetAttributeString("y:name"), "n");
}

TEST(DecodeXmlTest, GivesANodeThatOutlivesTheManager)
{
    std::unique_ptr<RVOpenNode> node;
    {
        RVOpenManager manager;
        node.reset(manager.DecodeXML("<root><camera name='c'/></root>"));
    }

    EXPECT_EQ(node->GetChild(1, 1)->GetName(), "c");
    EXPECT_FALSE(node->GetDomNode().ownerDocument().isNull());
}

TEST(DecodeXmlTest, GivesANodeWhoseCopiesGoIntoTheDocument)
{
    RVOpenManager manager;
    const std::unique_ptr<RVOpenNode> node(manager.DecodeXML("<camera desc='decoded'/>"));
    manager.GetCurrentSnapShot()->AddCamera(dynamic_cast<Camera*>(node.get()));

    EXPECT_EQ(manager.GetCurrentSnapShot()->GetCamera()->GetDescription(), "decoded");
}

} // namespace
} // namespace rvopen
