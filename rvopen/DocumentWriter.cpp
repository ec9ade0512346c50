// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include <rvopen/DocumentWriter.h>

#include <rvopen/FilePaths.h>

#include <QSaveFile>

namespace rvopen {

QString documentText(const QDomDocument& document, int indent)
{
    return document.toString(indent);
}

SaveResult saveDocument(const QDomDocument& document, const QString& path)
{
    QSaveFile file(pathToOpen(path));
    file.setDirectWriteFallback(true);
    if (!file.open(QIODevice::WriteOnly))
        return SaveResult::NotOpened;
    const QByteArray bytes = documentText(document, ArchiveIndent).toUtf8();
    return file.write(bytes) == bytes.size() && file.commit() ? SaveResult::Saved
                                                              : SaveResult::NotWritten;
}

} // namespace rvopen
