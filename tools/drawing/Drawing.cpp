// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "Drawing.h"

#include "Studio.h"

#include <rvopen/Bump.h>
#include <rvopen/Colour.h>
#include <rvopen/Finish.h>
#include <rvopen/Material.h>
#include <rvopen/Transparency.h>

namespace rvopen::drawing {

namespace {

/// A copy that is no part of the document, so that the objects made from it may add to it and go.
/// Without references to other archives: a preset stands in its own.
QDomElement freeCopy(const QDomElement& element)
{
    QDomElement copy = element.cloneNode(true).toElement();
    for (QDomElement at = copy; !at.isNull();) {
        at.removeAttribute(QStringLiteral("archiveFilename"));
        if (!at.firstChildElement().isNull()) {
            at = at.firstChildElement();
            continue;
        }
        while (!at.isNull() && at != copy && at.nextSiblingElement().isNull())
            at = at.parentNode().toElement();
        at = at == copy ? QDomElement() : at.nextSiblingElement();
    }
    return copy;
}

QImage surfacePicture(const Surface& surface, const Wish& wish)
{
    Raster raster(wish.size, wish.size);
    Scene scene = studio(surface);
    const Ball ball = studioBall(surface);
    if (wish.isFlat)
        scene.drawFlat(raster, surface, ball.scale);
    else {
        scene.balls.push_back(ball);
        scene.draw(raster);
    }
    return raster.toImage();
}

/// Answers with a drawing of the surface that \p read makes of the library's object.
template <class Node, class Read>
Draw surfaceDrawing(const QDomElement& element, const Wish& wish, const Read& read)
{
    Node node(nullptr);
    node.SetDomNode(freeCopy(element));
    const Surface surface = read(&node);
    return [surface, wish] { return surfacePicture(surface, wish); };
}

} // namespace

bool isDrawable(const QDomElement& element)
{
    static const QStringList kinds{QStringLiteral("material"), QStringLiteral("colour"),
                                   QStringLiteral("finish"), QStringLiteral("transparency"),
                                   QStringLiteral("bump")};
    return kinds.contains(element.tagName());
}

Draw drawingOf(const QDomElement& element, const Wish& wish, TextureReader& textures)
{
    SurfaceReader reader(textures);
    const QString kind = element.tagName();
    if (kind == QLatin1String("material"))
        return surfaceDrawing<Material>(element, wish,
                                        [&](auto* n) { return reader.ofMaterial(n); });
    if (kind == QLatin1String("colour"))
        return surfaceDrawing<Colour>(element, wish, [&](auto* n) { return reader.ofColour(n); });
    if (kind == QLatin1String("finish"))
        return surfaceDrawing<Finish>(element, wish, [&](auto* n) { return reader.ofFinish(n); });
    if (kind == QLatin1String("transparency"))
        return surfaceDrawing<Transparency>(element, wish,
                                            [&](auto* n) { return reader.ofTransparency(n); });
    if (kind == QLatin1String("bump"))
        return surfaceDrawing<Bump>(element, wish, [&](auto* n) { return reader.ofBump(n); });
    return {};
}

} // namespace rvopen::drawing
