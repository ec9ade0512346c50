// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include <rvopen/toolkit/catalogue/Catalogue.h>

#include <QStandardItemModel>
#include <QTreeView>

namespace rvopen::browser {

class Workspace;

/// By what presets are chosen: where they are, of what kind they are, and what somebody noted. Of
/// several things that are selected in one group one is enough, where that makes sense, and all
/// groups count.
class Sidebar : public QTreeView {
    Q_OBJECT

public:
    explicit Sidebar(Workspace& workspace, QWidget* parent = nullptr);

    /// What is selected, as a part of what is looked for.
    toolkit::CatalogueQuery query() const;
    /// The archives and documents that are selected themselves.
    QStringList selectedFiles() const;
    /// Of what is selected the files and folders that somebody opened.
    QStringList selectedPlaces() const;
    /// Has the row of that file selected, if there is one.
    void showFile(const QString& file);
    void showEverything();

Q_SIGNALS:
    void queryChanged();
    /// Somebody wants to see that file.
    void fileActivated(const QString& file);

private:
    enum Group { Everything, Favourites, Recent, Place, File, Folder, Kind, Category, Tag };
    enum Role { GroupRole = Qt::UserRole, ValueRole, FileRole, KeyRole, OpenRole };

    void fill();
    QStandardItem* header(const QString& text, bool isOpen);
    QStandardItem* add(QStandardItem* parent, const QString& text, Group group,
                       const QString& value, int count = -1);
    void addPlaces();
    QStandardItem* find(Group group, const QString& value) const;

    Workspace& m_workspace;
    QStandardItemModel m_model;
};

} // namespace rvopen::browser
