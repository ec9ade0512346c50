// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include <rvopen/toolkit/exchange/Exchange.h>

#include "Importer.h"
#include "Merger.h"

namespace rvopen::toolkit {

ImportOutcome Import(const Document& source, const Document& target, ChangedImports changed)
{
    Importer importer(source, target);
    QVector<ImportItem> items = importer.items({});
    importer.apply(items, changed);
    ImportOutcome outcome;
    for (const ImportItem& item : items) {
        if (item.state == ImportState::Refused)
            outcome.refused << QStringLiteral("%1: %2").arg(item.sourcePath, item.note);
        else if (item.state == ImportState::Same)
            ++outcome.same;
        else if (item.action == ImportAction::Added)
            ++outcome.added;
        else if (item.action == ImportAction::Replaced)
            ++outcome.replaced;
        else if (item.action == ImportAction::Renamed)
            ++outcome.renamed;
        else
            ++outcome.left;
    }
    return outcome;
}

MergeOutcome Merge(const Document* base, const Document& ours, const Document& theirs)
{
    Merger merger(base, ours, theirs);
    MergeOutcome outcome;
    outcome.conflicts = merger.run();
    outcome.taken = merger.taken();
    return outcome;
}

} // namespace rvopen::toolkit
