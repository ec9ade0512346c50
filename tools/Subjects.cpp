// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "Subjects.h"

#include "Input.h"
#include "Inspection.h"
#include "NodePath.h"
#include "Presets.h"
#include "Session.h"

#include "drawing/Drawing.h"

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

QString findTexture(const QString& reference, const Document& document, const Session& session)
{
    for (const QString& folder : {document.folder(), session.folders.install,
                                  session.folders.archives, session.folders.custom}) {
        const QString file = folder.isEmpty() ? QString() : findReferenced(reference, folder);
        if (!file.isEmpty())
            return file;
    }
    return QString();
}

} // namespace rvopen::tools
