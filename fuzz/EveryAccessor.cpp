// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "EveryAccessor.h"

#include "FuzzInput.h"
#include "FuzzSupport.h"

#include <rvopen/AlbumInfo.h>
#include <rvopen/ArtificialLightStudio.h>
#include <rvopen/AspectRatio.h>
#include <rvopen/AspectRatioOrient.h>
#include <rvopen/Background.h>
#include <rvopen/Bump.h>
#include <rvopen/Camera.h>
#include <rvopen/Colour.h>
#include <rvopen/Directory.h>
#include <rvopen/DirectoryHandler.h>
#include <rvopen/Finish.h>
#include <rvopen/Foreground.h>
#include <rvopen/Lens.h>
#include <rvopen/Material.h>
#include <rvopen/MaterialRepository.h>
#include <rvopen/NaturalLightStudio.h>
#include <rvopen/Param.h>
#include <rvopen/RVOpenSchema.h>
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
#include <rvopen/XMLUtils.h>

namespace rvopen::fuzz {

namespace {

void requireStatus(unsigned int status)
{
    require(status == StatusOk || status == StatusMissing, "a status is 0 or 2");
}

/// \name One call, told by the accessor's type
/// @{

template <typename Class, typename Result, typename Base>
void get(Class& node, Result (Base::*getter)() const)
{
    (void)(node.*getter)();
}

template <typename Class, typename Result, typename Base>
void get(Class& node, Result (Base::*getter)())
{
    (void)(node.*getter)();
}

template <typename Class, typename Base>
void get(Class& node, unsigned int (Base::*getter)(int*))
{
    int value = 0;
    requireStatus((node.*getter)(&value));
}

template <typename Class, typename Base>
void get(Class& node, unsigned int (Base::*getter)(int*) const)
{
    int value = 0;
    requireStatus((node.*getter)(&value));
}

/// A single float or an array of three.
template <typename Class, typename Base>
void get(Class& node, unsigned int (Base::*getter)(float*))
{
    float values[3] = {};
    requireStatus((node.*getter)(values));
}

template <typename Class, typename Base>
void get(Class& node, unsigned int (Base::*getter)(float*) const)
{
    float values[3] = {};
    requireStatus((node.*getter)(values));
}

/// Creates what is missing.
template <typename Class, typename Result, typename Base>
void set(Class& node, Result (Base::*creator)(), FuzzInput&)
{
    (void)(node.*creator)();
}

template <typename Class, typename Result, typename Base>
void set(Class& node, Result (Base::*setter)(int), FuzzInput& values)
{
    (void)(node.*setter)(values.integer());
}

template <typename Class, typename Result, typename Base>
void set(Class& node, Result (Base::*setter)(float), FuzzInput& values)
{
    (void)(node.*setter)(values.number());
}

template <typename Class, typename Result, typename Base>
void set(Class& node, Result (Base::*setter)(float*), FuzzInput& values)
{
    float triple[3];
    values.triple(triple);
    (void)(node.*setter)(triple);
}

template <typename Class, typename Result, typename Base>
void set(Class& node, Result (Base::*setter)(QString), FuzzInput& values)
{
    (void)(node.*setter)(values.text());
}

/// @}

template <typename Class, typename... Getters>
void getAll(Class& node, Getters... getters)
{
    (get(node, getters), ...);
}

template <typename Class, typename... Setters>
void setAll(Class& node, FuzzInput& values, Setters... setters)
{
    (set(node, setters, values), ...);
}

/// \name The classes
/// A new accessor is one more line, or one more name in a row. read() leaves the document as it
/// is, write() may change it.
/// @{

void read(RVOpenNode& node)
{
    using N = RVOpenNode;
    getAll(node, &N::GetDomNode, &N::GetNodeName, &N::GetParent, &N::GetParamHelper,
           &N::GetNumSiblings, &N::GetNumChildren, &N::GetName, &N::GetCat, &N::GetDescription,
           &N::GetSubCat, &N::GetShaderClass, &N::GetPath, &N::GetRefName, &N::GetImageName,
           &N::GetShortArchiveFilename, &N::GetImageBorder, &N::IsEnabled,
           &N::IsTranslationDisabled, &N::IsCustom, &N::IsReset, &N::ThumbnailRegenerated,
           &N::GetArchiveFilename, &N::GetArchiveFolder);

    for (const char* name : {"val", "name", "rangeMin", "enabled", "none"}) {
        float number = 0;
        int integer = 0;
        const unsigned int status =
            node.GetAttributeString(name).isEmpty() ? StatusMissing : StatusOk;
        require(node.GetAttributeFloat(name, &number) == status &&
                    node.GetAttributeFloat(name, nullptr) == status &&
                    node.GetAttributeInt(name, &integer) == status &&
                    node.GetAttributeInt(name, nullptr) == status &&
                    node.GetAttributeBool(name, &integer) == status &&
                    node.GetAttributeBool(name, nullptr) == status,
                "a typed attribute is there when its text is");
        require(integer == 0 || integer == 1, "a boolean is 0 or 1");
        float triple[3] = {};
        node.DecodeFloat3(node.GetAttributeString(name), &triple[0], &triple[1], &triple[2]);
    }
    require(node.GetChildPos(nullptr) >= node.GetNumChildren(), "null is no child");
    GetDirectoryHandler()->ArchiveWritable(&node);

    ParamHelper& params = *node.GetParamHelper();
    params.Populate();
    (void)params.GetFirstParam();
    for (const QString& name : {QStringLiteral("Colour"), QStringLiteral("Enabled")}) {
        float triple[3] = {};
        int integer = 0;
        require(params.FindParam(name) == params.GetParam(name),
                "once the children are made, finding a parameter makes nothing");
        requireStatus(params.GetValColour(name, triple));
        requireStatus(params.GetValBool(name, &integer));
        requireStatus(params.GetValFloat(name, triple));
    }

    XMLUtils utils;
    utils.ThumbPathFromRVOpenNode(&node);
    utils.ImagePathFromRVOpenNode(&node, QStringLiteral("folder"));
    utils.GetImageName(&node);
    utils.CheckNameDuplication(&node, node.GetName());
    if (node.GetParent()) {
        utils.CheckNameDuplication(node.GetParent(), node.GetName());
        RVOpenSchema::canAddNode(node.GetParent(), &node);
    }
}

void write(RVOpenNode& node, FuzzInput& values)
{
    using N = RVOpenNode;
    setAll(node, values, &N::SetName, &N::SetCat, &N::SetDescription, &N::SetSubCat,
           &N::SetShaderClass, &N::SetPath, &N::SetRefName, &N::SetImageName, &N::SetEnabled,
           &N::SetTranslationDisabled, &N::SetCustom, &N::SetReset, &N::SetThumbnailRegenerated);
    node.SetImageBorder(static_cast<RVOpenNode::ImageBorder>(values.integer()));
    node.SetAttributeFloat("f", values.number());
    node.SetAttributeInt("i", values.integer());
    node.SetAttributeBool("b", values.integer());
    float triple[3];
    values.triple(triple);
    node.SetAttributeString("t", node.EncodeFloat3(triple[0], triple[1], triple[2]));
}

void read(Param& param)
{
    using P = Param;
    getAll(param, &P::IsFloat, &P::IsBool, &P::IsShader, &P::IsColour, &P::IsVector, &P::IsPoint,
           &P::IsString, &P::IsInt, &P::IsDimensional, &P::IsReadOnly, &P::GetValFloat,
           &P::GetValInt, &P::GetValBool, &P::GetValColour, &P::GetValVector, &P::GetValPoint,
           &P::GetValString, &P::GetValShaderType);
    (void)param.GetNext();
    requireStatus(param.GetFloatRange(nullptr, nullptr));
    float low = 0;
    float high = 0;
    requireStatus(param.GetFloatRange(&low, &high));
    require(param.GetValFloat(nullptr) == StatusMissing &&
                param.GetValInt(nullptr) == StatusMissing &&
                param.GetValBool(nullptr) == StatusMissing &&
                param.GetValColour(nullptr) == StatusMissing &&
                param.GetValVector(nullptr) == StatusMissing &&
                param.GetValPoint(nullptr) == StatusMissing,
            "a null output of a parameter is a missing value");
}

/// The SetType operations are left out where other elements hang on the type.
void write(Param& param, FuzzInput& values)
{
    using P = Param;
    setAll(param, values, &P::SetValFloat, &P::SetValInt, &P::SetValBool, &P::SetValColour,
           &P::SetValVector, &P::SetValPoint, &P::SetValString);
    if (param.IsShader())
        return;
    switch (values.byte() % 8) {
    case 0:
        setAll(param, values, &P::SetTypeFloat);
        break;
    case 1:
        setAll(param, values, &P::SetTypeInt);
        break;
    case 2:
        setAll(param, values, &P::SetTypeBool);
        break;
    case 3:
        setAll(param, values, &P::SetTypeString);
        break;
    case 4:
        setAll(param, values, &P::SetTypeColour);
        break;
    case 5:
        setAll(param, values, &P::SetTypeVector);
        break;
    case 6:
        setAll(param, values, &P::SetTypePoint);
        break;
    default:
        break;
    }
}

void read(AlbumInfo& node)
{
    getAll(node, &AlbumInfo::GetLocation);
}

void write(AlbumInfo& node, FuzzInput& values)
{
    setAll(node, values, &AlbumInfo::SetLocation);
}

void read(ArtificialLightStudio& node)
{
    getAll(node, &ArtificialLightStudio::GetEnabled, &ArtificialLightStudio::GetIntensityScale);
}

void write(ArtificialLightStudio& node, FuzzInput& values)
{
    setAll(node, values, &ArtificialLightStudio::PopulateParams, &ArtificialLightStudio::SetEnabled,
           &ArtificialLightStudio::SetIntensityScale);
}

void read(AspectRatio& node)
{
    getAll(node, &AspectRatio::GetAspectRatio);
}

void read(AspectRatioOrient& node)
{
    getAll(node, &AspectRatioOrient::IsPortrait);
}

void read(Background& node)
{
    using B = Background;
    getAll(node, &B::IsPlainColour, &B::IsGraduated, &B::IsHorizon, &B::IsImage, &B::IsImage3D,
           &B::IsReflection, &B::GetPlainColour, &B::GetPrimaryColour, &B::GetSecondaryColour,
           &B::GetSkyColour, &B::GetHorizonSkyColour, &B::GetHorizonGroundColour,
           &B::GetGroundColour, &B::GetImageBackground, &B::GetImage3DBackground,
           &B::GetReflectionBackground, &B::GetImage3DHorizonPosition, &B::GetImage3DFixedSize);
    node.Equal(&node);
    require(!node.Equal(nullptr), "nothing equals null");
}

void write(Background& node, FuzzInput& values)
{
    using B = Background;
    setAll(node, values, &B::PopulateParams, &B::SetPlainColour, &B::SetPrimaryColour,
           &B::SetSecondaryColour, &B::SetSkyColour, &B::SetHorizonSkyColour,
           &B::SetHorizonGroundColour, &B::SetGroundColour, &B::SetImageBackground,
           &B::SetImage3DBackground, &B::SetReflectionBackground, &B::SetImage3DHorizonPosition,
           &B::SetImage3DFixedSize);
}

void read(Bump& node)
{
    getAll(node, &Bump::GetUseDiffuse, &Bump::GetIsNormalMap, &Bump::GetHeight, &Bump::GetSoftness);
}

void write(Bump& node, FuzzInput& values)
{
    setAll(node, values, &Bump::SetUseDiffuse, &Bump::SetIsNormalMap, &Bump::SetHeight,
           &Bump::SetSoftness, &Bump::GetColour);
    node.Equal(&node);
    require(!node.Equal(nullptr), "nothing equals null");
}

void read(Camera& node)
{
    getAll(node, &Camera::GetViewFit, &Camera::IsUpVector);
    float from[3];
    float to[3];
    float up[3];
    int orthographic = 0;
    float fieldOfView = 0;
    requireStatus(node.GetPinhole(from, to, up, &orthographic, &fieldOfView));
}

void write(Camera& node, FuzzInput& values)
{
    setAll(node, values, &Camera::PopulateParams, &Camera::SetViewFit);
    if (values.flag())
        node.SetSubCatAsUpVector();
    float from[3];
    float to[3];
    float up[3];
    values.triple(from);
    values.triple(to);
    values.triple(up);
    node.SetPinhole(from, to, up, values.integer(), values.number());
    node.SetClipping(values.number(), values.number());
}

void write(Colour& node, FuzzInput& values)
{
    setAll(node, values, &Colour::GetDiffuse);
    node.Equal(&node);
    require(!node.Equal(nullptr), "nothing equals null");
}

void write(Finish& node, FuzzInput& values)
{
    require(node.SetAndPopulateShaderClass(QStringLiteral("unknown")) == StatusUnknownShaderClass,
            "an unknown shader class has a status of its own");
    if (values.flag())
        node.SetAndPopulateShaderClass(QStringLiteral("lit appearance"));
    require(node.Equal(&node) && !node.Equal(nullptr), "a finish equals itself and not null");
}

void read(Foreground& node)
{
    getAll(node, &Foreground::IsDepthCue, &Foreground::GetDepthCueBackgroundColour,
           &Foreground::GetDepthCueNear, &Foreground::GetDepthCueFar);
}

void write(Foreground& node, FuzzInput& values)
{
    setAll(node, values, &Foreground::PopulateParams);
}

void read(Lens& node)
{
    getAll(node, &Lens::GetAngle);
}

void write(Lens& node, FuzzInput& values)
{
    setAll(node, values, &Lens::SetAngle);
}

void read(Material& node)
{
    getAll(node, &Material::GetLinkName, &Material::GetFinish, &Material::GetBaseMaterial);
    (void)node.GetNext();
    (void)node.GetColour(0);
    (void)node.GetTransparency(0);
    (void)node.GetBump(0);
}

void write(Material& node, FuzzInput& values)
{
    setAll(node, values, &Material::SetLinkName);
    if (values.flag())
        setAll(node, values, &Material::GetColour, &Material::GetTransparency, &Material::GetBump);
    node.Equal(&node, values.flag());
    require(!node.Equal(nullptr, true), "nothing equals null");
}

void read(MaterialRepository& node)
{
    getAll(node, &MaterialRepository::GetFirstMaterial, &MaterialRepository::GetNumMaterials);
    (void)node.GetMaterial(QStringLiteral("A"));
}

void write(MaterialRepository& node, FuzzInput& values)
{
    node.Populate();
    if (values.flag())
        node.AddMaterial(node.CreateMaterial());
}

void read(NaturalLightStudio& node)
{
    using S = NaturalLightStudio;
    getAll(node, &S::GetEnabled, &S::GetSunAzimuth, &S::GetSunAltitude);
}

void write(NaturalLightStudio& node, FuzzInput& values)
{
    using S = NaturalLightStudio;
    setAll(node, values, &S::PopulateParams, &S::SetEnabled, &S::SetSunAzimuth, &S::SetSunAltitude);
}

void read(RenderTarget& node)
{
    using T = RenderTarget;
    getAll(node, &T::GetLightingQuality, &T::GetMaterialQuality, &T::GetRenderQuality,
           &T::GetModelHint, &T::GetAspectRatio, &T::GetUseAspectRatio, &T::GetLandscape,
           &T::GetWidth, &T::GetHeight, &T::GetOutputFormat, &T::GetFileName, &T::GetShortFileName,
           &T::GetGamma);
    int width = 0;
    int height = 0;
    requireStatus(node.GetWidthHeightUsingAspectRatio(&width, &height));
    requireStatus(node.GetWidthHeightUsingAspectRatio(&width, nullptr));
    requireStatus(node.GetWidthHeightUsingAspectRatio(nullptr, &height));
}

void write(RenderTarget& node, FuzzInput& values)
{
    using T = RenderTarget;
    setAll(node, values, &T::PopulateParams, &T::SetLightingQuality, &T::SetMaterialQuality,
           &T::SetRenderQuality, &T::SetModelHint, &T::SetAspectRatio, &T::SetUseAspectRatio,
           &T::SetLandscape, &T::SetWidth, &T::SetHeight, &T::SetOutputFormat, &T::SetFileName,
           &T::SetShortFileName, &T::SetGamma);
}

void read(RenderTargets& node)
{
    getAll(node, &RenderTargets::GetFirstRenderTarget);
}

void write(RenderTargets& node, FuzzInput& values)
{
    node.Populate();
    // What stands for an archive need not take the object over.
    if (values.flag() && node.GetArchiveFilename().isEmpty())
        node.AddNode(node.CreateRenderTarget(values.flag() ? node.GetFirstRenderTarget() : nullptr),
                     true);
}

void read(Scenery& node)
{
    using S = Scenery;
    getAll(node, &S::GetDropShadowEnabled, &S::GetDropSunLightEnabled, &S::GetDropReflectionEnabled,
           &S::GetDropShadowQuality, &S::GetDropShadowContrast, &S::GetDropSunLightBrightness,
           &S::GetDropReflectionBrightness, &S::GetDropReflectionBlur, &S::GetBaseSize,
           &S::GetDropShadowCatchSpots);
}

void write(Scenery& node, FuzzInput& values)
{
    using S = Scenery;
    setAll(node, values, &S::PopulateParams, &S::EnableDropShadow, &S::EnableDropSunLight,
           &S::EnableDropReflection, &S::SetDropShadowQuality, &S::SetDropShadowContrast,
           &S::SetDropSunLightBrightness, &S::SetDropReflectionBrightness,
           &S::SetDropReflectionBlur, &S::SetBaseSize, &S::SetDropShadowCatchSpots);
}

void read(Scheme& node)
{
    getAll(node, &Scheme::IsExterior, &Scheme::IsInterior, &Scheme::IsProduct,
           &Scheme::GetBackground);
}

void write(ShaderColour& node, FuzzInput& values)
{
    setAll(node, values, &ShaderColour::GetPlainColour, &ShaderColour::GetMap);
    node.Equal(&node);
    require(!node.Equal(nullptr), "nothing equals null");
}

void write(ShaderDiffuse& node, FuzzInput& values)
{
    setAll(node, values, &ShaderDiffuse::GetColour);
    node.Equal(&node);
    require(!node.Equal(nullptr), "nothing equals null");
}

void read(ShaderMap& node)
{
    getAll(node, &ShaderMap::GetRotation, &ShaderMap::GetTexture, &ShaderMap::GetWidth,
           &ShaderMap::GetHeight, &ShaderMap::GetUseAlpha);
    int flags[2] = {};
    float offsets[2] = {};
    requireStatus(node.GetMapping(&flags[0], &flags[1]));
    requireStatus(node.GetOffset(&offsets[0], &offsets[1]));
    node.Equal(&node);
    require(!node.Equal(nullptr), "nothing equals null");
}

void write(ShaderMap& node, FuzzInput& values)
{
    setAll(node, values, &ShaderMap::SetRotation, &ShaderMap::SetTexture, &ShaderMap::SetWidth,
           &ShaderMap::SetHeight, &ShaderMap::SetUseAlpha);
    node.SetMapping(values.integer(), values.integer());
    node.SetOffset(values.number(), values.number());
}

void read(ShaderPlainColour& node)
{
    getAll(node, &ShaderPlainColour::GetColour);
    node.Equal(&node);
    require(!node.Equal(nullptr), "nothing equals null");
}

void write(ShaderPlainColour& node, FuzzInput& values)
{
    setAll(node, values, &ShaderPlainColour::SetColour);
}

void read(SnapShot& node)
{
    using S = SnapShot;
    (void)node.GetNext();
    getAll(node, &S::IsSelected, &S::GetThumbFilename, &S::GetRealTimeFilename,
           &S::CreateSnapShotDocumentAsString);
}

void write(SnapShot& node, FuzzInput& values)
{
    using S = SnapShot;
    node.Populate();
    setAll(node, values, &S::SetSelected, &S::SetSnapShotPath);
    if (values.flag())
        setAll(node, values, &S::GetArtificialLightStudio, &S::GetRenderTargets,
               &S::GetMaterialRepository, &S::GetPhotoFilename);
}

void read(SnapShotSettings& node)
{
    using S = SnapShotSettings;
    getAll(node, &S::IsSelected, &S::GetTwist, &S::GetReflectBackPlate,
           &S::GetAmbientLightsIntensityScale, &S::GetSessionName);
    float intensity = 0;
    (void)node.GetBackgroundReflected(&intensity);
    float up[3];
    float north[3];
    float frontFace[3];
    requireStatus(node.GetOrientationInfo(up, north, frontFace));
}

void write(SnapShotSettings& node, FuzzInput& values)
{
    using S = SnapShotSettings;
    setAll(node, values, &S::PopulateParams, &S::SetSelected, &S::SetTwist, &S::SetReflectBackPlate,
           &S::SetAmbientLightsIntensityScale, &S::SetSessionName);
    node.SetBackgroundReflected(values.text(), values.number());
    float up[3];
    float north[3];
    float frontFace[3];
    values.triple(up);
    values.triple(north);
    values.triple(frontFace);
    node.SetOrientationInfo(up, north, frontFace);
}

void read(SnapShots& node)
{
    getAll(node, &SnapShots::GetFirstSnapShot);
}

void write(SnapShots& node, FuzzInput&)
{
    node.Populate();
}

void read(Transparency& node)
{
    getAll(node, &Transparency::GetInvertMask);
}

void write(Transparency& node, FuzzInput& values)
{
    setAll(node, values, &Transparency::SetInvertMask, &Transparency::GetColour);
    node.Equal(&node);
    require(!node.Equal(nullptr), "nothing equals null");
}

/// @}

/// For a class that has nothing of that sort; an overload above is the better match.
template <typename Class>
void read(Class&)
{
}
template <typename Class>
void write(Class&, FuzzInput&)
{
}

template <typename Class>
void readAs(RVOpenNode* node)
{
    if (auto* const object = dynamic_cast<Class*>(node))
        read(*object);
}

template <typename Class>
void writeAs(RVOpenNode* node, FuzzInput& values)
{
    if (auto* const object = dynamic_cast<Class*>(node))
        write(*object, values);
}

struct ClassRow {
    void (*read)(RVOpenNode* node);
    void (*write)(RVOpenNode* node, FuzzInput& values);
};

template <typename Class>
constexpr ClassRow row{readAs<Class>, writeAs<Class>};

/// Every class of the model; a node is visited as each that it is.
constexpr ClassRow classes[] = {
    row<RVOpenNode>,
    row<Param>,
    row<AlbumInfo>,
    row<ArtificialLightStudio>,
    row<AspectRatio>,
    row<AspectRatioOrient>,
    row<Background>,
    row<Bump>,
    row<Camera>,
    row<Colour>,
    row<Directory>,
    row<Finish>,
    row<Foreground>,
    row<Lens>,
    row<Material>,
    row<MaterialRepository>,
    row<NaturalLightStudio>,
    row<RenderTarget>,
    row<RenderTargets>,
    row<Scenery>,
    row<Scheme>,
    row<ShaderColour>,
    row<ShaderDiffuse>,
    row<ShaderMap>,
    row<ShaderPlainColour>,
    row<SnapShot>,
    row<SnapShotSettings>,
    row<SnapShots>,
    row<Transparency>,
};

/// What a kind test says about a node: the object when the element has the name and the object the
/// class.
template <typename Class>
void testKind(RVOpenNode* node, Class* (*isKind)(RVOpenNode*), const char* elementName)
{
    const bool named = node->GetNodeName() == QLatin1String(elementName);
    Class* const answer = isKind(node);
    require(named || !answer, "a kind has its element name");
    require(!answer || answer == dynamic_cast<Class*>(node), "a kind test gives the node itself");
    require(!isKind(nullptr), "null is of no kind");
}

void testKinds(RVOpenNode* node)
{
    using S = RVOpenSchema;
    testKind(node, S::isNodeSchemes, "schemes");
    testKind(node, S::isNodeMaterials, "materials");
    testKind(node, S::isNodeColours, "colours");
    testKind(node, S::isNodeFinishes, "finishes");
    testKind(node, S::isNodeTransparencies, "transparencies");
    testKind(node, S::isNodeBumps, "bumps");
    testKind(node, S::isNodeBackgrounds, "backgrounds");
    testKind(node, S::isNodeForegrounds, "foregrounds");
    testKind(node, S::isNodeCameras, "cameras");
    testKind(node, S::isNodeDir, "dir");
    testKind(node, S::isNodeLens, "lens");
    testKind(node, S::isNodeAspectRatio, "aspectratio");
    testKind(node, S::isNodeAspectRatioOrient, "aspectratioorient");
    testKind(node, S::isNodeScheme, "scheme");
    testKind(node, S::isNodeMaterial, "material");
    testKind(node, S::isNodeColour, "colour");
    testKind(node, S::isNodeShaderColour, "param");
    testKind(node, S::isNodeShaderPlainColour, "plainColour");
    testKind(node, S::isNodeShaderMap, "map");
    testKind(node, S::isNodeShaderDiffuse, "diffuse");
    testKind(node, S::isNodeFinish, "finish");
    testKind(node, S::isNodeTransparency, "transparency");
    testKind(node, S::isNodeBump, "bump");
    testKind(node, S::isNodeMaterialRepository, "materialRepository");
    testKind(node, S::isNodeBackground, "background");
    testKind(node, S::isNodeForeground, "foreground");
    testKind(node, S::isNodeParam, "param");
    testKind(node, S::isNodeSnapShot, "snapshot");
    testKind(node, S::isNodeSnapShots, "snapshots");
    testKind(node, S::isNodeNaturalLightStudio, "naturalLightStudio");
    testKind(node, S::isNodeCamera, "camera");
    testKind(node, S::isNodeSnapShotSettings, "snapShotSettings");
    testKind(node, S::isNodeRenderTargets, "renderTargets");
    testKind(node, S::isNodeRenderTarget, "renderTarget");
    testKind(node, S::isNodeScenery, "scenery");
}

/// What a snapshot holds, as far as it is there: these objects are not in its chain of children.
template <typename Visit>
void visitComponents(SnapShot* snapShot, Visit visit)
{
    const auto visitOne = [&visit](RVOpenNode* component) {
        if (component)
            visit(component);
    };
    visitOne(snapShot->GetScheme());
    visitOne(snapShot->GetBackground());
    visitOne(snapShot->GetForeground());
    visitOne(snapShot->GetCamera());
    visitOne(snapShot->GetSnapShotSettings());
    visitOne(snapShot->GetScenery());
    visitOne(snapShot->GetNaturalLightStudio());
    // The others are created where they are missing.
    const QDomNode element = snapShot->GetDomNode();
    if (!element.firstChildElement(QStringLiteral("artificialLightStudio")).isNull())
        visitOne(snapShot->GetArtificialLightStudio());
    if (!element.firstChildElement(QStringLiteral("renderTargets")).isNull())
        visitOne(snapShot->GetRenderTargets());
    if (!element.firstChildElement(QStringLiteral("materialRepository")).isNull())
        visitOne(snapShot->GetMaterialRepository());
}

/// Calls \p visit on the node, then on all below it.
template <typename Visit>
void visitTree(RVOpenNode* node, const Visit& visit)
{
    visit(node);
    if (auto* const snapShot = dynamic_cast<SnapShot*>(node))
        visitComponents(snapShot, [&visit](RVOpenNode* component) { visitTree(component, visit); });
    for (RVOpenNode* child = node->GetChild(1, 0); child; child = child->GetNext(1))
        visitTree(child, visit);
}

} // namespace

void materialise(RVOpenNode* node)
{
    if (node)
        visitTree(node, [](RVOpenNode*) {});
}

void collect(RVOpenNode* node, std::vector<RVOpenNode*>& nodes)
{
    nodes.push_back(node);
    const auto collectBelow = [&nodes](RVOpenNode* below) { collect(below, nodes); };
    if (auto* const snapShot = dynamic_cast<SnapShot*>(node)) {
        visitComponents(snapShot, collectBelow);
        return;
    }
    for (RVOpenNode* child = node->GetChild(1, 0); child; child = child->GetNext(1))
        collectBelow(child);
}

void readEverything(RVOpenNode* node)
{
    if (!node)
        return;
    visitTree(node, [](RVOpenNode* visited) {
        testKinds(visited);
        for (const ClassRow& row : classes)
            row.read(visited);
    });
}

void writeEverything(RVOpenNode* node, FuzzInput& values)
{
    if (!node)
        return;
    visitTree(node, [&values](RVOpenNode* visited) {
        for (const ClassRow& row : classes)
            row.write(visited, values);
    });
}

} // namespace rvopen::fuzz
