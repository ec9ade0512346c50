// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include "Journal.h"

#include <rvopen/RVOpenWriter.h>
#include <rvopen/host/OpenArchive.h>
#include <rvopen/host/Result.h>
#include <rvopen/toolkit/documents/Document.h>
#include <rvopen/widgets/NodeModel.h>
#include <rvopen/widgets/UndoRecorder.h>

#include <QByteArray>
#include <QDomDocument>
#include <QObject>
#include <QString>
#include <QUndoStack>

#include <memory>

namespace rvopen {
class RVOpenManager;
class RVOpenNode;
} // namespace rvopen

namespace rvopen::browser {

/// A file that is open: an archive or a snapshot document, with what can be undone, its journal,
/// and what the file had when it was read or written last.
class EditedFile : public QObject {
    Q_OBJECT

public:
    /// Null, with the reason in \p error, where it cannot be read or is neither. Journals are kept
    /// below \p journals.
    static std::unique_ptr<EditedFile> open(const QString& file, ReadError& error,
                                            const QString& journals = Journal::folder());
    ~EditedFile() override;

    /// \name What it is
    /// @{
    QString file() const;
    /// The last part of that.
    QString name() const;
    toolkit::DocumentKind kind() const;
    QDomDocument dom() const;
    /// Of its own, to be worked on in any thread.
    QDomDocument copy() const;
    /// Null once the archive was closed by somebody else.
    RVOpenNode* root() const;
    /// Its presets, or its snapshots.
    widgets::NodeModel& tree();
    /// @}

    /// \name Edits
    /// @{
    QUndoStack& stack();
    widgets::UndoRecorder& recorder();
    bool isChanged() const;
    /// Another one after each change, whatever made it, also after one that was taken back.
    quint64 revision() const;
    /// Puts a change into the document.
    bool takeBack(const RVOpenChange& change);
    /// The same of any number, for what works out several.
    TakeBack changes();
    /// What stands in the document becomes as \p wanted is, which was worked out in a copy, as one
    /// step called \p text. False where it cannot.
    bool become(const QDomElement& wanted, const QDomElement& element, const QString& text);
    /// What a journal has, as one step to undo. False where not all of it could be made.
    bool recover(const Journal::Left& left);
    /// Why edits are not kept for after a crash; empty as long as they are.
    QString journalProblem() const;
    /// @}

    /// \name The file
    /// @{
    /// Whole or not at all.
    WriteError save();
    /// Whether the file has something else than what was read or written last. A file that is gone
    /// has.
    bool isChangedOutside() const;
    /// What is in the file now is known, and to be written over.
    void keepMine();
    /// @}

Q_SIGNALS:
    /// It is changed now, or is not any more.
    void changedChanged();
    /// Something was edited; told once for each turn of the event loop.
    void edited();

private:
    class Watch;

    explicit EditedFile(const QString& file);

    bool read(ReadError& error);
    void start(const QString& journals);

    QString m_file;
    toolkit::DocumentKind m_kind = toolkit::DocumentKind::Unknown;
    host::OpenArchive m_archive;
    std::unique_ptr<RVOpenManager> m_manager;
    QUndoStack m_stack;
    std::unique_ptr<widgets::UndoRecorder> m_recorder;
    std::unique_ptr<widgets::NodeModel> m_tree;
    std::unique_ptr<Journal> m_journal;
    std::unique_ptr<Watch> m_watch;
    QByteArray m_sum;
    quint64 m_revision = 0;
};

} // namespace rvopen::browser
