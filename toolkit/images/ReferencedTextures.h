// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include <rvopen/toolkit/images/DocumentTextures.h>

#include <QDomElement>
#include <QString>
#include <QStringList>
#include <QStringView>
#include <QVector>

namespace rvopen::toolkit {

class Document;
class Scope;

/// An image file that a document refers to.
struct ReferencedTexture {
    QString reference;
    /// Empty when it is not there.
    QString file;
    /// What refers to it, with the paths of these.
    QVector<QDomElement> params;
    QStringList paths;

    /// For others; nothing has become of it yet.
    DocumentTexture described() const;
    /// Has all that referred to it refer to another file.
    void refer(const QString& other) const;
};

/// Those of a document in the order in which they come first, each once. A reference is looked for
/// as it stands and beside the document.
QVector<ReferencedTexture> texturesOf(const Document& document);
/// Of these, those that something selected refers to, with what is selected alone.
QVector<ReferencedTexture> texturesOf(const Document& document, const Scope& scope);

/// Whether a parameter of that name of such an element names an image that the host reads.
bool isTextureParam(QStringView owner, QStringView name);

/// The file that a reference of a document in \p folder stands for; empty when it is not there.
QString findReferenced(const QString& reference, const QString& folder);

} // namespace rvopen::toolkit
