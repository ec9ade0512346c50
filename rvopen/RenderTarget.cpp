// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include <rvopen/RenderTarget.h>

#include <rvopen/model/NodeAccess.h>
#include <rvopen/model/ParamAccess.h>

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
    SetSubCat(names::subCategory::image());
}

RenderTarget::RenderTarget(RVOpenNode* source)
    : RVOpenNode(source)
{
    SetSubCat(names::subCategory::image());
}

RenderTarget::~RenderTarget() = default;

void RenderTarget::PopulateParams()
{
    populateParams(this, s_params);
}

unsigned int RenderTarget::SetLightingQuality(int quality)
{
    return onParam(this, names::parameter::lightingQuality, &Param::SetValInt, quality);
}

unsigned int RenderTarget::GetLightingQuality(int* out)
{
    return onParam(this, names::parameter::lightingQuality, &Param::GetValInt, out);
}

unsigned int RenderTarget::SetMaterialQuality(int quality)
{
    return onParam(this, names::parameter::materialQuality, &Param::SetValInt, quality);
}

unsigned int RenderTarget::GetMaterialQuality(int* out)
{
    return onParam(this, names::parameter::materialQuality, &Param::GetValInt, out);
}

unsigned int RenderTarget::SetRenderQuality(QString quality)
{
    return onParam(this, names::parameter::renderQuality, &Param::SetValString, quality);
}

QString RenderTarget::GetRenderQuality()
{
    return stringParam(this, names::parameter::renderQuality);
}

unsigned int RenderTarget::SetModelHint(float hint)
{
    Param* const param = findParam(this, names::parameter::modelHint);
    if (!param || !param->IsFloat())
        return StatusMissing;
    if (!param->IsDimensional())
        NodeAccess::setAttribute(param, names::attribute::prop(), names::value::dimensional());
    return param->SetValFloat(hint);
}

unsigned int RenderTarget::GetModelHint(float* out)
{
    return onParam(this, names::parameter::modelHint, &Param::GetValFloat, out);
}

unsigned int RenderTarget::SetAspectRatio(float ratio)
{
    return onParam(this, names::parameter::aspectRatio, &Param::SetValFloat, ratio);
}

unsigned int RenderTarget::GetAspectRatio(float* out)
{
    return onParam(this, names::parameter::aspectRatio, &Param::GetValFloat, out);
}

unsigned int RenderTarget::SetUseAspectRatio(int use)
{
    return onParam(this, names::parameter::useAspectRatio, &Param::SetValBool, use);
}

unsigned int RenderTarget::GetUseAspectRatio(int* out)
{
    return onParam(this, names::parameter::useAspectRatio, &Param::GetValBool, out);
}

unsigned int RenderTarget::SetLandscape(int landscape)
{
    return onParamOrNew(this, {names::parameter::landscape, ParamType::Bool}, &Param::SetValBool,
                        landscape);
}

unsigned int RenderTarget::GetLandscape(int* out)
{
    return onParamOrDefault(this, names::parameter::landscape, &Param::GetValBool, out, 1);
}

unsigned int RenderTarget::SetWidth(int width)
{
    return onParam(this, names::parameter::width, &Param::SetValInt, width);
}

unsigned int RenderTarget::GetWidth(int* out)
{
    return onParam(this, names::parameter::width, &Param::GetValInt, out);
}

unsigned int RenderTarget::SetHeight(int height)
{
    return onParam(this, names::parameter::height, &Param::SetValInt, height);
}

unsigned int RenderTarget::GetHeight(int* out)
{
    return onParam(this, names::parameter::height, &Param::GetValInt, out);
}

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

unsigned int RenderTarget::SetOutputFormat(QString format)
{
    return onParam(this, names::parameter::outputFormat, &Param::SetValString, format);
}

QString RenderTarget::GetOutputFormat()
{
    return stringParam(this, names::parameter::outputFormat);
}

unsigned int RenderTarget::SetFileName(QString fileName)
{
    return onParam(this, names::parameter::fileName, &Param::SetValString, fileName);
}

QString RenderTarget::GetFileName()
{
    return stringParam(this, names::parameter::fileName);
}

unsigned int RenderTarget::SetShortFileName(QString fileName)
{
    return onParam(this, names::parameter::shortFileName, &Param::SetValString, fileName);
}

QString RenderTarget::GetShortFileName()
{
    return stringParam(this, names::parameter::shortFileName);
}

unsigned int RenderTarget::SetGamma(float gamma)
{
    return onParamOrNew(this, {names::parameter::gamma, ParamType::Float}, &Param::SetValFloat,
                        gamma);
}

unsigned int RenderTarget::GetGamma(float* out)
{
    return onParam(this, names::parameter::gamma, &Param::GetValFloat, out);
}

} // namespace rvopen
