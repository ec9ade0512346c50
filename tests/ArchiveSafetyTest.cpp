// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "FileSupport.h"
#include "ManagerSupport.h"
#include "MaterialFixtures.h"

#include <rvopen/Background.h>
#include <rvopen/Bump.h>
#include <rvopen/Camera.h>
#include <rvopen/Colour.h>
#include <rvopen/Finish.h>
#include <rvopen/Foreground.h>
#include <rvopen/Material.h>
#include <rvopen/MaterialRepository.h>
#include <rvopen/NaturalLightStudio.h>
#include <rvopen/RVOpenPaths.h>
#include <rvopen/RenderTargets.h>
#include <rvopen/Scenery.h>
#include <rvopen/Scheme.h>
#include <rvopen/ShaderDiffuse.h>
#include <rvopen/ShaderMap.h>
#include <rvopen/ShaderPlainColour.h>
#include <rvopen/SnapShotSettings.h>
#include <rvopen/TemporaryItems.h>
#include <rvopen/Transparency.h>

#include <functional>

/// What the text of a document cannot do to the archives that it refers to.
namespace rvopen::test {
namespace {

const QByteArray s_mine = "<presets><keep/></presets>\n\n";

/// An element that stands for the archive "Mine".
QString mine(const QString& element)
{
    return QStringLiteral("<%1 archiveType='Custom' archiveFilename='Mine'/>").arg(element);
}

/// Something that replaces, removes or forgets elements that stand for the archive.
struct Removal {
    const char* name;
    QString xml;
    std::function<void(const QDomDocument& document)> run;
};

void PrintTo(const Removal& removal, std::ostream* out)
{
    *out << removal.name;
}

/// \p run on an object of the class over the root element.
template <typename Class, typename Run>
Removal removalOn(const char* name, const QString& xml, Run run)
{
    return {name, xml, [run](const QDomDocument& document) {
                const auto object = bind<Class>(document.documentElement());
                run(*object);
            }};
}

QString materialOf(const QString& content)
{
    return QStringLiteral("<material linkname='A'>%1</material>").arg(content);
}

QString paletteOf(const QString& content)
{
    return QStringLiteral("<materialRepository>%1</materialRepository>").arg(materialOf(content));
}

template <typename Component>
Removal setterRemoval(const char* name, const char* element, void (Material::*set)(Component*))
{
    return removalOn<Material>(name, materialOf(mine(element)), [set](Material& material) {
        const auto fresh = bindRoot<Component>(QStringLiteral("<fresh/>"));
        (material.*set)(new Component(fresh.get()));
        (material.*set)(nullptr);
    });
}

template <typename Component>
Removal paletteRemoval(const char* name, const char* element,
                       Component* (MaterialRepository::*add)(Component*, QString, int*))
{
    return removalOn<MaterialRepository>(
        name, paletteOf(mine(element)), [add](MaterialRepository& palette) {
            palette.Populate();
            const auto fresh = bindRoot<Component>(QStringLiteral("<fresh reset='1'/>"));
            EXPECT_NE((palette.*add)(fresh.get(), "A", nullptr), nullptr);
            EXPECT_EQ((palette.*add)(nullptr, "A", nullptr), nullptr);
        });
}

const QString s_everyKind =
    mine("colour") + mine("finish") + mine("transparency") + mine("bump") + mine("material");

const QString s_everyComponent =
    mine("scheme") + mine("background") + mine("foreground") + mine("camera") +
    mine("naturalLightStudio") + mine("artificialLightStudio") + mine("snapShotSettings") +
    mine("renderTargets") + mine("scenery") + mine("materialRepository");

QString snapShotOf(const QString& component)
{
    return "<snapshot>" + mine(component) + "</snapshot>";
}

/// An operation of a snapshot that replaces the component of that element.
template <typename Component, typename Result>
Removal componentRemoval(const char* name, const char* element, Result (SnapShot::*add)(Component*))
{
    return removalOn<SnapShot>(name, snapShotOf(element), [add](SnapShot& snapShot) {
        const auto fresh = bindRoot<Component>(QStringLiteral("<fresh/>"));
        (snapShot.*add)(fresh.get());
    });
}

Removal componentRemoval(const char* name, const char* element, void (SnapShot::*clear)())
{
    return removalOn<SnapShot>(name, snapShotOf(element),
                               [clear](SnapShot& snapShot) { (snapShot.*clear)(); });
}

/// A preset takes the place of what a material of a palette is made of.
Removal presetRemoval(const char* name, const char* element)
{
    return removalOn<MaterialRepository>(
        name, paletteOf(mine(element)), [](MaterialRepository& palette) {
            palette.Populate();
            const auto preset = bindRoot<Material>(materialXml(colourXml("1 0 0") + "<finish/>"));
            EXPECT_NE(palette.ApplyMaterial(preset.get(), "A", nullptr), nullptr);
        });
}

/// The clipboard takes a component that stands for the archive, and forgets its copy.
template <typename Component>
Removal clipboardRemoval(const char* name, const char* element,
                         void (TemporaryItems::*set)(Component*))
{
    return removalOn<Component>(name, mine(element), [set](Component& component) {
        TemporaryItems items;
        (items.*set)(&component);
        (items.*set)(nullptr);
    });
}

QString collectionOf(const QString& content)
{
    return QStringLiteral("<snapRoot><snapshots name='Model SnapShots'><snapshot name='A'>%1"
                          "</snapshot>%2</snapshots><snapshot>%1</snapshot>%3</snapRoot>")
        .arg(content, mine("snapshot"), mine("background"));
}

void useManager(const QDomDocument& document, const std::function<void(RVOpenManager&)>& use)
{
    RVOpenManager manager;
    load(manager, document.toString());
    use(manager);
}

const Removal s_removals[] = {
    setterRemoval("SetColour", "colour", &Material::SetColour),
    setterRemoval("SetFinish", "finish", &Material::SetFinish),
    setterRemoval("SetTransparency", "transparency", &Material::SetTransparency),
    setterRemoval("SetBump", "bump", &Material::SetBump),
    setterRemoval("SetBaseMaterial", "material", &Material::SetBaseMaterial),
    removalOn<Material>("ConsolidateBaseMaterial", materialOf(mine("material")),
                        [](Material& material) { material.ConsolidateBaseMaterial(); }),
    removalOn<Material>("DeletingAMaterial", materialOf(s_everyKind),
                        [](Material& material) { children(&material); }),
    removalOn<Colour>("SetDiffuse", "<colour>" + mine("diffuse") + "</colour>",
                      [](Colour& colour) { colour.SetDiffuse(nullptr); }),
    paletteRemoval("AddColour", "colour", &MaterialRepository::AddColour),
    paletteRemoval("AddFinish", "finish", &MaterialRepository::AddFinish),
    paletteRemoval("AddFinishInTheResetState", "transparency", &MaterialRepository::AddFinish),
    paletteRemoval("AddTransparency", "transparency", &MaterialRepository::AddTransparency),
    paletteRemoval("AddBump", "bump", &MaterialRepository::AddBump),
    removalOn<MaterialRepository>("AddBaseMaterial", paletteOf(mine("material")),
                                  [](MaterialRepository& palette) {
                                      palette.Populate();
                                      palette.AddBaseMaterial(nullptr, "A");
                                  }),
    presetRemoval("ApplyMaterialOverAColour", "colour"),
    presetRemoval("ApplyMaterialOverAFinish", "finish"),
    presetRemoval("ApplyMaterialOverATransparency", "transparency"),
    presetRemoval("ApplyMaterialOverABump", "bump"),
    removalOn<MaterialRepository>(
        "RemoveMaterial", "<materialRepository>" + mine("material") + "</materialRepository>",
        [](MaterialRepository& palette) {
            palette.Populate();
            palette.RemoveMaterial(palette.GetFirstMaterial());
        }),
    removalOn<MaterialRepository>("ClearOfAPalette",
                                  "<materialRepository>" + mine("material") + mine("material") +
                                      "</materialRepository>",
                                  [](MaterialRepository& palette) {
                                      palette.Populate();
                                      palette.Clear();
                                  }),
    removalOn<RenderTargets>("ClearOfRenderTargets",
                             "<renderTargets>" + mine("renderTarget") + "</renderTargets>",
                             [](RenderTargets& targets) {
                                 targets.Populate();
                                 targets.Clear();
                             }),
    removalOn<SnapShots>("ClearOfACollection", "<snapshots>" + mine("snapshot") + "</snapshots>",
                         [](SnapShots& collection) {
                             collection.Populate();
                             collection.Clear();
                         }),
    componentRemoval("AddSchemeOverAScheme", "scheme", &SnapShot::AddScheme),
    componentRemoval("AddSchemeOverABackground", "background", &SnapShot::AddScheme),
    componentRemoval("AddSchemeOverAForeground", "foreground", &SnapShot::AddScheme),
    componentRemoval("AddSchemeOverALight", "naturalLightStudio", &SnapShot::AddScheme),
    componentRemoval("AddBackground", "background", &SnapShot::AddBackground),
    componentRemoval("AddForeground", "foreground", &SnapShot::AddForeground),
    componentRemoval("AddCamera", "camera", &SnapShot::AddCamera),
    componentRemoval("AddMaterialRepository", "materialRepository",
                     &SnapShot::AddMaterialRepository),
    componentRemoval("AddNaturalLightStudio", "naturalLightStudio",
                     &SnapShot::AddNaturalLightStudio),
    componentRemoval("AddScenery", "scenery", &SnapShot::AddScenery),
    componentRemoval("ClearScheme", "scheme", &SnapShot::ClearScheme),
    componentRemoval("ClearBackground", "background", &SnapShot::ClearBackground),
    componentRemoval("ClearNaturalLightStudio", "naturalLightStudio",
                     &SnapShot::ClearNaturalLightStudio),
    componentRemoval("ClearScenery", "scenery", &SnapShot::ClearScenery),
    removalOn<SnapShot>("AddSnapShotSettings", snapShotOf("snapShotSettings"),
                        [](SnapShot& snapShot) {
                            snapShot.AddSnapShotSettings(snapShot.CreateSnapShotSettings(nullptr));
                        }),
    removalOn<SnapShot>("CreateAndAddNaturalLightStudio", snapShotOf("naturalLightStudio"),
                        [](SnapShot& snapShot) { snapShot.CreateAndAddNaturalLightStudio(); }),
    removalOn<SnapShot>("DeletingASnapShot", "<snapshot>" + s_everyComponent + "</snapshot>",
                        [](SnapShot& snapShot) { children(&snapShot); }),
    removalOn<SnapShot>("SetupSnapShotForSerialise",
                        "<snapshot>" + paletteOf(mine("material")) + "</snapshot>",
                        [](SnapShot& snapShot) { snapShot.SetupSnapShotForSerialise(); }),
    removalOn<RVOpenNode>("ReplaceNode", "<host>" + mine("dir") + mine("dir") + "</host>",
                          [](RVOpenNode& host) {
                              for (RVOpenNode* const child : children(&host)) {
                                  const auto fresh = bindRoot<RVOpenNode>("<fresh/>");
                                  host.ReplaceNode(child, new RVOpenNode(fresh.get()));
                              }
                          }),
    removalOn<RVOpenNode>("DeleteNodeOfWhatIsAroundAReference",
                          "<host><item>" + mine("dir") + "</item></host>",
                          [](RVOpenNode& host) {
                              materialise(&host);
                              host.DeleteNode(host.GetChild(1, 1));
                          }),
    removalOn<Material>("BaseMaterialOfTheClipboard", materialOf(mine("material")),
                        [](Material& material) { TemporaryItems().SetMaterial(&material); }),
    clipboardRemoval("MaterialOfTheClipboard", "material", &TemporaryItems::SetMaterial),
    clipboardRemoval("ColourOfTheClipboard", "colour", &TemporaryItems::SetColour),
    clipboardRemoval("FinishOfTheClipboard", "finish", &TemporaryItems::SetFinish),
    clipboardRemoval("TransparencyOfTheClipboard", "transparency",
                     &TemporaryItems::SetTransparency),
    clipboardRemoval("BumpOfTheClipboard", "bump", &TemporaryItems::SetBump),
    {"LoadAndClearOfADocument", collectionOf(s_everyComponent),
     [](const QDomDocument& document) {
         useManager(document, [](RVOpenManager& manager) {
             manager.InitialiseSnapShotDoc();
             manager.ClearSnapShotDoc();
         });
     }},
    {"LoadInPlaceOfADocument", collectionOf(s_everyComponent),
     [](const QDomDocument& document) {
         useManager(document, [](RVOpenManager& manager) {
             QStringList textures;
             manager.FindRVOpenNodeTextures(manager.GetSnapShots(), textures);
             manager.StripTexturePaths(manager.GetSnapShots());
             load(manager, "<snapRoot/>");
         });
     }},
    {"Import", collectionOf(s_everyComponent),
     [](const QDomDocument& document) {
         const QTemporaryDir folder;
         writeFile(folder.filePath("import.xml"), document.toByteArray());
         RVOpenManager manager;
         manager.ImportSnapShotDoc(folder.filePath("import.xml"), true, true);
         manager.GetSnapShots()->Clear();
     }},
    {"MergeOfAnExtraArchive", "<presets>" + mine("colours") + "</presets>",
     [](const QDomDocument& document) {
         InstallFolder folder;
         folder.write("Default", "<presets><colours/></presets>");
         folder.write("Product_extra", document.toString());
         RVOpenManager manager;
         manager.Initialise(3, 1, folder.path());
         manager.SetArchiveNode("Product.rvx", "Zorvane");
         manager.GetRVOpenNodeFromType("colours", true);
         manager.Initialise(3, 1, folder.path());
     }},
};

class ArchiveSafetyTest : public ::testing::TestWithParam<Removal> {
protected:
    ArchiveSafetyTest()
    {
        writeFile(m_file, s_mine);
    }

