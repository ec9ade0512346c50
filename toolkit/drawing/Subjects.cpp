// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include <rvopen/toolkit/drawing/Subjects.h>

#include "toolkit/edit/Labels.h"
#include "toolkit/edit/Placement.h"
#include "toolkit/images/ReferencedTextures.h"

#include <rvopen/toolkit/documents/Document.h>
#include <rvopen/toolkit/documents/Folders.h>
#include <rvopen/toolkit/edit/NodePath.h>

namespace rvopen::toolkit {

QVector<Subject> SubjectsOf(const Document& document)
{
    QVector<Subject> subjects;
    if (document.Kind() != DocumentKind::SnapShots) {
        forEachPreset(document.Root(), [&](const Preset& preset) {
            if (!IsDrawable(preset.element))
                return;
            const QDomElement section = document.Root().firstChildElement(preset.section);
            const QString title = section.attribute(QStringLiteral("name"), preset.section);
            subjects.append(
                {preset.element, preset.path, IdentityOf(preset.element),
                 preset.folder.isEmpty() ? title : title + QLatin1String(" / ") + preset.folder});
        });
        return subjects;
    }
    Labels labels;
    for (QDomElement collection = document.Root().firstChildElement(); !collection.isNull();
         collection = collection.nextSiblingElement()) {
        const QString path = labels.next(collection);
        if (collection.tagName() != QLatin1String("snapshots"))
            continue;
        Labels members;
        for (QDomElement member = collection.firstChildElement(); !member.isNull();
             member = member.nextSiblingElement()) {
            const QString label = members.next(member);
            if (IsDrawable(member))
                subjects.append(
                    {member, joined(path, label), IdentityOf(member), IdentityOf(collection)});
        }
    }
    return subjects;
}

QVector<Subject> PaletteSubjects(const Document& document)
{
    QVector<Subject> subjects;
    Walk(document.Root(), QString(), [&](const QDomElement& element, const QString& path) {
        const QString tag = element.tagName();
        if (tag == QLatin1String("snapshots"))
            return element.attribute(QStringLiteral("name")) ==
                   QLatin1String("Model Material Palettes");
        if (tag == QLatin1String("snapshot") || tag == QLatin1String("materialRepository"))
            return true;
        if (tag == QLatin1String("material") &&
            element.parentNode().nodeName() == QLatin1String("materialRepository")) {
            const QDomElement owner = element.parentNode().parentNode().toElement();
            subjects.append({element, path, IdentityOf(element),
                             owner.parentNode().nodeName() == QLatin1String("snapshots")
                                 ? QStringLiteral("Palette of ") + IdentityOf(owner)
                                 : QStringLiteral("Current palette")});
        }
        return false;
    });
    return subjects;
}

FindFile TextureFinder(const Document& document, const Folders& folders)
{
    const QStringList places{document.Folder(), folders.install, folders.archives, folders.custom};
    return [places](const QString& reference) {
        for (const QString& folder : places) {
            const QString file = folder.isEmpty() ? QString() : findReferenced(reference, folder);
            if (!file.isEmpty())
                return file;
        }
        return QString();
    };
}

} // namespace rvopen::toolkit
