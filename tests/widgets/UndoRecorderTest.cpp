// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "UndoSupport.h"

#include "../RecordingObserver.h"

#include <rvopen/RVOpenView.h>
#include <rvopen/host/Owned.h>
#include <rvopen/widgets/PaletteModel.h>
#include <rvopen/widgets/ParamModel.h>

#include <QAction>
#include <QMainWindow>
#include <QMimeData>
#include <QSignalSpy>
#include <QUndoStack>

#include <gtest/gtest.h>

namespace rvopen::widgets {

namespace {

/// The example of the header.
void addUndo(rvopen::RVOpenManager& manager, QMainWindow& window)
{
    using rvopen::widgets::UndoRecorder;
    auto* const stack = new QUndoStack(&window);
    auto* const recorder = new UndoRecorder(manager, stack, &window);
    window.addAction(stack->createUndoAction(&window));
    window.addAction(stack->createRedoAction(&window));
    const UndoRecorder::Step step(*recorder, QMainWindow::tr("Rename Snapshot"));
    manager.GetCurrentSnapShot()->SetName(QMainWindow::tr("Entrance"));
}

} // namespace

TEST_F(UndoRecorderTest, MakesOneCommandOfWhatIsEditedFromBeginToEnd)
{
    const QString before = text();
    recorder.Begin(QStringLiteral("Furnish"));
    EXPECT_TRUE(recorder.IsBegun());
    addMaterial("Wall");
    addMaterial("Floor");
    current()->SetName(QStringLiteral("Hall"));
    EXPECT_EQ(stack.count(), 0);
    recorder.End();
    EXPECT_FALSE(recorder.IsBegun());
    ASSERT_EQ(stack.count(), 1);
    EXPECT_EQ(stack.undoText(), "Furnish");
    const QString after = text();
    for (int i = 0; i < 2; ++i) {
        stack.undo();
        EXPECT_EQ(text(), before);
        EXPECT_EQ(materials(), QStringList());
        stack.redo();
        EXPECT_EQ(text(), after);
        EXPECT_EQ(materials(), (QStringList{"Wall", "Floor"}));
    }
    EXPECT_EQ(stack.count(), 1);
}

TEST_F(UndoRecorderTest, PutsCommandsInACommandTogether)
{
    {
        const UndoRecorder::Step outer(recorder, QStringLiteral("Outer"));
        current()->SetName(QStringLiteral("A"));
        {
            const UndoRecorder::Step inner(recorder, QStringLiteral("Inner"));
            current()->SetName(QStringLiteral("B"));
        }
        EXPECT_EQ(stack.count(), 0);
    }
    ASSERT_EQ(stack.count(), 1);
    EXPECT_EQ(stack.undoText(), "Outer");
    recorder.End();
    EXPECT_FALSE(recorder.IsBegun());
}

TEST_F(UndoRecorderTest, MakesNoCommandWhereNothingIsChanged)
{
    {
        const UndoRecorder::Step step(recorder, QStringLiteral("Nothing"));
        current()->SetName(current()->GetName());
        const QString name = current()->GetName();
        current()->SetName(QStringLiteral("To"));
        current()->SetName(name);
    }
    EXPECT_EQ(stack.count(), 0);
}

TEST_F(UndoRecorderTest, MakesACommandOfEachBlockThatNobodyBegan)
{
    const QString before = text();
    {
        const RVOpenBlock block;
        current()->SetName(QStringLiteral("A"));
        manager.GetSnapShotsCameras();
        EXPECT_EQ(stack.count(), 0);
    }
    EXPECT_EQ(stack.count(), 1);
    current()->SetName(QStringLiteral("B"));
    ASSERT_EQ(stack.count(), 2);
    EXPECT_EQ(stack.undoText(), "Edit");
    stack.undo();
    EXPECT_EQ(current()->GetName(), "A");
    stack.undo();
    EXPECT_EQ(text(), before);
}

TEST_F(UndoRecorderTest, LosesNoRedoWhereAWindowReadsWhatIsMissing)
{
    const QString before = text();
    current()->SetName(QStringLiteral("A"));
    addMaterial("Wall");
    const QString after = text();
    stack.undo();
    EXPECT_FALSE(text().contains(QStringLiteral("materialRepository")));
    manager.GetSnapShotsCameras();
    EXPECT_EQ(materials(), QStringList());
    EXPECT_TRUE(text().contains(QStringLiteral("Model Cameras")));
    ASSERT_TRUE(stack.canRedo());
    stack.redo();
    EXPECT_EQ(text(), after);
    EXPECT_EQ(materials(), QStringList{"Wall"});
    stack.undo();
    palette();
    stack.undo();
    EXPECT_EQ(text(), before);
}

TEST_F(UndoRecorderTest, TakesWhatWasCreatedWithTheCommandsAroundIt)
{
    const QString empty = text();
    current()->SetName(QStringLiteral("A"));
    manager.GetSnapShotsCameras();
    EXPECT_EQ(stack.count(), 1);
    const QString with = text();
    stack.undo();
    EXPECT_EQ(text(), empty);
    stack.redo();
    EXPECT_EQ(text(), with);
    manager.GetSnapShotsBackgrounds();
    current()->SetName(QStringLiteral("B"));
    const QString both = text();
    ASSERT_EQ(stack.count(), 2);
    stack.undo();
    EXPECT_EQ(text(), with);
    stack.redo();
    EXPECT_EQ(text(), both);
}

TEST_F(UndoRecorderTest, StartsFromWhatWasCreatedBeforeTheFirstCommand)
{
    manager.GetSnapShotsCameras();
    manager.GetOriginalBackground()->SetSubCat(QStringLiteral("Sky"));
    stack.clear();
    const QString before = text();
    current()->SetName(QStringLiteral("A"));
    stack.undo();
    EXPECT_EQ(text(), before);
}

TEST_F(UndoRecorderTest, MakesACommandWhereSomethingIsAddedAndMoreIsChanged)
{
    manager.GetSnapShotsCameras()->SetCat(QStringLiteral("New"));
    ASSERT_EQ(stack.count(), 1) << "what is there already is given another value";
    const QString before = text();
    {
        const RVOpenBlock block;
        manager.GetSnapShotsBackgrounds();
        manager.GetSnapShotsCameras()->SetCat(QStringLiteral("Newer"));
    }
    EXPECT_EQ(stack.count(), 2);
    stack.undo();
    EXPECT_EQ(text(), before);
}

TEST_F(UndoRecorderTest, MakesACommandOfABlockThatOnlyAdds)
{
    const QString before = text();
    const auto add = [this](const char* name) {
        const RVOpenBlock block;
        addByItself(name);
    };
    add("Wall");
    ASSERT_EQ(stack.count(), 1);
    add("Floor");
    ASSERT_EQ(stack.count(), 2);
    stack.undo();
    EXPECT_EQ(materials(), QStringList{"Wall"});
    stack.undo();
    EXPECT_EQ(text(), before);
}

TEST_F(UndoRecorderTest, MakesACommandOfACopyThatIsDropped)
{
    addMaterial("Wall");
    PaletteModel model;
    model.SetPalette(palette());
    const std::unique_ptr<QMimeData> data(model.mimeData({model.index(0, 0)}));
    stack.clear();
    ASSERT_TRUE(model.dropMimeData(data.get(), Qt::CopyAction, -1, -1, QModelIndex()));
    EXPECT_EQ(model.rowCount(), 2);
    EXPECT_EQ(stack.count(), 1);
    stack.undo();
    EXPECT_EQ(model.rowCount(), 1);
}

TEST_F(UndoRecorderTest, MakesNoCommandOfWhatStandsInNoTree)
{
    const host::Owned<Material> material(palette()->CreateMaterial());
    const int count = stack.count();
    material->SetLinkName(QStringLiteral("Wall"));
    material->GetColour(1);
    EXPECT_EQ(stack.count(), count);
    {
        const UndoRecorder::Step step(recorder, QStringLiteral("Nothing"));
        material->SetLinkName(QStringLiteral("Floor"));
    }
    EXPECT_EQ(stack.count(), count);
}

TEST_F(UndoRecorderTest, TakesBackWhatWasDoneToANodeWhileItWasOut)
{
    addMaterial("Wall");
    addMaterial("Floor");
    stack.clear();
    const QString before = text();
    {
        const UndoRecorder::Step step(recorder, QStringLiteral("Move"));
        host::Owned<Material> wall = host::detach(palette(), palette()->GetMaterial("Wall"));
        wall->SetLinkName(QStringLiteral("Ceiling"));
        palette()->AddMaterial(wall.release());
    }
    EXPECT_EQ(materials(), (QStringList{"Floor", "Ceiling"}));
    stack.undo();
    EXPECT_EQ(text(), before);
    EXPECT_EQ(materials(), (QStringList{"Wall", "Floor"}));
}

TEST_F(UndoRecorderTest, BringsDeletedNodesBackWithUsableObjects)
{
    addMaterial("Wall")->GetColour(1)->SetName(QStringLiteral("Red"));
    addMaterial("Floor");
    stack.clear();
    const QString before = text();
    {
        const UndoRecorder::Step step(recorder, QStringLiteral("Clear"));
        palette()->Clear();
    }
    EXPECT_EQ(materials(), QStringList());
    stack.undo();
    ASSERT_EQ(text(), before);
    Material* const wall = palette()->GetMaterial(QStringLiteral("Wall"));
    ASSERT_TRUE(wall);
    EXPECT_EQ(wall->GetColour(0)->GetName(), "Red");
    wall->GetColour(0)->SetName(QStringLiteral("Blue"));
    palette()->RemoveMaterial(wall);
    EXPECT_EQ(materials(), QStringList{"Floor"});
    stack.undo();
    stack.undo();
    EXPECT_EQ(text(), before);
}

TEST_F(UndoRecorderTest, PutsTheObjectsOfWhatWasTakenOutBack)
{
    Material* const wall = palette()->CreateMaterial();
    wall->SetLinkName(QStringLiteral("Wall"));
    {
        const UndoRecorder::Step step(recorder, QStringLiteral("Add"));
        palette()->AddMaterial(wall);
    }
    for (int i = 0; i < 2; ++i) {
        stack.undo();
        EXPECT_EQ(materials(), QStringList());
        EXPECT_EQ(wall->GetLinkName(), "Wall");
        stack.redo();
        EXPECT_EQ(palette()->GetFirstMaterial(), wall);
    }
    wall->SetLinkName(QStringLiteral("Floor"));
    EXPECT_EQ(materials(), QStringList{"Floor"});
}

TEST_F(UndoRecorderTest, KeepsTheFirstAndTheLastValueOfADrag)
{
    const RVOpenNode* const snapShot = current();
    {
        const UndoRecorder::Step step(recorder, QStringLiteral("Drag"));
        for (int i = 1; i <= 1000; ++i) {
            current()->SetAttributeInt("x", i);
            current()->SetAttributeInt("y", -i);
        }
    }
    test::RecordingObserver observer(document());
    stack.undo();
    EXPECT_EQ(observer.changes.size(), 2U);
    EXPECT_FALSE(snapShot->GetDomNode().toElement().hasAttribute(QStringLiteral("x")));
    stack.redo();
    EXPECT_EQ(snapShot->GetAttributeString("x"), "1000");
    EXPECT_EQ(snapShot->GetAttributeString("y"), "-1000");
}

TEST_F(UndoRecorderTest, TellsObserversInOneBlockSoThatModelsFollow)
{
    addMaterial("Wall")->SetName(QStringLiteral("Name"));
    ParamModel model;
    model.SetNode(palette(), ParamModel::Below);
    {
        const UndoRecorder::Step step(recorder, QStringLiteral("Parameters"));
        palette()->GetParamHelper()->AddFloatParam(QStringLiteral("a"));
        palette()->GetParamHelper()->AddFloatParam(QStringLiteral("b"));
    }
    EXPECT_EQ(model.rowCount(), 2);
    test::RecordingObserver observer(document());
    stack.undo();
    EXPECT_EQ(model.rowCount(), 0);
    EXPECT_EQ(observer.lines.count(QStringLiteral(".")), 1);
    stack.redo();
    EXPECT_EQ(model.rowCount(), 2);
}

TEST_F(UndoRecorderTest, ClearsTheStackWithTheDocumentAndGoesOnWithTheNextOne)
{
    current()->SetName(QStringLiteral("A"));
    ASSERT_EQ(stack.count(), 1);
    ASSERT_TRUE(manager.LoadSnapShotDocFromString(
        QStringLiteral("<snapRoot><snapshot name=\"Loaded\"/></snapRoot>")));
    EXPECT_EQ(stack.count(), 0);
    current()->SetName(QStringLiteral("B"));
    ASSERT_EQ(stack.count(), 1);
    stack.undo();
    EXPECT_EQ(current()->GetName(), "Loaded");
    manager.ClearSnapShotDoc();
    EXPECT_EQ(stack.count(), 0);
    const RVOpenManager other;
    manager.InitialiseSnapShotDoc();
    EXPECT_EQ(stack.count(), 0);
    const QString name = current()->GetName();
    current()->SetName(QStringLiteral("C"));
    stack.undo();
    EXPECT_EQ(current()->GetName(), name);
}

TEST_F(UndoRecorderTest, ForgetsWhatWasBegunBeforeALoad)
{
    current()->SetName(QStringLiteral("A"));
    manager.GetSnapShotsCameras();
    const QString xml = QStringLiteral("<snapRoot><snapshot name=\"Loaded\"/></snapRoot>");
    {
        const UndoRecorder::Step step(recorder, QStringLiteral("Load"));
        current()->SetName(QStringLiteral("B"));
        ASSERT_TRUE(manager.LoadSnapShotDocFromString(xml));
    }
    EXPECT_EQ(stack.count(), 0);
    const QString loaded = text();
    current()->SetName(QStringLiteral("C"));
    QSignalSpy failed(&recorder, &UndoRecorder::Failed);
    stack.undo();
    QCoreApplication::processEvents();
    EXPECT_EQ(failed.size(), 0);
    EXPECT_EQ(text(), loaded);
}

TEST_F(UndoRecorderTest, RecordsNothingOfOtherDocuments)
{
    RVOpenManager other;
    other.GetCurrentSnapShot()->SetName(QStringLiteral("A"));
    other.ClearSnapShotDoc();
    other.InitialiseSnapShotDoc();
    EXPECT_EQ(stack.count(), 0);
    current()->SetName(QStringLiteral("A"));
    other.ClearSnapShotDoc();
    EXPECT_EQ(stack.count(), 1);
}

TEST(UndoRecorder, RecordsTheDocumentOfARoot)
{
    QDomDocument document;
    document.setContent(QStringLiteral("<a><b/></a>"));
    RVOpenView<> root(document.documentElement());
    QUndoStack stack;
    const UndoRecorder recorder(root.get(), &stack);
    root->DeleteNode(root->GetChild(1, 0));
    EXPECT_FALSE(root->GetChild(1, 0));
    stack.undo();
    ASSERT_TRUE(root->GetChild(1, 0));
    EXPECT_EQ(root->GetChild(1, 0)->GetNodeName(), "b");
}

TEST(UndoRecorder, LeavesCommandsThatDoNothing)
{
    RVOpenManager manager;
    QUndoStack stack;
    auto recorder = std::make_unique<UndoRecorder>(manager, &stack);
    manager.GetCurrentSnapShot()->SetName(QStringLiteral("A"));
    recorder.reset();
    ASSERT_EQ(stack.count(), 1);
    stack.undo();
    EXPECT_EQ(stack.count(), 0);
    EXPECT_EQ(manager.GetCurrentSnapShot()->GetName(), "A");
}

TEST(UndoRecorder, OutlivesItsStack)
{
    RVOpenManager manager;
    auto stack = std::make_unique<QUndoStack>();
    const UndoRecorder recorder(manager, stack.get());
    stack.reset();
    manager.GetCurrentSnapShot()->SetName(QStringLiteral("A"));
    EXPECT_EQ(manager.GetCurrentSnapShot()->GetName(), "A");
}

TEST(UndoRecorder, NeedsFewLines)
{
    RVOpenManager manager;
    const QString before = manager.GetCurrentSnapShot()->GetName();
    QMainWindow window;
    addUndo(manager, window);
    ASSERT_EQ(window.actions().size(), 2);
    EXPECT_EQ(window.actions().first()->text(), "Undo Rename Snapshot");
    window.actions().first()->trigger();
    EXPECT_EQ(manager.GetCurrentSnapShot()->GetName(), before);
    window.actions().last()->trigger();
    EXPECT_EQ(manager.GetCurrentSnapShot()->GetName(), "Entrance");
}

} // namespace rvopen::widgets
