// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include <rvopen/RVOpenManager.h>

#include <rvopen/Background.h>
#include <rvopen/Colour.h>
#include <rvopen/RVOpenView.h>

#include "ManagerSupport.h"

#include <QDir>

#include <gtest/gtest.h>

#include <ostream>
#include <utility>
#include <vector>

namespace rvopen {
namespace {

using test::children;
using test::collectionNames;
using test::documentOf;
using test::load;
using test::namesIn;
using test::readFile;
using test::textOf;
using test::writeFile;
using test::xmlOf;

/// A manager over an installation and the two archive folders.
class ArchiveLookupTest : public ::testing::Test {
protected:
    /// Writes an archive into the product's folder and gives its full name.
    QString writeProduct(const QString& name, const QString& xml)
    {
        const QString path = m_folders.product() + QDir::separator() + name;
        test::writeFile(path, xml.toUtf8());
        m_folders.closeAtEnd(path);
        return path;
    }
    /// The same for the user's folder, where the name ends in ".rvx".
    QString writeCustom(const QString& name, const QString& xml)
    {
        return m_folders.write(QString(name).remove(".rvx"), xml);
    }
    void initialise()
    {
        m_manager.Initialise(3, 1, m_install.path());
    }

    static QString colours(const QStringList& refNames)
    {
        QString section = "<colours>";
        for (const QString& refName : refNames)
            section += QStringLiteral("<colour refname='%1'/>").arg(refName);
        return section + "</colours>";
    }
    static QString archive(const QString& content)
    {
        return "<archive>" + content + "</archive>";
    }
    /// The reference names of a section's children, separated by blanks.
    static QString refNamesIn(RVOpenNode* section)
    {
        QStringList names;
        if (!section)
            return "(no section)";
        for (const RVOpenNode* preset : children(section))
            names << preset->GetRefName();
        return names.join(QLatin1Char(' '));
    }
    QString chosenColours()
    {
        return refNamesIn(m_manager.GetRVOpenNodeFromType("colours", false));
    }
    QString defaultColours()
    {
        return refNamesIn(m_manager.GetRVOpenNodeFromType("colours", true));
    }
    /// The description of the preset that a look-up finds.
    QString found(const QString& type, const QString& subcat, const QString& refName)
    {
        const RVOpenNode* const preset = m_manager.FindRVOpenNodeFromType(type, subcat, refName);
        return preset ? preset->GetDescription() : QString("(none)");
    }

