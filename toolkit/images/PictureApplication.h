// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

namespace rvopen::toolkit {

/// \name The application that pictures need
/// Qt decodes and draws with an application alone. A program with windows has one, and nothing is
/// done; one without any application gets one by the first call, in whatever thread, for which no
/// screen is needed; it lasts as long as the process. One with an application of another kind has
/// to make a QGuiApplication itself.
/// @{
void preparePictures();

/// The same with fonts; throws a Failure when there are none. To be called before
/// preparePictures().
void prepareTexts();
/// @}

} // namespace rvopen::toolkit
