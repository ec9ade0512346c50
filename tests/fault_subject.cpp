// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

/// What scripts/fault-injection lets fail: one operation of the library on files, between two calls
/// by which it is found in a trace. Ends with 0 when the library says that it was done, with 1 when
/// it says that it failed, with 2 when there was nothing to do.
///
///     fault_subject [--unprivileged] save <archive> <name>    gives its root element that name
///     fault_subject [--unprivileged] create <archive> <name>  the same, its file being gone
///     fault_subject [--unprivileged] import <document> <snapshots folder>
///     fault_subject [--unprivileged] remove <archive>

#include <rvopen/DirectoryHandler.h>
#include <rvopen/RVOpenManager.h>
#include <rvopen/SnapShot.h>
#include <rvopen/SnapShotSettings.h>
#include <rvopen/SnapShots.h>

#include <QFile>
#include <QString>
#include <QStringList>

#include <cstdio>
#include <exception>
#include <grp.h>
#include <stdexcept>
#include <unistd.h>

using namespace rvopen;

namespace {

/// Seen in the trace; there is no such file.
void mark(const char* name)
{
    static_cast<void>(::access(name, F_OK));
}

template <typename Operation>
auto betweenMarks(Operation operation)
{
    mark("operation-begins");
    auto result = operation();
    mark("operation-ends");
    return result;
}

bool save(const QString& path, const QString& name, bool isGone)
{
    RVOpenNode* const root = GetDirectoryHandler()->LoadArchive(path);
    if (!root || (isGone && !QFile::remove(path)))
        throw std::runtime_error("the archive cannot be opened");
    root->SetName(name);
    return betweenMarks([&] { return GetDirectoryHandler()->SaveArchive(path); });
}

/// The session of the imported snapshot tells whether its thumbnail came with it.
bool import(const QString& path, const QString& folder)
{
    GetDirectoryHandler()->SetSnapshotsFolder(folder);
    RVOpenManager manager;
    manager.GetCurrentSnapShot()->GetSnapShotSettings()->SetSessionName("ours");
    manager.ImportSnapShotDoc(path, false, false);
    SnapShot* const snapShot = betweenMarks([&] {
        manager.AddImportedSnapShot(false);
        return manager.GetSnapShots()->GetFirstSnapShot();
    });
    if (!snapShot)
        throw std::runtime_error("the document cannot be imported");
    return snapShot->GetSnapShotSettings()->GetSessionName() == "ours";
}

/// An archive whose file could not be deleted is still open.
bool remove(const QString& path)
{
    if (!GetDirectoryHandler()->LoadArchive(path))
        throw std::runtime_error("the archive cannot be opened");
    betweenMarks([&] {
        GetDirectoryHandler()->RemoveArchive(path);
        return true;
    });
    return !GetDirectoryHandler()->SaveArchive(path);
}

void dropPrivileges()
{
    const uid_t nobody = 65534;
    if (::geteuid() == 0 &&
        (::setgroups(0, nullptr) != 0 || ::setgid(nobody) != 0 || ::setuid(nobody) != 0))
        throw std::runtime_error("privileges cannot be dropped");
}

bool run(QStringList arguments)
{
    if (arguments.value(0) == "--unprivileged") {
        dropPrivileges();
        arguments.removeFirst();
    }
    const QString operation = arguments.value(0);
    const QString path = arguments.value(1);
    const QString other = arguments.value(2);
    if (operation == "save" || operation == "create")
        return save(path, other, operation == "create");
    if (operation == "import")
        return import(path, other);
    if (operation == "remove")
        return remove(path);
    throw std::runtime_error("there is no such operation");
}

} // namespace

int main(int argc, char** argv)
{
    try {
        QStringList arguments;
        for (int i = 1; i < argc; ++i)
            arguments << QFile::decodeName(argv[i]);
        return run(arguments) ? 0 : 1;
    } catch (const std::exception& error) {
        std::fprintf(stderr, "fault_subject: %s\n", error.what());
        return 2;
    }
}
