// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include <rvopen/files/PlatformRename.h>

#include <QFileInfo>
#include <QSaveFile>

namespace rvopen {

// QSaveFile flushes to the disk itself, but keeps neither group nor access control list, and cannot
// be read back. Its own way to write in place empties the file first: not taken.
Substitution substituteFile(const QString& path, const QByteArray& bytes)
{
    const QFileInfo target(path);
    if (target.exists() && !target.isFile())
        return Substitution::NoFile;
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly))
        return target.exists() ? Substitution::InPlace : Substitution::NotOpened;
    const bool isComplete =
        file.write(bytes) == bytes.size() && file.flush() && file.size() == bytes.size();
    return isComplete && file.commit() ? Substitution::Done : Substitution::Failed;
}

bool flushToDisk(QFile& file)
{
    return file.flush();
}

} // namespace rvopen
