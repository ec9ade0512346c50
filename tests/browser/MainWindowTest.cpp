// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "MainWindow.h"
#include "BrowserSupport.h"
#include "CompareWindow.h"
#include "Details.h"
#include "Findings.h"
#include "Grid.h"
#include "MessageLine.h"
#include "Sidebar.h"
#include "SnapShotStrip.h"

#include <QAccessible>
#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QDragEnterEvent>
#include <QGuiApplication>
#include <QLineEdit>
#include <QListWidget>
#include <QMimeData>
#include <QPushButton>
#include <QScreen>
#include <QSignalSpy>
#include <QStyle>
#include <QTreeView>

#include <cmath>

namespace rvopen::test {

using namespace browser;

namespace {

class MainWindowTest : public BrowserTest {
protected:
    void SetUp() override
    {
        write("archives/a.rvx", sampleArchive());
        write("archives/b.rvx",
              sampleArchive().replace("Brass", "Bronze").replace("m.brass", "m.bronze"));
        write("archives/c.xml", sampleDocument());
        window.show();
        workspace.open({path("archives")});
        ASSERT_TRUE(comes([&] { return !workspace.isScanning(); }));
    }

    QStringList shown()
    {
        QStringList names;
        for (int row = 0; row < workspace.filter().rowCount(); ++row)
            names << workspace.filter().index(row, 0).data().toString();
        return names;
    }

    /// Chooses the preset that is shown under that name, and has it opened to be edited.
    EditedFile* choose(const char* name)
    {
        const int row = int(shown().indexOf(QString::fromUtf8(name)));
        EXPECT_GE(row, 0) << name;
        window.grid().setCurrentIndex(window.grid().model()->index(row, 0));
        window.grid().setFocus();
        const QString file =
            workspace.presets()
                .Preset(workspace.filter().mapToSource(workspace.filter().index(row, 0)))
                .file;
        EXPECT_TRUE(comes([&] { return workspace.edited(file) != nullptr; }));
        return workspace.edited(file);
    }

    void trigger(const char* name)
    {
        QAction* const action = window.action(name);
        ASSERT_TRUE(action) << name;
        ASSERT_TRUE(action->isEnabled()) << name;
        action->trigger();
    }

    /// Presses the button of that text in the line of messages.
    void answer(const char* text)
    {
        for (QPushButton* const button : window.messages().findChildren<QPushButton*>()) {
            if (button->text() == QLatin1String(text) && button->isVisible())
                return button->click();
        }
        FAIL() << text << " is not offered: " << window.messages().text().toStdString();
    }

