// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include <rvopen/RVOpenReader.h>

#include <QDomDocument>
#include <QString>

namespace rvopen::command {

/// What an overview of a document shows: elements down to some level, with the attributes that they
/// are called by.
struct Outline {
    /// Of the document, as the user named it.
    QString name;
    /// Null where the document cannot be read.
    QDomDocument dom;
    ReadError error;
};

/// The outline of a file, or of standard input for "-". Below the root are elements of \p levels
/// levels, or more; a parameter of the last has a child where it has any.
Outline outlineOf(const QString& argument, int levels);

} // namespace rvopen::command
