// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include <rvopen/FileReplacement.h>

#include <rvopen/QtCompat.h>

#include <QFile>
#include <QRandomGenerator>

#include <algorithm>
#include <array>
#include <cerrno>
#include <climits>
#include <cstdio>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

namespace rvopen {

namespace {

/// The call, again for as long as a signal interrupts it.
template <typename Call>
auto uninterrupted(Call call)
{
    auto result = call();
    while (result < 0 && errno == EINTR)
        result = call();
    return result;
}

class Descriptor {
public:
    explicit Descriptor(int number)
        : m_number(number)
    {
    }
    ~Descriptor()
    {
        close();
    }
    Descriptor(Descriptor&& other) noexcept
        : m_number(std::exchange(other.m_number, -1))
    {
    }
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;

    int number() const
    {
        return m_number;
    }
    bool isOpen() const
    {
        return m_number >= 0;
    }
    /// False when the file system reports only now that writing failed.
    bool close()
    {
        const bool isClosed = !isOpen() || ::close(m_number) == 0 || errno == EINTR;
        m_number = -1;
        return isClosed;
    }

private:
    int m_number;
};

Descriptor openFile(const QByteArray& path, int flags, mode_t mode = 0)
{
    return Descriptor(uninterrupted(
        [&] { return ::open(path.constData(), flags | O_CLOEXEC | O_NOCTTY, mode); }));
}

using compat::Size;

bool writeAll(int file, const QByteArray& bytes)
{
    for (Size done = 0; done < bytes.size();) {
        const ssize_t count = uninterrupted([&] {
            return ::write(file, bytes.constData() + done,
                           static_cast<size_t>(bytes.size() - done));
        });
        if (count <= 0)
            return false;
        done += static_cast<Size>(count);
    }
    return true;
}

/// The part of \p bytes from \p begin to \p end, to the same place in the file.
bool writePart(int file, const QByteArray& bytes, Size begin, Size end)
{
    while (begin < end) {
        const ssize_t count = uninterrupted([&] {
            return ::pwrite(file, bytes.constData() + begin, static_cast<size_t>(end - begin),
                            begin);
        });
        if (count <= 0)
            return false;
        begin += static_cast<Size>(count);
    }
    return true;
}

bool readAll(int file, QByteArray& bytes)
{
    std::array<char, 65536> chunk;
    for (;;) {
        const ssize_t count =
            uninterrupted([&] { return ::read(file, chunk.data(), chunk.size()); });
        if (count < 0)
            return false;
        if (count == 0)
            return true;
        bytes.append(chunk.data(), static_cast<Size>(count));
    }
}

bool cut(int file, Size size)
{
    return uninterrupted([&] { return ::ftruncate(file, size); }) == 0;
}

bool flush(int file)
{
    // What cannot be flushed, such as a pipe, answers that the call is invalid.
    return uninterrupted([&] { return ::fsync(file); }) == 0 || errno == EINVAL;
}

bool hasSize(int file, Size size)
{
    struct stat status = {};
    return ::fstat(file, &status) == 0 && status.st_size == size;
}

/// With its last separator.
QByteArray folderOf(const QByteArray& path)
{
    const Size slash = path.lastIndexOf('/');
    return slash < 0 ? QByteArray("./") : path.left(slash + 1);
}

struct Target {
    QByteArray path;
    bool exists = false;
    struct stat status = {};
};

/// Takes the place of a symbolic link what it leads to, there or not. False when nothing can be
/// known about the target.
bool followLinks(Target& target)
{
    const int mostLinks = 40;
    for (int i = 0; i < mostLinks; ++i) {
        if (::lstat(target.path.constData(), &target.status) != 0)
            return errno == ENOENT;
        target.exists = !S_ISLNK(target.status.st_mode);
        if (target.exists)
            return true;
        std::array<char, PATH_MAX> link;
        const ssize_t size = ::readlink(target.path.constData(), link.data(), link.size());
        if (size <= 0 || static_cast<size_t>(size) == link.size())
            return false;
        const QByteArray next(link.data(), static_cast<Size>(size));
        target.path = next.startsWith('/') ? next : folderOf(target.path) + next;
    }
    return false;
}

/// Mode, and owner and group as far as the process may give files away. Asks for no change that is
/// none, since not every file system knows how to answer.
bool takeAttributes(int file, const struct stat& wanted)
{
    struct stat status = {};
    if (::fstat(file, &status) != 0)
        return false;
    if ((status.st_uid != wanted.st_uid || status.st_gid != wanted.st_gid) &&
        ::fchown(file, wanted.st_uid, wanted.st_gid) != 0 &&
        ::fchown(file, static_cast<uid_t>(-1), wanted.st_gid) != 0 && errno != EPERM)
        return false;
    return ((status.st_mode ^ wanted.st_mode) & 07777) == 0 ||
           ::fchmod(file, wanted.st_mode & 07777) == 0;
}

/// A new file in the folder, whose name goes to \p path. On failure errno says why.
Descriptor createBeside(const Target& target, QByteArray& path)
{
    const mode_t mode = target.exists ? 0600 : 0666;
    const int attempts = 100;
    for (int i = 0; i < attempts; ++i) {
        path = folderOf(target.path) + ".rvopen-" +
               QByteArray::number(QRandomGenerator::global()->generate64(), 16) + ".tmp";
        Descriptor file = openFile(path, O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW, mode);
        if (file.isOpen() || errno != EEXIST)
            return file;
    }
    return Descriptor(-1);
}

enum class Replacement { Done, Failed, Forbidden, NoFolder };

bool isForbidden(int error)
{
    return error == EACCES || error == EPERM || error == EROFS || error == EBUSY;
}

Replacement replace(const Target& target, const QByteArray& bytes)
{
    QByteArray path;
    Descriptor file = createBeside(target, path);
    if (!file.isOpen()) {
        if (isForbidden(errno))
            return Replacement::Forbidden;
        return errno == ENOENT || errno == ENOTDIR ? Replacement::NoFolder : Replacement::Failed;
    }
    const bool isComplete = writeAll(file.number(), bytes) &&
                            (!target.exists || takeAttributes(file.number(), target.status)) &&
                            flush(file.number()) && hasSize(file.number(), bytes.size());
    if (file.close() && isComplete) {
        if (std::rename(path.constData(), target.path.constData()) == 0)
            return Replacement::Done;
    } else {
        errno = EIO;
    }
    const Replacement failure = isForbidden(errno) ? Replacement::Forbidden : Replacement::Failed;
    ::unlink(path.constData());
    return failure;
}

/// That the new name outlives a crash of the machine. The file is replaced already, whatever comes
/// of it.
void flushFolder(const QByteArray& path)
{
    const Descriptor folder = openFile(folderOf(path), O_RDONLY | O_DIRECTORY);
    if (folder.isOpen())
        flush(folder.number());
}

/// What is longer than the old content is written first: if the disk is full, the old content has
/// not been touched yet.
bool overwrite(int file, const QByteArray& bytes)
{
    QByteArray old;
    if (!readAll(file, old))
        return false;
    const Size common = std::min(old.size(), bytes.size());
    const bool isExtended = writePart(file, bytes, common, bytes.size());
    if (isExtended && writePart(file, bytes, 0, common) && cut(file, bytes.size()) && flush(file))
        return true;
    if (isExtended)
        writePart(file, old, 0, old.size());
    cut(file, old.size());
    flush(file);
    return false;
}

SaveResult writeInPlace(const Target& target, const QByteArray& bytes)
{
    const bool isRegular = S_ISREG(target.status.st_mode);
    const Descriptor file = openFile(target.path, isRegular ? O_RDWR : O_WRONLY);
    if (!file.isOpen())
        return SaveResult::NotOpened;
    const bool isWritten = isRegular ? overwrite(file.number(), bytes)
                                     : writeAll(file.number(), bytes) && flush(file.number());
    return isWritten ? SaveResult::Saved : SaveResult::NotWritten;
}

} // namespace

SaveResult replaceFile(const QString& path, const QByteArray& bytes)
{
    Target target;
    target.path = QFile::encodeName(path);
    // A name that the system's encoding cannot express, or only up to a zero, is another file's.
    if (path.isEmpty() || path.contains(QChar(0)) || QFile::decodeName(target.path) != path)
        return SaveResult::NotOpened;
    if (!followLinks(target))
        return SaveResult::NotOpened;
    if (target.exists) {
        if (S_ISDIR(target.status.st_mode) ||
            ::faccessat(AT_FDCWD, target.path.constData(), W_OK, AT_EACCESS) != 0)
            return SaveResult::NotOpened;
        if (!S_ISREG(target.status.st_mode))
            return writeInPlace(target, bytes);
    }
    switch (replace(target, bytes)) {
    case Replacement::Done:
        flushFolder(target.path);
        return SaveResult::Saved;
    case Replacement::Forbidden:
        return target.exists ? writeInPlace(target, bytes) : SaveResult::NotOpened;
    case Replacement::NoFolder:
        return SaveResult::NotOpened;
    case Replacement::Failed:
        break;
    }
    return SaveResult::NotWritten;
}

} // namespace rvopen
