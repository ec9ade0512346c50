// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "FileLock.h"

#include "Interruption.h"

#include <rvopen/RVOpenPaths.h>
#include <rvopen/toolkit/documents/Failure.h>

#include <QFile>
#include <QFileInfo>

namespace rvopen::toolkit {

namespace {

/// Milliseconds. No command needs that long for one document.
constexpr int s_longestWait = 60000;

} // namespace

FileLock::FileLock() = default;

FileLock::~FileLock()
{
    if (m_lock)
        removeAtInterrupt(QByteArray());
}

void FileLock::take(const QString& path)
{
    // All names of the file, links included, have the one lock.
    const QString file = QFileInfo(PathToOpen(path)).canonicalFilePath();
    if (file.isEmpty())
        return;
    m_lock = std::make_unique<QLockFile>(file + QLatin1String(".lock"));
    // Only the end of the run that has it frees it.
    m_lock->setStaleLockTime(0);
    const Uninterrupted locking;
    if (m_lock->tryLock(s_longestWait)) {
        removeAtInterrupt(QFile::encodeName(file + QLatin1String(".lock")));
        return;
    }
    if (m_lock->error() == QLockFile::LockFailedError)
        throw Failure(QStringLiteral("another rvopen is changing \"%1\"").arg(path));
    m_lock.reset();
}

} // namespace rvopen::toolkit
