// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "NewFiles.h"

#include "Interrupts.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>

namespace rvopen::tools {

namespace {

const qint64 s_chunk = 1 << 20;

} // namespace

NewFiles::~NewFiles()
{
    for (const QString& file : m_files)
        QFile::remove(file);
    for (const QString& folder : m_folders)
        QDir().rmdir(folder);
}

bool NewFiles::makeFolder(const QString& path)
{
    const QFileInfo folder(path);
    if (folder.isDir())
        return true;
    if (!makeFolder(folder.absolutePath()) || !QDir().mkdir(folder.absoluteFilePath()))
        return false;
    m_folders.prepend(folder.absoluteFilePath());
    return true;
}

bool NewFiles::copy(const QString& source, const QString& target)
{
    QFile in(source);
    QSaveFile out(target);
    // A link that leads nowhere is a name that is taken, too.
    if (QFileInfo::exists(target) || QFileInfo(target).isSymLink() ||
        !in.open(QIODevice::ReadOnly) || !out.open(QIODevice::WriteOnly))
        return false;
    for (;;) {
        const QByteArray chunk = in.read(s_chunk);
        if (chunk.isEmpty())
            break;
        if (isInterrupted() || out.write(chunk) != chunk.size())
            return false;
    }
    // Errors of writing what is still in the buffer are not among those that commit() knows.
    if (in.error() != QFileDevice::NoError || !out.flush() || !out.commit())
        return false;
    m_files << target;
    return true;
}

void NewFiles::add(const QString& path)
{
    m_files << path;
}

void NewFiles::keep()
{
    m_files.clear();
    m_folders.clear();
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

} // namespace rvopen::tools
