// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include <rvopen/files/PlatformRename.h>

#include <QFileInfo>
#include <QSaveFile>

namespace rvopen {

// QSaveFile flushes to the disk itself, but keeps neither group nor access control list, and cannot
// be read back. Its own way to write in place empties the file first: not taken.
Substitution substituteFile(const QString& path, const QByteArray& bytes, QString& reason)
{
    const QFileInfo target(path);
    if (target.exists() && !target.isFile())
        return Substitution::NoFile;
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly)) {
        reason = file.errorString();
        return target.exists() ? Substitution::InPlace : Substitution::NotOpened;
    }
    const bool isComplete = writeAll(file, bytes.constData(), bytes.size()) && file.flush() &&
                            file.size() == bytes.size();
    if (isComplete && file.commit())
        return Substitution::Done;
    reason = file.errorString();
    return Substitution::Failed;
}

bool flushToDisk(QFile& file, QString& reason)
{
    const bool isFlushed = file.flush();
    if (!isFlushed)
        reason = file.errorString();
    return isFlushed;
}

} // namespace rvopen
