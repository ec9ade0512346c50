// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QByteArray>
#include <QDomElement>

namespace rvopen::toolkit {

class ParamValues;

/// What the content of a preset is told by: its kind, its values and what it is made of, but not
/// what it is called, where it is filed, its picture, the order of parameters or how a number is
/// written. Equal for presets that look and work alike.
QByteArray contentDigest(const QDomElement& preset, ParamValues& values);

} // namespace rvopen::toolkit
