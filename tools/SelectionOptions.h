// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include "edit/Selection.h"

namespace rvopen::tools {

class Arguments;

/// The options that say which presets or other elements a command is about, the same for all.
class SelectionOptions {
public:
    void declare(Arguments& arguments);
    /// Of the command line, once it is parsed. Throws a Failure when a path or condition is none.
    Selection selection() const;

private:
    SelectionTexts m_texts;
};

} // namespace rvopen::tools
