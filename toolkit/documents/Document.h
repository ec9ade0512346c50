// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include <rvopen/RVOpenReader.h>
#include <rvopen/toolkit/ToolkitExport.h>

#include <QDomDocument>
#include <QDomElement>
#include <QString>

#include <memory>

class QFile;
class QTemporaryFile;

namespace rvopen::toolkit {

/// What a document is.
enum class DocumentKind {
    Unknown,
    SnapShots, ///< A document of snapshots.
    Archive    ///< An archive of presets.
};

/// "snapshots", "archive" or "unknown".
RVOPEN_TOOLKIT_EXPORT QString KindName(DocumentKind kind);

/// One document that was read. What is changed in its elements is changed in memory alone.
class RVOPEN_TOOLKIT_EXPORT Document {
public:
    /// Reads the file, or standard input for "-", whatever kind of document it is. Null when it
    /// cannot be read; \p error then says why, under the name that the user knows.
    static std::unique_ptr<Document> Read(const QString& argument, ReadError& error);
    /// What a program has in memory, edited or not, whose file is or will be \p file; its kind is
    /// that of what is there. Only what is there is looked at: of a part of a document that part.
    static std::unique_ptr<Document> Of(const QString& file, const QDomDocument& dom);
    /// What was taken out of it as elements stays usable as long as Dom() is held.
    ~Document();
    Document(const Document&) = delete;
    Document& operator=(const Document&) = delete;

    /// \name Where it came from
    /// @{

    /// As the user named it, "<stdin>" for "-".
    QString Name() const;
    /// The file that has the bytes.
    QString Path() const;
    /// Whether it was "-".
    bool IsStandardInput() const;
    /// Whether the bytes came from a pipe or the like, which gives them once and takes none back.
    bool IsStream() const;
    /// Whether it is of Of(), so that the file may have something else.
    bool IsInMemory() const;
    /// The folder that it lies in, that of the process for standard input.
    QString Folder() const;
    /// Bytes of the file.
    qint64 Size() const;
    /// @}

    /// \name What is in it
    /// @{
    /// All of it.
    QDomDocument Dom() const;
    /// Its root element.
    QDomElement Root() const;
    /// By its root.
    DocumentKind Kind() const;
    /// How far each level of such a document is indented in a file.
    int Indent() const;
    /// @}

private:
    Document();

    bool copyOf(QFile& input);

    QString m_name;
    QString m_path;
    bool m_isStandardInput = false;
    bool m_isInMemory = false;
    std::unique_ptr<QTemporaryFile> m_copy;
    std::unique_ptr<QDomDocument> m_dom;
    DocumentKind m_kind = DocumentKind::Unknown;
};

} // namespace rvopen::toolkit
