// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include <rvopen/toolkit/check/Inspection.h>

#include <QTreeWidget>

#include <atomic>
#include <memory>

namespace rvopen::browser {

class EditedFile;
class Workspace;

/// What is to be said of files, found in another thread.
class Findings : public QTreeWidget {
    Q_OBJECT

public:
    /// What stands in a row.
    struct Line {
        QString message;
        QString path;
        QString file;
        toolkit::Severity severity = toolkit::Severity::Warning;
        /// More about it; may be empty.
        QString advice;
    };

    explicit Findings(Workspace& workspace, QWidget* parent = nullptr);
    ~Findings() override;

    /// Of the file as it is in memory, saved or not.
    void check(const EditedFile& file);
    /// Of all of them, as they are on disk.
    void check(const QStringList& files);
    /// What something else has to say, in the place of findings.
    void showLines(const QVector<Line>& lines);
    void stop();
    bool isRunning() const;

    /// Mends what can be mended without guessing, as one edit. How many that are.
    static int mend(EditedFile& file, const toolkit::Folders& folders);

Q_SIGNALS:
    void runningChanged(bool isRunning);
    /// Somebody wants to see that.
    void chosen(const QString& file, const QString& path);

private:
    enum Column { Message, Where, InFile };
    enum Role { FileRole = Qt::UserRole, PathRole };

    struct Job {
        QString file;
        QDomDocument dom; ///< Its own; null for what is on disk.
    };

    void run(const QVector<Job>& jobs);
    void add(const Line& line);

    Workspace& m_workspace;
    std::shared_ptr<std::atomic<bool>> m_stop;
};

} // namespace rvopen::browser
