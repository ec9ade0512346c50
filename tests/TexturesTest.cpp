// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include <rvopen/RVOpenManager.h>

#include <rvopen/Background.h>
#include <rvopen/Camera.h>
#include <rvopen/Material.h>
#include <rvopen/MaterialRepository.h>
#include <rvopen/SnapShotSettings.h>

#include "ManagerSupport.h"

#include <gtest/gtest.h>

#include <memory>
#include <ostream>

namespace rvopen {
namespace {

using test::create;
using test::load;
using test::parse;
using test::textOf;
using test::xmlOf;

QString mapOf(const QString& texture)
{
    return QStringLiteral("<param name='Colour' type='shader' val='colour'><map enabled='1'>"
                          "<param name='Texture' type='string' val='%1'/></map></param>")
        .arg(texture);
}

QString colourOf(const QString& texture)
{
    return "<colour><diffuse>" + mapOf(texture) + "</diffuse></colour>";
}

QString bumpOf(const QString& texture)
{
    return "<bump>" + mapOf(texture) + "</bump>";
}

QString backgroundOf(const QString& subcat, const QString& file)
{
    return QStringLiteral("<background subcat='%1'>"
                          "<param name='File Name' type='string' val='%2'/></background>")
        .arg(subcat, file);
}

QString settingsOf(const QString& path)
{
    return QStringLiteral("<snapShotSettings>"
                          "<param name='Reflected Env Path' type='string' val='%1'/>"
                          "<param name='Reflected Env Intensity' type='float' val='0.25'/>"
                          "</snapShotSettings>")
        .arg(path);
}

/// The textures of a tree and the tree after its paths were stripped.
class TexturesTest : public ::testing::Test {
protected:
    QStringList texturesOf(const QString& xml)
    {
        m_document = parse(xml);
        m_node = create(m_document.documentElement());
        QStringList textures;
        m_manager.FindRVOpenNodeTextures(m_node.get(), textures);
        return textures;
    }
    QString stripped(const QString& xml)
    {
        m_document = parse(xml);
        m_node = create(m_document.documentElement());
        m_manager.StripTexturePaths(m_node.get());
        return xmlOf(m_document);
    }
    static QString text(const QString& xml)
    {
        return xmlOf(parse(xml));
    }

