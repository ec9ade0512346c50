// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include <rvopen/toolkit/images/DocumentTextures.h>

#include "FileIndex.h"
#include "ReferencedTextures.h"
#include "TextureCollection.h"

#include <rvopen/toolkit/documents/Document.h>

namespace rvopen::toolkit {

QVector<DocumentTexture> TexturesOf(const Document& document, const Folders& folders)
{
    QVector<DocumentTexture> textures;
    for (const ReferencedTexture& texture : texturesOf(document)) {
        textures.append(texture.described());
        textures.last().isElsewhere =
            TextureCollection::objectionTo(texture, document, folders, CollectedTextures::Ours) ==
            TextureCollection::Objection::Outside;
    }
    return textures;
}

QVector<DocumentTexture> RelinkTextures(const Document& document, const QStringList& folders)
{
    FileIndex index(folders);
    QVector<DocumentTexture> textures;
    for (const ReferencedTexture& texture : texturesOf(document)) {
        if (texture.file.isEmpty())
            textures.append(index.relink(texture, document.Folder()));
    }
    return textures;
}

QVector<DocumentTexture> CollectTextures(const Document& document, const QString& folder,
                                         const Folders& folders, CollectedTextures which)
{
    TextureCollection collection(folder, document.Path());
    QVector<DocumentTexture> textures;
    for (const ReferencedTexture& texture : texturesOf(document))
        textures.append(collection.take(texture, document, folders, which));
    collection.addPictures(document, folders, [&textures](const QString& file, const QString& why) {
        DocumentTexture picture;
        picture.file = file;
        picture.problem = why;
        textures.append(picture);
    });
    collection.write(document);
    collection.keep();
    return textures;
}

} // namespace rvopen::toolkit
