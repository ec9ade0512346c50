// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include <rvopen/toolkit/schema/ParamInfo.h>

#include <QString>

namespace rvopen::command {

/// Which values a parameter or attribute may have, in a few words: "degrees, above 0 and below
/// 180", "image file", "0 or 1".
QString valuesText(const toolkit::ParamInfo& info);

/// The tables of parameters of the documents, in Markdown, each under a heading with the name of
/// its element.
QString parameterTables();

} // namespace rvopen::command
