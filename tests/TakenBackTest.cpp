// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "RandomEdits.h"
#include "RecordingObserver.h"

/// Whatever was done, what was told takes it back to the same bytes.
namespace rvopen::test {
namespace {

class TakenBack : public ::testing::TestWithParam<unsigned int> {};

TEST_P(TakenBack, AThousandEditsGiveTheSameBytes)
{
    RandomEdits edits(GetParam());
    const QString before = edits.text();
    RecordingObserver observer(edits.document());
    for (int i = 0; i < 1000; ++i)
        edits.edit();
    EXPECT_GT(observer.changes.size(), 1000U);
    EXPECT_NE(edits.text(), before);
    takeBack(observer.changes);
    EXPECT_EQ(edits.text(), before);
}

TEST_P(TakenBack, EachSingleEditGivesTheSameBytes)
{
    for (unsigned int i = 0; i < 60; ++i) {
        RandomEdits edits(GetParam() * 1000 + i);
        for (unsigned int j = 0; j < i; ++j)
            edits.edit();
        const QString before = edits.text();
        RecordingObserver observer(edits.document());
        edits.edit();
        takeBack(observer.changes);
        ASSERT_EQ(edits.text(), before) << "seed " << GetParam() * 1000 + i;
    }
}

TEST_P(TakenBack, ObserversOfTheThreadDoNotChangeWhatIsDone)
{
    RandomEdits alone(GetParam());
    RandomEdits observed(GetParam());
    for (int i = 0; i < 300; ++i)
        alone.edit();
    const RecordingObserver observer;
    for (int i = 0; i < 300; ++i)
        observed.edit();
    EXPECT_EQ(observed.text(), alone.text());
}

INSTANTIATE_TEST_SUITE_P(RVOpenObserver, TakenBack, ::testing::Values(1U, 2U, 3U));

} // namespace
} // namespace rvopen::test
