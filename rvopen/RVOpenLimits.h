// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include <rvopen/RVOpenExport.h>

#include <QtGlobal>

namespace rvopen {

/// \name What the library refuses to read
/// A text beyond one of these bounds is refused where it passes the bound, with line and column.
/// @{

/// Levels of elements; the root is the first.
inline constexpr int MaxNestingDepth = 256;
/// Attributes of one element.
inline constexpr int MaxAttributes = 1024;
/// Characters of one name.
inline constexpr int MaxNameLength = 4000;
/// Default of GetMaxInputSize().
inline constexpr qint64 DefaultMaxInputSize = qint64(512) * 1024 * 1024;

/// The largest input: bytes of a file, or characters (UTF-16 units) of a string.
RVOPEN_EXPORT qint64 GetMaxInputSize();
/// Sets it for the whole process, from any thread; taken into 0 to 1,000,000,000.
RVOPEN_EXPORT void SetMaxInputSize(qint64 size);

/// Default of GetMaxDocumentMemory(): 8 GiB, or 1 GiB where pointers have 32 bits.
inline constexpr qint64 DefaultMaxDocumentMemory = qint64(sizeof(void*) < 8 ? 1 : 8) << 30;

/// Bytes of memory that one document may take, by an estimate made while it is read:
/// docs/reliability.md has the numbers. Objects of the library over it take memory of their own. As
/// with the other bounds, a document beyond it is not saved either: it could not be read again.
RVOPEN_EXPORT qint64 GetMaxDocumentMemory();
/// Sets it for the whole process, from any thread; below 0 it is 0.
RVOPEN_EXPORT void SetMaxDocumentMemory(qint64 bytes);
/// @}

} // namespace rvopen
