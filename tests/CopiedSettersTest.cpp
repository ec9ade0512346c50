// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "MaterialFixtures.h"

#include <rvopen/ArtificialLightStudio.h>
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
#include <rvopen/RVOpenStatus.h>
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

#include <functional>

/// An object whose element was copied into another document writes there and nowhere else, by
/// every one of its typed setters.
namespace rvopen::test {
namespace {

/// Calls a setter: on the object, between a look at both documents before and after.
using Call = std::function<void(RVOpenNode& object)>;

struct Written {
    const char* name;
    QString xml;
    /// An object of the class over the element, all below it made.
    std::function<RVOpenNode*(const QDomElement& element)> make;
    std::vector<Call> calls;
};

void PrintTo(const Written& written, std::ostream* out)
{
    *out << written.name;
}

template <typename Class>
using Calls = std::vector<std::function<void(Class& object)>>;

/// The setters that every class has.
Calls<RVOpenNode> nodeCalls()
{
    return {
        [](RVOpenNode& node) { node.SetAttributeFloat("f", 1.5f); },
        [](RVOpenNode& node) { node.SetAttributeInt("i", 7); },
        [](RVOpenNode& node) { node.SetAttributeBool("b", 1); },
        [](RVOpenNode& node) { node.SetAttributeString("s", "written"); },
        [](RVOpenNode& node) { node.SetName("written"); },
        [](RVOpenNode& node) { node.SetCat("written"); },
        [](RVOpenNode& node) { node.SetDescription("written"); },
        [](RVOpenNode& node) { node.SetShaderClass("written"); },
        [](RVOpenNode& node) { node.SetPath("written"); },
        [](RVOpenNode& node) { node.SetImageName("written"); },
        [](RVOpenNode& node) { node.SetImageBorder(RVOpenNode::ImageBorderImported); },
        [](RVOpenNode& node) { node.RVOpenNode::SetEnabled(0); },
        [](RVOpenNode& node) { node.SetTranslationDisabled(1); },
        [](RVOpenNode& node) { node.SetCustom(1); },
        [](RVOpenNode& node) { node.SetReset(1); },
        [](RVOpenNode& node) { node.SetThumbnailRegenerated(0); },
        [](RVOpenNode& node) { node.GetParamHelper()->AddFloatParam("float"); },
        [](RVOpenNode& node) { node.GetParamHelper()->AddFloatParam("number", 2.0f); },
        [](RVOpenNode& node) { node.GetParamHelper()->AddIntParam("int"); },
        [](RVOpenNode& node) { node.GetParamHelper()->AddStringParam("string"); },
        [](RVOpenNode& node) { node.GetParamHelper()->AddBoolParam("bool"); },
        [](RVOpenNode& node) { node.GetParamHelper()->AddColourParam("colour"); },
        [](RVOpenNode& node) { node.GetParamHelper()->AddVectorParam("vector"); },
        [](RVOpenNode& node) { node.GetParamHelper()->AddPointParam("point"); },
        [](RVOpenNode& node) { node.SetRefName("written"); },
        [](RVOpenNode& node) { node.SetSubCat("written"); },
        [](RVOpenNode& node) { node.SetShortArchiveFilename("written"); },
    };
}

template <typename Class, typename = void>
struct HasPopulateParams : std::false_type {
};
template <typename Class>
struct HasPopulateParams<Class, std::void_t<decltype(std::declval<Class&>().PopulateParams())>>
    : std::true_type {
};

/// \p own: the setters of the class itself, in an order in which each changes something.
template <typename Class>
Written written(const char* name, const QString& xml, const Calls<Class>& own = {})
{
    Written row{name,
                xml,
                [](const QDomElement& element) -> RVOpenNode* {
                    Class* const object = bind<Class>(element).release();
                    if constexpr (HasPopulateParams<Class>::value)
                        object->PopulateParams();
                    if constexpr (std::is_same_v<Class, MaterialRepository> ||
                                  std::is_same_v<Class, SnapShots> ||
                                  std::is_same_v<Class, RenderTargets>)
                        object->Populate();
                    return object;
                },
                {}};
    for (const auto& call : own)
        row.calls.push_back([call](RVOpenNode& object) { call(static_cast<Class&>(object)); });
    for (const auto& call : nodeCalls())
        row.calls.push_back(call);
    return row;
}

/// A call of a setter that has to succeed.
template <typename Class, typename... Parameter, typename... Value>
std::function<void(Class&)> sets(unsigned int (Class::*set)(Parameter...), Value... value)
{
    return [=](Class& object) { EXPECT_EQ((object.*set)(value...), StatusOk); };
}

/// Of a setter that takes a component over.
template <typename Class, typename Component, typename Result>
std::function<void(Class&)> takes(Result (Class::*set)(Component*), const char* xml)
{
    return [=](Class& object) {
        const auto source = bindRoot<Component>(xml);
        (object.*set)(new Component(source.get()));
    };
}

/// Of an operation that adds a copy of a component.
template <typename Class, typename Component, typename Result>
std::function<void(Class&)> copies(Result (Class::*add)(Component*), const char* xml)
{
    return [=](Class& object) {
        const auto source = bindRoot<Component>(xml);
        (object.*add)(source.get());
    };
}

/// Of an operation on the material "A" of a palette.
template <typename Component>
std::function<void(MaterialRepository&)>
adds(Component* (MaterialRepository::*add)(Component*, QString, int*), const char* xml)
{
    return [=](MaterialRepository& palette) {
        const auto source = bindRoot<Component>(xml);
        EXPECT_NE((palette.*add)(source.get(), "A", nullptr), nullptr);
    };
}

float s_triple[] = {0.25f, 0.5f, 0.75f};
float* const s_three = s_triple;

const Calls<Background> s_imageCalls = {
    sets(&Background::SetImageBackground, "a.jpg"),
    sets(&Background::SetImage3DBackground, "b.jpg"),
    sets(&Background::SetReflectionBackground, "c.jpg"),
    sets(&Background::SetImage3DHorizonPosition, 0.7f),
    sets(&Background::SetImage3DFixedSize, 7.0f),
};

/// The setters of a parameter.
Calls<Param> paramCalls()
{
    return {
        [](Param& param) { param.SetTypeFloat(7.0f); },
        sets(&Param::SetValFloat, 8.0f),
        [](Param& param) { param.SetTypeInt(7); },
        sets(&Param::SetValInt, 8),
        [](Param& param) { param.SetTypeBool(1); },
        sets(&Param::SetValBool, 0),
        [](Param& param) { param.SetTypeString("written"); },
        sets(&Param::SetValString, "again"),
        [](Param& param) { param.SetTypeColour(s_three); },
        [](Param& param) { param.SetTypeVector(s_three); },
        [](Param& param) { param.SetTypePoint(s_three); },
        [](Param& param) {
            float one[] = {1.0f, 1.0f, 1.0f};
            EXPECT_EQ(param.SetValPoint(one), StatusOk);
        },
        [](Param& param) { param.SetTypeVector(s_three); },
        [](Param& param) {
            float two[] = {2.0f, 2.0f, 2.0f};
            EXPECT_EQ(param.SetValVector(two), StatusOk);
        },
        [](Param& param) { param.SetTypeColour(s_three); },
        [](Param& param) {
            float three[] = {3.0f, 3.0f, 3.0f};
            EXPECT_EQ(param.SetValColour(three), StatusOk);
        },
        [](Param& param) { param.SetTypeShader("other"); },
        sets(&Param::SetValShaderType, "colour"),
    };
}

Calls<ShaderColour> shaderColourCalls()
{
    Calls<ShaderColour> calls = {
        [](ShaderColour& colour) { EXPECT_NE(colour.GetPlainColour(1), nullptr); },
        [](ShaderColour& colour) { EXPECT_NE(colour.GetMap(1), nullptr); },
        [](ShaderColour& colour) { colour.GetMap(0)->SetTexture("a.jpg"); },
    };
    for (const auto& call : paramCalls())
        calls.push_back(call);
    return calls;
}

const Written s_written[] = {
    written<RVOpenNode>("Generic", "<x><y/></x>"),
    written<Scheme>("Scheme", "<scheme/>"),
    written<Directory>("Directory", "<dir/>"),
    written<AspectRatio>("AspectRatio", "<aspectratio/>"),
    written<AspectRatioOrient>("AspectRatioOrient", "<aspectratioorient/>"),
    written<Foreground>("Foreground", "<foreground subcat='Depth Cue'/>"),
    written<Lens>("Lens", "<lens>" + param("Angle", "float", "0") + "</lens>",
                  {sets(&Lens::SetAngle, 7.0f)}),
    written<Background>("PlainBackground", "<background subcat='Plain'/>",
                        {sets(&Background::SetPlainColour, s_three)}),
    written<Background>("GraduatedBackground", "<background subcat='Graduated'/>",
                        {sets(&Background::SetPrimaryColour, s_three),
                         sets(&Background::SetSecondaryColour, s_three)}),
    written<Background>("HorizonBackground", "<background subcat='Horizon'/>",
                        {sets(&Background::SetSkyColour, s_three),
                         sets(&Background::SetHorizonSkyColour, s_three),
                         sets(&Background::SetHorizonGroundColour, s_three),
                         sets(&Background::SetGroundColour, s_three)}),
    written<Background>("ImageBackground", "<background subcat='Image'/>", s_imageCalls),
    written<Background>("Image3DBackground", "<background subcat='Image3D'/>", s_imageCalls),
    written<Background>("ReflectionBackground", "<background subcat='Reflection'/>", s_imageCalls),
    written<Background>("EmptyBackground", "<background/>", {[](Background& background) {
                            background.SetSubCat("Horizon");
                            background.PopulateParams();
                        }}),
    written<Camera>("Camera", "<camera/>",
                    {sets(&Camera::SetPinhole, s_three, s_three, s_three, 0, 7.0f),
                     sets(&Camera::SetClipping, 1.0f, 7.0f), sets(&Camera::SetViewFit, 1),
                     sets(&Camera::SetSubCatAsUpVector)}),
    written<Param>("Param", "<param name='x' type='float' val='1'/>", paramCalls()),
    written<ShaderColour>("ShaderColour", "<param type='shader' val='colour'/>",
                          shaderColourCalls()),
    written<Material>("Material", "<material/>",
                      {[](Material& material) { material.SetLinkName("written"); },
                       [](Material& material) { EXPECT_NE(material.GetColour(1), nullptr); },
                       [](Material& material) { EXPECT_NE(material.GetTransparency(1), nullptr); },
                       [](Material& material) { EXPECT_NE(material.GetBump(1), nullptr); },
                       takes(&Material::SetColour, "<colour name='a'/>"),
                       takes(&Material::SetFinish, "<finish name='a'/>"),
                       takes(&Material::SetTransparency, "<transparency name='a'/>"),
                       takes(&Material::SetBump, "<bump name='a'/>"),
                       takes(&Material::SetBaseMaterial, "<material><colour/></material>"),
                       [](Material& material) { material.SetColour(nullptr); },
                       [](Material& material) { material.ConsolidateBaseMaterial(); }}),
    written<Colour>("Colour", "<colour/>",
                    {[](Colour& colour) { EXPECT_NE(colour.GetDiffuse(), nullptr); },
                     [](Colour& colour) { colour.SetDiffuse(nullptr); }}),
    written<Finish>("Finish", "<finish/>",
                    {sets(&Finish::SetAndPopulateShaderClass, "lit appearance")}),
    written<Transparency>("Transparency", "<transparency/>",
                          {sets(&Transparency::SetInvertMask, 0),
                           [](Transparency& transparency) { transparency.GetColour(); }}),
    written<Bump>("Bump", "<bump/>",
                  {sets(&Bump::SetUseDiffuse, 0), sets(&Bump::SetIsNormalMap, 0),
                   sets(&Bump::SetHeight, 7.0f), sets(&Bump::SetSoftness, 7.0f),
                   [](Bump& bump) { bump.GetColour(); }}),
    written<ShaderDiffuse>("ShaderDiffuse", "<diffuse/>",
                           {[](ShaderDiffuse& diffuse) { diffuse.GetColour(); }}),
    written<ShaderPlainColour>("ShaderPlainColour", "<plainColour/>",
                               {sets(&ShaderPlainColour::SetColour, s_three)}),
    written<ShaderMap>("ShaderMap", "<map/>",
                       {sets(&ShaderMap::SetMapping, 0, 1), sets(&ShaderMap::SetOffset, 1.0f, 2.0f),
                        sets(&ShaderMap::SetRotation, 7.0f), sets(&ShaderMap::SetTexture, "a.jpg"),
                        sets(&ShaderMap::SetWidth, 7.0f), sets(&ShaderMap::SetHeight, 7.0f),
                        sets(&ShaderMap::SetUseAlpha, 0)}),
    written<SnapShot>(
        "SnapShot",
        "<snapshot><snapShotSettings/><materialRepository><material><material/></material>"
        "</materialRepository></snapshot>",
        {sets(&SnapShot::SetSelected, 1),
         [](SnapShot& snapShot) { snapShot.SetupSnapShotForSerialise(); },
         [](SnapShot& snapShot) { EXPECT_NE(snapShot.GetArtificialLightStudio(), nullptr); },
         [](SnapShot& snapShot) { EXPECT_NE(snapShot.GetRenderTargets(), nullptr); },
         [](SnapShot& snapShot) { delete snapShot.GetMaterialRepository(); },
         [](SnapShot& snapShot) { EXPECT_NE(snapShot.GetMaterialRepository(), nullptr); },
         copies(&SnapShot::AddScheme, "<scheme/>"),
         copies(&SnapShot::AddBackground, "<background/>"),
         copies(&SnapShot::AddForeground, "<foreground/>"),
         copies(&SnapShot::AddCamera, "<camera/>"),
         copies(&SnapShot::AddMaterialRepository, "<materialRepository name='a'/>"),
         copies(&SnapShot::AddNaturalLightStudio, "<naturalLightStudio name='a'/>"),
         copies(&SnapShot::AddScenery, "<scenery/>"),
         [](SnapShot& snapShot) {
             snapShot.AddSnapShotSettings(snapShot.CreateSnapShotSettings(nullptr));
         },
         [](SnapShot& snapShot) { snapShot.CreateAndAddNaturalLightStudio(); },
         [](SnapShot& snapShot) { snapShot.ClearScheme(); },
         [](SnapShot& snapShot) { snapShot.ClearBackground(); },
         [](SnapShot& snapShot) { snapShot.ClearNaturalLightStudio(); },
         [](SnapShot& snapShot) { snapShot.ClearScenery(); }}),
    written<SnapShots>(
        "SnapShots", "<snapshots><snapshot/></snapshots>",
        {[](SnapShots& snapShots) { snapShots.AddNode(snapShots.CreateSnapShot(nullptr), true); },
         [](SnapShots& snapShots) { snapShots.Clear(); }}),
    written<MaterialRepository>(
        "MaterialRepository", "<materialRepository><material linkname='A'/></materialRepository>",
        {adds(&MaterialRepository::AddColour, "<colour name='a'/>"),
         adds(&MaterialRepository::AddFinish, "<finish name='a'/>"),
         adds(&MaterialRepository::AddTransparency, "<transparency name='a'/>"),
         adds(&MaterialRepository::AddBump, "<bump name='a'/>"),
         [](MaterialRepository& palette) {
             const auto base = bindRoot<Material>("<material/>");
             EXPECT_NE(palette.AddBaseMaterial(base.get(), "A"), nullptr);
         },
         adds(&MaterialRepository::ApplyMaterial, "<material refname='r'/>"),
         [](MaterialRepository& palette) { palette.AddMaterial(palette.CreateMaterial()); },
         [](MaterialRepository& palette) { palette.RemoveMaterial(palette.GetFirstMaterial()); },
         [](MaterialRepository& palette) { palette.Clear(); }}),
    written<RenderTargets>(
        "RenderTargets", "<renderTargets><renderTarget/></renderTargets>",
        {[](RenderTargets& targets) { targets.AddNode(targets.CreateRenderTarget(nullptr), true); },
         [](RenderTargets& targets) { targets.Clear(); }}),
    written<RenderTarget>(
        "RenderTarget", "<renderTarget/>",
        {sets(&RenderTarget::SetLightingQuality, 7), sets(&RenderTarget::SetMaterialQuality, 7),
         sets(&RenderTarget::SetRenderQuality, "a"), sets(&RenderTarget::SetModelHint, 7.0f),
         sets(&RenderTarget::SetAspectRatio, 7.0f), sets(&RenderTarget::SetUseAspectRatio, 0),
         sets(&RenderTarget::SetLandscape, 0), sets(&RenderTarget::SetWidth, 7),
         sets(&RenderTarget::SetHeight, 9), sets(&RenderTarget::SetOutputFormat, "a"),
         sets(&RenderTarget::SetFileName, "a"), sets(&RenderTarget::SetShortFileName, "b"),
         sets(&RenderTarget::SetGamma, 7.0f)}),
    written<Scenery>(
        "Scenery", "<scenery/>",
        {sets(&Scenery::EnableDropShadow, 0), sets(&Scenery::EnableDropSunLight, 0),
         sets(&Scenery::EnableDropReflection, 0), sets(&Scenery::SetDropShadowQuality, 7),
         sets(&Scenery::SetDropShadowContrast, 7.0f),
         sets(&Scenery::SetDropSunLightBrightness, 7.0f),
         sets(&Scenery::SetDropReflectionBrightness, 7.0f),
         sets(&Scenery::SetDropReflectionBlur, 7.0f), sets(&Scenery::SetBaseSize, 7.0f),
         sets(&Scenery::SetDropShadowCatchSpots, 1)}),
    written<SnapShotSettings>(
        "SnapShotSettings", "<snapShotSettings/>",
        {sets(&SnapShotSettings::SetSelected, 1), sets(&SnapShotSettings::SetTwist, 7.0f),
         sets(&SnapShotSettings::SetReflectBackPlate, 1),
         sets(&SnapShotSettings::SetAmbientLightsIntensityScale, 7.0f),
         sets(&SnapShotSettings::SetSessionName, "a"),
         sets(&SnapShotSettings::SetBackgroundReflected, "a", 7.0f),
         sets(&SnapShotSettings::SetOrientationInfo, s_three, s_three, s_three)}),
    written<NaturalLightStudio>("NaturalLightStudio", "<naturalLightStudio/>",
                                {sets(&NaturalLightStudio::SetEnabled, 0),
                                 sets(&NaturalLightStudio::SetSunAzimuth, 7.0f),
                                 sets(&NaturalLightStudio::SetSunAltitude, 7.0f)}),
    written<ArtificialLightStudio>("ArtificialLightStudio", "<artificialLightStudio/>",
                                   {sets(&ArtificialLightStudio::SetEnabled, 0),
                                    sets(&ArtificialLightStudio::SetIntensityScale, 7.0f)}),
};

class CopiedSetters : public ::testing::TestWithParam<Written> {};

TEST_P(CopiedSetters, WriteTheDocumentOfTheCopyAndNothingOfTheOld)
{
    for (const bool replaces : {false, true}) {
        const QDomDocument old = parse(QStringLiteral("<old>%1</old>").arg(GetParam().xml));
        RVOpenNode* const object = GetParam().make(old.documentElement().firstChildElement());
        materialise(object);
        const QString before = xmlOf(old);
        const Bound<RVOpenNode> target("<new><p/></new>");
        if (replaces)
            target->ReplaceNode(target->GetChild(1, 1), object);
        else
            target->InsertNode(object, 0);

        int number = 0;
        for (const Call& call : GetParam().calls) {
            const QString copyBefore = xmlOf(target.document);
            call(*object);
            EXPECT_NE(xmlOf(target.document), copyBefore) << "call " << number;
            EXPECT_EQ(xmlOf(old), before) << "call " << number;
            ++number;
        }
    }
}

INSTANTIATE_TEST_SUITE_P(All, CopiedSetters, ::testing::ValuesIn(s_written), RowName());

} // namespace
} // namespace rvopen::test
