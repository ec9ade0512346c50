// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include <rvopen/FileReplacement.h>

#include <QFileInfo>
#include <QSaveFile>

namespace rvopen {

SaveResult replaceFile(const QString& path, const QByteArray& bytes)
{
    if (path.isEmpty() || path.contains(QChar(0)) || QFileInfo(path).isDir())
        return SaveResult::NotOpened;
    QSaveFile file(path);
    file.setDirectWriteFallback(true);
    if (!file.open(QIODevice::WriteOnly))
        return SaveResult::NotOpened;
    return file.write(bytes) == bytes.size() && file.commit() ? SaveResult::Saved
                                                              : SaveResult::NotWritten;
}

} // namespace rvopen
