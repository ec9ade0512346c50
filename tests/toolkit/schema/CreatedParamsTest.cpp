// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "../../TestSupport.h"

#include <rvopen/ArtificialLightStudio.h>
#include <rvopen/AspectRatio.h>
#include <rvopen/AspectRatioOrient.h>
#include <rvopen/Background.h>
#include <rvopen/Bump.h>
#include <rvopen/Camera.h>
#include <rvopen/Finish.h>
#include <rvopen/Foreground.h>
#include <rvopen/Lens.h>
#include <rvopen/NaturalLightStudio.h>
#include <rvopen/Param.h>
#include <rvopen/RVOpenStatus.h>
#include <rvopen/RenderTarget.h>
#include <rvopen/Scenery.h>
#include <rvopen/ShaderColour.h>
#include <rvopen/ShaderDiffuse.h>
#include <rvopen/ShaderMap.h>
#include <rvopen/ShaderPlainColour.h>
#include <rvopen/SnapShotSettings.h>
#include <rvopen/Transparency.h>
#include <rvopen/toolkit/schema/ElementInfo.h>
#include <rvopen/toolkit/schema/ParamInfo.h>

#include <QStringList>

#include <gmock/gmock.h>

#include <type_traits>

/// The rows of the schema are what the model creates and reads.
namespace rvopen::test {

namespace {

/// Marks a parameter that is not created with its element.
const QString s_open = QStringLiteral("not created");

QString describe(const QString& name, const QString& type, const QString& value, bool isLength)
{
    return QStringLiteral("%1: %2 = \"%3\"%4")
        .arg(name, type, value, isLength ? QStringLiteral(", a length") : QString());
}

/// The rows of the element and kind, as describe() puts them.
QStringList known(const char* element, const char* kind = "")
{
    QStringList rows;
    for (const toolkit::ParamInfo* const info :
         toolkit::ParamsOf(QLatin1String(element), QLatin1String(kind))) {
        rows << describe(info->name.toString(), toolkit::TypeName(info->type),
                         info->createdValue.isNull() ? s_open : info->createdValue.toString(),
                         info->isLength);
    }
    return rows;
}

/// The parameters of an object after \p create and then \p set. Those that only a setter creates
/// have no value of their own.
template <typename Class, typename Create, typename Set>
QStringList created(const char* subCat, Create create, Set set)
{
    QDomDocument document;
    QDomElement element = document.createElement(QStringLiteral("element"));
    document.appendChild(element);
    QStringList rows;
    Class* object;
    if constexpr (std::is_default_constructible_v<Class>)
        object = new Class();
    else
        object = new Class(static_cast<Class*>(nullptr));
    object->SetDomNode(element);
    object->SetSubCat(QLatin1String(subCat));
    create(*object);
    const int fresh = element.childNodes().size();
    set(*object);
    for (QDomElement child = element.firstChildElement(); !child.isNull();
         child = child.nextSiblingElement()) {
        const bool isNew = int(rows.size()) < fresh;
        rows << describe(child.attribute(QStringLiteral("name")),
                         child.attribute(QStringLiteral("type")),
                         isNew ? child.attribute(QStringLiteral("val")) : s_open,
                         child.attribute(QStringLiteral("prop")) == QLatin1String("D"));
    }
    delete object;
    return rows;
}

template <typename Class>
void nothing(Class&)
{
}

template <typename Class>
void populate(Class& object)
{
    object.PopulateParams();
}

template <typename Class>
QStringList populated(const char* subCat = "")
{
    return created<Class>(subCat, populate<Class>, nothing<Class>);
}

/// Whether \p read finds a parameter of the name and type that the row of the element has.
template <typename Class, typename Value>
unsigned int readAsKnown(const char* element, unsigned int (Class::*read)(Value*))
{
    const toolkit::ParamInfo* const info = toolkit::ParamsOf(QLatin1String(element)).value(0);
    if (!info)
        return StatusMissing;
    QDomDocument document;
    document.setContent(QStringLiteral("<e><param name=\"%1\" type=\"%2\" val=\"1\"/></e>")
                            .arg(info->name.toString(), toolkit::TypeName(info->type)));
    Class object(nullptr);
    object.SetDomNode(document.documentElement());
    Value value;
    return (object.*read)(&value);
}

} // namespace

TEST(CreatedParams, OfTheSettingsAreTheModels)
{
    EXPECT_EQ(known("snapShotSettings"),
              created<SnapShotSettings>("", populate<SnapShotSettings>, [](SnapShotSettings& s) {
                  s.SetSelected(1);
                  s.SetReflectBackPlate(1);
              }));
}

TEST(CreatedParams, OfTheSceneryAreTheModels)
{
    EXPECT_EQ(known("scenery"), created<Scenery>("", populate<Scenery>, [](Scenery& scenery) {
                  scenery.SetDropShadowCatchSpots(1);
              }));
}

TEST(CreatedParams, OfTheCameraAreTheModels)
{
    EXPECT_EQ(known("camera"), populated<Camera>());
}

TEST(CreatedParams, OfTheStudiosAreTheModels)
{
    EXPECT_EQ(known("naturalLightStudio"), populated<NaturalLightStudio>());
    EXPECT_EQ(known("artificialLightStudio"), populated<ArtificialLightStudio>());
}

TEST(CreatedParams, OfTheBackgroundAreTheModels)
{
    const toolkit::ElementInfo* const info = toolkit::FindElement(QStringLiteral("background"));
    ASSERT_TRUE(info);
    EXPECT_EQ(info->kinds.size(), 6);
    for (const QString& kind : info->kinds) {
        const QByteArray name = kind.toLatin1();
        EXPECT_EQ(known("background", name.constData()), populated<Background>(name.constData()));
    }
}

TEST(CreatedParams, OfTheForegroundAreTheModels)
{
    EXPECT_EQ(known("foreground", "Depth Cue"), populated<Foreground>("Depth Cue"));
}

TEST(CreatedParams, OfTheRenderTargetAreTheModels)
{
    EXPECT_EQ(known("renderTarget"), populated<RenderTarget>());
}

TEST(CreatedParams, OfTheFinishAreTheModels)
{
    EXPECT_EQ(known("finish", "lit appearance"),
              created<Finish>(
                  "",
                  [](Finish& finish) {
                      finish.SetAndPopulateShaderClass(QStringLiteral("lit appearance"));
                  },
                  nothing<Finish>));
}

TEST(CreatedParams, OfTheShadersAreTheModels)
{
    EXPECT_EQ(known("diffuse"),
              created<ShaderDiffuse>(
                  "", [](ShaderDiffuse& diffuse) { diffuse.GetColour(); }, nothing<ShaderDiffuse>));
    EXPECT_EQ(known("plainColour"),
              created<ShaderPlainColour>("", nothing<ShaderPlainColour>, [](ShaderPlainColour& c) {
                  float white[] = {1, 1, 1};
                  c.SetColour(white);
              }));
    EXPECT_EQ(known("map"), created<ShaderMap>("", nothing<ShaderMap>, [](ShaderMap& map) {
                  map.SetTexture(QStringLiteral("t"));
                  map.SetWidth(1);
                  map.SetHeight(1);
                  map.SetOffset(0, 0);
                  map.SetMapping(0, 0);
                  map.SetRotation(0);
                  map.SetUseAlpha(0);
              }));
}

TEST(CreatedParams, OfTransparencyAndBumpAreTheModels)
{
    // Each comes with the shader parameter that a getter adds; its value is not the host's.
    QStringList transparency =
        created<Transparency>("", nothing<Transparency>, [](Transparency& object) {
            object.SetInvertMask(0);
            object.GetColour();
        });
    transparency.last().replace(s_open, QStringLiteral("colour"));
    EXPECT_EQ(known("transparency"), transparency);
    QStringList bump = created<Bump>("", nothing<Bump>, [](Bump& object) {
        object.SetUseDiffuse(0);
        object.SetIsNormalMap(0);
        object.SetHeight(0);
        object.SetSoftness(0);
        object.GetColour();
    });
    bump.last().replace(s_open, QStringLiteral("colour"));
    EXPECT_EQ(known("bump"), bump);
}

TEST(CreatedParams, OfPresetsThatTheLibraryNeverMakesAreRead)
{
    EXPECT_EQ(readAsKnown("lens", &Lens::GetAngle), StatusOk);
    EXPECT_EQ(readAsKnown("aspectratio", &AspectRatio::GetAspectRatio), StatusOk);
    EXPECT_EQ(readAsKnown("aspectratioorient", &AspectRatioOrient::IsPortrait), StatusOk);
}

} // namespace rvopen::test
