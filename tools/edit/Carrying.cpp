// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "Carrying.h"

#include "../Inspection.h"
#include "../NewFiles.h"
#include "../NodePath.h"
#include "Things.h"

#include <rvopen/RVOpenPaths.h>
#include <rvopen/toolkit/schema/ValueText.h>

#include <QDir>
#include <QFileInfo>
#include <QHash>

namespace rvopen::tools {

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

Rebased rebased(const QString& reference, const QString& from, const QString& to)
{
    Rebased result{reference, QString(), QString()};
    const QString file = findReferenced(reference, from);
    if (file.isEmpty()) {
        result.note = QStringLiteral("it is not there, and the reference stays as it is");
        return result;
    }
    const QString there = findReferenced(reference, to);
    if (!there.isEmpty() && haveSameBytes(file, there))
        return result;
    result.became = relativeReference(file, to, reference);
    return result;
}

} // namespace

double unitsScale(const QDomElement& root)
{
    double scale = 1;
    const bool isScale =
        toolkit::ToNumber(root.attribute(QStringLiteral("unitsScale")), scale) && scale > 0;
    return isScale ? scale : 1;
}

void convertLengths(const QDomElement& element, double ratio)
{
    walk(element, QString(), [ratio](QDomElement part, const QString&) {
        double length = 0;
        if (isParam(part) && part.attribute(QStringLiteral("type")) == QLatin1String("float") &&
            part.attribute(QStringLiteral("prop")).contains(QLatin1Char('D')) &&
            toolkit::ToNumber(part.attribute(s_val), length))
            part.setAttribute(s_val, toolkit::NumberText(length * ratio));
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
    walk(root, QString(), [this](const QDomElement& element, const QString&) {
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
        const QString newName = QStringLiteral("%1 (%2)").arg(name).arg(number);
        const QString newRefName = QStringLiteral("%1_%2").arg(refName).arg(number);
        const QString newLinkName = QStringLiteral("%1 (%2)").arg(linkName).arg(number);
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
    const QString identity = identityOf(material);
    if (material.attribute(s_name).isEmpty() && !identity.isEmpty()) {
        const QString linkName = material.attribute(s_linkName);
        material.setAttribute(s_name, linkName.isEmpty() ? identity : linkName);
    }
    material.removeAttribute(s_linkName);
    if (material.attribute(s_refName).isEmpty() && !identity.isEmpty())
        material.setAttribute(s_refName, material.tagName() + QLatin1Char('.') +
                                             slug(material.attribute(s_name)));
}

bool isAbsoluteReference(const QString& reference)
{
    const bool hasDrive =
        reference.size() > 1 && reference[0].isLetter() && reference[1] == QLatin1Char(':');
    return hasDrive || reference.startsWith(QLatin1Char('/')) ||
           reference.startsWith(QLatin1Char('\\'));
}

QString relativeReference(const QString& file, const QString& folder, const QString& like)
{
    // Links among the folders would make ".." lead elsewhere.
    const QString base = QFileInfo(folder).canonicalFilePath();
    const QString place = QFileInfo(QFileInfo(file).path()).canonicalFilePath();
    QString reference = QDir(base.isEmpty() ? folder : base)
                            .relativeFilePath(place + QLatin1Char('/') + LastPathComponent(file));
    if (!like.contains(QLatin1Char('/')))
        reference.replace(QLatin1Char('/'), QLatin1Char('\\'));
    return reference;
}

QString withOtherPrefix(const QString& reference, const QString& from, const QString& to)
{
    const auto plain = [](QString path) {
        path.replace(QLatin1Char('\\'), QLatin1Char('/'));
        while (path.size() > 1 && path.endsWith(QLatin1Char('/')))
            path.chop(1);
        return path;
    };
    const QString prefix = plain(from);
    const QString text = plain(reference);
    const bool isPrefix = text.startsWith(prefix, Qt::CaseInsensitive) &&
                          (text.size() == prefix.size() || prefix.endsWith(QLatin1Char('/')) ||
                           text[prefix.size()] == QLatin1Char('/'));
    if (prefix.isEmpty() || !isPrefix)
        return QString();
    QString rest = reference.mid(prefix.size());
    while (rest.startsWith(QLatin1Char('/')) || rest.startsWith(QLatin1Char('\\')))
        rest.remove(0, 1);
    const bool isBackslashed = reference.contains(QLatin1Char('\\'));
    const bool hasEnd = to.isEmpty() || to.endsWith(QLatin1Char('/')) ||
                        to.endsWith(QLatin1Char('\\')) || rest.isEmpty();
    return to +
           (hasEnd          ? QString()
            : isBackslashed ? QStringLiteral("\\")
                            : QStringLiteral("/")) +
           rest;
}

QVector<Rebased> rebaseTextures(const QDomElement& element, const QString& from, const QString& to)
{
    QVector<Rebased> list;
    if (QFileInfo(from).canonicalFilePath() == QFileInfo(to).canonicalFilePath())
        return list;
    QHash<QString, QString> known;
    walk(element, QString(), [&](QDomElement param, const QString&) {
        const QString owner = param.parentNode().toElement().tagName();
        const QString reference = param.attribute(s_val);
        if (!isParam(param) || !isTextureParam(owner, param.attribute(s_name)) ||
            param.attribute(QStringLiteral("type")) != QLatin1String("string") ||
            reference.isEmpty() || isAbsoluteReference(reference))
            return true;
        if (!known.contains(reference)) {
            const Rebased result = rebased(reference, from, to);
            known.insert(reference, result.became);
            if (!result.became.isEmpty() || !result.note.isEmpty())
                list.append(result);
        }
        const QString became = known.value(reference);
        if (!became.isEmpty())
            param.setAttribute(s_val, became);
        return true;
    });
    return list;
}

} // namespace rvopen::tools
