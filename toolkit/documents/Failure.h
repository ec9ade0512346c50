// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include <rvopen/toolkit/ToolkitExport.h>

#include <QString>

#include <stdexcept>

namespace rvopen::toolkit {

/// What was asked for could not be done; the message is for the user. Thrown by what says so, and
/// by nothing else.
class RVOPEN_TOOLKIT_EXPORT Failure : public std::runtime_error {
public:
    /// With what the user is told.
    explicit Failure(const QString& message)
        : std::runtime_error(message.toStdString())
    {
    }
    /// For the user, without the name of the program.
    QString Message() const
    {
        return QString::fromUtf8(what());
    }
};

} // namespace rvopen::toolkit
