// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include <rvopen/toolkit/edit/Sorting.h>

#include "Labels.h"
#include "Things.h"

#include <rvopen/toolkit/edit/NodePath.h>

#include <QString>
#include <QVector>

#include <algorithm>

namespace rvopen::toolkit {

namespace {

/// A child with what belongs to it.
struct Group {
    int rank = 0;
    QString key;
    QVector<QDomNode> nodes;
};

int rankOf(const QDomElement& element)
{
    if (isParam(element))
        return 0;
    return element.tagName() == QLatin1String("dir") ? 1 : 2;
}

QString keyFor(const QDomElement& element, SortBy by)
{
    const bool isFolder = element.tagName() == QLatin1String("dir");
    if (by == SortBy::Name || isFolder)
        return IdentityOf(element).toCaseFolded();
    return element
        .attribute(by == SortBy::RefName ? QStringLiteral("refname") : QStringLiteral("cat"))
        .toCaseFolded();
}

} // namespace

bool SortShelf(QDomElement shelf, SortBy by, SortOrder order)
{
    QVector<Group> groups;
    for (QDomElement child = shelf.firstChildElement(); !child.isNull();
         child = child.nextSiblingElement()) {
        Group group;
        group.rank = rankOf(child);
        group.key = group.rank == 0 ? QString() : keyFor(child, by);
        group.nodes = nodesBefore(child);
        group.nodes.append(child);
        groups.append(group);
    }
    const auto precedes = [order](const Group& a, const Group& b) {
        if (a.rank != b.rank)
            return a.rank < b.rank;
        return order == SortOrder::Ascending ? a.key < b.key : b.key < a.key;
    };
    if (std::is_sorted(groups.cbegin(), groups.cend(), precedes))
        return false;
    std::stable_sort(groups.begin(), groups.end(), precedes);
    // What follows the last child stays at the end.
    const QDomNode end = shelf.lastChildElement().nextSibling();
    for (const Group& group : groups) {
        for (const QDomNode& node : group.nodes) {
            if (end.isNull())
                shelf.appendChild(node);
            else
                shelf.insertBefore(node, end);
        }
    }
    return true;
}

} // namespace rvopen::toolkit
