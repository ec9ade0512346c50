// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include <rvopen/host/OpenArchive.h>

#include <rvopen/DirectoryHandler.h>
#include <rvopen/files/DocumentFiles.h>

#include <QHash>

#include <mutex>
#include <utility>

namespace rvopen::host {

namespace {

/// How many have an archive open. One that was closed and opened anew is another one.
struct Use {
    Ref<> root;
    int count = 0;
    bool wasOpen = false; ///< Before the first of them.
};

/// By file name, as the registry knows archives. Never deleted, since objects of the whole process
/// may end after it.
struct Uses {
    /// Held while an archive is opened and closed, so that nobody finds one that is on its way out.
    /// An observer that is told of its end may open others.
    std::recursive_mutex mutex;
    QHash<QString, Use> byName;
};

Uses& uses()
{
    static auto* const all = new Uses;
    return *all;
}

using Locked = std::lock_guard<std::recursive_mutex>;

} // namespace

OpenArchive::OpenArchive(const QString& path)
    : m_path(path)
{
    const Locked lock(uses().mutex);
    DirectoryHandler* const registry = GetDirectoryHandler();
    const bool wasOpen = registry->IsArchiveOpen(path);
    m_root = registry->LoadArchive(path);
    if (!m_root) {
        m_error = LastReadError();
        return;
    }
    Use& use = uses().byName[path];
    if (use.root != m_root)
        use = Use{m_root, 0, wasOpen};
    ++use.count;
}

OpenArchive::OpenArchive(OpenArchive&& other) noexcept
    : m_path(std::move(other.m_path))
    , m_root(std::move(other.m_root))
    , m_error(std::move(other.m_error))
{
}

OpenArchive& OpenArchive::operator=(OpenArchive&& other) noexcept
{
    if (this == &other)
        return *this;
    close();
    m_path = std::move(other.m_path);
    m_root = std::move(other.m_root);
    m_error = std::move(other.m_error);
    return *this;
}

OpenArchive::~OpenArchive()
{
    close();
}

WriteError OpenArchive::save()
{
    // Somebody else may have opened it anew.
    if (!m_root)
        return notOpen(m_path);
    GetDirectoryHandler()->SaveArchive(m_path);
    return lastWriteError();
}

void OpenArchive::close()
{
    if (!m_root)
        return;
    const Locked lock(uses().mutex);
    QHash<QString, Use>& all = uses().byName;
    const Ref<> root = std::exchange(m_root, Ref<>());
    const auto use = all.find(m_path);
    if (use == all.end() || use->root != root || --use->count > 0)
        return;
    const bool closes = !use->wasOpen;
    all.erase(use);
    if (closes)
        GetDirectoryHandler()->CloseArchive(m_path);
}

} // namespace rvopen::host
