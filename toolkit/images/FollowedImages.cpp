// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include <rvopen/toolkit/images/FollowedImages.h>

#include "TextureReferences.h"

#include <rvopen/RVOpenPaths.h>

#include <QFileInfo>

namespace rvopen::toolkit {

void FollowImages(const QDomElement& element, const QString& from, const QString& to)
{
    rebaseTextures(element, QFileInfo(PathToOpen(from)).absolutePath(),
                   QFileInfo(PathToOpen(to)).absolutePath());
}

} // namespace rvopen::toolkit
