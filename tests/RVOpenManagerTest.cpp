// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include <rvopen/RVOpenManager.h>

#include <rvopen/Background.h>
#include <rvopen/Camera.h>
#include <rvopen/Colour.h>
#include <rvopen/RVOpenReader.h>
#include <rvopen/RVOpenStatus.h>
#include <rvopen/Scenery.h>
#include <rvopen/SnapShotSettings.h>
#include <rvopen/TemporaryItems.h>

#include "LoggedMessages.h"
#include "ManagerSupport.h"

#include <gtest/gtest.h>

#include <memory>
#include <ostream>

namespace rvopen {
namespace {

using test::bind;
using test::collectionNames;
using test::documentOf;
using test::InstallFolder;
using test::load;
using test::namesIn;
using test::paramValue;
using test::parse;
using test::readFile;
using test::textOf;
using test::xmlOf;

QString archiveWith(const QString& section)
{
    return QStringLiteral("<archive><%1/></archive>").arg(section);
}

// The document that a manager starts with

TEST(RVOpenManagerTest, StartsWithAnEmptyCollectionAndACurrentSnapShotBesideIt)
{
    const RVOpenManager manager;
    const QDomDocument document = documentOf(manager);

    EXPECT_EQ(test::domChildNames(document), QStringList({"xml", "snapRoot"}));
    EXPECT_EQ(test::domChildNames(document.documentElement()),
              QStringList({"snapshots", "snapshot"}));
    EXPECT_EQ(xmlOf(document.documentElement().firstChild()),
              xmlOf("<snapshots name='Model SnapShots'/>"));
    EXPECT_EQ(test::domChildNames(document.documentElement().lastChild()),
              QStringList({"snapShotSettings", "scenery"}));
}

TEST(RVOpenManagerTest, StartsWithTheXmlProcessingInstruction)
{
    const RVOpenManager manager;

    EXPECT_TRUE(manager.GetSnapShotDocumentAsString().startsWith(
        "<?xml version=\"1.0\" encoding=\"utf-8\"?>\n"));
}

TEST(RVOpenManagerTest, StartsWithTheAttributesOfTheRoot)
{
    const RVOpenManager manager;
    const QDomElement root = documentOf(manager).documentElement();

    EXPECT_EQ(root.attribute("type"), "snapStudio");
    EXPECT_EQ(root.attribute("zorvane_version"), "0.0");
    EXPECT_EQ(root.attribute("name"), "SnapRoot");
    EXPECT_EQ(root.attribute("unitsScale"), "1");
    EXPECT_EQ(root.attributes().count(), 4);
}

TEST(RVOpenManagerTest, StartsWithTextIndentedByTwo)
{
    const RVOpenManager manager;
    const QStringList lines = manager.GetSnapShotDocumentAsString().split(QLatin1Char('\n'));

    ASSERT_GE(lines.size(), 6);
    EXPECT_TRUE(lines[1].startsWith("<snapRoot "));
    EXPECT_EQ(lines[2], "  <snapshots name=\"Model SnapShots\"/>");
    EXPECT_EQ(lines[3], "  <snapshot name=\"CurrSnapshot\">");
    EXPECT_EQ(lines[4], "    <snapShotSettings>");
    EXPECT_TRUE(lines[5].startsWith("      <param "));
}

TEST(RVOpenManagerTest, StartsWithDefaultSettings)
{
    const RVOpenManager manager;

    EXPECT_EQ(xmlOf(documentOf(manager).documentElement().lastChild().firstChild()),
              xmlOf("<snapShotSettings>"
                    "<param name='Ambient Lights Intensity Scale' type='float' val='1'/>"
                    "<param name='Twist' type='float' val='0'/>"
                    "<param name='Orientation Up' type='vector' val='1 1 1'/>"
                    "<param name='Orientation North' type='vector' val='1 1 1'/>"
                    "<param name='Orientation Front Face' type='vector' val='1 1 1'/>"
                    "<param name='Image File Name' type='string' val=''/>"
                    "<param name='Session Folder' type='string' val=''/>"
                    "<param name='Reflected Env Path' type='string' val=''/>"
                    "<param name='Reflected Env Intensity' type='float' val='1'/>"
                    "<param name='Reflect BackPlate' type='boolean' val='0'/>"
                    "</snapShotSettings>"));
}

TEST(RVOpenManagerTest, StartsWithDefaultScenery)
{
    const RVOpenManager manager;

    EXPECT_EQ(xmlOf(documentOf(manager).documentElement().lastChild().lastChild()),
              xmlOf("<scenery>"
                    "<param name='Drop Shadow' type='boolean' val='1'/>"
                    "<param name='Drop Sunlight' type='boolean' val='1'/>"
                    "<param name='Drop Reflection' type='boolean' val='0'/>"
                    "<param name='Drop Shadow Quality' type='integer' val='10'/>"
                    "<param name='Drop Shadow Contrast' type='float' val='0.8'/>"
                    "<param name='Drop Sunlight Brightness' type='float' val='0.5'/>"
                    "<param name='Drop Reflection Brightness' type='float' val='0.5'/>"
                    "<param name='Drop Reflection Blur' type='float' val='0'/>"
                    "<param name='Base Size' type='float' val='3'/>"
                    "<param name='Drop Shadow Catch Spots' type='boolean' val='1'/>"
                    "</scenery>"));
}

TEST(RVOpenManagerTest, StartsWithTheObjectsOfItsDocument)
{
    const RVOpenManager manager;
    SnapShot* const current = manager.GetCurrentSnapShot();

    ASSERT_NE(current, nullptr);
    EXPECT_EQ(current->GetName(), "CurrSnapshot");
    EXPECT_NE(current->GetSnapShotSettings(), nullptr);
    EXPECT_NE(current->GetScenery(), nullptr);
    ASSERT_NE(manager.GetSnapShots(), nullptr);
    EXPECT_EQ(manager.GetSnapShots()->GetDomNode(),
              current->GetDomNode().parentNode().firstChild());
}

TEST(RVOpenManagerTest, StartsWithoutWhatIsMadeLater)
{
    const RVOpenManager manager;

    EXPECT_EQ(manager.GetNumSnapShots(), 0);
    EXPECT_EQ(manager.GetResetSnapShot(), nullptr);
    EXPECT_EQ(manager.GetImportCurrentSnapShot(), nullptr);
    EXPECT_EQ(manager.GetArchiveType(), QString());
}

TEST(RVOpenManagerTest, TextShowsChangesAtOnce)
{
    const RVOpenManager manager;
    manager.GetCurrentSnapShot()->SetDescription("changed");

    EXPECT_EQ(documentOf(manager).documentElement().lastChildElement().attribute("desc"),
              "changed");
}

TEST(RVOpenManagerTest, AFreshDocumentLoadsAsItWasWritten)
{
    const RVOpenManager manager;
    RVOpenManager other;
    load(other, manager.GetSnapShotDocumentAsString());

    EXPECT_EQ(textOf(other), textOf(manager));
}

// Initialise

TEST(RVOpenManagerTest, InitialiseSucceedsWithoutAnyArchive)
{
    const QTemporaryDir folder;
    RVOpenManager manager;

    EXPECT_EQ(manager.Initialise(3, 1, folder.path()), StatusOk);
    EXPECT_EQ(manager.GetRVOpenNodeFromType("colours", true), nullptr);
}

TEST(RVOpenManagerTest, InitialiseStoresTheVersionForLaterDocuments)
{
    const QTemporaryDir folder;
    RVOpenManager manager;
    manager.Initialise(3, 12, folder.path());
    EXPECT_EQ(documentOf(manager).documentElement().attribute("zorvane_version"), "0.0");

    manager.ClearSnapShotDoc();
    manager.InitialiseSnapShotDoc();
    EXPECT_EQ(documentOf(manager).documentElement().attribute("zorvane_version"), "3.12");
}

TEST(RVOpenManagerTest, InitialiseReadsTheDefaultArchive)
{
    InstallFolder folder;
    folder.write("Default", archiveWith("colours"));
    RVOpenManager manager;

    EXPECT_EQ(manager.Initialise(3, 1, folder.path()), StatusOk);
    RVOpenNode* const section = manager.GetRVOpenNodeFromType("colours", true);
    ASSERT_NE(section, nullptr);
    EXPECT_EQ(section->GetParent()->GetNodeName(), "archive");
}

TEST(RVOpenManagerTest, TheDefaultArchiveKeepsItsDocument)
{
    InstallFolder folder;
    folder.write("Default", archiveWith("colours"));
    RVOpenManager manager;
    manager.Initialise(3, 1, folder.path());
    const QString path = folder.archive("Copy");

    EXPECT_TRUE(manager.SaveArchive(path, manager.GetRVOpenNodeFromType("colours", true)));
    EXPECT_EQ(xmlOf(parse(readFile(path))), archiveWith("colours"));
}

TEST(RVOpenManagerTest, InitialisePassesOverAMalformedDefaultArchive)
{
    InstallFolder folder;
    folder.write("Default", "<archive>");
    RVOpenManager manager;

    EXPECT_EQ(manager.Initialise(3, 1, folder.path()), StatusOk);
    EXPECT_EQ(manager.GetRVOpenNodeFromType("colours", true), nullptr);
}

TEST(RVOpenManagerTest, InitialiseLogsNothingAboutArchivesThatCannotBeRead)
{
    InstallFolder folder;
    folder.write("Product_extra", "<archive>");
    RVOpenManager manager;
    const test::LoggedMessages logged;

    EXPECT_EQ(manager.Initialise(3, 1, folder.path()), StatusOk);
    EXPECT_EQ(logged.texts(), QStringList());
}

TEST(RVOpenManagerTest, InitialiseChangesNoArchiveFile)
{
    InstallFolder folder;
    const QByteArray wellFormed = "<archive><colours/></archive>\r\n";
    const QByteArray malformed = "<archive>";
    folder.write("Default", wellFormed);
    folder.write("Product_extra", malformed);
    folder.write("Architectural_extra", wellFormed);
    RVOpenManager manager;
    manager.Initialise(3, 1, folder.path());

    EXPECT_EQ(readFile(folder.archive("Default")), wellFormed);
    EXPECT_EQ(readFile(folder.archive("Product_extra")), malformed);
    EXPECT_EQ(readFile(folder.archive("Architectural_extra")), wellFormed);
}

TEST(RVOpenManagerTest, InitialiseLeavesTheSnapShotDocumentAlone)
{
    InstallFolder folder;
    folder.write("Default", archiveWith("colours"));
    RVOpenManager manager;
    SnapShot* const current = manager.GetCurrentSnapShot();
    const QString before = textOf(manager);
    manager.Initialise(3, 1, folder.path());

    EXPECT_EQ(manager.GetCurrentSnapShot(), current);
    EXPECT_EQ(textOf(manager), before);
}

TEST(RVOpenManagerTest, InitialiseReadsTheDefaultArchiveOnlyOnce)
{
    InstallFolder folder;
    folder.write("Default", archiveWith("colours"));
    RVOpenManager manager;
    manager.Initialise(3, 1, folder.path());
    folder.write("Default", archiveWith("finishes"));
    manager.Initialise(3, 1, folder.path());

    EXPECT_NE(manager.GetRVOpenNodeFromType("colours", true), nullptr);
    EXPECT_EQ(manager.GetRVOpenNodeFromType("finishes", true), nullptr);
}

TEST(RVOpenManagerTest, InitialiseReadsTheDefaultArchiveLaterWhenItCouldNotBefore)
{
    InstallFolder folder;
    RVOpenManager manager;
    manager.Initialise(3, 1, folder.path());
    folder.write("Default", archiveWith("colours"));
    manager.Initialise(3, 1, folder.path());

    EXPECT_NE(manager.GetRVOpenNodeFromType("colours", true), nullptr);
}

TEST(RVOpenManagerTest, WhatTheHostHoldsOfTheDefaultArchiveOutlivesASecondInitialise)
{
    InstallFolder folder;
    folder.write("Default", "<archive><colours><colour refname='red'/></colours></archive>");
    RVOpenManager manager;
    manager.Initialise(3, 1, folder.path());
    RVOpenNode* const held = manager.GetRVOpenNodeFromType("colours", true);
    manager.Initialise(3, 1, folder.path());

    ASSERT_NE(held->GetChild(1, 1), nullptr);
    EXPECT_EQ(held->GetChild(1, 1)->GetRefName(), "red");
    EXPECT_EQ(held->GetParent()->GetNodeName(), "archive");
}

TEST(RVOpenManagerTest, TheDefaultArchiveIsWhatItsFileWasWhenTheManagerWasInitialised)
{
    InstallFolder folder;
    folder.write("Default", archiveWith("colours"));
    RVOpenManager manager;
    manager.Initialise(3, 1, folder.path());
    folder.write("Default", "<archive>");

    EXPECT_NE(manager.GetRVOpenNodeFromType("colours", true), nullptr);
}

TEST(RVOpenManagerTest, EachManagerHasADefaultArchiveOfItsOwn)
{
    InstallFolder folder;
    folder.write("Default", "<archive><colours><colour refname='red'/></colours></archive>");
    RVOpenManager one;
    one.Initialise(3, 1, folder.path());
    RVOpenManager other;
    other.Initialise(3, 1, folder.path());
    RVOpenNode* const changed = one.GetRVOpenNodeFromType("colours", true);
    changed->GetDomNode().firstChildElement().setAttribute("refname", "green");
    RVOpenManager later;
    later.Initialise(3, 1, folder.path());

    const auto refName = [](RVOpenManager& manager) {
        return manager.GetRVOpenNodeFromType("colours", true)->GetChild(1, 1)->GetRefName();
    };
    EXPECT_EQ(refName(one), "green");
    EXPECT_EQ(refName(other), "red");
    EXPECT_EQ(refName(later), "red");
}

TEST(RVOpenManagerTest, InitialiseTellsWhyTheLastArchiveCouldNotBeRead)
{
    InstallFolder folder;
    folder.write("Default", archiveWith("colours"));
    folder.write("Architectural_extra", "<archive>\n<colours></archive>");
    RVOpenManager manager;
    manager.Initialise(3, 1, folder.path());

    EXPECT_TRUE(LastReadError().file.endsWith("Architectural_extra.rvx"));
    EXPECT_EQ(LastReadError().line, 2);
}

TEST(RVOpenManagerTest, LookingUpInTheDefaultArchiveLeavesTheLastReadError)
{
    InstallFolder folder;
    folder.write("Default", archiveWith("colours"));
    RVOpenManager manager;
    manager.Initialise(3, 1, folder.path());
    ASSERT_EQ(manager.LoadSnapShotDocFromString("<snapRoot>\n\n<a></snapRoot>"), 0);
    ASSERT_NE(manager.GetRVOpenNodeFromType("colours", true), nullptr);

    EXPECT_EQ(LastReadError().line, 3);
}

/// The extra archives, seen through the chosen archive that they are merged into.
struct Extra {
    const char* file;
    const char* chosen;
};

void PrintTo(const Extra& extra, std::ostream* out)
{
    *out << extra.file;
}

class RVOpenManagerExtraArchiveTest : public ::testing::TestWithParam<Extra> {
protected:
    void SetUp() override
    {
        m_archive = m_folders.product() + QDir::separator() + GetParam().chosen;
        test::writeFile(m_archive, "<archive><colours/></archive>");
        m_folders.closeAtEnd(m_archive);
    }

