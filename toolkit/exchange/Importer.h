// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include "toolkit/edit/Carrying.h"
#include "toolkit/edit/Placement.h"
#include "toolkit/images/TextureReferences.h"

#include <rvopen/toolkit/compare/Comparer.h>
#include <rvopen/toolkit/exchange/Exchange.h>

#include <QDomElement>
#include <QSet>
#include <QString>
#include <QStringList>
#include <QVector>

#include <optional>

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
    /// Relative references to image files in the source, in memory, lead to the same files from
    /// where the target is from then on. Throws a Failure for a text that is no path.
    QVector<ImportItem> items(const QStringList& paths);

    /// What became of the references, once items() was called.
    const QVector<Rebased>& textures() const;

    /// Does it in the target in memory.
    void apply(QVector<ImportItem>& items, ChangedImports changed);

private:
    QVector<ImportItem> snapShotItems();
    QVector<ImportItem> presetItems();
    void judge(ImportItem& item, const QString& key);
    void apply(ImportItem& item, ChangedImports changed, double ratio);
    bool isSelected(const QDomElement& element) const;

    const Document& m_source;
    const Document& m_target;
    Comparer m_comparer;
    bool m_isEverything = true;
    QVector<QDomElement> m_selected;
    QVector<Rebased> m_textures;
    std::optional<FreeNames> m_freeNames;
    /// What the items before it are told by.
    QSet<QString> m_seen;
};

} // namespace rvopen::toolkit
