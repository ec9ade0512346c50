// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include <rvopen/toolkit/documents/Load.h>

#include "ForeignFormat.h"

#include <rvopen/RVOpenPaths.h>

#include <QFileInfo>

#include <algorithm>
#include <filesystem>

namespace rvopen::toolkit {

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

ReadError problemOf(const QString& file, const QString& message)
{
    ReadError error;
    error.file = file;
    error.message = message;
    return error;
}

void findDocuments(const std::filesystem::path& folder, QStringList& files,
                   QVector<ReadError>& problems)
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
            findDocuments(path, files, problems);
        } else if (isDocumentName(name)) {
            if (unknown)
                problems.append(problemOf(name, QString::fromStdString(unknown.message())));
            else if (!isUtf8(path))
                problems.append(
                    problemOf(name, QStringLiteral("Its name is not UTF-8; rename the file")));
            else if (it->is_regular_file(unknown))
                files << name;
            else if (type == std::filesystem::file_type::symlink)
                problems.append(problemOf(name, QStringLiteral("The link leads to no file")));
        }
    }
    if (failure)
        problems.append(problemOf(nameOf(folder), QString::fromStdString(failure.message())));
}

QString wantedName(DocumentKind kind)
{
    return kind == DocumentKind::Archive ? QStringLiteral("an archive of presets")
                                         : QStringLiteral("a document of snapshots");
}

/// Why a document that could be read is refused; empty when it is not.
QString refusalOf(DocumentKind kind, DocumentKind wanted, const QString& root)
{
    if (kind == DocumentKind::Unknown)
        return QStringLiteral("This is neither a document of snapshots nor an archive of presets: "
                              "its root is \"%1\"")
            .arg(root);
    if (wanted == DocumentKind::Unknown || kind == wanted)
        return QString();
    return QStringLiteral("This is %1, and %2 was asked for")
        .arg(wantedName(kind), wantedName(wanted));
}

} // namespace

Load::operator bool() const
{
    return document != nullptr;
}

Load LoadDocument(const QString& path, DocumentKind wanted)
{
    Load load;
    if (QFileInfo(PathToOpen(path)).isDir()) {
        load.error = problemOf(path, QStringLiteral("This is a folder, no document"));
        return load;
    }
    load.document = Document::Read(path, load.error);
    if (!load.document) {
        load.foreignFormat = foreignFormatOf(path);
        if (!load.foreignFormat.isEmpty())
            load.error = problemOf(path, load.error.message);
        return load;
    }
    load.kind = load.document->Kind();
    const QString refusal = refusalOf(load.kind, wanted, load.document->Root().tagName());
    if (!refusal.isEmpty()) {
        load.error = problemOf(load.document->Name(), refusal);
        load.document.reset();
    }
    return load;
}

QStringList DocumentsBelow(const QString& folder, QVector<ReadError>& problems)
{
    QStringList files;
    findDocuments(std::filesystem::u8path(PathToOpen(folder).toStdString()), files, problems);
    std::sort(files.begin(), files.end());
    return files;
}

} // namespace rvopen::toolkit