    void writeExtra(const char* refName)
    {
        m_install.write(
            GetParam().file,
            QStringLiteral("<archive><colours><colour refname='%1'/></colours></archive>")
                .arg(refName));
    }

    /// The reference names of the presets that the chosen archive has after the merge.
    QStringList merged()
    {
        m_manager.SetArchiveNode(GetParam().chosen, "Zorvane");
        QStringList result;
        for (RVOpenNode* preset : test::children(m_manager.GetRVOpenNodeFromType("colours", false)))
            result << preset->GetRefName();
        return result;
    }

    test::ArchiveFolders m_folders;
    InstallFolder m_install;
    RVOpenManager m_manager;
    QString m_archive;
};

TEST_P(RVOpenManagerExtraArchiveTest, IsReadByInitialise)
{
    writeExtra("a");
    m_manager.Initialise(3, 1, m_install.path());

    EXPECT_EQ(merged(), QStringList("a"));
}

TEST_P(RVOpenManagerExtraArchiveTest, IsReadAgainByASecondInitialise)
{
    writeExtra("a");
    m_manager.Initialise(3, 1, m_install.path());
    writeExtra("b");
    m_manager.Initialise(3, 1, m_install.path());

    EXPECT_EQ(merged(), QStringList("b"));
}

TEST_P(RVOpenManagerExtraArchiveTest, IsWhatItsFileWasWhenTheManagerWasInitialised)
{
    writeExtra("a");
    m_manager.Initialise(3, 1, m_install.path());
    writeExtra("b");

    EXPECT_EQ(merged(), QStringList("a"));
}

TEST_P(RVOpenManagerExtraArchiveTest, IsMergedAgainAfterASecondInitialise)
{
    writeExtra("a");
    m_manager.Initialise(3, 1, m_install.path());
    EXPECT_EQ(merged(), QStringList("a"));
    writeExtra("b");
    m_manager.Initialise(3, 1, m_install.path());

    EXPECT_EQ(merged(), QStringList({"a", "b"}));
}

TEST_P(RVOpenManagerExtraArchiveTest, IsKeptWhenItCannotBeReadAgain)
{
    writeExtra("a");
    m_manager.Initialise(3, 1, m_install.path());
    m_install.write(GetParam().file, "<archive>");
    m_manager.Initialise(3, 1, m_install.path());

    EXPECT_EQ(merged(), QStringList("a"));
}

INSTANTIATE_TEST_SUITE_P(All, RVOpenManagerExtraArchiveTest,
                         ::testing::Values(Extra{"Product_extra", "Product.rvx"},
                                           Extra{"Architectural_extra", "Architectural.rvx"}),
                         [](const auto& extra) { return std::string(extra.param.file); });

TEST(RVOpenManagerTest, TerminateDoesNothing)
{
    InstallFolder folder;
    folder.write("Default", archiveWith("colours"));
    RVOpenManager manager;
    manager.Initialise(3, 1, folder.path());
    SnapShot* const current = manager.GetCurrentSnapShot();
    const QString before = textOf(manager);
    manager.Terminate();

    EXPECT_EQ(manager.GetCurrentSnapShot(), current);
    EXPECT_EQ(textOf(manager), before);
    EXPECT_NE(manager.GetRVOpenNodeFromType("colours", true), nullptr);
}

// Clearing and starting anew

const char s_document[] = "<snapRoot unitsScale='1'>"
                          "<snapshots name='Model SnapShots'><snapshot name='a'/>"
                          "<snapshot name='b'/></snapshots>"
                          "<snapshots name='Model Cameras'><snapshot name='c'/></snapshots>"
                          "<snapshots name='Model Material Palettes'/>"
                          "<snapshots name='Model Backgrounds'/>"
                          "<snapshot name='now'><camera/></snapshot>"
                          "<background subcat='Plain'/>"
                          "</snapRoot>";

TEST(RVOpenManagerTest, ClearLeavesNoDocument)
{
    RVOpenManager manager;
    load(manager, s_document);
    manager.GetTempSnapShots();
    manager.SetResetSnapShot(manager.CreateInternalSnapShot(manager.GetCurrentSnapShot()));
    manager.ClearSnapShotDoc();

    EXPECT_EQ(manager.GetSnapShotDocumentAsString(), QString());
    EXPECT_EQ(manager.GetSnapShots(), nullptr);
    EXPECT_EQ(manager.GetCurrentSnapShot(), nullptr);
    EXPECT_EQ(manager.GetResetSnapShot(), nullptr);
    EXPECT_EQ(manager.GetNumSnapShots(), 0);
}

TEST(RVOpenManagerTest, ClearLeavesNoCollectionAndNoOriginalBackground)
{
    RVOpenManager manager;
    load(manager, s_document);
    manager.GetTempSnapShots();
    manager.ClearSnapShotDoc();

    EXPECT_EQ(manager.GetSnapShotsCameras(), nullptr);
    EXPECT_EQ(manager.GetSnapShotsMaterialRepositories(), nullptr);
    EXPECT_EQ(manager.GetSnapShotsBackgrounds(), nullptr);
    EXPECT_EQ(manager.GetTempSnapShots(), nullptr);
    EXPECT_EQ(manager.GetOriginalBackground(), nullptr);
}

TEST(RVOpenManagerTest, ClearTwiceIsHarmless)
{
    RVOpenManager manager;
    load(manager, s_document);
    manager.ClearSnapShotDoc();
    manager.ClearSnapShotDoc();

    EXPECT_EQ(manager.GetSnapShotDocumentAsString(), QString());
}

TEST(RVOpenManagerTest, ClearKeepsTheArchives)
{
    InstallFolder folder;
    folder.write("Default", archiveWith("colours"));
    RVOpenManager manager;
    manager.Initialise(3, 1, folder.path());
    manager.ClearSnapShotDoc();

    EXPECT_NE(manager.GetRVOpenNodeFromType("colours", true), nullptr);
}

TEST(RVOpenManagerTest, ClearKeepsTheClipboard)
{
    RVOpenManager manager;
    load(manager, "<snapRoot><snapshot><colour desc='copied'/></snapshot></snapRoot>");
    auto* const colour = dynamic_cast<Colour*>(manager.GetCurrentSnapShot()->GetChild(1, 1));
    manager.GetTemporaryItems()->SetColour(colour);
    manager.ClearSnapShotDoc();

    ASSERT_NE(manager.GetTemporaryItems()->GetColour(), nullptr);
    EXPECT_EQ(manager.GetTemporaryItems()->GetColour()->GetDescription(), "copied");
}

TEST(RVOpenManagerTest, ACloneOutlivesTheDocumentOfItsSource)
{
    RVOpenManager manager;
    load(manager, "<snapRoot><snapshot><camera desc='d'><param name='P'/></camera></snapshot>"
                  "</snapRoot>");
    const auto clone = std::make_unique<Camera>(
        static_cast<RVOpenNode*>(manager.GetCurrentSnapShot()->GetCamera()));
    manager.ClearSnapShotDoc();
    manager.InitialiseSnapShotDoc();
    manager.GetCurrentSnapShot()->AddCamera(clone.get());

    EXPECT_EQ(xmlOf(manager.GetCurrentSnapShot()->GetCamera()->GetDomNode()),
              xmlOf("<camera desc='d'><param name='P'/></camera>"));
}

TEST(RVOpenManagerTest, AFreshDocumentAfterClearIsTheOneOfANewManager)
{
    RVOpenManager manager;
    load(manager, s_document);
    manager.ClearSnapShotDoc();
    manager.InitialiseSnapShotDoc();

    EXPECT_EQ(textOf(manager), textOf(RVOpenManager()));
    EXPECT_EQ(manager.GetNumSnapShots(), 0);
}

TEST(RVOpenManagerTest, InitialiseSnapShotDocWithoutClearBuildsAFreshDocument)
{
    RVOpenManager manager;
    load(manager, s_document);
    manager.InitialiseSnapShotDoc();

    EXPECT_EQ(textOf(manager), textOf(RVOpenManager()));
}

TEST(RVOpenManagerTest, WhatTheHostHoldsOutlivesInitialiseSnapShotDocWithoutClear)
{
    RVOpenManager manager;
    load(manager, s_document);
    SnapShot* const current = manager.GetCurrentSnapShot();
    SnapShots* const snapShots = manager.GetSnapShots();
    SnapShots* const temporary = manager.GetTempSnapShots();
    manager.InitialiseSnapShotDoc();

    EXPECT_EQ(current->GetName(), "now");
    EXPECT_NE(current->GetCamera(), nullptr);
    EXPECT_EQ(namesIn(snapShots), "a b");
    EXPECT_EQ(temporary->GetName(), "Temp SnapShots");
    EXPECT_FALSE(snapShots->GetDomNode().ownerDocument().isNull());
}

TEST(RVOpenManagerTest, InitialiseSnapShotDocWithoutClearLeavesTheResetSnapShot)
{
    RVOpenManager manager;
    SnapShot* const reset = manager.CreateInternalSnapShot(manager.GetCurrentSnapShot());
    manager.SetResetSnapShot(reset);
    manager.InitialiseSnapShotDoc();

    EXPECT_EQ(manager.GetResetSnapShot(), reset);
    EXPECT_EQ(reset->GetName(), "CurrSnapshot");
}

TEST(RVOpenManagerTest, InitialiseSnapShotDocWithoutClearLeavesTheOriginalBackground)
{
    RVOpenManager manager;
    load(manager, s_document);
    Background* const original = manager.GetOriginalBackground();
    manager.InitialiseSnapShotDoc();

    EXPECT_EQ(manager.GetOriginalBackground(), original);
    EXPECT_EQ(original->GetSubCat(), "Plain");
}

TEST(RVOpenManagerTest, InitialiseSnapShotDocForgetsTheCollectionsMadeOnDemand)
{
    RVOpenManager manager;
    load(manager, s_document);
    manager.GetTempSnapShots();
    manager.InitialiseSnapShotDoc();
    EXPECT_EQ(collectionNames(documentOf(manager)), QStringList("Model SnapShots"));

    manager.GetSnapShotsCameras();
    EXPECT_EQ(collectionNames(documentOf(manager)),
              QStringList({"Model SnapShots", "Model Cameras"}));
}

// Units

struct Scale {
    float value;
    const char* text;
};

void PrintTo(const Scale& scale, std::ostream* out)
{
    *out << scale.text;
}

class RVOpenManagerUnitsScaleTest : public ::testing::TestWithParam<Scale> {};

TEST_P(RVOpenManagerUnitsScaleTest, IsWrittenWithSixDigits)
{
    RVOpenManager manager;
    manager.SetUnitsScale(GetParam().value);

    EXPECT_EQ(documentOf(manager).documentElement().attribute("unitsScale"), GetParam().text);
}

INSTANTIATE_TEST_SUITE_P(All, RVOpenManagerUnitsScaleTest,
                         ::testing::Values(Scale{1.0f, "1"}, Scale{0.1f, "0.1"},
                                           Scale{1.0f / 3.0f, "0.333333"}, Scale{25.4f, "25.4"},
                                           Scale{0.0f, "0"}, Scale{1234567.0f, "1.23457e+06"}));

TEST(RVOpenManagerTest, SetUnitsScaleReachesTheRootOfALoadedDocument)
{
    RVOpenManager manager;
    load(manager, "<anyRoot unitsScale='1'/>");
    manager.SetUnitsScale(2.0f);

    EXPECT_EQ(textOf(manager), xmlOf("<anyRoot unitsScale='2'/>"));
}

// Without a document

TEST(RVOpenManagerTest, SetUnitsScaleWithoutADocumentIsHarmless)
{
    RVOpenManager manager;
    manager.ClearSnapShotDoc();
    manager.SetUnitsScale(2.0f);

    EXPECT_EQ(manager.GetSnapShotDocumentAsString(), QString());
}

TEST(RVOpenManagerTest, OriginalBackgroundIsNullWithoutADocument)
{
    RVOpenManager manager;
    manager.ClearSnapShotDoc();

    EXPECT_EQ(manager.GetOriginalBackground(), nullptr);
}

TEST(RVOpenManagerTest, CreateInternalSnapShotIsNullWithoutADocument)
{
    RVOpenManager manager;
    manager.ClearSnapShotDoc();

    EXPECT_EQ(manager.CreateInternalSnapShot(nullptr), nullptr);
}

// Counting and making snapshots

TEST(RVOpenManagerTest, CountsTheSnapShotsOfTheMainCollection)
{
    RVOpenManager manager;
    load(manager, s_document);

    EXPECT_EQ(manager.GetNumSnapShots(), 2);
}

TEST(RVOpenManagerTest, CountsNoSnapShotsWithoutAMainCollection)
{
    RVOpenManager manager;
    load(manager, "<snapRoot><snapshots name='Model Cameras'><snapshot/></snapshots></snapRoot>");

    EXPECT_EQ(manager.GetNumSnapShots(), 0);
}

TEST(RVOpenManagerTest, CountsSnapShotsThatWereAdded)
{
    RVOpenManager manager;
    manager.GetSnapShots()->AddNode(manager.GetSnapShots()->CreateSnapShot(nullptr), true);
    manager.GetSnapShots()->AddNode(manager.CreateInternalSnapShot(manager.GetCurrentSnapShot()),
                                    true);

    EXPECT_EQ(manager.GetNumSnapShots(), 2);
    EXPECT_TRUE(test::mirrorsWholeDom(manager.GetSnapShots()));
}

TEST(RVOpenManagerTest, CreateInternalSnapShotCopiesItsSource)
{
    RVOpenManager manager;
    const QString before = textOf(manager);
    SnapShot* const source = manager.GetCurrentSnapShot();
    const std::unique_ptr<SnapShot> made(manager.CreateInternalSnapShot(source));

    EXPECT_EQ(xmlOf(made->GetDomNode()), xmlOf(source->GetDomNode()));
    EXPECT_NE(made->GetDomNode(), source->GetDomNode());
    EXPECT_TRUE(made->GetDomNode().parentNode().isNull());
    EXPECT_EQ(textOf(manager), before);
}

TEST(RVOpenManagerTest, CreateInternalSnapShotCopiesInTheSourcesDocument)
{
    RVOpenManager manager;
    const QDomDocument other = parse("<snapshot/>");
    SnapShot source(other.documentElement());
    const std::unique_ptr<SnapShot> made(manager.CreateInternalSnapShot(&source));

    EXPECT_EQ(made->GetDomNode().ownerDocument(), other);
}

TEST(RVOpenManagerTest, CreateInternalSnapShotReadsTheComponentsOfTheCopy)
{
    RVOpenManager manager;
    const std::unique_ptr<SnapShot> made(
        manager.CreateInternalSnapShot(manager.GetCurrentSnapShot()));

    ASSERT_NE(made->GetScenery(), nullptr);
    EXPECT_NE(made->GetScenery(), manager.GetCurrentSnapShot()->GetScenery());
}

TEST(RVOpenManagerTest, CreateInternalSnapShotWithoutASourceAddsOneUnderTheRoot)
{
    RVOpenManager manager;
    load(manager, "<snapRoot><snapshots name='Model SnapShots'/><other/></snapRoot>");
    const std::unique_ptr<SnapShot> made(manager.CreateInternalSnapShot(nullptr));

    EXPECT_EQ(textOf(manager), xmlOf("<snapRoot><snapshots name='Model SnapShots'/><other/>"
                                     "<snapshot name='CurrSnapshot'/></snapRoot>"));
}

TEST(RVOpenManagerTest, CreateInternalSnapShotDoesNotReplaceTheCurrentOne)
{
    RVOpenManager manager;
    SnapShot* const current = manager.GetCurrentSnapShot();
    const std::unique_ptr<SnapShot> made(manager.CreateInternalSnapShot(nullptr));

    EXPECT_EQ(manager.GetCurrentSnapShot(), current);
    EXPECT_NE(made.get(), current);
}

// The reset snapshot

TEST(RVOpenManagerTest, StoresTheResetSnapShot)
{
    RVOpenManager manager;
    SnapShot* const reset = manager.CreateInternalSnapShot(manager.GetCurrentSnapShot());
    manager.SetResetSnapShot(reset);

    EXPECT_EQ(manager.GetResetSnapShot(), reset);
}

TEST(RVOpenManagerTest, HandsTheReplacedResetSnapShotBack)
{
    RVOpenManager manager;
    SnapShot* const first = manager.CreateInternalSnapShot(manager.GetCurrentSnapShot());
    EXPECT_EQ(manager.SetResetSnapShot(first), nullptr);
    const std::unique_ptr<SnapShot> previous(
        manager.SetResetSnapShot(manager.CreateInternalSnapShot(manager.GetCurrentSnapShot())));
    manager.ClearSnapShotDoc();

    EXPECT_EQ(previous.get(), first);
    EXPECT_EQ(first->GetName(), "CurrSnapshot");
    EXPECT_NE(first->GetScenery(), nullptr);
}

TEST(RVOpenManagerTest, TheSameResetSnapShotAgainChangesNothing)
{
    RVOpenManager manager;
    SnapShot* const reset = manager.CreateInternalSnapShot(manager.GetCurrentSnapShot());
    manager.SetResetSnapShot(reset);

    EXPECT_EQ(manager.SetResetSnapShot(reset), nullptr);
    EXPECT_EQ(manager.GetResetSnapShot(), reset);
    EXPECT_EQ(reset->GetName(), "CurrSnapshot");
}

TEST(RVOpenManagerTest, AResetSnapShotThatWasHandedBackMayBeSetAgain)
{
    RVOpenManager manager;
    SnapShot* const first = manager.CreateInternalSnapShot(manager.GetCurrentSnapShot());
    SnapShot* const second = manager.CreateInternalSnapShot(manager.GetCurrentSnapShot());
    manager.SetResetSnapShot(first);
    EXPECT_EQ(manager.SetResetSnapShot(second), first);
    const std::unique_ptr<SnapShot> previous(manager.SetResetSnapShot(first));

    EXPECT_EQ(previous.get(), second);
    EXPECT_EQ(manager.GetResetSnapShot(), first);
}

TEST(RVOpenManagerTest, TheResetSnapShotMayBeTakenAway)
{
    RVOpenManager manager;
    SnapShot* const reset = manager.CreateInternalSnapShot(manager.GetCurrentSnapShot());
    manager.SetResetSnapShot(reset);
    const std::unique_ptr<SnapShot> taken(manager.SetResetSnapShot(nullptr));

    EXPECT_EQ(manager.GetResetSnapShot(), nullptr);
    EXPECT_EQ(taken.get(), reset);
    EXPECT_EQ(manager.SetResetSnapShot(nullptr), nullptr);
}

/// A snapshot that somebody owns already.
struct OwnedSnapShot {
    const char* name;
    SnapShot* (*get)(RVOpenManager& manager);
};

void PrintTo(const OwnedSnapShot& snapShot, std::ostream* out)
{
    *out << snapShot.name;
}

class OwnedResetSnapShotTest : public ::testing::TestWithParam<OwnedSnapShot> {
protected:
    OwnedResetSnapShotTest()
    {
        const QTemporaryDir folder;
        const QString path = folder.filePath("a.xml");
        const char* const xml = "<snapRoot><snapshots name='Model SnapShots'><snapshot name='A'/>"
                                "</snapshots><snapshot name='First'/><snapshot name='C'/>"
                                "</snapRoot>";
        test::writeFile(path, xml);
        load(m_manager, xml);
        m_manager.ImportSnapShotDoc(path, false, false);
    }

