// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "Input.h"

#include "Failure.h"
#include "FileLock.h"
#include "Vocabulary.h"

#include <rvopen/RVOpenLimits.h>
#include <rvopen/RVOpenPaths.h>
#include <rvopen/RVOpenWriter.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryFile>

#include <algorithm>
#include <cstdio>
#include <deque>
#include <filesystem>
#include <future>

namespace rvopen::tools {

namespace {

/// Names of files are bytes, and Qt shows those that are not UTF-8 with other characters: what it
/// would open then is another file.
QString nameOf(const std::filesystem::path& path)
{
    return QString::fromStdString(path.u8string());
}

bool isUtf8(const std::filesystem::path& path)
{
    const std::string bytes = path.u8string();
    return nameOf(path).toUtf8() == QByteArray::fromStdString(bytes);
}

void findDocuments(const std::filesystem::path& folder, QStringList& files, Session& session)
{
    std::error_code failure;
    std::filesystem::directory_iterator it(folder, failure);
    const auto end = std::filesystem::directory_iterator();
    for (; !failure && it != end; it.increment(failure)) {
        const std::filesystem::path& path = it->path();
        std::error_code unknown;
        const auto type = it->symlink_status(unknown).type();
        const QString name = nameOf(path);
        if (type == std::filesystem::file_type::directory) {
            findDocuments(path, files, session);
        } else if (isDocumentName(name)) {
            if (unknown)
                session.error(name, QString::fromStdString(unknown.message()));
            else if (!isUtf8(path))
                session.error(name, QStringLiteral("Its name is not UTF-8; rename the file"));
            else if (it->is_regular_file(unknown))
                files << name;
            else if (type == std::filesystem::file_type::symlink)
                session.error(name, QStringLiteral("The link leads to no file"));
        }
    }
    if (failure)
        session.error(nameOf(folder), QString::fromStdString(failure.message()));
}

bool isPattern(const QString& text)
{
    return text.contains(QLatin1Char('*')) || text.contains(QLatin1Char('?')) ||
           text.contains(QLatin1Char('['));
}

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
    reading.document = Document::read(file, reading.error);
    return reading;
}

QStringList documentsBelow(const QString& folder, Session& session)
{
    QStringList files;
    findDocuments(std::filesystem::u8path(folder.toStdString()), files, session);
    std::sort(files.begin(), files.end());
    return files;
}

} // namespace

QString kindName(DocumentKind kind)
{
    switch (kind) {
    case DocumentKind::SnapShots:
        return QStringLiteral("snapshots");
    case DocumentKind::Archive:
        return QStringLiteral("archive");
    case DocumentKind::Unknown:
        break;
    }
    return QStringLiteral("unknown");
}

DocumentKind kindOf(const QDomDocument& document)
{
    const QDomElement root = document.documentElement();
    if (root.tagName() == QLatin1String("snapRoot"))
        return DocumentKind::SnapShots;
    const QString type = root.attribute(QStringLiteral("type"));
    if (root.tagName() == QLatin1String("presets") || type == QLatin1String("UserArchives") ||
        type == QLatin1String("Zorvane"))
        return DocumentKind::Archive;
    for (QDomElement child = root.firstChildElement(); !child.isNull();
         child = child.nextSiblingElement()) {
        if (Vocabulary::instance().isSection(child.tagName()))
            return DocumentKind::Archive;
    }
    return DocumentKind::Unknown;
}

int indentOf(DocumentKind kind)
{
    return kind == DocumentKind::Archive ? ArchiveFileIndent : SnapShotFileIndent;
}

Document::Document() = default;
Document::~Document() = default;

