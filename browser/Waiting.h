// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QCursor>
#include <QFileInfo>
#include <QGuiApplication>

namespace rvopen::browser {

/// While one lives the pointer says that a file is being read or written that takes long; files
/// that do not are passed over.
class Waiting {
public:
    explicit Waiting(const QString& file)
        : m_isShown(QFileInfo(file).size() > s_long)
    {
        if (m_isShown)
            QGuiApplication::setOverrideCursor(Qt::WaitCursor);
    }
    ~Waiting()
    {
        if (m_isShown)
            QGuiApplication::restoreOverrideCursor();
    }
    Waiting(const Waiting&) = delete;
    Waiting& operator=(const Waiting&) = delete;

private:
    /// Bytes that take a fifth of a second.
    static constexpr qint64 s_long = 4 * 1024 * 1024;

    bool m_isShown;
};

} // namespace rvopen::browser
