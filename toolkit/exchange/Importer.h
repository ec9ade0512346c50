// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include "toolkit/edit/Placement.h"

#include <rvopen/toolkit/compare/Comparer.h>

#include <QDomElement>
#include <QSet>
#include <QString>
#include <QStringList>
#include <QVector>

namespace rvopen::toolkit {

class Document;

/// What a snapshot or a preset is to the document that it would come into.
enum class ImportState {
    New,
    Same,    ///< It is there with the same content.
    Changed, ///< It is there with another content.
    Refused  ///< It cannot go there.
};

enum class ImportAction { None, Added, Replaced, Renamed };

/// What becomes of what is there with another content.
enum class ChangedImports {
    Left,
    Renamed, ///< The new one comes under another name.
    Replaced
};

/// A snapshot or a preset that may be taken over.
struct ImportItem {
    QDomElement source;
    QString sourcePath;
    /// For presets.
    Preset preset;
    /// What has its identity in the target already.
    QDomElement existing;
    ImportState state = ImportState::New;
    ImportAction action = ImportAction::None;
    /// What stands in the target afterwards.
    QDomElement result;
    /// Why it is refused, or what else is to be said.
    QString note;

    bool isSnapShot() const;
};

/// Takes snapshots or presets over from one document into another one of the same kind. Snapshots
/// are told apart by their names, presets by their reference names.
class Importer {
public:
    /// Throws a Failure unless both are snapshot documents, or both archives. They outlive this.
    Importer(const Document& source, const Document& target);

    /// What there is to take over, in the order of the source: all, or what has one of the paths.
    /// Throws a Failure for a text that is no path.
    QVector<ImportItem> items(const QStringList& paths);

    /// Does it in the target in memory.
    void apply(QVector<ImportItem>& items, ChangedImports changed);

private:
    QVector<ImportItem> snapShotItems();
    QVector<ImportItem> presetItems();
    void judge(ImportItem& item, const QString& key);
    void apply(ImportItem& item, ChangedImports changed, double ratio);
    void rename(ImportItem& item, const QDomDocument& document);
    bool isSelected(const QDomElement& element) const;

    const Document& m_source;
    const Document& m_target;
    Comparer m_comparer;
    bool m_isEverything = true;
    QVector<QDomElement> m_selected;
    /// Names and reference names in the target.
    QSet<QString> m_taken;
    /// What the items before it are told by.
    QSet<QString> m_seen;
};

} // namespace rvopen::toolkit
