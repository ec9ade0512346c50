// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QDomElement>

namespace rvopen::toolkit {

enum class SortBy { Name, RefName, Category };
enum class SortOrder { Ascending, Descending };

/// Puts the children of a shelf in order without regard to the case of letters: parameters, which
/// stay as they are, then folders by their names, then all else. What is alike keeps its order, and
/// what stands before a child that is no element, such as a comment, stays before it. Whether
/// anything moved.
bool sortShelf(QDomElement shelf, SortBy by, SortOrder order);

} // namespace rvopen::toolkit
