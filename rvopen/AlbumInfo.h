// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include <rvopen/RVOpenNode.h>

namespace rvopen {

/// Where the pictures of an album are kept.
///
/// The class creates no parameter: "Location" exists only where the document brings it or a caller
/// added it.
class RVOPEN_EXPORT AlbumInfo : public RVOpenNode {
public:
    /// A free-standing clone; null gives an object bound to nothing.
    explicit AlbumInfo(RVOpenNode* source);
    /// Shallow: both objects wrap the same element.
    AlbumInfo(const AlbumInfo& other) = default;
    AlbumInfo& operator=(const AlbumInfo& other) = default;
    ~AlbumInfo() override;

    /// Parameter "Location". StatusMissing when it is missing or no string.
    unsigned int SetLocation(QString location);
    /// Empty when missing.
    QString GetLocation();
};

} // namespace rvopen
