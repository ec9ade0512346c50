// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include <rvopen/toolkit/images/EmbeddedPreview.h>

#include "ImageFiles.h"
#include "PictureApplication.h"

#include <rvopen/RVOpenNode.h>
#include <rvopen/XMLUtils.h>

#include <QDomDocument>
#include <QPixmap>

namespace rvopen::toolkit {

QImage EmbeddedPreview(const QString& text)
{
    preparePictures();
    QDomDocument document;
    QDomElement element = document.createElement(QStringLiteral("material"));
    element.setAttribute(QStringLiteral("xmlImage"), text);
    RVOpenNode node;
    node.SetDomNode(element);
    XMLUtils utils;
    return utils.QPixmapFromRVOpenNode(&node, QString()).toImage();
}

QString EmbeddedText(const QImage& picture)
{
    if (picture.isNull())
        return QString();
    return QString::fromLatin1(qCompress(encodedPicture(picture, "jpg", PreviewQuality)).toHex());
}

bool HasEmbeddedPreview(const QDomElement& element)
{
    preparePictures();
    RVOpenNode node;
    node.SetDomNode(element);
    XMLUtils utils;
    const bool isGood = !utils.QPixmapFromRVOpenNode(&node, QString()).isNull();
    node.SetDomNode(QDomNode());
    return isGood;
}

} // namespace rvopen::toolkit
