// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QDomElement>
#include <QString>
#include <QStringList>

#include <functional>

namespace rvopen::toolkit {

struct Folders;

/// A preset of an archive and where it stands.
struct Preset {
    QDomElement element;
    QString path;
    /// The section of the archive: "materials", ...
    QString section;
    /// Names of the folders down to it, joined by " / ".
    QString folder;
};

/// Calls \p visit for each preset of the archive with that root, in document order.
void forEachPreset(const QDomElement& root, const std::function<void(const Preset&)>& visit);

/// What a preset is told by wherever it stands: "kind/reference name".
QString presetKey(const QString& kind, const QString& refName);
/// The same of an element; empty without a reference name.
QString presetKey(const QDomElement& element);

/// The archives in the folders that the user named: the installation's, the product's, his own.
QStringList archivesIn(const Folders& folders);

} // namespace rvopen::toolkit
