// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include <rvopen/host/CameraValues.h>

#include <rvopen/Camera.h>
#include <rvopen/Param.h>
#include <rvopen/model/Changes.h>
#include <rvopen/model/Names.h>
#include <rvopen/model/ParamAccess.h>

#include <algorithm>
#include <initializer_list>

namespace rvopen::host {

namespace {

namespace name = names::parameter;

struct Wanted {
    names::Name name;
    int (Param::*isOfType)() const;
};

/// Whether each parameter is of its type or can be created.
bool canWrite(Camera* camera, std::initializer_list<Wanted> all)
{
    if (!camera || camera->GetDomNode().isNull() || !NodeAccess::childOwner(camera))
        return false;
    return std::all_of(all.begin(), all.end(), [camera](const Wanted& wanted) {
        if (const Param* const param = findParam(camera, wanted.name))
            return (param->*wanted.isOfType)() != 0;
        const QDomElement element = hiddenParam(camera, wanted.name());
        if (element.isNull())
            return true;
        ViewOf<Param> view(element);
        return (view.object().*wanted.isOfType)() != 0;
    });
}

} // namespace

std::optional<Pinhole> Pinhole::read(Camera* camera)
{
    Pinhole result;
    if (!readValue(camera, name::from(), result.from) ||
        !readValue(camera, name::to(), result.to) || !readValue(camera, name::up(), result.up) ||
        !readValue(camera, name::fieldOfView(), result.fieldOfView))
        return std::nullopt;
    result.orthographic = value(camera, name::orthographic(), false);
    return result;
}

bool Pinhole::write(Camera* camera) const
{
    if (!canWrite(camera, {{name::from, &Param::IsPoint},
                           {name::to, &Param::IsPoint},
                           {name::up, &Param::IsVector},
                           {name::orthographic, &Param::IsBool},
                           {name::fieldOfView, &Param::IsFloat}}))
        return false;
    const changes::Block block;
    return setValue(camera, name::from(), from) && setValue(camera, name::to(), to) &&
           setValue(camera, name::up(), up) &&
           setValue(camera, name::orthographic(), orthographic) &&
           setValue(camera, name::fieldOfView(), fieldOfView);
}

std::optional<Clipping> Clipping::read(Camera* camera)
{
    Clipping result;
    if (!readValue(camera, name::nearDistance(), result.nearDistance) ||
        !readValue(camera, name::farDistance(), result.farDistance))
        return std::nullopt;
    return result;
}

bool Clipping::write(Camera* camera) const
{
    if (!canWrite(camera,
                  {{name::nearDistance, &Param::IsFloat}, {name::farDistance, &Param::IsFloat}}))
        return false;
    const changes::Block block;
    return setValue(camera, name::nearDistance(), nearDistance) &&
           setValue(camera, name::farDistance(), farDistance);
}

} // namespace rvopen::host
