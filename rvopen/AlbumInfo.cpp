// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include <rvopen/AlbumInfo.h>

#include <rvopen/model/Rows.h>

namespace rvopen {

AlbumInfo::AlbumInfo(RVOpenNode* source)
    : RVOpenNode(source)
{
}

AlbumInfo::~AlbumInfo() = default;

RVOPEN_SET(AlbumInfo, SetLocation, location, String, QString)
RVOPEN_GET_TEXT(AlbumInfo, GetLocation, location)

} // namespace rvopen