    test::ArchiveFolders m_folders;
    test::InstallFolder m_install;
    RVOpenManager m_manager;
};

// Choosing the archive

TEST_F(ArchiveLookupTest, ChoosesAnArchiveOfTheProductsFolder)
{
    writeProduct("Studio.rvx", "<archive name='product'/>");
    RVOpenNode* const root = m_manager.SetArchiveNode("Studio.rvx", "Zorvane");

    ASSERT_NE(root, nullptr);
    EXPECT_EQ(root->GetName(), "product");
}

TEST_F(ArchiveLookupTest, ChoosesAnArchiveOfTheUsersFolder)
{
    writeProduct("Studio.rvx", "<archive name='product'/>");
    writeCustom("Studio.rvx", "<archive name='custom'/>");
    RVOpenNode* const root = m_manager.SetArchiveNode("Studio.rvx", "Custom");

    ASSERT_NE(root, nullptr);
    EXPECT_EQ(root->GetName(), "custom");
}

TEST_F(ArchiveLookupTest, ChoosesAnArchiveInASubFolder)
{
    ASSERT_TRUE(QDir().mkpath(m_folders.product() + "/sub"));
    writeProduct("sub/Studio.rvx", "<archive name='sub'/>");
    const QString backslashed = m_folders.product() + QDir::separator() + "sub\\Studio.rvx";
    m_folders.closeAtEnd(backslashed);
    RVOpenNode* const root = m_manager.SetArchiveNode("sub\\Studio.rvx", "Zorvane");

    ASSERT_NE(root, nullptr);
    EXPECT_EQ(root->GetName(), "sub");
}

TEST_F(ArchiveLookupTest, TakesTheNameAsThePathForATypeWithoutAFolder)
{
    const QString path = writeCustom("Studio.rvx", "<archive name='custom'/>");
    RVOpenNode* const root = m_manager.SetArchiveNode(path, "Other");

    ASSERT_NE(root, nullptr);
    EXPECT_EQ(root->GetName(), "custom");
}

TEST_F(ArchiveLookupTest, GivesTheNodeOfTheRegistry)
{
    const QString path = writeProduct("Studio.rvx", "<archive/>");

    EXPECT_EQ(m_manager.SetArchiveNode("Studio.rvx", "Zorvane"),
              GetDirectoryHandler()->LoadArchive(path));
}

TEST_F(ArchiveLookupTest, GivesNullForAnArchiveThatCannotBeRead)
{
    writeProduct("Bad.rvx", "<archive>");

    EXPECT_EQ(m_manager.SetArchiveNode("Missing.rvx", "Zorvane"), nullptr);
    EXPECT_EQ(m_manager.SetArchiveNode("Bad.rvx", "Zorvane"), nullptr);
}

TEST_F(ArchiveLookupTest, RemembersTheTypeEvenOfAnArchiveThatCannotBeRead)
{
    m_manager.SetArchiveNode("Missing.rvx", "Custom");
    EXPECT_EQ(m_manager.GetArchiveType(), "Custom");
    m_manager.SetArchiveNode(QString(), "Other");
    EXPECT_EQ(m_manager.GetArchiveType(), "Other");
}

class ArchiveRecallTest : public ArchiveLookupTest,
                          public ::testing::WithParamInterface<const char*> {};

TEST_P(ArchiveRecallTest, AnEmptyNameOpensTheLastArchiveOfTheType)
{
    writeProduct("A.rvx", "<archive/>");
    writeCustom("A.rvx", "<archive/>");
    RVOpenNode* const root = m_manager.SetArchiveNode("A.rvx", GetParam());
    ASSERT_NE(root, nullptr);

    EXPECT_EQ(m_manager.SetArchiveNode(QString(), GetParam()), root);
}

TEST_P(ArchiveRecallTest, ALaterNameIsTheOneRecalled)
{
    writeProduct("A.rvx", "<archive/>");
    writeCustom("A.rvx", "<archive/>");
    writeProduct("B.rvx", "<archive name='later'/>");
    writeCustom("B.rvx", "<archive name='later'/>");
    m_manager.SetArchiveNode("A.rvx", GetParam());
    m_manager.SetArchiveNode("B.rvx", GetParam());
    RVOpenNode* const root = m_manager.SetArchiveNode(QString(), GetParam());

    ASSERT_NE(root, nullptr);
    EXPECT_EQ(root->GetName(), "later");
}

TEST_P(ArchiveRecallTest, TheOtherTypeHasANameOfItsOwn)
{
    const QString other = GetParam() == QLatin1String("Custom") ? "Zorvane" : "Custom";
    writeProduct("A.rvx", "<archive name='product'/>");
    writeCustom("B.rvx", "<archive name='custom'/>");
    m_manager.SetArchiveNode("A.rvx", "Zorvane");
    m_manager.SetArchiveNode("B.rvx", "Custom");
    m_manager.SetArchiveNode(QString(), other);
    RVOpenNode* const root = m_manager.SetArchiveNode(QString(), GetParam());

    ASSERT_NE(root, nullptr);
    EXPECT_EQ(root->GetName(), GetParam() == QLatin1String("Custom") ? "custom" : "product");
}

TEST_P(ArchiveRecallTest, NothingIsRecalledBeforeTheFirstName)
{
    EXPECT_EQ(m_manager.SetArchiveNode(QString(), GetParam()), nullptr);
}

INSTANTIATE_TEST_SUITE_P(All, ArchiveRecallTest, ::testing::Values("Zorvane", "Custom"),
                         [](const auto& type) { return std::string(type.param); });

TEST_F(ArchiveLookupTest, OtherTypesAreNotRemembered)
{
    const QString path = writeCustom("A.rvx", "<archive/>");
    m_manager.SetArchiveNode(path, "Other");

    EXPECT_EQ(m_manager.SetArchiveNode(QString(), "Other"), nullptr);
    EXPECT_EQ(m_manager.SetArchiveNode(QString(), "Custom"), nullptr);
}

// Sections

TEST_F(ArchiveLookupTest, FindsASectionOfTheChosenArchive)
{
    writeCustom("A.rvx", archive("<bumps/>" + colours({"red"})));
    m_manager.SetArchiveNode("A.rvx", "Custom");

    EXPECT_EQ(chosenColours(), "red");
}

TEST_F(ArchiveLookupTest, FindsASectionOfTheDefaultArchive)
{
    m_install.write("Default", archive("<bumps/>" + colours({"red"})));
    initialise();

    EXPECT_EQ(defaultColours(), "red");
}

TEST_F(ArchiveLookupTest, FindsTheFirstOfTwoSections)
{
    writeCustom("A.rvx", archive(colours({"first"}) + colours({"second"})));
    m_manager.SetArchiveNode("A.rvx", "Custom");

    EXPECT_EQ(chosenColours(), "first");
}

TEST_F(ArchiveLookupTest, FindsASectionByItsExactName)
{
    writeCustom("A.rvx", archive("<Colours/>"));
    m_manager.SetArchiveNode("A.rvx", "Custom");

    EXPECT_EQ(m_manager.GetRVOpenNodeFromType("colours", false), nullptr);
}

TEST_F(ArchiveLookupTest, FindsNoSectionBelowASection)
{
    writeCustom("A.rvx", archive("<dir>" + colours({"red"}) + "</dir>"));
    m_manager.SetArchiveNode("A.rvx", "Custom");

    EXPECT_EQ(m_manager.GetRVOpenNodeFromType("colours", false), nullptr);
}

TEST_F(ArchiveLookupTest, FindsNoSectionWithoutAnArchive)
{
    EXPECT_EQ(m_manager.GetRVOpenNodeFromType("colours", false), nullptr);
    EXPECT_EQ(m_manager.GetRVOpenNodeFromType("colours", true), nullptr);
}

TEST_F(ArchiveLookupTest, FindsNoChosenSectionAfterAnArchiveThatCannotBeRead)
{
    writeCustom("A.rvx", archive(colours({"red"})));
    m_manager.SetArchiveNode("A.rvx", "Custom");
    m_manager.SetArchiveNode("Missing.rvx", "Custom");

    EXPECT_EQ(m_manager.GetRVOpenNodeFromType("colours", false), nullptr);
}

TEST_F(ArchiveLookupTest, FindsNoSectionOfAnArchiveThatWasClosed)
{
    const QString path = writeCustom("A.rvx", archive(colours({"red"})));
    m_manager.SetArchiveNode("A.rvx", "Custom");
    GetDirectoryHandler()->CloseArchive(path);

    EXPECT_EQ(m_manager.GetRVOpenNodeFromType("colours", false), nullptr);
    EXPECT_EQ(m_manager.FindRVOpenNodeFromType("colours", QString(), "red"), nullptr);
}

TEST_F(ArchiveLookupTest, FindsASectionAgainOnceTheArchiveIsOpenedAgain)
{
    const QString path = writeCustom("A.rvx", archive(colours({"red"})));
    m_manager.SetArchiveNode("A.rvx", "Custom");
    test::reopenArchive(path);

    EXPECT_EQ(chosenColours(), "red");
}

// Extra archives

TEST_F(ArchiveLookupTest, AnEarlierPresetIsFoundOnceAnotherObjectOfItGetsTheReferenceName)
{
    writeCustom("Studio.rvx", archive("<colours><colour refname='x' desc='first'/>"
                                      "<colour refname='y' desc='second'/>"
                                      "<colour refname='z' desc='third'/></colours>"));
    m_manager.SetArchiveNode("Studio.rvx", "Custom");
    for (const char* const refName : {"z", "y", "x", "z", "y", "x", "z"})
        EXPECT_NE(found("colours", "", refName), "(none)");
    const RVOpenNode* const section = m_manager.GetRVOpenNodeFromType("colours", false);
    const RVOpenView<Colour> other(section->GetDomNode().firstChildElement());
    other->SetRefName("z");

    EXPECT_EQ(found("colours", "", "z"), "first");
    EXPECT_EQ(found("colours", "", "x"), "(none)");
}

class ExtraArchiveTest : public ArchiveLookupTest {
protected:
    ExtraArchiveTest()
    {
        m_install.write("Default", archive(colours({"default"})));
        m_install.write("Product_extra", archive("<bumps/>" + colours({"p1", "p2"})));
        m_install.write("Architectural_extra", archive(colours({"arch"})));
        initialise();
    }

