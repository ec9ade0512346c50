// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QByteArray>
#include <QString>
#include <QtGlobal>

namespace rvopen::toolkit::catalogue {

/// By what is told whether a file is still what it was. Times are nanoseconds since 1970.
struct FileState {
    qint64 size = 0;
    qint64 modified = 0;
    /// Of its content, name or rights. What sets back the time of the content leaves this.
    qint64 changed = 0;
    quint64 inode = 0;
    quint64 device = 0;

    bool operator==(const FileState& other) const
    {
        return size == other.size && modified == other.modified && changed == other.changed &&
               inode == other.inode && device == other.device;
    }
    bool operator!=(const FileState& other) const
    {
        return !(*this == other);
    }

    /// Whether the file, read at that time, may have changed since and be in the same state: clocks
    /// of file systems go in steps, of up to two seconds.
    bool isRecent(qint64 readAt) const
    {
        const qint64 longestStep = 2000000000;
        return modified > readAt - longestStep || changed > readAt - longestStep;
    }
};

/// False where there is no regular file. \p name is that of the system, in its bytes.
bool findState(const QByteArray& name, FileState& state);

/// Nanoseconds since 1970.
qint64 currentTime();

} // namespace rvopen::toolkit::catalogue
