// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include <rvopen/toolkit/documents/Document.h>

#include "DocumentKinds.h"
#include "ForeignFormat.h"
#include "toolkit/schema/Vocabulary.h"

#include <rvopen/RVOpenLimits.h>
#include <rvopen/RVOpenPaths.h>
#include <rvopen/RVOpenWriter.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryFile>

#include <cstdio>

namespace rvopen::toolkit {

namespace {

DocumentKind kindOf(const QDomDocument& document)
{
    const QDomElement root = document.documentElement();
    QDomElement child = root.firstChildElement();
    while (!child.isNull() && !Vocabulary::instance().isSection(child.tagName()))
        child = child.nextSiblingElement();
    return documentKind(root.tagName(), root.attribute(QStringLiteral("type")), !child.isNull());
}

} // namespace

DocumentKind documentKind(const QString& root, const QString& type, bool hasSections)
{
    if (root == QLatin1String("snapRoot"))
        return DocumentKind::SnapShots;
    const bool isArchive = root == QLatin1String("presets") || hasSections ||
                           type == QLatin1String("UserArchives") ||
                           type == QLatin1String("Zorvane");
    return isArchive ? DocumentKind::Archive : DocumentKind::Unknown;
}

QString KindName(DocumentKind kind)
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

Document::Document() = default;
Document::~Document() = default;

std::unique_ptr<Document> Document::Read(const QString& argument, ReadError& error)
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
    if (!document->m_dom) {
        const QString format = foreignFormatOf(document->m_path);
        if (!format.isEmpty())
            error.message = QStringLiteral("This is %1, no document").arg(format);
        return nullptr;
    }
    document->m_kind = kindOf(*document->m_dom);
    return document;
}

std::unique_ptr<Document> Document::Of(const QString& file, const QDomDocument& dom)
{
    std::unique_ptr<Document> document(new Document());
    document->m_name = file;
    document->m_path = file;
    document->m_isInMemory = true;
    document->m_dom = std::make_unique<QDomDocument>(dom);
    document->m_kind = kindOf(dom);
    return document;
}

QString Document::Name() const
{
    return m_name;
}

QString Document::Path() const
{
    return m_path;
}

bool Document::IsStandardInput() const
{
    return m_isStandardInput;
}

bool Document::IsStream() const
{
    return m_copy != nullptr;
}

bool Document::IsInMemory() const
{
    return m_isInMemory;
}

QString Document::Folder() const
{
    return m_isStandardInput ? QDir::currentPath() : QFileInfo(PathToOpen(m_path)).absolutePath();
}

qint64 Document::Size() const
{
    return QFileInfo(PathToOpen(m_path)).size();
}

QDomDocument Document::Dom() const
{
    return *m_dom;
}

QDomElement Document::Root() const
{
    return m_dom->documentElement();
}

DocumentKind Document::Kind() const
{
    return m_kind;
}

int Document::Indent() const
{
    return m_kind == DocumentKind::Archive ? ArchiveFileIndent : SnapShotFileIndent;
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

} // namespace rvopen::toolkit
