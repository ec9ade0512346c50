// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "Vocabulary.h"

#include <rvopen/ArtificialLightStudio.h>
#include <rvopen/Background.h>
#include <rvopen/Bump.h>
#include <rvopen/Camera.h>
#include <rvopen/Colour.h>
#include <rvopen/Finish.h>
#include <rvopen/Foreground.h>
#include <rvopen/NaturalLightStudio.h>
#include <rvopen/RVOpenSchema.h>
#include <rvopen/RVOpenVocabulary.h>
#include <rvopen/RenderTarget.h>
#include <rvopen/Scenery.h>
#include <rvopen/ShaderColour.h>
#include <rvopen/ShaderDiffuse.h>
#include <rvopen/ShaderMap.h>
#include <rvopen/ShaderPlainColour.h>
#include <rvopen/SnapShotSettings.h>
#include <rvopen/Transparency.h>

#include <QDomDocument>

#include <type_traits>

namespace rvopen::tools {

namespace {

const QLatin1String s_param("param");

QSet<QString> set(std::initializer_list<const char*> names)
{
    QSet<QString> result;
    for (const char* name : names)
        result.insert(QLatin1String(name));
    return result;
}

/// The parameters that an object of the class has after \p fill.
template <typename Class, typename Fill>
ParamInfos learn(const char* element, const QString& subCat, Fill fill)
{
    QDomDocument document;
    QDomElement node = document.createElement(QLatin1String(element));
    document.appendChild(node);
    ParamInfos infos;
    {
        Class* object;
        if constexpr (std::is_default_constructible_v<Class>)
            object = new Class();
        else
            object = new Class(static_cast<Class*>(nullptr));
        object->SetDomNode(node);
        if (!subCat.isEmpty())
            object->SetSubCat(subCat);
        fill(*object);
        for (QDomElement child = node.firstChildElement(s_param); !child.isNull();
             child = child.nextSiblingElement(s_param)) {
            infos.insert(child.attribute(QStringLiteral("name")),
                         {child.attribute(QStringLiteral("type")),
                          child.attribute(QStringLiteral("prop")).contains(QLatin1Char('D'))});
        }
        delete object;
    }
    return infos;
}

template <typename Class>
void populate(Class& object)
{
    object.PopulateParams();
}

ParamInfos one(const char* name, const char* type)
{
    return {{QLatin1String(name), {QLatin1String(type), false}}};
}

} // namespace

const Vocabulary& Vocabulary::instance()
{
    static const Vocabulary vocabulary;
    return vocabulary;
}

Vocabulary::Vocabulary()
    : m_components(set({"camera", "snapShotSettings", "naturalLightStudio", "artificialLightStudio",
                        "scheme", "background", "foreground", "materialRepository", "renderTargets",
                        "scenery"}))
    , m_types(set({"float", "integer", "boolean", "string", "shader", "colour", "vector", "point"}))
    , m_attributes(
          set({"name", "cat", "desc", "subcat", "path", "refname", "imgname", "archiveFilename",
               "archiveType", "ImageBorder", "enabled", "translationDisabled", "custom", "reset",
               "thumbRegenerated", "xmlImage", "shaderClass"}))
{
    for (const ArchiveSection& section : ArchiveSections()) {
        m_sections.insert(section.element);
        for (const QString& preset : section.presets)
            m_presets.insert(preset);
    }
    m_elements = m_sections + m_presets + m_components +
                 set({"snapRoot", "presets", "snapshots", "snapshot", "dir", "param", "diffuse",
                      "plainColour", "map", "renderTarget"});
    m_ownAttributes = {
        {s_param, set({"name", "type", "val", "prop", "rangeMin", "rangeMax", "centre", "range"})},
        {QStringLiteral("material"), set({"linkname"})},
        {QStringLiteral("snapRoot"), set({"type", "zorvane_version", "unitsScale"})},
        {QStringLiteral("presets"), set({"type", "zorvane_version", "unitsScale"})},
    };

    const QString any;
    const auto add = [this](const char* element, const QString& kind, const ParamInfos& infos) {
        m_params[QLatin1String(element)].insert(kind, infos);
    };
    add("artificialLightStudio", any,
        learn<ArtificialLightStudio>("artificialLightStudio", any,
                                     populate<ArtificialLightStudio>));
    add("naturalLightStudio", any,
        learn<NaturalLightStudio>("naturalLightStudio", any, populate<NaturalLightStudio>));
    add("camera", any, learn<Camera>("camera", any, populate<Camera>));
    add("foreground", QStringLiteral("Depth Cue"),
        learn<Foreground>("foreground", QStringLiteral("Depth Cue"), populate<Foreground>));
    for (const char* kind : {"Plain", "Graduated", "Horizon", "Image", "Image3D", "Reflection"}) {
        add("background", QLatin1String(kind),
            learn<Background>("background", QLatin1String(kind), populate<Background>));
    }
    add("renderTarget", any, learn<RenderTarget>("renderTarget", any, populate<RenderTarget>));
    add("scenery", any, learn<Scenery>("scenery", any, [](Scenery& scenery) {
            scenery.PopulateParams();
            scenery.SetDropShadowCatchSpots(1);
        }));
    add("snapShotSettings", any,
        learn<SnapShotSettings>("snapShotSettings", any, [](SnapShotSettings& settings) {
            settings.PopulateParams();
            settings.SetSelected(1);
            settings.SetReflectBackPlate(1);
        }));
    add("finish", QStringLiteral("lit appearance"),
        learn<Finish>("finish", any, [](Finish& finish) {
            finish.SetAndPopulateShaderClass(QStringLiteral("lit appearance"));
        }));
    add("bump", any, learn<Bump>("bump", any, [](Bump& bump) {
            bump.SetUseDiffuse(0);
            bump.SetIsNormalMap(0);
            bump.SetHeight(0);
            bump.SetSoftness(0);
            bump.GetColour();
        }));
    add("transparency", any, learn<Transparency>("transparency", any, [](Transparency& object) {
            object.SetInvertMask(0);
            object.GetColour();
        }));
    add("diffuse", any,
        learn<ShaderDiffuse>("diffuse", any, [](ShaderDiffuse& diffuse) { diffuse.GetColour(); }));
    add("plainColour", any, learn<ShaderPlainColour>("plainColour", any, [](ShaderPlainColour& c) {
            float white[] = {1, 1, 1};
            c.SetColour(white);
        }));
    add("map", any, learn<ShaderMap>("map", any, [](ShaderMap& map) {
            map.SetMapping(0, 0);
            map.SetOffset(0, 0);
            map.SetRotation(0);
            map.SetTexture(QString());
            map.SetWidth(0);
            map.SetHeight(0);
            map.SetUseAlpha(0);
        }));
    // These classes create no parameter.
    add("lens", any, one("Angle", "float"));
    add("aspectratio", any, one("Aspect Ratio", "float"));
    add("aspectratioorient", any, one("Portrait", "boolean"));
}

bool Vocabulary::isElement(const QString& name) const
{
    return m_elements.contains(name);
}

bool Vocabulary::isSection(const QString& name) const
{
    return m_sections.contains(name);
}

bool Vocabulary::isPreset(const QString& name) const
{
    return m_presets.contains(name);
}

bool Vocabulary::isComponent(const QString& name) const
{
    return m_components.contains(name);
}

bool Vocabulary::isAttribute(const QString& element, const QString& attribute) const
{
    if (element == s_param)
        return m_ownAttributes[s_param].contains(attribute);
    return m_attributes.contains(attribute) || m_ownAttributes.value(element).contains(attribute) ||
           attribute == QLatin1String("xmlns") || attribute.startsWith(QLatin1String("xmlns:"));
}

bool Vocabulary::isType(const QString& name) const
{
    return m_types.contains(name);
}

bool Vocabulary::hasParams(const QString& element) const
{
    return m_params.contains(element);
}

const ParamInfos& Vocabulary::params(const QString& element, const QString& kind) const
{
    static const ParamInfos none;
    const auto kinds = m_params.constFind(element);
    if (kinds == m_params.cend())
        return none;
    auto infos = kinds->constFind(kind);
    if (infos == kinds->cend())
        infos = kinds->constFind(QString());
    return infos == kinds->cend() ? none : *infos;
}

bool Vocabulary::canAdd(const QString& parent, const QString& child) const
{
    const QString key = parent + QLatin1Char('/') + child;
    const auto known = m_placement.constFind(key);
    if (known != m_placement.cend())
        return *known;
    QDomDocument document;
    QDomElement parentElement = document.createElement(parent);
    document.appendChild(parentElement);
    RVOpenNode* const parentNode = RVOpenSchema::createNode(parentElement);
    RVOpenNode* const childNode = RVOpenSchema::createNode(document.createElement(child));
    const bool can = RVOpenSchema::canAddNode(parentNode, childNode) != 0;
    delete childNode;
    delete parentNode;
    m_placement.insert(key, can);
    return can;
}

} // namespace rvopen::tools
