// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include <rvopen/toolkit/check/Rules.h>

/// The rules by their names.
namespace rvopen::toolkit::rules {

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

} // namespace rvopen::toolkit::rules
