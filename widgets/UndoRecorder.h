// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include <rvopen/widgets/WidgetsExport.h>

#include <QObject>
#include <QString>

#include <memory>

QT_BEGIN_NAMESPACE
class QUndoStack;
QT_END_NAMESPACE

namespace rvopen {

class RVOpenManager;
class RVOpenNode;

namespace widgets {

/// Makes commands of a host's undo stack from the edits of one document, whatever they are and
/// whoever makes them through objects. What is undone gives the bytes of before, what is redone
/// those of after; both are told to all who observe the document, so models and views follow.
///
/// What is edited from Begin() to End() is one command. What is edited outside of them is one for
/// each outermost RVOpenBlock, or operation where there is none, called "Edit", since a stack that
/// misses an edit could not take back those before it. Several changes of one attribute are one.
///
/// What only adds elements is a command between Begin() and End() and in an RVOpenBlock, but not by
/// itself, since windows that read create what is missing: that goes with the command before it, or
/// is part of the one behind it. While something can be redone, undo and redo take it out for good.
///
/// What was taken out of the tree by a command, or by undoing one, may be changed while it is out:
/// that goes with the commands around it. What was never in the tree comes, and goes, as it is.
///
/// Objects: what is taken out by an undo, or by a redo, stays valid until the object that it was a
/// child of is deleted, and stands in its tree again when its element does. What was deleted comes
/// back with new objects, of which the tree knows; a host::Ref tells. A host that keeps what it
/// detached must not delete that once the element stands in its tree again, since the element goes
/// along: release what is detached within the command that detaches it.
///
/// When the document is loaded anew or cleared, the stack is cleared: what was before cannot come
/// back. Nor can files, such as that of an archive whose reference was deleted. The recorder goes
/// on with the document that takes the place.
///
/// An undo while an edit is on its way, between Begin() and End() or in a block, takes along what
/// was edited so far; a redo fails then. Edits past the objects are not recorded: a command that
/// finds what it changed in another state fails. Host's own commands on the stack must not edit
/// the document. For edits of several documents at once there is a recorder for each, and one
/// command where they end between QUndoStack::beginMacro() and endMacro().
///
/// \code
/// void addUndo(rvopen::RVOpenManager& manager, QMainWindow& window)
/// {
///     using rvopen::widgets::UndoRecorder;
///     auto* const stack = new QUndoStack(&window);
///     auto* const recorder = new UndoRecorder(manager, stack, &window);
///     window.addAction(stack->createUndoAction(&window));
///     window.addAction(stack->createRedoAction(&window));
///     const UndoRecorder::Step step(*recorder, QMainWindow::tr("Rename Snapshot"));
///     manager.GetCurrentSnapShot()->SetName(QMainWindow::tr("Entrance"));
/// }
/// \endcode
class RVOPEN_WIDGETS_EXPORT UndoRecorder : public QObject {
    Q_OBJECT

public:
    /// Of the snapshot document of a manager, which has to outlive the recorder. The stack is the
    /// host's and outlives it too, or its edits are forgotten; commands whose recorder is gone do
    /// nothing and leave the stack when their turn comes.
    UndoRecorder(RVOpenManager& manager, QUndoStack* stack, QObject* parent = nullptr);
    /// Of the document that \p root is the root node of, which is not null: of an archive. Objects
    /// below that node follow. When the archive is closed, nothing is recorded any more.
    UndoRecorder(RVOpenNode* root, QUndoStack* stack, QObject* parent = nullptr);
    ~UndoRecorder() override;

    /// \name Commands
    /// @{

    /// From here to End() all is one command, called \p text. Commands in it are part of it.
    void Begin(const QString& text);
    /// Pushes the command if anything was changed. Nothing happens without Begin().
    void End();
    /// Whether an End() is to come.
    bool IsBegun() const;
    /// @}

    /// Begin() and End() of a scope.
    class RVOPEN_WIDGETS_EXPORT Step {
    public:
        /// \p recorder has to outlive it.
        Step(UndoRecorder& recorder, const QString& text);
        ~Step();
        Step(const Step&) = delete;
        Step& operator=(const Step&) = delete;

    private:
        UndoRecorder& m_recorder;
    };

Q_SIGNALS:
    /// The command called \p text could not be undone or redone, since the document was edited past
    /// its objects meanwhile, or is being edited. The document is as it was, and the command has
    /// left the stack. Told from the event loop, when the stack may be used again.
    void Failed(const QString& text);

private:
    class Record;
    class Command;

    std::unique_ptr<Record> m_record;
};

} // namespace widgets
} // namespace rvopen
