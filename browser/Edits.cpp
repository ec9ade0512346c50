// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "Edits.h"

#include "Becoming.h"
#include "EditedFile.h"

#include <rvopen/RVOpenObserver.h>
#include <rvopen/toolkit/edit/Arriving.h>
#include <rvopen/toolkit/edit/Sorting.h>
#include <rvopen/toolkit/schema/ElementInfo.h>

#include <QCoreApplication>

#include <memory>

namespace rvopen::browser::edits {

using widgets::NodeModel;
using widgets::UndoRecorder;

namespace {

class Texts {
    Q_DECLARE_TR_FUNCTIONS(rvopen::browser::edits)
};

const QString s_folder = QStringLiteral("dir");

/// One that stands nowhere; the document has to be held as long as it is.
QDomElement newElement(QDomDocument& document, const QString& kind, const QString& name)
{
    QDomElement element = document.createElement(kind);
    element.setAttribute(QStringLiteral("name"), name);
    if (kind != s_folder)
        element.setAttribute(QStringLiteral("refname"),
                             QString(name).replace(QLatin1Char(' '), QLatin1Char('_')));
    return element;
}

/// Its row; invalid for what is none, such as a part of a snapshot, whose row is another's.
QModelIndex rowOf(EditedFile& file, const QDomElement& element)
{
    const QModelIndex index = file.tree().Fetch(element);
    return index.isValid() && file.tree().Element(index) == element ? index : QModelIndex();
}

bool drop(NodeModel& model, const QMimeData& data, Qt::DropAction action, int row,
          const QModelIndex& shelf)
{
    return model.canDropMimeData(&data, action, row, 0, shelf) &&
           (model.dropMimeData(&data, action, row, 0, shelf) || action == Qt::MoveAction);
}

} // namespace

bool rename(EditedFile& file, const QDomElement& element, const QString& name)
{
    const QModelIndex index = rowOf(file, element);
    const UndoRecorder::Step step(file.recorder(), Texts::tr("Rename"));
    return index.isValid() && file.tree().setData(index, name);
}

int remove(EditedFile& file, const QVector<QDomElement>& elements)
{
    const UndoRecorder::Step step(file.recorder(), Texts::tr("Delete"));
    const RVOpenBlock block;
    int removed = 0;
    for (const QDomElement& element : elements) {
        // With a folder that went before goes what is in it.
        const QModelIndex index = rowOf(file, element);
        if (index.isValid() && file.tree().removeRows(index.row(), 1, index.parent()))
            ++removed;
    }
    return removed;
}

QDomElement duplicate(EditedFile& file, const QDomElement& element)
{
    NodeModel& model = file.tree();
    const QModelIndex index = rowOf(file, element);
    if (!index.isValid())
        return QDomElement();
    const std::unique_ptr<QMimeData> data(model.mimeData({index}));
    const UndoRecorder::Step step(file.recorder(), Texts::tr("Duplicate"));
    if (!drop(model, *data, Qt::CopyAction, index.row() + 1, index.parent()))
        return QDomElement();
    const QModelIndex before = rowOf(file, element);
    return model.Element(before.siblingAtRow(before.row() + 1));
}

bool move(EditedFile& file, const QDomElement& element, int by)
{
    NodeModel& model = file.tree();
    const QModelIndex index = rowOf(file, element);
    const int row = index.row() + by;
    if (!index.isValid() || row < 0 || row >= model.rowCount(index.parent()))
        return false;
    const std::unique_ptr<QMimeData> data(model.mimeData({index}));
    const UndoRecorder::Step step(file.recorder(), Texts::tr("Move"));
    return drop(model, *data, Qt::MoveAction, by > 0 ? row + 1 : row, index.parent());
}

bool paste(EditedFile& file, const QMimeData& data, const QDomElement& shelf)
{
    const QModelIndex index = rowOf(file, shelf);
    if (!shelf.isNull() && !index.isValid())
        return false;
    const UndoRecorder::Step step(file.recorder(), Texts::tr("Paste"));
    return drop(file.tree(), data, Qt::CopyAction, -1, index);
}

QDomElement add(EditedFile& file, const QString& kind, const QDomElement& shelf)
{
    QDomDocument document;
    const QDomElement element = newElement(
        document, kind, kind == s_folder ? Texts::tr("New folder") : Texts::tr("New %1").arg(kind));
    if (!toolkit::ProblemOfPlace(element, shelf).isEmpty())
        return QDomElement();
    const UndoRecorder::Step step(file.recorder(), Texts::tr("New"));
    const QDomElement added = toolkit::CopyFor(element, shelf);
    return insertNode(shelf, added, shelf.lastChild(), file.changes()) ? added : QDomElement();
}

QStringList kindsFor(const QDomElement& shelf)
{
    QStringList kinds;
    if (shelf.isNull())
        return kinds;
    for (const toolkit::ElementInfo& info : toolkit::AllElements()) {
        if (!info.isPreset && !info.isFolder)
            continue;
        QDomDocument document;
        if (toolkit::ProblemOfPlace(newElement(document, info.name, QString()), shelf).isEmpty())
            kinds.append(info.name);
    }
    return kinds;
}

QDomElement shelfOf(const EditedFile& file, const QDomElement& element)
{
    const QDomElement root = file.dom().documentElement();
    QDomElement shelf = element;
    while (!shelf.isNull() && shelf != root && kindsFor(shelf).isEmpty())
        shelf = shelf.parentNode().toElement();
    return shelf == root ? QDomElement() : shelf;
}

bool sort(EditedFile& file, const QDomElement& shelf)
{
    const QDomElement sorted = shelf.cloneNode(true).toElement();
    return toolkit::SortShelf(sorted, toolkit::SortBy::Name, toolkit::SortOrder::Ascending) &&
           file.become(sorted, shelf, Texts::tr("Sort"));
}

} // namespace rvopen::browser::edits
