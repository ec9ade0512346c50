// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "SkippedTests.h"

#include <QFile>
#include <QGuiApplication>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace {

/// The same surroundings for every run: no screen, a locale that can name any file, and a home
/// folder of its own.
void setEnvironment(const QTemporaryDir& home)
{
    const QByteArray path = QFile::encodeName(home.path());
    qputenv("HOME", path);
    qputenv("XDG_RUNTIME_DIR", path);
    qputenv("LC_ALL", "C.UTF-8");
    // Unlike "offscreen", which in Qt 5 never frees its screen, it is clean under the sanitizers.
    qputenv("QT_QPA_PLATFORM", "minimal");
}

} // namespace

/// Under the address sanitizer an allocation that cannot be had gives null, as it does without.
extern "C" __attribute__((visibility("default"))) const char* __asan_default_options()
{
    return "allocator_may_return_null=1";
}

int main(int argc, char** argv)
{
    ::testing::InitGoogleTest(&argc, argv);
    rvopen::test::SkippedTests::report();
    const QTemporaryDir home;
    setEnvironment(home);
    // Pixmaps need an application.
    const QGuiApplication application(argc, argv);
    return RUN_ALL_TESTS();
}
