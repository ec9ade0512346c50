// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QDomElement>
#include <QIdentityProxyModel>
#include <QListView>

namespace rvopen::widgets {
class Thumbnails;
} // namespace rvopen::widgets

namespace rvopen::browser {

class EditedFile;

/// The snapshots of a document side by side, each with its picture and the camera that it is seen
/// through. They are sorted by dragging them.
class SnapShotStrip : public QListView {
    Q_OBJECT

public:
    explicit SnapShotStrip(widgets::Thumbnails& thumbnails, QWidget* parent = nullptr);
    ~SnapShotStrip() override;

    /// Null, and a file without snapshots, for none.
    void showFile(EditedFile* file);

Q_SIGNALS:
    void chosen(const QDomElement& snapShot);

private:
    class Delegate;
    class Model;

    Model* m_model;
};

} // namespace rvopen::browser
