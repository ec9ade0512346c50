// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include <QFile>
#include <QGuiApplication>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <memory>

#ifdef RVOPEN_SANITIZE
#include <sanitizer/lsan_interface.h>
#endif

namespace {

/// The same surroundings for every run: no screen, a locale that can name any file, and a home
/// folder of its own.
void setEnvironment(const QTemporaryDir& home)
{
    const QByteArray path = QFile::encodeName(home.path());
    qputenv("HOME", path);
    qputenv("XDG_RUNTIME_DIR", path);
    qputenv("LC_ALL", "C.UTF-8");
    qputenv("QT_QPA_PLATFORM", "offscreen");
}

/// Pixmaps need an application. The screen that Qt 5's offscreen platform makes for it is never
/// freed, which is not a leak of the library's.
std::unique_ptr<QGuiApplication> makeApplication(int& argc, char** argv)
{
#ifdef RVOPEN_SANITIZE
    const __lsan::ScopedDisabler ignoreLeaks;
#endif
    return std::make_unique<QGuiApplication>(argc, argv);
}

} // namespace

int main(int argc, char** argv)
{
    ::testing::InitGoogleTest(&argc, argv);
    const QTemporaryDir home;
    setEnvironment(home);
    const auto application = makeApplication(argc, argv);
    return RUN_ALL_TESTS();
}
