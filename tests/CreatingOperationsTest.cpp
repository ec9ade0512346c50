// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "MaterialFixtures.h"

#include <rvopen/ArtificialLightStudio.h>
#include <rvopen/Background.h>
#include <rvopen/Bump.h>
#include <rvopen/Camera.h>
#include <rvopen/Colour.h>
#include <rvopen/Finish.h>
#include <rvopen/Foreground.h>
#include <rvopen/Material.h>
#include <rvopen/MaterialRepository.h>
#include <rvopen/NaturalLightStudio.h>
#include <rvopen/RVOpenView.h>
#include <rvopen/RenderTarget.h>
#include <rvopen/RenderTargets.h>
#include <rvopen/Scenery.h>
#include <rvopen/ShaderColour.h>
#include <rvopen/ShaderDiffuse.h>
#include <rvopen/ShaderMap.h>
#include <rvopen/ShaderPlainColour.h>
#include <rvopen/SnapShot.h>
#include <rvopen/SnapShotSettings.h>
#include <rvopen/Transparency.h>

#include <functional>

/// What creates a parameter or a component that is missing uses the one that is there, whatever
/// stands in front of it, so that a document that is loaded, set and saved does not grow.
namespace rvopen::test {
namespace {

/// What may stand in front; the last two get no object of their own, so that a walk ends there.
const char* const s_strangers[] = {
    "",
    "<!--note-->",
    "<?pi x?>",
    "ink",
    "<other/>",
    "<other><diffuse/></other>",
    "<param name='Odd' type='string' val='x'/>",
    "<param name='Noise' type='shader' val='noise'/>",
    "<param name='Noise' type='shader' val='noise'/><other/><!--note-->",
};

struct Operation {
    const char* name;
    const char* tag; ///< Of the node that it is called on, with attributes.
    QString before;  ///< The children that are there.
    QString after;   ///< The same as it leaves them.
    /// Calls it on an object over the element.
    std::function<void(const QDomElement& element)> run;

