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
/// each outermost RVOpenBlock, called "Edit", since a stack that misses an edit could not take back
/// those before it. What only adds elements there is none, since windows that read create what is
/// missing: it is undone with the command before it, or is part of the one behind it, and a redo
/// takes it out first. So additions that people ask for need Begin(). What is changed outside while
/// it stands in no tree comes and goes as it is. Several changes of one attribute are one.
///
/// Objects: what is taken out by an undo, or by a redo, stays valid until the object that it was a
/// child of is deleted. What comes back has a new object in its tree, so after either, ask the tree
/// anew; a pointer from before is one more view of the same element. A host that keeps what it
/// detached must not delete that once the element stands in its tree again, since the element goes
/// along: release what is detached within the command that detaches it.
///
/// When the document is loaded anew or cleared, the stack is cleared: what was before cannot come
/// back. The recorder goes on with the document that takes the place. While a command is undone or
/// redone, or an edit is on its way (between Begin() and End(), in a block), no other may be.
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
    /// its objects meanwhile. The document is as it was, and the command has left the stack.
    void Failed(const QString& text);

private:
    class Record;
    class Command;

    std::unique_ptr<Record> m_record;
};

} // namespace widgets
} // namespace rvopen
