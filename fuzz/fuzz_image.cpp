// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "FuzzInput.h"
#include "FuzzSupport.h"

#include <rvopen/RVOpenNode.h>
#include <rvopen/XMLUtils.h>

#include <QDomDocument>
#include <QPixmap>

/// Any bytes as an embedded preview: as the attribute's text, as the data that this text encodes,
/// and as the image file that this data packs.
namespace rvopen::fuzz {

namespace {

void load(const QString& text)
{
    QDomDocument document;
    QDomElement element = document.createElement(QStringLiteral("material"));
    element.setAttribute(QStringLiteral("xmlImage"), text);
    document.appendChild(element);
    RVOpenNode node;
    node.SetDomNode(element);
    const QPixmap pixmap = XMLUtils().QPixmapFromRVOpenNode(&node, scratch());
    require(pixmap.isNull() || (pixmap.width() > 0 && pixmap.height() > 0),
            "a preview is null or has a size");
    require(node.GetAttributeString("xmlImage") == text, "a preview leaves its node as it is");
}

} // namespace

} // namespace rvopen::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    using namespace rvopen::fuzz;
    prepareWithApplication();
    const QByteArray bytes = FuzzInput(data, size).rest();
    load(QString::fromUtf8(bytes));
    load(QString::fromLatin1(bytes.toHex()));
    load(QString::fromLatin1(qCompress(bytes, 1).toHex()));
    return 0;
}