    void choose(const QString& name, const char* type = "Zorvane")
    {
        writeProduct(name, archive(colours({"own"})));
        writeCustom(name, archive(colours({"own"})));
        m_manager.SetArchiveNode(name, type);
    }
};

/// Which extra archive goes into the chosen archive of a name.
struct Merge {
    const char* label;
    const char* name;
    const char* type;
    const char* colours;
};

void PrintTo(const Merge& merge, std::ostream* out)
{
    *out << merge.name;
}

class ExtraArchiveMergeTest : public ExtraArchiveTest,
                              public ::testing::WithParamInterface<Merge> {};

TEST_P(ExtraArchiveMergeTest, DependsOnTheNameOfTheChosenArchive)
{
    choose(GetParam().name, GetParam().type);
    EXPECT_EQ(chosenColours(), GetParam().colours);
}

INSTANTIATE_TEST_SUITE_P(
    All, ExtraArchiveMergeTest,
    ::testing::Values(Merge{"Product", "Product.rvx", "Zorvane", "own p1 p2"},
                      Merge{"ProductWithin", "My Product 2.rvx", "Zorvane", "own p1 p2"},
                      Merge{"Architectural", "Architectural.rvx", "Zorvane", "own arch"},
                      Merge{"Both", "ArchitecturalProduct.rvx", "Zorvane", "own p1 p2"},
                      Merge{"Neither", "Studio.rvx", "Zorvane", "own"},
                      Merge{"OtherCase", "product.rvx", "Zorvane", "own"},
                      Merge{"OtherType", "Product.rvx", "Custom", "own"}),
    [](const auto& merge) { return std::string(merge.param.label); });

TEST_F(ExtraArchiveTest, IsTheArchitecturalOneForBothNamesWhenTheProductOneIsMissing)
{
    RVOpenManager manager;
    QFile::remove(m_install.archive("Product_extra"));
    manager.Initialise(3, 1, m_install.path());
    writeProduct("ArchitecturalProduct.rvx", archive(colours({"own"})));
    manager.SetArchiveNode("ArchitecturalProduct.rvx", "Zorvane");

    EXPECT_EQ(refNamesIn(manager.GetRVOpenNodeFromType("colours", false)), "own arch");
}

TEST_F(ExtraArchiveTest, IsNoneWhenTheOneOfTheNameIsMissing)
{
    RVOpenManager manager;
    QFile::remove(m_install.archive("Architectural_extra"));
    manager.Initialise(3, 1, m_install.path());
    writeProduct("Architectural.rvx", archive(colours({"own"})));
    manager.SetArchiveNode("Architectural.rvx", "Zorvane");

    EXPECT_EQ(refNamesIn(manager.GetRVOpenNodeFromType("colours", false)), "own");
}

TEST_F(ExtraArchiveTest, IsMergedOnce)
{
    choose("Product.rvx");
    chosenColours();

    EXPECT_EQ(chosenColours(), "own p1 p2");
}

TEST_F(ExtraArchiveTest, IsMergedOnceEvenWithAnotherArchiveChosen)
{
    choose("Product.rvx");
    chosenColours();
    choose("Product 2.rvx");

    EXPECT_EQ(chosenColours(), "own");
}

TEST_F(ExtraArchiveTest, IsMergedIntoTheDefaultArchiveWhenThatIsAskedFirst)
{
    choose("Product.rvx");

    EXPECT_EQ(defaultColours(), "default p1 p2");
    EXPECT_EQ(chosenColours(), "own");
}

TEST_F(ExtraArchiveTest, IsMergedIntoTheDocumentOfTheArchive)
{
    choose("Product.rvx");
    RVOpenNode* const section = m_manager.GetRVOpenNodeFromType("colours", false);

    EXPECT_EQ(xmlOf(section->GetDomNode()),
              xmlOf(colours({"own", "p1", "p2"}).toUtf8().constData()));
    for (const RVOpenNode* preset : children(section)) {
        EXPECT_EQ(preset->GetDomNode().ownerDocument(), section->GetDomNode().ownerDocument());
    }
}

TEST_F(ExtraArchiveTest, IsMergedSoThatTheArchiveCanBeSavedWithIt)
{
    choose("Product.rvx");
    chosenColours();
    const QString path = m_folders.product() + QDir::separator() + "Product.rvx";

    EXPECT_TRUE(GetDirectoryHandler()->SaveArchive(path));
    EXPECT_EQ(xmlOf(test::parse(readFile(path))),
              xmlOf(archive(colours({"own", "p1", "p2"})).toUtf8().constData()));
}

TEST_F(ExtraArchiveTest, KeepsItsFile)
{
    const QByteArray before = readFile(m_install.archive("Product_extra"));
    choose("Product.rvx");
    chosenColours();

    EXPECT_EQ(readFile(m_install.archive("Product_extra")), before);
}

TEST_F(ExtraArchiveTest, IsMetByAWalkThatHadComeToTheEnd)
{
    const QString path = writeProduct("Product.rvx", archive(colours({"own"})));
    RVOpenNode* const root = GetDirectoryHandler()->LoadArchive(path);
    RVOpenNode* const own = root->GetChild(1, 1)->GetChild(1, 1);
    ASSERT_EQ(own->GetNext(1), nullptr);
    m_manager.SetArchiveNode("Product.rvx", "Zorvane");
    chosenColours();

    ASSERT_NE(own->GetNext(1), nullptr);
    EXPECT_EQ(own->GetNext(1)->GetRefName(), "p1");
}

TEST_F(ExtraArchiveTest, GoesByTheRememberedNameAfterAnEmptyOne)
{
    choose("Product.rvx");
    m_manager.SetArchiveNode(QString(), "Zorvane");

    EXPECT_EQ(chosenColours(), "own p1 p2");
}

TEST_F(ExtraArchiveTest, LeavesSectionsThatItLacks)
{
    writeProduct("Product.rvx", archive("<finishes><finish refname='own'/></finishes>"));
    m_manager.SetArchiveNode("Product.rvx", "Zorvane");

    EXPECT_EQ(refNamesIn(m_manager.GetRVOpenNodeFromType("finishes", false)), "own");
}

TEST_F(ExtraArchiveTest, GivesNothingForASectionThatTheBaseLacks)
{
    writeProduct("Product.rvx", archive("<finishes/>"));
    m_manager.SetArchiveNode("Product.rvx", "Zorvane");

    EXPECT_EQ(m_manager.GetRVOpenNodeFromType("colours", false), nullptr);
}

TEST_F(ExtraArchiveTest, StaysUnmergedWhenTheBaseLacksTheSection)
{
    writeProduct("Product.rvx", archive("<finishes/>"));
    m_manager.SetArchiveNode("Product.rvx", "Zorvane");
    m_manager.GetRVOpenNodeFromType("colours", false);
    choose("Product 2.rvx");

    EXPECT_EQ(chosenColours(), "own p1 p2");
}

TEST_F(ExtraArchiveTest, BringsPresetsThatALookUpFinds)
{
    choose("Product.rvx");

    ASSERT_NE(m_manager.FindRVOpenNodeFromType("colours", QString(), "p2"), nullptr);
}

// Presets

TEST_F(ArchiveLookupTest, FindsAPresetInTheChosenArchiveFirst)
{
    m_install.write("Default",
                    archive("<colours><colour refname='red' desc='default'/></colours>"));
    initialise();
    writeCustom("A.rvx", archive("<colours><colour refname='red' desc='chosen'/></colours>"));
    m_manager.SetArchiveNode("A.rvx", "Custom");

    EXPECT_EQ(found("colours", QString(), "red"), "chosen");
}

TEST_F(ArchiveLookupTest, FindsAPresetInTheDefaultArchiveWhenTheChosenOneLacksIt)
{
    m_install.write("Default",
                    archive("<colours><colour refname='red' desc='default'/></colours>"));
    initialise();
    writeCustom("A.rvx", archive("<colours><colour refname='blue' desc='chosen'/></colours>"));
    m_manager.SetArchiveNode("A.rvx", "Custom");

    EXPECT_EQ(found("colours", QString(), "red"), "default");
}

TEST_F(ArchiveLookupTest, FindsAPresetInTheDefaultArchiveWhenTheChosenOneLacksTheSection)
{
    m_install.write("Default",
                    archive("<colours><colour refname='red' desc='default'/></colours>"));
    initialise();
    writeCustom("A.rvx", archive("<bumps/>"));
    m_manager.SetArchiveNode("A.rvx", "Custom");

    EXPECT_EQ(found("colours", QString(), "red"), "default");
}

TEST_F(ArchiveLookupTest, FindsAPresetInTheDefaultArchiveWhenNoneIsChosen)
{
    m_install.write("Default",
                    archive("<colours><colour refname='red' desc='default'/></colours>"));
    initialise();

    EXPECT_EQ(found("colours", QString(), "red"), "default");
}

TEST_F(ArchiveLookupTest, FindsAPresetInTheDefaultArchiveAloneAfterAnArchiveThatCannotBeRead)
{
    m_install.write("Default",
                    archive("<colours><colour refname='red' desc='default'/></colours>"));
    initialise();
    writeCustom("A.rvx", archive("<colours><colour refname='red' desc='chosen'/>"
                                 "<colour refname='blue' desc='chosen'/></colours>"));
    m_manager.SetArchiveNode("A.rvx", "Custom");
    m_manager.SetArchiveNode("Missing.rvx", "Custom");

    EXPECT_EQ(found("colours", QString(), "red"), "default");
    EXPECT_EQ(found("colours", QString(), "blue"), "(none)");
}

TEST_F(ArchiveLookupTest, FindsNoPresetThatNeitherArchiveHas)
{
    m_install.write("Default", archive(colours({"red"})));
    initialise();
    writeCustom("A.rvx", archive(colours({"blue"})));
    m_manager.SetArchiveNode("A.rvx", "Custom");

    EXPECT_EQ(m_manager.FindRVOpenNodeFromType("colours", QString(), "green"), nullptr);
    EXPECT_EQ(m_manager.FindRVOpenNodeFromType("colours", "other", "red"), nullptr);
    EXPECT_EQ(m_manager.FindRVOpenNodeFromType("bumps", QString(), "red"), nullptr);
}

TEST_F(ArchiveLookupTest, GivesATypedPreset)
{
    writeCustom("A.rvx", archive("<colours><colour refname='red'/></colours>"));
    m_manager.SetArchiveNode("A.rvx", "Custom");

    EXPECT_NE(dynamic_cast<Colour*>(m_manager.FindRVOpenNodeFromType("colours", QString(), "red")),
              nullptr);
}

/// A look-up in one section.
struct LookUp {
    const char* label;
    const char* section;
    const char* subcat;
    const char* refName;
    const char* found;
};

void PrintTo(const LookUp& lookUp, std::ostream* out)
{
    *out << lookUp.label;
}

class PresetLookUpTest : public ArchiveLookupTest, public ::testing::WithParamInterface<LookUp> {};

TEST_P(PresetLookUpTest, FindsThePreset)
{
    writeCustom("A.rvx", archive(QStringLiteral("<materials refname='section' subcat='S'>%1"
                                                "</materials><colours/>")
                                     .arg(GetParam().section)));
    m_manager.SetArchiveNode("A.rvx", "Custom");

    EXPECT_EQ(found("materials", GetParam().subcat, GetParam().refName), GetParam().found);
}

INSTANTIATE_TEST_SUITE_P(
    All, PresetLookUpTest,
    ::testing::Values(
        LookUp{"Nothing", "<material refname='other'/>", "", "x", "(none)"},
        LookUp{"ByWholeName", "<material refname='xy'/><material refname='X'/>", "", "x", "(none)"},
        LookUp{"ByReferenceNameAlone", "<material name='x'/>", "", "x", "(none)"},
        LookUp{"NotTheSectionItself", "", "", "section", "(none)"},
        LookUp{"FirstOfTwo", "<material refname='x' desc='1'/><material refname='x' desc='2'/>", "",
               "x", "1"},
        LookUp{"OfTheSubCategory",
               "<material refname='x' subcat='A' desc='1'/>"
               "<material refname='x' subcat='B' desc='2'/>",
               "B", "x", "2"},
        LookUp{"OfTheSubCategoryWritten",
               "<material refname='x' subcat='b' desc='1'/><material refname='x' desc='2'/>", "B",
               "x", "(none)"},
        LookUp{"OfAnySubCategory", "<material refname='x' subcat='A' desc='1'/>", "", "x", "1"},
        LookUp{"InAFolder", "<dir><dir><material refname='x' desc='1'/></dir></dir>", "", "x", "1"},
        LookUp{"InAFolderBeforeALaterSibling",
               "<dir><material refname='x' desc='inner'/></dir>"
               "<material refname='x' desc='later'/>",
               "", "x", "inner"},
        LookUp{"BeforeItsOwnDescendants",
               "<material refname='x' desc='outer'><material refname='x' desc='inner'/>"
               "</material>",
               "", "x", "outer"},
        LookUp{"BelowOneOfAnotherSubCategory",
               "<material refname='x' subcat='A' desc='outer'>"
               "<material refname='x' subcat='B' desc='inner'/></material>",
               "B", "x", "inner"},
        LookUp{"AfterAFolderWithoutIt",
               "<dir><material refname='y'/></dir><material refname='x' desc='1'/>", "", "x", "1"}),
    [](const auto& lookUp) { return std::string(lookUp.param.label); });

TEST_F(ArchiveLookupTest, FindsAPresetInAnArchiveThatTheSectionRefersTo)
{
    writeCustom("Inner.rvx", "<materials><material refname='x' desc='inner'/></materials>");
    writeCustom("A.rvx", archive("<materials><dir archiveFilename='Inner' archiveType='Custom'/>"
                                 "</materials>"));
    m_manager.SetArchiveNode("A.rvx", "Custom");

    EXPECT_EQ(found("materials", QString(), "x"), "inner");
}

TEST_F(ArchiveLookupTest, FindsAPresetBehindAReferenceToAnArchiveThatCannotBeRead)
{
    m_folders.full("Missing");
    writeCustom("A.rvx", archive("<materials><dir archiveFilename='Missing' archiveType='Custom'/>"
                                 "<material refname='x' desc='1'/></materials>"));
    m_manager.SetArchiveNode("A.rvx", "Custom");

    EXPECT_EQ(found("materials", QString(), "x"), "1");
}

/// Archives that refer to each other: a look-up must come to an end.
class ArchiveCircleTest : public ArchiveLookupTest {
protected:
    void SetUp() override
    {
        writeCustom("A.rvx", archive("<materials><dir archiveFilename='B' archiveType='Custom'/>"
                                     "<material refname='x' desc='in A'/></materials>"));
        writeCustom("B.rvx", "<materials><dir archiveFilename='A' archiveType='Custom'/>"
                             "<material refname='y' desc='in B'/></materials>");
        m_manager.SetArchiveNode("A.rvx", "Custom");
    }
};

TEST_F(ArchiveCircleTest, EndsWithoutAPreset)
{
    EXPECT_EQ(found("materials", QString(), "missing"), "(none)");
}

TEST_F(ArchiveCircleTest, FindsThePresetsOfBoth)
{
    EXPECT_EQ(found("materials", QString(), "x"), "in A");
    EXPECT_EQ(found("materials", QString(), "y"), "in B");
}

TEST_F(ArchiveLookupTest, EndsForAnArchiveThatRefersToItself)
{
    writeCustom("A.rvx", archive("<materials><dir archiveFilename='A' archiveType='Custom'/>"
                                 "<material refname='x' desc='1'/></materials>"));
    m_manager.SetArchiveNode("A.rvx", "Custom");

    EXPECT_EQ(found("materials", QString(), "missing"), "(none)");
    EXPECT_EQ(found("materials", QString(), "x"), "1");
}

// Through all archives

class AllArchivesTest : public ArchiveLookupTest {
protected:
    static QString inFirst(const QString& refName, const QString& place)
    {
        return QStringLiteral("<archive><materials><x/><material refname='%1' subcat='%2s' "
                              "desc='%2'/></materials></archive>")
            .arg(refName, place);
    }
    QString foundInAll(const QString& refName, const QString& subcat = QString())
    {
        const RVOpenNode* const preset =
            m_manager.FindRVOpenNodeInAllArchives("materials", subcat, refName);
        return preset ? preset->GetDescription() : QString("(none)");
    }
};

TEST_F(AllArchivesTest, AreSearchedInTheirOrder)
{
    // A name that an archive has, all later ones have, too.
    const auto archiveOf = [](int place) {
        QString presets;
        for (int name = 0; name <= place; ++name)
            presets += QStringLiteral("<material refname='%1' subcat='s%2' desc='%2'/>")
                           .arg(name)
                           .arg(place);
        return "<archive><materials><x/>" + presets + "</materials></archive>";
    };
    writeProduct("Chosen.rvx", archiveOf(0));
    m_install.write("Default", archiveOf(1));
    m_install.write("Product_extra", archiveOf(2));
    m_install.write("Architectural_extra", archiveOf(3));
    writeCustom("B.rvx", archiveOf(5));
    writeCustom("A.rvx", archiveOf(4));
    writeProduct("P.rvx", archiveOf(6));
    initialise();
    m_manager.SetArchiveNode("Chosen.rvx", "Zorvane");

    for (int name = 0; name < 7; ++name)
        EXPECT_EQ(foundInAll(QString::number(name)), QString::number(name));
    EXPECT_EQ(foundInAll("0", "s6"), "6");
    EXPECT_EQ(foundInAll("0", "elsewhere"), "(none)");
    EXPECT_EQ(foundInAll("7"), "(none)");
}

TEST_F(AllArchivesTest, AreOpenedOnlyWhereTheyHaveTheName)
{
    const QString with = writeCustom("With.rvx", inFirst("a &amp; b", "with"));
    const QString without = writeCustom("Without.rvx", inFirst("a", "without"));
    const QString inText = writeCustom("Text.rvx", "<archive>refname='a &amp; b'</archive>");
    writeFile(m_folders.custom() + "/Bad.rvx", "<archive><material refname='a &amp; b'>");
    writeFile(m_folders.custom() + "/With.xml", inFirst("c", "no archive").toUtf8());

    EXPECT_EQ(foundInAll("a & b"), "with");
    EXPECT_EQ(foundInAll("c"), "(none)");
    EXPECT_TRUE(GetDirectoryHandler()->IsArchiveOpen(with));
    EXPECT_FALSE(GetDirectoryHandler()->IsArchiveOpen(without));
    EXPECT_FALSE(GetDirectoryHandler()->IsArchiveOpen(inText));
}

TEST_F(AllArchivesTest, AreSearchedAsTheyAreInMemory)
{
    const QString file = writeCustom("A.rvx", inFirst("x", "a"));
    RVOpenNode* const root = GetDirectoryHandler()->LoadArchive(file);
    root->GetChild(1, 1)->GetChild(1, 1)->GetNext(1)->SetRefName("new");

    EXPECT_EQ(foundInAll("new"), "a");
    EXPECT_EQ(foundInAll("x"), "(none)");
    EXPECT_EQ(m_manager.FindRVOpenNodeInAllArchives("colours", QString(), "new"), nullptr);
}

TEST_F(AllArchivesTest, AreNoneWithoutFolders)
{
    writeCustom("A.rvx", inFirst("x", "a"));
    EXPECT_EQ(foundInAll("x"), "a");
    GetDirectoryHandler()->SetCustomArchivesFolder(QString());
    EXPECT_EQ(foundInAll("x"), "(none)");
}

// Names of new snapshots

/// A collection and the type that selects it.
struct Naming {
    const char* label;
    int type;
    const char* collection;
};

void PrintTo(const Naming& naming, std::ostream* out)
{
    *out << naming.label;
}

SnapShots::SnapShotType typeOf(int number)
{
    return static_cast<SnapShots::SnapShotType>(number);
}

const char s_allCollections[] = "<snapRoot><snapshots name='Model SnapShots'/>"
                                "<snapshots name='Model Material Palettes'/>"
                                "<snapshots name='Model Backgrounds'/>"
                                "<snapshots name='Model Cameras'/></snapRoot>";

class NextNameTest : public ::testing::TestWithParam<Naming> {
protected:
    /// Loads a document where only the collection of the type has the snapshots.
    void loadWith(const QString& snapShots)
    {
        const QString empty = QStringLiteral("name='%1'/>").arg(GetParam().collection);
        const QString filled =
            QStringLiteral("name='%1'>%2</snapshots>").arg(GetParam().collection, snapShots);
        load(m_manager, QString(s_allCollections).replace(empty, filled));
    }
    QString next()
    {
        return m_manager.GetNextSnapShotName("Shot", typeOf(GetParam().type));
    }

