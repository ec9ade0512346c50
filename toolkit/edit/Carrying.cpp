// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "Carrying.h"

#include "Labels.h"

#include <rvopen/toolkit/edit/NodePath.h>
#include <rvopen/toolkit/schema/ValueText.h>

#include <QPair>
#include <QVector>

namespace rvopen::toolkit {

namespace {

const QString s_name = QStringLiteral("name");
const QString s_refName = QStringLiteral("refname");
const QString s_linkName = QStringLiteral("linkname");
const QString s_val = QStringLiteral("val");

/// How a name gets a number.
struct NumberedName {
    QString attribute;
    QString pattern;
};

/// The names that nothing else may have, that of the picture among them.
const NumberedName s_numberedNames[] = {{s_name, QStringLiteral("%1 (%2)")},
                                        {s_refName, QStringLiteral("%1_%2")},
                                        {s_linkName, QStringLiteral("%1 (%2)")},
                                        {QStringLiteral("imgname"), QStringLiteral("%1_%2")}};

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
        for (const NumberedName& each : s_numberedNames)
            m_taken.insert(element.attribute(each.attribute));
        return !isParam(element);
    });
}

void FreeNames::rename(QDomElement element)
{
    for (int number = 2;; ++number) {
        QVector<QPair<QString, QString>> names;
        bool isFree = true;
        for (const NumberedName& each : s_numberedNames) {
            const QString name = element.attribute(each.attribute);
            if (name.isEmpty())
                continue;
            names.append({each.attribute, each.pattern.arg(name, QString::number(number))});
            isFree = isFree && !m_taken.contains(names.last().second);
        }
        if (!isFree)
            continue;
        for (const auto& name : names) {
            element.setAttribute(name.first, name.second);
            m_taken.insert(name.second);
        }
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