    ArchiveFolders m_folders;
    const QString m_file = m_folders.full("Mine");
};

TEST_P(ArchiveSafetyTest, LeavesTheFileOfAnOpenArchiveAndTheArchiveOpen)
{
    RVOpenNode* const archive = GetDirectoryHandler()->LoadArchive(m_file);
    ASSERT_NE(archive, nullptr);
    GetParam().run(parse(GetParam().xml));

    ASSERT_EQ(readFile(m_file), s_mine);
    // A file of other content would be read now if the archive were not open.
    writeFile(m_file, "<other/>");
    ASSERT_EQ(GetDirectoryHandler()->LoadArchive(m_file), archive);
    EXPECT_EQ(archive->GetNodeName(), "presets");
}

TEST_P(ArchiveSafetyTest, LeavesTheFileOfAnArchiveThatIsNotOpen)
{
    GetParam().run(parse(GetParam().xml));

    EXPECT_EQ(readFile(m_file), s_mine);
}

INSTANTIATE_TEST_SUITE_P(Removals, ArchiveSafetyTest, ::testing::ValuesIn(s_removals),
                         [](const auto& each) { return std::string(each.param.name); });

/// A comparison of two documents' roots.
struct Look {
    const char* name;
    QString one;
    QString other;
    std::function<bool(RVOpenNode* one, RVOpenNode* other)> equal;
    bool expected;
};

void PrintTo(const Look& look, std::ostream* out)
{
    *out << look.name;
}

template <typename Class>
Look look(const char* name, const QString& one, const QString& other, bool expected)
{
    return {name, one, other,
            [](RVOpenNode* a, RVOpenNode* b) {
                auto* const first = dynamic_cast<Class*>(a);
                auto* const second = dynamic_cast<Class*>(b);
                if constexpr (std::is_same_v<Class, Material>)
                    return first->Equal(second, true);
                else
                    return first->Equal(second);
            },
            expected};
}

QString other(const QString& element)
{
    return QStringLiteral("<%1 archiveType='Custom' archiveFilename='Other'/>").arg(element);
}

QString named(const QString& element)
{
    return QStringLiteral("<%1 archiveType='Custom' archiveFilename='Mine' refname='r'/>")
        .arg(element);
}

QString inColour(const QString& shader)
{
    return "<colour>" + shader + "</colour>";
}

QString inDiffuse(const QString& shader)
{
    return inColour("<diffuse>" + shader + "</diffuse>");
}

QString shaderReference(const QString& file)
{
    return QStringLiteral("<param name='Colour' type='shader' val='colour' archiveType='Custom' "
                          "archiveFilename='%1'/>")
        .arg(file);
}

const Look s_looks[] = {
    look<Material>("SameMaterials", mine("material"), mine("material"), true),
    look<Material>("OtherMaterials", mine("material"), other("material"), false),
    look<Material>("AMaterialWithContent", mine("material"), materialOf(colourXml("1 0 0")), false),
    look<Material>("AMaterialWithout", mine("material"), "<material/>", false),
    look<Material>("MaterialsByName", named("material"), "<material refname='r'/>", true),
    look<Material>("SameColoursOfMaterials", materialOf(mine("colour")), materialOf(mine("colour")),
                   true),
    look<Material>("OtherColoursOfMaterials", materialOf(mine("colour")),
                   materialOf(other("colour")), false),
    look<Material>("OtherBaseMaterials", materialOf(mine("material")),
                   materialOf(other("material")), false),
    look<Colour>("SameColours", mine("colour"), mine("colour"), true),
    look<Colour>("OtherColours", mine("colour"), other("colour"), false),
    look<Colour>("AColourWithContent", mine("colour"), colourXml("1 0 0"), false),
    look<Colour>("SameDiffuseShaders", inColour(mine("diffuse")), inColour(mine("diffuse")), true),
    look<Colour>("OtherDiffuseShaders", inColour(mine("diffuse")), inColour(other("diffuse")),
                 false),
    look<Colour>("SameShaderColours", inDiffuse(shaderReference("Mine")),
                 inDiffuse(shaderReference("Mine")), true),
    look<Colour>("OtherShaderColours", inDiffuse(shaderReference("Mine")),
                 inDiffuse(shaderReference("Other")), false),
    look<Colour>("SameMaps", inDiffuse(shaderColourXml(mine("map"))),
                 inDiffuse(shaderColourXml(mine("map"))), true),
    look<Colour>("OtherMaps", inDiffuse(shaderColourXml(mine("map"))),
                 inDiffuse(shaderColourXml(other("map"))), false),
    look<Colour>("OtherPlainColours", inDiffuse(shaderColourXml(mine("plainColour"))),
                 inDiffuse(shaderColourXml(other("plainColour"))), false),
    look<Transparency>("SameTransparencies", mine("transparency"), mine("transparency"), true),
    look<Transparency>("ATransparencyWithContent", mine("transparency"), transparencyXml("1"),
                       false),
    look<Bump>("SameBumps", mine("bump"), mine("bump"), true),
    look<Bump>("OtherBumps", mine("bump"), other("bump"), false),
    // Finishes without names are all equal.
    look<Finish>("OtherFinishes", mine("finish"), other("finish"), true),
};

class ArchiveComparisonTest : public ::testing::TestWithParam<Look> {};

TEST_P(ArchiveComparisonTest, OpensNoArchive)
{
    ArchiveFolders folders;
    const QString mineFile = folders.write("Mine", "<presets><keep/></presets>");
    const QString otherFile = folders.write("Other", "<presets><keep/></presets>");
    const auto one = create(parse(GetParam().one).documentElement());
    const auto two = create(parse(GetParam().other).documentElement());

    EXPECT_EQ(GetParam().equal(one.get(), two.get()), GetParam().expected);
    EXPECT_EQ(GetParam().equal(two.get(), one.get()), GetParam().expected);
    EXPECT_FALSE(GetDirectoryHandler()->SaveArchive(mineFile));
    EXPECT_FALSE(GetDirectoryHandler()->SaveArchive(otherFile));
}

INSTANTIATE_TEST_SUITE_P(Classes, ArchiveComparisonTest, ::testing::ValuesIn(s_looks),
                         [](const auto& each) { return std::string(each.param.name); });

TEST(ArchiveComparisonTest, OfBackgroundsOpensNoArchive)
{
    ArchiveFolders folders;
    const QString file = folders.write("Mine", "<presets/>");
    const QString xml = "<background subcat='Plain' archiveType='Custom' archiveFilename='Mine'/>";
    const auto one = bindRoot<Background>(xml);
    const auto two = bindRoot<Background>(xml);
    const auto three = bindRoot<Background>("<background subcat='Plain'/>");

    EXPECT_TRUE(one->Equal(two.get()));
    EXPECT_FALSE(one->Equal(three.get()));
    EXPECT_FALSE(GetDirectoryHandler()->SaveArchive(file));
}

TEST(ArchiveComparisonTest, LooksIntoAnArchiveThatIsOpen)
{
    const Stone archive(inColour("<diffuse enabled='1'>" +
                                 shaderColourXml(plainColourXml("1 0 0")) + "</diffuse>"));
    const auto reference = bindRoot<Colour>(stoneReference("colour"));
    const auto equal = bindRoot<Colour>(colourXml("1 0 0"));
    const auto different = bindRoot<Colour>(colourXml("0 1 0"));

    EXPECT_TRUE(reference->Equal(equal.get()));
    EXPECT_FALSE(reference->Equal(different.get()));
}

/// A link in the custom archives' folder: its name, what it leads to and the reference through it.
struct Link {
    const char* name;
    const char* link;
    const char* target;
    const char* reference;
    const char* file; ///< Below the root of the folders, that the reference leads to.
    bool isReached;
};

void PrintTo(const Link& link, std::ostream* out)
{
    *out << link.name;
}

class LinkedArchiveTest : public ::testing::TestWithParam<Link> {
protected:
    LinkedArchiveTest()
    {
        for (const char* folder : {"outside", "custom/inside", "customer"})
            EXPECT_TRUE(QDir(m_folders.root()).mkpath(folder));
        writeFile(file(), s_mine);
        link(m_folders.root() + '/' + GetParam().target,
             m_folders.custom() + '/' + GetParam().link);
        m_folders.closeAtEnd(m_child->GetArchiveFilename());
    }

