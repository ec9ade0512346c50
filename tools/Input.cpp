// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "Input.h"

#include "Failure.h"
#include "Vocabulary.h"

#include <rvopen/RVOpenPaths.h>
#include <rvopen/RVOpenWriter.h>

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryFile>

#include <algorithm>
#include <cstdio>

namespace rvopen::tools {

namespace {

bool isDocumentName(const QString& name)
{
    return name.endsWith(QLatin1String(".rvx"), Qt::CaseInsensitive) ||
           name.endsWith(QLatin1String(".xml"), Qt::CaseInsensitive);
}

QStringList documentsBelow(const QString& folder)
{
    QStringList files;
    QDirIterator it(folder, QDir::Files | QDir::Hidden, QDirIterator::Subdirectories);
    while (it.hasNext()) {
        const QString file = it.next();
        if (isDocumentName(file))
            files << file;
    }
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
    if (argument == QLatin1String("-")) {
        document->m_name = QStringLiteral("<stdin>");
        document->m_copy = std::make_unique<QTemporaryFile>();
        QFile input;
        bool isCopied = document->m_copy->open() && input.open(stdin, QIODevice::ReadOnly);
        for (QByteArray chunk; isCopied && !(chunk = input.read(1 << 20)).isEmpty();)
            isCopied = document->m_copy->write(chunk) == chunk.size();
        if (!isCopied || !document->m_copy->flush()) {
            error = ReadError();
            error.file = document->m_name;
            error.message = QStringLiteral("Standard input cannot be read");
            return nullptr;
        }
        document->m_path = document->m_copy->fileName();
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

QStringList expandedInputs(const QStringList& arguments, Session& session)
{
    QStringList files;
    for (const QString& argument : arguments) {
        const QFileInfo file(PathToOpen(argument));
        if (argument == QLatin1String("-") || !file.isDir()) {
            files << argument;
        } else if (!file.isReadable()) {
            session.error(argument, QStringLiteral("The folder cannot be listed"));
        } else {
            files << documentsBelow(PathToOpen(argument));
        }
    }
    return files;
}

void forEachDocument(const QStringList& arguments, Session& session,
                     const std::function<void(Document&)>& visit,
                     const std::function<bool(const QString&, const ReadError&)>& failed)
{
    const QStringList files = expandedInputs(arguments, session);
    int at = 0;
    for (const QString& file : files) {
        session.progress(++at, int(files.size()), file);
        ReadError error;
        const std::unique_ptr<Document> document = Document::read(file, error);
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