    Memory memory{path("settings.ini")};
    Workspace workspace{memory, journals()};
    MainWindow window{workspace};
};

TEST_F(MainWindowTest, SearchesAsOneTypes)
{
    EXPECT_EQ(workspace.filter().rowCount(), 8);
    QTest::keyClicks(&window.search(), "bro");
    EXPECT_EQ(shown(), QStringList{"Bronze"});
    QTest::keyClick(&window.search(), Qt::Key_Backspace);
    EXPECT_EQ(shown(), (QStringList{"Brass", "Bronze"}));
}

TEST_F(MainWindowTest, FiltersByWhatIsSelected)
{
    window.sidebar().showFile(path("archives/b.rvx"));
    EXPECT_EQ(shown(), (QStringList{"Bronze", "Copper", "Red"}));
    window.search().setText("c");
    EXPECT_EQ(shown(), (QStringList{"Copper", "Red"}));
    window.sidebar().showEverything();
    EXPECT_EQ(shown().size(), 4);
}

TEST_F(MainWindowTest, LooksForAColourThatIsDropped)
{
    QMimeData data;
    data.setColorData(QColor(250, 5, 0));
    QDropEvent drop(QPoint(5, 5), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QDragEnterEvent enter(QPoint(5, 5), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(window.grid().viewport(), &enter);
    EXPECT_TRUE(enter.isAccepted());
    QCoreApplication::sendEvent(window.grid().viewport(), &drop);
    EXPECT_EQ(shown(), (QStringList{"Red", "Red"}));
}

TEST_F(MainWindowTest, PresetsAreNoFilesToOpen)
{
    EditedFile* const file = choose("Brass");
    widgets::NodeModel& model = file->tree();
    const std::unique_ptr<QMimeData> data(
        model.mimeData({model.Fetch(at(*file, "//material[Brass]"))}));
    EXPECT_EQ(data->urls(), QList<QUrl>{QUrl::fromLocalFile(path("archives/a.rvx"))});
    QDragEnterEvent enter(QPoint(5, 5), Qt::CopyAction, data.get(), Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(window.grid().viewport(), &enter);
    EXPECT_FALSE(enter.isAccepted());
}

TEST_F(MainWindowTest, APictureHasTheColourOfWhatIsInIt)
{
    QImage picture(100, 100, QImage::Format_RGB32);
    picture.fill(Qt::white);
    EXPECT_EQ(Grid::colourOf(picture).name(), "#ffffff");
    for (int y = 40; y < 80; ++y) {
        for (int x = 40; x < 80; ++x)
            picture.setPixel(x, y, qRgb(200, 20, 30));
    }
    const QColor colour = Grid::colourOf(picture);
    EXPECT_NEAR(colour.red(), 200, 12);
    EXPECT_NEAR(colour.green(), 20, 30);
    EXPECT_FALSE(Grid::colourOf(QImage()).isValid());
}

TEST_F(MainWindowTest, ShowsTheValuesOfWhatIsChosen)
{
    choose("Brass");
    EXPECT_EQ(window.details().element().attribute("name"), "Brass");
    widgets::ParamModel& values = window.details().values();
    ASSERT_EQ(values.rowCount(), 1);
    EXPECT_EQ(values.index(0, widgets::ParamModel::Value).data().toString(), "0.8 0.6 0.2");
}

TEST_F(MainWindowTest, ThePresetsAreOneColumnWithTheirValuesInTips)
{
    const QAbstractItemModel& model = *window.grid().model();
    EXPECT_EQ(model.columnCount(), 1);
    EXPECT_EQ(model.rowCount(), 8);
    const QModelIndex brass = model.index(int(shown().indexOf("Brass")), 0);
    const QString tip = brass.data(Qt::ToolTipRole).toString();
    EXPECT_TRUE(tip.contains("Brass – material")) << tip.toStdString();
    EXPECT_TRUE(tip.contains("Colour: 0.8 0.6 0.2")) << tip.toStdString();
    EditedFile* const file = choose("Brass");
    edits::rename(*file, at(*file, "//material[Brass]"), "<b>");
    QModelIndex bold;
    ASSERT_TRUE(comes([&] {
        bold = model.index(int(shown().indexOf("<b>")), 0);
        return bold.isValid();
    }));
    EXPECT_TRUE(bold.data(Qt::ToolTipRole).toString().contains("&lt;b&gt;"));
}

TEST_F(MainWindowTest, EditsUndoesRedoesAndSaves)
{
    EditedFile* const file = choose("Brass");
    widgets::ParamModel& values = window.details().values();
    const QModelIndex value = values.index(0, widgets::ParamModel::Value);
    ASSERT_TRUE(values.setData(value, QColor(0, 0, 255)));
    EXPECT_TRUE(window.isWindowModified());
    trigger("editUndo");
    EXPECT_EQ(value.data().toString(), "0.8 0.6 0.2");
    EXPECT_FALSE(window.isWindowModified());
    trigger("editRedo");
    trigger("fileSave");
    EXPECT_FALSE(window.isWindowModified());
    EXPECT_TRUE(bytesOf(file->file()).contains("val=\"0 0 1\""));
}

TEST_F(MainWindowTest, DuplicatesMovesAndDeletes)
{
    EditedFile* const file = choose("Copper");
    trigger("editDuplicate");
    const QDomElement metals = at(*file, "/materials/dir[Metals]");
    QStringList names = namesIn(metals);
    ASSERT_EQ(names.size(), 3);
    EXPECT_EQ(toolkit::IdentityOf(window.details().element()), names[2]);
    trigger("editUp");
    EXPECT_EQ(namesIn(metals), (QStringList{"Brass", names[2], "Copper"}));
    trigger("editDelete");
    EXPECT_EQ(namesIn(metals), (QStringList{"Brass", "Copper"}));
    EXPECT_TRUE(window.messages().text().contains("deleted"));
    trigger("editUndo");
    EXPECT_EQ(namesIn(metals).size(), 3);
    trigger("editSort");
    EXPECT_EQ(namesIn(metals), (QStringList{"Brass", "Copper", names[2]}));
}

TEST_F(MainWindowTest, DeletesWhatIsChosenInAllFiles)
{
    window.search().setText("copper");
    EXPECT_EQ(shown(), (QStringList{"Copper", "Copper"}));
    window.grid().selectAll();
    trigger("editDelete");
    EXPECT_TRUE(comes([&] { return shown().isEmpty(); }));
    EXPECT_EQ(workspace.changed().size(), 2U);
    for (EditedFile* const file : workspace.changed())
        EXPECT_EQ(namesIn(at(*file, "/materials/dir[Metals]")).size(), 1);
}

TEST_F(MainWindowTest, StartsInTheSearchAndRemembersItsLooks)
{
    EXPECT_EQ(window.focusWidget(), &window.search());
    window.grid().setPictureSize(160);
    window.close();
    MainWindow again(workspace);
    EXPECT_EQ(again.grid().pictureSize(), 160);
}

TEST_F(MainWindowTest, TheLastPresetThatWasOpenedComesFirst)
{
    for (const char* const name : {"Brass", "Bronze"}) {
        choose(name);
        QTest::keyClick(&window.grid(), Qt::Key_Return);
    }
    window.sidebar().setCurrentIndex(window.sidebar().model()->index(2, 0));
    EXPECT_EQ(shown(), (QStringList{"Brass", "Bronze"}));
    ASSERT_EQ(memory.recent().size(), 2);
    EXPECT_EQ(memory.recent()[0].file, path("archives/b.rvx"));
}

TEST_F(MainWindowTest, RemovesAPlaceFromTheList)
{
    EXPECT_FALSE(window.action("fileForget")->isEnabled());
    const QModelIndexList found =
        window.sidebar().model()->match(window.sidebar().model()->index(0, 0), Qt::DisplayRole,
                                        "archives", 1, Qt::MatchExactly | Qt::MatchRecursive);
    ASSERT_EQ(found.size(), 1);
    window.sidebar().setCurrentIndex(found[0]);
    trigger("fileForget");
    EXPECT_TRUE(comes([&] { return workspace.filter().rowCount() == 0; }));
    EXPECT_TRUE(workspace.opened().isEmpty());
}

TEST_F(MainWindowTest, ShowsWhatAPresetRefersToAndLeadsThere)
{
    write("archives/d.rvx",
          "<presets name='D'><materials name='Materials'><material name='Alloy' refname='m.alloy'>"
          "<base><material refname='m.brass'/></base><colour refname='c.lost'/></material>"
          "</materials></presets>");
    workspace.rescan();
    ASSERT_TRUE(comes([&] { return shown().contains("Alloy"); }));
    choose("Alloy");
    QListWidget& references = window.details().references();
    ASSERT_TRUE(comes([&] { return references.count() == 2; }));
    EXPECT_EQ(references.item(0)->text(), "material Brass – a.rvx");
    EXPECT_EQ(references.item(1)->text(), "colour c.lost is missing");
    emit references.itemActivated(references.item(1));
    EXPECT_EQ(toolkit::IdentityOf(window.details().element()), "Alloy");
    emit references.itemActivated(references.item(0));
    EXPECT_EQ(toolkit::IdentityOf(window.details().element()), "Brass");
    EXPECT_EQ(references.count(), 0);
}

TEST_F(MainWindowTest, WhatIsChosenStaysSoWhenFoldersAreReadAgain)
{
    const auto selected = [this] {
        QStringList names;
        for (const QModelIndex& index : window.grid().selectedPresets())
            names << index.data().toString();
        names.sort();
        return names;
    };
    const auto rowOf = [this](const char* name) {
        return window.grid().model()->index(int(shown().indexOf(QLatin1String(name))), 0);
    };
    window.grid().setCurrentIndex(rowOf("Bronze"));
    window.grid().selectionModel()->select(rowOf("Brass"), QItemSelectionModel::Select);
    // Before the file was opened to be edited, and before the rows that there are.
    write("archives/0.rvx", "<presets name='D'><materials name='M'><material name='Alloy'/>"
                            "</materials></presets>");
    workspace.rescan();
    ASSERT_TRUE(comes([&] { return shown().contains("Alloy"); }));
    EXPECT_EQ(window.grid().currentPreset().data(), "Bronze");
    EXPECT_EQ(selected(), (QStringList{"Brass", "Bronze"}));
    EXPECT_TRUE(comes([&] { return workspace.edited(path("archives/b.rvx")) != nullptr; }));
    EXPECT_EQ(toolkit::IdentityOf(window.details().element()), "Bronze");
    EXPECT_EQ(window.details().editedFile(), path("archives/b.rvx"));
    // What the details show of a file that is edited stays, wherever it was chosen.
    window.details().showElement(*workspace.edited(path("archives/b.rvx")),
                                 at(*workspace.edited(path("archives/b.rvx")), "//colour[Red]"));
    write("archives/1.rvx", "<presets name='D'><materials name='M'><material name='Tin'/>"
                            "</materials></presets>");
    workspace.rescan();
    ASSERT_TRUE(comes([&] { return shown().contains("Tin"); }));
    EXPECT_EQ(toolkit::IdentityOf(window.details().element()), "Red");
    EXPECT_EQ(selected(), (QStringList{"Brass", "Bronze"}));
    // What is gone is not chosen; what is left is.
    window.grid().setCurrentIndex(rowOf("Alloy"));
    window.grid().selectionModel()->select(rowOf("Tin"), QItemSelectionModel::Select);
    ASSERT_TRUE(QFile::remove(path("archives/0.rvx")));
    workspace.rescan();
    ASSERT_TRUE(comes([&] { return !shown().contains("Alloy"); }));
    EXPECT_EQ(selected(), QStringList{"Tin"});
    EXPECT_FALSE(window.grid().currentPreset().isValid());
}

TEST_F(MainWindowTest, AllThatIsSelectedStaysSoOfManyPresets)
{
    QByteArray many = "<presets name='D'><colours name='C'>";
    for (int i = 0; i < 1000; ++i)
        many += "<colour name='Colour " + QByteArray::number(i) + "'/>";
    write("archives/0.rvx", many + "</colours></presets>");
    workspace.rescan();
    ASSERT_TRUE(comes([&] { return workspace.filter().rowCount() == 1008; }));
    window.grid().selectAll();
    window.grid().selectionModel()->select(window.grid().model()->index(500, 0),
                                           QItemSelectionModel::Deselect);
    write("archives/1.rvx", "<presets name='D'><materials name='M'><material name='Tin'/>"
                            "</materials></presets>");
    workspace.rescan();
    ASSERT_TRUE(comes([&] { return workspace.filter().rowCount() == 1009; }));
    EXPECT_EQ(window.grid().selectedPresets().size(), 1007);
    EXPECT_FALSE(window.grid().selectionModel()->isSelected(window.grid().model()->index(500, 0)));
    EXPECT_EQ(window.grid().selectionModel()->selection().size(), 3);
}

TEST_F(MainWindowTest, LabelsAreWrittenWhereTheyAreRead)
{
    EditedFile* const file = choose("Brass");
    ASSERT_TRUE(
        comes([&] { return window.details().element() == at(*file, "//material[Brass]"); }));
    const auto line = [this](const char* name) -> QLineEdit* {
        for (QLineEdit* const edit : window.details().findChildren<QLineEdit*>()) {
            if (edit->accessibleName() == QLatin1String(name))
                return edit;
        }
        return nullptr;
    };
    ASSERT_TRUE(line("Category") && line("Reference name"));
    EXPECT_EQ(line("Category")->text(), "Polished");
    line("Category")->setText("Dull");
    emit line("Category")->editingFinished();
    EXPECT_EQ(window.details().element().attribute("cat"), "Dull");
    line("Reference name")->setText("m.copper");
    emit line("Reference name")->editingFinished();
    EXPECT_EQ(window.details().element().attribute("refname"), "m.brass");
    EXPECT_EQ(line("Reference name")->text(), "m.brass");
    EXPECT_EQ(window.messages().text(), "m.copper is the reference name of another preset");
    trigger("editUndo");
    EXPECT_TRUE(comes([&] { return line("Category")->text() == "Polished"; }));
}

TEST_F(MainWindowTest, SaysWhatToChooseBeforeWorkOnMany)
{
    window.grid().clearSelection();
    trigger("toolsEmbed");
    EXPECT_EQ(window.messages().text(), "Choose presets first");
    choose("Brass");
    trigger("toolsSetForAll");
    EXPECT_EQ(window.messages().text(),
              "Choose several presets, and the value that all of them are to have");
    trigger("toolsFindUses");
    EXPECT_FALSE(window.action("toolsEmbed")->isEnabled());
    EXPECT_TRUE(comes([&] { return window.messages().text() == "Brass is used in 0 place(s)"; }));
    EXPECT_TRUE(window.action("toolsEmbed")->isEnabled());
}

namespace {

/// As WCAG 2.1 defines it.
double contrast(const QColor& a, const QColor& b)
{
    const auto luminance = [](const QColor& colour) {
        const auto linear = [](double value) {
            return value <= 0.04045 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
        };
        return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) +
               0.0722 * linear(colour.blueF());
    };
    const double first = luminance(a) + 0.05;
    const double second = luminance(b) + 0.05;
    return std::max(first, second) / std::min(first, second);
}

} // namespace

TEST_F(MainWindowTest, IsDarkOrLightAsOneLikesAndCanBeRead)
{
    QApplication::setStyle(QStringLiteral("windows"));
    const QString style = QApplication::style()->objectName();
    const QPalette before = QApplication::palette();
    for (const char* const name : {"viewDark", "viewLight"}) {
        trigger(name);
        QCoreApplication::processEvents();
        const QPalette palette = window.palette();
        EXPECT_EQ(palette.color(QPalette::Window).lightness() < 128,
                  name == std::string("viewDark"));
        const auto expectReadable = [&](QPalette::ColorRole text, QPalette::ColorRole ground) {
            EXPECT_GE(contrast(palette.color(text), palette.color(ground)), 4.5)
                << name << ' ' << text << " on " << ground;
        };
        expectReadable(QPalette::WindowText, QPalette::Window);
        expectReadable(QPalette::Text, QPalette::Base);
        expectReadable(QPalette::Text, QPalette::AlternateBase);
        expectReadable(QPalette::ButtonText, QPalette::Button);
        expectReadable(QPalette::ToolTipText, QPalette::ToolTipBase);
        expectReadable(QPalette::HighlightedText, QPalette::Highlight);
        expectReadable(QPalette::Link, QPalette::Base);
    }
    EXPECT_EQ(Memory(path("settings.ini")).appearance(), Appearance::Light);
    trigger("viewSystem");
    EXPECT_EQ(Memory(path("settings.ini")).appearance(), Appearance::System);
    EXPECT_EQ(QApplication::palette().color(QPalette::Window), before.color(QPalette::Window));
    EXPECT_EQ(QApplication::style()->objectName(), style);
}

TEST_F(MainWindowTest, FitsASmallScreenAtTwiceTheSize)
{
    choose("Brass");
    EXPECT_LE(window.minimumSizeHint().width(), 960);
    EXPECT_LE(window.minimumSizeHint().height(), 560);
    EXPECT_LE(window.width(), window.screen()->availableSize().width());
    EXPECT_LE(window.height(), window.screen()->availableSize().height());
}

TEST_F(MainWindowTest, CopiesFromOneArchiveToAnother)
{
    choose("Bronze");
    trigger("editCopy");
    EditedFile* const target = choose("Brass");
    trigger("editPaste");
    EXPECT_EQ(namesIn(at(*target, "/materials/dir[Metals]")),
              (QStringList{"Brass", "Copper", "Bronze"}));
}

TEST_F(MainWindowTest, RenamesInTheTree)
{
    EditedFile* const file = choose("Brass");
    trigger("editRename");
    auto* const editor = window.tree().findChild<QLineEdit*>();
    ASSERT_TRUE(editor);
    editor->setText("Latten");
    QTest::keyClick(editor, Qt::Key_Return);
    EXPECT_TRUE(comes([&] { return !at(*file, "//material[Latten]").isNull(); }));
    EXPECT_TRUE(comes([&] { return shown().contains("Latten"); }));
}

TEST_F(MainWindowTest, KeysInTheValuesAreForTheValues)
{
    EditedFile* const file = choose("Brass");
    QApplication::setActiveWindow(&window);
    window.details().view().setFocus();
    window.details().view().setCurrentIndex(
        window.details().values().index(0, widgets::ParamModel::Value));
    const QString before = textOf(*file);
    QTest::keyClick(&window.details().view(), Qt::Key_Delete);
    QTest::keyClick(&window.details().view(), Qt::Key_D, Qt::ControlModifier);
    EXPECT_EQ(textOf(*file), before);
    QTest::keyClick(&window.details().view(), Qt::Key_F2);
    EXPECT_FALSE(window.tree().findChild<QLineEdit*>());
    window.grid().setFocus();
    QTest::keyClick(&window.grid(), Qt::Key_Delete);
    EXPECT_NE(textOf(*file), before);
}

TEST_F(MainWindowTest, NotesFavourites)
{
    choose("Brass");
    trigger("editFavourite");
    window.sidebar().setCurrentIndex(window.sidebar().model()->index(1, 0));
    EXPECT_EQ(shown(), QStringList{"Brass"});
    choose("Brass");
    trigger("editFavourite");
    EXPECT_EQ(shown(), QStringList());
}

TEST_F(MainWindowTest, TellsWhatIsWrongOfWhatIsNotSavedToo)
{
    EditedFile* const file = choose("Brass");
    EXPECT_TRUE(comes([&] { return !window.findings().isRunning(); }));
    QDomElement copper = at(*file, "//material[Copper]");
    RVOpenChange change;
    change.kind = RVOpenChange::AttributeSet;
    change.document = file->dom();
    change.node = copper;
    change.name = "refname";
    change.before = "m.brass";
    change.after = "m.copper";
    ASSERT_TRUE(file->takeBack(change));
    EXPECT_TRUE(comes([&] {
        for (int i = 0; i < window.findings().topLevelItemCount(); ++i) {
            if (window.findings().topLevelItem(i)->text(0).contains("m.brass"))
                return true;
        }
        return false;
    }));
}

TEST_F(MainWindowTest, ComparesTwoPresets)
{
    EXPECT_FALSE(window.action("toolsCompare")->isEnabled());
    window.search().setText("bro bra");
    window.search().setText("br");
    window.grid().selectAll();
    trigger("toolsCompare");
    auto* const compared = window.findChild<CompareWindow*>();
    ASSERT_TRUE(compared);
    EXPECT_EQ(compared->differences(), 2);
}

TEST_F(MainWindowTest, ComparesTwoFiles)
{
    QItemSelectionModel* const selection = window.sidebar().selectionModel();
    window.sidebar().showFile(path("archives/a.rvx"));
    const QModelIndex first = window.sidebar().currentIndex();
    window.sidebar().showFile(path("archives/b.rvx"));
    selection->select(first, QItemSelectionModel::Select);
    EditedFile* const file = workspace.edit(path("archives/a.rvx"));
    edits::remove(*file, {at(*file, "/colours/colour[Red]")});
    trigger("toolsCompare");
    auto* const compared = window.findChild<CompareWindow*>();
    ASSERT_TRUE(compared);
    // Brass is Bronze in the other, with another reference name, and there is no red.
    EXPECT_EQ(compared->differences(), 3);
}

TEST_F(MainWindowTest, ShowsTheSnapshotsOfADocumentWithTheirCameras)
{
    SnapShotStrip& strip = window.strip();
    EXPECT_FALSE(strip.isVisible());
    EditedFile* const file = choose("One");
    EXPECT_TRUE(strip.isVisible());
    const QAbstractItemModel& model = *strip.model();
    ASSERT_EQ(model.rowCount(), 2);
    EXPECT_EQ(model.columnCount(), 1);
    EXPECT_EQ(model.index(0, 0).data().toString(), "One\nFront");
    EXPECT_EQ(model.index(1, 0).data().toString(), "Two");
    EXPECT_FALSE(model.index(0, 0).data(Qt::DecorationRole).isNull());
    strip.setCurrentIndex(model.index(1, 0));
    EXPECT_EQ(window.details().element().attribute("name"), "Two");
    // As a drag in front of the first does it.
    const std::unique_ptr<QMimeData> data(model.mimeData({model.index(1, 0)}));
    ASSERT_TRUE(model.canDropMimeData(data.get(), Qt::MoveAction, 0, 0, QModelIndex()));
    strip.model()->dropMimeData(data.get(), Qt::MoveAction, 0, 0, QModelIndex());
    EXPECT_EQ(namesIn(at(*file, "/snapshots")), (QStringList{"Two", "One"}));
    EXPECT_EQ(model.index(0, 0).data().toString(), "Two");
    choose("Brass");
    EXPECT_FALSE(strip.isVisible());
    workspace.closeFile(file->file());
}

TEST_F(MainWindowTest, AsksInALineBeforeItCloses)
{
    EditedFile* const file = choose("Brass");
    edits::rename(*file, at(*file, "//material[Brass]"), "Latten");
    EXPECT_FALSE(window.close());
    EXPECT_TRUE(window.isVisible());
    answer("Stay");
    EXPECT_TRUE(window.messages().isHidden());
    EXPECT_FALSE(window.close());
    answer("Save and close");
    EXPECT_FALSE(window.isVisible());
    EXPECT_TRUE(bytesOf(file->file()).contains("Latten"));
}

TEST_F(MainWindowTest, DropsEditsOnlyWhenAsked)
{
    EditedFile* const file = choose("Brass");
    edits::rename(*file, at(*file, "//material[Brass]"), "Latten");
    trigger("fileClose");
    answer("Close without saving");
    EXPECT_FALSE(workspace.edited(path("archives/a.rvx")));
    EXPECT_EQ(bytesOf(path("archives/a.rvx")), sampleArchive());
    EXPECT_TRUE(shown().contains("Brass"));
    EXPECT_TRUE(window.close());
}

TEST_F(MainWindowTest, AsksAboutWhatOthersWrote)
{
    choose("Brass");
    write("archives/a.rvx", sampleArchive().replace("Brass", "Theirs"));
    ASSERT_TRUE(comes([&] { return !window.messages().isHidden(); }));
    answer("Compare");
    auto* const compared = window.findChild<CompareWindow*>();
    ASSERT_TRUE(compared);
    EXPECT_GT(compared->differences(), 0);
    compared->close();
    answer("Reload");
    EXPECT_TRUE(shown().contains("Theirs"));
    EXPECT_FALSE(shown().contains("Brass"));
}

TEST_F(MainWindowTest, OffersWhatACrashLeft)
{
    Journal::Left left;
    {
        const auto file = open(path("archives/a.rvx"));
        edits::rename(*file, at(*file, "//material[Brass]"), "Latten");
        const QString folder =
            QDir(journals()).entryList(QDir::Dirs | QDir::NoDotAndDotDot).value(0);
        QDir().mkpath(path("kept/one"));
        for (const char* const name : {"base", "log"})
            QFile::copy(journals() + '/' + folder + '/' + name, path("kept/one/") + name);
    }
    Workspace after(memory, path("kept"));
    MainWindow again(after);
    again.show();
    after.open({path("archives")});
    again.offerRecovery();
    EXPECT_TRUE(again.messages().text().contains("a.rvx"));
    for (QPushButton* const button : again.messages().findChildren<QPushButton*>()) {
        if (button->text() == "Recover")
            button->click();
    }
    EditedFile* const recovered = after.edited(path("archives/a.rvx"));
    ASSERT_TRUE(recovered);
    EXPECT_FALSE(at(*recovered, "//material[Latten]").isNull());
    EXPECT_TRUE(recovered->isChanged());
}

TEST_F(MainWindowTest, AllThatCanBeReachedHasAName)
{
    choose("Brass");
    for (QWidget* const widget : window.findChildren<QWidget*>()) {
        if (widget->focusPolicy() == Qt::NoFocus || !widget->isVisible() ||
            widget->objectName().startsWith("qt_"))
            continue;
        QAccessibleInterface* const accessible = QAccessible::queryAccessibleInterface(widget);
        ASSERT_TRUE(accessible);
        EXPECT_FALSE(accessible->text(QAccessible::Name).isEmpty())
            << widget->metaObject()->className() << ' ' << widget->objectName().toStdString()
            << " in " << widget->parentWidget()->metaObject()->className();
    }
}

TEST_F(MainWindowTest, EveryActionHasAKeyOrAMenu)
{
    QSet<QKeySequence> keys;
    for (QAction* const action : window.findChildren<QAction*>()) {
        if (action->shortcut().isEmpty())
            continue;
        EXPECT_FALSE(keys.contains(action->shortcut()))
            << action->shortcut().toString().toStdString();
        keys.insert(action->shortcut());
    }
    EXPECT_GE(keys.size(), 20);
}

} // namespace

} // namespace rvopen::test
