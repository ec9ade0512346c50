// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

// Shows the camera of each document in a table in which its values can be edited:
// params_table <document>...
// With --rows first it prints the rows and opens no window.

#include <rvopen/Camera.h>
#include <rvopen/RVOpenManager.h>
#include <rvopen/SnapShot.h>
#include <rvopen/host/Documents.h>
#include <rvopen/host/Find.h>
#include <rvopen/widgets/ParamDelegate.h>
#include <rvopen/widgets/ParamModel.h>

#include <QApplication>
#include <QFile>
#include <QHeaderView>
#include <QTextStream>
#include <QTreeView>

#include <memory>
#include <vector>

namespace {

using rvopen::widgets::ParamModel;

void print(const ParamModel& model)
{
    QTextStream out(stdout);
    for (int row = 0; row < model.rowCount(); ++row) {
        for (const int column : {ParamModel::Name, ParamModel::Value, ParamModel::Unit})
            out << model.index(row, column).data().toString() << (column < 2 ? "\t" : "\n");
    }
}

void show(QTreeView& view, ParamModel& model, const QString& path)
{
    view.setModel(&model);
    view.setItemDelegateForColumn(ParamModel::Value, new rvopen::widgets::ParamDelegate(&view));
    view.setEditTriggers(QAbstractItemView::AllEditTriggers);
    view.setWindowTitle(path);
    view.setRootIsDecorated(false);
    view.header()->setSectionResizeMode(QHeaderView::ResizeToContents);
    view.resize(900, 400);
    view.show();
}

} // namespace

int main(int argc, char** argv)
{
    const bool printsRows = argc > 1 && qstrcmp(argv[1], "--rows") == 0;
    std::unique_ptr<QCoreApplication> application;
    if (printsRows)
        application = std::make_unique<QCoreApplication>(argc, argv);
    else
        application = std::make_unique<QApplication>(argc, argv);

    // In this order, so that windows and models go before their documents.
    std::vector<std::unique_ptr<rvopen::RVOpenManager>> managers;
    std::vector<std::unique_ptr<ParamModel>> models;
    std::vector<std::unique_ptr<QTreeView>> views;
    for (int i = printsRows ? 2 : 1; i < argc; ++i) {
        const QString path = QFile::decodeName(argv[i]);
        managers.push_back(std::make_unique<rvopen::RVOpenManager>());
        if (const auto result = rvopen::host::load(*managers.back(), path); !result) {
            QTextStream(stderr) << path << ": " << result.error().message << '\n';
            return 1;
        }
        models.push_back(std::make_unique<ParamModel>());
        models.back()->SetNode(
            rvopen::host::find<rvopen::Camera>(managers.back()->GetCurrentSnapShot()));
        if (printsRows) {
            print(*models.back());
            continue;
        }
        views.push_back(std::make_unique<QTreeView>());
        show(*views.back(), *models.back(), path);
    }
    return views.empty() ? 0 : QCoreApplication::exec();
}