    QString node(const QString& stranger, const QString& content) const
    {
        return QStringLiteral("<%1>%2%3</%4>")
            .arg(QString::fromLatin1(tag), stranger, content,
                 QString::fromLatin1(tag).section(QLatin1Char(' '), 0, 0));
    }
};

void PrintTo(const Operation& operation, std::ostream* out)
{
    *out << operation.name;
}

template <typename Class, typename Run>
Operation operation(const char* name, const char* tag, const QString& before, const QString& after,
                    Run run)
{
    return {name, tag, before, after, [run](const QDomElement& element) {
                const RVOpenView<Class> object(element);
                run(*object);
            }};
}

/// A setter of a parameter.
template <typename Class, typename... Value>
Operation sets(const char* name, const char* parameter, const char* type, const char* value,
               unsigned int (Class::*set)(Value...), Value... argument)
{
    return operation<Class>(name, "x subcat='Image'", param(parameter, type, "0"),
                            param(parameter, type, value),
                            [=](Class& object) { EXPECT_EQ((object.*set)(argument...), 0u); });
}

/// An operation that creates a whole set, on a node that has one parameter.
template <typename Class>
Operation populates(const char* name, const char* tag)
{
    const QString one = param("Mine", "float", "3");
    return operation<Class>(name, tag, one, one, [](Class& object) { object.PopulateParams(); });
}

/// A getter that creates a component; the one that it gives is marked.
template <typename Class, typename Get>
Operation gets(const char* name, const char* tag, const char* component, Get get)
{
    const QString xml = QString::fromLatin1(component);
    QString marked = xml;
    marked.insert(marked.indexOf(QLatin1Char('/')), QStringLiteral(" desc='marked'"));
    return operation<Class>(name, tag, xml, marked, [get](Class& object) {
        auto* const found = get(object);
        ASSERT_NE(found, nullptr);
        found->SetDescription(QStringLiteral("marked"));
        EXPECT_EQ(get(object), found);
    });
}

/// A setter that replaces a component.
template <typename Class, typename Component, typename Result>
Operation replaces(const char* name, const char* tag, const char* element,
                   Result (Class::*set)(Component*))
{
    const QString xml = QStringLiteral("<%1 desc='%2'/>").arg(QString::fromLatin1(element));
    return operation<Class>(name, tag, xml.arg("old"), xml.arg("new"), [=](Class& object) {
        const auto fresh = bindRoot<Component>(xml.arg("new"));
        (object.*set)(new Component(*fresh));
    });
}

float s_grey[] = {0.5f, 0.5f, 0.5f};

const Operation s_operations[] = {
    sets("BaseSize", "Base Size", "float", "4", &Scenery::SetBaseSize, 4.0f),
    sets("CatchSpots", "Drop Shadow Catch Spots", "boolean", "1", &Scenery::SetDropShadowCatchSpots,
         1),
    sets("Selected", "Selected", "boolean", "1", &SnapShotSettings::SetSelected, 1),
    sets("ReflectBackPlate", "Reflect BackPlate", "boolean", "1",
         &SnapShotSettings::SetReflectBackPlate, 1),
    sets("Landscape", "Landscape", "boolean", "1", &RenderTarget::SetLandscape, 1),
    sets("Gamma", "Gamma", "float", "4", &RenderTarget::SetGamma, 4.0f),
    sets("ViewFit", "View Fit", "boolean", "1", &Camera::SetViewFit, 1),
    sets("HorizonPosition", "Horizon Position", "float", "4",
         &Background::SetImage3DHorizonPosition, 4.0f),
    sets("FixedSize", "Fixed Size", "float", "4", &Background::SetImage3DFixedSize, 4.0f),
    sets("UseDiffuse", "Use Diffuse", "boolean", "1", &Bump::SetUseDiffuse, 1),
    sets("IsNormalMap", "Is Normal Map", "boolean", "1", &Bump::SetIsNormalMap, 1),
    sets("BumpHeight", "Height", "float", "4", &Bump::SetHeight, 4.0f),
    sets("Softness", "Softness", "float", "4", &Bump::SetSoftness, 4.0f),
    sets("InvertMask", "InvertMask", "boolean", "1", &Transparency::SetInvertMask, 1),
    sets("Rotation", "Rotation", "float", "4", &ShaderMap::SetRotation, 4.0f),
    sets("Texture", "Texture", "string", "a.jpg", &ShaderMap::SetTexture, QString("a.jpg")),
    sets("Width", "Width", "float", "4", &ShaderMap::SetWidth, 4.0f),
    sets("MapHeight", "Height", "float", "4", &ShaderMap::SetHeight, 4.0f),
    sets("UseAlpha", "Use Alpha", "boolean", "1", &ShaderMap::SetUseAlpha, 1),
    sets("PlainColour", "Colour", "colour", "0.5 0.5 0.5", &ShaderPlainColour::SetColour,
         static_cast<float*>(s_grey)),
    operation<ShaderMap>("Mapping", "map",
                         param("T Reflect", "boolean", "0") + param("S Reflect", "boolean", "0"),
                         param("T Reflect", "boolean", "1") + param("S Reflect", "boolean", "1"),
                         [](ShaderMap& map) { EXPECT_EQ(map.SetMapping(1, 1), 0u); }),
    operation<ShaderMap>("Offset", "map",
                         param("T Offset", "float", "0") + param("S Offset", "float", "0"),
                         param("T Offset", "float", "3") + param("S Offset", "float", "2"),
                         [](ShaderMap& map) { EXPECT_EQ(map.SetOffset(2.0f, 3.0f), 0u); }),
    operation<SnapShotSettings>(
        "BackgroundReflected", "snapShotSettings",
        param("Reflected Env Intensity", "float", "0") +
            param("Reflected Env Path", "string", "old"),
        param("Reflected Env Intensity", "float", "2") +
            param("Reflected Env Path", "string", "new"),
        [](SnapShotSettings& settings) { settings.SetBackgroundReflected("new", 2.0f); }),

    populates<Camera>("Camera", "camera"),
    populates<RenderTarget>("RenderTarget", "renderTarget subcat='Image'"),
    populates<Scenery>("Scenery", "scenery"),
    populates<SnapShotSettings>("SnapShotSettings", "snapShotSettings"),
    populates<NaturalLightStudio>("NaturalLightStudio", "naturalLightStudio"),
    populates<ArtificialLightStudio>("ArtificialLightStudio", "artificialLightStudio"),
    populates<Foreground>("Foreground", "foreground subcat='Depth Cue'"),
    populates<Background>("Background", "background subcat='Horizon'"),

    gets<Material>("GetColour", "material", "<colour/>",
                   [](Material& material) { return material.GetColour(1); }),
    gets<Material>("GetTransparency", "material", "<transparency/>",
                   [](Material& material) { return material.GetTransparency(1); }),
    gets<Material>("GetBump", "material", "<bump/>",
                   [](Material& material) { return material.GetBump(1); }),
    gets<Colour>("GetDiffuse", "colour", "<diffuse/>",
                 [](Colour& colour) { return colour.GetDiffuse(); }),
    gets<ShaderDiffuse>("ColourOfADiffuse", "diffuse",
                        "<param name='Any' type='shader' val='colour'/>",
                        [](ShaderDiffuse& diffuse) { return diffuse.GetColour(); }),
    gets<Bump>("ColourOfABump", "bump", "<param name='Any' type='shader' val='colour'/>",
               [](Bump& bump) { return bump.GetColour(); }),
    gets<Transparency>("ColourOfATransparency", "transparency",
                       "<param name='Any' type='shader' val='colour'/>",
                       [](Transparency& transparency) { return transparency.GetColour(); }),
    gets<ShaderColour>("GetPlainColour", "param type='shader' val='colour'", "<plainColour/>",
                       [](ShaderColour& colour) { return colour.GetPlainColour(1); }),
    gets<ShaderColour>("GetMap", "param type='shader' val='colour'", "<map/>",
                       [](ShaderColour& colour) { return colour.GetMap(1); }),
    gets<SnapShot>("GetRenderTargets", "snapshot", "<renderTargets/>",
                   [](SnapShot& snapShot) { return snapShot.GetRenderTargets(); }),
    gets<SnapShot>("GetMaterialRepository", "snapshot", "<materialRepository/>",
                   [](SnapShot& snapShot) { return snapShot.GetMaterialRepository(); }),
    gets<SnapShot>("GetArtificialLightStudio", "snapshot", "<artificialLightStudio/>",
                   [](SnapShot& snapShot) { return snapShot.GetArtificialLightStudio(); }),

    replaces("SetColour", "material", "colour", &Material::SetColour),
    replaces("SetFinish", "material", "finish", &Material::SetFinish),
    replaces("SetTransparency", "material", "transparency", &Material::SetTransparency),
    replaces("SetBump", "material", "bump", &Material::SetBump),
    replaces("SetBaseMaterial", "material", "material", &Material::SetBaseMaterial),
    replaces("SetDiffuse", "colour", "diffuse", &Colour::SetDiffuse),
};

class CreatingOperation : public ::testing::TestWithParam<Operation> {};

TEST_P(CreatingOperation, UsesWhatIsThereWhateverStandsInFront)
{
    for (const char* const stranger : s_strangers) {
        QString xml = GetParam().node(stranger, GetParam().before);
        const QString expected = GetParam().node(stranger, GetParam().after);
        for (int session = 0; session < 3; ++session) {
            const QDomDocument document = parse(xml);
            GetParam().run(document.documentElement());
            ASSERT_EQ(xmlOf(document), xmlOf(parse(expected))) << stranger;
            xml = document.toString(-1);
        }
    }
}

INSTANTIATE_TEST_SUITE_P(All, CreatingOperation, ::testing::ValuesIn(s_operations), RowName());

const char s_noise[] = "<param type='shader' val='noise'/>";

TEST(CreatingOperation, GivesEachElementOneObjectInDocumentOrder)
{
    const Bound<Material> material("<material><finish/>" + QString(s_noise) +
                                   "<bump/><other/><colour/></material>");
    Bump* const bump = material->GetBump(1);
    Colour* const colour = material->GetColour(1);
    EXPECT_EQ(childNames(material.get()), QStringList({"finish", "bump", "other", "colour"}));
    EXPECT_EQ(material->GetBump(0), bump);
    EXPECT_EQ(material->GetColour(0), colour);
    EXPECT_EQ(bump->GetParent(), material.get());
}

TEST(CreatingOperation, PutsWhatItFindsBetweenTheObjectsThatAreThere)
{
    const Bound<Material> material("<material>" + QString(s_noise) + "<bump/>" + s_noise +
                                   "<transparency/></material>");
    material->AddNode(bind(QDomDocument(material.document).createElement("last")).release(), true);
    material->GetTransparency(1);
    material->GetBump(1);
    EXPECT_EQ(childNames(material.get()), QStringList({"bump", "transparency", "last"}));
}

TEST(CreatingOperation, TakesTheFirstOfItsKind)
{
    const Bound<Bump> bump("<bump>" + QString(s_noise) +
                           "<param name='Colour' type='colour' val='1 1 1'/>" +
                           shaderColourXml("<map/>") + shaderColourXml() + "</bump>");
    ShaderColour* const colour = bump->GetColour();
    ASSERT_NE(colour, nullptr);
    EXPECT_NE(colour->GetMap(0), nullptr);
}

TEST(CreatingOperation, LeavesThePlainGetterAtTheEndOfTheWalk)
{
    const Bound<Material> material("<material>" + QString(s_noise) + "<colour/></material>");
    EXPECT_EQ(material->GetColour(0), nullptr);
    EXPECT_EQ(material->GetNumChildren(), 0);
}

TEST(CreatingOperation, UsesAnElementThatAnObjectOfNoClassStandsFor)
{
    const Bound<Material> material("<material/>");
    auto* const plain = new RVOpenNode();
    plain->SetDomNode(QDomDocument(material.document).createElement("colour"));
    material->AddNode(plain, true);
    Colour* const colour = material->GetColour(1);
    ASSERT_NE(colour, nullptr);
    EXPECT_EQ(children(material.get()), std::vector<RVOpenNode*>{colour});
    plain->SetName("valid");
    EXPECT_EQ(textOf(*material.get()),
              textOf(QString("<material><colour name='valid'/></material>")));
}

TEST(CreatingOperation, UsesTheElementOfTheArchiveThatTheNodeStandsFor)
{
    const Stone stone("<material>" + QString(s_noise) + "<colour/></material>");
    const auto material = bindRoot<Material>(stoneReference("material"));
    Colour* const colour = material->GetColour(1);
    ASSERT_NE(colour, nullptr);
    EXPECT_EQ(colour->GetParent(), stone.root);
    EXPECT_EQ(domChildNames(stone.root->GetDomNode()), QStringList({"param", "colour"}));
}

TEST(CreatingOperation, ThroughACopyShowsTheObjectInBoth)
{
    const Bound<Material> material("<material>" + QString(s_noise) + "<colour/></material>");
    material->AddNode(bind(QDomDocument(material.document).createElement("last")).release(), true);
    Material copy(*material.get());
    Colour* const colour = copy.GetColour(1);
    EXPECT_EQ(children(&copy), children(material.get()));
    EXPECT_EQ(children(&copy).front(), colour);
}

TEST(CreatingOperation, KeepsTheMaterialsOwnComponentsWhenItsBaseIsConsolidated)
{
    const Bound<Material> material(
        "<material><material><colour name='base'/><finish name='base'/></material>" +
        QString(s_noise) + "<colour name='own'/><bump name='own'/></material>");
    material->ConsolidateBaseMaterial();
    EXPECT_EQ(xmlOf(material.document),
              xmlOf(parse("<material>" + QString(s_noise) +
                          "<colour name='own'/>"
                          "<bump name='own'/><finish name='base'/></material>")));
}

TEST(CreatingOperation, OfASnapShotUsesTheElementThatADeletedComponentLeaves)
{
    const QDomDocument document = parse("<snapshot><renderTargets name='a'/><renderTargets "
                                        "name='b'/></snapshot>");
    SnapShot snapShot(document.documentElement());
    ASSERT_EQ(snapShot.GetRenderTargets()->GetName(), "b");
    delete snapShot.GetRenderTargets();
    EXPECT_EQ(snapShot.GetRenderTargets()->GetName(), "a");
    EXPECT_EQ(domChildNames(document.documentElement()), QStringList("renderTargets"));
}

TEST(CreatingOperation, CreatesWhereNoneOfTheKindIsThere)
{
    const Bound<Material> material("<material>" + QString(s_noise) + "<bump/></material>");
    ASSERT_NE(material->GetColour(1), nullptr);
    EXPECT_EQ(domChildNames(material.element()), QStringList({"param", "bump", "colour"}));
}

} // namespace
} // namespace rvopen::test