    RVOpenManager m_manager;
};

TEST_P(NextNameTest, StartsAtOneAndRises)
{
    EXPECT_EQ(next(), "Shot1");
    EXPECT_EQ(next(), "Shot2");
    EXPECT_EQ(next(), "Shot3");
}

TEST_P(NextNameTest, PassesOverNamesOfTheCollection)
{
    loadWith("<snapshot name='Shot2'/><snapshot name='other'/><snapshot name='Shot1'/>");

    EXPECT_EQ(next(), "Shot3");
}

TEST_P(NextNameTest, ComparesWholeNames)
{
    loadWith("<snapshot name='Shot1 '/><snapshot name='shot1'/><snapshot name='Shot12'/>");

    EXPECT_EQ(next(), "Shot1");
}

TEST_P(NextNameTest, TakesAFreeNameBetweenTakenOnes)
{
    loadWith("<snapshot name='Shot4'/><snapshot name='Shot1'/><snapshot name='Shot1'/>"
             "<snapshot name='Shot2'/>");

    EXPECT_EQ(next(), "Shot3");
    EXPECT_EQ(next(), "Shot5");
}

TEST_P(NextNameTest, TakesNumbersWrittenOtherwiseForOtherNames)
{
    loadWith("<snapshot name='Shot01'/><snapshot name='Shot+1'/><snapshot name='Shot 1'/>"
             "<snapshot name='Shot0'/><snapshot name='Shot'/><snapshot name='Shot-1'/>"
             "<snapshot name='Shot4294967297'/><snapshot name='Shot18446744073709551617'/>"
             "<snapshot name='Shot\u0661'/><snapshot name='Shot2147483647'/>");

    EXPECT_EQ(next(), "Shot1");
}

TEST_P(NextNameTest, FindsNumbersBehindABaseThatEndsInOne)
{
    loadWith("<snapshot name='Take 21'/><snapshot name='1'/>");

    EXPECT_EQ(m_manager.GetNextSnapShotName("Take 2", typeOf(GetParam().type)), "Take 22");
    EXPECT_EQ(m_manager.GetNextSnapShotName("", typeOf(GetParam().type)), "3");
}

TEST_P(NextNameTest, KeepsRisingWithANewDocument)
{
    next();
    m_manager.ClearSnapShotDoc();
    m_manager.InitialiseSnapShotDoc();
    EXPECT_EQ(next(), "Shot2");
    loadWith(QString());
    EXPECT_EQ(next(), "Shot3");
}

TEST_P(NextNameTest, HasACounterOfItsOwn)
{
    const int own = GetParam().type > 3 || GetParam().type < 0 ? 0 : GetParam().type;
    for (int other = 0; other < 4; ++other) {
        if (other != own)
            m_manager.GetNextSnapShotName("Shot", typeOf(other));
    }
    EXPECT_EQ(next(), "Shot1");
}

TEST_P(NextNameTest, SharesTheCounterBetweenBaseNames)
{
    next();
    EXPECT_EQ(m_manager.GetNextSnapShotName("Other", typeOf(GetParam().type)), "Other2");
}

TEST_P(NextNameTest, PassesOverNamesOfSnapShotsAddedMeanwhile)
{
    loadWith(QString());
    SnapShots* collection = m_manager.GetSnapShots();
    if (GetParam().type == SnapShots::TypeMaterialPalettes)
        collection = m_manager.GetSnapShotsMaterialRepositories();
    else if (GetParam().type == SnapShots::TypeBackgrounds)
        collection = m_manager.GetSnapShotsBackgrounds();
    else if (GetParam().type == SnapShots::TypeCameras)
        collection = m_manager.GetSnapShotsCameras();
    SnapShot* const added = collection->CreateSnapShot(nullptr);
    added->SetName("Shot1");
    collection->AddNode(added, true);

    EXPECT_EQ(next(), "Shot2");
}

TEST_P(NextNameTest, DoesNotChangeTheDocument)
{
    loadWith("<snapshot name='Shot1'/>");
    const QString before = textOf(m_manager);
    next();

    EXPECT_EQ(textOf(m_manager), before);
}

TEST_P(NextNameTest, NeedsNoDocument)
{
    m_manager.ClearSnapShotDoc();

    EXPECT_EQ(next(), "Shot1");
}

INSTANTIATE_TEST_SUITE_P(All, NextNameTest,
                         ::testing::Values(Naming{"SnapShots", 0, "Model SnapShots"},
                                           Naming{"Palettes", 1, "Model Material Palettes"},
                                           Naming{"Backgrounds", 2, "Model Backgrounds"},
                                           Naming{"Cameras", 3, "Model Cameras"},
                                           Naming{"Unknown", 4, "Model SnapShots"},
                                           Naming{"Negative", -1, "Model SnapShots"}),
                         [](const auto& naming) { return std::string(naming.param.label); });

TEST(ArchiveNamingTest, AnUnknownTypeSharesTheCounterOfTheSnapShots)
{
    RVOpenManager manager;
    manager.GetNextSnapShotName("Shot", SnapShots::TypeSnapShots);

    EXPECT_EQ(manager.GetNextSnapShotName("Shot", typeOf(99)), "Shot2");
}

// Collections on demand

struct OnDemand {
    const char* label;
    const char* name;
    SnapShots* (RVOpenManager::*get)();
};

void PrintTo(const OnDemand& collection, std::ostream* out)
{
    *out << collection.label;
}

class OnDemandCollectionTest : public ::testing::TestWithParam<OnDemand> {
protected:
    SnapShots* get()
    {
        return (m_manager.*GetParam().get)();
    }

