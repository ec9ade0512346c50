// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include <rvopen/widgets/ParamModel.h>

#include "../RecordingObserver.h"

#include <rvopen/Param.h>
#include <rvopen/RVOpenManager.h>
#include <rvopen/RVOpenView.h>

#include <QAbstractItemModelTester>
#include <QColor>
#include <QDomDocument>
#include <QSignalSpy>

#include <gtest/gtest.h>

namespace rvopen::widgets {

namespace {

using test::RecordingObserver;

constexpr auto s_fatal = QAbstractItemModelTester::FailureReportingMode::Fatal;

/// A document of a camera and a material, with units of half a scene unit.
class ParamModelTest : public ::testing::Test {
protected:
    ParamModelTest()
    {
        document.setContent(QStringLiteral(R"(<snapRoot unitsScale="2">
<camera>
  <param name="From" type="point" val="1 2 3"/>
  <!-- between -->
  <param name="Orthographic" type="boolean" val="0"/>
  <param name="Field Of View" type="float" val="45"/>
  <param name="Near" type="float" prop="D" val="3"/>
  <param name="Mine" type="string" prop="R" val="kept"/>
</camera>
<material name="Red"><colour><diffuse enabled="1">
  <param name="Colour" type="shader" val="colour"><plainColour enabled="1">
    <param name="Colour" type="colour" val="0.5 0 0"/></plainColour></param></diffuse></colour>
  <finish shaderClass="lit appearance"><param name="roughness" type="float" val="0.5"/></finish>
</material></snapRoot>)"));
    }

    QDomElement element(const char* name) const
    {
        return document.documentElement().firstChildElement(QLatin1String(name));
    }

    QDomElement param(const char* name) const
    {
        QDomElement at = element("camera").firstChildElement();
        while (at.attribute(QStringLiteral("name")) != QLatin1String(name))
            at = at.nextSiblingElement();
        return at;
    }

    QModelIndex value(const char* name) const
    {
        return model.IndexOf(param(name));
    }

    QStringList names() const
    {
        QStringList all;
        for (int row = 0; row < model.rowCount(); ++row)
            all << model.index(row, ParamModel::Name).data().toString();
        return all;
    }

    QDomDocument document;
    ParamModel model;
    QAbstractItemModelTester tester{&model, s_fatal};
};

} // namespace

TEST_F(ParamModelTest, ShowsNothingOfNothing)
{
    EXPECT_EQ(model.rowCount(), 0);
    model.SetNode(nullptr);
    EXPECT_EQ(model.rowCount(), 0);
    EXPECT_TRUE(model.Element().isNull());
    EXPECT_TRUE(model.Param(QModelIndex()).isNull());
}

TEST_F(ParamModelTest, ShowsParametersInDocumentOrderWithTheirLabels)
{
    model.SetElement(element("camera"));
    EXPECT_EQ(names(),
              (QStringList{"From", "Parallel", "Field of view", "Near", QStringLiteral("Mine")}));
    const QModelIndex angle = value("Field Of View");
    EXPECT_EQ(angle.data().toString(), "45");
    EXPECT_EQ(angle.siblingAtColumn(ParamModel::Unit).data().toString(), "degrees");
    EXPECT_EQ(angle.siblingAtColumn(ParamModel::Meaning).data().toString(),
              "Horizontal angle across the width of the image.");
    EXPECT_EQ(angle.data(Qt::ToolTipRole).toString(),
              "Horizontal angle across the width of the image.\nabove 0 and below 180 degrees\n"
              "Field Of View");
    EXPECT_EQ(angle.data(Qt::AccessibleTextRole).toString(), "Field of view: 45 degrees");
    EXPECT_EQ(model.headerData(ParamModel::Meaning, Qt::Horizontal).toString(), "Meaning");
}

TEST_F(ParamModelTest, GivesValuesByTypeInSceneUnits)
{
    model.SetElement(element("camera"));
    EXPECT_EQ(value("Near").data(Qt::EditRole), QVariant(1.5));
    EXPECT_EQ(value("From").data(Qt::EditRole), QVariant(QVariantList{1.0, 2.0, 3.0}));
    EXPECT_EQ(value("Orthographic").data(Qt::EditRole), QVariant(false));
    EXPECT_EQ(value("Orthographic").data(Qt::CheckStateRole).toInt(), int(Qt::Unchecked));
    EXPECT_EQ(value("Mine").data(Qt::EditRole), QVariant(QStringLiteral("kept")));
}

TEST_F(ParamModelTest, ShowsAllShadersOfAMaterialWithTheirSections)
{
    model.SetElement(element("material"), ParamModel::Below);
    ASSERT_EQ(model.rowCount(), 3);
    EXPECT_EQ(model.index(1, 0).data(ParamModel::SectionRole).toString(),
              "colour / diffuse / plainColour");
    EXPECT_EQ(model.index(2, 0).data(ParamModel::SectionRole).toString(), "finish");
    EXPECT_EQ(model.index(1, ParamModel::Value).data(Qt::DecorationRole).value<QColor>(),
              QColor::fromRgbF(0.5, 0, 0));
    model.SetElement(element("material"));
    EXPECT_EQ(model.rowCount(), 0);
}

TEST_F(ParamModelTest, KnowsWhatEditorsNeed)
{
    model.SetElement(element("camera"));
    const auto facts = value("Field Of View").data(ParamModel::FactsRole).value<ParamFacts>();
    EXPECT_EQ(facts.type, toolkit::ValueType::Float);
    EXPECT_EQ(facts.unit, "degrees");
    EXPECT_EQ(facts.hard.maximum, 180);
    EXPECT_TRUE(facts.hard.excludesMaximum);
    EXPECT_EQ(facts.soft.minimum, 3);
    EXPECT_EQ(facts.step, 0.1);
    EXPECT_FALSE(facts.isReadOnly);
    EXPECT_TRUE(value("Mine").data(ParamModel::FactsRole).value<ParamFacts>().isReadOnly);
}

TEST_F(ParamModelTest, NarrowsTheRangeToThatOfTheParameter)
{
    QDomElement angle = param("Field Of View");
    angle.setAttribute(QStringLiteral("rangeMin"), QStringLiteral("10"));
    angle.setAttribute(QStringLiteral("rangeMax"), QStringLiteral("200"));
    const ParamFacts facts = FactsOf(angle);
    EXPECT_EQ(facts.hard.minimum, 10);
    EXPECT_FALSE(facts.hard.excludesMinimum);
    EXPECT_EQ(facts.hard.maximum, 180);
    EXPECT_TRUE(facts.hard.excludesMaximum);
    EXPECT_EQ(facts.soft.minimum, 10);
    EXPECT_EQ(facts.soft.maximum, 180);
}

TEST_F(ParamModelTest, KnowsOfAnotherTypeThanUsualTheMeaningAlone)
{
    param("Field Of View").setAttribute(QStringLiteral("type"), QStringLiteral("string"));
    const ParamFacts text = FactsOf(param("Field Of View"));
    EXPECT_EQ(text.label, "Field of view");
    EXPECT_EQ(text.unit, "");
    EXPECT_FALSE(text.hard.HasMaximum());
    param("Field Of View").setAttribute(QStringLiteral("type"), QStringLiteral("quaternion"));
    EXPECT_TRUE(FactsOf(param("Field Of View")).isReadOnly);
}

TEST_F(ParamModelTest, WritesThroughAnObjectAndTellsOfThatRowAlone)
{
    model.SetElement(element("camera"));
    RecordingObserver observer(document);
    const QSignalSpy changed(&model, &QAbstractItemModel::dataChanged);
    EXPECT_TRUE(model.setData(value("Near"), 0.25));
    EXPECT_EQ(param("Near").attribute(QStringLiteral("val")), "0.5");
    EXPECT_EQ(observer.take(), "param:Near @val: '3' -> '0.5'\n.");
    ASSERT_EQ(changed.size(), 1);
    EXPECT_EQ(changed[0][0].toModelIndex(), model.index(3, 0));
    EXPECT_EQ(changed[0][1].toModelIndex(), model.index(3, ParamModel::Meaning));
}

TEST_F(ParamModelTest, WritesEveryTypeOfValue)
{
    model.SetElement(element("camera"));
    EXPECT_TRUE(model.setData(value("From"), QVariantList{0.1, 2, -3}));
    EXPECT_EQ(param("From").attribute(QStringLiteral("val")), "0.1 2 -3");
    EXPECT_TRUE(model.setData(value("Orthographic"), int(Qt::Checked), Qt::CheckStateRole));
    EXPECT_EQ(param("Orthographic").attribute(QStringLiteral("val")), "1");
    EXPECT_TRUE(model.setData(value("Orthographic"), false));
    EXPECT_EQ(param("Orthographic").attribute(QStringLiteral("val")), "0");
    EXPECT_TRUE(model.setData(value("Field Of View"), QStringLiteral("60.5")));
    EXPECT_EQ(param("Field Of View").attribute(QStringLiteral("val")), "60.5");
    model.SetElement(element("material"), ParamModel::Below);
    const QModelIndex colour = model.index(1, ParamModel::Value);
    EXPECT_TRUE(model.setData(colour, QColor(0, 255, 0)));
    EXPECT_EQ(colour.data().toString(), "0 1 0");
    EXPECT_TRUE(model.setData(colour, QStringLiteral("#0000ff")));
    EXPECT_EQ(colour.data().toString(), "0 0 1");
}

TEST_F(ParamModelTest, RefusesWhatIsNoValueAndSaysWhy)
{
    model.SetElement(element("camera"));
    const RecordingObserver observer(document);
    QSignalSpy refused(&model, &ParamModel::Refused);
    EXPECT_FALSE(model.setData(value("Field Of View"), 200.0));
    ASSERT_EQ(refused.size(), 1);
    EXPECT_EQ(refused[0][1].toString(), "200 is not above 0 and below 180");
    EXPECT_FALSE(model.setData(value("Field Of View"), QStringLiteral("wide")));
    EXPECT_EQ(refused.size(), 2);
    EXPECT_FALSE(model.setData(value("Mine"), QStringLiteral("other")));
    EXPECT_FALSE(model.setData(value("Near").siblingAtColumn(ParamModel::Name), 1.0));
    EXPECT_EQ(observer.lines, QStringList());
}

TEST_F(ParamModelTest, LetsValuesBeEditedThatAreNotReadOnly)
{
    model.SetElement(element("camera"));
    EXPECT_TRUE(value("Near").flags() & Qt::ItemIsEditable);
    EXPECT_FALSE(value("Near").flags() & Qt::ItemIsUserCheckable);
    EXPECT_TRUE(value("Orthographic").flags() & Qt::ItemIsUserCheckable);
    EXPECT_FALSE(value("Mine").flags() & Qt::ItemIsEditable);
    EXPECT_TRUE(value("Mine").flags() & Qt::ItemIsSelectable);
    EXPECT_FALSE(value("Near").siblingAtColumn(ParamModel::Unit).flags() & Qt::ItemIsEditable);
}

TEST_F(ParamModelTest, TellsOfChangesByOthers)
{
    model.SetElement(element("camera"));
    const QSignalSpy changed(&model, &QAbstractItemModel::dataChanged);
    const RVOpenView<> camera(element("camera"));
    camera->GetChild(1, 0);
    const RVOpenView<Param> angle(param("Field Of View"));
    angle->SetValFloat(30);
    ASSERT_EQ(changed.size(), 1);
    EXPECT_EQ(changed[0][0].toModelIndex().row(), 2);
    EXPECT_EQ(value("Field Of View").data().toString(), "30");
    camera->SetName(QStringLiteral("Mine"));
    EXPECT_EQ(changed.size(), 6); // What is known may depend on the kind of the element.
}

TEST_F(ParamModelTest, FollowsParametersThatComeAndGo)
{
    model.SetElement(element("camera"));
    QSignalSpy removed(&model, &QAbstractItemModel::rowsRemoved);
    QSignalSpy inserted(&model, &QAbstractItemModel::rowsInserted);
    const RVOpenView<> camera(element("camera"));
    RVOpenNode* child = camera->GetChild(1, 0);
    while (child->GetName() != QLatin1String("Field Of View"))
        child = child->GetNext(1);
    camera->DetachNode(child, false);
    EXPECT_EQ(names(), (QStringList{"From", "Parallel", "Near", "Mine"}));
    ASSERT_EQ(removed.size(), 1);
    EXPECT_EQ(removed[0][1].toInt(), 2);
    EXPECT_EQ(removed[0][2].toInt(), 2);
    camera->InsertNode(child, 0);
    EXPECT_EQ(names(), (QStringList{"Field of view", "From", "Parallel", "Near", "Mine"}));
    ASSERT_EQ(inserted.size(), 1);
    EXPECT_EQ(inserted[0][1].toInt(), 0);
}

TEST_F(ParamModelTest, LosesItsRowsWithTheElementAndGetsThemBackWithIt)
{
    model.SetElement(element("material"), ParamModel::Below);
    const RVOpenView<> root(document.documentElement());
    RVOpenNode* material = root->GetChild(1, 0);
    while (material->GetNodeName() != QLatin1String("material"))
        material = material->GetNext(1);
    QSignalSpy reset(&model, &QAbstractItemModel::modelReset);
    root->DetachNode(material, false);
    EXPECT_EQ(model.rowCount(), 0);
    const RVOpenView<Param> roughness(
        material->GetDomNode().firstChildElement(QStringLiteral("finish")).firstChildElement());
    roughness->SetValFloat(0.75F);
    material->GetParamHelper()->AddFloatParam(QStringLiteral("Late"));
    EXPECT_EQ(model.rowCount(), 0);
    root->AddNode(material, false);
    EXPECT_EQ(names(), (QStringList{"Colour", "Colour", "Roughness", "Late"}));
    EXPECT_EQ(model.index(2, ParamModel::Value).data().toString(), "0.75");
    EXPECT_EQ(reset.size(), 0);
}

TEST_F(ParamModelTest, ReadsLengthsAnewWhenTheUnitsScaleChanges)
{
    model.SetElement(element("camera"));
    EXPECT_EQ(value("Near").data().toString(), "1.5");
    const QSignalSpy changed(&model, &QAbstractItemModel::dataChanged);
    const RVOpenView<> root(document.documentElement());
    root->SetAttributeFloat("unitsScale", 3);
    EXPECT_EQ(value("Near").data().toString(), "1");
    EXPECT_EQ(changed.size(), 1);
}

TEST_F(ParamModelTest, IsEmptyWhenItsDocumentIsReplaced)
{
    RVOpenManager manager;
    manager.InitialiseSnapShotDoc();
    model.SetNode(manager.GetRootNode());
    ASSERT_FALSE(model.Element().isNull());
    manager.ClearSnapShotDoc();
    EXPECT_TRUE(model.Element().isNull());
    EXPECT_EQ(model.rowCount(), 0);
}

TEST_F(ParamModelTest, WritesNothingWhileObserversAreTold)
{
    model.SetElement(element("camera"));
    bool wasWritten = true;
    QObject::connect(&model, &QAbstractItemModel::dataChanged, &model,
                     [&] { wasWritten = model.setData(value("Near"), 7.0); });
    model.setData(value("Field Of View"), 50.0);
    EXPECT_FALSE(wasWritten);
    EXPECT_EQ(param("Near").attribute(QStringLiteral("val")), "3");
}

} // namespace rvopen::widgets
