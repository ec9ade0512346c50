// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>
#include <QStringList>

namespace rvopen::tools {

/// Files that one command makes. Unless keep() is called they are removed again at the end, with
/// the folders that were made for them: all or nothing.
class NewFiles {
public:
    NewFiles() = default;
    ~NewFiles();
    NewFiles(const NewFiles&) = delete;
    NewFiles& operator=(const NewFiles&) = delete;

    /// Makes the folder and those above it as far as they are missing. False when it cannot.
    bool makeFolder(const QString& path);
    /// Copies a file to a name that is not taken. False when that cannot be done; nothing is there
    /// then.
    bool copy(const QString& source, const QString& target);
    /// A file that something else made.
    void add(const QString& path);
    void keep();

private:
    QStringList m_files;
    QStringList m_folders;
};

/// Whether both files have the same bytes.
bool haveSameBytes(const QString& a, const QString& b);

} // namespace rvopen::tools
