// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include <rvopen/RVOpenVocabulary.h>

#include <rvopen/model/Names.h>

namespace rvopen {

QVector<ArchiveSection> ArchiveSections()
{
    using namespace names::element;
    return {
        {schemes(), QStringLiteral("Schemes"), {scheme()}},
        {backgrounds(), QStringLiteral("Backgrounds"), {background()}},
        {foregrounds(), QStringLiteral("Foregrounds"), {foreground()}},
        {cameras(), QStringLiteral("Cameras"), {camera()}},
        {lenses(), QStringLiteral("Lenses"), {lens()}},
        {aspectRatios(), QStringLiteral("Aspect ratios"), {aspectRatio(), aspectRatioOrient()}},
        {naturalLights(), QStringLiteral("Natural lights"), {naturalLightStudio()}},
        {materials(), QStringLiteral("Materials"), {material()}},
        {colours(), QStringLiteral("Colours"), {colour()}},
        {finishes(), QStringLiteral("Finishes"), {finish()}},
        {transparencies(), QStringLiteral("Transparencies"), {transparency()}},
        {bumps(), QStringLiteral("Bumps"), {bump()}},
    };
}

} // namespace rvopen
