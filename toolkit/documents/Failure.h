// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

#include <stdexcept>

namespace rvopen::tools {

/// The command could not do what it was asked; the message is for the user.
class Failure : public std::runtime_error {
public:
    explicit Failure(const QString& message)
        : std::runtime_error(message.toStdString())
    {
    }
    QString message() const
    {
        return QString::fromUtf8(what());
    }
};

} // namespace rvopen::tools
