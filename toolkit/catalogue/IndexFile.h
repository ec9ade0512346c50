// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include "FileState.h"

#include <QByteArray>
#include <QFile>
#include <QHash>
#include <QString>
#include <QVector>

#include <string_view>
#include <vector>

namespace rvopen::toolkit::catalogue {

/// Blocks of many documents in one file, each with the state that its document was in. It can be
/// thrown away at any time. What was cut, changed or made by others is as good as absent.
class IndexFile {
public:
    /// A block with the document that it is of.
    struct Entry {
        /// Absolute, in bytes of the system.
        QByteArray document;
        FileState state;
        std::string_view block;
    };

    /// Of the documents in and below the folder; without a name where nothing is to be kept.
    static QString nameFor(const QString& folder);

    explicit IndexFile(const QString& name);
    ~IndexFile();
    IndexFile(const IndexFile&) = delete;
    IndexFile& operator=(const IndexFile&) = delete;

    /// The block of a document that is in this state; empty where there is none. Good as long as
    /// the object.
    std::string_view find(const QByteArray& document, const FileState& state) const;
    /// All that are whole.
    std::vector<Entry> entries() const;

    /// Puts a file with these entries in the place of the one of that name. When that cannot be
    /// done, nothing is, and nobody is told.
    static void write(const QString& name, const std::vector<Entry>& entries);

private:
    struct Record;

    bool open(const QString& name);
    std::string_view blockOf(const Record& record) const;

    QFile m_file;
    std::string_view m_bytes;
    QHash<QByteArray, quint32> m_places;
    quint32 m_count = 0;
};

} // namespace rvopen::toolkit::catalogue
