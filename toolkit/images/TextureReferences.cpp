// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "TextureReferences.h"

#include "ReferencedTextures.h"
#include "toolkit/documents/FileTransaction.h"
#include "toolkit/edit/Labels.h"

#include <rvopen/RVOpenPaths.h>
#include <rvopen/toolkit/edit/NodePath.h>

#include <QDir>
#include <QFileInfo>
#include <QHash>

namespace rvopen::toolkit {

namespace {

const QLatin1Char s_backslash('\\');

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
    // Between folders stands what the new beginning has there, else what the reference has.
    const QString& like =
        to.contains(QLatin1Char('/')) || to.contains(s_backslash) ? to : reference;
    const QChar separator = like.contains(s_backslash) ? s_backslash : QLatin1Char('/');
    rest.replace(s_backslash, separator);
    rest.replace(QLatin1Char('/'), separator);
    const bool hasEnd =
        to.isEmpty() || to.endsWith(QLatin1Char('/')) || to.endsWith(s_backslash) || rest.isEmpty();
    return to + (hasEnd ? QString() : QString(separator)) + rest;
}

QVector<Rebased> rebaseTextures(const QDomElement& element, const QString& from, const QString& to)
{
    QVector<Rebased> list;
    if (QFileInfo(from).canonicalFilePath() == QFileInfo(to).canonicalFilePath())
        return list;
    QHash<QString, QString> known;
    Walk(element, QString(), [&](QDomElement param, const QString&) {
        const QString owner = param.parentNode().toElement().tagName();
        const QString reference = param.attribute(QStringLiteral("val"));
        if (!isParam(param) || !isTextureParam(owner, param.attribute(QStringLiteral("name"))) ||
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
            param.setAttribute(QStringLiteral("val"), became);
        return true;
    });
    return list;
}

} // namespace rvopen::toolkit
