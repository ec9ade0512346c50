// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "Applying.h"

#include "Becoming.h"
#include "EditedFile.h"

#include <rvopen/toolkit/edit/Arriving.h>
#include <rvopen/toolkit/edit/NodePath.h>
#include <rvopen/toolkit/schema/ElementInfo.h>

namespace rvopen::browser {

using namespace toolkit;

namespace {

const QString s_material = QStringLiteral("material");
const QString s_snapShot = QStringLiteral("snapshot");
const QString s_palette = QStringLiteral("materialRepository");
const QString s_linkName = QStringLiteral("linkname");

bool isComponent(const QString& kind)
{
    const ElementInfo* const info = FindElement(kind);
    return info && info->isComponent;
}

} // namespace

QVector<ApplyTarget> applyTargets(const EditedFile& file, const QString& kind)
{
    QVector<ApplyTarget> targets;
    Walk(file.dom().documentElement(), QString(),
         [&](const QDomElement& element, const QString& path) {
             const bool isInPalette =
                 element.tagName() == s_material && element.parentNode().nodeName() == s_palette;
             if (kind == s_material && isInPalette && element.hasAttribute(s_linkName))
                 targets.append({path, element.attribute(s_linkName)});
             if (element.tagName() == s_snapShot && isComponent(kind))
                 targets.append({path, IdentityOf(element)});
             return !isInPalette;
         });
    return targets;
}

bool applyPreset(const QDomElement& preset, EditedFile& file, const QString& path)
{
    const QDomDocument copy = file.copy();
    QDomElement target = elementAt(copy, path);
    if (target.isNull())
        return false;
    QDomNode shelf = target;
    QDomElement old = target.firstChildElement(preset.tagName());
    if (target.tagName() == s_material) {
        shelf = target.parentNode();
        old = target;
    }
    const bool fits = target.tagName() == s_material
                          ? preset.tagName() == s_material
                          : target.tagName() == s_snapShot && isComponent(preset.tagName());
    if (!fits)
        return false;
    // Before it is copied, since its name is free then.
    const QDomNode behind = old.nextSibling();
    if (!old.isNull())
        shelf.removeChild(old);
    QDomElement applied = CopyFor(preset, shelf.toElement());
    if (old.hasAttribute(s_linkName))
        applied.setAttribute(s_linkName, old.attribute(s_linkName));
    // Without a node behind it, it comes last.
    if (behind.isNull())
        shelf.appendChild(applied);
    else
        shelf.insertBefore(applied, behind);
    return file.become(copy.documentElement(), file.dom().documentElement(),
                       EditedFile::tr("Apply"));
}

} // namespace rvopen::browser
