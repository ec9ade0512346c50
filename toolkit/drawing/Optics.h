// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include "Vec.h"

namespace rvopen::toolkit::drawing {

/// \name How finely scenes are sampled
/// @{

/// Rays of a pixel are in a square of this side.
inline constexpr int RaysPerSide = 3;
inline constexpr int RaysPerPixel = RaysPerSide * RaysPerSide;
/// Samples of a glossy reflection for each ray; those of all rays of a pixel make one set.
inline constexpr int LobeSamples = 8;
/// Samples of a light for each ray are in a square of this side.
inline constexpr int LightSide = 3;
inline constexpr int LightSamples = LightSide * LightSide;
/// @}

/// The width of the facets of a surface by its roughness, which is perceptual: B. Burley,
/// "Physically-based shading at Disney", 2012.
double facetWidth(double roughness);

/// A half vector around z as often as the microfacets of a surface face that way: B. Walter and
/// others, "Microfacet models for refraction through rough surfaces", 2007 (GGX).
Vec facet(double alpha, int sample, int ray);

/// How much of the microfacets is not hidden by others, after B. Smith, in the form of the same
/// paper.
double shadowing(double cosine, double alpha);

/// C. Schlick, "An inexpensive BRDF model for physically-based rendering", 1994.
double towardsGrazing(double cosine);

/// Fresnel's equations for light without polarisation; 1 for total reflection. \p ratio is that of
/// the refraction indices, from where it comes to where it goes.
double fresnel(double cosine, double ratio);

/// W. Snell's law, with a ratio as above. False for total reflection.
bool refracted(const Vec& direction, const Vec& normal, double ratio, Vec& result);

/// J. H. Lambert and A. Beer: what is left of white light after this part of the diameter of a
/// ball or the thickness of a plate. The whole of it shows the colour as it is.
Rgb afterGlass(const Rgb& colour, double part);

} // namespace rvopen::toolkit::drawing
