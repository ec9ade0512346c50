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
#include <QHash>

#include <algorithm>
#include <optional>

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
    /// Instead of the document, where nothing in it is selected.
    QString file;
    QDomDocument root;
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

void forEachSelected(const QStringList& arguments, Session& session, const Selection& selection,
                     const std::function<void(Document&)>& visit,
                     const std::function<void(const QString&, const QDomElement&)>& pass)
{
    const QStringList files = expandedInputs(arguments, session);
    AttributeFilter filter;
    const bool isInRows = !selection.isEverything() && selection.isAttributeFilter(filter);
    const catalogue::BlockStore store(
        isInRows ? files : QStringList(),
        [&](int at, const QString& file) { session.progress(at, int(files.size()), file); });
    QHash<QString, int> passed;
    bool isAnySelected = false;
    for (int i = 0; i < store.count(); ++i) {
        const catalogue::Block& block = store.block(i);
        bool isSelected = false;
        // What other documents are, their roots alone do not say.
        if (block.text(block.head().root) == "presets" &&
            catalogue::forEachPassing(
                block, filter,
                [&isSelected](quint32, const catalogue::BlockRow&) { isSelected = true; }) &&
            !isSelected)
            passed.insert(files[i], i);
        isAnySelected = isAnySelected || isSelected;
    }
    const auto readSelected = [&](const QString& file) {
        const int at = passed.value(file, -1);
        Reading reading;
        if (at >= 0)
            reading.root = catalogue::openRoot(file, store.state(at), store.block(at));
        if (reading.root.isNull())
            return readingOf(file);
        reading.file = file;
        return reading;
    };
    forEachRead(files, 1, session, readSelected, [&](const Reading& reading) {
        if (!reading.root.isNull())
            pass(reading.file, reading.root.documentElement());
        else if (reading.document)
            visit(*reading.document);
        else
            session.error(reading.error);
    });
    if (!isAnySelected) {
        for (const int at : passed)
            catalogue::noteOthers(store.block(at), selection);
    }
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
