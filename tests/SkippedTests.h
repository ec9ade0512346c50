// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include <gtest/gtest.h>

#include <cstdio>

namespace rvopen::test {

/// Names each test that was skipped, which the brief output leaves out: scripts/test tells of them.
class SkippedTests : public ::testing::EmptyTestEventListener {
public:
    /// Has to follow InitGoogleTest().
    static void report()
    {
        ::testing::UnitTest::GetInstance()->listeners().Append(new SkippedTests());
    }

private:
    void OnTestEnd(const ::testing::TestInfo& test) override
    {
        if (test.result()->Skipped())
            std::printf("[  SKIPPED ] %s.%s\n", test.test_suite_name(), test.name());
    }
};

} // namespace rvopen::test
