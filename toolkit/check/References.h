// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QDomElement>
#include <QHash>
#include <QString>

namespace rvopen::toolkit {

struct Inspecting;

/// What a document refers to: files, and the presets of archives.
class References {
public:
    explicit References(Inspecting& inspecting);

    void inspectPreset(const QDomElement& element, const QString& tag, const QString& refName,
                       int ordinal);
    /// Of a folder.
    void inspectArchive(const QDomElement& element, int ordinal);
    /// Of a parameter.
    void inspectTexture(const QDomElement& param, const QString& reference, int ordinal);
    /// Of a preset.
    void inspectThumbnail(const QDomElement& element, int ordinal);
    /// Of a member of a collection.
    void inspectSnapShotPicture(const QDomElement& element, int ordinal);

private:
    bool isThere(const QString& reference);
    void inspectPicture(const QString& path, const QDomElement& element, int ordinal);

    Inspecting& m_inspecting;
    /// Of the document.
    const QString m_folder;
    /// Whether the textures that were looked for are there.
    QHash<QString, bool> m_textures;
};

} // namespace rvopen::toolkit
