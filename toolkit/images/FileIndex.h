// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include "ReferencedTextures.h"

#include <QByteArray>
#include <QHash>
#include <QString>
#include <QStringList>

namespace rvopen::toolkit {

/// The files below folders by their names in lower case.
class FileIndex {
public:
    /// Throws a Failure for one that is no folder.
    explicit FileIndex(const QStringList& folders);

    /// The files that could be meant: of that name, and of these those whose folders agree furthest
    /// with the reference. Of files with the same bytes only the first.
    QStringList find(const QString& reference);

    /// Has all that refers to it refer to the one file that is found, relative to \p folder where
    /// it was relative. With a problem for none or several.
    DocumentTexture relink(const ReferencedTexture& texture, const QString& folder);

private:
    QByteArray digestOf(const QString& path);

    QHash<QString, QStringList> m_files;
    QHash<QString, QByteArray> m_digests;
};

} // namespace rvopen::toolkit
