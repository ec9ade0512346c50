// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include <rvopen/toolkit/schema/ParamInfo.h>

#include "ParamRows.h"

namespace rvopen::toolkit {

namespace {

// Kinds of elements. Where others are as good, these are those of the starter installation.
constexpr QStringView s_cameras[] = {u"Up Vector"};
constexpr QStringView s_schemes[] = {u"Exterior", u"Interior", u"Product"};
constexpr QStringView s_backgrounds[] = {u"Plain", u"Graduated", u"Horizon",
                                         u"Image", u"Image3D",   u"Reflection"};
constexpr QStringView s_foregrounds[] = {u"None", u"Depth Cue"};
constexpr QStringView s_renderTargets[] = {u"Image"};
constexpr QStringView s_materials[] = {u"Opaque", u"Transparent", u"Mask", u"Light"};
constexpr QStringView s_lenses[] = {u"Wide", u"Normal", u"Long"};
constexpr QStringView s_aspectRatios[] = {u"Screen", u"Film", u"Photo", u"Paper"};
constexpr QStringView s_shaderClasses[] = {u"lit appearance"};

constexpr QStringView s_borders[] = {u"0", u"1"};
constexpr QStringView s_archiveTypes[] = {u"Zorvane", u"Custom"};
constexpr QStringView s_rootNames[] = {u"SnapRoot"};
constexpr QStringView s_rootTypes[] = {u"snapStudio"};
constexpr QStringView s_presetsTypes[] = {u"UserArchives"};
constexpr QStringView s_collections[] = {u"Model SnapShots",         u"Model Cameras",
                                         u"Model Material Palettes", u"Model Backgrounds",
                                         u"Temp SnapShots",          u"SnapShots"};
constexpr QStringView s_props[] = {u"D", u"R", u"DR"};

constexpr Owner any{{}};
constexpr Owner camera{u"camera"};
constexpr Owner scheme{u"scheme"};
constexpr Owner background{u"background"};
constexpr Owner foreground{u"foreground"};
constexpr Owner renderTarget{u"renderTarget"};
constexpr Owner material{u"material"};
constexpr Owner lens{u"lens"};
constexpr Owner aspectratio{u"aspectratio"};
constexpr Owner finish{u"finish"};
constexpr Owner snapRoot{u"snapRoot"};
constexpr Owner presets{u"presets"};
constexpr Owner snapshots{u"snapshots"};
constexpr Owner param{u"param"};

/// The sub-category that is the element's own.
constexpr ParamRow subCategory(const Owner& owner, QStringView help)
{
    return owner.text(u"subcat", u"Kind", help).attribute();
}

constexpr ParamRow text(const Owner& owner, QStringView name, QStringView label, QStringView help)
{
    return owner.text(name, label, help).attribute();
}

/// What is absent reads as \p value.
constexpr ParamRow flag(const Owner& owner, QStringView name, QStringView label, QStringView help,
                        QStringView value)
{
    return owner.flag(name, label, help).usual(value).absentAs(value).attribute();
}

constexpr ParamRow number(const Owner& owner, QStringView name, QStringView label, QStringView help,
                          Unit unit = Unit::None)
{
    return owner.number(name, label, help, unit).attribute();
}

constexpr ParamInfo s_attributes[] = {
    text(any, u"name", u"Name", u"Display name."),
    text(any, u"refname", u"Reference name",
         u"Identity of a preset across archives, or the preset that a component came from."),
    subCategory(any, u"The kind within the class."),
    text(any, u"desc", u"Description", u"Description for people."),
    text(any, u"cat", u"Category", u"Category; first part of the thumbnail's folder.")
        .holds(Content::Folder),
    text(any, u"path", u"Path",
         u"Folder of the thumbnail below the category, or of the archive that is referred to.")
        .holds(Content::Folder),
    text(any, u"imgname", u"Image name", u"Base name of the thumbnail.").holds(Content::FileName),
    any.row(u"xmlImage", u"Preview", u"Preview image that stands in the document.",
            ValueType::Bytes)
        .attribute(),
    any.whole(u"ImageBorder", u"Border",
              u"Border around the preview: 0 none, 1 came from another document.", Unit::None)
        .amongOthers(s_borders)
        .usual(u"0")
        .absentAs(u"0")
        .attribute(),
    flag(any, u"enabled", u"Enabled", u"Whether the element counts.", u"1"),
    flag(any, u"thumbRegenerated", u"Thumbnail current", u"Whether the thumbnail is current.",
         u"1"),
    flag(any, u"translationDisabled", u"Not translated",
         u"Whether the host leaves the name untranslated.", u"0"),
    flag(any, u"custom", u"Custom", u"Whether the user made it.", u"0"),
    flag(any, u"reset", u"Reset",
         u"Of a finish, whether it also makes the material that it is put on opaque.", u"0"),
    text(any, u"archiveFilename", u"Archive",
         u"Archive that the element stands for, without folder and extension.")
        .holds(Content::FileName),
    text(any, u"archiveType", u"Archive folder", u"Folder in which that archive lies.")
        .among(s_archiveTypes),

    text(snapRoot, u"name", u"Name", u"Name of the root, which is always the same.")
        .among(s_rootNames)
        .usual(s_rootNames[0]),
    text(snapRoot, u"type", u"Document type", u"Type of the document, which is always the same.")
        .among(s_rootTypes)
        .usual(s_rootTypes[0]),
    text(snapRoot, u"zorvane_version", u"Host version",
         u"Version of the host that made the document, as in 3.1."),
    number(snapRoot, u"unitsScale", u"Units scale",
           u"Document units in a scene unit: how lengths are stored.", Unit::Factor)
        .hard(above(0))
        .usual(u"1")
        .absentAs(u"1"),
    text(presets, u"type", u"Archive type", u"UserArchives in archives of the user.")
        .amongOthers(s_presetsTypes),
    text(presets, u"zorvane_version", u"Host version",
         u"Version of the host that wrote the archive, as in 3.1."),
    text(snapshots, u"name", u"Collection", u"What the collection holds.")
        .amongOthers(s_collections),

    subCategory(camera, u"Up Vector for a camera that is only a direction.").amongOthers(s_cameras),
    subCategory(scheme, u"What kind of scene it is.").among(s_schemes).usual(s_schemes[0]),
    subCategory(background, u"What the background is, and with it which parameters it has.")
        .among(s_backgrounds)
        .usual(s_backgrounds[0]),
    subCategory(foreground,
                u"Depth Cue for a model that fades with distance; any other has no parameters.")
        .amongOthers(s_foregrounds)
        .usual(s_foregrounds[0]),
    subCategory(renderTarget, u"What is rendered, which is always an image.")
        .among(s_renderTargets)
        .usual(s_renderTargets[0]),
    subCategory(material, u"What kind of material it is; it changes nothing that is seen.")
        .amongOthers(s_materials)
        .usual(s_materials[0]),
    subCategory(lens, u"What photographers call the lens.").amongOthers(s_lenses),
    subCategory(aspectratio, u"What the ratio is used for.").amongOthers(s_aspectRatios),
    text(finish, u"shaderClass", u"Shader class",
         u"How light is reflected, and with it the parameters.")
        .amongOthers(s_shaderClasses)
        .usual(s_shaderClasses[0]),
    text(material, u"linkname", u"Linked object",
         u"The host's object that the material belongs to; once in a palette."),

    text(param, u"name", u"Name", u"Name by which the parameter is found."),
    text(param, u"type", u"Type", u"Type of the value.").among(typeNames),
    text(param, u"val", u"Value", u"The value, written as its type asks."),
    text(param, u"prop", u"Properties", u"Letters: D for a length, R for read-only.")
        .amongOthers(s_props),
    number(param, u"rangeMin", u"Least value",
           u"Least value of a float, in scene units; with rangeMax or not at all."),
    number(param, u"rangeMax", u"Greatest value",
           u"Greatest value of a float, in scene units; with rangeMin or not at all."),
    number(param, u"centre", u"Centre", u"Middle of the narrower range, in scene units."),
    number(param, u"range", u"Narrower range", u"Half of its width, in percent of the centre.",
           Unit::Percent)
        .hard(from(0)),
};

} // namespace

ParamInfos AllAttributes()
{
    return {s_attributes, int(sizeof s_attributes / sizeof *s_attributes)};
}

} // namespace rvopen::toolkit
