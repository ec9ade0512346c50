// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include <rvopen/widgets/ParamDelegate.h>

#include "../RecordingObserver.h"

#include <rvopen/widgets/ParamEditor.h>
#include <rvopen/widgets/ParamModel.h>

#include <QCheckBox>
#include <QDomDocument>
#include <QDoubleSpinBox>
#include <QLineEdit>
#include <QSignalSpy>
#include <QSlider>
#include <QTest>
#include <QTreeView>

#include <gtest/gtest.h>

namespace rvopen::widgets {

namespace {

using test::RecordingObserver;

QStringList s_warnings;

/// Views say so when they are told of editors that are none of theirs any more.
class Warnings {
public:
    Warnings()
        : m_before(
              qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString& text) {
                  if (text.startsWith(QLatin1String("QAbstractItemView")))
                      s_warnings << text;
              }))
    {
        s_warnings.clear();
    }
    ~Warnings()
    {
        qInstallMessageHandler(m_before);
    }
    Warnings(const Warnings&) = delete;
    Warnings& operator=(const Warnings&) = delete;

private:
    QtMessageHandler m_before;
};

/// A view of a camera, and who watches its document.
class ParamDelegateTest : public ::testing::Test {
protected:
    ParamDelegateTest()
        : observer(parsed())
    {
        model.SetElement(document.documentElement().firstChildElement());
        view.setModel(&model);
        view.setItemDelegateForColumn(ParamModel::Value, &delegate);
        view.resize(800, 300);
        view.show();
        view.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&view));
    }

    const QDomDocument& parsed()
    {
        document.setContent(QStringLiteral(R"(<snapRoot unitsScale="1"><camera>
  <param name="From" type="point" val="1 2 3"/>
  <param name="Orthographic" type="boolean" val="0"/>
  <param name="Field Of View" type="float" val="45.00001"/>
  <param name="Mine" type="string" val="kept"/>
  <param name="Fixed" type="string" prop="R" val="kept"/></camera></snapRoot>)"));
        return document;
    }

    QModelIndex value(int row) const
    {
        return model.index(row, ParamModel::Value);
    }

    QString stored(int row) const
    {
        return model.Param(value(row)).attribute(QStringLiteral("val"));
    }

    ParamEditor* edit(int row)
    {
        view.setCurrentIndex(value(row));
        view.edit(value(row));
        return editor();
    }

    ParamEditor* editor() const
    {
        return view.findChild<ParamEditor*>();
    }

    void TearDown() override
    {
        view.setModel(nullptr);
        EXPECT_TRUE(isClosed());
        EXPECT_EQ(s_warnings, QStringList());
    }

    /// Editors go when the program has nothing else to do.
    bool isClosed() const
    {
        return QTest::qWaitFor([this] { return !editor(); });
    }

    QDomDocument document;
    ParamModel model;
    ParamDelegate delegate;
    QTreeView view;
    RecordingObserver observer;
    Warnings warnings;
};

} // namespace

TEST_F(ParamDelegateTest, WritesWhatIsTypedAndCloses)
{
    auto* const field = edit(2)->findChild<QDoubleSpinBox*>();
    EXPECT_EQ(QApplication::focusWidget(), field);
    field->selectAll();
    QTest::keyClicks(field, QStringLiteral("60"));
    EXPECT_EQ(observer.lines, QStringList());
    QTest::keyClick(field, Qt::Key_Return);
    EXPECT_EQ(observer.take(), QStringLiteral("param:Field Of View @val: '45.00001' -> '60'\n."));
    EXPECT_TRUE(isClosed());
    EXPECT_EQ(observer.take(), QString());
}

TEST_F(ParamDelegateTest, WritesNothingThatWasOnlyLookedAt)
{
    for (int row = 0; row < 4; ++row) {
        QTest::keyClick(edit(row)->focusProxy(), Qt::Key_Return);
        EXPECT_TRUE(isClosed());
    }
    EXPECT_EQ(observer.lines, QStringList());
    EXPECT_EQ(stored(2), QStringLiteral("45.00001"));
}

TEST_F(ParamDelegateTest, WritesNothingAfterEscape)
{
    auto* const line = edit(3)->findChild<QLineEdit*>();
    QTest::keyClicks(line, QStringLiteral("more"));
    QTest::keyClick(line, Qt::Key_Escape);
    EXPECT_TRUE(isClosed());
    EXPECT_EQ(observer.lines, QStringList());
}

