// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include <rvopen/widgets/ParamEditor.h>

#include <QCheckBox>
#include <QColorDialog>
#include <QComboBox>
#include <QDoubleSpinBox>
#include <QFileDialog>
#include <QImage>
#include <QLabel>
#include <QLineEdit>
#include <QSignalSpy>
#include <QSlider>
#include <QTemporaryDir>
#include <QTest>
#include <QToolButton>

#include <gtest/gtest.h>

#include <memory>

namespace rvopen::widgets {

namespace {

using namespace toolkit;

ParamFacts ofType(ValueType type)
{
    ParamFacts facts;
    facts.label = QStringLiteral("Angle");
    facts.help = QStringLiteral("How wide it is.");
    facts.type = type;
    return facts;
}

ParamFacts ofNumber(double low, double high)
{
    ParamFacts facts = ofType(ValueType::Float);
    facts.soft.minimum = low;
    facts.soft.maximum = high;
    return facts;
}

ParamFacts ofFile(Content content)
{
    ParamFacts facts = ofType(ValueType::String);
    facts.content = content;
    return facts;
}

QVariant triple(double x, double y, double z)
{
    return QVariantList{x, y, z};
}

/// An editor in a window of its own.
struct Made {
    explicit Made(const ParamFacts& facts, const FindFile& find = {})
        : editor(ParamEditor::Make(facts, nullptr, find))
        , edits(editor.get(), &ParamEditor::Edited)
    {
    }

    template <class Part>
    Part* part() const
    {
        return editor->findChild<Part*>();
    }

    void show()
    {
        editor->show();
        editor->activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(editor.get()));
    }

    std::unique_ptr<ParamEditor> editor;
    QSignalSpy edits;
};

} // namespace

TEST(ParamEditor, HasThePartsThatTheValueNeeds)
{
    EXPECT_TRUE(Made(ofType(ValueType::Boolean)).part<QCheckBox>());
    EXPECT_TRUE(Made(ofNumber(0, 1)).part<QSlider>());
    EXPECT_FALSE(Made(ofType(ValueType::Float)).part<QSlider>());
    EXPECT_EQ(Made(ofType(ValueType::Point)).editor->findChildren<QDoubleSpinBox*>().size(), 3);
    EXPECT_FALSE(Made(ofType(ValueType::Vector)).part<QToolButton>());
    EXPECT_TRUE(Made(ofType(ValueType::Colour)).part<QToolButton>());
    EXPECT_FALSE(Made(ofFile(Content::FileName)).part<QToolButton>());
    EXPECT_TRUE(Made(ofFile(Content::Folder)).part<QToolButton>());
    ParamFacts choice = ofType(ValueType::String);
    choice.choices = QStringList{QStringLiteral("a"), QStringLiteral("b")};
    EXPECT_FALSE(Made(choice).part<QComboBox>()->isEditable());
    choice.areChoicesOpen = true;
    EXPECT_TRUE(Made(choice).part<QComboBox>()->isEditable());
    choice.isReadOnly = true;
    EXPECT_TRUE(Made(choice).part<QLineEdit>()->isReadOnly());
}

TEST(ParamEditor, GivesBackWhatItShows)
{
    const struct {
        ValueType type;
        QVariant value;
    } cases[] = {{ValueType::Boolean, true},
                 {ValueType::Float, double(0.1F)},
                 {ValueType::Float, 1.5e-20},
                 {ValueType::Float, -3e30},
                 {ValueType::Integer, -7},
                 {ValueType::String, QStringLiteral("a \u00e9")},
                 {ValueType::Colour, triple(0.25, double(1.0F / 3), 1)},
                 {ValueType::Point, triple(-1e9, 0, 1e-9)}};
    for (const auto& each : cases) {
        const Made made(ofType(each.type));
        made.editor->SetValue(each.value);
        EXPECT_EQ(made.editor->Value(), each.value) << qPrintable(each.value.toString());
        EXPECT_FALSE(made.editor->IsEdited());
        EXPECT_EQ(made.edits.size(), 0);
    }
}

TEST(ParamEditor, HasNoEditInAnAbsentValue)
{
    for (const ValueType type : {ValueType::Boolean, ValueType::Float, ValueType::String,
                                 ValueType::Colour, ValueType::Integer}) {
        const Made made(ofType(type));
        made.editor->SetValue(QVariant());
        EXPECT_FALSE(made.editor->IsEdited());
    }
}

TEST(ParamEditor, ShowsWhatIsReadOnlyWhateverItIs)
{
    ParamFacts facts = ofType(ValueType::Point);
    facts.isReadOnly = true;
    const Made made(facts);
    made.editor->SetValue(triple(1, 0.5, double(1.0F / 3)));
    EXPECT_EQ(made.part<QLineEdit>()->text(), QStringLiteral("1 0.5 0.333333"));
}