    QString file() const
    {
        return m_folders.root() + '/' + GetParam().file;
    }

    ArchiveFolders m_folders;
    QDomDocument m_document = parse(QString("<host>%1</host>").arg(GetParam().reference));
    const std::unique_ptr<RVOpenNode> m_host = bind(m_document.documentElement());
    RVOpenNode* const m_child = m_host->GetChild(1, 1);
};

TEST_P(LinkedArchiveTest, IsOpenedInsideOfTheFolderAlone)
{
    EXPECT_EQ(m_child->GetChild(1, 1) != nullptr, GetParam().isReached);
}

TEST_P(LinkedArchiveTest, IsChangedInsideOfTheFolderAlone)
{
    auto added = std::make_unique<RVOpenNode>();
    added->SetDomNode(m_document.createElement("added"));
    m_child->AddNode(added.get(), true);
    if (GetParam().isReached)
        added.release();

    GetDirectoryHandler()->SaveArchive(m_child);
    EXPECT_EQ(readFile(file()).contains("added"), GetParam().isReached);
}

TEST_P(LinkedArchiveTest, IsDeletedInsideOfTheFolderAlone)
{
    // The host itself may open what it likes.
    const QString name = m_child->GetArchiveFilename();
    ASSERT_NE(GetDirectoryHandler()->LoadArchive(name), nullptr);
    m_host->DeleteNode(m_child);

    EXPECT_FALSE(m_document.documentElement().hasChildNodes());
    if (GetParam().isReached) {
        EXPECT_FALSE(QFile::exists(name));
    } else {
        EXPECT_EQ(readFile(file()), s_mine);
        EXPECT_EQ(readFile(PathToOpen(name)), s_mine);
    }
}

INSTANTIATE_TEST_SUITE_P(
    Links, LinkedArchiveTest,
    ::testing::Values(
        Link{"FolderOutside", "sub", "outside",
             "<dir archiveType='Custom' path='sub' archiveFilename='Mine'/>", "outside/Mine.rvx",
             false},
        Link{"FolderOutsideByBackslash", "sub", "outside",
             "<dir archiveType='Custom' archiveFilename='sub\\Mine'/>", "outside/Mine.rvx", false},
        Link{"FolderBesideWithTheSameBeginning", "sub", "customer",
             "<dir archiveType='Custom' path='sub' archiveFilename='Mine'/>", "customer/Mine.rvx",
             false},
        Link{"FileOutside", "Mine.rvx", "outside/Mine.rvx",
             "<dir archiveType='Custom' archiveFilename='Mine'/>", "outside/Mine.rvx", false},
        Link{"FolderInside", "sub", "custom/inside",
             "<dir archiveType='Custom' path='sub' archiveFilename='Mine'/>",
             "custom/inside/Mine.rvx", true},
        Link{"FileInside", "Mine.rvx", "custom/inside/Mine.rvx",
             "<dir archiveType='Custom' archiveFilename='Mine'/>", "custom/inside/Mine.rvx", true}),
    [](const auto& each) { return std::string(each.param.name); });

TEST(LinkedArchiveTest, TheFolderItselfMayBeALink)
{
    ArchiveFolders folders;
    folders.write("Mine", "<presets><keep/></presets>");
    link(folders.custom(), folders.root() + "/link");
    GetDirectoryHandler()->SetCustomArchivesFolder(folders.root() + "/link");
    folders.closeAtEnd(folders.root() + "/link/Mine.rvx");
    const auto node = bindRoot<RVOpenNode>(mine("dir"));

    EXPECT_EQ(childNames(node.get()), QStringList("keep"));
}

} // namespace
} // namespace rvopen::test
