// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include <rvopen/widgets/UndoRecorder.h>

#include "../RandomEdits.h"

#include <rvopen/host/Ref.h>

#include <QCoreApplication>
#include <QUndoStack>

#include <gtest/gtest.h>

#include <random>
#include <vector>

namespace rvopen::widgets {

namespace {

/// Edits, undoes and redoes, and knows the bytes of each place in the stack.
class RandomCommands : public ::testing::TestWithParam<unsigned int> {
protected:
    RandomCommands()
    {
        m_texts << edits.text();
        QObject::connect(&stack, &QUndoStack::indexChanged, [this](int index) {
            if (!m_isEditing)
                return;
            EXPECT_EQ(index, stack.count());
            while (m_texts.size() > index)
                m_texts.removeLast();
            m_texts << edits.text();
        });
    }

    /// Commands of one to three edits.
    void edit()
    {
        m_isEditing = true;
        {
            const UndoRecorder::Step step(recorder, QString());
            for (int i = number(3); i >= 0; --i)
                edits.edit();
        }
        m_isEditing = false;
    }
    /// One by itself: several commands, or none where it only adds.
    void editAside()
    {
        m_isEditing = true;
        edits.edit();
        m_isEditing = false;
    }
    /// A material that somebody holds, wherever it is by now.
    void editHeld()
    {
        Material* const material =
            m_held.empty() ? nullptr : m_held[std::size_t(number(int(m_held.size())))].get();
        if (!material)
            return;
        m_isEditing = true;
        material->SetLinkName(QString::number(number(5)));
        if (number(2))
            material->GetColour(1)->SetName(QString::number(number(5)));
        if (number(3) == 0 && material->GetDomNode().parentNode().isNull())
            edits.manager().GetCurrentSnapShot()->GetMaterialRepository()->AddMaterial(material);
        m_isEditing = false;
    }
    /// To a place at most \p range away.
    void wander(int range)
    {
        int steps = number(2 * range + 1) - range;
        for (; steps < 0 && stack.canUndo(); ++steps) {
            if (!stack.canRedo())
                m_texts[stack.index()] = edits.text();
            stack.undo();
            ASSERT_EQ(edits.text(), m_texts[stack.index()]) << "undone to " << stack.index();
        }
        for (; steps > 0 && stack.canRedo(); --steps) {
            stack.redo();
            ASSERT_EQ(edits.text(), m_texts[stack.index()]) << "redone to " << stack.index();
        }
    }
    /// What is held is gone, or shows what its element has.
    void lookAtHeld()
    {
        for (const host::Ref<Material>& material : m_held) {
            ASSERT_TRUE(!material || test::mirrorsDom(material.get()));
        }
    }
    void hold()
    {
        SnapShot* snapShot = edits.manager().GetSnapShots()->GetFirstSnapShot();
        for (int i = number(3); i > 0 && snapShot->GetNext(); --i)
            snapShot = snapShot->GetNext();
        if (Material* const material = snapShot->GetMaterialRepository()->GetFirstMaterial())
            m_held.emplace_back(material);
    }
    int number(int below)
    {
        return int(m_random() % unsigned(below));
    }

    test::RandomEdits edits{GetParam()};
    QUndoStack stack;
    UndoRecorder recorder{edits.manager(), &stack};

private:
    QStringList m_texts;
    std::vector<host::Ref<Material>> m_held;
    std::mt19937 m_random{GetParam()};
    bool m_isEditing = false;
};

} // namespace

TEST_P(RandomCommands, GiveTheSameBytesWhereverTheStackIs)
{
    // Until there is a command, what only adds is part of what all start from.
    while (stack.count() == 0)
        edit();
    int failures = 0;
    QObject::connect(&recorder, &UndoRecorder::Failed, [&] { ++failures; });
    for (int i = 0; i < 1000 && !HasFatalFailure(); ++i) {
        SCOPED_TRACE(i);
        switch (number(8)) {
        case 0:
        case 1:
        case 2:
            edit();
            break;
        case 3:
            editAside();
            break;
        case 4:
            hold();
            break;
        case 5:
            editHeld();
            break;
        case 6:
            wander(4);
            break;
        default:
            wander(number(10) == 0 ? 200 : 20);
        }
        lookAtHeld();
    }
    QCoreApplication::processEvents();
    EXPECT_EQ(failures, 0);
    EXPECT_GT(stack.count(), 0);
}

INSTANTIATE_TEST_SUITE_P(UndoRecorder, RandomCommands, ::testing::Values(1U, 2U, 3U, 4U, 5U));

} // namespace rvopen::widgets
