// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "FuzzSupport.h"

#include <rvopen/DirectoryHandler.h>
#include <rvopen/RVOpenManager.h>

#include <QDir>
#include <QFile>
#include <QGuiApplication>
#include <QTemporaryDir>

#include <cstdio>
#include <cstdlib>

#ifdef RVOPEN_SANITIZE
#include <sanitizer/lsan_interface.h>
#endif

namespace rvopen::fuzz {

namespace {

void onMessage(QtMsgType type, const QMessageLogContext&, const QString& message)
{
    if (type == QtFatalMsg)
        std::fprintf(stderr, "%s\n", qPrintable(message));
}

/// The folders lie deep below the scratch folder, so that a few steps up still end inside it.
class Surroundings {
public:
    Surroundings()
    {
        qInstallMessageHandler(onMessage);
        for (const QString& folder : {snapShots(), product(), custom()})
            QDir().mkpath(folder);
    }

    QString root() const
    {
        return m_root.path();
    }
    QString inner() const
    {
        return m_root.filePath(QStringLiteral("a/b/c"));
    }
    QString snapShots() const
    {
        return inner() + QStringLiteral("/snapshots");
    }
    QString product() const
    {
        return inner() + QStringLiteral("/product");
    }
    QString custom() const
    {
        return inner() + QStringLiteral("/custom");
    }

private:
    QTemporaryDir m_root;
};

const Surroundings& surroundings()
{
    static const Surroundings instance;
    return instance;
}

QStringList entries(const QString& folder)
{
    return QDir(folder).entryList(
        QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot, QDir::Name);
}

} // namespace

void broken(const char* promise, const QString& detail)
{
    std::fprintf(stderr, "== BROKEN: %s\n", promise);
    if (!detail.isEmpty())
        std::fprintf(stderr, "%s\n", detail.toUtf8().constData());
    std::fflush(stderr);
    std::abort();
}

void requireEqual(const QString& first, const QString& second, const char* promise)
{
    require(first == second, promise, [&first, &second] {
        return QStringLiteral("--- first\n%1\n--- second\n%2").arg(first, second);
    });
}

void requireTextLoadsEqual(const QString& written)
{
    const auto reloaded = [](const QString& text) {
        RVOpenManager manager;
        require(manager.LoadSnapShotDocFromString(text) == 1, "what was written loads",
                [&text] { return text; });
        return manager.GetSnapShotDocumentAsString();
    };
    const QString second = reloaded(written);
    requireEqual(second, reloaded(second), "the second and the third text are the same");
}

bool isTracing()
{
    static const bool tracing = qEnvironmentVariableIsSet("RVOPEN_FUZZ_TRACE");
    return tracing;
}

void trace(const QString& step)
{
    if (isTracing())
        std::fprintf(stderr, "%s\n", step.toUtf8().constData());
}

void prepare()
{
    const Surroundings& here = surroundings();
    GetDirectoryHandler()->SetSnapshotsFolder(here.snapShots());
    GetDirectoryHandler()->SetZorvaneArchivesFolder(here.product());
    GetDirectoryHandler()->SetCustomArchivesFolder(here.custom());
}

void prepareWithApplication()
{
    struct Application {
        Application()
        {
#ifdef RVOPEN_SANITIZE
            // The screen that the offscreen platform makes is never freed.
            const __lsan::ScopedDisabler ignoreLeaks;
#endif
            qputenv("QT_QPA_PLATFORM", "offscreen");
            if (!qEnvironmentVariableIsSet("XDG_RUNTIME_DIR"))
                qputenv("XDG_RUNTIME_DIR", QFile::encodeName(scratch()));
            static int argc = 1;
            static char name[] = "fuzz";
            static char* argv[] = {name, nullptr};
            // Lives as long as the process: what Qt tears down with it is not what is tested.
            new QGuiApplication(argc, argv);
        }
    };
    prepare();
    static const Application application;
}

QString scratch()
{
    return surroundings().root();
}

QString snapShotsFolder()
{
    return surroundings().snapShots();
}

QString productFolder()
{
    return surroundings().product();
}

QString customFolder()
{
    return surroundings().custom();
}

bool nothingEscaped()
{
    const QString root = surroundings().root();
    return entries(root + QStringLiteral("/a")) == QStringList{QStringLiteral("b")} &&
           entries(root + QStringLiteral("/a/b")) == QStringList{QStringLiteral("c")} &&
           entries(surroundings().inner()).size() == 3;
}

void writeFile(const QString& path, const QByteArray& bytes)
{
    QFile file(path);
    require(file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size(),
            "the scratch folder can be written");
}

QByteArray readFile(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

} // namespace rvopen::fuzz
