// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include <rvopen/toolkit/schema/ParamInfo.h>

#include "ParamRows.h"

namespace rvopen::toolkit {

namespace {

// The host has its own names; these are those of the starter installation.
constexpr QStringView s_renderQualities[] = {u"Progressive Preview", u"Medium", u"Final"};
constexpr QStringView s_outputFormats[] = {u"PNG", u"JPEG", u"TIFF"};

constexpr Owner snapShotSettings{u"snapShotSettings"};
constexpr Owner scenery{u"scenery"};
constexpr Owner camera{u"camera"};
constexpr Owner naturalLightStudio{u"naturalLightStudio"};
constexpr Owner artificialLightStudio{u"artificialLightStudio"};
constexpr Owner plainBackground{u"background", u"Plain"};
constexpr Owner graduatedBackground{u"background", u"Graduated"};
constexpr Owner horizonBackground{u"background", u"Horizon"};
constexpr Owner imageBackground{u"background", u"Image"};
constexpr Owner image3DBackground{u"background", u"Image3D"};
constexpr Owner reflectionBackground{u"background", u"Reflection"};
constexpr Owner foreground{u"foreground", u"Depth Cue"};
constexpr Owner renderTarget{u"renderTarget"};
constexpr Owner lens{u"lens"};
constexpr Owner aspectratio{u"aspectratio"};
constexpr Owner aspectratioorient{u"aspectratioorient"};
constexpr Owner finish{u"finish", u"lit appearance"};
constexpr Owner transparency{u"transparency"};
constexpr Owner bump{u"bump"};
constexpr Owner diffuse{u"diffuse"};
constexpr Owner plainColour{u"plainColour"};
constexpr Owner plainColourInTransparency{u"plainColour", u"transparency"};
constexpr Owner plainColourInBump{u"plainColour", u"bump"};
constexpr Owner map{u"map"};
constexpr Owner mapInTransparency{u"map", u"transparency"};
constexpr Owner mapInBump{u"map", u"bump"};

// Where "made" and "usual" differ, the first is what the library writes, and the second what serves
// as a start: what a new document has, what the getter or the renderer takes for a missing value,
// or what most of the starter installation has.
constexpr ParamInfo s_params[] = {
    snapShotSettings
        .number(u"Ambient Lights Intensity Scale", u"Ambient light",
                u"Brightness of the even light from all around; 1 leaves it as it is.",
                Unit::Factor)
        .hard(from(0))
        .soft(0, 2, 0.05)
        .made(u"0")
        .usual(u"1"),
    snapShotSettings
        .number(u"Twist", u"Twist",
                u"Roll of the camera, clockwise for who looks through it; the up direction does "
                u"not include it.",
                Unit::Degrees)
        .soft(-45, 45, 0.5)
        .made(u"0"),
    snapShotSettings
        .direction(u"Orientation Up", u"Up", u"Direction in which the model has its upper side.")
        .made(u"1 1 1")
        .usual(u"0 0 1"),
    snapShotSettings
        .direction(u"Orientation North", u"North", u"Direction in which north lies for the model.")
        .made(u"1 1 1")
        .usual(u"0 1 0"),
    snapShotSettings
        .direction(u"Orientation Front Face", u"Front face",
                   u"Direction in which the front of the model looks.")
        .made(u"1 1 1")
        .usual(u"0 -1 0"),
    snapShotSettings
        .text(u"Image File Name", u"Image file",
              u"Name of the picture that the host keeps of the snapshot.")
        .holds(Content::FileName)
        .made(u""),
    snapShotSettings
        .text(u"Session Folder", u"Session folder",
              u"Folder of the host's session that the snapshot belongs to.")
        .holds(Content::Folder)
        .made(u"")
        .absentAs(u""),
    snapShotSettings
        .image(u"Reflected Env Path", u"Environment", u"Image of the environment that is mirrored.")
        .made(u"")
        .absentAs(u""),
    snapShotSettings
        .number(u"Reflected Env Intensity", u"Environment intensity",
                u"Brightness of the environment that is mirrored; 1 shows the image as it is.",
                Unit::Factor)
        .hard(from(0))
        .soft(0, 2, 0.05)
        .made(u"0")
        .usual(u"1"),
    snapShotSettings
        .flag(u"Selected", u"Selected", u"Whether the snapshot is selected in the host's list.")
        .usual(u"0"),
    snapShotSettings
        .flag(u"Reflect BackPlate", u"Reflect background",
              u"Whether surfaces mirror the background in place of the environment.")
        .usual(u"0")
        .absentAs(u"0")
        .later(),

    scenery.flag(u"Drop Shadow", u"Shadow", u"Whether the model throws a shadow on the ground.")
        .made(u"1"),
    scenery.flag(u"Drop Sunlight", u"Sunlight", u"Whether the ground shows the direct sunlight.")
        .made(u"1"),
    scenery.flag(u"Drop Reflection", u"Reflection", u"Whether the ground mirrors the model.")
        .made(u"1")
        .usual(u"0"),
    scenery
        .whole(u"Drop Shadow Quality", u"Shadow quality",
               u"Effort for the shadow on the ground; more is finer.", Unit::Steps)
        .hard(from(0))
        .soft(1, 10, 1)
        .made(u"0")
        .usual(u"10"),
    scenery
        .number(u"Drop Shadow Contrast", u"Shadow contrast",
                u"Darkness of the shadow; 0 is none, 1 as dark as the light makes it.",
                Unit::Factor)
        .hard(within(0, 1))
        .soft(0, 1, 0.05)
        .made(u"0")
        .usual(u"0.8"),
    scenery
        .number(u"Drop Sunlight Brightness", u"Sunlight brightness",
                u"Part of the direct sunlight that the ground shows.", Unit::Factor)
        .hard(within(0, 1))
        .soft(0, 1, 0.05)
        .made(u"0")
        .usual(u"0.5"),
    scenery
        .number(u"Drop Reflection Brightness", u"Reflection brightness",
                u"Share of the light that the ground mirrors.", Unit::Factor)
        .hard(within(0, 1))
        .soft(0, 1, 0.05)
        .made(u"0")
        .usual(u"0.5"),
    scenery
        .number(u"Drop Reflection Blur", u"Reflection blur",
                u"Roughness of the ground that mirrors; 0 is a sharp image.", Unit::Factor)
        .hard(within(0, 1))
        .soft(0, 1, 0.05)
        .made(u"0"),
    scenery
        .number(u"Base Size", u"Ground size",
                u"Side of the ground, in lengths of the model's longest horizontal side.",
                Unit::Factor)
        .hard(above(0))
        .soft(1, 10, 0.1)
        .made(u"0")
        .usual(u"3")
        .absentAs(u"3")
        .later(),
    scenery
        .flag(u"Drop Shadow Catch Spots", u"Shadows of lamps",
              u"Whether the ground shows the shadows of lamps too.")
        .usual(u"1")
        .absentAs(u"1")
        .later(),

    camera.point(u"From", u"From", u"Point where the camera stands.")
        .made(u"1 1 1")
        .usual(u"0 -10 1.65"),
    camera.point(u"To", u"To", u"Point that the camera looks at.")
        .made(u"1 1 1")
        .usual(u"0 0 1.65"),
    camera.direction(u"Up", u"Up", u"Direction that is upwards in the image.")
        .made(u"1 1 1")
        .usual(u"0 0 1"),
    camera
        .flag(u"Orthographic", u"Parallel",
              u"Whether the view is a parallel projection; its width follows from the field of "
              u"view and the distance.")
        .made(u"1")
        .usual(u"0"),
    camera
        .number(u"Field Of View", u"Field of view",
                u"Horizontal angle across the width of the image.", Unit::Degrees)
        .hard(between(0, 180))
        .soft(3, 120, 0.1)
        .made(u"0")
        .usual(u"45"),
    camera
        .number(u"Near", u"Near", u"Distance from the camera before which nothing is drawn.",
                Unit::SceneLength)
        .hard(from(0))
        .soft(0, 10, 0.01)
        .made(u"0")
        .usual(u"0.1"),
    camera
        .number(u"Far", u"Far",
                u"Distance from the camera behind which nothing is drawn; above \"Near\".",
                Unit::SceneLength)
        .hard(above(0))
        .soft(1, 1000, 1)
        .made(u"0")
        .usual(u"1000"),
    camera
        .flag(u"View Fit", u"Fit view",
              u"Whether the camera moves along its line of sight until the model fills the image.")
        .made(u"0")
        .absentAs(u"0")
        .later(),

    naturalLightStudio
        .flag(u"Enabled", u"Sun on", u"Whether the sun shines; not the attribute of that name.")
        .made(u"1"),
    naturalLightStudio
        .number(u"Sun Azimuth", u"Azimuth", u"Direction of the sun, from north clockwise.",
                Unit::Degrees)
        .soft(0, 360, 0.1)
        .made(u"0")
        .usual(u"180"),
    naturalLightStudio
        .number(u"Sun Altitude", u"Altitude", u"Height of the sun above the horizon.",
                Unit::Degrees)
        .hard(within(-90, 90))
        .soft(0, 90, 0.1)
        .made(u"0")
        .usual(u"45"),

    artificialLightStudio
        .flag(u"Enabled", u"Lamps on", u"Whether the lamps are on; not the attribute of that name.")
        .made(u"1"),
    artificialLightStudio
        .number(u"Intensity Scale", u"Intensity",
                u"Factor on the light of all lamps; 1 leaves them as they are.", Unit::Factor)
        .hard(from(0))
        .soft(0, 4, 0.05)
        .made(u"0")
        .usual(u"1"),

    plainBackground.colour(u"Colour", u"Colour", u"Colour of the whole background.").made(u"1 1 1"),

    graduatedBackground
        .colour(u"Primary Colour", u"Upper colour", u"Colour at the upper edge of the image.")
        .made(u"1 1 1"),
    graduatedBackground
        .colour(u"Secondary Colour", u"Lower colour", u"Colour at the lower edge of the image.")
        .made(u"1 1 1"),

    horizonBackground.colour(u"Sky Colour", u"Sky", u"Colour of the sky straight above.")
        .made(u"1 1 1"),
    horizonBackground
        .colour(u"Horizon Sky Colour", u"Sky at the horizon",
                u"Colour of the sky where it meets the horizon.")
        .made(u"1 1 1"),
    horizonBackground
        .colour(u"Horizon Ground Colour", u"Ground at the horizon",
                u"Colour of the ground where it meets the horizon.")
        .made(u"1 1 1"),
    horizonBackground.colour(u"Ground Colour", u"Ground", u"Colour of the ground straight below.")
        .made(u"1 1 1"),

    imageBackground
        .image(u"File Name", u"Image",
               u"Image that covers the whole background and keeps its proportions.")
        .made(u"")
        .absentAs(u""),

    image3DBackground
        .image(u"File Name", u"Panorama",
               u"Panorama of 360 degrees around the model, its left edge in the north.")
        .made(u"")
        .absentAs(u""),
    image3DBackground
        .number(u"Horizon Position", u"Horizon",
                u"Where the horizon lies in the panorama, from its lower edge.", Unit::Factor)
        .hard(within(0, 1))
        .soft(0, 1, 0.01)
        .made(u"0")
        .usual(u"0.5")
        .absentAs(u"0.5"),
    image3DBackground
        .number(u"Fixed Size", u"Fixed size",
                u"Diameter of the sphere that carries the panorama; 0 is endlessly far away.",
                Unit::SceneLength)
        .hard(from(0))
        .soft(0, 1000, 1)
        .made(u"0")
        .absentAs(u"0"),

    reflectionBackground
        .image(u"File Name", u"Reflected image",
               u"Panorama that surfaces mirror and the camera does not see.")
        .made(u"")
        .absentAs(u""),

    foreground
        .number(u"Near", u"Near", u"Distance from the camera where fading begins.",
                Unit::SceneLength)
        .hard(from(0))
        .soft(0, 500, 0.5)
        .made(u"0"),
    foreground
        .number(u"Far", u"Far", u"Distance from which only the colour is left; above \"Near\".",
                Unit::SceneLength)
        .hard(above(0))
        .soft(1, 1000, 1)
        .made(u"0")
        .usual(u"100"),
    foreground.colour(u"Background Colour", u"Colour", u"Colour that the model fades into.")
        .made(u"1 1 1")
        .usual(u"0.9 0.9 0.9"),

    renderTarget
        .whole(u"Lighting Quality", u"Lighting quality", u"Effort for the light; more is finer.",
               Unit::Steps)
        .hard(from(0))
        .soft(0, 5, 1)
        .made(u"1"),
    renderTarget
        .whole(u"Material Quality", u"Material quality",
               u"Effort for the materials; more is finer.", Unit::Steps)
        .hard(from(0))
        .soft(0, 4, 1)
        .made(u"0"),
    renderTarget
        .text(u"Render Quality", u"Render quality", u"Name of the quality, as the host calls it.")
        .amongOthers(s_renderQualities)
        .made(u"Progressive Preview")
        .absentAs(u""),
    renderTarget
        .number(u"Model Hint", u"Model size", u"Longest side of the model.", Unit::SceneLength)
        .hard(from(0))
        .soft(0.01, 1000, 0.01)
        .length()
        .made(u"0"),
    renderTarget.whole(u"Width", u"Width", u"Width of the image.", Unit::Pixels)
        .hard(from(1))
        .soft(16, 8192, 1)
        .made(u"0")
        .usual(u"960"),
    renderTarget.whole(u"Height", u"Height", u"Height of the image.", Unit::Pixels)
        .hard(from(1))
        .soft(16, 8192, 1)
        .made(u"0")
        .usual(u"640"),
    renderTarget
        .flag(u"Use Aspect Ratio", u"Keep proportions",
              u"Whether the short side follows from the long one and the aspect ratio.")
        .made(u"1"),
    renderTarget
        .number(u"Aspect Ratio", u"Aspect ratio", u"Ratio of the long side to the short one.",
                Unit::Ratio)
        .hard(above(0))
        .soft(1, 4, 0.01)
        .made(u"1.5"),
    renderTarget
        .flag(u"Landscape", u"Landscape",
              u"Whether \"Width\" is the long side, and not \"Height\".")
        .made(u"1")
        .absentAs(u"1")
        .later(),
    renderTarget.text(u"Filename", u"File", u"File that the image is written to.")
        .holds(Content::OutputFile)
        .made(u"")
        .absentAs(u""),
    renderTarget
        .text(u"Short Filename", u"Short file name",
              u"Name of that file without its folder; that of the first target names the photo of "
              u"the snapshot.")
        .holds(Content::FileName)
        .made(u"")
        .absentAs(u""),
    renderTarget
        .text(u"Output Format", u"Format", u"Name of the file format, as the host calls it.")
        .amongOthers(s_outputFormats)
        .made(u"")
        .absentAs(u""),
    renderTarget
        .number(u"Gamma", u"Gamma",
                u"Exponent with which the rendered image is encoded; 0 is the curve of sRGB.",
                Unit::Exponent)
        .hard(from(0))
        .soft(1, 3, 0.1)
        .made(u"0")
        .usual(u"2.2")
        .later(),

    lens.number(u"Angle", u"Angle of view", u"Horizontal angle across the width of the image.",
                Unit::Degrees)
        .hard(between(0, 180))
        .soft(3, 120, 0.1)
        .usual(u"45"),

    aspectratio
        .number(u"Aspect Ratio", u"Aspect ratio", u"Ratio of the long side to the short one.",
                Unit::Ratio)
        .hard(above(0))
        .soft(1, 4, 0.01)
        .usual(u"1.5"),

    aspectratioorient.flag(u"Portrait", u"Upright", u"Whether the long side stands.").usual(u"0"),

    finish
        .number(u"diffuse factor", u"Diffuse",
                u"Share of the light that is reflected evenly, in the colour of the material.",
                Unit::Factor)
        .hard(within(0, 1))
        .soft(0, 1, 0.01)
        .made(u"0")
        .usual(u"0.8"),
    finish
        .number(u"specular factor", u"Specular",
                u"Weight of the reflection that the refraction index gives.", Unit::Factor)
        .hard(within(0, 1))
        .soft(0, 1, 0.01)
        .made(u"0")
        .usual(u"0.2"),
    finish
        .number(u"transmission factor", u"Transmission", u"Share of the light that goes through.",
                Unit::Factor)
        .hard(within(0, 1))
        .soft(0, 1, 0.01)
        .made(u"0"),
    finish
        .number(u"mirror factor", u"Mirror",
                u"Share of the light from all around that is mirrored; the reflectance of a metal.",
                Unit::Factor)
        .hard(within(0, 1))
        .soft(0, 1, 0.01)
        .made(u"0"),
    finish
        .number(
            u"roughness", u"Roughness",
            u"How dull what is mirrored and let through is; the width of the facets is its square.",
            Unit::Factor)
        .hard(within(0, 1))
        .soft(0, 1, 0.01)
        .made(u"0")
        .usual(u"0.5"),
    finish
        .number(u"refraction", u"Refraction index",
                u"Index of refraction; 1 does not bend light, and below it counts as 1.",
                Unit::RefractiveIndex)
        .hard(from(1))
        .soft(1, 3, 0.001)
        .made(u"0")
        .usual(u"1.5"),
    finish
        .number(u"light intensity", u"Luminous flux", u"Light that the whole object gives.",
                Unit::Lumens)
        .hard(from(0))
        .soft(0, 5000, 1)
        .made(u"0"),
    finish
        .number(u"object area", u"Luminous area", u"Area of the surface that gives the light.",
                Unit::SceneArea)
        .hard(from(0))
        .soft(0.0001, 10, 0.0001)
        .length()
        .made(u"0")
        .usual(u"1"),
    finish
        .number(u"object size", u"Luminous size",
                u"Longest extent of the object that gives the light.", Unit::SceneLength)
        .hard(from(0))
        .soft(0.001, 10, 0.001)
        .length()
        .made(u"0")
        .usual(u"1"),
    finish.colour(u"light colour", u"Light colour", u"Colour of the light that the object gives.")
        .made(u"1 1 1"),

    transparency
        .flag(u"InvertMask", u"Invert",
              u"Whether white lets everything through and black is opaque.")
        .usual(u"0"),
    transparency.shader(u"Colour", u"Opacity",
                        u"Holds the opacity: a plain colour, a map or both; white is opaque."),

    bump.flag(u"Use Diffuse", u"Follow colour",
              u"Whether the relief is the map of the material's colour.")
        .usual(u"0"),
    bump.flag(u"Is Normal Map", u"Normal map",
              u"Whether the map holds normals, with green up, and not heights.")
        .usual(u"0"),
    bump.number(u"Height", u"Height",
                u"Depth of the relief from black to white, in twentieths of the image's shorter "
                u"side; a third leaves a map of normals as it is.",
                Unit::Factor)
        .soft(0, 1, 0.01)
        .usual(u"0.5"),
    bump.number(
            u"Softness", u"Softness",
            u"Blur of the relief over its square times a sixteenth of the image's shorter side.",
            Unit::Factor)
        .hard(from(0))
        .soft(0, 1, 0.01)
        .usual(u"0"),
    bump.shader(u"Colour", u"Relief", u"Holds the map of the relief."),

    diffuse.shader(u"Colour", u"Colour", u"Holds the colour: a plain colour, a map or both."),

    plainColour
        .colour(u"Colour", u"Colour", u"Colour of the whole surface, or below an image with alpha.")
        .hard(within(0, 1))
        .usual(u"0.7 0.7 0.7"),

    plainColourInTransparency
        .colour(u"Colour", u"Opacity", u"Opacity of red, green and blue; white is opaque.")
        .hard(within(0, 1))
        .in(ColourSpace::Data)
        .usual(u"1 1 1"),

    plainColourInBump.colour(u"Colour", u"Colour", u"Makes no relief.")
        .hard(within(0, 1))
        .in(ColourSpace::None)
        .usual(u"1 1 1"),

    map.image(u"Texture", u"Image", u"Image that covers the surface.").absentAs(u""),
    map.number(u"Width", u"Width", u"What one image covers along its width, before it is turned.",
               Unit::SceneLength)
        .hard(above(0))
        .soft(0.001, 10, 0.001)
        .length()
        .usual(u"1"),
    map.number(u"Height", u"Height",
               u"What one image covers along its height, before it is turned.", Unit::SceneLength)
        .hard(above(0))
        .soft(0.001, 10, 0.001)
        .length()
        .usual(u"1"),
    map.number(u"S Offset", u"Offset to the right", u"How far the image is moved along its width.",
               Unit::SceneLength)
        .soft(-1, 1, 0.001)
        .length()
        .usual(u"0"),
    map.number(u"T Offset", u"Offset upwards", u"How far the image is moved along its height.",
               Unit::SceneLength)
        .soft(-1, 1, 0.001)
        .length()
        .usual(u"0"),
    map.flag(u"S Reflect", u"Mirror left to right",
             u"Whether the image is mirrored along its width.")
        .usual(u"0"),
    map.flag(u"T Reflect", u"Mirror top to bottom",
             u"Whether the image is mirrored along its height.")
        .usual(u"0"),
    map.number(u"Rotation", u"Rotation",
               u"Turn of the image about its left lower corner, counter-clockwise.", Unit::Degrees)
        .soft(-180, 180, 1)
        .usual(u"0"),
    map.flag(u"Use Alpha", u"Use alpha",
             u"Whether the alpha channel lets the plain colour, or what is behind, show through.")
        .usual(u"0"),

    mapInTransparency
        .image(u"Texture", u"Mask", u"Image of the opacity; white or full alpha is opaque.")
        .in(ColourSpace::Data)
        .absentAs(u""),
    mapInTransparency
        .flag(u"Use Alpha", u"Use alpha",
              u"Whether the alpha channel is the opacity and not the colours.")
        .usual(u"0"),

    mapInBump
        .image(u"Texture", u"Relief image", u"Image of heights, white being high, or of normals.")
        .in(ColourSpace::Data)
        .absentAs(u""),
    mapInBump.flag(u"Use Alpha", u"Use alpha", u"Has no effect.").usual(u"0"),
};

} // namespace

ParamInfos AllParams()
{
    return {s_params, int(sizeof s_params / sizeof *s_params)};
}

} // namespace rvopen::toolkit