TEST(ParamEditor, TakesANumberWhenItIsTyped)
{
    ParamFacts facts = ofNumber(0, 90);
    facts.hard.minimum = 0;
    facts.hard.maximum = 180;
    facts.unit = QStringLiteral("degrees");
    Made made(facts);
    made.show();
    made.editor->SetValue(45.0);
    auto* const field = made.part<QDoubleSpinBox>();
    EXPECT_EQ(field->text(), QStringLiteral("45 degrees"));
    EXPECT_EQ(made.part<QSlider>()->value(), 500);
    field->selectAll();
    QTest::keyClicks(field, QStringLiteral("1.25e2"));
    EXPECT_EQ(made.edits.size(), 0);
    EXPECT_TRUE(made.editor->IsEdited());
    QTest::keyClick(field, Qt::Key_Return);
    EXPECT_EQ(made.edits.size(), 1);
    EXPECT_EQ(made.editor->Value(), 125.0);
    EXPECT_EQ(made.part<QSlider>()->value(), 1000);
    field->selectAll();
    QTest::keyClicks(field, QStringLiteral("x7,"));
    EXPECT_EQ(field->cleanText(), QStringLiteral("7"));
    field->selectAll();
    QTest::keyClicks(field, QStringLiteral("181"));
    EXPECT_EQ(made.editor->Value(), 125.0);
}

TEST(ParamEditor, KeepsTheDigitsOfANumberThatIsNotTyped)
{
    Made made(ofNumber(0, 1));
    made.show();
    const double third = double(1.0F / 3);
    made.editor->SetValue(third);
    auto* const field = made.part<QDoubleSpinBox>();
    QTest::keyClick(field, Qt::Key_Return);
    EXPECT_EQ(made.editor->Value(), third);
    EXPECT_EQ(made.edits.size(), 0);
}

TEST(ParamEditor, HasOneBlockForTheDragOfASlider)
{
    Made made(ofNumber(10, 20));
    made.editor->SetValue(10.0);
    auto* const slider = made.part<QSlider>();
    slider->setSliderDown(true);
    slider->setValue(333);
    EXPECT_EQ(made.editor->Value(), 13.33);
    // What comes back from the document does not move it.
    made.editor->SetValue(double(13.33F));
    EXPECT_EQ(slider->value(), 333);
    made.editor->SetValue(19.0);
    EXPECT_EQ(slider->value(), 333);
    slider->setSliderDown(false);
    EXPECT_EQ(made.edits.size(), 1);
}

TEST(ParamEditor, HasASliderInTheStepsOfTheRange)
{
    ParamFacts facts = ofNumber(0, 3);
    facts.type = ValueType::Integer;
    Made made(facts);
    made.editor->SetValue(2);
    EXPECT_EQ(made.part<QSlider>()->maximum(), 3);
    EXPECT_EQ(made.part<QSlider>()->value(), 2);
    QTest::keyClick(made.part<QSlider>(), Qt::Key_Right);
    EXPECT_EQ(made.editor->Value(), QVariant(3));
    facts = ofNumber(0, 1);
    facts.step = 0.05;
    EXPECT_EQ(Made(facts).part<QSlider>()->maximum(), 20);
}

TEST(ParamEditor, ChoosesAColourInADialogThatDoesNotBlock)
{
    Made made(ofType(ValueType::Colour));
    made.show();
    made.editor->SetValue(triple(1, 0, 0));
    auto* const swatch = made.part<QToolButton>();
    const auto painted = [swatch] {
        return swatch->icon().pixmap(16, 16).toImage().pixelColor(8, 8);
    };
    EXPECT_EQ(painted(), QColor(Qt::red));
    swatch->click();
    auto* const dialog = made.part<QColorDialog>();
    ASSERT_TRUE(dialog);
    EXPECT_EQ(dialog->currentColor(), QColor(Qt::red));
    dialog->setCurrentColor(Qt::blue);
    EXPECT_EQ(made.edits.size(), 0);
    dialog->accept();
    EXPECT_EQ(made.edits.size(), 1);
    EXPECT_EQ(made.editor->Value(), triple(0, 0, 1));
    EXPECT_EQ(painted(), QColor(Qt::blue));
    swatch->click();
    made.part<QColorDialog>()->reject();
    EXPECT_EQ(made.edits.size(), 1);
}

TEST(ParamEditor, ChoosesFromAListAndKeepsWhatIsNotInIt)
{
    ParamFacts facts = ofType(ValueType::String);
    facts.choices = QStringList{QStringLiteral("near"), QStringLiteral("far")};
    Made made(facts);
    made.editor->SetValue(QStringLiteral("Near"));
    EXPECT_EQ(made.editor->Value(), QStringLiteral("Near"));
    EXPECT_FALSE(made.editor->IsEdited());
    QTest::keyClick(made.part<QComboBox>(), Qt::Key_Down);
    EXPECT_EQ(made.editor->Value(), QStringLiteral("near"));
    EXPECT_EQ(made.edits.size(), 1);
    facts.areChoicesOpen = true;
    Made open(facts);
    open.editor->SetValue(QStringLiteral("elsewhere"));
    EXPECT_EQ(open.editor->Value(), QStringLiteral("elsewhere"));
}

