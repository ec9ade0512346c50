// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "Session.h"

#include "Command.h"

#include <rvopen/DirectoryHandler.h>

#if defined(_WIN32)
#include <io.h>
#else
#include <unistd.h>
#endif

namespace rvopen::command {

namespace {

bool isErrorTerminal()
{
#if defined(_WIN32)
    return _isatty(_fileno(stderr)) != 0;
#else
    return isatty(STDERR_FILENO) != 0;
#endif
}

} // namespace

void Session::announceFolders() const
{
    DirectoryHandler* const handler = GetDirectoryHandler();
    handler->SetZorvaneArchivesFolder(folders.archives);
    handler->SetCustomArchivesFolder(folders.custom);
    handler->SetSnapshotsFolder(folders.snapshots);
}

void Session::error(const ReadError& error)
{
    QString place = error.file;
    if (error.line > 0)
        place += QStringLiteral(":%1:%2").arg(error.line).arg(error.column);
    this->error(place, error.message);
}

void Session::error(const QString& file, const QString& message)
{
    m_hasFailed = true;
    complain(file + QLatin1String(": ") + message);
}

void Session::warning(const QString& file, const QString& message)
{
    complain(file + QLatin1String(": ") + message);
}

bool Session::hasFailed() const
{
    return m_hasFailed;
}

int Session::result(int code) const
{
    return m_hasFailed ? int(ExitFailed) : code;
}

QJsonObject Session::envelope(const char* command)
{
    return {{QStringLiteral("command"), QLatin1String(command)},
            {QStringLiteral("formatVersion"), 1}};
}

QJsonObject Session::errorObject(const ReadError& error)
{
    return {{QStringLiteral("line"), error.line},
            {QStringLiteral("column"), error.column},
            {QStringLiteral("message"), error.message}};
}

void Session::progress(int at, int of, const QString& what)
{
    if (quiet || of < 2 || !isErrorTerminal())
        return;
    const QByteArray line =
        QStringLiteral("\r\033[K[%1/%2] %3").arg(at).arg(of).arg(visible(what).right(60)).toUtf8();
    std::fwrite(line.constData(), 1, std::size_t(line.size()), stderr);
    std::fflush(stderr);
    m_hasProgress = true;
}

void Session::clearProgress()
{
    if (!m_hasProgress)
        return;
    std::fputs("\r\033[K", stderr);
    std::fflush(stderr);
    m_hasProgress = false;
}

void Session::complain(const QString& text)
{
    clearProgress();
    out.flush();
    const QByteArray line = visible(text).toUtf8() + '\n';
    std::fwrite(line.constData(), 1, std::size_t(line.size()), stderr);
}

} // namespace rvopen::command
