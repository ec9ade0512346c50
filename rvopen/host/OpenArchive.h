// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include <rvopen/RVOpenExport.h>
#include <rvopen/RVOpenWriter.h>
#include <rvopen/host/Ref.h>
#include <rvopen/host/Result.h>

#include <QString>

namespace rvopen::host {

/// An archive that is open in the registry as long as this is. Of several of the same file name the
/// last one closes it, unless it was open before the first, and drops what was not saved. Where the
/// archive is closed or removed otherwise, root() is null.
///
/// Any thread may make one and drop it while another one is in the tree below the root, which is to
/// have one as well; save() and what is below the root are for the thread that is in it.
class RVOPEN_EXPORT OpenArchive {
public:
    /// None.
    OpenArchive() = default;
    /// Opens the archive, or shares it where it is open.
    [[nodiscard]] explicit OpenArchive(const QString& path);
    /// \p other has none then.
    OpenArchive(OpenArchive&& other) noexcept;
    /// Closes what this had.
    OpenArchive& operator=(OpenArchive&& other) noexcept;
    ~OpenArchive();
    OpenArchive(const OpenArchive&) = delete;
    OpenArchive& operator=(const OpenArchive&) = delete;

    /// Whether the archive is open.
    explicit operator bool() const
    {
        return bool(m_root);
    }
    /// Null where the archive could not be opened or is no longer open. Owned by the registry.
    [[nodiscard]] RVOpenNode* root() const
    {
        return m_root.get();
    }
    /// As it was given.
    [[nodiscard]] QString path() const
    {
        return m_path;
    }
    /// Why the archive could not be opened; without message where it could.
    [[nodiscard]] const ReadError& error() const
    {
        return m_error;
    }

    /// Writes the archive to its file, whole or not at all. It is an error where it is not open.
    WriteError save();
    /// As the end of this: root() is null then.
    void close();

private:
    QString m_path;
    Ref<> m_root;
    ReadError m_error;
};

} // namespace rvopen::host
