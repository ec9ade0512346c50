// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include <rvopen/files/AtomicWrite.h>

#include <rvopen/QtCompat.h>
#include <rvopen/RVOpenLimits.h>
#include <rvopen/files/PlatformRename.h>

#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <array>
#include <cstring>

namespace rvopen {

namespace {

using compat::Size;

bool readWhole(QFile& file, QByteArray& bytes)
{
    bytes = file.readAll();
    return file.error() == QFileDevice::NoError && bytes.size() == file.size();
}

/// The part of \p bytes from \p begin to \p end, to the same place in the file.
bool writePart(QFile& file, const QByteArray& bytes, Size begin, Size end)
{
    return file.seek(begin) && writeAll(file, bytes.constData() + begin, end - begin);
}

bool setSize(QFile& file, Size size)
{
    return file.size() == size || file.resize(size);
}

/// What is longer than the old content is written first: if the disk is full, the old content has
/// not been touched yet.
bool overwrite(QFile& file, const QByteArray& bytes, QString& reason)
{
    QByteArray old;
    if (!readWhole(file, old)) {
        reason = reasonOf(file);
        return false;
    }
    const Size common = std::min(old.size(), bytes.size());
    const bool isExtended = writePart(file, bytes, common, bytes.size());
    if (isExtended && writePart(file, bytes, 0, common) && setSize(file, bytes.size()) &&
        flushToDisk(file, reason) && holds(file, bytes))
        return true;
    if (reason.isEmpty())
        reason = reasonOf(file);
    if (isExtended)
        writePart(file, old, 0, old.size());
    setSize(file, old.size());
    QString ignored;
    flushToDisk(file, ignored);
    return false;
}

bool writeOnce(QFile& file, const QByteArray& bytes, QString& reason)
{
    if (writeAll(file, bytes.constData(), bytes.size()))
        return flushToDisk(file, reason);
    reason = reasonOf(file);
    return false;
}

SaveResult writeThere(const QString& path, QIODevice::OpenMode mode, const QByteArray& bytes,
                      bool (*write)(QFile&, const QByteArray&, QString&), QString& reason)
{
    QFile file(path);
    reason.clear();
    if (!file.open(mode | QIODevice::ExistingOnly | QIODevice::Unbuffered))
        reason = file.errorString();
    else if (write(file, bytes, reason))
        return SaveResult::Saved;
    return file.isOpen() ? SaveResult::NotWritten : SaveResult::NotOpened;
}

} // namespace

SaveResult replaceFile(const QString& path, const QByteArray& bytes, QString& reason)
{
    // A name up to a zero is another file's.
    if (path.isEmpty() || path.contains(QChar(0))) {
        reason = QStringLiteral("No file can have this name");
        return SaveResult::NotOpened;
    }
    switch (substituteFile(path, bytes, reason)) {
    case Substitution::Done:
        return SaveResult::Saved;
    case Substitution::InPlace:
        return writeThere(path, QIODevice::ReadWrite, bytes, overwrite, reason);
    case Substitution::NoFile:
        return writeThere(path, QIODevice::WriteOnly, bytes, writeOnce, reason);
    case Substitution::NotOpened:
        return SaveResult::NotOpened;
    case Substitution::Failed:
        break;
    }
    return SaveResult::NotWritten;
}

bool copyFile(const QString& source, const QString& target, QString& reason)
{
    const QFileInfo place(target);
    if (place.exists() || place.isSymLink() || !QFileInfo(source).isFile())
        return false;
    QFile file(source);
    QByteArray bytes;
    const bool isOpen = file.open(QIODevice::ReadOnly | QIODevice::Unbuffered);
    const bool isTooLarge = isOpen && file.size() > GetMaxInputSize();
    if (!isOpen || isTooLarge || !readWhole(file, bytes)) {
        reason = isTooLarge ? tooLarge() : reasonOf(file);
        return false;
    }
    if (replaceFile(target, bytes, reason) != SaveResult::Saved)
        return false;
    QFile::setPermissions(target, file.permissions());
    return true;
}

QString tooLarge()
{
    return QStringLiteral("The input is larger than %1").arg(GetMaxInputSize());
}

bool writeAll(QFileDevice& file, const char* bytes, qint64 count)
{
    while (count > 0) {
        const qint64 written = file.write(bytes, count);
        if (written <= 0)
            return false;
        bytes += written;
        count -= written;
    }
    return true;
}

bool holds(QFile& file, const QByteArray& bytes)
{
    if (file.size() != bytes.size() || !file.seek(0))
        return false;
    std::array<char, 32768> chunk;
    for (Size at = 0; at < bytes.size();) {
        const auto count = static_cast<Size>(file.read(chunk.data(), chunk.size()));
        if (count <= 0 || count > bytes.size() - at ||
            std::memcmp(chunk.data(), bytes.constData() + at, static_cast<size_t>(count)) != 0)
            return false;
        at += count;
    }
    return true;
}

QString reasonOf(const QFile& file)
{
    return file.error() == QFileDevice::NoError ? QStringLiteral("The file could not be read back")
                                                : file.errorString();
}

} // namespace rvopen
