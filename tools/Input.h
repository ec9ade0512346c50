// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include "Session.h"

#include <QDomDocument>
#include <QDomElement>
#include <QString>
#include <QStringList>

#include <functional>
#include <memory>
#include <vector>

class QFile;
class QTemporaryFile;

namespace rvopen::tools {

enum class DocumentKind { Unknown, SnapShots, Archive };

/// "snapshots", "archive" or "unknown".
QString kindName(DocumentKind kind);
DocumentKind kindOf(const QDomDocument& document);
/// How documents of the kind are indented in files.
int indentOf(DocumentKind kind);

/// One document that was read.
class Document {
public:
    /// Null when it cannot be read; \p error then says why, under the name that the user knows.
    static std::unique_ptr<Document> read(const QString& argument, ReadError& error);
    ~Document();

    /// As the user named it, "<stdin>" for "-".
    QString name() const;
    /// Where the bytes are.
    QString path() const;
    bool isStandardInput() const;
    /// Whether the bytes came from a pipe or the like, which gives them once and takes none back.
    bool isStream() const;
    /// The folder that it lies in, that of the process for standard input.
    QString folder() const;
    qint64 size() const;
    QDomDocument dom() const;
    QDomElement root() const;
    DocumentKind kind() const;

private:
    Document();

    bool copyOf(QFile& input);

    QString m_name;
    QString m_path;
    bool m_isStandardInput = false;
    std::unique_ptr<QTemporaryFile> m_copy;
    std::unique_ptr<QDomDocument> m_dom;
    DocumentKind m_kind = DocumentKind::Unknown;
};

/// Whether it has the extension of a document.
bool isDocumentName(const QString& name);

/// Files, with each folder replaced by the documents in it and below it in the order of their
/// names, and each pattern that is no file's name ("*", "?", "[ab]") by what it fits. What cannot
/// be listed, a pattern that fits nothing, and a file whose name is not UTF-8, counts as an error.
QStringList expandedInputs(const QStringList& arguments, Session& session);

enum class Access {
    Reading,
    /// Each document may be written over: nobody else changes it from before it is read.
    Changing
};

/// Reads one document after the other and calls \p visit with each. One that cannot be read is
/// given to \p failed, and an error of the session unless that answers true. With several \p jobs
/// documents that are not changed are read ahead.
void forEachDocument(const QStringList& arguments, Session& session,
                     const std::function<void(Document&)>& visit,
                     const std::function<bool(const QString&, const ReadError&)>& failed = {},
                     Access access = Access::Reading, int jobs = 1);

/// Reads the one document of a command; throws a Failure without message after printing the error.
std::unique_ptr<Document> readOrFail(const QString& argument, Session& session);

/// Whether both name the same existing file.
bool isSameFile(const QString& a, const QString& b);

} // namespace rvopen::tools
