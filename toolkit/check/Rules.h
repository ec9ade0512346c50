// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include <rvopen/toolkit/ToolkitExport.h>

#include <QString>
#include <QVector>

namespace rvopen::toolkit {

/// How much a finding matters: for information, what may surprise, and what goes wrong.
enum class Severity { Note, Warning, Error };

/// "note", "warning" or "error".
RVOPEN_TOOLKIT_EXPORT QString SeverityName(Severity severity);

/// What Inspect() looks for. Identifiers are stable: programs and people filter by them.
struct Rule {
    /// What it is called: "bad-value".
    const char* id;
    /// Of all its findings.
    Severity severity;
    /// One sentence.
    const char* summary;
    /// Why it matters and what to do.
    const char* advice;
    /// What Mend() does about it; null when that would have to guess.
    const char* fix;
};

/// All of them, in the order in which they are explained; good for as long as the library is
/// loaded.
RVOPEN_TOOLKIT_EXPORT QVector<const Rule*> AllRules();
/// The one of that identifier; null for none.
RVOPEN_TOOLKIT_EXPORT const Rule* FindRule(const QString& id);

} // namespace rvopen::toolkit
