// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include <rvopen/DocumentReader.h>

#include <rvopen/FilePaths.h>
#include <rvopen/QtCompat.h>

#include <QFile>
#include <QTextStream>

#include <memory>

namespace rvopen {

QDomDocument* readDocument(const QString& path, ReadError* error)
{
    if (error)
        error->file = path;
    QFile file(pathToOpen(path));
    // Opening a file without a name would be logged.
    if (path.isEmpty() || !file.open(QIODevice::ReadOnly | QIODevice::Text)) {
        if (error)
            error->message = file.errorString();
        return nullptr;
    }
    QTextStream stream(&file);
    compat::setUtf8(stream);
    return parseDocument(stream.readAll(), Namespaces::Processed, error);
}

QDomDocument* parseDocument(const QString& text, Namespaces namespaces, ReadError* error)
{
    auto document = std::make_unique<QDomDocument>();
    QString message;
    int line = 0;
    int column = 0;
    if (document->setContent(text, namespaces == Namespaces::Processed, &message, &line, &column))
        return document.release();
    if (error) {
        error->message = message;
        error->line = line;
        error->column = column;
    }
    return nullptr;
}

} // namespace rvopen
