// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "ReadEverything.h"

#include <rvopen/ArtificialLightStudio.h>
#include <rvopen/Background.h>
#include <rvopen/Bump.h>
#include <rvopen/Camera.h>
#include <rvopen/Colour.h>
#include <rvopen/Finish.h>
#include <rvopen/Foreground.h>
#include <rvopen/Material.h>
#include <rvopen/MaterialRepository.h>
#include <rvopen/NaturalLightStudio.h>
#include <rvopen/Param.h>
#include <rvopen/RenderTarget.h>
#include <rvopen/RenderTargets.h>
#include <rvopen/Scenery.h>
#include <rvopen/Scheme.h>
#include <rvopen/ShaderColour.h>
#include <rvopen/ShaderDiffuse.h>
#include <rvopen/ShaderMap.h>
#include <rvopen/ShaderPlainColour.h>
#include <rvopen/SnapShot.h>
#include <rvopen/SnapShotSettings.h>
#include <rvopen/SnapShots.h>
#include <rvopen/Transparency.h>

#include <QDomElement>
#include <QStringList>

namespace rvopen::bench {

namespace {

void readNode(const RVOpenNode* node, Sum& sum)
{
    sum.add(node->GetName());
    sum.add(node->GetRefName());
    sum.add(node->GetSubCat());
}

class AccessorReader {
public:
    Sum sum;

    void snapShot(SnapShot* snapShot)
    {
        readNode(snapShot, sum);
        settings(snapShot->GetSnapShotSettings());
        scenery(snapShot->GetScenery());
        camera(snapShot->GetCamera());
        lights(snapShot);
        if (Scheme* const scheme = snapShot->GetScheme())
            readNode(scheme, sum);
        background(snapShot->GetBackground());
        foreground(snapShot->GetForeground());
        if (MaterialRepository* const palette = snapShot->GetMaterialRepository()) {
            readNode(palette, sum);
            for (Material* m = palette->GetFirstMaterial(); m; m = m->GetNext())
                material(m);
        }
        if (RenderTargets* const targets = snapShot->GetRenderTargets()) {
            readNode(targets, sum);
            for (RVOpenNode* t = targets->GetFirstRenderTarget(); t; t = t->GetNext(1))
                renderTarget(dynamic_cast<RenderTarget*>(t));
        }
    }

    void withCamera(SnapShot* snapShot)
    {
        readNode(snapShot, sum);
        camera(snapShot->GetCamera());
    }

private:
    template <typename Object>
    void number(Object* object, unsigned int (Object::*get)(float*))
    {
        float value = 0.0f;
        (object->*get)(&value);
        sum.add(static_cast<double>(value));
    }
    template <typename Object>
    void integer(Object* object, unsigned int (Object::*get)(int*))
    {
        int value = 0;
        (object->*get)(&value);
        sum.add(value);
    }
    template <typename Object>
    void triple(Object* object, unsigned int (Object::*get)(float*))
    {
        float value[3] = {};
        (object->*get)(value);
        sum.add(value);
    }

    void settings(SnapShotSettings* settings)
    {
        if (!settings)
            return;
        readNode(settings, sum);
        number(settings, &SnapShotSettings::GetAmbientLightsIntensityScale);
        number(settings, &SnapShotSettings::GetTwist);
        float up[3] = {};
        float north[3] = {};
        float front[3] = {};
        settings->GetOrientationInfo(up, north, front);
        sum.add(up);
        sum.add(north);
        sum.add(front);
        Param* const image =
            settings->GetParamHelper()->GetParam(QStringLiteral("Image File Name"));
        sum.add(image ? image->GetValString() : QString());
        sum.add(settings->GetSessionName());
        float intensity = 0.0f;
        sum.add(settings->GetBackgroundReflected(&intensity));
        sum.add(static_cast<double>(intensity));
        integer(settings, &SnapShotSettings::GetReflectBackPlate);
        integer(settings, &SnapShotSettings::IsSelected);
    }

    void scenery(Scenery* scenery)
    {
        if (!scenery)
            return;
        readNode(scenery, sum);
        integer(scenery, &Scenery::GetDropShadowEnabled);
        integer(scenery, &Scenery::GetDropSunLightEnabled);
        integer(scenery, &Scenery::GetDropReflectionEnabled);
        integer(scenery, &Scenery::GetDropShadowQuality);
        number(scenery, &Scenery::GetDropShadowContrast);
        number(scenery, &Scenery::GetDropSunLightBrightness);
        number(scenery, &Scenery::GetDropReflectionBrightness);
        number(scenery, &Scenery::GetDropReflectionBlur);
        number(scenery, &Scenery::GetBaseSize);
        integer(scenery, &Scenery::GetDropShadowCatchSpots);
    }

    void camera(Camera* camera)
    {
        if (!camera)
            return;
        readNode(camera, sum);
        float from[3] = {};
        float to[3] = {};
        float up[3] = {};
        int orthographic = 0;
        float fieldOfView = 0.0f;
        camera->GetPinhole(from, to, up, &orthographic, &fieldOfView);
        sum.add(from);
        sum.add(to);
        sum.add(up);
        sum.add(orthographic);
        sum.add(static_cast<double>(fieldOfView));
        value(camera, QStringLiteral("Near"));
        value(camera, QStringLiteral("Far"));
        integer(camera, &Camera::GetViewFit);
    }

