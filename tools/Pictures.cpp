// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "Pictures.h"

#include "Failure.h"

#include <rvopen/RVOpenNode.h>
#include <rvopen/XMLUtils.h>

#include <QDomDocument>
#include <QFont>
#include <QGuiApplication>
#include <QImageReader>
#include <QRawFont>
#include <QVector>

namespace rvopen::tools {

void preparePictures()
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "minimal");
    static int argc = 1;
    static char name[] = "rvopen";
    static char* argv[] = {name, nullptr};
    // What it has to say of the session that it finds itself in is of no use to the user.
    const QtMessageHandler handler =
        qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) {});
    static const QGuiApplication application(argc, argv);
    qInstallMessageHandler(handler);
}

void prepareTexts()
{
    // The plugin for no screen has fonts only when that is asked for.
    const QByteArray platform = qgetenv("QT_QPA_PLATFORM");
    if (platform.isEmpty() || platform == "minimal")
        qputenv("QT_QPA_PLATFORM", "minimal:enable_fonts");
    preparePictures();
    if (!QRawFont::fromFont(QFont()).supportsCharacter(QLatin1Char('A')))
        throw Failure(QStringLiteral("there is no font to write names with: install one, such as "
                                     "the package fonts-dejavu-core"));
}

QPixmap pictureOf(const QDomElement& element, const QString& installFolder)
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

QImage embeddedPicture(const QString& text)
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

bool hasPicture(const QDomElement& element)
{
    preparePictures();
    RVOpenNode node;
    node.SetDomNode(element);
    XMLUtils utils;
    const bool isGood = !utils.QPixmapFromRVOpenNode(&node, QString()).isNull();
    node.SetDomNode(QDomNode());
    return isGood;
}

bool isPictureFile(const QString& path)
{
    preparePictures();
    QImageReader reader(path);
    reader.setDecideFormatFromContent(true);
    return reader.canRead() && reader.size().width() > 0;
}

} // namespace rvopen::tools