std::unique_ptr<Document> Document::read(const QString& argument, ReadError& error)
{
    std::unique_ptr<Document> document(new Document());
    document->m_name = argument;
    document->m_path = argument;
    document->m_isStandardInput = argument == QLatin1String("-");
    const QFileInfo file(PathToOpen(argument));
    if (document->m_isStandardInput || (file.exists() && !file.isFile() && !file.isDir())) {
        QFile input(PathToOpen(argument));
        const bool isOpen = document->m_isStandardInput ? input.open(stdin, QIODevice::ReadOnly)
                                                        : input.open(QIODevice::ReadOnly);
        if (document->m_isStandardInput)
            document->m_name = QStringLiteral("<stdin>");
        if (!isOpen || !document->copyOf(input)) {
            error = ReadError();
            error.file = document->m_name;
            error.message = document->m_isStandardInput
                                ? QStringLiteral("Standard input cannot be read")
                                : input.errorString();
            return nullptr;
        }
    }
    document->m_dom.reset(ReadXmlDocument(document->m_path, &error));
    error.file = document->m_name;
    if (!document->m_dom)
        return nullptr;
    document->m_kind = kindOf(*document->m_dom);
    return document;
}

QString Document::name() const
{
    return m_name;
}

QString Document::path() const
{
    return m_path;
}

bool Document::isStandardInput() const
{
    return m_isStandardInput;
}

bool Document::isStream() const
{
    return m_copy != nullptr;
}

QString Document::folder() const
{
    return isStandardInput() ? QDir::currentPath() : QFileInfo(PathToOpen(m_path)).absolutePath();
}

qint64 Document::size() const
{
    return QFileInfo(PathToOpen(m_path)).size();
}

QDomDocument Document::dom() const
{
    return *m_dom;
}

QDomElement Document::root() const
{
    return m_dom->documentElement();
}

DocumentKind Document::kind() const
{
    return m_kind;
}

bool Document::copyOf(QFile& input)
{
    m_copy = std::make_unique<QTemporaryFile>();
    bool isCopied = m_copy->open();
    qint64 size = 0;
    for (QByteArray chunk; isCopied && !(chunk = input.read(1 << 20)).isEmpty();) {
        isCopied = m_copy->write(chunk) == chunk.size();
        size += chunk.size();
        // What is too large is told by whoever reads it.
        if (size > GetMaxInputSize())
            break;
    }
    m_path = m_copy->fileName();
    return isCopied && input.error() == QFileDevice::NoError && m_copy->flush();
}

bool isDocumentName(const QString& name)
{
    return name.endsWith(QLatin1String(".rvx"), Qt::CaseInsensitive) ||
           name.endsWith(QLatin1String(".xml"), Qt::CaseInsensitive);
}

QStringList expandedInputs(const QStringList& arguments, Session& session)
{
    QStringList files;
    for (const QString& argument : arguments) {
        const QFileInfo file(PathToOpen(argument));
        if (argument == QLatin1String("-") || (!file.isDir() && file.exists())) {
            files << argument;
        } else if (file.isDir()) {
            files << documentsBelow(PathToOpen(argument), session);
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
    const bool isReadAhead = access == Access::Reading && jobs > 1;
    std::deque<std::future<Reading>> ahead;
    int started = 0;
    for (int at = 0; at < int(files.size()); ++at) {
        const QString& file = files[at];
        session.progress(at + 1, int(files.size()), file);
        FileLock lock;
        if (access == Access::Changing)
            lock.take(file);
        for (; isReadAhead && started < int(files.size()) && started < at + jobs; ++started)
            ahead.push_back(std::async(std::launch::async, readingOf, files[started]));
        Reading reading;
        if (isReadAhead) {
            reading = ahead.front().get();
            ahead.pop_front();
        } else {
            reading = readingOf(file);
        }
        if (reading.document) {
            visit(*reading.document);
            continue;
        }
        if (!failed || !failed(reading.error.file, reading.error))
            session.error(reading.error);
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
        document = Document::read(argument, error);
    }
    if (!document) {
        session.error(error);
        throw Failure(QString());
    }
    return document;
}

bool isSameFile(const QString& a, const QString& b)
{
    const QString first = QFileInfo(PathToOpen(a)).canonicalFilePath();
    return !first.isEmpty() && first == QFileInfo(PathToOpen(b)).canonicalFilePath();
}

} // namespace rvopen::tools
