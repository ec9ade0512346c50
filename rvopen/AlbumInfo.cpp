// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include <rvopen/AlbumInfo.h>

#include <rvopen/model/ParamAccess.h>

namespace rvopen {

AlbumInfo::AlbumInfo(RVOpenNode* source)
    : RVOpenNode(source)
{
}

AlbumInfo::~AlbumInfo() = default;

unsigned int AlbumInfo::SetLocation(QString location)
{
    return onParam(this, names::parameter::location, &Param::SetValString, location);
}

QString AlbumInfo::GetLocation()
{
    return stringParam(this, names::parameter::location);
}

} // namespace rvopen
