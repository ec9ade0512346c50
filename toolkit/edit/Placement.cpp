// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "Placement.h"

#include "Labels.h"

#include <rvopen/toolkit/documents/Folders.h>
#include <rvopen/toolkit/edit/NodePath.h>

#include <QDir>
#include <QDirIterator>

#include <algorithm>

namespace rvopen::toolkit {

namespace {

const QLatin1String s_dir("dir");

void visitShelf(const QDomElement& shelf, const Preset& where,
                const std::function<void(const Preset&)>& visit)
{
    Labels labels;
    for (QDomElement child = shelf.firstChildElement(); !child.isNull();
         child = child.nextSiblingElement()) {
        Preset preset = where;
        preset.element = child;
        preset.path = joined(where.path, labels.next(child));
        if (child.tagName() == s_dir) {
            const QString name = IdentityOf(child);
            preset.folder += (preset.folder.isEmpty() ? QString() : QStringLiteral(" / ")) + name;
            visitShelf(child, preset, visit);
        } else if (!isParam(child)) {
            visit(preset);
        }
    }
}

QStringList archivesBelow(const QString& folder)
{
    QStringList files;
    if (folder.isEmpty())
        return files;
    QDirIterator it(folder, {QStringLiteral("*.rvx")}, QDir::Files, QDirIterator::Subdirectories);
    while (it.hasNext())
        files << it.next();
    std::sort(files.begin(), files.end());
    return files;
}

} // namespace

void forEachPreset(const QDomElement& root, const std::function<void(const Preset&)>& visit)
{
    Labels labels;
    for (QDomElement section = root.firstChildElement(); !section.isNull();
         section = section.nextSiblingElement()) {
        Preset where;
        where.path = labels.next(section);
        where.section = section.tagName();
        visitShelf(section, where, visit);
    }
}

QString presetKey(const QString& kind, const QString& refName)
{
    return kind + QLatin1Char('/') + refName;
}

QString presetKey(const QDomElement& element)
{
    const QString refName = element.attribute(QStringLiteral("refname"));
    return refName.isEmpty() ? QString() : presetKey(element.tagName(), refName);
}

QStringList archivesIn(const Folders& folders)
{
    const QString install =
        folders.install.isEmpty() ? QString() : folders.install + QLatin1String("/xml");
    QStringList files =
        archivesBelow(install) + archivesBelow(folders.archives) + archivesBelow(folders.custom);
    files.removeDuplicates();
    return files;
}

} // namespace rvopen::toolkit
