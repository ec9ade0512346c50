// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include "Report.h"

namespace rvopen::bench {

/// \name What is measured
/// Each adds its rows to the table that was started last.
/// @{
void compareDocuments(Report& report);
void compareParameters(Report& report);
void compareLookups(Report& report);
void compareCatalogue(Report& report);
void compareMemory(Report& report);
void growDocuments(Report& report);
void growTrees(Report& report);
void growLookups(Report& report);
/// @}

} // namespace rvopen::bench
