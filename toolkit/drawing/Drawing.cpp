// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "Drawing.h"

#include "Backdrop.h"
#include "Diagrams.h"
#include "Sky.h"
#include "SnapShotPicture.h"
#include "Studio.h"
#include "toolkit/documents/Processors.h"
#include "toolkit/documents/Stopping.h"

#include <rvopen/AspectRatio.h>
#include <rvopen/AspectRatioOrient.h>
#include <rvopen/Background.h>
#include <rvopen/Bump.h>
#include <rvopen/Camera.h>
#include <rvopen/Colour.h>
#include <rvopen/Finish.h>
#include <rvopen/Foreground.h>
#include <rvopen/Lens.h>
#include <rvopen/Material.h>
#include <rvopen/NaturalLightStudio.h>
#include <rvopen/Scheme.h>
#include <rvopen/SnapShot.h>
#include <rvopen/Transparency.h>

#include <algorithm>

namespace rvopen::toolkit::drawing {

namespace {

/// Without references to other archives: a preset stands in its own.
void forgetArchives(const QDomElement& top)
{
    for (QDomElement at = top; !at.isNull();) {
        at.removeAttribute(QStringLiteral("archiveFilename"));
        if (!at.firstChildElement().isNull()) {
            at = at.firstChildElement();
            continue;
        }
        while (!at.isNull() && at != top && at.nextSiblingElement().isNull())
            at = at.parentNode().toElement();
        at = at == top ? QDomElement() : at.nextSiblingElement();
    }
}

QImage surfacePicture(const Surface& surface, const PictureWish& wish)
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
    raster.rollOff();
    return raster.toImage();
}

/// What draws one kind of element.
using Prepare = Draw (*)(const QDomElement&, const PictureWish&, TextureReader&);

/// Binds a library object of the kind to a copy of the element.
template <class Node>
class Bound {
public:
    explicit Bound(const QDomElement& element)
        : m_copy(element)
        , m_node(nullptr)
    {
        m_node.SetDomNode(m_copy.element());
    }

    Node* operator->()
    {
        return &m_node;
    }

