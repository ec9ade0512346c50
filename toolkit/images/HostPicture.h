// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QDomElement>
#include <QPixmap>
#include <QString>

namespace rvopen::toolkit {

/// The picture that a host shows of the element: the embedded one, else the one in its folders. The
/// document is empty afterwards: its objects go, and with them their elements.
QPixmap hostPictureOf(const QDomElement& element, const QString& installFolder);

} // namespace rvopen::toolkit
