// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include <rvopen/Camera.h>

#include <rvopen/model/Changes.h>
#include <rvopen/model/Rows.h>

namespace rvopen {

namespace {

constexpr ParamSpec s_params[] = {
    {names::parameter::from, ParamType::Point},
    {names::parameter::to, ParamType::Point},
    {names::parameter::up, ParamType::Vector},
    {names::parameter::orthographic, ParamType::Bool},
    {names::parameter::fieldOfView, ParamType::Float},
    {names::parameter::nearDistance, ParamType::Float},
    {names::parameter::farDistance, ParamType::Float},
    {names::parameter::viewFit, ParamType::Bool, false, [](Param& param) { param.SetValBool(0); }},
};

} // namespace

Camera::Camera(RVOpenNode* source)
    : RVOpenNode(source)
{
}

Camera::~Camera() = default;

unsigned int Camera::SetPinhole(float* const from, float* const to, float* const up,
                                int orthographic, float fieldOfView)
{
    const changes::Block block;
    namespace name = names::parameter;
    unsigned int status = StatusMissing;
    status = onParamAfter(status, this, name::from, &Param::SetValPoint, from);
    status = onParamAfter(status, this, name::to, &Param::SetValPoint, to);
    status = onParamAfter(status, this, name::up, &Param::SetValVector, up);
    status = onParamAfter(status, this, name::orthographic, &Param::SetValBool, orthographic);
    return onParamAfter(status, this, name::fieldOfView, &Param::SetValFloat, fieldOfView);
}

unsigned int Camera::GetPinhole(float* const from, float* const to, float* const up,
                                int* orthographic, float* fieldOfView)
{
    onParam(this, names::parameter::from, &Param::GetValPoint, from);
    onParam(this, names::parameter::to, &Param::GetValPoint, to);
    onParam(this, names::parameter::up, &Param::GetValVector, up);
    onParam(this, names::parameter::orthographic, &Param::GetValBool, orthographic);
    return onParam(this, names::parameter::fieldOfView, &Param::GetValFloat, fieldOfView);
}

unsigned int Camera::SetClipping(float nearDistance, float farDistance)
{
    const changes::Block block;
    const unsigned int status =
        onParam(this, names::parameter::nearDistance, &Param::SetValFloat, nearDistance);
    return status | onParamAfter(StatusOk, this, names::parameter::farDistance, &Param::SetValFloat,
                                 farDistance);
}

void Camera::PopulateParams()
{
    populateParams(this, s_params);
}

RVOPEN_SET_OR_NEW(Camera, SetViewFit, viewFit, Bool, int)

unsigned int Camera::GetViewFit(int* out)
{
    return onParamOrDefault(this, names::parameter::viewFit, &Param::GetValBool, out, 0);
}

RVOPEN_IS_KIND(Camera, IsUpVector, upVector)

unsigned int Camera::SetSubCatAsUpVector()
{
    SetSubCat(names::subCategory::upVector());
    return StatusOk;
}

} // namespace rvopen
