// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include <rvopen/files/PlatformRename.h>

#include <rvopen/QtCompat.h>

#include <QFile>
#include <QRandomGenerator>

#include <array>
#include <cerrno>
#include <climits>
#include <cstdio>
#include <fcntl.h>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>

#ifdef Q_OS_LINUX
#include <sys/xattr.h>
#endif

namespace rvopen {

namespace {

using compat::Size;

/// The call, again for as long as a signal interrupts it.
template <typename Call>
auto uninterrupted(Call call)
{
    auto result = call();
    while (result < 0 && errno == EINTR)
        result = call();
    return result;
}

QString systemReason(int error = errno)
{
    return QString::fromStdString(std::generic_category().message(error));
}

int openFile(const QByteArray& path, int flags, mode_t mode = 0)
{
    return uninterrupted([&] { return ::open(path.constData(), flags | O_CLOEXEC, mode); });
}

class Descriptor {
public:
    Descriptor(const QByteArray& path, int flags)
        : m_number(openFile(path, flags))
    {
    }
    ~Descriptor()
    {
        if (isOpen())
            ::close(m_number);
    }
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;

    bool isOpen() const
    {
        return m_number >= 0;
    }
    int number() const
    {
        return m_number;
    }

private:
    const int m_number;
};

/// A new file, which goes again unless it takes the place of another.
class NewFile {
public:
    /// On failure error() is the reason.
    NewFile(const QByteArray& folder, mode_t mode)
    {
        const int attempts = 100;
        int number = -1;
        for (int i = 0; number < 0 && i < attempts; ++i) {
            m_path = folder + ".rvopen-" +
                     QByteArray::number(QRandomGenerator::global()->generate64(), 16) + ".tmp";
            number = openFile(m_path, O_RDWR | O_CREAT | O_EXCL, mode);
            m_error = number < 0 ? errno : 0;
            if (m_error != 0 && m_error != EEXIST)
                break;
        }
        if (number < 0)
            m_path.clear();
        else
            m_file.open(number, QIODevice::ReadWrite | QIODevice::Unbuffered,
                        QFileDevice::AutoCloseHandle);
    }
    ~NewFile()
    {
        if (!m_path.isEmpty())
            ::unlink(m_path.constData());
    }
    NewFile(const NewFile&) = delete;
    NewFile& operator=(const NewFile&) = delete;

