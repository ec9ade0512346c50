// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include <rvopen/RVOpenSchema.h>

#include "TestSupport.h"

#include <rvopen/AspectRatio.h>
#include <rvopen/AspectRatioOrient.h>
#include <rvopen/Background.h>
#include <rvopen/Bump.h>
#include <rvopen/Camera.h>
#include <rvopen/Colour.h>
#include <rvopen/Directory.h>
#include <rvopen/Finish.h>
#include <rvopen/Foreground.h>
#include <rvopen/Lens.h>
#include <rvopen/Material.h>
#include <rvopen/MaterialRepository.h>
#include <rvopen/NaturalLightStudio.h>
#include <rvopen/Param.h>
#include <rvopen/RenderTarget.h>
#include <rvopen/RenderTargets.h>
#include <rvopen/Scenery.h>
#include <rvopen/Scheme.h>
#include <rvopen/ShaderColour.h>
#include <rvopen/ShaderDiffuse.h>
#include <rvopen/ShaderMap.h>
#include <rvopen/ShaderPlainColour.h>
#include <rvopen/SnapShot.h>
#include <rvopen/SnapShotSettings.h>
#include <rvopen/SnapShots.h>
#include <rvopen/Transparency.h>

#include <algorithm>
#include <map>
#include <set>
#include <string>
#include <typeinfo>
#include <vector>

