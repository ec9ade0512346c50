// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

namespace rvopen {

/// Results of the accessors that return `unsigned int`.
/// Outputs are untouched on any result but StatusOk, unless the operation says otherwise.

/// Done.
inline constexpr unsigned int StatusOk = 0;
/// The attribute or parameter is absent, empty or of another type, or could not be created.
inline constexpr unsigned int StatusMissing = 2;
/// A finish does not know the shader class that it was asked to take.
inline constexpr unsigned int StatusUnknownShaderClass = 18;

} // namespace rvopen