    int error() const
    {
        return m_error;
    }
    QFile& file()
    {
        return m_file;
    }
    /// False when the file system reports only now that writing failed.
    bool close()
    {
        m_file.close();
        return m_file.error() == QFileDevice::NoError;
    }
    bool takePlaceOf(const QByteArray& path)
    {
        m_error = std::rename(m_path.constData(), path.constData()) == 0 ? 0 : errno;
        if (m_error == 0)
            m_path.clear();
        return m_error == 0;
    }

private:
    QByteArray m_path;
    QFile m_file;
    int m_error = 0;
};

/// With its last separator.
QByteArray folderOf(const QByteArray& path)
{
    const Size slash = path.lastIndexOf('/');
    return slash < 0 ? QByteArray("./") : path.left(slash + 1);
}

/// What a symbolic link leads to, there or not, and any other path itself; empty if it cannot be
/// known, errno says why.
QByteArray followLinks(QByteArray path)
{
    const int mostLinks = 40;
    for (int i = 0; i < mostLinks; ++i) {
        std::array<char, PATH_MAX> link;
        const ssize_t size = ::readlink(path.constData(), link.data(), link.size());
        if (size < 0 && (errno == EINVAL || errno == ENOENT))
            return path;
        if (size <= 0)
            return QByteArray();
        if (static_cast<size_t>(size) == link.size())
            break;
        const QByteArray next(link.data(), static_cast<Size>(size));
        path = next.startsWith('/') ? next : folderOf(path) + next;
    }
    errno = ELOOP;
    return QByteArray();
}

/// Where there is such a list, the mode's bits for the group are not the group's, but the most that
/// the list gives to anybody.
bool takeAccessList(int file, const QByteArray& other)
{
#ifdef Q_OS_LINUX
    const char* const name = "system.posix_acl_access";
    QByteArray list(65536, Qt::Uninitialized);
    const ssize_t size =
        ::getxattr(other.constData(), name, list.data(), static_cast<size_t>(list.size()));
    if (size >= 0)
        return ::fsetxattr(file, name, list.constData(), static_cast<size_t>(size), 0) == 0;
    if (errno != ENODATA)
        return errno == ENOTSUP;
    // The folder may have given the new file one.
    return ::fgetxattr(file, name, nullptr, 0) < 0 || ::fremovexattr(file, name) == 0;
#else
    Q_UNUSED(file)
    Q_UNUSED(other)
    return true;
#endif
}

/// All but the owner must be had; the owner as far as the process may give files away. Asks for no
/// change that is none, since not every file system knows how to answer.
bool takeAttributes(int file, const QByteArray& other)
{
    const auto same = static_cast<gid_t>(-1);
    struct stat status = {};
    struct stat wanted = {};
    if (::fstat(file, &status) != 0 || ::stat(other.constData(), &wanted) != 0)
        return false;
    if (status.st_gid != wanted.st_gid && ::fchown(file, same, wanted.st_gid) != 0)
        return false;
    if (status.st_uid != wanted.st_uid && ::fchown(file, wanted.st_uid, same) != 0 &&
        errno != EPERM)
        return false;
    return takeAccessList(file, other) && (((status.st_mode ^ wanted.st_mode) & 07777) == 0 ||
                                           ::fchmod(file, wanted.st_mode & 07777) == 0);
}

bool isForbidden(int error)
{
    return error == EACCES || error == EPERM || error == EROFS || error == EBUSY;
}

/// That the new name outlives a crash of the machine. The file has its place already, whatever
/// comes of it.
void flushFolder(const QByteArray& path)
{
    const Descriptor folder(path, O_RDONLY | O_DIRECTORY);
    if (folder.isOpen())
        ::fsync(folder.number());
}

} // namespace

Substitution substituteFile(const QString& path, const QByteArray& bytes, QString& reason)
{
    const QByteArray name = QFile::encodeName(path);
    // What the system's encoding cannot express would be another file's name.
    if (QFile::decodeName(name) != path) {
        reason = QStringLiteral("The system cannot express this name");
        return Substitution::NotOpened;
    }
    struct stat status = {};
    const bool exists = ::stat(name.constData(), &status) == 0;
    if (exists && !S_ISREG(status.st_mode))
        return Substitution::NoFile;
    // Where the folder allows writing but the file does not, the file counts.
    const bool isOpen = exists ? Descriptor(name, O_WRONLY).isOpen() : errno == ENOENT;
    const QByteArray place = isOpen ? followLinks(name) : QByteArray();
    if (place.isEmpty()) {
        reason = systemReason();
        return Substitution::NotOpened;
    }

    NewFile fresh(folderOf(place), exists ? 0600 : 0666);
    const Substitution forbidden = exists ? Substitution::InPlace : Substitution::NotOpened;
    reason = systemReason(fresh.error());
    if (fresh.error() == ENOENT || fresh.error() == ENOTDIR)
        return Substitution::NotOpened;
    if (fresh.error() != 0)
        return isForbidden(fresh.error()) ? forbidden : Substitution::Failed;
    const bool isWritten = writeAll(fresh.file(), bytes.constData(), bytes.size());
    if (isWritten && exists && !takeAttributes(fresh.file().handle(), name))
        return Substitution::InPlace;
    reason.clear();
    if (!isWritten || !flushToDisk(fresh.file(), reason) || !holds(fresh.file(), bytes) ||
        !fresh.close()) {
        if (reason.isEmpty())
            reason = reasonOf(fresh.file());
        return Substitution::Failed;
    }
    if (!fresh.takePlaceOf(place)) {
        reason = systemReason(fresh.error());
        return isForbidden(fresh.error()) ? forbidden : Substitution::Failed;
    }
    flushFolder(folderOf(place));
    return Substitution::Done;
}

bool flushToDisk(QFile& file, QString& reason)
{
    // What cannot be flushed, such as a pipe, answers that the call is invalid.
    const bool isFlushed =
        uninterrupted([&] { return ::fsync(file.handle()); }) == 0 || errno == EINVAL;
    if (!isFlushed)
        reason = systemReason();
    return isFlushed;
}

} // namespace rvopen