namespace rvopen::test {
namespace {

// The factory

enum class Params { Made, NotMade, OfTheClass };

struct ElementClass {
    const char* element;
    const std::type_info* type;
    Params params;
};

template <typename Class>
ElementClass row(const char* element, Params params = Params::NotMade)
{
    return {element, &typeid(Class), params};
}

std::vector<ElementClass> factoryTable()
{
    return {
        row<Scheme>("scheme"),
        row<Background>("background", Params::Made),
        row<Foreground>("foreground", Params::Made),
        row<Camera>("camera", Params::Made),
        row<Lens>("lens", Params::Made),
        row<Directory>("dir"),
        row<AspectRatio>("aspectratio", Params::Made),
        row<AspectRatioOrient>("aspectratioorient", Params::Made),
        row<Param>("param"),
        row<Material>("material"),
        row<Colour>("colour"),
        row<Finish>("finish"),
        row<Transparency>("transparency"),
        row<Bump>("bump"),
        row<ShaderDiffuse>("diffuse", Params::Made),
        row<ShaderPlainColour>("plainColour", Params::Made),
        row<ShaderMap>("map", Params::Made),
        row<SnapShot>("snapshot", Params::OfTheClass),
        row<SnapShots>("snapshots", Params::OfTheClass),
        // These are made by their owners' accessors.
        row<RVOpenNode>("materialRepository"),
        row<RVOpenNode>("naturalLightStudio"),
        row<RVOpenNode>("artificialLightStudio"),
        row<RVOpenNode>("snapShotSettings"),
        row<RVOpenNode>("renderTargets"),
        row<RVOpenNode>("renderTarget"),
        row<RVOpenNode>("scenery"),
        row<RVOpenNode>("albumInfo"),
        // Groups.
        row<RVOpenNode>("schemes"),
        row<RVOpenNode>("materials"),
        row<RVOpenNode>("colours"),
        row<RVOpenNode>("finishes"),
        row<RVOpenNode>("transparencies"),
        row<RVOpenNode>("bumps"),
        row<RVOpenNode>("backgrounds"),
        row<RVOpenNode>("foregrounds"),
        row<RVOpenNode>("cameras"),
        // What the library does not know.
        row<RVOpenNode>("snapRoot"),
        row<RVOpenNode>("unknown"),
        row<RVOpenNode>("Camera"),
        row<RVOpenNode>("CAMERA"),
        row<RVOpenNode>("plaincolour"),
        row<RVOpenNode>("aspectRatio"),
        row<RVOpenNode>("snapShot"),
        row<RVOpenNode>("Param"),
    };
}

class Factory : public ::testing::TestWithParam<ElementClass> {
protected:
    const QDomDocument m_document = parse(QString("<%1 name='n' cat='c'>"
                                                  "<param name='p' type='integer' val='1'/>"
                                                  "<param name='q' type='integer' val='2'/>"
                                                  "</%1>")
                                              .arg(GetParam().element));
    const std::unique_ptr<RVOpenNode> m_node = create(m_document.documentElement());
};

TEST_P(Factory, MakesAnObjectOfTheElementsClass)
{
    ASSERT_NE(m_node, nullptr);
    const RVOpenNode& node = *m_node;
    EXPECT_STREQ(typeid(node).name(), GetParam().type->name());
}

TEST_P(Factory, BindsTheVeryElement)
{
    ASSERT_NE(m_node, nullptr);
    EXPECT_EQ(m_node->GetDomNode(), m_document.documentElement());
}

TEST_P(Factory, LinksTheObjectNowhere)
{
    ASSERT_NE(m_node, nullptr);
    EXPECT_EQ(m_node->GetParent(), nullptr);
    EXPECT_EQ(m_node->GetNext(0), nullptr);
}

TEST_P(Factory, LeavesTheDocument)
{
    EXPECT_EQ(xmlOf(m_document), QString("<%1 cat=\"c\" name=\"n\">"
                                         "<param name=\"p\" type=\"integer\" val=\"1\"/>"
                                         "<param name=\"q\" type=\"integer\" val=\"2\"/>"
                                         "</%1>")
                                     .arg(GetParam().element));
}

INSTANTIATE_TEST_SUITE_P(RVOpenSchema, Factory, ::testing::ValuesIn(factoryTable()),
                         [](const auto& instance) { return std::string(instance.param.element); });

using ParamMaking = Factory;

TEST_P(ParamMaking, ComesWithTheObjectOfAParameterBackedClass)
{
    ASSERT_NE(m_node, nullptr);
    const RVOpenNode* const first = m_node->GetChild(0, 0);
    EXPECT_EQ(first != nullptr, GetParam().params == Params::Made);
    if (first) {
        EXPECT_NE(m_node->GetChild(0, 0)->GetNext(0), nullptr);
    }
}

/// All but those that read their children by themselves.
std::vector<ElementClass> withoutReaders(std::vector<ElementClass> table)
{
    table.erase(std::remove_if(table.begin(), table.end(),
                               [](const ElementClass& element) {
                                   return element.params == Params::OfTheClass;
                               }),
                table.end());
    return table;
}

INSTANTIATE_TEST_SUITE_P(RVOpenSchema, ParamMaking,
                         ::testing::ValuesIn(withoutReaders(factoryTable())),
                         [](const auto& instance) { return std::string(instance.param.element); });

struct ParamClass {
    const char* description;
    const char* xml;
    const std::type_info* type; ///< Null where the factory gives null.
};

class ParamFactory : public ::testing::TestWithParam<ParamClass> {};

TEST_P(ParamFactory, DecidesByTypeAndValue)
{
    const QDomDocument document = parse(GetParam().xml);
    const auto node = create(document.documentElement());
    if (!GetParam().type) {
        EXPECT_EQ(node, nullptr);
        return;
    }
    ASSERT_NE(node, nullptr);
    const RVOpenNode& made = *node;
    EXPECT_STREQ(typeid(made).name(), GetParam().type->name());
    EXPECT_EQ(node->GetDomNode(), document.documentElement());
}

INSTANTIATE_TEST_SUITE_P(
    RVOpenSchema, ParamFactory,
    ::testing::Values(
        ParamClass{"ColourShader", "<param type='shader' val='colour'/>", &typeid(ShaderColour)},
        ParamClass{"MapShader", "<param type='shader' val='map'/>", nullptr},
        ParamClass{"ShaderWithoutValue", "<param type='shader'/>", nullptr},
        ParamClass{"ShaderWithEmptyValue", "<param type='shader' val=''/>", nullptr},
        ParamClass{"ShaderOfOtherCase", "<param type='shader' val='Colour'/>", nullptr},
        ParamClass{"WithoutType", "<param val='colour'/>", &typeid(Param)},
        ParamClass{"EmptyType", "<param type='' val='colour'/>", &typeid(Param)},
        ParamClass{"TypeOfOtherCase", "<param type='Shader' val='map'/>", &typeid(Param)},
        ParamClass{"Colour", "<param type='colour' val='1 1 1'/>", &typeid(Param)},
        ParamClass{"String", "<param type='string' val='colour'/>", &typeid(Param)},
        ParamClass{"Float", "<param type='float' val='1'/>", &typeid(Param)},
        ParamClass{"UnknownType", "<param type='matrix' val='1'/>", &typeid(Param)}),
    [](const auto& instance) { return std::string(instance.param.description); });

TEST(RVOpenSchema, NodeThatIsNoElementBecomesAPlainNode)
{
    const QDomDocument document =
        parse("<root><!--camera-->text<?camera x?><![CDATA[camera]]></root>");
    for (QDomNode child = document.documentElement().firstChild(); !child.isNull();) {
        const QDomNode next = child.nextSibling();
        const auto node = create(child);
        ASSERT_NE(node, nullptr);
        const RVOpenNode& made = *node;
        EXPECT_STREQ(typeid(made).name(), typeid(RVOpenNode).name());
        EXPECT_EQ(node->GetDomNode(), child);
        child = next;
    }
}

TEST(RVOpenSchema, ProcessingInstructionNamedAsAnElementBecomesAPlainNode)
{
    const QDomDocument document = parse("<root><?camera x?><?param type='shader'?></root>");
    for (const char* name : {"camera", "param"}) {
        QDomNode instruction = document.documentElement().firstChild();
        while (instruction.nodeName() != name)
            instruction = instruction.nextSibling();
        const auto node = create(instruction);
        ASSERT_NE(node, nullptr);
        const RVOpenNode& made = *node;
        EXPECT_STREQ(typeid(made).name(), typeid(RVOpenNode).name());
    }
}

TEST(RVOpenSchema, NullNodeBecomesAPlainNodeBoundToNothing)
{
    const auto node = create(QDomNode());
    ASSERT_NE(node, nullptr);
    EXPECT_TRUE(node->GetDomNode().isNull());
}

// Kind tests

/// A kind test with its result as the node that the object is.
using KindTest = RVOpenNode* (*)(RVOpenNode*);
/// Makes an object of the kind's class, bound to the element.
using Maker = std::unique_ptr<RVOpenNode> (*)(const QDomNode&);

struct Kind {
    const char* element;
    KindTest test;
    Maker make;
    bool hasClass;
};

template <typename Class, Class* (*test)(RVOpenNode*)>
Kind kind(const char* element)
{
    return {element, [](RVOpenNode* node) -> RVOpenNode* { return test(node); },
            [](const QDomNode& node) -> std::unique_ptr<RVOpenNode> { return bind<Class>(node); },
            !std::is_same_v<Class, RVOpenNode>};
}

std::vector<Kind> kinds()
{
    using S = RVOpenSchema;
    return {
        kind<RVOpenNode, S::isNodeSchemes>("schemes"),
        kind<RVOpenNode, S::isNodeMaterials>("materials"),
        kind<RVOpenNode, S::isNodeColours>("colours"),
        kind<RVOpenNode, S::isNodeFinishes>("finishes"),
        kind<RVOpenNode, S::isNodeTransparencies>("transparencies"),
        kind<RVOpenNode, S::isNodeBumps>("bumps"),
        kind<RVOpenNode, S::isNodeBackgrounds>("backgrounds"),
        kind<RVOpenNode, S::isNodeForegrounds>("foregrounds"),
        kind<RVOpenNode, S::isNodeCameras>("cameras"),
        kind<RVOpenNode, S::isNodeDir>("dir"),
        kind<Lens, S::isNodeLens>("lens"),
        kind<AspectRatio, S::isNodeAspectRatio>("aspectratio"),
        kind<AspectRatioOrient, S::isNodeAspectRatioOrient>("aspectratioorient"),
        kind<Scheme, S::isNodeScheme>("scheme"),
        kind<Material, S::isNodeMaterial>("material"),
        kind<Colour, S::isNodeColour>("colour"),
        kind<ShaderPlainColour, S::isNodeShaderPlainColour>("plainColour"),
        kind<ShaderMap, S::isNodeShaderMap>("map"),
        kind<ShaderDiffuse, S::isNodeShaderDiffuse>("diffuse"),
        kind<Finish, S::isNodeFinish>("finish"),
        kind<Transparency, S::isNodeTransparency>("transparency"),
        kind<Bump, S::isNodeBump>("bump"),
        kind<MaterialRepository, S::isNodeMaterialRepository>("materialRepository"),
        kind<Background, S::isNodeBackground>("background"),
        kind<Foreground, S::isNodeForeground>("foreground"),
        kind<Param, S::isNodeParam>("param"),
        kind<SnapShot, S::isNodeSnapShot>("snapshot"),
        kind<SnapShots, S::isNodeSnapShots>("snapshots"),
        kind<NaturalLightStudio, S::isNodeNaturalLightStudio>("naturalLightStudio"),
        kind<Camera, S::isNodeCamera>("camera"),
        kind<SnapShotSettings, S::isNodeSnapShotSettings>("snapShotSettings"),
        kind<RenderTargets, S::isNodeRenderTargets>("renderTargets"),
        kind<RenderTarget, S::isNodeRenderTarget>("renderTarget"),
        kind<Scenery, S::isNodeScenery>("scenery"),
    };
}

class KindOf : public ::testing::TestWithParam<Kind> {
protected:
    QDomDocument m_document = QDomDocument("kinds");
};

TEST_P(KindOf, IsTheNodeItself)
{
    const auto node = GetParam().make(m_document.createElement(GetParam().element));
    EXPECT_EQ(GetParam().test(node.get()), node.get());
}

TEST_P(KindOf, IsNullForAnotherElementName)
{
    for (const char* name : {"other", "Camera", "Lens", ""}) {
        const auto node = GetParam().make(m_document.createElement(name));
        EXPECT_EQ(GetParam().test(node.get()), nullptr) << name;
    }
}

TEST_P(KindOf, IsNullForEveryOtherKind)
{
    for (const Kind& other : kinds()) {
        if (other.element == std::string(GetParam().element))
            continue;
        const auto node = other.make(m_document.createElement(other.element));
        EXPECT_EQ(GetParam().test(node.get()), nullptr) << other.element;
    }
}

TEST_P(KindOf, NeedsTheKindsClassWhereThereIsOne)
{
    const auto plain = bind(m_document.createElement(GetParam().element));
    EXPECT_EQ(GetParam().test(plain.get()), GetParam().hasClass ? nullptr : plain.get());
}

TEST_P(KindOf, IsNullForTheRightClassUnderAnotherKindsName)
{
    for (const Kind& other : kinds()) {
        if (other.element == std::string(GetParam().element))
            continue;
        const auto node = GetParam().make(m_document.createElement(other.element));
        EXPECT_EQ(GetParam().test(node.get()), nullptr) << other.element;
    }
}

TEST_P(KindOf, IsNullForNull)
{
    EXPECT_EQ(GetParam().test(nullptr), nullptr);
}

TEST_P(KindOf, IsNullForANodeBoundToNothing)
{
    const auto node = GetParam().make(QDomNode());
    EXPECT_EQ(GetParam().test(node.get()), nullptr);
}

INSTANTIATE_TEST_SUITE_P(RVOpenSchema, KindOf, ::testing::ValuesIn(kinds()),
                         [](const auto& instance) { return std::string(instance.param.element); });

TEST(RVOpenSchema, GroupsAndFoldersAreToldByNameWhateverTheirClass)
{
    const QDomDocument document = parse("<materials/>");
    const auto camera = bind<Camera>(document.documentElement());
    EXPECT_EQ(RVOpenSchema::isNodeMaterials(camera.get()), camera.get());
    const QDomDocument folder = parse("<dir/>");
    const auto directory = bind<Directory>(folder.documentElement());
    EXPECT_EQ(RVOpenSchema::isNodeDir(directory.get()), directory.get());
}

TEST(RVOpenSchema, PaletteThatTheFactoryMadeIsNoMaterialRepository)
{
    const QDomDocument document = parse("<root><materialRepository/></root>");
    const auto root = bind(document.documentElement());
    RVOpenNode* const palette = root->GetChild(1, 1);
    ASSERT_NE(palette, nullptr);
    EXPECT_EQ(palette->GetNodeName(), "materialRepository");
    EXPECT_EQ(RVOpenSchema::isNodeMaterialRepository(palette), nullptr);
}

TEST(RVOpenSchema, ShaderColourIsAParameterOfThatShaderAndClass)
{
    const QDomDocument document = parse("<param type='shader' val='colour'/>");
    const auto node = bind<ShaderColour>(document.documentElement());
    EXPECT_EQ(RVOpenSchema::isNodeShaderColour(node.get()), node.get());
}

TEST(RVOpenSchema, ShaderColourNeedsItsClass)
{
    const QDomDocument document = parse("<param type='shader' val='colour'/>");
    const auto param = bind<Param>(document.documentElement());
    EXPECT_EQ(RVOpenSchema::isNodeShaderColour(param.get()), nullptr);
    const auto plain = bind(document.documentElement());
    EXPECT_EQ(RVOpenSchema::isNodeShaderColour(plain.get()), nullptr);
}

TEST(RVOpenSchema, ShaderColourNeedsItsElementTypeAndValue)
{
    for (const char* xml :
         {"<other type='shader' val='colour'/>", "<param type='shader' val='map'/>",
          "<param type='string' val='colour'/>", "<param type='colour' val='colour'/>",
          "<param val='colour'/>", "<param type='shader'/>",
          "<param type='shader' val='Colour'/>"}) {
        const QDomDocument document = parse(xml);
        const auto node = bind<ShaderColour>(document.documentElement());
        EXPECT_EQ(RVOpenSchema::isNodeShaderColour(node.get()), nullptr) << xml;
    }
}

TEST(RVOpenSchema, ShaderColourOfNullIsNull)
{
    EXPECT_EQ(RVOpenSchema::isNodeShaderColour(nullptr), nullptr);
}

TEST(RVOpenSchema, ShaderColourIsAParameterToo)
{
    const QDomDocument document = parse("<param type='shader' val='colour'/>");
    const auto node = bind<ShaderColour>(document.documentElement());
    EXPECT_EQ(RVOpenSchema::isNodeParam(node.get()), node.get());
}

// Placement

/// What each parent takes; a parent that is not here takes nothing, a folder takes everything.
const std::map<std::string, std::set<std::string>> acceptedChildren = {
    {"schemes", {"dir", "scheme"}},
    {"materials", {"dir", "material"}},
    {"colours", {"dir", "colour"}},
    {"finishes", {"dir", "finish"}},
    {"transparencies", {"dir", "transparency"}},
    {"bumps", {"dir", "bump"}},
    {"backgrounds", {"dir", "background"}},
    {"foregrounds", {"dir", "foreground"}},
    {"cameras", {"dir", "camera"}},
    {"material", {"finish", "bump", "colour", "transparency"}},
};

class Placement : public ::testing::TestWithParam<Kind> {
protected:
    QDomDocument m_document = QDomDocument("placement");
    const std::unique_ptr<RVOpenNode> m_parent =
        GetParam().make(m_document.createElement(GetParam().element));
};

TEST_P(Placement, TakesItsOwnKindsOnly)
{
    const bool isFolder = GetParam().element == std::string("dir");
    const auto accepted = acceptedChildren.find(GetParam().element);
    for (const Kind& child : kinds()) {
        const auto node = child.make(m_document.createElement(child.element));
        const bool expected = isFolder || (accepted != acceptedChildren.end() &&
                                           accepted->second.count(child.element) > 0);
        EXPECT_EQ(RVOpenSchema::canAddNode(m_parent.get(), node.get()), expected ? 1 : 0)
            << child.element << " under " << GetParam().element;
    }
}

TEST_P(Placement, TakesPresetsOfTheirClassOnly)
{
    const bool isFolder = GetParam().element == std::string("dir");
    for (const Kind& child : kinds()) {
        if (!child.hasClass)
            continue;
        const auto plain = bind(m_document.createElement(child.element));
        EXPECT_EQ(RVOpenSchema::canAddNode(m_parent.get(), plain.get()), isFolder ? 1 : 0)
            << child.element << " under " << GetParam().element;
    }
}

INSTANTIATE_TEST_SUITE_P(RVOpenSchema, Placement, ::testing::ValuesIn(kinds()),
                         [](const auto& instance) { return std::string(instance.param.element); });

int canPlace(const char* child, const char* parent)
{
    const QDomDocument parentDocument = parse(QString("<%1/>").arg(parent));
    const QDomDocument childDocument = parse(QString("<%1/>").arg(child));
    const auto parentNode = create(parentDocument.documentElement());
    const auto childNode = create(childDocument.documentElement());
    return RVOpenSchema::canAddNode(parentNode.get(), childNode.get());
}

TEST(RVOpenSchema, FoldersTakeUnknownNodes)
{
    EXPECT_EQ(canPlace("unknown", "dir"), 1);
    EXPECT_EQ(canPlace("dir", "dir"), 1);
}

TEST(RVOpenSchema, UnknownNodesTakeNothing)
{
    EXPECT_EQ(canPlace("dir", "unknown"), 0);
    EXPECT_EQ(canPlace("camera", "unknown"), 0);
}

TEST(RVOpenSchema, PlacementIsCaseSensitive)
{
    EXPECT_EQ(canPlace("Camera", "cameras"), 0);
    EXPECT_EQ(canPlace("camera", "Cameras"), 0);
    EXPECT_EQ(canPlace("Dir", "cameras"), 0);
    EXPECT_EQ(canPlace("camera", "Dir"), 0);
}

TEST(RVOpenSchema, MaterialOfAnotherClassTakesNothing)
{
    const QDomDocument document = parse("<material/>");
    const QDomDocument bumpDocument = parse("<bump/>");
    const auto plain = bind(document.documentElement());
    const auto bump = create(bumpDocument.documentElement());
    EXPECT_EQ(RVOpenSchema::canAddNode(plain.get(), bump.get()), 0);
}

TEST(RVOpenSchema, NothingCanBePlacedUnderNull)
{
    const QDomDocument document = parse("<dir/>");
    const auto folder = create(document.documentElement());
    EXPECT_EQ(RVOpenSchema::canAddNode(nullptr, folder.get()), 0);
    EXPECT_EQ(RVOpenSchema::canAddNode(nullptr, nullptr), 0);
}

TEST(RVOpenSchema, NullCannotBePlaced)
{
    for (const char* parent : {"materials", "material", "unknown"}) {
        const QDomDocument document = parse(QString("<%1/>").arg(parent));
        const auto node = create(document.documentElement());
        EXPECT_EQ(RVOpenSchema::canAddNode(node.get(), nullptr), 0) << parent;
    }
}

} // namespace
} // namespace rvopen::test
