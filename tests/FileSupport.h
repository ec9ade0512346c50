// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include "TestSupport.h"

#include <QByteArray>
#include <QDir>
#include <QFile>
#include <QString>
#include <QStringList>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <csignal>
#include <grp.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>
#include <vector>

#ifdef Q_OS_LINUX
#include <sys/prctl.h>
#endif

/// What tests of saving, copying and deleting files need from the system.
namespace rvopen::test {

/// The user and group without any rights, whom root becomes.
inline constexpr uid_t Nobody = 65534;

inline bool isRoot()
{
    return ::geteuid() == 0;
}

/// For as long as it lives, the process is bound by the modes of files and folders, from which root
/// is free.
class Unprivileged {
public:
    Unprivileged()
    {
        if (!m_wasRoot)
            return;
        m_groups.resize(static_cast<size_t>(::getgroups(0, nullptr)));
        EXPECT_GE(::getgroups(static_cast<int>(m_groups.size()), m_groups.data()), 0);
        EXPECT_EQ(::setgroups(0, nullptr), 0);
        EXPECT_EQ(::setresgid(Nobody, Nobody, m_group), 0);
        EXPECT_EQ(::setresuid(Nobody, Nobody, 0), 0);
    }
    ~Unprivileged()
    {
        if (!m_wasRoot)
            return;
        EXPECT_EQ(::setresuid(0, 0, 0), 0);
        EXPECT_EQ(::setresgid(m_group, m_group, m_group), 0);
        EXPECT_EQ(::setgroups(m_groups.size(), m_groups.data()), 0);
#ifdef Q_OS_LINUX
        // The change made the process undumpable, and the leak sanitizer has to read it.
        EXPECT_EQ(::prctl(PR_SET_DUMPABLE, 1), 0);
#endif
    }
    Unprivileged(const Unprivileged&) = delete;
    Unprivileged& operator=(const Unprivileged&) = delete;

private:
    const bool m_wasRoot = isRoot();
    const gid_t m_group = ::getegid();
    std::vector<gid_t> m_groups;
};

/// For as long as it lives, no file grows beyond \p size bytes, as if the disk were full.
class FileSizeLimit {
public:
    explicit FileSizeLimit(rlim_t size)
        : m_handler(std::signal(SIGXFSZ, SIG_IGN))
    {
        EXPECT_EQ(::getrlimit(RLIMIT_FSIZE, &m_before), 0);
        rlimit limit = m_before;
        limit.rlim_cur = size;
        EXPECT_EQ(::setrlimit(RLIMIT_FSIZE, &limit), 0);
    }
    ~FileSizeLimit()
    {
        EXPECT_EQ(::setrlimit(RLIMIT_FSIZE, &m_before), 0);
        std::signal(SIGXFSZ, m_handler);
    }
    FileSizeLimit(const FileSizeLimit&) = delete;
    FileSizeLimit& operator=(const FileSizeLimit&) = delete;

private:
    void (*m_handler)(int);
    rlimit m_before = {};
};

/// What the system knows about the file itself; a symbolic link is not followed.
inline struct stat statusOf(const QString& path)
{
    struct stat status = {};
    EXPECT_EQ(::lstat(QFile::encodeName(path).constData(), &status), 0) << path.toStdString();
    return status;
}

inline int modeOf(const QString& path)
{
    return static_cast<int>(statusOf(path).st_mode & 07777);
}

inline void setMode(const QString& path, int mode)
{
    ASSERT_EQ(::chmod(QFile::encodeName(path).constData(), static_cast<mode_t>(mode)), 0);
}

inline void setOwner(const QString& path, uid_t owner, gid_t group)
{
    ASSERT_EQ(::lchown(QFile::encodeName(path).constData(), owner, group), 0);
}

inline void link(const QString& target, const QString& path)
{
    ASSERT_EQ(::symlink(QFile::encodeName(target).constData(), QFile::encodeName(path).constData()),
              0);
}

/// Hidden ones too, sorted.
inline QStringList entriesOf(const QString& folder)
{
    return QDir(folder).entryList(
        QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot, QDir::Name);
}

/// A temporary folder that belongs to the user that Unprivileged becomes. Changes of its mode do
/// not keep it from being deleted.
class OpenFolder {
public:
    OpenFolder()
    {
        if (isRoot())
            setOwner(path(), Nobody, Nobody);
    }
    ~OpenFolder()
    {
        setMode(path(), 0700);
    }
    OpenFolder(const OpenFolder&) = delete;
    OpenFolder& operator=(const OpenFolder&) = delete;

    QString path() const
    {
        return m_folder.path();
    }
    QString path(const QString& name) const
    {
        return m_folder.filePath(name);
    }
    /// Writes a file that belongs to that user too.
    QString write(const QString& name, const QByteArray& bytes) const
    {
        writeFile(path(name), bytes);
        if (isRoot())
            setOwner(path(name), Nobody, Nobody);
        return path(name);
    }
    /// Nothing can be made, renamed or deleted in it, as far as its mode binds the process.
    void close() const
    {
        setMode(path(), 0555);
    }

private:
    QTemporaryDir m_folder;
};

} // namespace rvopen::test