    Node* get()
    {
        return &m_node;
    }

private:
    FreeCopy m_copy;
    Node m_node;
};

/// A picture of the surface that the reader makes of the library's object.
template <class Node, Surface (SurfaceReader::*read)(Node*)>
Draw surfaceDrawing(const QDomElement& element, const PictureWish& wish, TextureReader& textures)
{
    Bound<Node> node(element);
    const Surface surface = (SurfaceReader(textures).*read)(node.get());
    return [surface, wish] { return surfacePicture(surface, wish); };
}

/// A picture of \p width to \p height that \p paint fills.
template <class Paint>
Draw painted(const PictureWish& wish, const Paint& paint, int width = 1, int height = 1)
{
    return [wish, paint, width, height] {
        Raster raster(wish.size, std::max(wish.size * height / width, 1));
        paint(raster);
        return raster.toImage();
    };
}

Draw backgroundDrawing(const QDomElement& element, const PictureWish& wish, TextureReader& textures)
{
    Bound<Background> node(element);
    return painted(wish, [backdrop = readBackdrop(node.get(), textures)](Raster& raster) {
        drawBackdrop(raster, backdrop);
    });
}

Draw foregroundDrawing(const QDomElement& element, const PictureWish& wish, TextureReader&)
{
    Bound<Foreground> node(element);
    return painted(wish, [mist = readMist(node.get())](Raster& raster) { drawMist(raster, mist); });
}

Draw lightDrawing(const QDomElement& element, const PictureWish& wish, TextureReader&)
{
    Bound<NaturalLightStudio> node(element);
    return painted(wish, [sun = readSun(node.get())](Raster& raster) { drawSky(raster, sun); });
}

Draw cameraDrawing(const QDomElement& element, const PictureWish& wish, TextureReader&)
{
    Bound<Camera> node(element);
    return painted(
        wish, [camera = readCamera(node.get())](Raster& raster) { drawCamera(raster, camera); });
}

Draw lensDrawing(const QDomElement& element, const PictureWish& wish, TextureReader&)
{
    Bound<Lens> node(element);
    float angle = 45;
    node->GetAngle(&angle);
    const double degrees = std::isfinite(angle) ? clamped(double(angle), 0.5, 179) : 45;
    return painted(wish, [degrees](Raster& raster) { drawAngle(raster, degrees); });
}

Draw aspectDrawing(const QDomElement& element, const PictureWish& wish, TextureReader&)
{
    Bound<AspectRatio> node(element);
    float ratio = 1;
    node->GetAspectRatio(&ratio);
    return painted(wish, [ratio](Raster& raster) { drawAspectRatio(raster, double(ratio)); });
}

Draw orientationDrawing(const QDomElement& element, const PictureWish& wish, TextureReader&)
{
    Bound<AspectRatioOrient> node(element);
    int isPortrait = 0;
    node->IsPortrait(&isPortrait);
    return painted(wish, [isPortrait](Raster& raster) { drawOrientation(raster, isPortrait); });
}

Draw schemeDrawing(const QDomElement& element, const PictureWish& wish, TextureReader& textures)
{
    Bound<Scheme> node(element);
    const SchemeKind kind = schemeKind(*node.get());
    return painted(wish, [kind, backdrop = readBackdrop(node->GetBackground(), textures)](
                             Raster& raster) { drawScheme(raster, kind, backdrop); });
}

/// Pictures of snapshots are as wide as photographs.
Draw snapShotDrawing(const QDomElement& element, const PictureWish& wish, TextureReader& textures)
{
    const FreeCopy copy(element);
    SnapShot snapShot(copy.element());
    return painted(
        wish,
        [values = readSnapShot(&snapShot, textures)](Raster& raster) {
            drawSnapShot(raster, values);
        },
        4, 3);
}

Prepare prepareFor(const QString& kind)
{
    static const QHash<QString, Prepare> kinds{
        {QStringLiteral("material"), surfaceDrawing<Material, &SurfaceReader::ofMaterial>},
        {QStringLiteral("colour"), surfaceDrawing<Colour, &SurfaceReader::ofColour>},
        {QStringLiteral("finish"), surfaceDrawing<Finish, &SurfaceReader::ofFinish>},
        {QStringLiteral("transparency"),
         surfaceDrawing<Transparency, &SurfaceReader::ofTransparency>},
        {QStringLiteral("bump"), surfaceDrawing<Bump, &SurfaceReader::ofBump>},
        {QStringLiteral("background"), backgroundDrawing},
        {QStringLiteral("foreground"), foregroundDrawing},
        {QStringLiteral("naturalLightStudio"), lightDrawing},
        {QStringLiteral("camera"), cameraDrawing},
        {QStringLiteral("lens"), lensDrawing},
        {QStringLiteral("aspectratio"), aspectDrawing},
        {QStringLiteral("aspectratioorient"), orientationDrawing},
        {QStringLiteral("scheme"), schemeDrawing},
        {QStringLiteral("snapshot"), snapShotDrawing}};
    return kinds.value(kind, nullptr);
}

} // namespace

FreeCopy::FreeCopy(const QDomElement& element)
    : m_element(m_document.importNode(element, true).toElement())
{
    const QDomDocument document = element.ownerDocument();
    const QString snapRoot = QStringLiteral("snapRoot");
    QDomElement root = document.documentElement();
    if (root.tagName() != snapRoot)
        root = document.elementsByTagName(snapRoot).at(0).toElement();
    if (!root.isNull())
        m_document.appendChild(m_document.importNode(root, false));
    forgetArchives(m_element);
}

QDomElement FreeCopy::element() const
{
    return m_element;
}

bool isDrawable(const QString& kind)
{
    return prepareFor(kind) != nullptr;
}

Draw drawingOf(const QDomElement& element, const PictureWish& wish, TextureReader& textures)
{
    const Prepare prepare = prepareFor(element.tagName());
    return prepare ? prepare(element, wish, textures) : Draw();
}

PictureWish possible(const PictureWish& wish)
{
    PictureWish result = wish;
    result.size = std::clamp(wish.size, MinPictureSize, MaxPictureSize);
    return result;
}

std::vector<QImage> drawnTogether(const std::vector<Draw>& drawings)
{
    std::vector<QImage> images(drawings.size());
    const std::atomic<bool>* const stop = stopFlag();
    forEachPiece(drawings.size(), [&](std::size_t i) {
        const Stoppable stoppable(stop);
        if (!isStopped())
            images[i] = drawings[i]();
    });
    return images;
}

} // namespace rvopen::toolkit::drawing