TEST_F(ParamDelegateTest, MakesOneChangeOfTheDragOfASlider)
{
    auto* const slider = edit(2)->findChild<QSlider*>();
    ASSERT_TRUE(slider);
    slider->setSliderDown(true);
    slider->setValue(slider->maximum() / 4);
    slider->setValue(slider->maximum() / 2);
    EXPECT_EQ(observer.lines.size(), 2);
    EXPECT_EQ(observer.lines.count(QStringLiteral(".")), 0);
    slider->setSliderDown(false);
    EXPECT_EQ(observer.lines.size(), 3);
    EXPECT_EQ(observer.lines.last(), QStringLiteral("."));
    EXPECT_EQ(stored(2), QString::number(editor()->Value().toDouble(), 'g', 6));
}

TEST_F(ParamDelegateTest, EndsTheChangeWhenTheEditorGoesDuringADrag)
{
    auto* const slider = edit(2)->findChild<QSlider*>();
    slider->setSliderDown(true);
    slider->setValue(slider->maximum());
    view.setModel(nullptr);
    EXPECT_TRUE(isClosed());
    EXPECT_EQ(observer.lines.count(QStringLiteral(".")), 1);
}

TEST_F(ParamDelegateTest, ShowsWhatTheDocumentBecomes)
{
    ParamEditor* const open = edit(0);
    ASSERT_TRUE(model.setData(value(0), QStringLiteral("4 5 6")));
    EXPECT_EQ(open->Value(), QVariant(QVariantList{4.0, 5.0, 6.0}));
    EXPECT_FALSE(open->IsEdited());
}

TEST_F(ParamDelegateTest, GivesBackTheValueWhenAnotherIsRefused)
{
    ParamEditor* const open = edit(3);
    const QSignalSpy refused(&model, &ParamModel::Refused);
    auto* const line = open->findChild<QLineEdit*>();
    line->setText(QString(QChar(1)));
    Q_EMIT open->Edited();
    EXPECT_EQ(refused.size(), 1);
    EXPECT_EQ(line->text(), QStringLiteral("kept"));
    EXPECT_EQ(stored(3), QStringLiteral("kept"));
}

TEST_F(ParamDelegateTest, WritesAndClosesWhenTheFocusGoes)
{
    QLineEdit other(&view);
    other.show();
    auto* const line = edit(3)->findChild<QLineEdit*>();
    QTest::keyClicks(line, QStringLiteral("x"));
    other.setFocus();
    EXPECT_EQ(stored(3), QStringLiteral("x"));
    EXPECT_TRUE(isClosed());
    EXPECT_EQ(observer.lines.count(QStringLiteral(".")), 1);
}

TEST_F(ParamDelegateTest, TogglesATruthWithoutAnEditor)
{
    view.setCurrentIndex(value(1));
    QTest::keyClick(view.viewport(), Qt::Key_Space);
    EXPECT_EQ(stored(1), QStringLiteral("1"));
    EXPECT_FALSE(editor());
}

TEST_F(ParamDelegateTest, ShowsATruthAsABoxWithoutText)
{
    struct Shown : ParamDelegate {
        using ParamDelegate::initStyleOption;
    } shown;
    QStyleOptionViewItem option;
    shown.initStyleOption(&option, value(1));
    EXPECT_EQ(option.text, QString());
    EXPECT_TRUE(option.features & QStyleOptionViewItem::HasCheckIndicator);
    QStyleOptionViewItem another;
    shown.initStyleOption(&another, value(3));
    EXPECT_EQ(another.text, QStringLiteral("kept"));
}

TEST_F(ParamDelegateTest, HasRowsThatEditorsFitIn)
{
    for (int row = 0; row < 4; ++row) {
        EXPECT_GE(view.visualRect(value(row)).height(), edit(row)->minimumSizeHint().height());
        view.setCurrentIndex(QModelIndex());
        EXPECT_TRUE(isClosed());
    }
}

TEST_F(ParamDelegateTest, HasNoEditorForWhatIsReadOnly)
{
    const QStyleOptionViewItem option;
    EXPECT_EQ(delegate.createEditor(&view, option, value(4)), nullptr);
    EXPECT_EQ(delegate.createEditor(&view, option, model.index(0, ParamModel::Name)), nullptr);
}

} // namespace rvopen::widgets
