// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "FileState.h"

#include <chrono>

#if defined(__unix__) || defined(__APPLE__)
#include <sys/stat.h>
#else
#include <QDateTime>
#include <QFile>
#include <QFileInfo>
#endif

namespace rvopen::toolkit::catalogue {

#if defined(__unix__) || defined(__APPLE__)
namespace {

qint64 numberOf(const timespec& time)
{
    return qint64(time.tv_sec) * 1000000000 + qint64(time.tv_nsec);
}

} // namespace

bool findState(const QByteArray& name, FileState& state)
{
    struct stat status = {};
    if (::stat(name.constData(), &status) != 0 || !S_ISREG(status.st_mode))
        return false;
    state.size = qint64(status.st_size);
#if defined(__APPLE__)
    state.modified = numberOf(status.st_mtimespec);
    state.changed = numberOf(status.st_ctimespec);
#else
    state.modified = numberOf(status.st_mtim);
    state.changed = numberOf(status.st_ctim);
#endif
    state.inode = quint64(status.st_ino);
    state.device = quint64(status.st_dev);
    return true;
}
#else
bool findState(const QByteArray& name, FileState& state)
{
    const QFileInfo file(QFile::decodeName(name));
    if (!file.isFile())
        return false;
    state = FileState();
    state.size = file.size();
    state.modified = file.lastModified().toMSecsSinceEpoch() * 1000000;
    return true;
}
#endif

qint64 currentTime()
{
    using namespace std::chrono;
    return qint64(duration_cast<nanoseconds>(system_clock::now().time_since_epoch()).count());
}

} // namespace rvopen::toolkit::catalogue