TEST(ParamEditor, ChecksABox)
{
    Made made(ofType(ValueType::Boolean));
    made.show();
    made.editor->SetValue(false);
    QTest::keyClick(made.part<QCheckBox>(), Qt::Key_Space);
    EXPECT_EQ(made.edits.size(), 1);
    EXPECT_EQ(made.editor->Value(), QVariant(true));
}

TEST(ParamEditor, TellsOfATextOnceAndOfNoneThatIsTheSame)
{
    Made made(ofType(ValueType::String));
    made.show();
    made.editor->SetValue(QStringLiteral("a"));
    auto* const line = made.part<QLineEdit>();
    QTest::keyClick(line, Qt::Key_Return);
    EXPECT_EQ(made.edits.size(), 0);
    QTest::keyClicks(line, QStringLiteral("b"));
    EXPECT_EQ(made.edits.size(), 0);
    QTest::keyClick(line, Qt::Key_Return);
    EXPECT_EQ(made.edits.size(), 1);
    EXPECT_EQ(made.editor->Value(), QStringLiteral("ab"));
}

TEST(ParamEditor, PreviewsTheImageOfAPath)
{
    QTemporaryDir folder;
    QImage image(40, 20, QImage::Format_RGB32);
    image.fill(Qt::green);
    ASSERT_TRUE(image.save(folder.filePath(QStringLiteral("green.png"))));
    const Made made(ofFile(Content::ImageFile), [&folder](const QString& reference) {
        const QString path = folder.filePath(reference);
        return QFile::exists(path) ? path : QString();
    });
    const auto previewed = [&made] {
        return made.part<QLabel>()->property("pixmap").value<QPixmap>().toImage();
    };
    made.editor->SetValue(QStringLiteral("green.png"));
    EXPECT_TRUE(previewed().isNull());
    EXPECT_TRUE(QTest::qWaitFor([&] { return !previewed().isNull(); }));
    EXPECT_EQ(previewed().size(), QSize(24, 12));
    EXPECT_EQ(previewed().pixelColor(12, 6), QColor(Qt::green));
    made.editor->SetValue(QStringLiteral("none.png"));
    EXPECT_TRUE(previewed().isNull());
    EXPECT_FALSE(Made(ofFile(Content::ImageFile)).part<QLabel>());
}

TEST(ParamEditor, ChoosesAFileInADialogThatDoesNotBlock)
{
    QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("a.png"));
    QImage(2, 2, QImage::Format_RGB32).save(path);
    Made made(ofFile(Content::ImageFile));
    made.show();
    made.editor->SetValue(path);
    made.part<QToolButton>()->click();
    auto* const dialog = made.part<QFileDialog>();
    ASSERT_TRUE(dialog);
    EXPECT_EQ(dialog->directory().absolutePath(), QFileInfo(path).absolutePath());
    Q_EMIT dialog->fileSelected(QStringLiteral("/b.png"));
    EXPECT_EQ(made.edits.size(), 1);
    EXPECT_EQ(made.editor->Value(), QDir::toNativeSeparators(QStringLiteral("/b.png")));
}

TEST(ParamEditor, HasANameForEachPartThatTheTabulatorReaches)
{
    for (const ParamFacts& facts :
         {ofNumber(0, 1), ofType(ValueType::Colour), ofType(ValueType::Point),
          ofType(ValueType::Boolean), ofFile(Content::ImageFile), ofType(ValueType::String)}) {
        Made made(facts);
        made.show();
        made.editor->setFocus();
        QStringList names;
        for (const QWidget* at = QApplication::focusWidget();
             at && !names.contains(at->accessibleName()); at = QApplication::focusWidget()) {
            EXPECT_TRUE(at->accessibleName().startsWith(QStringLiteral("Angle")));
            EXPECT_EQ(at->accessibleDescription(), QStringLiteral("How wide it is."));
            names << at->accessibleName();
            QTest::keyClick(made.editor->window(), Qt::Key_Tab);
        }
        int parts = 0;
        for (const QWidget* part :
             made.editor->findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly))
            parts += part->focusPolicy() & Qt::TabFocus ? 1 : 0;
        EXPECT_EQ(names.size(), parts) << qPrintable(names.join(QStringLiteral(", ")));
    }
}

TEST(ParamEditor, TellsWhenTheFocusIsElsewhere)
{
    QWidget window;
    ParamFacts facts = ofNumber(0, 1);
    auto* const editor = ParamEditor::Make(facts, &window);
    QLineEdit other(&window);
    const QSignalSpy left(editor, &ParamEditor::Left);
    window.show();
    window.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    editor->setFocus();
    editor->findChild<QSlider*>()->setFocus();
    EXPECT_EQ(left.size(), 0);
    // As when the user looks at another program.
    editor->findChild<QSlider*>()->clearFocus();
    EXPECT_EQ(left.size(), 0);
    editor->setFocus();
    other.setFocus();
    EXPECT_EQ(left.size(), 1);
}

} // namespace rvopen::widgets
