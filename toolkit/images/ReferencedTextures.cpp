// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "ReferencedTextures.h"

#include "toolkit/edit/Labels.h"
#include "toolkit/edit/Selection.h"

#include <rvopen/toolkit/documents/Document.h>
#include <rvopen/toolkit/edit/NodePath.h>
#include <rvopen/toolkit/schema/ParamInfo.h>

#include <QDir>
#include <QFileInfo>
#include <QHash>

#include <algorithm>
#include <vector>

namespace rvopen::toolkit {

DocumentTexture ReferencedTexture::described() const
{
    DocumentTexture texture;
    texture.reference = reference;
    texture.file = file;
    texture.paths = paths;
    return texture;
}

void ReferencedTexture::refer(const QString& other) const
{
    for (QDomElement param : params)
        param.setAttribute(QStringLiteral("val"), other);
}

QVector<ReferencedTexture> texturesOf(const Document& document)
{
    return texturesOf(document, Scope());
}

QVector<ReferencedTexture> texturesOf(const Document& document, const Scope& scope)
{
    QVector<ReferencedTexture> textures;
    QHash<QString, int> known;
    const QString folder = document.Folder();
    Walk(document.Root(), QString(), [&](const QDomElement& element, const QString& path) {
        const QString owner = element.parentNode().toElement().tagName();
        if (!isParam(element) || !isTextureParam(owner, element.attribute(QStringLiteral("name"))))
            return true;
        const QString reference = element.attribute(QStringLiteral("val"));
        if (reference.isEmpty() ||
            element.attribute(QStringLiteral("type")) != QLatin1String("string") ||
            !scope.covers(path))
            return true;
        if (!known.contains(reference)) {
            known.insert(reference, int(textures.size()));
            textures.append({reference, findReferenced(reference, folder), {}, {}});
        }
        ReferencedTexture& texture = textures[known.value(reference)];
        texture.params.append(element);
        texture.paths << path;
        return true;
    });
    return textures;
}

bool isTextureParam(QStringView owner, QStringView name)
{
    static const std::vector<const ParamInfo*> known = [] {
        std::vector<const ParamInfo*> result;
        for (const ParamInfo& info : AllParams()) {
            if (info.content == Content::ImageFile)
                result.push_back(&info);
        }
        return result;
    }();
    return std::any_of(known.begin(), known.end(), [&](const ParamInfo* info) {
        return info->element == owner && info->name == name;
    });
}

QString findReferenced(const QString& reference, const QString& folder)
{
    if (reference.isEmpty() || reference.contains(QChar(0)))
        return QString();
    QString native = reference;
    native.replace(QLatin1Char('\\'), QLatin1Char('/'));
    for (const QString& candidate : {reference, native}) {
        const QFileInfo file(QDir(folder), candidate);
        if (file.isFile())
            return file.absoluteFilePath();
    }
    return QString();
}

} // namespace rvopen::toolkit
