// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include <rvopen/RVOpenReader.h>
#include <rvopen/toolkit/documents/Document.h>

#include <QMap>
#include <QString>
#include <QVector>

namespace rvopen::command {

using Counts = QMap<QString, int>;

/// A collection of snapshots or a section of presets.
struct Group {
    QString path;
    QString element;
    QString name;
    int members = 0;
};

/// What stands in one document.
struct Contents {
    /// As the user knows it.
    QString name;
    qint64 size = 0;
    toolkit::DocumentKind kind = toolkit::DocumentKind::Unknown;
    QString root;
    QMap<QString, QString> rootAttributes;

    /// Elements but for the root and parameters, by their names.
    Counts kinds;
    /// Parameters by their types.
    Counts params;
    Counts unknownElements;
    Counts unknownAttributes;
    Counts unknownParams;
    QVector<Group> groups;
    int presets = 0;
};

/// Looks through the file, or standard input for "-", in one pass over its text. False when it is
/// no document, for the reason in \p error.
bool survey(const QString& argument, Contents& contents, ReadError& error);

} // namespace rvopen::command
