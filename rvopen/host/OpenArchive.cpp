// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include <rvopen/host/OpenArchive.h>

#include <rvopen/DirectoryHandler.h>
#include <rvopen/files/DocumentFiles.h>

#include <QHash>

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
QHash<QString, Use>& uses()
{
    static auto* const all = new QHash<QString, Use>;
    return *all;
}

} // namespace

OpenArchive::OpenArchive(const QString& path)
    : m_path(path)
{
    DirectoryHandler* const registry = GetDirectoryHandler();
    const bool wasOpen = registry->IsArchiveOpen(path);
    m_root = registry->LoadArchive(path);
    if (!m_root) {
        m_error = LastReadError();
        return;
    }
    Use& use = uses()[path];
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
    const Ref<> root = std::exchange(m_root, Ref<>());
    const auto use = uses().find(m_path);
    if (!root || use == uses().end() || use->root != root || --use->count > 0)
        return;
    const bool closes = !use->wasOpen;
    uses().erase(use);
    if (closes)
        GetDirectoryHandler()->CloseArchive(m_path);
}

} // namespace rvopen::host
