// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>
#include <QStringList>
#include <QtGlobal>

namespace rvopen::test {

/// Collects what is logged for as long as this object lives; one at a time.
class LoggedMessages {
public:
    LoggedMessages()
        : m_former(qInstallMessageHandler(&LoggedMessages::collect))
    {
        s_texts.clear();
    }
    ~LoggedMessages()
    {
        qInstallMessageHandler(m_former);
    }
    LoggedMessages(const LoggedMessages&) = delete;
    LoggedMessages& operator=(const LoggedMessages&) = delete;

    QStringList texts() const
    {
        return s_texts;
    }

private:
    static void collect(QtMsgType, const QMessageLogContext&, const QString& text)
    {
        s_texts << text;
    }

    static inline QStringList s_texts;
    const QtMessageHandler m_former;
};

} // namespace rvopen::test
