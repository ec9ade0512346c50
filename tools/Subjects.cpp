// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "Subjects.h"

#include "Input.h"
#include "Inspection.h"
#include "NodePath.h"
#include "Presets.h"
#include "Session.h"

#include "drawing/Drawing.h"
#include "edit/Selection.h"

namespace rvopen::tools {

QVector<Subject> subjectsOf(const Document& document)
{
    QVector<Subject> subjects;
    if (document.kind() != DocumentKind::SnapShots) {
        forEachPreset(document.root(), [&](const Preset& preset) {
            if (!drawing::isDrawable(preset.element))
                return;
            const QDomElement section = document.root().firstChildElement(preset.section);
            const QString title = section.attribute(QStringLiteral("name"), preset.section);
            subjects.append(
                {preset.element, preset.path, identityOf(preset.element),
                 preset.folder.isEmpty() ? title : title + QLatin1String(" / ") + preset.folder});
        });
        return subjects;
    }
    Labels labels;
    for (QDomElement collection = document.root().firstChildElement(); !collection.isNull();
         collection = collection.nextSiblingElement()) {
        const QString path = labels.next(collection);
        if (collection.tagName() != QLatin1String("snapshots"))
            continue;
        Labels members;
        for (QDomElement member = collection.firstChildElement(); !member.isNull();
             member = member.nextSiblingElement()) {
            const QString label = members.next(member);
            if (drawing::isDrawable(member))
                subjects.append(
                    {member, joined(path, label), identityOf(member), identityOf(collection)});
        }
    }
    return subjects;
}

QVector<Subject> paletteSubjects(const Document& document)
{
    QVector<Subject> subjects;
    walk(document.root(), QString(), [&](const QDomElement& element, const QString& path) {
        const QString tag = element.tagName();
        if (tag == QLatin1String("snapshots"))
            return element.attribute(QStringLiteral("name")) ==
                   QLatin1String("Model Material Palettes");
        if (tag == QLatin1String("snapshot") || tag == QLatin1String("materialRepository"))
            return true;
        if (tag == QLatin1String("material") &&
            element.parentNode().nodeName() == QLatin1String("materialRepository")) {
            const QDomElement owner = element.parentNode().parentNode().toElement();
            subjects.append({element, path, identityOf(element),
                             owner.parentNode().nodeName() == QLatin1String("snapshots")
                                 ? QStringLiteral("Palette of ") + identityOf(owner)
                                 : QStringLiteral("Current palette")});
        }
        return false;
    });
    return subjects;
}

QVector<Subject> selectedOf(const QVector<Subject>& subjects, const Scope& scope)
{
    QVector<Subject> result;
    for (const Subject& subject : subjects) {
        if (scope.takes(subject.path))
            result.append(subject);
    }
    return result;
}

drawing::FindFile textureFinder(const Document& document, const Folders& folders)
{
    const QStringList places{document.folder(), folders.install, folders.archives, folders.custom};
    return [places](const QString& reference) {
        for (const QString& folder : places) {
            const QString file = folder.isEmpty() ? QString() : findReferenced(reference, folder);
            if (!file.isEmpty())
                return file;
        }
        return QString();
    };
}

} // namespace rvopen::tools
