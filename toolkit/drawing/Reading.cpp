// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "Reading.h"

#include "Raster.h"
#include "toolkit/images/ImageFiles.h"

#include <rvopen/Bump.h>
#include <rvopen/Colour.h>
#include <rvopen/Finish.h>
#include <rvopen/Material.h>
#include <rvopen/ParamHelper.h>
#include <rvopen/ShaderColour.h>
#include <rvopen/ShaderDiffuse.h>
#include <rvopen/ShaderMap.h>
#include <rvopen/ShaderPlainColour.h>
#include <rvopen/Transparency.h>

#include <QImage>

#include <utility>

namespace rvopen::toolkit::drawing {

namespace {

/// Textures that are kept for the next one that uses them.
constexpr int s_maxKnown = 16;
/// Base materials of base materials that are looked at.
constexpr int s_maxBases = 8;

/// \name Colours of what has none
/// @{
constexpr unsigned int s_neutral = 0xb4b2ae;
constexpr unsigned int s_finishColour = 0x8299b0;
constexpr unsigned int s_metalColour = 0xc6c8ca;
constexpr unsigned int s_glassColour = 0xe6efec;
/// @}

double finite(float value, double otherwise, double low, double high)
{
    return std::isfinite(value) ? clamped(double(value), low, high) : otherwise;
}

/// What is drawn where the element says nothing else.
Surface plainSurface(unsigned int colour)
{
    Surface surface;
    surface.paint.colour = fromHex(colour);
    return surface;
}

/// Chequers, for an image of a surface that is not there.
std::shared_ptr<const Texture> chequers()
{
    static const auto texture = [] {
        QImage image(16, 16, QImage::Format_RGB32);
        for (int y = 0; y < 16; ++y) {
            for (int x = 0; x < 16; ++x)
                image.setPixel(x, y, (x / 8 + y / 8) % 2 ? 0xffb8b4ac : 0xffd6d3cc);
        }
        return std::make_shared<const Texture>(image);
    }();
    return texture;
}

/// Round holes, for a mask that is not there.
std::shared_ptr<const Texture> holes()
{
    static const auto texture = [] {
        QImage image(64, 64, QImage::Format_ARGB32);
        for (int y = 0; y < 64; ++y) {
            for (int x = 0; x < 64; ++x) {
                const int dx = (x % 16) * 2 - 15;
                const int dy = (y % 16) * 2 - 15;
                image.setPixel(x, y, dx * dx + dy * dy < 90 ? 0x00000000 : 0xffffffff);
            }
        }
        return std::make_shared<const Texture>(image, TextureUse::Data);
    }();
    return texture;
}

/// Grain, for a bump that is not there: random heights from a linear congruential generator (the
/// constants are those of D. E. Knuth's MMIX), smoothed.
std::shared_ptr<const Texture> grain()
{
    static const auto texture = [] {
        constexpr int side = 64;
        std::vector<int> heights(side * side);
        quint64 state = 1;
        for (int& height : heights) {
            state = state * 6364136223846793005ULL + 1442695040888963407ULL;
            height = int(state >> 56U);
        }
        QImage image(side, side, QImage::Format_RGB32);
        for (int y = 0; y < side; ++y) {
            for (int x = 0; x < side; ++x) {
                int sum = 0;
                for (int i = 0; i < 9; ++i)
                    sum += heights[std::size_t((y + i / 3) % side * side + (x + i % 3) % side)];
                image.setPixel(x, y, qRgb(sum / 9, sum / 9, sum / 9));
            }
        }
        return std::make_shared<const Texture>(image, TextureUse::Heights);
    }();
    return texture;
}

/// The shader of a colour, null where it is not enabled or has none.
ShaderColour* shaderOf(Colour* colour)
{
    ShaderDiffuse* const diffuse = colour && colour->IsEnabled() ? colour->GetDiffuse() : nullptr;
    return diffuse && diffuse->IsEnabled() ? diffuse->GetColour() : nullptr;
}

Mapping mappingOf(ShaderMap* map)
{
    Mapping mapping;
    float value = 1;
    const auto side = [&value](unsigned int status) {
        return status == 0 && value > 0 ? finite(value, 1, 1e-4, 1e6) : 1.0;
    };
    mapping.width = side(map->GetWidth(&value));
    mapping.height = side(map->GetHeight(&value));
    float s = 0;
    float t = 0;
    map->GetOffset(&s, &t);
    mapping.sOffset = finite(s, 0, -1e6, 1e6);
    mapping.tOffset = finite(t, 0, -1e6, 1e6);
    float rotation = 0;
    map->GetRotation(&rotation);
    mapping.rotation = finite(rotation, 0, -1e6, 1e6);
    int isReflectedS = 0;
    int isReflectedT = 0;
    map->GetMapping(&isReflectedS, &isReflectedT);
    mapping.isReflectedS = isReflectedS != 0;
    mapping.isReflectedT = isReflectedT != 0;
    return mapping;
}

} // namespace

TextureReader::TextureReader(FindFile find)
    : m_find(std::move(find))
{
}

TextureReader::~TextureReader() = default;

std::shared_ptr<const Texture> TextureReader::texture(const QString& reference, TextureUse use)
{
    const QString path = reference.isEmpty() || !m_find ? QString() : m_find(reference);
    if (path.isEmpty())
        return nullptr;
    const QPair<QString, int> key(path, int(use));
    const auto known = m_known.constFind(key);
    if (known != m_known.constEnd())
        return *known;
    const QImage image = readImage(path);
    if (m_known.size() >= s_maxKnown)
        m_known.clear();
    const auto result = image.isNull() ? nullptr : std::make_shared<const Texture>(image, use);
    m_known.insert(key, result);
    return result;
}

SurfaceReader::SurfaceReader(TextureReader& textures)
    : m_textures(textures)
{
}

Surface SurfaceReader::ofMaterial(Material* material)
{
    Surface surface = plainSurface(s_neutral);
    read(material, surface);
    return surface;
}

Surface SurfaceReader::ofColour(Colour* colour)
{
    Surface surface = plainSurface(s_neutral);
    surface.factors.specular = 0.5;
    surface.factors.mirror = 0.04;
    surface.factors.roughness = 0.35;
    surface.factors.diffuse = 0.95;
    read(colour, surface);
    return surface;
}

Surface SurfaceReader::ofFinish(Finish* finish)
{
    Surface surface;
    read(finish, surface);
    surface.paint.hasColour = true;
    surface.paint.colour = fromHex(surface.isGlass()           ? s_glassColour
                                   : surface.metalness() > 0.5 ? s_metalColour
                                                               : s_finishColour);
    return surface;
}

Surface SurfaceReader::ofTransparency(Transparency* transparency)
{
    Surface surface = plainSurface(s_finishColour);
    surface.factors.specular = 0.4;
    surface.factors.roughness = 0.3;
    read(transparency, surface);
    return surface;
}

Surface SurfaceReader::ofBump(Bump* bump)
{
    Surface surface = plainSurface(s_neutral);
    surface.factors.specular = 0.6;
    surface.factors.mirror = 0.04;
    surface.factors.roughness = 0.4;
    read(bump, nullptr, surface);
    return surface;
}

void SurfaceReader::read(Material* material, Surface& surface)
{
    Colour* colour = nullptr;
    Finish* finish = nullptr;
    Transparency* transparency = nullptr;
    Bump* bump = nullptr;
    // What a material lacks its base material has.
    for (int i = 0; material && i < s_maxBases; ++i) {
        colour = colour ? colour : material->GetColour(0);
        finish = finish ? finish : material->GetFinish();
        transparency = transparency ? transparency : material->GetTransparency(0);
        bump = bump ? bump : material->GetBump(0);
        material = material->GetBaseMaterial();
    }
    if (colour)
        read(colour, surface);
    if (finish)
        read(finish, surface);
    if (transparency)
        read(transparency, surface);
    if (bump)
        read(bump, colour, surface);
}

void SurfaceReader::read(Colour* colour, Surface& surface)
{
    ShaderColour* const shader = shaderOf(colour);
    if (!shader)
        return;
    const Rgb otherwise = surface.paint.colour;
    surface.paint = paintOf(shader, TextureUse::Colour, chequers());
    if (!surface.paint.hasColour)
        surface.paint.colour = otherwise;
}

void SurfaceReader::read(Finish* finish, Surface& surface)
{
    if (!finish->IsEnabled())
        return;
    ParamHelper* const params = finish->GetParamHelper();
    const auto get = [params](const char* name, double otherwise, double low, double high) {
        float value = 0;
        return params->GetValFloat(QLatin1String(name), &value) == 0
                   ? finite(value, otherwise, low, high)
                   : otherwise;
    };
    Factors& factors = surface.factors;
    factors.diffuse = get("diffuse factor", factors.diffuse, 0, 1);
    factors.specular = get("specular factor", factors.specular, 0, 1);
    factors.transmission = get("transmission factor", factors.transmission, 0, 1);
    factors.mirror = get("mirror factor", factors.mirror, 0, 1);
    factors.roughness = get("roughness", factors.roughness, 0, 1);
    factors.refraction = get("refraction", factors.refraction, 1, 5);
    factors.light = get("light intensity", factors.light, 0, 1e6);
    float colour[3] = {1, 1, 1};
    if (params->GetValColour(QStringLiteral("light colour"), colour) == 0)
        factors.lightColour = toLinear(withinUnit(colour));
}

void SurfaceReader::read(Transparency* transparency, Surface& surface)
{
    ShaderColour* const shader = transparency->IsEnabled() ? transparency->GetColour() : nullptr;
    if (!shader)
        return;
    const Paint paint = paintOf(shader, TextureUse::Data, holes());
    if (!paint.hasColour && !paint.texture)
        return;
    surface.opacity = paint;
    // The plain colour of a mask is no ground for its image.
    if (paint.texture)
        surface.opacity.hasColour = false;
    int isInverted = 0;
    transparency->GetInvertMask(&isInverted);
    surface.isMaskInverted = isInverted != 0;
}

void SurfaceReader::read(Bump* bump, Colour* colour, Surface& surface)
{
    if (!bump->IsEnabled())
        return;
    int usesDiffuse = 0;
    int isNormalMap = 0;
    float height = 0.5F;
    float softness = 0;
    bump->GetUseDiffuse(&usesDiffuse);
    bump->GetIsNormalMap(&isNormalMap);
    bump->GetHeight(&height);
    bump->GetSoftness(&softness);
    // Colours are no normals.
    surface.isNormalMap = isNormalMap && !usesDiffuse;
    surface.bumpHeight = finite(height, 0, -10, 10);
    surface.bumpSoftness = finite(softness, 0, 0, 1);
    ShaderColour* const shader = usesDiffuse ? shaderOf(colour) : bump->GetColour();
    if (!shader)
        return;
    surface.bump = paintOf(shader, surface.isNormalMap ? TextureUse::Data : TextureUse::Heights,
                           surface.isNormalMap || usesDiffuse ? nullptr : grain());
}

Paint SurfaceReader::paintOf(ShaderColour* shader, TextureUse use,
                             const std::shared_ptr<const Texture>& standIn)
{
    Paint paint;
    ShaderPlainColour* const plain = shader->GetPlainColour(0);
    ShaderMap* const map = shader->GetMap(0);
    float rgb[3] = {0.5F, 0.5F, 0.5F};
    if (plain && plain->GetColour(rgb) == 0) {
        paint.hasColour = true;
        const Vec stored = withinUnit(rgb);
        paint.colour = use == TextureUse::Colour ? toLinear(stored) : stored;
    }
    if (!map || !map->IsEnabled())
        return paint;
    paint.mapping = mappingOf(map);
    paint.texture = m_textures.texture(map->GetTexture(), use);
    if (paint.texture) {
        int usesAlpha = 0;
        map->GetUseAlpha(&usesAlpha);
        paint.usesAlpha = usesAlpha != 0;
        // A plain colour that is switched off is no ground for the image.
        paint.hasColour = paint.hasColour && plain->IsEnabled();
    } else if (!paint.hasColour)
        paint.texture = standIn;
    return paint;
}

} // namespace rvopen::toolkit::drawing
