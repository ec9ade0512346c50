// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include <rvopen/toolkit/catalogue/Catalogue.h>
#include <rvopen/widgets/ParamModel.h>

#include <QDomElement>
#include <QLabel>
#include <QPointer>
#include <QWidget>

QT_BEGIN_NAMESPACE
class QListWidget;
class QTabWidget;
class QTreeView;
QT_END_NAMESPACE

namespace rvopen::browser {

class EditedFile;
class Labels;
class Workspace;

/// One preset or snapshot: a large picture, which follows as values change, the values, the images
/// and the presets that it needs, with what is missing of them.
class Details : public QWidget {
    Q_OBJECT

public:
    explicit Details(Workspace& workspace, QWidget* parent = nullptr);

    void showNothing();
    /// To be looked at alone.
    void showPreset(const toolkit::ListedPreset& preset, const toolkit::OpenPreset& opened);
    /// To be edited. The file may go.
    void showElement(EditedFile& file, const QDomElement& element);
    QDomElement element() const;
    /// The file that it is of, if it can be edited; else empty.
    QString editedFile() const;
    widgets::ParamModel& values();
    QTreeView& view();
    QListWidget& references();
    /// The parameter that is chosen among the values; null for none.
    QDomElement chosenParam() const;

Q_SIGNALS:
    void refused(const QString& reason);
    /// Somebody wants to edit what is shown to be looked at.
    void editWanted();
    /// Somebody wants to see the preset that is referred to.
    void presetWanted(const QString& file, const QString& path);

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    void show(const QString& file, const QDomElement& element, bool isEdited);
    void showPicture();
    void showTexts();
    void showImages();
    void showReferences();
    void describe(const QString& attribute, const QString& text);

    Workspace& m_workspace;
    QString m_file;
    QDomDocument m_document;
    QDomElement m_element;
    bool m_isEdited = false;
    widgets::ParamModel m_values;
    QLabel* m_picture;
    QLabel* m_title;
    QTabWidget* m_tabs;
    QTreeView* m_view;
    QListWidget* m_images;
    QListWidget* m_references;
    Labels* m_labels;
};

} // namespace rvopen::browser
