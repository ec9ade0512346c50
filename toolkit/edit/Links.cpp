// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include <rvopen/toolkit/edit/Links.h>

#include "Labels.h"
#include "Things.h"

#include <rvopen/toolkit/edit/NodePath.h>

namespace rvopen::toolkit {

QVector<Link> LinksFrom(const QDomElement& element)
{
    QVector<Link> links;
    const auto look = [&links](const QDomElement& at, const QString& path) {
        if (goesByRefName(at))
            links.append({path, at.tagName(), at.attribute(QStringLiteral("refname"))});
        return !isParam(at);
    };
    const QString own = PathOf(element);
    if (look(element, own))
        Walk(element, own, look);
    return links;
}

QVector<Link> LinksTo(const QString& kind, const QString& refName, const QDomElement& root)
{
    QVector<Link> links;
    for (const Link& link : LinksFrom(root)) {
        if (link.kind == kind && link.refName == refName)
            links.append(link);
    }
    return links;
}

} // namespace rvopen::toolkit
