// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include <rvopen/SnapShotSettings.h>

#include <rvopen/model/Changes.h>
#include <rvopen/model/Rows.h>

namespace rvopen {

namespace {

constexpr ParamSpec s_params[] = {
    {names::parameter::ambientLightsIntensityScale, ParamType::Float},
    {names::parameter::twist, ParamType::Float},
    {names::parameter::orientationUp, ParamType::Vector},
    {names::parameter::orientationNorth, ParamType::Vector},
    {names::parameter::orientationFrontFace, ParamType::Vector},
    {names::parameter::imageFileName, ParamType::String},
    {names::parameter::sessionFolder, ParamType::String},
    {names::parameter::reflectedEnvPath, ParamType::String},
    {names::parameter::reflectedEnvIntensity, ParamType::Float},
};

template <typename Operation>
unsigned int onOrientation(SnapShotSettings* settings, Operation operation, float* up, float* north,
                           float* frontFace)
{
    namespace name = names::parameter;
    unsigned int status = StatusMissing;
    status = onParamAfter(status, settings, name::orientationUp, operation, up);
    status = onParamAfter(status, settings, name::orientationNorth, operation, north);
    return onParamAfter(status, settings, name::orientationFrontFace, operation, frontFace);
}

} // namespace

SnapShotSettings::SnapShotSettings(QDomNode node)
{
    SetDomNode(node);
}

SnapShotSettings::SnapShotSettings(RVOpenNode* source)
    : RVOpenNode(source)
{
}

SnapShotSettings::~SnapShotSettings() = default;

void SnapShotSettings::PopulateParams()
{
    populateParams(this, s_params);
}

RVOPEN_GET(SnapShotSettings, IsSelected, selected, Bool, int*)
RVOPEN_SET_OR_NEW(SnapShotSettings, SetSelected, selected, Bool, int)
RVOPEN_SET(SnapShotSettings, SetTwist, twist, Float, float)
RVOPEN_GET(SnapShotSettings, GetTwist, twist, Float, float*)
RVOPEN_SET_OR_NEW(SnapShotSettings, SetReflectBackPlate, reflectBackPlate, Bool, int)

unsigned int SnapShotSettings::GetReflectBackPlate(int* out)
{
    if (out && !findParam(this, names::parameter::reflectBackPlate))
        *out = 0;
    return onParam(this, names::parameter::reflectBackPlate, &Param::GetValBool, out);
}

RVOPEN_SET(SnapShotSettings, SetAmbientLightsIntensityScale, ambientLightsIntensityScale, Float,
           float)
RVOPEN_GET(SnapShotSettings, GetAmbientLightsIntensityScale, ambientLightsIntensityScale, Float,
           float*)
RVOPEN_SET(SnapShotSettings, SetSessionName, sessionFolder, String, QString)
RVOPEN_GET_TEXT(SnapShotSettings, GetSessionName, sessionFolder)

unsigned int SnapShotSettings::SetBackgroundReflected(QString path, float intensity)
{
    const changes::Block block;
    const unsigned int status =
        onParamOrNew(this, {names::parameter::reflectedEnvIntensity, ParamType::Float},
                     &Param::SetValFloat, intensity);
    const unsigned int pathStatus = onParamOrNew(
        this, {names::parameter::reflectedEnvPath, ParamType::String}, &Param::SetValString, path);
    return pathStatus == StatusOk || findParam(this, names::parameter::reflectedEnvPath)
               ? pathStatus
               : status;
}

QString SnapShotSettings::GetBackgroundReflected(float* intensity)
{
    onParam(this, names::parameter::reflectedEnvIntensity, &Param::GetValFloat, intensity);
    return stringParam(this, names::parameter::reflectedEnvPath);
}

unsigned int SnapShotSettings::SetOrientationInfo(float* const up, float* const north,
                                                  float* const frontFace)
{
    const changes::Block block;
    return onOrientation(this, &Param::SetValVector, up, north, frontFace);
}

unsigned int SnapShotSettings::GetOrientationInfo(float* const up, float* const north,
                                                  float* const frontFace)
{
    return onOrientation(this, &Param::GetValVector, up, north, frontFace);
}

} // namespace rvopen
