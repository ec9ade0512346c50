// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QtGlobal>

/// What a document of Qt's takes in memory, in bytes: as measured with pointers of 64 bits, and a
/// little more. Small elements are dearer than their attributes suggest, since the first attribute
/// makes Qt allocate for several.
namespace rvopen::xml {

inline constexpr qint64 ElementMemory = 300;
inline constexpr qint64 AttributeMemory = QT_VERSION_MAJOR >= 6 ? 1200 : 700;
/// Of a text, section, comment, instruction or reference, without its characters.
inline constexpr qint64 LeafMemory = 250;
inline constexpr qint64 CharacterMemory = 2;

} // namespace rvopen::xml
