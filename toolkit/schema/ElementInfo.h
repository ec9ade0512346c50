// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include <rvopen/toolkit/ToolkitExport.h>

#include <QString>
#include <QStringList>
#include <QVector>

namespace rvopen {

class RVOpenNode;

namespace toolkit {

/// What is known of an element.
struct ElementInfo {
    QString name;
    /// The root of a document, or one that archives usually have.
    bool isRoot = false;
    /// A container of presets below the root of an archive.
    bool isSection = false;
    /// What holds presets and further folders: "dir".
    bool isFolder = false;
    /// Something that archives hold as a preset.
    bool isPreset = false;
    /// A part of a snapshot, which has at most one of each.
    bool isComponent = false;
    /// The attribute that tells its kind, "subcat" or "shaderClass", and the kinds that there are.
    /// Without kinds any text is as good.
    QString kindAttribute;
    QStringList kinds;
    /// Other kinds are as good, but those listed are the usual ones.
    bool areKindsOpen = true;
    /// The elements that belong into it, besides its parameters. What else stands there is kept
    /// without effect.
    QStringList children;
};

/// All elements that rvopen has a meaning for: roots, what snapshot documents have, what archives
/// have, and the parts of materials.
RVOPEN_TOOLKIT_EXPORT QVector<ElementInfo> AllElements();

/// \name Look-ups
/// Null for an element that is not known. Good for as long as the library is loaded.
/// @{
RVOPEN_TOOLKIT_EXPORT const ElementInfo* FindElement(const QString& name);
RVOPEN_TOOLKIT_EXPORT const ElementInfo* FindElement(const RVOpenNode& node);
/// @}

} // namespace toolkit
} // namespace rvopen