    RVOpenManager m_manager;
};

TEST_P(OwnedResetSnapShotTest, IsRefused)
{
    SnapShot* const reset = m_manager.CreateInternalSnapShot(nullptr);
    m_manager.SetResetSnapShot(reset);
    SnapShot* const owned = GetParam().get(m_manager);
    ASSERT_NE(owned, nullptr);

    EXPECT_EQ(m_manager.SetResetSnapShot(owned), nullptr);
    EXPECT_EQ(m_manager.GetResetSnapShot(), reset);
    EXPECT_NE(owned->GetName(), QString());
}

INSTANTIATE_TEST_SUITE_P(
    All, OwnedResetSnapShotTest,
    ::testing::Values(
        OwnedSnapShot{"Current",
                      [](RVOpenManager& manager) { return manager.GetCurrentSnapShot(); }},
        OwnedSnapShot{"Imported",
                      [](RVOpenManager& manager) { return manager.GetImportCurrentSnapShot(); }},
        OwnedSnapShot{
            "Member",
            [](RVOpenManager& manager) { return manager.GetSnapShots()->GetFirstSnapShot(); }},
        OwnedSnapShot{"BelowTheRootNode",
                      [](RVOpenManager& manager) {
                          RVOpenNode* const first = manager.GetRootNode()->GetChild(1, 1);
                          return dynamic_cast<SnapShot*>(first->GetChild(1, 1));
                      }},
        OwnedSnapShot{"OfADocumentBefore",
                      [](RVOpenManager& manager) {
                          SnapShot* const current = manager.GetCurrentSnapShot();
                          manager.InitialiseSnapShotDoc();
                          return current;
                      }}),
    [](const auto& each) { return std::string(each.param.name); });

// Copying and the clipboard

TEST(RVOpenManagerTest, ACopyRefersToTheSameObjects)
{
    const RVOpenManager manager;
    const RVOpenManager copy(manager);

    EXPECT_EQ(copy.GetCurrentSnapShot(), manager.GetCurrentSnapShot());
    EXPECT_EQ(copy.GetSnapShots(), manager.GetSnapShots());
    EXPECT_EQ(textOf(copy), textOf(manager));
}

TEST(RVOpenManagerTest, AssignmentRefersToTheSameObjects)
{
    const RVOpenManager manager;
    RVOpenManager target;
    target = manager;

    EXPECT_EQ(target.GetCurrentSnapShot(), manager.GetCurrentSnapShot());
    EXPECT_EQ(target.GetSnapShots(), manager.GetSnapShots());
    EXPECT_EQ(textOf(target), textOf(manager));
}

/// Whether the copy goes before the original.
class ManagerCopyTest : public ::testing::TestWithParam<bool> {
protected:
    /// Ends one of the two and gives the other.
    RVOpenManager& survivor()
    {
        (GetParam() ? m_copy : m_original).reset();
        return GetParam() ? *m_original : *m_copy;
    }

