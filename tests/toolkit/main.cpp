// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "../SkippedTests.h"

#include <QGuiApplication>

#include <gtest/gtest.h>

int main(int argc, char** argv)
{
    ::testing::InitGoogleTest(&argc, argv);
    rvopen::test::SkippedTests::report();
    qputenv("LC_ALL", "C.UTF-8");
    // Pictures need an application, and contact sheets one with fonts.
    qputenv("QT_QPA_PLATFORM", "minimal:enable_fonts");
    const QGuiApplication application(argc, argv);
    return RUN_ALL_TESTS();
}