    RVOpenManager m_manager;
};

TEST_P(OnDemandCollectionTest, IsNotThereBeforeItIsAskedFor)
{
    EXPECT_EQ(collectionNames(documentOf(m_manager)), QStringList("Model SnapShots"));
}

TEST_P(OnDemandCollectionTest, IsAppendedToTheRoot)
{
    load(m_manager, "<snapRoot><snapshots name='Model SnapShots'/><other/></snapRoot>");
    get();

    EXPECT_EQ(textOf(m_manager),
              xmlOf(QStringLiteral("<snapRoot><snapshots name='Model SnapShots'/><other/>"
                                   "<snapshots name='%1'/></snapRoot>")
                        .arg(GetParam().name)
                        .toUtf8()
                        .constData()));
}

TEST_P(OnDemandCollectionTest, IsBoundToItsElement)
{
    ASSERT_NE(get(), nullptr);
    EXPECT_EQ(get()->GetName(), GetParam().name);
}

TEST_P(OnDemandCollectionTest, IsMadeOnce)
{
    SnapShots* const first = get();

    EXPECT_EQ(get(), first);
    EXPECT_EQ(collectionNames(documentOf(m_manager)),
              QStringList({"Model SnapShots", GetParam().name}));
}

TEST_P(OnDemandCollectionTest, TakesSnapShots)
{
    get()->AddNode(get()->CreateSnapShot(nullptr), true);

    EXPECT_NE(get()->GetFirstSnapShot(), nullptr);
    EXPECT_TRUE(test::mirrorsWholeDom(get()));
}

TEST_P(OnDemandCollectionTest, IsGoneWithANewDocument)
{
    get();
    m_manager.ClearSnapShotDoc();
    m_manager.InitialiseSnapShotDoc();
    EXPECT_EQ(collectionNames(documentOf(m_manager)), QStringList("Model SnapShots"));

    get();
    EXPECT_EQ(collectionNames(documentOf(m_manager)),
              QStringList({"Model SnapShots", GetParam().name}));
}

TEST_P(OnDemandCollectionTest, IsNullWithoutADocument)
{
    m_manager.ClearSnapShotDoc();

    EXPECT_EQ(get(), nullptr);
}

INSTANTIATE_TEST_SUITE_P(
    All, OnDemandCollectionTest,
    ::testing::Values(OnDemand{"Backgrounds", "Model Backgrounds",
                               &RVOpenManager::GetSnapShotsBackgrounds},
                      OnDemand{"Cameras", "Model Cameras", &RVOpenManager::GetSnapShotsCameras},
                      OnDemand{"Palettes", "Model Material Palettes",
                               &RVOpenManager::GetSnapShotsMaterialRepositories},
                      OnDemand{"Temporary", "Temp SnapShots", &RVOpenManager::GetTempSnapShots}),
    [](const auto& collection) { return std::string(collection.param.label); });

// The original background

TEST(OriginalBackgroundTest, IsAHorizonByDefault)
{
    RVOpenManager manager;
    load(manager, "<snapRoot><other/></snapRoot>");
    manager.GetOriginalBackground();

    EXPECT_EQ(textOf(manager),
              xmlOf("<snapRoot><other/><background subcat='Horizon'>"
                    "<param name='Sky Colour' type='colour' val='1 1 1'/>"
                    "<param name='Horizon Sky Colour' type='colour' val='1 1 1'/>"
                    "<param name='Horizon Ground Colour' type='colour' val='1 1 1'/>"
                    "<param name='Ground Colour' type='colour' val='1 1 1'/>"
                    "</background></snapRoot>"));
}

TEST(OriginalBackgroundTest, IsMadeOnce)
{
    RVOpenManager manager;
    Background* const first = manager.GetOriginalBackground();
    const QString before = textOf(manager);

    EXPECT_EQ(manager.GetOriginalBackground(), first);
    EXPECT_EQ(textOf(manager), before);
}

TEST(OriginalBackgroundTest, IsTheOneThatWasLoaded)
{
    RVOpenManager manager;
    load(manager, "<snapRoot><background subcat='Plain'/></snapRoot>");

    EXPECT_EQ(manager.GetOriginalBackground()->GetSubCat(), "Plain");
    EXPECT_EQ(textOf(manager), xmlOf("<snapRoot><background subcat='Plain'/></snapRoot>"));
}

TEST(OriginalBackgroundTest, IsMadeAnewForANewDocument)
{
    RVOpenManager manager;
    load(manager, "<snapRoot><background subcat='Plain'/></snapRoot>");
    manager.ClearSnapShotDoc();
    manager.InitialiseSnapShotDoc();

    EXPECT_EQ(manager.GetOriginalBackground()->GetSubCat(), "Horizon");
}

TEST(OriginalBackgroundTest, CanBeReadAndChanged)
{
    RVOpenManager manager;
    float sky[3] = {0.0f, 0.5f, 1.0f};
    manager.GetOriginalBackground()->SetSkyColour(sky);

    EXPECT_EQ(test::paramValue(documentOf(manager).documentElement().lastChild(), "Sky Colour"),
              "0 0.5 1");
}

} // namespace
} // namespace rvopen
