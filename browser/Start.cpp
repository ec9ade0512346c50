// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "Start.h"

#include "MainWindow.h"
#include "QtCompat.h"

#include <rvopen/RVOpenVersion.h>

#include <QApplication>
#include <QCommandLineParser>
#include <QIcon>
#include <QTranslator>

#include <memory>

namespace rvopen::browser {

namespace {

/// What is installed last is asked first. English has its plurals there, for who has no language.
void translate(QApplication& application)
{
    const auto install = [&application](const QLocale& locale, const char* name,
                                        const QString& folder) {
        auto* const translator = new QTranslator(&application);
        if (translator->load(locale, QLatin1String(name), QStringLiteral("_"), folder))
            QCoreApplication::installTranslator(translator);
    };
    const QString own = QStringLiteral(":/translations");
    install(QLocale(QLocale::English), "rvopen-browser", own);
    install(QLocale(), "qtbase", folderOfQtTranslations());
    install(QLocale(), "rvopen-browser", own);
}

} // namespace

int run(int argc, char** argv)
{
    QApplication application(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("rvopen-browser"));
    QCoreApplication::setApplicationVersion(QLatin1String(RVOPEN_VERSION_STRING));
    QGuiApplication::setDesktopFileName(QStringLiteral("rvopen-browser"));
    QGuiApplication::setWindowIcon(QIcon(QStringLiteral(":/rvopen-browser.png")));
    translate(application);

    QCommandLineParser parser;
    parser.setApplicationDescription(QCoreApplication::translate(
        "Start", "Choose and edit presets and snapshots by their pictures"));
    parser.addHelpOption();
    parser.addVersionOption();
    const QCommandLineOption settings(
        QStringLiteral("settings"),
        QCoreApplication::translate("Start", "Remember in this file instead of the user's"),
        QStringLiteral("FILE"));
    parser.addOption(settings);
    parser.addPositionalArgument(
        QStringLiteral("paths"),
        QCoreApplication::translate("Start", "Archives, documents and folders; without any what "
                                             "was open before"),
        QStringLiteral("[paths...]"));
    parser.process(application);

    const auto memory = parser.isSet(settings) ? std::make_unique<Memory>(parser.value(settings))
                                               : std::make_unique<Memory>();
    setAppearance(memory->appearance());
    Workspace workspace(*memory);
    MainWindow window(workspace);
    window.show();
    const QStringList paths = parser.positionalArguments();
    workspace.open(paths.isEmpty() ? memory->opened() : paths);
    window.offerRecovery();
    return QApplication::exec();
}

} // namespace rvopen::browser
