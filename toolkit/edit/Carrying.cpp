// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "Carrying.h"

#include "Labels.h"

#include <rvopen/toolkit/edit/NodePath.h>
#include <rvopen/toolkit/schema/ValueText.h>

namespace rvopen::toolkit {

namespace {

const QString s_name = QStringLiteral("name");
const QString s_refName = QStringLiteral("refname");
const QString s_linkName = QStringLiteral("linkname");
const QString s_val = QStringLiteral("val");

/// Of a kind that has no other meaning: lower case, with "_" for what is no letter or digit.
QString slug(const QString& name)
{
    QString text;
    for (const QChar c : name.toLower())
        text += c.isLetterOrNumber() ? c : QLatin1Char('_');
    return text;
}

} // namespace

double unitsScale(const QDomElement& root)
{
    double scale = 1;
    const bool isScale = ToNumber(root.attribute(QStringLiteral("unitsScale")), scale) && scale > 0;
    return isScale ? scale : 1;
}

void convertLengths(const QDomElement& element, double ratio)
{
    Walk(element, QString(), [ratio](QDomElement part, const QString&) {
        double length = 0;
        if (isParam(part) && part.attribute(QStringLiteral("type")) == QLatin1String("float") &&
            part.attribute(QStringLiteral("prop")).contains(QLatin1Char('D')) &&
            ToNumber(part.attribute(s_val), length))
            part.setAttribute(s_val, NumberText(length * ratio));
        return true;
    });
}

QString keyOf(const QDomElement& element, const QDomElement& shelf)
{
    const QString name = element.attribute(s_name);
    const bool isFolder = element.tagName() == QLatin1String("dir");
    if (isFolder || shelf.tagName() == QLatin1String("snapshots"))
        return name.isEmpty() ? QString() : element.tagName() + QLatin1String("/name/") + name;
    const QString linkName = element.attribute(s_linkName);
    const QString refName = element.attribute(s_refName);
    if (shelf.tagName() == QLatin1String("materialRepository")) {
        if (!linkName.isEmpty())
            return QLatin1String("/linkname/") + linkName;
        if (!name.isEmpty())
            return QLatin1String("/name/") + name;
    }
    if (!refName.isEmpty())
        return QLatin1String("/refname/") + refName;
    return name.isEmpty() ? QString() : QLatin1String("/name/") + name;
}

FreeNames::FreeNames(const QDomElement& root)
{
    Walk(root, QString(), [this](const QDomElement& element, const QString&) {
        for (const QString& attribute : {s_name, s_refName, s_linkName})
            m_taken.insert(element.attribute(attribute));
        return !isParam(element);
    });
}

void FreeNames::rename(QDomElement element)
{
    const QString name = element.attribute(s_name);
    const QString refName = element.attribute(s_refName);
    const QString linkName = element.attribute(s_linkName);
    for (int number = 2;; ++number) {
        const QString digits = QString::number(number);
        const QString newName = QStringLiteral("%1 (%2)").arg(name, digits);
        const QString newRefName = QStringLiteral("%1_%2").arg(refName, digits);
        const QString newLinkName = QStringLiteral("%1 (%2)").arg(linkName, digits);
        if ((!name.isEmpty() && m_taken.contains(newName)) ||
            (!refName.isEmpty() && m_taken.contains(newRefName)) ||
            (!linkName.isEmpty() && m_taken.contains(newLinkName)))
            continue;
        if (!name.isEmpty())
            element.setAttribute(s_name, newName);
        if (!refName.isEmpty())
            element.setAttribute(s_refName, newRefName);
        if (!linkName.isEmpty())
            element.setAttribute(s_linkName, newLinkName);
        m_taken << newName << newRefName << newLinkName;
        return;
    }
}

void makePreset(QDomElement material)
{
    const QString identity = IdentityOf(material);
    if (material.attribute(s_name).isEmpty() && !identity.isEmpty()) {
        const QString linkName = material.attribute(s_linkName);
        material.setAttribute(s_name, linkName.isEmpty() ? identity : linkName);
    }
    material.removeAttribute(s_linkName);
    if (material.attribute(s_refName).isEmpty() && !identity.isEmpty())
        material.setAttribute(s_refName, material.tagName() + QLatin1Char('.') +
                                             slug(material.attribute(s_name)));
}

} // namespace rvopen::toolkit
