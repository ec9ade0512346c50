// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "Input.h"

#include "toolkit/catalogue/BlockStore.h"
#include "toolkit/catalogue/RowFilter.h"
#include "toolkit/catalogue/SmallDocument.h"
#include "toolkit/documents/FileLock.h"

#include <rvopen/RVOpenPaths.h>
#include <rvopen/toolkit/documents/Failure.h>
#include <rvopen/toolkit/documents/Load.h>

#include <QDir>
#include <QFileInfo>

#include <algorithm>
#include <optional>
#include <utility>
#include <vector>

namespace rvopen::command {

using namespace toolkit;

namespace {

/// The files and folders that a pattern fits, in the order of their names.
QStringList fitting(const QString& pattern)
{
    QStringList found{pattern.startsWith(QLatin1Char('/')) ? QStringLiteral("/") : QString()};
    const QStringList parts = pattern.split(QLatin1Char('/'), Qt::SkipEmptyParts);
    for (int i = 0; i < int(parts.size()); ++i) {
        const QDir::Filters kinds = i + 1 < int(parts.size()) ? QDir::Dirs : QDir::AllEntries;
        QStringList next;
        for (const QString& folder : found) {
            const QString before = folder.isEmpty() || folder.endsWith(QLatin1Char('/'))
                                       ? folder
                                       : folder + QLatin1Char('/');
            if (!isPattern(parts[i])) {
                if (QFileInfo::exists(before + parts[i]))
                    next << before + parts[i];
                continue;
            }
            const QDir dir(before.isEmpty() ? QStringLiteral(".") : before);
            for (const QString& name :
                 dir.entryList({parts[i]}, kinds | QDir::NoDotAndDotDot | QDir::CaseSensitive))
                next << before + name;
        }
        found = next;
    }
    std::sort(found.begin(), found.end());
    return found;
}

struct Reading {
    std::unique_ptr<Document> document;
    ReadError error;
};

Reading readingOf(const QString& file)
{
    Reading reading;
    reading.document = Document::Read(file, reading.error);
    return reading;
}

QStringList documentsBelow(const QString& folder, Session& session)
{
    QVector<ReadError> problems;
    const QStringList files = DocumentsBelow(folder, problems);
    for (const ReadError& problem : problems)
        session.error(problem);
    return files;
}

} // namespace

bool isPattern(const QString& text)
{
    return text.contains(QLatin1Char('*')) || text.contains(QLatin1Char('?')) ||
           text.contains(QLatin1Char('['));
}

QStringList expandedInputs(const QStringList& arguments, Session& session)
{
    QStringList files;
    for (const QString& argument : arguments) {
        const QFileInfo file(PathToOpen(argument));
        if (argument == QLatin1String("-") || (!file.isDir() && file.exists())) {
            files << argument;
        } else if (file.isDir()) {
            files << documentsBelow(argument, session);
        } else if (isPattern(argument) && !file.isSymLink()) {
            const QStringList found = fitting(argument);
            if (found.isEmpty())
                session.error(argument, QStringLiteral("No file fits this pattern"));
            for (const QString& name : found) {
                if (QFileInfo(name).isDir())
                    files << documentsBelow(name, session);
                else
                    files << name;
            }
        } else {
            files << argument;
        }
    }
    return files;
}

void forEachDocument(const QStringList& arguments, Session& session,
                     const std::function<void(Document&)>& visit,
                     const std::function<bool(const QString&, const ReadError&)>& failed,
                     Access access, int jobs)
{
    const QStringList files = expandedInputs(arguments, session);
    std::optional<FileLock> lock;
    const auto readLocked = [&lock](const QString& file) {
        lock.emplace();
        lock->take(file);
        return readingOf(file);
    };
    const auto use = [&](const Reading& reading) {
        if (reading.document)
            visit(*reading.document);
        else if (!failed || !failed(reading.error.file, reading.error))
            session.error(reading.error);
        lock.reset();
    };
    if (access == Access::Changing)
        forEachRead(files, 1, session, readLocked, use);
    else
        forEachRead(files, jobs, session, readingOf, use);
}

void forEachPart(const QStringList& files, Session& session,
                 const std::function<std::unique_ptr<Document>(const QString&)>& part,
                 const std::function<void(Document&)>& visit, int jobs)
{
    const auto read = [&part](const QString& file) {
        Reading reading;
        reading.document = part(file);
        return reading.document ? std::move(reading) : readingOf(file);
    };
    forEachRead(files, jobs, session, read, [&](const Reading& reading) {
        if (reading.document)
            visit(*reading.document);
        else
            session.error(reading.error);
    });
}

void forEachSelected(const QStringList& arguments, Session& session, const Selection& selection,
                     const std::function<void(Document&)>& visit)
{
    const QStringList files = expandedInputs(arguments, session);
    AttributeFilter filter;
    const bool isInRows = !selection.isEverything() && selection.isAttributeFilter(filter);
    const catalogue::BlockStore store(
        isInRows ? files : QStringList(),
        [&](int at, const QString& file) { session.progress(at, int(files.size()), file); });
    bool isSelected = false;
    int next = 0;
    const auto part = [&](const QString& file) {
        const int at = next++;
        std::vector<catalogue::BlockRow> rows;
        const bool isAll =
            isInRows && catalogue::forEachPassing(store.block(at), filter,
                                                  [&rows](quint32, const catalogue::BlockRow& row) {
                                                      rows.push_back(row);
                                                  });
        isSelected = isSelected || !rows.empty();
        return isAll ? catalogue::documentOfRows(file, store.state(at), store.block(at), rows)
                     : nullptr;
    };
    forEachPart(files, session, part, visit);
    for (int i = 0; !isSelected && i < store.count(); ++i)
        catalogue::noteOthers(store.block(i), selection);
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
