// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "Members.h"

#include "toolkit/edit/Labels.h"
#include "toolkit/schema/Vocabulary.h"

#include <QHash>

namespace rvopen::toolkit {

namespace {

QString keyAmong(const QDomElement& parent, const QDomElement& child)
{
    const QString tag = child.tagName();
    if (isParam(child))
        return QLatin1Char(':') + child.attribute(QStringLiteral("name"));
    const bool isCollection = tag == QLatin1String("snapshots");
    if (!isContainer(parent) && !isCollection)
        return tag;
    QString identity;
    if (parent.tagName() == QLatin1String("materialRepository"))
        identity = child.attribute(QStringLiteral("linkname"));
    if (identity.isEmpty())
        identity = child.attribute(QStringLiteral("refname"));
    if (identity.isEmpty())
        identity = child.attribute(QStringLiteral("name"));
    return tag + QLatin1Char('/') + identity;
}

} // namespace

bool isContainer(const QDomElement& element)
{
    const QString tag = element.tagName();
    return tag == QLatin1String("snapshots") || tag == QLatin1String("dir") ||
           tag == QLatin1String("materialRepository") || Vocabulary::instance().isSection(tag);
}

QVector<Member> membersOf(const QDomElement& parent, const QString& path)
{
    QVector<Member> members;
    Labels labels;
    QHash<QString, int> counts;
    for (QDomElement element = parent.firstChildElement(); !element.isNull();
         element = element.nextSiblingElement()) {
        Member member{element, joined(path, labels.next(element)), keyAmong(parent, element)};
        const int count = ++counts[member.key];
        if (count > 1)
            member.key += QLatin1Char('#') + QString::number(count);
        members.append(member);
    }
    return members;
}

} // namespace rvopen::toolkit
