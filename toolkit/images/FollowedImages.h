// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include <rvopen/toolkit/ToolkitExport.h>

#include <QDomElement>
#include <QString>

namespace rvopen::toolkit {

/// Relative references to image files in and below \p element, which came from the file \p from
/// into the file \p to, lead to the same images from there. Those that the new place has as well,
/// byte for byte, and those that are not found stay as they are. No image is copied.
RVOPEN_TOOLKIT_EXPORT void FollowImages(const QDomElement& element, const QString& from,
                                        const QString& to);

} // namespace rvopen::toolkit
