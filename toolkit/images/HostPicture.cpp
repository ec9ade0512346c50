// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "HostPicture.h"

#include "PictureApplication.h"

#include <rvopen/RVOpenNode.h>
#include <rvopen/XMLUtils.h>

#include <QVector>

namespace rvopen::toolkit {

QPixmap hostPictureOf(const QDomElement& element, const QString& installFolder)
{
    preparePictures();
    QVector<QDomNode> line;
    for (QDomNode node = element; node.isElement(); node = node.parentNode())
        line.prepend(node);
    // The nodes from the root down: where a picture lies depends on what the element stands in.
    auto* const root = new RVOpenNode();
    root->SetDomNode(line.first());
    RVOpenNode* node = root;
    for (int i = 1; node && i < int(line.size()); ++i) {
        node = node->GetChild(1, 0);
        while (node && node->GetDomNode() != line[i])
            node = node->GetNext(1);
    }
    XMLUtils utils;
    const QPixmap picture = node ? utils.QPixmapFromRVOpenNode(node, installFolder) : QPixmap();
    delete root;
    return picture;
}

} // namespace rvopen::toolkit