    void lights(SnapShot* snapShot)
    {
        if (NaturalLightStudio* const sun = snapShot->GetNaturalLightStudio()) {
            readNode(sun, sum);
            integer(sun, &NaturalLightStudio::GetEnabled);
            number(sun, &NaturalLightStudio::GetSunAzimuth);
            number(sun, &NaturalLightStudio::GetSunAltitude);
        }
        ArtificialLightStudio* const lamps = snapShot->GetArtificialLightStudio();
        readNode(lamps, sum);
        integer(lamps, &ArtificialLightStudio::GetEnabled);
        number(lamps, &ArtificialLightStudio::GetIntensityScale);
    }

    void background(Background* background)
    {
        if (!background)
            return;
        readNode(background, sum);
        triple(background, &Background::GetSkyColour);
        triple(background, &Background::GetHorizonSkyColour);
        triple(background, &Background::GetHorizonGroundColour);
        triple(background, &Background::GetGroundColour);
    }

    void foreground(Foreground* foreground)
    {
        if (!foreground)
            return;
        readNode(foreground, sum);
        triple(foreground, &Foreground::GetDepthCueBackgroundColour);
        number(foreground, &Foreground::GetDepthCueNear);
        number(foreground, &Foreground::GetDepthCueFar);
    }

    void value(RVOpenNode* node, const QString& name)
    {
        float value = 0.0f;
        node->GetParamHelper()->GetValFloat(name, &value);
        sum.add(static_cast<double>(value));
    }

    void material(Material* material)
    {
        readNode(material, sum);
        sum.add(material->GetLinkName());
        if (Colour* const colour = material->GetColour(0)) {
            readNode(colour, sum);
            ShaderDiffuse* const diffuse = colour->GetDiffuse();
            readNode(diffuse, sum);
            shaderColour(diffuse->GetColour());
        }
        if (Finish* const finish = material->GetFinish()) {
            readNode(finish, sum);
            value(finish, QStringLiteral("diffuse factor"));
            value(finish, QStringLiteral("specular factor"));
            value(finish, QStringLiteral("transmission factor"));
            value(finish, QStringLiteral("mirror factor"));
            value(finish, QStringLiteral("roughness"));
            value(finish, QStringLiteral("refraction"));
            value(finish, QStringLiteral("light intensity"));
            value(finish, QStringLiteral("object area"));
            value(finish, QStringLiteral("object size"));
            float light[3] = {};
            finish->GetParamHelper()->GetValColour(QStringLiteral("light colour"), light);
            sum.add(light);
        }
        if (Transparency* const transparency = material->GetTransparency(0)) {
            readNode(transparency, sum);
            integer(transparency, &Transparency::GetInvertMask);
            shaderColour(transparency->GetColour());
        }
        if (Bump* const bump = material->GetBump(0)) {
            readNode(bump, sum);
            integer(bump, &Bump::GetUseDiffuse);
            integer(bump, &Bump::GetIsNormalMap);
            number(bump, &Bump::GetHeight);
            number(bump, &Bump::GetSoftness);
            shaderColour(bump->GetColour());
        }
    }

    void shaderColour(ShaderColour* colour)
    {
        sum.add(colour->GetValShaderType());
        if (ShaderPlainColour* const plain = colour->GetPlainColour(0)) {
            readNode(plain, sum);
            triple(plain, &ShaderPlainColour::GetColour);
        }
        if (ShaderMap* const map = colour->GetMap(0)) {
            readNode(map, sum);
            sum.add(map->GetTexture());
            number(map, &ShaderMap::GetWidth);
            number(map, &ShaderMap::GetHeight);
            float offset[2] = {};
            map->GetOffset(offset, offset + 1);
            sum.add(static_cast<double>(offset[0]));
            sum.add(static_cast<double>(offset[1]));
            int mapping[2] = {};
            map->GetMapping(mapping, mapping + 1);
            sum.add(mapping[0]);
            sum.add(mapping[1]);
            number(map, &ShaderMap::GetRotation);
            integer(map, &ShaderMap::GetUseAlpha);
        }
    }

