// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include "Rules.h"

#include <QDomElement>
#include <QSet>
#include <QString>
#include <QVector>

namespace rvopen::tools {

class Document;
struct Folders;

struct Finding {
    const Rule* rule = nullptr;
    QString message;
    QDomElement element;
    /// Which element of the document it is, in document order; -1 without.
    int ordinal = -1;
    QString file;
    int line = 0;
    int column = 0;
    QString path;
    bool isFixed = false;
    /// For the rules about types: the one that the host expects.
    QString expectedType;
};

/// What is known besides the document.
struct Surroundings {
    const Folders* folders = nullptr;
    int knownMajor = 3;
    int knownMinor = 1;
    /// "kind/reference name" of all presets in the folders of the host; empty without folders.
    QSet<QString> presets;
};

/// What is to be said of the document, in document order, with places and paths.
QVector<Finding> inspect(const Document& document, const Surroundings& surroundings);

/// Mends what can be mended without guessing, in the document in memory, and marks it as fixed. How
/// many findings that are.
int mend(QVector<Finding>& findings);

/// Whether a parameter of that name of such an element names an image that the host reads.
bool isTextureParam(const QString& owner, const QString& name);

/// The file that a reference of a document in \p folder stands for; empty when it is not there.
QString findReferenced(const QString& reference, const QString& folder);

} // namespace rvopen::tools