    std::unique_ptr<RVOpenManager> m_original = std::make_unique<RVOpenManager>();
    std::unique_ptr<RVOpenManager> m_copy = std::make_unique<RVOpenManager>(*m_original);
};

TEST_P(ManagerCopyTest, LeavesTheObjectsWhenItGoes)
{
    SnapShot* const current = m_original->GetCurrentSnapShot();
    Background* const background = m_original->GetOriginalBackground();
    RVOpenManager& rest = survivor();

    EXPECT_EQ(rest.GetCurrentSnapShot(), current);
    EXPECT_EQ(current->GetName(), "CurrSnapshot");
    EXPECT_EQ(rest.GetOriginalBackground(), background);
    EXPECT_EQ(background->GetSubCat(), "Horizon");
}

TEST_P(ManagerCopyTest, LeavesWhatACopyLoaded)
{
    load(*m_copy, "<snapRoot><snapshot name='loaded'/></snapRoot>");
    RVOpenManager& rest = survivor();

    ASSERT_NE(rest.GetCurrentSnapShot(), nullptr);
    EXPECT_EQ(rest.GetCurrentSnapShot()->GetName(), "loaded");
}

TEST_P(ManagerCopyTest, LeavesWhatACopyMade)
{
    SnapShots* const cameras = m_copy->GetSnapShotsCameras();
    SnapShot* const reset = m_copy->CreateInternalSnapShot(m_copy->GetCurrentSnapShot());
    m_copy->SetResetSnapShot(reset);
    m_copy->GetTemporaryItems()->SetRefName("held");
    const std::unique_ptr<RVOpenNode> decoded(m_copy->DecodeXML("<a/>"));
    RVOpenManager& rest = survivor();

    EXPECT_EQ(rest.GetSnapShotsCameras(), cameras);
    EXPECT_EQ(rest.GetResetSnapShot(), reset);
    EXPECT_EQ(rest.GetTemporaryItems()->GetRefname(), "held");
    EXPECT_EQ(decoded->GetNodeName(), "a");
}

TEST_P(ManagerCopyTest, SeesNoDocumentThatWasCleared)
{
    m_copy->ClearSnapShotDoc();
    RVOpenManager& rest = survivor();

    EXPECT_EQ(rest.GetCurrentSnapShot(), nullptr);
    EXPECT_EQ(rest.GetRootNode(), nullptr);
}

TEST_P(ManagerCopyTest, MayBeAssignedToItselfAndToItsOriginal)
{
    *m_copy = *m_original;
    const RVOpenManager& itself = *m_copy;
    *m_copy = itself;

    EXPECT_EQ(survivor().GetCurrentSnapShot()->GetName(), "CurrSnapshot");
}

INSTANTIATE_TEST_SUITE_P(Orders, ManagerCopyTest, ::testing::Bool(), [](const auto& each) {
    return std::string(each.param ? "CopyFirst" : "OriginalFirst");
});

TEST(RVOpenManagerTest, HasOneClipboardThatIsEmptyAtFirst)
{
    RVOpenManager manager;
    TemporaryItems* const items = manager.GetTemporaryItems();

    ASSERT_NE(items, nullptr);
    EXPECT_TRUE(items->IsEmpty());
    EXPECT_EQ(manager.GetTemporaryItems(), items);
}

} // namespace
} // namespace rvopen
