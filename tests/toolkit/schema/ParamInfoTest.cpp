// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "SchemaSupport.h"

#include <rvopen/ArtificialLightStudio.h>
#include <rvopen/Camera.h>
#include <rvopen/NaturalLightStudio.h>
#include <rvopen/Param.h>
#include <rvopen/RVOpenManager.h>
#include <rvopen/RVOpenReader.h>
#include <rvopen/RVOpenView.h>
#include <rvopen/RenderTarget.h>
#include <rvopen/RenderTargets.h>
#include <rvopen/SnapShot.h>

#include <QDirIterator>
#include <QSet>

#include <cmath>

namespace rvopen::test {

namespace {

using namespace toolkit;

/// Every row of both tables.
std::vector<const ParamInfo*> allRows()
{
    std::vector<const ParamInfo*> rows;
    for (const ParamInfos& table : {AllParams(), AllAttributes()}) {
        for (const ParamInfo& info : table)
            rows.push_back(&info);
    }
    return rows;
}

/// The numbers of a row's value.
std::vector<double> numbersOf(QStringView value)
{
    std::vector<double> numbers;
    for (const QString& part : value.toString().split(QLatin1Char(' ')))
        numbers.push_back(part.toDouble());
    return numbers;
}

bool isNumeric(const ParamInfo& info)
{
    return info.type != ValueType::String && info.type != ValueType::Shader &&
           info.type != ValueType::Bytes;
}

QDomElement elementIn(const QDomDocument& document, const char* tag)
{
    return document.elementsByTagName(QLatin1String(tag)).at(0).toElement();
}

} // namespace

TEST(ParamTables, HaveEachNameOfAKindOnce)
{
    QSet<QString> seen;
    for (const ParamInfo* const info : allRows()) {
        const QString key = QString::fromStdString(nameOf(*info)) +
                            (info->isAttribute ? QStringLiteral("@") : QString());
        EXPECT_FALSE(seen.contains(key)) << key.toStdString();
        seen.insert(key);
    }
    EXPECT_GT(seen.size(), 120);
}

TEST(ParamTables, HaveRowsOfAnElementTogether)
{
    QSet<QString> done;
    QString current;
    for (const ParamInfo& info : AllParams()) {
        const QString element = info.element.toString();
        if (element == current)
            continue;
        EXPECT_FALSE(done.contains(element)) << element.toStdString();
        done.insert(element);
        current = element;
    }
}

TEST(ParamTables, SayWhatEachValueIsForInASentence)
{
    for (const ParamInfo* const info : allRows()) {
        EXPECT_FALSE(info->label.isEmpty()) << nameOf(*info);
        EXPECT_TRUE(info->help.endsWith(QLatin1Char('.'))) << nameOf(*info);
    }
}

TEST(ParamTables, HaveDefaultsThatAreRight)
{
    for (const ParamInfo* const info : allRows()) {
        for (const QStringView value : {info->defaultValue, info->absentValue}) {
            if (value.isNull())
                continue;
            const ValueFault fault = CheckValue(*info, value.toString());
            EXPECT_FALSE(fault) << nameOf(*info) << ": "
                                << FaultMessage(*info, fault).toStdString();
            if (!isNumeric(*info))
                continue;
            for (const double number : numbersOf(value)) {
                EXPECT_TRUE(info->hard.Contains(number)) << nameOf(*info) << ": " << number;
                // 0 may switch something off that is set in another range.
                EXPECT_TRUE(info->soft.Contains(number) || number == 0)
                    << nameOf(*info) << ": " << number;
            }
        }
    }
}

TEST(ParamTables, FindNothingWrongWithWhatTheModelCreates)
{
    for (const ParamInfo& info : AllParams()) {
        if (!info.createdValue.isNull()) {
            EXPECT_FALSE(CheckValue(info, info.createdValue.toString())) << nameOf(info);
        }
    }
}

TEST(ParamTables, HaveSoftRangesInsideOfHardOnes)
{
    for (const ParamInfo* const info : allRows()) {
        if (info->soft.HasMinimum()) {
            EXPECT_TRUE(info->hard.Contains(info->soft.minimum)) << nameOf(*info);
        }
        if (info->soft.HasMaximum()) {
            EXPECT_TRUE(info->hard.Contains(info->soft.maximum)) << nameOf(*info);
        }
        if (info->step > 0) {
            EXPECT_LE(info->step, info->soft.maximum - info->soft.minimum) << nameOf(*info);
        }
        EXPECT_EQ(info->step > 0, info->soft.HasMinimum()) << nameOf(*info);
    }
}

TEST(ParamTables, GiveNumbersOfParametersASoftRange)
{
    for (const ParamInfo& info : AllParams()) {
        const bool isNumber = info.type == ValueType::Float || info.type == ValueType::Integer;
        EXPECT_EQ(isNumber || info.type == ValueType::Colour, info.soft.HasMaximum())
            << nameOf(info);
        if (isNumber) {
            EXPECT_NE(info.unit, Unit::None) << nameOf(info);
        }
    }
}

TEST(ParamTables, BoundStoredLengthsByNothingButZero)
{
    int lengths = 0;
    for (const ParamInfo& info : AllParams()) {
        if (!info.isLength)
            continue;
        ++lengths;
        EXPECT_EQ(info.type, ValueType::Float) << nameOf(info);
        EXPECT_TRUE(info.unit == Unit::SceneLength || info.unit == Unit::SceneArea) << nameOf(info);
        EXPECT_FALSE(info.hard.HasMaximum()) << nameOf(info);
        EXPECT_TRUE(!info.hard.HasMinimum() || info.hard.minimum == 0) << nameOf(info);
    }
    EXPECT_EQ(lengths, 7);
}

TEST(ParamTables, KnowTheColourSpaceOfColoursAndImages)
{
    for (const ParamInfo& info : AllParams()) {
        const bool isMeantToBeSeen = info.kind != QStringView(u"bump");
        if (info.content == Content::ImageFile ||
            (info.type == ValueType::Colour && isMeantToBeSeen)) {
            EXPECT_NE(info.colourSpace, ColourSpace::None) << nameOf(info);
        }
    }
    EXPECT_EQ(rowOf("map", "diffuse", "Texture").colourSpace, ColourSpace::Srgb);
    EXPECT_EQ(rowOf("map", "transparency", "Texture").colourSpace, ColourSpace::Data);
    EXPECT_EQ(rowOf("map", "bump", "Texture").colourSpace, ColourSpace::Data);
}

TEST(ParamTables, HaveSevenImageFiles)
{
    QStringList names;
    for (const ParamInfo& info : AllParams()) {
        if (info.content == Content::ImageFile)
            names << QString::fromStdString(nameOf(info));
    }
    EXPECT_EQ(names, QStringList({QStringLiteral("snapShotSettings[]:Reflected Env Path"),
                                  QStringLiteral("background[Image]:File Name"),
                                  QStringLiteral("background[Image3D]:File Name"),
                                  QStringLiteral("background[Reflection]:File Name"),
                                  QStringLiteral("map[]:Texture"),
                                  QStringLiteral("map[transparency]:Texture"),
                                  QStringLiteral("map[bump]:Texture")}));
}

TEST(ParamTables, KnowWhatANewDocumentHas)
{
    RVOpenManager manager;
    SnapShot* const snapShot = manager.GetCurrentSnapShot();
    ASSERT_TRUE(snapShot);
    const std::unique_ptr<Camera> camera(snapShot->CreateCamera());
    ASSERT_TRUE(snapShot->AddCamera(camera.get()));
    RenderTargets* const targets = snapShot->GetRenderTargets();
    ASSERT_TRUE(targets);
    targets->AddNode(targets->CreateRenderTarget(nullptr), false);
    ASSERT_TRUE(snapShot->CreateAndAddNaturalLightStudio());
    ASSERT_TRUE(snapShot->GetArtificialLightStudio());
    int count = 0;
    EXPECT_EQ(complaints(manager.GetRootNode()->GetDomNode().toElement(), count), QStringList());
    EXPECT_GT(count, 40);
}

TEST(ParamTables, KnowAllOfTheStarterInstallationWithinTheHardRanges)
{
    int documents = 0;
    int count = 0;
    QDirIterator files(QStringLiteral(RVOPEN_DATA_DIR),
                       {QStringLiteral("*.rvx"), QStringLiteral("*.xml")}, QDir::Files,
                       QDirIterator::Subdirectories);
    while (files.hasNext()) {
        const QString file = files.next();
        const std::unique_ptr<QDomDocument> document(ReadXmlDocument(file));
        ASSERT_TRUE(document) << file.toStdString();
        ++documents;
        EXPECT_EQ(complaints(document->documentElement(), count), QStringList())
            << file.toStdString();
    }
    EXPECT_GT(documents, 5);
    EXPECT_GT(count, 10000);
}

TEST(KindOf, IsTheSubCategoryOrTheShaderClassOrThePlace)
{
    const QDomDocument document = parse(QStringLiteral(
        "<snapshot><background subcat='Image'/><finish subcat='a' shaderClass='lit appearance'/>"
        "<bump subcat='c'><param><map subcat='b'/></param></bump>"
        "<transparency><param><plainColour/></param></transparency></snapshot>"));
    const auto kindOf = [&document](const char* tag) { return KindOf(elementIn(document, tag)); };
    EXPECT_EQ(kindOf("background"), QStringLiteral("Image"));
    EXPECT_EQ(kindOf("finish"), QStringLiteral("lit appearance"));
    EXPECT_EQ(kindOf("map"), QStringLiteral("bump"));
    EXPECT_EQ(kindOf("plainColour"), QStringLiteral("transparency"));
    EXPECT_EQ(kindOf("bump"), QStringLiteral("c"));
    EXPECT_EQ(kindOf("snapshot"), QString());
    EXPECT_EQ(KindOf(*RVOpenView<>(elementIn(document, "background"))), QStringLiteral("Image"));
}

TEST(FindParam, TellsKindsApart)
{
    EXPECT_EQ(rowOf("background", "Image3D", "File Name").label, QStringView(u"Panorama"));
    EXPECT_EQ(rowOf("background", "Image", "File Name").label, QStringView(u"Image"));
    EXPECT_FALSE(FindParam(QStringLiteral("background"), QStringLiteral("Image"),
                           QStringLiteral("Horizon Position")));
    EXPECT_FALSE(FindParam(QStringLiteral("background"), QString(), QStringLiteral("File Name")));
    EXPECT_FALSE(
        FindParam(QStringLiteral("foreground"), QStringLiteral("None"), QStringLiteral("Near")));
}

TEST(FindParam, TakesARowForEveryKindWhereThereIsNoneOfItsOwn)
{
    EXPECT_EQ(rowOf("map", "bump", "Width").label, QStringView(u"Width"));
    EXPECT_EQ(rowOf("map", "nowhere", "Texture").label, QStringView(u"Image"));
    EXPECT_EQ(rowOf("camera", "Up Vector", "Up").type, ValueType::Vector);
}

TEST(FindParam, MindsTheCaseOfLetters)
{
    EXPECT_FALSE(FindParam(QStringLiteral("camera"), QString(), QStringLiteral("near")));
    EXPECT_FALSE(FindParam(QStringLiteral("Camera"), QString(), QStringLiteral("Near")));
    EXPECT_TRUE(FindParam(QStringLiteral("camera"), QString(), QStringLiteral("Near")));
}

TEST(FindParam, GoesByANodeOrAParameterAsWell)
{
    const QDomDocument document = parse(QStringLiteral(
        "<finish shaderClass='lit appearance'>"
        "<param name='roughness' type='float' val='0.5'/><param name='shine'/></finish>"));
    const QDomElement finish = document.documentElement();
    const RVOpenView<> node(finish);
    const ParamInfo* const expected = &rowOf("finish", "lit appearance", "roughness");
    EXPECT_EQ(FindParam(*node, QStringLiteral("roughness")), expected);
    EXPECT_EQ(FindParam(*node, QStringLiteral("shine")), nullptr);
    const RVOpenView<Param> known(finish.firstChild());
    const RVOpenView<Param> unknown(finish.lastChild());
    EXPECT_EQ(FindParam(*known), expected);
    EXPECT_EQ(FindParam(*unknown), nullptr);
    EXPECT_EQ(FindParam(Param()), nullptr);
}

TEST(ParamsOf, HasEachOnceInTheOrderOfTheModel)
{
    QStringList names;
    for (const ParamInfo* const info :
         ParamsOf(QStringLiteral("map"), QStringLiteral("transparency")))
        names << info->label.toString();
    EXPECT_EQ(names.join(QLatin1Char('|')),
              QStringLiteral("Mask|Width|Height|Offset to the right|Offset upwards|Mirror left to "
                             "right|Mirror top to bottom|Rotation|Use alpha"));
    EXPECT_EQ(ParamsOf(QStringLiteral("scheme")).size(), 0);
    EXPECT_EQ(ParamsOf(QStringLiteral("background"), QStringLiteral("Odd")).size(), 0);
    EXPECT_TRUE(HasParams(QStringLiteral("background")));
    EXPECT_FALSE(HasParams(QStringLiteral("scheme")));
}

TEST(FindAttribute, PrefersTheElementsOwn)
{
    const ParamInfo* const ofScheme =
        FindAttribute(QStringLiteral("scheme"), QStringLiteral("subcat"));
    const ParamInfo* const ofBump = FindAttribute(QStringLiteral("bump"), QStringLiteral("subcat"));
    ASSERT_TRUE(ofScheme);
    ASSERT_TRUE(ofBump);
    EXPECT_EQ(ofScheme->choices.count, 3);
    EXPECT_FALSE(ofScheme->choices.areOpen);
    EXPECT_EQ(ofBump->choices.count, 0);
    EXPECT_TRUE(ofBump->isAttribute);
    EXPECT_TRUE(FindAttribute(QStringLiteral("anything"), QStringLiteral("refname")));
    EXPECT_FALSE(FindAttribute(QStringLiteral("anything"), QStringLiteral("linkname")));
}

TEST(FindAttribute, GivesParametersTheirOwnAlone)
{
    EXPECT_TRUE(FindAttribute(QStringLiteral("param"), QStringLiteral("rangeMin")));
    EXPECT_FALSE(FindAttribute(QStringLiteral("param"), QStringLiteral("refname")));
    EXPECT_FALSE(FindAttribute(QStringLiteral("camera"), QStringLiteral("rangeMin")));
}

TEST(TypeNamed, IsTheOtherWayRound)
{
    for (const ValueType type :
         {ValueType::Float, ValueType::Integer, ValueType::Boolean, ValueType::String,
          ValueType::Shader, ValueType::Colour, ValueType::Vector, ValueType::Point})
        EXPECT_EQ(TypeNamed(TypeName(type)), type) << TypeName(type).toStdString();
    EXPECT_EQ(TypeName(ValueType::Point), QStringLiteral("point"));
    EXPECT_EQ(TypeNamed(TypeName(ValueType::Bytes)), std::nullopt);
    EXPECT_EQ(TypeNamed(QString()), std::nullopt);
    EXPECT_EQ(TypeNamed(QStringLiteral("Float")), std::nullopt);
}

TEST(OwnRange, HasTheEndsThatTheElementStates)
{
    QDomDocument document;
    QDomElement param = document.createElement(QStringLiteral("param"));
    EXPECT_EQ(RangeText(OwnRange(param)), QString());
    param.setAttribute(QStringLiteral("rangeMin"), QStringLiteral("-0.5"));
    EXPECT_EQ(RangeText(OwnRange(param)), QStringLiteral("from -0.5"));
    param.setAttribute(QStringLiteral("rangeMax"), QStringLiteral("2"));
    EXPECT_EQ(RangeText(OwnRange(param)), QStringLiteral("-0.5 to 2"));
    param.setAttribute(QStringLiteral("rangeMin"), QStringLiteral("1e99"));
    EXPECT_EQ(RangeText(OwnRange(param)), QStringLiteral("up to 2"));
}

TEST(RangeText, NamesTheEndsThatThereAre)
{
    EXPECT_EQ(RangeText(rowOf("lens", "", "Angle").hard), QStringLiteral("above 0 and below 180"));
    EXPECT_EQ(RangeText(rowOf("naturalLightStudio", "", "Sun Altitude").hard),
              QStringLiteral("-90 to 90"));
    EXPECT_EQ(RangeText(rowOf("camera", "", "Near").hard), QStringLiteral("from 0"));
    EXPECT_EQ(RangeText(rowOf("map", "", "Width").hard), QStringLiteral("above 0"));
    EXPECT_EQ(RangeText(rowOf("map", "", "Rotation").hard), QString());
    Range range;
    range.maximum = 3;
    EXPECT_EQ(RangeText(range), QStringLiteral("up to 3"));
    range.excludesMaximum = true;
    EXPECT_EQ(RangeText(range), QStringLiteral("below 3"));
}

TEST(Range, ContainsItsEndsUnlessTheyAreExcluded)
{
    Range range;
    EXPECT_TRUE(range.Contains(-1e300));
    EXPECT_FALSE(range.Contains(std::nan("")));
    EXPECT_FALSE(range.HasMinimum());
    EXPECT_FALSE(range.HasMaximum());
    range.minimum = 0;
    range.maximum = 180;
    EXPECT_TRUE(range.HasMinimum());
    EXPECT_TRUE(range.HasMaximum());
    EXPECT_TRUE(range.Contains(0));
    EXPECT_TRUE(range.Contains(180));
    EXPECT_FALSE(range.Contains(-0.001));
    EXPECT_FALSE(range.Contains(180.001));
    range.excludesMinimum = true;
    range.excludesMaximum = true;
    EXPECT_FALSE(range.Contains(0));
    EXPECT_FALSE(range.Contains(180));
    EXPECT_TRUE(range.Contains(0.001));
    EXPECT_TRUE(range.Contains(179.999));
}

} // namespace rvopen::test
