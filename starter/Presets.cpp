// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "Presets.h"

#include <rvopen/AspectRatio.h>
#include <rvopen/Background.h>
#include <rvopen/Bump.h>
#include <rvopen/Camera.h>
#include <rvopen/Colour.h>
#include <rvopen/Finish.h>
#include <rvopen/Foreground.h>
#include <rvopen/Lens.h>
#include <rvopen/Material.h>
#include <rvopen/Param.h>
#include <rvopen/ParamHelper.h>
#include <rvopen/RVOpenManager.h>
#include <rvopen/RVOpenNode.h>
#include <rvopen/RVOpenSchema.h>
#include <rvopen/Scheme.h>
#include <rvopen/ShaderColour.h>
#include <rvopen/ShaderDiffuse.h>
#include <rvopen/ShaderMap.h>
#include <rvopen/ShaderPlainColour.h>
#include <rvopen/Transparency.h>

#include <cmath>

namespace rvopen::starter {

namespace {

const ArchiveSection s_colours = sectionOf("colours");
const ArchiveSection s_finishes = sectionOf("finishes");
const ArchiveSection s_transparencies = sectionOf("transparencies");
const ArchiveSection s_bumps = sectionOf("bumps");
const ArchiveSection s_materials = sectionOf("materials");
const ArchiveSection s_backgrounds = sectionOf("backgrounds");
const ArchiveSection s_schemes = sectionOf("schemes");
const ArchiveSection s_foregrounds = sectionOf("foregrounds");
const ArchiveSection s_cameras = sectionOf("cameras");
const ArchiveSection s_lenses = sectionOf("lenses");
const ArchiveSection s_aspectRatios = sectionOf("aspectratios");

/// Across the width of a picture area: 2 atan(w / 2f), in degrees.
float angleOfLens(double width, double focalLength)
{
    return float(2 * std::atan(width / (2 * focalLength)) * 180 / 3.14159265358979323846);
}

struct Triple {
    float values[3];
};

Triple tripleOf(const QColor& colour)
{
    return {{float(colour.red()) / 255, float(colour.green()) / 255, float(colour.blue()) / 255}};
}

Triple tripleOf(const Row& row, const char* column)
{
    Triple triple{};
    RVOpenNode().DecodeFloat3(row.text(column), &triple.values[0], &triple.values[1],
                              &triple.values[2]);
    return triple;
}

void setFloat(RVOpenNode* node, const QString& name, float value)
{
    node->GetParamHelper()->GetParam(name)->SetValFloat(value);
}

void setPlainColour(ShaderColour* colour, const QColor& value)
{
    colour->GetPlainColour(1)->SetColour(tripleOf(value).values);
}

void setMap(ShaderColour* colour, const Row& row, float rotation, int useAlpha)
{
    ShaderMap* const map = colour->GetMap(1);
    map->SetTexture(row.text("texture"));
    map->SetWidth(row.number("width"));
    map->SetHeight(row.number("height"));
    map->SetOffset(0, 0);
    map->SetMapping(0, 0);
    map->SetRotation(rotation);
    map->SetUseAlpha(useAlpha);
}

void fillColour(ShaderColour* colour, const Row& row, float rotation)
{
    if (row.has("colour"))
        setPlainColour(colour, row.colours("colour").first());
    if (row.has("texture"))
        setMap(colour, row, rotation, 0);
}

struct FinishParam {
    const char* name;
    const char* column;
};

const FinishParam s_finishParams[] = {
    {"diffuse factor", "diffuse"},
    {"specular factor", "specular"},
    {"transmission factor", "transmission"},
    {"mirror factor", "mirror"},
    {"roughness", "roughness"},
    {"refraction", "refraction"},
    {"light intensity", "intensity"},
    {"object area", "area"},
    {"object size", "size"},
};

void fillFinish(Finish* finish, const Row& row)
{
    finish->SetAndPopulateShaderClass(QStringLiteral("lit appearance"));
    for (const FinishParam& param : s_finishParams)
        setFloat(finish, QLatin1String(param.name), row.number(param.column));
    finish->GetParamHelper()
        ->GetParam(QStringLiteral("light colour"))
        ->SetValColour(tripleOf(row.colours("light").first()).values);
}

/// The ranges in which a host offers to change the values.
void addRanges(Finish* finish, const Row& row)
{
    for (const char* name : {"diffuse factor", "specular factor", "transmission factor",
                             "mirror factor", "roughness"}) {
        Param* const param = finish->GetParamHelper()->GetParam(QLatin1String(name));
        param->SetAttributeInt("rangeMin", 0);
        param->SetAttributeInt("rangeMax", 1);
    }
    Param* const refraction = finish->GetParamHelper()->GetParam(QStringLiteral("refraction"));
    refraction->SetAttributeInt("rangeMin", 1);
    refraction->SetAttributeInt("rangeMax", 3);
    refraction->SetAttributeFloat("centre", row.number("refraction"));
    refraction->SetAttributeInt("range", 10);
}

void fillTransparency(Transparency* transparency, const Row& row)
{
    transparency->SetInvertMask(row.integer("invert"));
    if (row.has("colour"))
        setPlainColour(transparency->GetColour(), row.colours("colour").first());
    else
        setMap(transparency->GetColour(), row, 0, row.integer("alpha"));
}

void fillBump(Bump* bump, const Row& row)
{
    bump->SetUseDiffuse(row.integer("diffuse"));
    bump->SetIsNormalMap(row.integer("normal"));
    bump->SetHeight(row.number("depth"));
    bump->SetSoftness(row.number("softness"));
    if (row.has("texture"))
        setMap(bump->GetColour(), row, row.number("rotation"), 0);
}

void fillBackground(Background* background, const Row& row)
{
    background->SetSubCat(row.text("kind"));
    background->PopulateParams();
    if (background->IsImage()) {
        background->SetImageBackground(row.text("file"));
    } else if (background->IsImage3D()) {
        background->SetImage3DBackground(row.text("file"));
        background->SetImage3DHorizonPosition(row.number("horizon"));
        background->SetImage3DFixedSize(row.number("size"));
    } else if (background->IsReflection()) {
        background->SetReflectionBackground(row.text("file"));
    } else {
        Param* param = background->GetParamHelper()->GetFirstParam();
        for (const QColor& colour : row.colours("colours")) {
            if (!param)
                throw Failure(
                    QStringLiteral("%1: more colours than the kind has").arg(row.place()));
            param->SetValColour(tripleOf(colour).values);
            param = param->GetNext();
        }
    }
}

/// A new node of a class in the archive.
template <typename Object>
Object* create(const Archive& archive, const char* element)
{
    return static_cast<Object*>(createNode(*archive.root(), element));
}

} // namespace

Presets::Presets(RVOpenManager& manager, const Tables& tables)
    : m_tables(tables)
    , m_finishes(rowsByName("finishes"))
    , m_transparencies(rowsByName("transparencies"))
    , m_bumps(rowsByName("bumps"))
    , m_backgrounds(rowsByName("backgrounds"))
{
    const auto add = [&](const char* file, const char* name, const char* description) {
        m_archives.insert(
            QLatin1String(file),
            std::make_shared<Archive>(manager, QLatin1String(name), QLatin1String(description)));
    };
    add("Default", "Default", "The presets of every installation");
    add("Product_extra", "Product extra", "Merged into the product archives on first use");
    add("Architectural_extra", "Architectural extra",
        "Merged into the architectural archives on first use");
    addSchemes();
    addMaterials();
    addColours();
    addFinishes();
    addTransparencies();
    addBumps();
    addBackgrounds();
    addForegrounds();
    addCameras();
    addLenses();
    addAspectRatios();
    addNaturalLights();
}

RVOpenNode* Presets::find(const QString& refName) const
{
    RVOpenNode* const preset = m_presets.value(refName);
    if (!preset)
        throw Failure(QStringLiteral("no preset \"%1\"").arg(refName));
    return preset;
}

void Presets::save(const QString& folder) const
{
    for (auto it = m_archives.cbegin(); it != m_archives.cend(); ++it)
        (*it)->save(folder + QLatin1Char('/') + it.key() + QLatin1String(".rvx"));
}

Archive& Presets::archiveOf(const Row& row)
{
    const auto archive = m_archives.constFind(row.text("archive"));
    if (archive == m_archives.cend())
        throw Failure(QStringLiteral("%1: no such archive").arg(row.place()));
    return **archive;
}

Presets::Rows Presets::rowsByName(const char* table) const
{
    Rows rows;
    for (const Row& row : m_tables.rows(table))
        rows.insert(row.text("refname"), row);
    return rows;
}

const Row& Presets::rowOf(const Rows& rows, const QString& refName, const Row& user) const
{
    const auto row = rows.constFind(refName);
    if (row == rows.cend())
        throw Failure(QStringLiteral("%1: no \"%2\"").arg(user.place(), refName));
    return *row;
}

void Presets::place(const Row& row, const ArchiveSection& section, const QString& category,
                    const QString& folders, RVOpenNode* preset)
{
    preset->SetName(row.text("name"));
    preset->SetRefName(row.text("refname"));
    preset->SetImageName(row.text("image"));
    preset->SetDescription(row.text("description"));
    placeIn(archiveOf(row), section, category, folders, preset);
}

void Presets::placeIn(Archive& archive, const ArchiveSection& section, const QString& category,
                      const QString& folders, RVOpenNode* preset)
{
    if (m_presets.contains(preset->GetRefName()))
        throw Failure(QStringLiteral("two presets \"%1\"").arg(preset->GetRefName()));
    preset->SetCat(category);
    // The category is the outermost folder already where it is not the section's name.
    QStringList path = folders.split(QLatin1Char('/'));
    if (path.first() == category)
        path.removeFirst();
    if (!path.isEmpty())
        preset->SetPath(path.join(QLatin1Char('\\')));
    archive.place(section, folders.split(QLatin1Char('/')), preset);
    m_presets.insert(preset->GetRefName(), preset);
}

void Presets::addColours()
{
    for (const Row& row : m_tables.rows("colours")) {
        auto* const colour = create<Colour>(archiveOf(row), "colour");
        fillColour(colour->GetDiffuse()->GetColour(), row, 0);
        place(row, s_colours, s_colours.title, row.text("folder"), colour);
    }
}

void Presets::addFinishes()
{
    for (const Row& row : m_tables.rows("finishes")) {
        auto* const finish = create<Finish>(archiveOf(row), "finish");
        fillFinish(finish, row);
        addRanges(finish, row);
        if (row.has("reset"))
            finish->SetReset(row.integer("reset"));
        place(row, s_finishes, s_finishes.title, row.text("folder"), finish);
    }
}

void Presets::addTransparencies()
{
    for (const Row& row : m_tables.rows("transparencies")) {
        auto* const transparency = create<Transparency>(archiveOf(row), "transparency");
        fillTransparency(transparency, row);
        place(row, s_transparencies, s_transparencies.title, row.text("folder"), transparency);
    }
}

void Presets::addBumps()
{
    for (const Row& row : m_tables.rows("bumps")) {
        auto* const bump = create<Bump>(archiveOf(row), "bump");
        fillBump(bump, row);
        place(row, s_bumps, s_bumps.title, row.text("folder"), bump);
    }
}

void Presets::addMaterials()
{
    for (const Row& row : m_tables.rows("materials")) {
        Archive& archive = archiveOf(row);
        auto* const material = create<Material>(archive, "material");
        material->SetSubCat(row.text("kind"));
        if (row.has("colour") || row.has("texture"))
            fillColour(material->GetColour(1)->GetDiffuse()->GetColour(), row,
                       row.has("rotation") ? row.number("rotation") : 0);
        auto* const finish = create<Finish>(archive, "finish");
        fillFinish(finish, rowOf(m_finishes, row.text("finish"), row));
        if (row.has("refraction"))
            setFloat(finish, QStringLiteral("refraction"), row.number("refraction"));
        material->SetFinish(finish);
        if (row.has("transparency"))
            fillTransparency(material->GetTransparency(1),
                             rowOf(m_transparencies, row.text("transparency"), row));
        if (row.has("bump"))
            fillBump(material->GetBump(1), rowOf(m_bumps, row.text("bump"), row));
        if (row.has("base"))
            material->SetBaseMaterial(new Material(find(row.text("base"))));
        const QString folder = row.text("folder");
        place(row, s_materials, folder,
              row.has("subfolder") ? folder + QLatin1Char('/') + row.text("subfolder") : folder,
              material);
    }
}

void Presets::addBackgrounds()
{
    for (const Row& row : m_tables.rows("backgrounds")) {
        auto* const background = create<Background>(archiveOf(row), "background");
        fillBackground(background, row);
        place(row, s_backgrounds, s_backgrounds.title, row.text("folder"), background);
    }
}

void Presets::addSchemes()
{
    for (const Row& row : m_tables.rows("schemes")) {
        Archive& archive = archiveOf(row);
        auto* const scheme = create<Scheme>(archive, "scheme");
        scheme->SetSubCat(row.text("kind"));
        auto* const background = create<Background>(archive, "background");
        fillBackground(background, rowOf(m_backgrounds, row.text("background"), row));
        scheme->AddNode(background, true);
        place(row, s_schemes, s_schemes.title, row.text("folder"), scheme);
    }
}

void Presets::addForegrounds()
{
    for (const Row& row : m_tables.rows("foregrounds")) {
        auto* const foreground = create<Foreground>(archiveOf(row), "foreground");
        foreground->SetSubCat(row.text("kind"));
        foreground->PopulateParams();
        if (foreground->IsDepthCue()) {
            setFloat(foreground, QStringLiteral("Near"), row.number("near"));
            setFloat(foreground, QStringLiteral("Far"), row.number("far"));
            foreground->GetParamHelper()
                ->GetParam(QStringLiteral("Background Colour"))
                ->SetValColour(tripleOf(row.colours("colour").first()).values);
        }
        place(row, s_foregrounds, s_foregrounds.title, row.text("folder"), foreground);
    }
}

void Presets::addCameras()
{
    // The frame of 35 mm film; parallel cameras have no lens.
    const double frameWidth = 36;
    const float parallelAngle = 30;
    for (const Row& row : m_tables.rows("cameras")) {
        auto* const camera = create<Camera>(archiveOf(row), "camera");
        camera->PopulateParams();
        camera->SetPinhole(tripleOf(row, "from").values, tripleOf(row, "to").values,
                           tripleOf(row, "up").values, row.integer("parallel"),
                           row.has("focal") ? angleOfLens(frameWidth, double(row.number("focal")))
                                            : parallelAngle);
        camera->SetClipping(row.number("near"), row.number("far"));
        camera->SetViewFit(row.integer("fit"));
        if (row.has("subcat"))
            camera->SetSubCat(row.text("subcat"));
        place(row, s_cameras, s_cameras.title, row.text("folder"), camera);
    }
}

void Presets::addLenses()
{
    QHash<QString, Row> sensors;
    for (const Row& row : m_tables.rows("sensors"))
        sensors.insert(row.text("format"), row);
    for (const Row& row : m_tables.rows("lenses")) {
        const Row& sensor = rowOf(sensors, row.text("format"), row);
        Archive& archive = archiveOf(row);
        auto* const lens = create<Lens>(archive, "lens");
        const float angle =
            angleOfLens(double(sensor.number("width")), double(row.number("focal")));
        lens->GetParamHelper()->AddFloatParam(QStringLiteral("Angle"), angle);
        // What photographers call so across the long side of the frame.
        lens->SetSubCat(angle > 53   ? QStringLiteral("Wide")
                        : angle > 30 ? QStringLiteral("Normal")
                                     : QStringLiteral("Long"));
        lens->SetName(row.text("name"));
        lens->SetRefName(row.text("refname"));
        lens->SetImageName(row.text("refname")
                               .section(QLatin1Char('.'), 1)
                               .replace(QLatin1Char('.'), QLatin1Char('_')));
        QString description = row.text("description");
        if (!description.isEmpty())
            description += QLatin1Char(' ');
        lens->SetDescription(description + QStringLiteral("Angle across a frame %1 mm wide (%2).")
                                               .arg(sensor.text("width"), sensor.text("name")));
        placeIn(archive, s_lenses, s_lenses.title,
                row.text("format") + QLatin1Char('/') + lens->GetSubCat(), lens);
    }
}

void Presets::addAspectRatios()
{
    for (const Row& row : m_tables.rows("aspects")) {
        auto* const ratio = create<AspectRatio>(archiveOf(row), "aspectratio");
        ratio->SetSubCat(row.text("folder"));
        ratio->GetParamHelper()->AddFloatParam(QStringLiteral("Aspect Ratio"),
                                               row.number("long") / row.number("short"));
        place(row, s_aspectRatios, s_aspectRatios.title, row.text("folder"), ratio);
    }
    for (const Row& row : m_tables.rows("orientations")) {
        RVOpenNode* const orientation = createNode(*archiveOf(row).root(), "aspectratioorient");
        orientation->GetParamHelper()
            ->AddBoolParam(QStringLiteral("Portrait"))
            ->SetValBool(row.integer("portrait"));
        place(row, s_aspectRatios, s_aspectRatios.title, row.text("folder"), orientation);
    }
}

} // namespace rvopen::starter
