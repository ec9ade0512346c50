// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "FileTransaction.h"

#include "FileWriting.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryFile>

#include <filesystem>
#include <string>
#include <system_error>

#if defined(__unix__) || defined(__APPLE__)
#include <sys/stat.h>
#endif

namespace rvopen::toolkit {

namespace {

const qint64 s_chunk = 1 << 20;

/// What the process gives to files that it makes; temporary files are for their owner alone.
QFile::Permissions permissionsOfNewFiles()
{
    QFile::Permissions permissions = QFile::ReadOwner | QFile::WriteOwner | QFile::ReadUser |
                                     QFile::WriteUser | QFile::ReadGroup | QFile::WriteGroup |
                                     QFile::ReadOther | QFile::WriteOther;
#if defined(__unix__) || defined(__APPLE__)
    const mode_t mask = umask(0);
    umask(mask);
    permissions.setFlag(QFile::ReadGroup, !(mask & S_IRGRP));
    permissions.setFlag(QFile::WriteGroup, !(mask & S_IWGRP));
    permissions.setFlag(QFile::ReadOther, !(mask & S_IROTH));
    permissions.setFlag(QFile::WriteOther, !(mask & S_IWOTH));
#endif
    return permissions;
}

} // namespace

FileTransaction::~FileTransaction()
{
    for (const Replaced& one : m_replaced)
        problemOfWriting(one.bytes, one.file);
    for (const QString& file : m_files)
        QFile::remove(file);
    for (const QString& folder : m_folders)
        QDir().rmdir(folder);
}

bool FileTransaction::makeFolder(const QString& path)
{
    const QFileInfo folder(path);
    if (folder.isDir())
        return true;
    if (!makeFolder(folder.absolutePath()))
        return false;
    std::error_code failure;
    const std::string name = folder.absoluteFilePath().toStdString();
    // Neither, where somebody else has made it meanwhile.
    if (std::filesystem::create_directory(std::filesystem::u8path(name), failure))
        m_folders.prepend(folder.absoluteFilePath());
    if (failure)
        m_problem = QLatin1String("the folder cannot be made: ") +
                    QString::fromStdString(failure.message());
    return !failure;
}

bool FileTransaction::create(const QByteArray& bytes, const QString& target)
{
    QTemporaryFile name(QFileInfo(target).absolutePath() + QLatin1String("/.rvopen-XXXXXX.tmp"));
    // A link that leads nowhere is a name that is taken, too.
    const auto isTaken = [&] { return QFileInfo::exists(target) || QFileInfo(target).isSymLink(); };
    const QString thereAlready = QStringLiteral("it is there already");
    if (!m_holding)
        m_holding.emplace();
    m_problem = isTaken()     ? thereAlready
                : name.open() ? problemOfWriting(bytes, name.fileName())
                              : QStringLiteral("it could not be written: ") + name.errorString();
    if (m_problem.isEmpty() && isInterrupted())
        m_problem = QStringLiteral("interrupted");
    if (!m_problem.isEmpty())
        return false;
    name.close();
    // Renaming takes no name that is taken.
    if (!name.rename(target)) {
        m_problem = isTaken() ? thereAlready : name.errorString();
        return false;
    }
    name.setAutoRemove(false);
    QFile::setPermissions(target, permissionsOfNewFiles());
    m_files << target;
    return true;
}

bool FileTransaction::copy(const QString& source, const QString& target)
{
    QByteArray bytes;
    m_problem = QStringLiteral("it could not be read");
    return readWhole(source, bytes) && create(bytes, target);
}

bool FileTransaction::replace(const QByteArray& bytes, const QString& target)
{
    if (!m_holding)
        m_holding.emplace();
    Replaced before;
    before.file = target;
    m_problem = readWhole(target, before.bytes) ? problemOfWriting(bytes, target)
                                                : QStringLiteral("it could not be read");
    if (!m_problem.isEmpty())
        return false;
    m_replaced.append(before);
    return true;
}

void FileTransaction::keep()
{
    m_replaced.clear();
    m_files.clear();
    m_folders.clear();
    m_holding.reset();
}

QString FileTransaction::problem() const
{
    return m_problem;
}

bool readWhole(const QString& path, QByteArray& bytes)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly | QIODevice::Unbuffered))
        return false;
    bytes = file.readAll();
    return file.error() == QFileDevice::NoError && bytes.size() == file.size();
}

bool haveSameBytes(const QString& a, const QString& b)
{
    QFile first(a);
    QFile second(b);
    if (QFileInfo(a).canonicalFilePath() == QFileInfo(b).canonicalFilePath())
        return true;
    if (first.size() != second.size() || !first.open(QIODevice::ReadOnly) ||
        !second.open(QIODevice::ReadOnly))
        return false;
    for (;;) {
        const QByteArray chunk = first.read(s_chunk);
        if (chunk != second.read(s_chunk))
            return false;
        if (chunk.isEmpty())
            return first.error() == QFileDevice::NoError && second.error() == QFileDevice::NoError;
    }
}

} // namespace rvopen::toolkit
