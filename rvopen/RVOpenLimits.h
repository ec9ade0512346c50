// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include <rvopen/RVOpenExport.h>

#include <QtGlobal>

namespace rvopen {

/// \name What the library refuses to read
/// A text beyond one of these bounds is refused before a document is built from it.
/// @{

/// Levels of elements; the root is the first.
inline constexpr int MaxNestingDepth = 256;
/// Attributes of one element.
inline constexpr int MaxAttributes = 1024;
/// Characters that the declarations of one document may add to it, all references to internal
/// entities and all defaults of attributes together; as many as the document itself has if those
/// are more.
inline constexpr qint64 MaxEntityExpansion = 1048576;
/// Characters of one name.
inline constexpr int MaxNameLength = 4000;
/// Default of GetMaxInputSize().
inline constexpr qint64 DefaultMaxInputSize = qint64(512) * 1024 * 1024;

/// The largest input: bytes of a file, or characters (UTF-16 units) of a string.
RVOPEN_EXPORT qint64 GetMaxInputSize();
/// Sets it for the whole process, from any thread; taken into 0 to 1,000,000,000.
RVOPEN_EXPORT void SetMaxInputSize(qint64 size);
/// @}

} // namespace rvopen
