// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include "Interruption.h"

#include <QByteArray>
#include <QString>
#include <QStringList>
#include <QVector>

#include <optional>

namespace rvopen::toolkit {

/// Files that are made together. Unless keep() is called they are removed again at the end, with
/// the folders that were made for them, and what was replaced is written back: all or nothing. From
/// the first file until that is settled nobody ends the program from outside.
class FileTransaction {
public:
    FileTransaction() = default;
    ~FileTransaction();
    FileTransaction(const FileTransaction&) = delete;
    FileTransaction& operator=(const FileTransaction&) = delete;

    /// Makes the folder and those above it as far as they are missing. False when it cannot,
    /// problem() says why.
    bool makeFolder(const QString& path);
    /// Makes a file under a name that nothing has, not even since it was looked for. False when
    /// that cannot be done, problem() says why; what is there then is somebody else's.
    bool create(const QByteArray& bytes, const QString& target);
    /// Copies a file in the same way, whole.
    bool copy(const QString& source, const QString& target);
    /// Writes over a file that is there. False when it cannot, problem() says why; the file is as
    /// it was then.
    bool replace(const QByteArray& bytes, const QString& target);
    void keep();
    /// Why the last file or folder could not be made: "it is there already", or the system's
    /// reason.
    QString problem() const;

private:
    struct Replaced {
        QString file;
        QByteArray bytes;
    };

    /// Goes last: what was made is removed before.
    std::optional<Uninterrupted> m_holding;
    QStringList m_files;
    QStringList m_folders;
    QVector<Replaced> m_replaced;
    QString m_problem;
};

/// All bytes of a file; false when it cannot be read to its end.
bool readWhole(const QString& path, QByteArray& bytes);

/// Whether both files have the same bytes.
bool haveSameBytes(const QString& a, const QString& b);

} // namespace rvopen::toolkit
