// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include <rvopen/RVOpenWriter.h>
#include <rvopen/manager/Retired.h>

#include <QDomDocument>
#include <QDomNode>
#include <QString>

#include <memory>

namespace rvopen {

class Camera;
class SnapShot;
class SnapShots;
class SnapShotSettings;

/// The document that a manager imported last.
class ImportedDocument {
public:
    /// What a host may still hold of an earlier import goes to \p retired.
    explicit ImportedDocument(Retired& retired);
    ~ImportedDocument();
    ImportedDocument(const ImportedDocument&) = delete;
    ImportedDocument& operator=(const ImportedDocument&) = delete;

    /// False for a file that cannot be read, which changes the path alone.
    bool read(const QString& path);
    /// The current snapshot of the last document that had one, or null.
    SnapShot* current() const;
    bool hasSnapShots() const;
    /// Appends copies of the snapshots to \p collection, with copies of \p camera unless it is null
    /// and with their thumbnails. One that gets its thumbnail gets the session of \p settings, too,
    /// unless they are null. The first thumbnail that was there and could not be copied.
    WriteError addTo(SnapShots* collection, Camera* camera, SnapShotSettings* settings) const;

private:
    Retired& m_retired;
    QString m_path;
    std::unique_ptr<QDomDocument> m_document;
    QDomNode m_collection;
    View<SnapShot> m_current;
};

} // namespace rvopen
