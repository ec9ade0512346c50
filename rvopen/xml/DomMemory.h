// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include <rvopen/QtCompat.h>

#include <QtGlobal>

/// What a document of Qt's takes in memory, in bytes: as measured with pointers of 64 bits, and a
/// little more.
namespace rvopen::xml {

inline constexpr qint64 ElementMemory = 280;
/// Of the table that an element has from its first attribute on.
inline constexpr qint64 AttributeTableMemory = compat::isQt6 ? 1800 : 200;
inline constexpr qint64 AttributeMemory = 550;
/// Of a text, section, comment, instruction or reference, without its characters.
inline constexpr qint64 LeafMemory = 250;
inline constexpr qint64 CharacterMemory = 2;

} // namespace rvopen::xml
