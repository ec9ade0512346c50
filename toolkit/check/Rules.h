// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

namespace rvopen::tools {

enum class Severity { Note, Warning, Error };

QString severityName(Severity severity);

/// What check() looks for. Identifiers are stable: programs and people filter by them.
struct Rule {
    const char* id;
    Severity severity;
    /// One sentence.
    const char* summary;
    /// Why it matters and what to do.
    const char* advice;
    /// What --fix does about it; null when that would have to guess.
    const char* fix;
};

namespace rules {
extern const Rule malformedXml;
extern const Rule unknownDocument;
extern const Rule newerVersion;
extern const Rule oldCollectionName;
extern const Rule unitsScale;
extern const Rule unknownElement;
extern const Rule unknownAttribute;
extern const Rule unknownKind;
extern const Rule misplacedChild;
extern const Rule repeatedComponent;
extern const Rule ignoredChild;
extern const Rule missingComponent;
extern const Rule hiddenParam;
extern const Rule shaderEndsList;
extern const Rule unknownParam;
extern const Rule paramWithoutName;
extern const Rule missingType;
extern const Rule wrongType;
extern const Rule badValue;
extern const Rule outOfRange;
extern const Rule duplicateParam;
extern const Rule duplicateName;
extern const Rule duplicateLinkName;
extern const Rule duplicateRefName;
extern const Rule missingPreset;
extern const Rule missingArchive;
extern const Rule missingTexture;
extern const Rule missingThumbnail;
extern const Rule unreadablePreview;
} // namespace rules

/// All of them, in the order in which they are explained.
extern const Rule* const allRules[];
extern const int ruleCount;

} // namespace rvopen::tools
