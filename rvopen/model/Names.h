// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

/// Every element, attribute and parameter name of the documents, each written once.
///
/// A name is a function: the string lives in the read-only data of the library, so calling it
/// allocates nothing and it can be used while static objects are made or destroyed.
#define RVOPEN_NAME(identifier, text)                                                              \
    inline QString identifier()                                                                    \
    {                                                                                              \
        return QStringLiteral(text);                                                               \
    }

namespace rvopen::names {

/// A name from one of the lists below.
using Name = QString (*)();

namespace element {
RVOPEN_NAME(scheme, "scheme")
RVOPEN_NAME(background, "background")
RVOPEN_NAME(foreground, "foreground")
RVOPEN_NAME(camera, "camera")
RVOPEN_NAME(lens, "lens")
RVOPEN_NAME(dir, "dir")
RVOPEN_NAME(aspectRatio, "aspectratio")
RVOPEN_NAME(aspectRatioOrient, "aspectratioorient")
RVOPEN_NAME(param, "param")
RVOPEN_NAME(material, "material")
RVOPEN_NAME(colour, "colour")
RVOPEN_NAME(finish, "finish")
RVOPEN_NAME(transparency, "transparency")
RVOPEN_NAME(bump, "bump")
RVOPEN_NAME(diffuse, "diffuse")
RVOPEN_NAME(plainColour, "plainColour")
RVOPEN_NAME(map, "map")
RVOPEN_NAME(snapShot, "snapshot")
RVOPEN_NAME(snapShots, "snapshots")
RVOPEN_NAME(materialRepository, "materialRepository")
RVOPEN_NAME(naturalLightStudio, "naturalLightStudio")
RVOPEN_NAME(artificialLightStudio, "artificialLightStudio")
RVOPEN_NAME(snapShotSettings, "snapShotSettings")
RVOPEN_NAME(renderTargets, "renderTargets")
RVOPEN_NAME(renderTarget, "renderTarget")
RVOPEN_NAME(scenery, "scenery")
RVOPEN_NAME(schemes, "schemes")
RVOPEN_NAME(materials, "materials")
RVOPEN_NAME(colours, "colours")
RVOPEN_NAME(finishes, "finishes")
RVOPEN_NAME(transparencies, "transparencies")
RVOPEN_NAME(bumps, "bumps")
RVOPEN_NAME(backgrounds, "backgrounds")
RVOPEN_NAME(foregrounds, "foregrounds")
RVOPEN_NAME(cameras, "cameras")
RVOPEN_NAME(lenses, "lenses")
RVOPEN_NAME(aspectRatios, "aspectratios")
RVOPEN_NAME(naturalLights, "naturalLights")
RVOPEN_NAME(snapRoot, "snapRoot")
} // namespace element

namespace attribute {
RVOPEN_NAME(name, "name")
RVOPEN_NAME(cat, "cat")
RVOPEN_NAME(description, "desc")
RVOPEN_NAME(subCat, "subcat")
RVOPEN_NAME(shaderClass, "shaderClass")
RVOPEN_NAME(path, "path")
RVOPEN_NAME(refName, "refname")
RVOPEN_NAME(imageName, "imgname")
RVOPEN_NAME(archiveFilename, "archiveFilename")
RVOPEN_NAME(archiveType, "archiveType")
RVOPEN_NAME(imageBorder, "ImageBorder")
RVOPEN_NAME(enabled, "enabled")
RVOPEN_NAME(translationDisabled, "translationDisabled")
RVOPEN_NAME(custom, "custom")
RVOPEN_NAME(reset, "reset")
RVOPEN_NAME(thumbRegenerated, "thumbRegenerated")
RVOPEN_NAME(type, "type")
RVOPEN_NAME(val, "val")
RVOPEN_NAME(prop, "prop")
RVOPEN_NAME(rangeMin, "rangeMin")
RVOPEN_NAME(rangeMax, "rangeMax")
RVOPEN_NAME(centre, "centre")
RVOPEN_NAME(range, "range")
RVOPEN_NAME(unitsScale, "unitsScale")
RVOPEN_NAME(version, "zorvane_version")
RVOPEN_NAME(linkName, "linkname")
RVOPEN_NAME(xmlImage, "xmlImage")
} // namespace attribute

namespace paramType {
RVOPEN_NAME(floatType, "float")
RVOPEN_NAME(integer, "integer")
RVOPEN_NAME(boolean, "boolean")
RVOPEN_NAME(string, "string")
RVOPEN_NAME(shader, "shader")
RVOPEN_NAME(colour, "colour")
RVOPEN_NAME(vector, "vector")
RVOPEN_NAME(point, "point")
} // namespace paramType

/// Display names of parameters.
namespace parameter {
RVOPEN_NAME(location, "Location")
RVOPEN_NAME(enabled, "Enabled")
RVOPEN_NAME(intensityScale, "Intensity Scale")
RVOPEN_NAME(aspectRatio, "Aspect Ratio")
RVOPEN_NAME(portrait, "Portrait")
RVOPEN_NAME(from, "From")
RVOPEN_NAME(to, "To")
RVOPEN_NAME(up, "Up")
RVOPEN_NAME(orthographic, "Orthographic")
RVOPEN_NAME(fieldOfView, "Field Of View")
RVOPEN_NAME(nearDistance, "Near")
RVOPEN_NAME(farDistance, "Far")
RVOPEN_NAME(viewFit, "View Fit")
RVOPEN_NAME(backgroundColour, "Background Colour")
RVOPEN_NAME(angle, "Angle")
RVOPEN_NAME(sunAzimuth, "Sun Azimuth")
RVOPEN_NAME(sunAltitude, "Sun Altitude")
RVOPEN_NAME(colour, "Colour")
RVOPEN_NAME(primaryColour, "Primary Colour")
RVOPEN_NAME(secondaryColour, "Secondary Colour")
RVOPEN_NAME(skyColour, "Sky Colour")
RVOPEN_NAME(horizonSkyColour, "Horizon Sky Colour")
RVOPEN_NAME(horizonGroundColour, "Horizon Ground Colour")
RVOPEN_NAME(groundColour, "Ground Colour")
RVOPEN_NAME(backgroundFileName, "File Name")
RVOPEN_NAME(horizonPosition, "Horizon Position")
RVOPEN_NAME(fixedSize, "Fixed Size")
RVOPEN_NAME(lightingQuality, "Lighting Quality")
RVOPEN_NAME(materialQuality, "Material Quality")
RVOPEN_NAME(renderQuality, "Render Quality")
RVOPEN_NAME(modelHint, "Model Hint")
RVOPEN_NAME(width, "Width")
RVOPEN_NAME(height, "Height")
RVOPEN_NAME(useAspectRatio, "Use Aspect Ratio")
RVOPEN_NAME(landscape, "Landscape")
RVOPEN_NAME(fileName, "Filename")
RVOPEN_NAME(shortFileName, "Short Filename")
RVOPEN_NAME(outputFormat, "Output Format")
RVOPEN_NAME(gamma, "Gamma")
RVOPEN_NAME(dropShadow, "Drop Shadow")
RVOPEN_NAME(dropSunlight, "Drop Sunlight")
RVOPEN_NAME(dropReflection, "Drop Reflection")
RVOPEN_NAME(dropShadowQuality, "Drop Shadow Quality")
RVOPEN_NAME(dropShadowContrast, "Drop Shadow Contrast")
RVOPEN_NAME(dropSunlightBrightness, "Drop Sunlight Brightness")
RVOPEN_NAME(dropReflectionBrightness, "Drop Reflection Brightness")
RVOPEN_NAME(dropReflectionBlur, "Drop Reflection Blur")
RVOPEN_NAME(baseSize, "Base Size")
RVOPEN_NAME(dropShadowCatchSpots, "Drop Shadow Catch Spots")
RVOPEN_NAME(ambientLightsIntensityScale, "Ambient Lights Intensity Scale")
RVOPEN_NAME(twist, "Twist")
RVOPEN_NAME(orientationUp, "Orientation Up")
RVOPEN_NAME(orientationNorth, "Orientation North")
RVOPEN_NAME(orientationFrontFace, "Orientation Front Face")
RVOPEN_NAME(imageFileName, "Image File Name")
RVOPEN_NAME(sessionFolder, "Session Folder")
RVOPEN_NAME(reflectedEnvPath, "Reflected Env Path")
RVOPEN_NAME(reflectedEnvIntensity, "Reflected Env Intensity")
RVOPEN_NAME(selected, "Selected")
RVOPEN_NAME(reflectBackPlate, "Reflect BackPlate")
RVOPEN_NAME(useDiffuse, "Use Diffuse")
RVOPEN_NAME(isNormalMap, "Is Normal Map")
RVOPEN_NAME(softness, "Softness")
RVOPEN_NAME(invertMask, "InvertMask")
RVOPEN_NAME(sReflect, "S Reflect")
RVOPEN_NAME(tReflect, "T Reflect")
RVOPEN_NAME(sOffset, "S Offset")
RVOPEN_NAME(tOffset, "T Offset")
RVOPEN_NAME(rotation, "Rotation")
RVOPEN_NAME(texture, "Texture")
RVOPEN_NAME(useAlpha, "Use Alpha")
RVOPEN_NAME(diffuseFactor, "diffuse factor")
RVOPEN_NAME(specularFactor, "specular factor")
RVOPEN_NAME(transmissionFactor, "transmission factor")
RVOPEN_NAME(mirrorFactor, "mirror factor")
RVOPEN_NAME(roughness, "roughness")
RVOPEN_NAME(refraction, "refraction")
RVOPEN_NAME(lightIntensity, "light intensity")
RVOPEN_NAME(objectArea, "object area")
RVOPEN_NAME(objectSize, "object size")
RVOPEN_NAME(lightColour, "light colour")
} // namespace parameter

/// Sub-categories: the kinds within a class.
namespace subCategory {
RVOPEN_NAME(upVector, "Up Vector")
RVOPEN_NAME(depthCue, "Depth Cue")
RVOPEN_NAME(plain, "Plain")
RVOPEN_NAME(graduated, "Graduated")
RVOPEN_NAME(horizon, "Horizon")
RVOPEN_NAME(image, "Image")
RVOPEN_NAME(image3D, "Image3D")
RVOPEN_NAME(reflection, "Reflection")
RVOPEN_NAME(exterior, "Exterior")
RVOPEN_NAME(interior, "Interior")
RVOPEN_NAME(product, "Product")
} // namespace subCategory

/// Names and values that the library itself gives to what it makes.
namespace value {
RVOPEN_NAME(dimensional, "D")
RVOPEN_NAME(readOnly, "R")
RVOPEN_NAME(litAppearance, "lit appearance")
RVOPEN_NAME(progressivePreview, "Progressive Preview")
RVOPEN_NAME(snapRootName, "SnapRoot")
RVOPEN_NAME(snapStudio, "snapStudio")
RVOPEN_NAME(currentSnapShot, "CurrSnapshot")
RVOPEN_NAME(modelSnapShots, "Model SnapShots")
RVOPEN_NAME(oldModelSnapShots, "SnapShots")
RVOPEN_NAME(modelCameras, "Model Cameras")
RVOPEN_NAME(modelMaterialPalettes, "Model Material Palettes")
RVOPEN_NAME(modelBackgrounds, "Model Backgrounds")
RVOPEN_NAME(tempSnapShots, "Temp SnapShots")
RVOPEN_NAME(productArchives, "Zorvane")
RVOPEN_NAME(customArchives, "Custom")
RVOPEN_NAME(userArchives, "UserArchives")
RVOPEN_NAME(archiveExtension, ".rvx")
} // namespace value

} // namespace rvopen::names

#undef RVOPEN_NAME
