// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "TestSupport.h"

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

#include <QFile>
#include <QStringList>

#include <gmock/gmock.h>

#include <type_traits>

/// The tables of parameters in docs/formats.md are what the library creates and reads.
namespace rvopen::test {

namespace {

/// Marks a value that a table leaves open.
const QString s_open = QString::fromUtf8("\xE2\x80\x93");

QString referenceText()
{
    QFile file(QStringLiteral(RVOPEN_DATA_DIR "/../docs/formats.md"));
    EXPECT_TRUE(file.open(QIODevice::ReadOnly));
    return QString::fromUtf8(file.readAll());
}

QString withoutMarks(QString cell)
{
    cell = cell.trimmed();
    if (cell == QLatin1String("empty"))
        return QString();
    return cell.remove(QLatin1Char('`')).remove(QLatin1Char('"'));
}

QString describe(const QString& name, const QString& type, const QString& value, bool isLength)
{
    return QStringLiteral("%1: %2 = \"%3\"%4")
        .arg(name, type, value, isLength ? QStringLiteral(", a length") : QString());
}

/// The rows of the element's table, as describe() puts them.
QStringList documented(const QString& element)
{
    const QString heading = QStringLiteral("\n### `%1`\n").arg(element);
    const QString section =
        referenceText().section(heading, 1, 1).section(QStringLiteral("\n#"), 0, 0);
    QStringList rows;
    for (const QString& line : section.split(QLatin1Char('\n'))) {
        if (!line.startsWith(QLatin1String("| \"")))
            continue;
        const QStringList cells = line.split(QLatin1Char('|'));
        rows << describe(withoutMarks(cells[1]), withoutMarks(cells[2]), withoutMarks(cells[3]),
                         cells[5].trimmed().startsWith(QLatin1String("length")));
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

/// Whether \p read finds a parameter of the name and type that the table of the element has.
template <typename Class, typename Value>
unsigned int readAsDocumented(const QString& element, unsigned int (Class::*read)(Value*))
{
    const QString row = documented(element).value(0);
    QDomDocument document;
    document.setContent(
        QStringLiteral("<e><param name=\"%1\" type=\"%2\" val=\"1\"/></e>")
            .arg(row.section(QStringLiteral(": "), 0, 0),
                 row.section(QStringLiteral(": "), 1).section(QLatin1Char(' '), 0, 0)));
    Class object(nullptr);
    object.SetDomNode(document.documentElement());
    Value value;
    return (object.*read)(&value);
}

} // namespace

TEST(DocumentedParameters, OfTheSettingsAreTheLibrarys)
{
    EXPECT_EQ(documented(QStringLiteral("snapShotSettings")),
              created<SnapShotSettings>("", populate<SnapShotSettings>, [](SnapShotSettings& s) {
                  s.SetSelected(1);
                  s.SetReflectBackPlate(1);
              }));
}

TEST(DocumentedParameters, OfTheSceneryAreTheLibrarys)
{
    EXPECT_EQ(documented(QStringLiteral("scenery")),
              created<Scenery>("", populate<Scenery>,
                               [](Scenery& scenery) { scenery.SetDropShadowCatchSpots(1); }));
}

TEST(DocumentedParameters, OfTheCameraAreTheLibrarys)
{
    EXPECT_EQ(documented(QStringLiteral("camera")), populated<Camera>());
}

TEST(DocumentedParameters, OfTheStudiosAreTheLibrarys)
{
    EXPECT_EQ(documented(QStringLiteral("naturalLightStudio")), populated<NaturalLightStudio>());
    EXPECT_EQ(documented(QStringLiteral("artificialLightStudio")),
              populated<ArtificialLightStudio>());
}

TEST(DocumentedParameters, OfTheBackgroundAreTheLibrarys)
{
    QStringList all;
    for (const char* kind : {"Plain", "Graduated", "Horizon", "Image", "Image3D", "Reflection"})
        all << populated<Background>(kind);
    all.removeDuplicates();
    EXPECT_EQ(documented(QStringLiteral("background")), all);
}

TEST(DocumentedParameters, OfTheForegroundAreTheLibrarys)
{
    EXPECT_EQ(documented(QStringLiteral("foreground")), populated<Foreground>("Depth Cue"));
}

TEST(DocumentedParameters, OfTheRenderTargetAreTheLibrarys)
{
    EXPECT_EQ(documented(QStringLiteral("renderTarget")), populated<RenderTarget>());
}

TEST(DocumentedParameters, OfTheFinishAreTheLibrarys)
{
    EXPECT_EQ(documented(QStringLiteral("finish")),
              created<Finish>(
                  "",
                  [](Finish& finish) {
                      finish.SetAndPopulateShaderClass(QStringLiteral("lit appearance"));
                  },
                  nothing<Finish>));
}

TEST(DocumentedParameters, OfTheShadersAreTheLibrarys)
{
    EXPECT_EQ(documented(QStringLiteral("diffuse")),
              created<ShaderDiffuse>(
                  "", [](ShaderDiffuse& diffuse) { diffuse.GetColour(); }, nothing<ShaderDiffuse>));
    EXPECT_EQ(documented(QStringLiteral("plainColour")),
              created<ShaderPlainColour>("", nothing<ShaderPlainColour>, [](ShaderPlainColour& c) {
                  float white[] = {1, 1, 1};
                  c.SetColour(white);
              }));
    EXPECT_EQ(documented(QStringLiteral("map")),
              created<ShaderMap>("", nothing<ShaderMap>, [](ShaderMap& map) {
                  map.SetTexture(QStringLiteral("t"));
                  map.SetWidth(1);
                  map.SetHeight(1);
                  map.SetOffset(0, 0);
                  map.SetMapping(0, 0);
                  map.SetRotation(0);
                  map.SetUseAlpha(0);
              }));
}

TEST(DocumentedParameters, OfTransparencyAndBumpAreTheLibrarys)
{
    // Each comes with the shader parameter that a getter adds; its value is not the host's.
    QStringList transparency =
        created<Transparency>("", nothing<Transparency>, [](Transparency& object) {
            object.SetInvertMask(0);
            object.GetColour();
        });
    transparency.last().replace(s_open, QStringLiteral("colour"));
    EXPECT_EQ(documented(QStringLiteral("transparency")), transparency);
    QStringList bump = created<Bump>("", nothing<Bump>, [](Bump& object) {
        object.SetUseDiffuse(0);
        object.SetIsNormalMap(0);
        object.SetHeight(0);
        object.SetSoftness(0);
        object.GetColour();
    });
    bump.last().replace(s_open, QStringLiteral("colour"));
    EXPECT_EQ(documented(QStringLiteral("bump")), bump);
}

TEST(DocumentedParameters, OfPresetsThatTheLibraryNeverMakesAreRead)
{
    EXPECT_EQ(readAsDocumented(QStringLiteral("lens"), &Lens::GetAngle), StatusOk);
    EXPECT_EQ(readAsDocumented(QStringLiteral("aspectratio"), &AspectRatio::GetAspectRatio),
              StatusOk);
    EXPECT_EQ(readAsDocumented(QStringLiteral("aspectratioorient"), &AspectRatioOrient::IsPortrait),
              StatusOk);
}

} // namespace rvopen::test
