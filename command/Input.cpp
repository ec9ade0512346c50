// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "Input.h"

#include "toolkit/documents/FileLock.h"
#include "toolkit/schema/Vocabulary.h"

#include <rvopen/RVOpenLimits.h>
#include <rvopen/RVOpenPaths.h>
#include <rvopen/RVOpenWriter.h>
#include <rvopen/toolkit/documents/Failure.h>
#include <rvopen/toolkit/documents/Load.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryFile>

#include <algorithm>
#include <cstdio>
#include <filesystem>

namespace rvopen::command {

using namespace toolkit;

QStringList expandedInputs(const QStringList& arguments, Session& session)
{
    QStringList files;
    for (const QString& argument : arguments) {
        const QFileInfo file(PathToOpen(argument));
        if (argument == QLatin1String("-") || !file.isDir()) {
            files << argument;
        } else {
            QVector<ReadError> problems;
            files << DocumentsBelow(argument, problems);
            for (const ReadError& problem : problems)
                session.error(problem);
        }
    }
    return files;
}

void forEachDocument(const QStringList& arguments, Session& session,
                     const std::function<void(Document&)>& visit,
                     const std::function<bool(const QString&, const ReadError&)>& failed,
                     Access access)
{
    const QStringList files = expandedInputs(arguments, session);
    int at = 0;
    for (const QString& file : files) {
        session.progress(++at, int(files.size()), file);
        FileLock lock;
        if (access == Access::Changing)
            lock.take(file);
        ReadError error;
        const std::unique_ptr<Document> document = Document::Read(file, error);
        if (document) {
            visit(*document);
            continue;
        }
        if (!failed || !failed(error.file, error))
            session.error(error);
    }
    session.clearProgress();
}

std::unique_ptr<Document> readOrFail(const QString& argument, Session& session)
{
    ReadError error;
    std::unique_ptr<Document> document;
    if (QFileInfo(PathToOpen(argument)).isDir()) {
        error.file = argument;
        error.message = QStringLiteral("This is a folder; the command takes one file");
    } else {
        document = Document::Read(argument, error);
    }
    if (!document) {
        session.error(error);
        throw Failure(QString());
    }
    return document;
}

} // namespace rvopen::command
