// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include <rvopen/toolkit/ToolkitExport.h>

#include <QDomElement>
#include <QImage>
#include <QString>

namespace rvopen::toolkit {

/// The picture in the text of an "xmlImage"; null when it cannot be decoded.
RVOPEN_TOOLKIT_EXPORT QImage EmbeddedPreview(const QString& text);

/// The text of an "xmlImage" that has the picture, compressed as photographs are; empty for null.
RVOPEN_TOOLKIT_EXPORT QString EmbeddedText(const QImage& picture);

/// Whether the element has an embedded preview that can be decoded.
RVOPEN_TOOLKIT_EXPORT bool HasEmbeddedPreview(const QDomElement& element);

} // namespace rvopen::toolkit
