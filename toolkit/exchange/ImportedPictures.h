// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include "toolkit/documents/FileTransaction.h"
#include "toolkit/images/PictureMoves.h"

#include <QPair>
#include <QString>
#include <QVector>

namespace rvopen::toolkit {

class Document;
struct ImportItem;

/// The thumbnails of snapshots that are taken over: files beside the source, copied to where the
/// target has its own. Unless finish() is called the copies go again.
class ImportedPictures {
public:
    ImportedPictures(const Document& source, const QString& folder,
                     const PictureMoves::Complaint& complain);

    /// Copies that of the snapshot, when it has one. Where another file is in the way that stands
    /// in the item's note. Throws a Failure when it cannot be copied.
    void copy(ImportItem& item);

    /// Keeps the copies, and puts those in their places that take the place of others, which
    /// \p backUp has seen. To be called when the target is written.
    void finish(const PictureMoves::Backup& backUp);

private:
    const Document& m_source;
    QString m_folder;
    PictureMoves::Complaint m_complain;
    FileTransaction m_files;
    /// Files that come to others.
    QVector<QPair<QString, QString>> m_replaced;
};

} // namespace rvopen::toolkit
