// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QByteArray>

namespace rvopen::toolkit {

/// How a program that may be ended from outside, by a signal or its user, has files written whole
/// or not at all. A program without one is never interrupted.
class Interruption {
public:
    Interruption() = default;
    virtual ~Interruption();
    Interruption(const Interruption&) = delete;
    Interruption& operator=(const Interruption&) = delete;

    /// \name What a program says
    /// From hold() until as many release() the program does not end.
    /// @{
    virtual void hold() = 0;
    virtual void release() = 0;
    /// Whether the program is to end; long work undoes then what it did, and returns.
    virtual bool isWanted() const = 0;
    /// A file that goes when the program ends otherwise than by itself; one at a time, empty for
    /// none.
    virtual void removeAtEnd(const QByteArray& path) = 0;
    /// @}

    /// The one of the process, which stays the caller's and outlives all that is written; null for
    /// none. To be called before anything is written.
    static void use(Interruption* interruption);
    /// Null when there is none.
    static Interruption* current();
};

/// While one lives the program does not end.
class Uninterrupted {
public:
    Uninterrupted();
    ~Uninterrupted();
    Uninterrupted(const Uninterrupted&) = delete;
    Uninterrupted& operator=(const Uninterrupted&) = delete;
};

bool isInterrupted();
void removeAtInterrupt(const QByteArray& path);

} // namespace rvopen::toolkit
