// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QLockFile>
#include <QString>

#include <memory>

namespace rvopen::toolkit {

/// Keeps other runs of the program from changing a file between reading and writing it: a file
/// beside it, "NAME.lock", which goes at the end. Where the folder takes no file nobody can be kept
/// from it.
class FileLock {
public:
    FileLock();
    ~FileLock();

    /// Waits while another run has it; throws a Failure when that takes too long.
    void take(const QString& path);

private:
    std::unique_ptr<QLockFile> m_lock;
};

} // namespace rvopen::toolkit
