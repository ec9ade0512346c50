// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include "Becoming.h"

#include <QDateTime>
#include <QFile>
#include <QLockFile>
#include <QString>
#include <QVector>

#include <memory>

namespace rvopen::browser {

/// What was edited in one file since it was saved, on disk: who comes back after a crash can have
/// it again. It begins with the first edit, holds the content of before and a line for each change,
/// and goes when the file is saved or closed.
class Journal : public RVOpenObserver {
public:
    /// One that a program which ended otherwise than by itself has left.
    struct Left {
        QString folder;  ///< Of the journal.
        QString file;    ///< That was edited.
        QDateTime time;  ///< Of the last edit.
        int changes = 0; ///< How many there are.
    };

    /// Of the document of \p file, which was read from these bytes. Below \p folder.
    Journal(const QString& file, const QDomDocument& document, const QByteArray& content,
            const QString& folder = Journal::folder());
    ~Journal() override;

    void Changed(const RVOpenChange& change) override;

    /// From here on it is about these bytes, which the file has now.
    void restart(const QByteArray& content);
    /// Why edits could not be kept; empty as long as they are.
    QString problem() const;

    /// \name What was left
    /// @{
    static QString folder();
    /// The newest first. What a program that still runs has is left out.
    static QVector<Left> leftOver(const QString& folder = Journal::folder());
    /// The content of before.
    static QByteArray base(const Left& left);
    /// Makes the changes in a document that is as the content of before. How many it made; fewer
    /// than there are where the journal ends in the middle or the document is another.
    static int replay(const Left& left, const QDomDocument& document, const TakeBack& takeBack);
    static void discard(const Left& left);
    /// @}

private:
    void end();
    bool begin();
    void write(const QByteArray& line);

    QString m_file;
    QDomDocument m_document;
    QString m_folder;
    QString m_own; ///< Below it; empty before the first edit.
    QByteArray m_content;
    std::unique_ptr<QLockFile> m_lock;
    QFile m_log;
    QString m_problem;
};

} // namespace rvopen::browser
