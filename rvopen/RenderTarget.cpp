// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include <rvopen/RenderTarget.h>

#include <rvopen/model/Changes.h>
#include <rvopen/model/NodeAccess.h>
#include <rvopen/model/Rows.h>

#include <limits>

namespace rvopen {

namespace {

constexpr ParamSpec s_params[] = {
    {names::parameter::lightingQuality, ParamType::Int, false,
     [](Param& param) { param.SetTypeInt(1); }},
    {names::parameter::materialQuality, ParamType::Int, false,
     [](Param& param) { param.SetTypeInt(0); }},
    {names::parameter::renderQuality, ParamType::String, false,
     [](Param& param) { param.SetTypeString(names::value::progressivePreview()); }},
    {names::parameter::modelHint, ParamType::Float, true},
    {names::parameter::width, ParamType::Int},
    {names::parameter::height, ParamType::Int},
    {names::parameter::useAspectRatio, ParamType::Bool},
    {names::parameter::aspectRatio, ParamType::Float, false,
     [](Param& param) { param.SetTypeFloat(1.5f); }},
    {names::parameter::landscape, ParamType::Bool},
    {names::parameter::fileName, ParamType::String},
    {names::parameter::shortFileName, ParamType::String},
    {names::parameter::outputFormat, ParamType::String},
    {names::parameter::gamma, ParamType::Float},
};

/// Sets \p out to the short side that belongs to \p longSide. False, with \p out untouched, when
/// there is none that an int holds.
bool shortSide(int longSide, float aspectRatio, int* out)
{
    if (!(aspectRatio > 0.0f))
        return false;
    const float side = static_cast<float>(longSide) / aspectRatio;
    const double rounded = static_cast<double>(side) + 0.5;
    if (!(rounded > std::numeric_limits<int>::min() - 1.0 &&
          rounded < std::numeric_limits<int>::max() + 1.0))
        return false;
    *out = static_cast<int>(rounded);
    return true;
}

} // namespace

RenderTarget::RenderTarget(QDomNode node)
{
    SetDomNode(node);
    const changes::Making making;
    SetSubCat(names::subCategory::image());
}

RenderTarget::RenderTarget(RVOpenNode* source)
    : RVOpenNode(source)
{
    const changes::Making making;
    SetSubCat(names::subCategory::image());
}

RenderTarget::~RenderTarget() = default;

void RenderTarget::PopulateParams()
{
    populateParams(this, s_params);
}

RVOPEN_SET(RenderTarget, SetLightingQuality, lightingQuality, Int, int)
RVOPEN_GET(RenderTarget, GetLightingQuality, lightingQuality, Int, int*)
RVOPEN_SET(RenderTarget, SetMaterialQuality, materialQuality, Int, int)
RVOPEN_GET(RenderTarget, GetMaterialQuality, materialQuality, Int, int*)
RVOPEN_SET(RenderTarget, SetRenderQuality, renderQuality, String, QString)
RVOPEN_GET_TEXT(RenderTarget, GetRenderQuality, renderQuality)

unsigned int RenderTarget::SetModelHint(float hint)
{
    Param* const param = findParam(this, names::parameter::modelHint);
    if (!param || !param->IsFloat())
        return StatusMissing;
    const changes::Block block;
    if (!param->IsDimensional())
        NodeAccess::setAttribute(param, names::attribute::prop(), names::value::dimensional());
    return param->SetValFloat(hint);
}

RVOPEN_GET(RenderTarget, GetModelHint, modelHint, Float, float*)
RVOPEN_SET(RenderTarget, SetAspectRatio, aspectRatio, Float, float)
RVOPEN_GET(RenderTarget, GetAspectRatio, aspectRatio, Float, float*)
RVOPEN_SET(RenderTarget, SetUseAspectRatio, useAspectRatio, Bool, int)
RVOPEN_GET(RenderTarget, GetUseAspectRatio, useAspectRatio, Bool, int*)
RVOPEN_SET_OR_NEW(RenderTarget, SetLandscape, landscape, Bool, int)

unsigned int RenderTarget::GetLandscape(int* out)
{
    return onParamOrDefault(this, names::parameter::landscape, &Param::GetValBool, out, 1);
}

RVOPEN_SET(RenderTarget, SetWidth, width, Int, int)
RVOPEN_GET(RenderTarget, GetWidth, width, Int, int*)
RVOPEN_SET(RenderTarget, SetHeight, height, Int, int)
RVOPEN_GET(RenderTarget, GetHeight, height, Int, int*)

unsigned int RenderTarget::GetWidthHeightUsingAspectRatio(int* width, int* height)
{
    float aspectRatio = 0.0f;
    int useAspectRatio = 0;
    int landscape = 1;
    int storedWidth = 0;
    int storedHeight = 0;
    const unsigned int widthStatus = GetWidth(&storedWidth);
    const unsigned int heightStatus = GetHeight(&storedHeight);
    const unsigned int status = GetAspectRatio(&aspectRatio) | widthStatus | heightStatus |
                                GetUseAspectRatio(&useAspectRatio) | GetLandscape(&landscape);

    if (width && widthStatus == StatusOk)
        *width = storedWidth;
    if (height && heightStatus == StatusOk)
        *height = storedHeight;
    if (status != StatusOk || !useAspectRatio || !width || !height)
        return status;

    if (landscape)
        shortSide(storedWidth, aspectRatio, height);
    else
        shortSide(storedHeight, aspectRatio, width);
    return StatusOk;
}

RVOPEN_SET(RenderTarget, SetOutputFormat, outputFormat, String, QString)
RVOPEN_GET_TEXT(RenderTarget, GetOutputFormat, outputFormat)
RVOPEN_SET(RenderTarget, SetFileName, fileName, String, QString)
RVOPEN_GET_TEXT(RenderTarget, GetFileName, fileName)
RVOPEN_SET(RenderTarget, SetShortFileName, shortFileName, String, QString)
RVOPEN_GET_TEXT(RenderTarget, GetShortFileName, shortFileName)
RVOPEN_SET_OR_NEW(RenderTarget, SetGamma, gamma, Float, float)
RVOPEN_GET(RenderTarget, GetGamma, gamma, Float, float*)

} // namespace rvopen