    void renderTarget(RenderTarget* target)
    {
        if (!target)
            return;
        readNode(target, sum);
        integer(target, &RenderTarget::GetLightingQuality);
        integer(target, &RenderTarget::GetMaterialQuality);
        sum.add(target->GetRenderQuality());
        number(target, &RenderTarget::GetModelHint);
        integer(target, &RenderTarget::GetWidth);
        integer(target, &RenderTarget::GetHeight);
        integer(target, &RenderTarget::GetUseAspectRatio);
        number(target, &RenderTarget::GetAspectRatio);
        integer(target, &RenderTarget::GetLandscape);
        sum.add(target->GetFileName());
        sum.add(target->GetShortFileName());
        sum.add(target->GetOutputFormat());
        number(target, &RenderTarget::GetGamma);
    }
};

/// Any parameter, by its type.
void readParam(Param* param, Sum& sum)
{
    sum.add(param->GetName());
    float triple[3] = {};
    if (param->GetValFloat(triple) == 0) {
        sum.add(static_cast<double>(triple[0]));
        return;
    }
    int integer = 0;
    if (param->GetValBool(&integer) == 0 || param->GetValInt(&integer) == 0) {
        sum.add(integer);
        return;
    }
    if (param->GetValColour(triple) == 0 || param->GetValVector(triple) == 0 ||
        param->GetValPoint(triple) == 0) {
        sum.add(triple);
        return;
    }
    sum.add(param->IsString() ? param->GetValString() : param->GetValShaderType());
}

void readTree(RVOpenNode* node, Sum& sum)
{
    if (!node)
        return;
    if (auto* const param = dynamic_cast<Param*>(node))
        readParam(param, sum);
    else
        readNode(node, sum);
    for (RVOpenNode* child = node->GetChild(1, 1); child; child = child->GetNext(1))
        readTree(child, sum);
}

template <typename Visit>
void forEachSnapShot(SnapShots* collection, Visit visit)
{
    for (SnapShot* s = collection->GetFirstSnapShot(); s; s = s->GetNext())
        visit(s);
}

void readTriple(const QString& text, float* out)
{
    const QStringList numbers = text.split(QLatin1Char(' '));
    for (int i = 0; i < 3 && i < numbers.size(); ++i)
        out[i] = numbers[i].toFloat();
}

void readParamByHand(const QDomElement& element, float unitsScale, Sum& sum)
{
    sum.add(element.attribute(QStringLiteral("name")));
    const QString type = element.attribute(QStringLiteral("type"));
    const QString value = element.attribute(QStringLiteral("val"));
    if (type == QLatin1String("float")) {
        float number = value.toFloat();
        if (element.attribute(QStringLiteral("prop")).contains(QLatin1Char('D')))
            number /= unitsScale;
        sum.add(static_cast<double>(number));
    } else if (type == QLatin1String("boolean")) {
        sum.add(value.toInt() >= 1 ? 1 : 0);
    } else if (type == QLatin1String("integer")) {
        sum.add(value.toInt());
    } else if (type == QLatin1String("colour") || type == QLatin1String("vector") ||
               type == QLatin1String("point")) {
        float triple[3] = {};
        readTriple(value, triple);
        sum.add(triple);
    } else {
        sum.add(value);
    }
}

void walkByHand(const QDomNode& parent, float unitsScale, Sum& sum)
{
    for (QDomNode node = parent.firstChild(); !node.isNull(); node = node.nextSibling()) {
        const QDomElement element = node.toElement();
        const QString tag = element.tagName();
        if (tag == QLatin1String("param")) {
            readParamByHand(element, unitsScale, sum);
        } else {
            sum.add(element.attribute(QStringLiteral("name")));
            sum.add(element.attribute(QStringLiteral("refname")));
            sum.add(element.attribute(QStringLiteral("subcat")));
            if (tag == QLatin1String("material"))
                sum.add(element.attribute(QStringLiteral("linkname")));
        }
        walkByHand(node, unitsScale, sum);
    }
}

} // namespace

Sum readByAccessors(SnapShots* collection)
{
    AccessorReader reader;
    forEachSnapShot(collection, [&](SnapShot* snapShot) { reader.snapShot(snapShot); });
    return reader.sum;
}

Sum readCameras(SnapShots* collection)
{
    AccessorReader reader;
    forEachSnapShot(collection, [&](SnapShot* snapShot) { reader.withCamera(snapShot); });
    return reader.sum;
}

Sum readParameters(SnapShots* collection)
{
    Sum sum;
    forEachSnapShot(collection, [&](SnapShot* snapShot) {
        readNode(snapShot, sum);
        readTree(snapShot->GetSnapShotSettings(), sum);
        readTree(snapShot->GetScenery(), sum);
        readTree(snapShot->GetCamera(), sum);
        readTree(snapShot->GetNaturalLightStudio(), sum);
        readTree(snapShot->GetArtificialLightStudio(), sum);
        readTree(snapShot->GetScheme(), sum);
        readTree(snapShot->GetBackground(), sum);
        readTree(snapShot->GetForeground(), sum);
        readTree(snapShot->GetMaterialRepository(), sum);
        readTree(snapShot->GetRenderTargets(), sum);
    });
    return sum;
}

Sum readTree(RVOpenNode* node)
{
    Sum sum;
    readTree(node, sum);
    return sum;
}

Sum readByHand(const QDomNode& collection)
{
    Sum sum;
    const QDomElement root = collection.ownerDocument().documentElement();
    walkByHand(collection, root.attribute(QStringLiteral("unitsScale")).toFloat(), sum);
    return sum;
}

long materialise(RVOpenNode* node)
{
    long count = 1;
    for (RVOpenNode* child = node->GetChild(1, 1); child; child = child->GetNext(1))
        count += materialise(child);
    return count;
}

} // namespace rvopen::bench
