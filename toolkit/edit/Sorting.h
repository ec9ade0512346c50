// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include <rvopen/toolkit/ToolkitExport.h>

#include <QDomElement>

namespace rvopen::toolkit {

/// By what presets are sorted; folders are by their names.
enum class SortBy { Name, RefName, Category };
/// Which way.
enum class SortOrder { Ascending, Descending };

/// Puts the children of a shelf in order without regard to the case of letters: parameters, which
/// stay as they are, then folders by their names, then all else. What is alike keeps its order, and
/// what stands before a child that is no element, such as a comment, stays before it. Whether
/// anything moved. In the document alone, past its objects.
RVOPEN_TOOLKIT_EXPORT bool SortShelf(QDomElement shelf, SortBy by, SortOrder order);

} // namespace rvopen::toolkit
