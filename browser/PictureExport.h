// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include <rvopen/toolkit/catalogue/Catalogue.h>

#include <QObject>
#include <QString>
#include <QVector>

#include <atomic>
#include <memory>

namespace rvopen::browser {

class Workspace;

/// Writes the pictures of presets into a folder, one after the other in another thread, as they are
/// drawn from what is in memory. What is there already stays: another number takes its place.
class PictureExport : public QObject {
    Q_OBJECT

public:
    PictureExport(Workspace& workspace, const QString& folder,
                  const QVector<toolkit::ListedPreset>& presets, QObject* parent = nullptr);
    ~PictureExport() override;

    void start();
    /// With the picture that it is at.
    void stop();
    int count() const;
    /// How many of them were begun.
    int done() const;

Q_SIGNALS:
    void progressed();
    /// \p problem is empty unless a picture could not be written.
    void finished(int written, const QString& problem);

private:
    void next();
    QString freeName(const toolkit::ListedPreset& preset) const;

    Workspace& m_workspace;
    QString m_folder;
    QVector<toolkit::ListedPreset> m_presets;
    int m_done = 0;
    int m_written = 0;
    std::shared_ptr<std::atomic<bool>> m_stop;
};

} // namespace rvopen::browser
