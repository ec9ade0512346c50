// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QDomDocument>
#include <QDomElement>
#include <QString>
#include <QWidget>

QT_BEGIN_NAMESPACE
class QLabel;
class QTreeWidget;
QT_END_NAMESPACE

namespace rvopen::browser {

class Workspace;

/// Two presets, snapshots or documents side by side: their pictures, and what differs in meaning.
class CompareWindow : public QWidget {
    Q_OBJECT

public:
    struct Side {
        QString file;
        QDomDocument document; ///< Kept as long as the window.
        QDomElement element;
        QString title;
    };

    CompareWindow(Workspace& workspace, const Side& before, const Side& after,
                  QWidget* parent = nullptr);

    int differences() const;

private:
    void showPictures();

    Workspace& m_workspace;
    Side m_sides[2];
    QLabel* m_pictures[2];
    QTreeWidget* m_list;
};

} // namespace rvopen::browser
