// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "UndoSupport.h"

#include <rvopen/RVOpenView.h>
#include <rvopen/host/Owned.h>
#include <rvopen/host/Ref.h>

#include <QCoreApplication>
#include <QDomDocument>
#include <QSignalSpy>

#include <memory>

/// What is in the way of an undo: edits past the objects, edits on their way, and those of what is
/// out of the tree.
namespace rvopen::widgets {

namespace {

class UndoInTheWay : public UndoRecorderTest {
protected:
    QStringList takeFailures()
    {
        QCoreApplication::processEvents();
        QStringList texts;
        while (!m_failed.isEmpty())
            texts << m_failed.takeFirst()[0].toString();
        return texts;
    }

private:
    QSignalSpy m_failed{&recorder, &UndoRecorder::Failed};
};

} // namespace

TEST_F(UndoInTheWay, LeavesTheDocumentWhereACommandCannotBeUndone)
{
    addMaterial("Wall");
    const QDomNode wall = palette()->GetFirstMaterial()->GetDomNode();
    {
        const UndoRecorder::Step step(recorder, QStringLiteral("Two"));
        addMaterial("Floor");
        current()->SetName(QStringLiteral("Late"));
    }
    QDomNode parent = wall.parentNode();
    parent.removeChild(parent.lastChild());
    const QString before = text();
    stack.undo();
    EXPECT_EQ(text(), before);
    EXPECT_EQ(current()->GetName(), "Late");
    EXPECT_EQ(stack.count(), stack.index());
    EXPECT_EQ(takeFailures(), QStringList{"Two"});
}

TEST_F(UndoInTheWay, LeavesTheDocumentWhereACommandCannotBeRedone)
{
    addMaterial("Wall");
    addMaterial("Floor");
    stack.undo();
    manager.GetSnapShotsCameras();
    QDomNode parent = palette()->GetDomNode();
    parent.removeChild(parent.firstChild());
    const QString before = text();
    stack.redo();
    EXPECT_EQ(text(), before);
    EXPECT_TRUE(before.contains(QStringLiteral("Model Cameras")));
    EXPECT_EQ(stack.count(), 1);
}

TEST_F(UndoInTheWay, KeepsAValueThatWasSetPastTheObjects)
{
    current()->SetName(QStringLiteral("A"));
    current()->GetDomNode().toElement().setAttribute(QStringLiteral("name"), QStringLiteral("Raw"));
    const QString before = text();
    stack.undo();
    EXPECT_EQ(text(), before);
    EXPECT_EQ(takeFailures(), QStringList{"Edit"});
    EXPECT_EQ(stack.count(), 0);
}

TEST_F(UndoInTheWay, TellsOfAFailureWhenTheStackCanBeUsedAgain)
{
    current()->SetName(QStringLiteral("A"));
    current()->SetCat(QStringLiteral("B"));
    current()->GetDomNode().toElement().removeAttribute(QStringLiteral("cat"));
    bool isTold = false;
    QObject::connect(&recorder, &UndoRecorder::Failed, [&] {
        isTold = true;
        stack.clear();
    });
    stack.undo();
    EXPECT_FALSE(isTold);
    EXPECT_EQ(stack.count(), 1);
    EXPECT_EQ(takeFailures().size(), 1);
    EXPECT_TRUE(isTold);
    EXPECT_EQ(stack.count(), 0);
}

TEST_F(UndoInTheWay, FailsOnceAsAPartOfACommandOfTheStack)
{
    stack.beginMacro(QStringLiteral("Both"));
    current()->SetName(QStringLiteral("A"));
    current()->SetCat(QStringLiteral("B"));
    stack.endMacro();
    QDomElement element = current()->GetDomNode().toElement();
    element.setAttribute(QStringLiteral("cat"), QStringLiteral("Raw"));
    stack.undo();
    EXPECT_EQ(takeFailures().size(), 1);
    EXPECT_NE(current()->GetName(), "A");
    // As the command left it, which undid nothing of it.
    element.setAttribute(QStringLiteral("cat"), QStringLiteral("B"));
    stack.redo();
    EXPECT_EQ(current()->GetName(), "A");
    EXPECT_EQ(current()->GetCat(), "B");
    EXPECT_EQ(takeFailures(), QStringList());
}

TEST_F(UndoInTheWay, TakesAnEditOnItsWayAlong)
{
    const QString before = text();
    current()->SetName(QStringLiteral("A"));
    for (const bool inBlock : {false, true}) {
        {
            const auto block = inBlock ? std::make_unique<RVOpenBlock>() : nullptr;
            if (!inBlock)
                recorder.Begin(QStringLiteral("Drag"));
            current()->SetAttributeInt("x", 1);
            const QString dragged = text();
            stack.undo();
            EXPECT_EQ(text(), before);
            stack.redo();
            EXPECT_EQ(text(), dragged);
            EXPECT_EQ(stack.count(), 1);
            current()->SetAttributeInt("x", 2);
            recorder.End();
        }
        ASSERT_EQ(stack.count(), 2);
        stack.undo();
        EXPECT_EQ(current()->GetAttributeString("x"), "1");
        stack.undo();
        EXPECT_EQ(text(), before);
        stack.clear();
        current()->SetName(QStringLiteral("A"));
    }
    EXPECT_EQ(takeFailures(), QStringList());
}

TEST_F(UndoInTheWay, RedoesNothingOverAnEditOnItsWay)
{
    current()->SetName(QStringLiteral("A"));
    const QString name = current()->GetName();
    stack.undo();
    {
        const UndoRecorder::Step step(recorder, QStringLiteral("Drag"));
        current()->SetCat(QStringLiteral("B"));
        const QString dragged = text();
        stack.redo();
        EXPECT_EQ(text(), dragged);
    }
    EXPECT_EQ(takeFailures(), QStringList{"Edit"});
    EXPECT_EQ(stack.undoText(), "Drag");
    EXPECT_EQ(stack.count(), 1);
    stack.undo();
    EXPECT_EQ(current()->GetCat(), "");
    EXPECT_NE(current()->GetName(), name);
}

TEST_F(UndoInTheWay, TakesBackWhatIsDoneToANodeThatACommandTookOut)
{
    addMaterial("Wall");
    stack.clear();
    const QString before = text();
    host::Owned<Material> wall;
    {
        const RVOpenBlock block;
        wall = host::detach(palette(), palette()->GetMaterial("Wall"));
    }
    ASSERT_EQ(stack.count(), 1);
    wall->SetLinkName(QStringLiteral("Ceiling"));
    wall->GetColour(1)->SetName(QStringLiteral("Red"));
    EXPECT_EQ(stack.count(), 1);
    const QString without = text();
    stack.undo();
    EXPECT_EQ(text(), before);
    stack.redo();
    EXPECT_EQ(text(), without);
    EXPECT_EQ(wall->GetLinkName(), "Ceiling");
    palette()->AddMaterial(wall.release());
    EXPECT_EQ(materials(), QStringList{"Ceiling"});
    EXPECT_EQ(stack.count(), 1) << "what only adds";
    stack.undo();
    EXPECT_EQ(text(), before);
}

TEST_F(UndoInTheWay, TakesBackWhatIsDoneToANodeThatAnUndoTookOut)
{
    palette();
    host::Ref<Material> wall = addMaterial("Wall");
    const QString after = text();
    stack.undo();
    ASSERT_TRUE(wall);
    wall->SetLinkName(QStringLiteral("Ceiling"));
    ASSERT_TRUE(stack.canRedo());
    stack.redo();
    EXPECT_EQ(text(), after);
}

/// What was out and is changed in something new has to come back as it was, too.
TEST_F(UndoInTheWay, TakesBackWhatMovedFromOneTreelessNodeIntoAnother)
{
    addMaterial("Wall")->GetColour(1)->SetName(QStringLiteral("Red"));
    stack.clear();
    const QString before = text();
    host::Owned<Material> wall;
    {
        const UndoRecorder::Step step(recorder, QStringLiteral("Recolour"));
        wall = host::detach(palette(), palette()->GetMaterial("Wall"));
        Material* const floor = palette()->CreateMaterial();
        RVOpenNode* const colour = wall->GetColour(0);
        floor->AddNode(colour, false);
        colour->SetName(QStringLiteral("Blue"));
        palette()->AddMaterial(floor);
    }
    const QString after = text();
    EXPECT_TRUE(after.contains(QStringLiteral("Blue")));
    for (int i = 0; i < 2; ++i) {
        stack.undo();
        ASSERT_EQ(text(), before);
        stack.redo();
        ASSERT_EQ(text(), after);
    }
}

TEST_F(UndoInTheWay, KeepsNoneOfWhatIsAddedWhileThereIsNoCommand)
{
    const QDomNode element = addByItself("Wall")->GetDomNode();
    EXPECT_EQ(stack.count(), 0);
    current()->SetName(QStringLiteral("A"));
    stack.undo();
    EXPECT_EQ(materials(), QStringList{"Wall"});
    EXPECT_EQ(palette()->GetFirstMaterial()->GetDomNode(), element);
}

/// What a command to be redone makes, and a window that reads needs, is made once.
TEST_F(UndoInTheWay, MakesNothingTwiceThatIsCreatedBetweenTwoUndoes)
{
    current()->SetName(QStringLiteral("A"));
    {
        const UndoRecorder::Step step(recorder, QStringLiteral("Cameras"));
        manager.GetSnapShotsCameras();
    }
    const QString after = text();
    stack.undo();
    manager.GetSnapShotsCameras();
    stack.undo();
    stack.redo();
    stack.redo();
    EXPECT_EQ(text(), after);
}

TEST_F(UndoInTheWay, GivesTheBytesOfSeveralDocumentsInOneCommand)
{
    QDomDocument document;
    document.setContent(QStringLiteral("<a><b/></a>"));
    RVOpenView<> root(document.documentElement());
    const UndoRecorder ofOther(root.get(), &stack);
    const QString before = text();
    const QString otherBefore = document.toString();
    stack.beginMacro(QStringLiteral("Both"));
    current()->SetName(QStringLiteral("A"));
    root->DeleteNode(root->GetChild(1, 0));
    manager.GetSnapShotsCameras();
    current()->SetName(QStringLiteral("B"));
    stack.endMacro();
    ASSERT_EQ(stack.count(), 1);
    const QString after = text();
    for (int i = 0; i < 2; ++i) {
        stack.undo();
        EXPECT_EQ(text(), before);
        EXPECT_EQ(document.toString(), otherBefore);
        stack.redo();
        EXPECT_EQ(text(), after);
        EXPECT_FALSE(root->GetChild(1, 0));
    }
}

} // namespace rvopen::widgets
