// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "Pictures.h"

#include "Failure.h"

#include <rvopen/RVOpenNode.h>
#include <rvopen/XMLUtils.h>

#include <QBuffer>
#include <QDomDocument>
#include <QGuiApplication>
#include <QImageReader>
#include <QPainter>
#include <QVector>

namespace rvopen::tools {

namespace {

/// Without any font all letters are the same box.
bool haveFonts()
{
    const auto written = [](QChar letter) {
        QImage image(48, 48, QImage::Format_RGB32);
        image.fill(Qt::white);
        QPainter painter(&image);
        painter.drawText(image.rect(), int(Qt::AlignCenter), QString(letter));
        painter.end();
        return image;
    };
    return written(QLatin1Char('A')) != written(QLatin1Char('H'));
}

/// Nothing is shown: whatever platform the environment names for programs with windows, and whether
/// it is there, is no matter. The first one asked for counts.
void usePlatform(const char* name)
{
    static const bool isChosen = qputenv("QT_QPA_PLATFORM", name);
    static_cast<void>(isChosen);
}

} // namespace

void preparePictures()
{
    usePlatform("minimal");
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
    usePlatform("minimal:enable_fonts");
    preparePictures();
    if (!haveFonts())
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

QByteArray encodedPicture(const QImage& image, const QByteArray& format, int quality)
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    if (format.isEmpty() || !image.save(&buffer, format.constData(), quality))
        throw Failure(QStringLiteral("pictures cannot be written as \"%1\"; take png, jpg or bmp")
                          .arg(QString::fromLatin1(format)));
    return bytes;
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
    return !reader.read().isNull();
}

} // namespace rvopen::tools
