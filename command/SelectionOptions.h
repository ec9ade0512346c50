// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include "toolkit/edit/Selection.h"

#include <rvopen/toolkit/drawing/Subjects.h>

#include <QVector>

namespace rvopen::command {

class Arguments;
class Session;

/// The options that say which presets or other elements a command is about, the same for all.
class SelectionOptions {
public:
    void declare(Arguments& arguments);
    /// Of the command line, once it is parsed. Throws a Failure when a path or condition is none.
    toolkit::Selection selection();
    /// To be called when all documents were looked at: warns when nothing was selected in any and
    /// something seems mistyped.
    void tellMisspelling(Session& session) const;

private:
    toolkit::SelectionTexts m_texts;
    toolkit::Selection m_selection;
};

/// Those that are selected.
QVector<toolkit::Subject> selectedOf(const QVector<toolkit::Subject>& subjects,
                                     const toolkit::Scope& scope);

} // namespace rvopen::command
