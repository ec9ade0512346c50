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
    /// Of the element.
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
    /// The attribute that tells its kind, "subcat" or "shaderClass"; empty where any is as good.
    QString kindAttribute;
    /// The kinds that there are.
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

/// The one of that name, good for as long as the library is loaded; null for none.
RVOPEN_TOOLKIT_EXPORT const ElementInfo* FindElement(const QString& name);
/// That of the node's element; null for none.
RVOPEN_TOOLKIT_EXPORT const ElementInfo* FindElement(const RVOpenNode& node);

} // namespace toolkit
} // namespace rvopen