    RVOpenManager m_manager;
    QDomDocument m_document;
    std::unique_ptr<RVOpenNode> m_node;
};

// The list

TEST_F(TexturesTest, ATreeWithoutImagesLeavesTheListAsItWas)
{
    const QDomDocument document = parse("<snapshot><camera/></snapshot>");
    const auto node = create(document.documentElement());
    QStringList textures = {"a.jpg", "b.jpg"};

    EXPECT_EQ(m_manager.FindRVOpenNodeTextures(node.get(), textures), 2);
    EXPECT_EQ(textures, QStringList({"a.jpg", "b.jpg"}));
}

TEST_F(TexturesTest, TheCountIsThatOfTheWholeList)
{
    const QDomDocument document = parse(backgroundOf("Image", "c.jpg"));
    const auto node = create(document.documentElement());
    QStringList textures = {"a.jpg", "b.jpg"};

    EXPECT_EQ(m_manager.FindRVOpenNodeTextures(node.get(), textures), 3);
    EXPECT_EQ(textures, QStringList({"a.jpg", "b.jpg", "c.jpg"}));
}

TEST_F(TexturesTest, TheSameImageTwiceIsListedTwice)
{
    EXPECT_EQ(texturesOf("<material>" + colourOf("a.jpg") + bumpOf("a.jpg") + "</material>"),
              QStringList({"a.jpg", "a.jpg"}));
}

TEST_F(TexturesTest, PathsAreListedAsTheyStand)
{
    EXPECT_EQ(texturesOf(backgroundOf("Image", "C:\\no such/folder\\sky.JPG")),
              QStringList("C:\\no such/folder\\sky.JPG"));
}

/// A tree with its images.
struct Tree {
    const char* label;
    QString xml;
    QStringList textures;
    QString stripped;
};

void PrintTo(const Tree& tree, std::ostream* out)
{
    *out << tree.label;
}

class TextureTreeTest : public TexturesTest, public ::testing::WithParamInterface<Tree> {};

TEST_P(TextureTreeTest, HasItsImagesListed)
{
    EXPECT_EQ(texturesOf(GetParam().xml), GetParam().textures);
}

TEST_P(TextureTreeTest, IsNotChangedByBeingListed)
{
    texturesOf(GetParam().xml);

    EXPECT_EQ(xmlOf(m_document), text(GetParam().xml));
}

TEST_P(TextureTreeTest, HasItsPathsStripped)
{
    EXPECT_EQ(stripped(GetParam().xml), text(GetParam().stripped));
}

Tree tree(const char* label, const QString& xml, const QStringList& textures,
          const QString& stripped)
{
    return {label, xml, textures, stripped};
}

/// A tree without images, which stripping leaves alone.
Tree bare(const char* label, const QString& xml)
{
    return {label, xml, {}, xml};
}

std::string nameOf(const ::testing::TestParamInfo<Tree>& tree)
{
    return tree.param.label;
}

INSTANTIATE_TEST_SUITE_P(
    Background, TextureTreeTest,
    ::testing::Values(
        tree("Image", backgroundOf("Image", "t/a.jpg"), {"t/a.jpg"},
             backgroundOf("Image", "a.jpg")),
        tree("Image3D", backgroundOf("Image3D", "t/a.jpg"), {"t/a.jpg"},
             backgroundOf("Image3D", "a.jpg")),
        bare("Reflection", backgroundOf("Reflection", "t/a.jpg")),
        bare("Plain", backgroundOf("Plain", "t/a.jpg")),
        bare("Horizon", backgroundOf("Horizon", "t/a.jpg")),
        bare("Graduated", backgroundOf("Graduated", "t/a.jpg")),
        bare("WithoutKind", backgroundOf("", "t/a.jpg")),
        bare("EmptyPath", backgroundOf("Image", "")),
        bare("EmptyPath3D", backgroundOf("Image3D", "")),
        bare("WithoutParameter", "<background subcat='Image'/>"),
        bare("ParameterOfAnotherType",
             "<background subcat='Image'><param name='File Name' type='integer' val='1'/>"
             "</background>")),
    nameOf);

INSTANTIATE_TEST_SUITE_P(
    Material, TextureTreeTest,
    ::testing::Values(
        tree("Colour", "<material>" + colourOf("t/a.jpg") + "</material>", {"t/a.jpg"},
             "<material>" + colourOf("a.jpg") + "</material>"),
        tree("Bump", "<material>" + bumpOf("t/a.jpg") + "</material>", {"t/a.jpg"},
             "<material>" + bumpOf("a.jpg") + "</material>"),
        tree("ColourBeforeBump",
             "<material>" + bumpOf("t/bump.jpg") + colourOf("t/colour.jpg") + "</material>",
             {"t/colour.jpg", "t/bump.jpg"},
             "<material>" + bumpOf("bump.jpg") + colourOf("colour.jpg") + "</material>"),
        bare("Transparency",
             "<material><transparency>" + mapOf("t/a.jpg") + "</transparency></material>"),
        bare("Nothing", "<material/>"),
        bare("ColourWithoutDiffuse", "<material><colour/></material>"),
        bare("DiffuseWithoutColour", "<material><colour><diffuse/></colour></material>"),
        bare("ColourWithoutMap",
             "<material><colour><diffuse><param name='Colour' type='shader' val='colour'>"
             "<plainColour/></param></diffuse></colour></material>"),
        bare("MapWithoutTexture",
             "<material><colour><diffuse><param name='Colour' type='shader' val='colour'>"
             "<map/></param></diffuse></colour></material>"),
        bare("EmptyTexture", "<material>" + colourOf("") + "</material>"),
        bare("BumpWithoutColour", "<material><bump/></material>"),
        bare("BumpWithoutMap",
             "<material><bump><param name='Colour' type='shader' val='colour'/></bump>"
             "</material>"),
        bare("BackgroundWithin", "<material>" + backgroundOf("Image", "t/a.jpg") + "</material>")),
    nameOf);

INSTANTIATE_TEST_SUITE_P(
    BaseMaterial, TextureTreeTest,
    ::testing::Values(tree("ListedBeforeItsMaterialAndNotStripped",
                           "<material>" + colourOf("t/own.jpg") + "<material>" +
                               colourOf("t/base.jpg") + "</material></material>",
                           {"t/base.jpg", "t/own.jpg"},
                           "<material>" + colourOf("own.jpg") + "<material>" +
                               colourOf("t/base.jpg") + "</material></material>"),
                      tree("OfABaseMaterial",
                           "<material><material>" + bumpOf("t/base.jpg") + "<material>" +
                               colourOf("t/deep.jpg") + "</material></material></material>",
                           {"t/deep.jpg", "t/base.jpg"},
                           "<material><material>" + bumpOf("t/base.jpg") + "<material>" +
                               colourOf("t/deep.jpg") + "</material></material></material>")),
    nameOf);

INSTANTIATE_TEST_SUITE_P(
    SnapShot, TextureTreeTest,
    ::testing::Values(
        tree("ReflectedEnvironment", "<snapshot>" + settingsOf("t/env.hdr") + "</snapshot>",
             {"t/env.hdr"}, "<snapshot>" + settingsOf("env.hdr") + "</snapshot>"),
        tree("ReflectedEnvironmentBeforeTheChildren",
             "<snapshot>" + backgroundOf("Image", "t/sky.jpg") + settingsOf("t/env.hdr") +
                 "<materialRepository><material>" + colourOf("t/a.jpg") + "</material><material>" +
                 bumpOf("t/b.jpg") + "</material></materialRepository></snapshot>",
             {"t/env.hdr", "t/sky.jpg", "t/a.jpg", "t/b.jpg"},
             "<snapshot>" + backgroundOf("Image", "sky.jpg") + settingsOf("env.hdr") +
                 "<materialRepository><material>" + colourOf("a.jpg") + "</material><material>" +
                 bumpOf("b.jpg") + "</material></materialRepository></snapshot>"),
        tree("BackgroundOfItsScheme",
             "<snapshot><scheme>" + backgroundOf("Image", "t/sky.jpg") + "</scheme></snapshot>",
             {"t/sky.jpg"},
             "<snapshot><scheme>" + backgroundOf("Image", "sky.jpg") + "</scheme></snapshot>"),
        bare("WithoutSettings", "<snapshot/>"),
        bare("SettingsWithoutPath", "<snapshot><snapShotSettings/></snapshot>"),
        bare("EmptyPath", "<snapshot>" + settingsOf("") + "</snapshot>"),
        tree("IntensityMissing",
             "<snapshot><snapShotSettings>"
             "<param name='Reflected Env Path' type='string' val='t/env.hdr'/>"
             "</snapShotSettings></snapshot>",
             {"t/env.hdr"},
             "<snapshot><snapShotSettings>"
             "<param name='Reflected Env Path' type='string' val='env.hdr'/>"
             "</snapShotSettings></snapshot>")),
    nameOf);

INSTANTIATE_TEST_SUITE_P(
    OtherNodes, TextureTreeTest,
    ::testing::Values(
        tree("InDocumentOrder",
             "<root><materials><dir><material>" + colourOf("t/a.jpg") +
                 "</material></dir></materials><unknown>" + backgroundOf("Image3D", "t/b.jpg") +
                 "</unknown><snapshots><snapshot>" + settingsOf("t/c.hdr") +
                 "</snapshot></snapshots></root>",
             {"t/a.jpg", "t/b.jpg", "t/c.hdr"},
             "<root><materials><dir><material>" + colourOf("a.jpg") +
                 "</material></dir></materials><unknown>" + backgroundOf("Image3D", "b.jpg") +
                 "</unknown><snapshots><snapshot>" + settingsOf("c.hdr") +
                 "</snapshot></snapshots></root>"),
        bare("ColourOutsideOfAMaterial", "<colours>" + colourOf("t/a.jpg") + "</colours>"),
        bare("SettingsOutsideOfASnapShot", "<root>" + settingsOf("t/a.hdr") + "</root>"),
        bare("Empty", "<root/>")),
    nameOf);

// Stripping a path

struct Path {
    const char* label;
    const char* path;
    const char* stripped;
};

void PrintTo(const Path& path, std::ostream* out)
{
    *out << path.path;
}

class StrippedPathTest : public TexturesTest, public ::testing::WithParamInterface<Path> {};

TEST_P(StrippedPathTest, IsWhatFollowsTheLastSeparatorOfEitherKind)
{
    EXPECT_EQ(stripped(backgroundOf("Image", GetParam().path)),
              text(backgroundOf("Image", GetParam().stripped)));
}

INSTANTIATE_TEST_SUITE_P(All, StrippedPathTest,
                         ::testing::Values(Path{"FileName", "a.jpg", "a.jpg"},
                                           Path{"Slashes", "/home/tex/a.jpg", "a.jpg"},
                                           Path{"Backslashes", "C:\\tex\\a.jpg", "a.jpg"},
                                           Path{"SlashLast", "C:\\tex/a.jpg", "a.jpg"},
                                           Path{"BackslashLast", "/tex\\a.jpg", "a.jpg"},
                                           Path{"Drive", "C:a.jpg", "C:a.jpg"},
                                           Path{"Share", "\\\\host\\share\\a b.jpg", "a b.jpg"},
                                           Path{"FolderAlone", "tex/", ""}),
                         [](const auto& path) { return std::string(path.param.label); });

TEST_F(TexturesTest, StrippingTwiceIsStrippingOnce)
{
    const QString once = stripped(backgroundOf("Image", "C:\\tex\\a.jpg"));
    m_manager.StripTexturePaths(m_node.get());

    EXPECT_EQ(xmlOf(m_document), once);
}

TEST_F(TexturesTest, StrippingKeepsTheIntensityOfTheEnvironment)
{
    stripped("<snapshot>" + settingsOf("t/env.hdr") + "</snapshot>");
    auto* const snapShot = dynamic_cast<SnapShot*>(m_node.get());
    float intensity = 0.0f;

    EXPECT_EQ(snapShot->GetSnapShotSettings()->GetBackgroundReflected(&intensity), "env.hdr");
    EXPECT_FLOAT_EQ(intensity, 0.25f);
}

// The snapshot document

const char s_document[] =
    "<snapRoot><snapshots name='Model SnapShots'/><snapshot>"
    "<background subcat='Image'><param name='File Name' type='string' val='t/sky.jpg'/>"
    "</background><camera/><materialRepository><material linkname='m'><colour/></material>"
    "</materialRepository></snapshot></snapRoot>";

TEST_F(TexturesTest, ListingLeavesTheObjectsOfTheCurrentSnapShot)
{
    load(m_manager, s_document);
    SnapShot* const current = m_manager.GetCurrentSnapShot();
    Camera* const camera = current->GetCamera();
    Material* const material = current->GetMaterialRepository()->GetMaterial("m");
    QStringList textures;
    m_manager.FindRVOpenNodeTextures(current, textures);

    EXPECT_EQ(textures, QStringList("t/sky.jpg"));
    EXPECT_EQ(current->GetCamera(), camera);
    EXPECT_EQ(current->GetMaterialRepository()->GetMaterial("m"), material);
    EXPECT_EQ(textOf(m_manager), xmlOf(s_document));
}

TEST_F(TexturesTest, ComponentsMayGoAfterTheTexturesWereListed)
{
    load(m_manager, s_document);
    SnapShot* const current = m_manager.GetCurrentSnapShot();
    QStringList textures;
    m_manager.FindRVOpenNodeTextures(current, textures);
    current->ClearBackground();

    EXPECT_EQ(test::domChildNames(current->GetDomNode()),
              QStringList({"camera", "materialRepository"}));
}

TEST_F(TexturesTest, StrippingIsSeenThroughTheObjectsOfTheCurrentSnapShot)
{
    load(m_manager, s_document);
    Background* const background = m_manager.GetCurrentSnapShot()->GetBackground();
    m_manager.StripTexturePaths(m_manager.GetCurrentSnapShot());

    EXPECT_EQ(background->GetImageBackground(), "sky.jpg");
}

TEST_F(TexturesTest, TheTexturesOfAWholeCollectionAreListed)
{
    load(m_manager, "<snapRoot><snapshots name='Model SnapShots'><snapshot>" +
                        settingsOf("t/a.hdr") + "</snapshot><snapshot>" + settingsOf("t/b.hdr") +
                        "</snapshot></snapshots></snapRoot>");
    QStringList textures;

    EXPECT_EQ(m_manager.FindRVOpenNodeTextures(m_manager.GetSnapShots(), textures), 2);
    EXPECT_EQ(textures, QStringList({"t/a.hdr", "t/b.hdr"}));
}

TEST_F(TexturesTest, AHeldMaterialIsListedByItself)
{
    load(m_manager, "<snapRoot><snapshot><materialRepository><material linkname='a'>" +
                        colourOf("t/a.jpg") + "</material><material linkname='b'>" +
                        colourOf("t/b.jpg") +
                        "</material></materialRepository></snapshot></snapRoot>");
    QStringList textures;
    m_manager.FindRVOpenNodeTextures(
        m_manager.GetCurrentSnapShot()->GetMaterialRepository()->GetMaterial("a"), textures);

    EXPECT_EQ(textures, QStringList("t/a.jpg"));
}

// Archives that a tree refers to

class ArchiveTexturesTest : public TexturesTest {
protected:
    test::ArchiveFolders m_folders;
};

TEST_F(ArchiveTexturesTest, AreListedToo)
{
    m_folders.write("Inner",
                    "<materials><material>" + colourOf("t/a.jpg") + "</material></materials>");

    EXPECT_EQ(texturesOf("<materials><dir archiveFilename='Inner' archiveType='Custom'/>"
                         "<material>" +
                         colourOf("t/b.jpg") + "</material></materials>"),
              QStringList({"t/a.jpg", "t/b.jpg"}));
}

TEST_F(ArchiveTexturesTest, AreStrippedInTheArchive)
{
    const QString path = m_folders.write("Inner", "<materials><material>" + colourOf("t/a.jpg") +
                                                      "</material></materials>");
    stripped("<materials><dir archiveFilename='Inner' archiveType='Custom'/></materials>");

    EXPECT_EQ(xmlOf(GetDirectoryHandler()->LoadArchive(path)->GetDomNode()),
              text("<materials><material>" + colourOf("a.jpg") + "</material></materials>"));
}

TEST_F(ArchiveTexturesTest, AreNoneWhereTheArchiveCannotBeRead)
{
    m_folders.full("Missing");

    EXPECT_EQ(texturesOf("<materials><dir archiveFilename='Missing' archiveType='Custom'/>"
                         "<material>" +
                         colourOf("t/b.jpg") + "</material></materials>"),
              QStringList("t/b.jpg"));
}

TEST_F(ArchiveTexturesTest, ComeToAnEndWhereArchivesReferToEachOther)
{
    m_folders.write("A", "<materials><dir archiveFilename='B' archiveType='Custom'/><material>" +
                             colourOf("t/a.jpg") + "</material></materials>");
    m_folders.write("B", "<materials><material>" + colourOf("t/b.jpg") +
                             "</material><dir archiveFilename='A' archiveType='Custom'/>"
                             "</materials>");

    EXPECT_EQ(texturesOf("<materials><dir archiveFilename='A' archiveType='Custom'/></materials>"),
              QStringList({"t/b.jpg", "t/a.jpg"}));
}

TEST_F(ArchiveTexturesTest, ComeToAnEndWhereAMaterialRefersToItsOwnArchive)
{
    m_folders.write("A", "<materials>" + colourOf("t/a.jpg") +
                             "<material archiveFilename='A' archiveType='Custom'/></materials>");

    EXPECT_EQ(texturesOf("<material archiveFilename='A' archiveType='Custom'/>"),
              QStringList("t/a.jpg"));
}

} // namespace
} // namespace rvopen
