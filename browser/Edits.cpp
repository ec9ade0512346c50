// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "Edits.h"

#include "EditedFile.h"

#include <rvopen/RVOpenObserver.h>
#include <rvopen/RVOpenWriter.h>
#include <rvopen/toolkit/edit/Arriving.h>
#include <rvopen/toolkit/edit/NodePath.h>
#include <rvopen/toolkit/schema/ElementInfo.h>

#include <QCoreApplication>

#include <algorithm>
#include <memory>

namespace rvopen::browser::edits {

using widgets::NodeModel;
using widgets::UndoRecorder;

namespace {

QString text(const char* source)
{
    return QCoreApplication::translate("rvopen::browser::edits", source);
}

const QString s_folder = QStringLiteral("dir");

/// As it is dragged and pasted; the document has to be held as long as the element.
QDomDocument documentOf(const QString& kind, const QString& name)
{
    QDomDocument document;
    QDomElement wrapper = document.createElement(QStringLiteral("rvopenNodes"));
    document.appendChild(wrapper);
    QDomElement element = document.createElement(kind);
    element.setAttribute(QStringLiteral("name"), name);
    if (kind != s_folder)
        element.setAttribute(QStringLiteral("refname"),
                             QString(name).replace(QLatin1Char(' '), QLatin1Char('_')));
    wrapper.appendChild(element);
    return document;
}

/// The last child of the shelf that is shown.
QDomElement lastOf(NodeModel& model, const QModelIndex& shelf)
{
    const int rows = model.rowCount(shelf);
    return rows > 0 ? model.Element(model.index(rows - 1, 0, shelf)) : QDomElement();
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
    const UndoRecorder::Step step(file.recorder(),
                                  text(QT_TRANSLATE_NOOP("rvopen::browser::edits", "Rename")));
    return file.tree().setData(file.tree().Fetch(element), name);
}

int remove(EditedFile& file, const QVector<QDomElement>& elements)
{
    const UndoRecorder::Step step(file.recorder(),
                                  text(QT_TRANSLATE_NOOP("rvopen::browser::edits", "Delete")));
    const RVOpenBlock block;
    NodeModel& model = file.tree();
    int removed = 0;
    for (const QDomElement& element : elements) {
        const QModelIndex index = model.Fetch(element);
        // With a folder that went before goes what is in it.
        if (index.isValid() && model.Element(index) == element &&
            model.removeRows(index.row(), 1, index.parent()))
            ++removed;
    }
    return removed;
}

QDomElement duplicate(EditedFile& file, const QDomElement& element)
{
    NodeModel& model = file.tree();
    const QModelIndex index = model.Fetch(element);
    if (!index.isValid() || model.Element(index) != element)
        return QDomElement();
    const std::unique_ptr<QMimeData> data(model.mimeData({index}));
    const UndoRecorder::Step step(file.recorder(),
                                  text(QT_TRANSLATE_NOOP("rvopen::browser::edits", "Duplicate")));
    if (!drop(model, *data, Qt::CopyAction, index.row() + 1, index.parent()))
        return QDomElement();
    return model.Element(model.Fetch(element).siblingAtRow(model.Fetch(element).row() + 1));
}

bool move(EditedFile& file, const QDomElement& element, int by)
{
    NodeModel& model = file.tree();
    const QModelIndex index = model.Fetch(element);
    const int row = index.row() + by;
    if (!index.isValid() || row < 0 || row >= model.rowCount(index.parent()))
        return false;
    const std::unique_ptr<QMimeData> data(model.mimeData({index}));
    const UndoRecorder::Step step(file.recorder(),
                                  text(QT_TRANSLATE_NOOP("rvopen::browser::edits", "Move")));
    return drop(model, *data, Qt::MoveAction, by > 0 ? row + 1 : row, index.parent());
}

bool paste(EditedFile& file, const QMimeData& data, const QDomElement& shelf)
{
    NodeModel& model = file.tree();
    const QModelIndex index = shelf.isNull() ? QModelIndex() : model.Fetch(shelf);
    if (!shelf.isNull() && model.Element(index) != shelf)
        return false;
    const UndoRecorder::Step step(file.recorder(),
                                  text(QT_TRANSLATE_NOOP("rvopen::browser::edits", "Paste")));
    return drop(model, data, Qt::CopyAction, -1, index);
}

QDomElement add(EditedFile& file, const QString& kind, const QDomElement& shelf)
{
    const QString name =
        kind == s_folder ? text(QT_TRANSLATE_NOOP("rvopen::browser::edits", "New folder"))
                         : text(QT_TRANSLATE_NOOP("rvopen::browser::edits", "New %1")).arg(kind);
    QMimeData data;
    data.setData(NodeModel::MimeType(),
                 XmlText(documentOf(kind, name), SnapShotFileIndent).toUtf8());
    const UndoRecorder::Step step(file.recorder(),
                                  text(QT_TRANSLATE_NOOP("rvopen::browser::edits", "New")));
    NodeModel& model = file.tree();
    if (!drop(model, data, Qt::CopyAction, -1, model.Fetch(shelf)))
        return QDomElement();
    return lastOf(model, model.Fetch(shelf));
}

QStringList kindsFor(const QDomElement& shelf)
{
    QStringList kinds;
    if (shelf.isNull())
        return kinds;
    for (const toolkit::ElementInfo& info : toolkit::AllElements()) {
        if (!info.isPreset && !info.isFolder)
            continue;
        const QDomDocument document = documentOf(info.name, QString());
        const QDomElement element = document.documentElement().firstChildElement();
        if (toolkit::ProblemOfPlace(element, shelf).isEmpty())
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
    NodeModel& model = file.tree();
    const QModelIndex parent = model.Fetch(shelf);
    model.fetchMore(parent);
    QVector<QDomElement> wanted;
    for (int row = 0; row < model.rowCount(parent); ++row)
        wanted.append(model.Element(model.index(row, 0, parent)));
    std::stable_sort(wanted.begin(), wanted.end(), [](const QDomElement& a, const QDomElement& b) {
        const bool isFolderA = a.tagName() == s_folder;
        const bool isFolderB = b.tagName() == s_folder;
        if (isFolderA != isFolderB)
            return isFolderA;
        return QString::compare(toolkit::IdentityOf(a), toolkit::IdentityOf(b),
                                Qt::CaseInsensitive) < 0;
    });
    const UndoRecorder::Step step(file.recorder(),
                                  text(QT_TRANSLATE_NOOP("rvopen::browser::edits", "Sort")));
    const RVOpenBlock block;
    bool isMoved = false;
    for (int row = 0; row < int(wanted.size()); ++row) {
        const QModelIndex index = model.Fetch(wanted[row]);
        if (index.row() == row)
            continue;
        const std::unique_ptr<QMimeData> data(model.mimeData({index}));
        isMoved = drop(model, *data, Qt::MoveAction, row, model.Fetch(shelf)) || isMoved;
    }
    return isMoved;
}

} // namespace rvopen::browser::edits
