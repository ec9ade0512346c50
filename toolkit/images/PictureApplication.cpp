// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "PictureApplication.h"

#include <rvopen/toolkit/documents/Failure.h>

#include <QGuiApplication>
#include <QImage>
#include <QPainter>

#include <mutex>
#include <thread>

namespace rvopen::toolkit {

namespace {

/// Without any font all letters are the same box.
bool haveFonts()
{
    const auto written = [](QChar letter) {
        QImage image(48, 48, QImage::Format_RGB32);
        image.fill(Qt::white);
        QPainter painter(&image);
        painter.drawText(image.rect(), int(Qt::AlignCenter), QString(letter));
        painter.end();
        return image;
    };
    return written(QLatin1Char('A')) != written(QLatin1Char('H'));
}

/// Nothing is shown: whatever platform the environment names for programs with windows, and whether
/// it is there, is no matter. The first one asked for counts.
void usePlatform(const char* name)
{
    static const bool isChosen = qputenv("QT_QPA_PLATFORM", name);
    static_cast<void>(isChosen);
}

/// It goes at the end of the process where the thread that made it ends that: where another one
/// has, and the first is gone, Qt does not bear its end, and it stays.
class OwnApplication {
public:
    OwnApplication(int& argc, char** argv)
        : m_thread(std::this_thread::get_id())
        , m_application(new QGuiApplication(argc, argv))
    {
    }
    ~OwnApplication()
    {
        if (m_thread == std::this_thread::get_id())
            delete m_application;
    }
    OwnApplication(const OwnApplication&) = delete;
    OwnApplication& operator=(const OwnApplication&) = delete;

private:
    std::thread::id m_thread;
    QGuiApplication* m_application;
};

} // namespace

void preparePictures()
{
    // Of several threads one makes it, and the others wait until it is whole.
    static std::mutex mutex;
    const std::lock_guard<std::mutex> lock(mutex);
    // That of a host is as good.
    if (qobject_cast<QGuiApplication*>(QCoreApplication::instance()))
        return;
    usePlatform("minimal");
    static int argc = 1;
    static char name[] = "rvopen";
    static char* argv[] = {name, nullptr};
    // What it has to say of the session that it finds itself in is of no use to the user.
    const QtMessageHandler handler =
        qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) {});
    static const OwnApplication application(argc, argv);
    qInstallMessageHandler(handler);
}

void prepareTexts()
{
    // The plugin for no screen has fonts only when that is asked for.
    usePlatform("minimal:enable_fonts");
    preparePictures();
    if (!haveFonts())
        throw Failure(QStringLiteral("there is no font to write names with: install one, such as "
                                     "the package fonts-dejavu-core"));
}

} // namespace rvopen::toolkit
