// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "FileWriting.h"

#include "Interruption.h"

#include <rvopen/RVOpenPaths.h>
#include <rvopen/RVOpenWriter.h>
#include <rvopen/toolkit/documents/Failure.h>

#include <QFile>

#include <optional>

#if defined(__unix__) || defined(__APPLE__)
#include <cerrno>
#include <chrono>
#include <fcntl.h>
#include <sys/stat.h>
#include <thread>
#include <unistd.h>
#endif

namespace rvopen::toolkit {

namespace {

#if defined(__unix__) || defined(__APPLE__)
/// Opening a named pipe waits until somebody reads it, for ever if nobody does. An object of this
/// class waits for some seconds.
class NamedPipe {
public:
    explicit NamedPipe(const QString& path)
    {
        using std::chrono::steady_clock;
        const QByteArray name = QFile::encodeName(PathToOpen(path));
        struct stat status = {};
        if (::stat(name.constData(), &status) != 0 || !S_ISFIFO(status.st_mode))
            return;
        m_isThere = true;
        const auto end = steady_clock::now() + std::chrono::seconds(5);
        do {
            m_number = ::open(name.constData(), O_WRONLY | O_NONBLOCK | O_CLOEXEC);
            m_lacksReader = m_number < 0 && errno == ENXIO;
            if (m_lacksReader)
                std::this_thread::sleep_for(std::chrono::milliseconds(20));
        } while (m_lacksReader && !isInterrupted() && steady_clock::now() < end);
    }
    ~NamedPipe()
    {
        if (m_number >= 0)
            ::close(m_number);
    }
    NamedPipe(const NamedPipe&) = delete;
    NamedPipe& operator=(const NamedPipe&) = delete;

    bool isThere() const
    {
        return m_isThere;
    }
    bool lacksReader() const
    {
        return m_lacksReader;
    }

private:
    /// Stays open, so that the reader does not take the first opening for all there is.
    int m_number = -1;
    bool m_isThere = false;
    bool m_lacksReader = false;
};
#else
class NamedPipe {
public:
    explicit NamedPipe(const QString&) {}
    bool isThere() const
    {
        return false;
    }
    bool lacksReader() const
    {
        return false;
    }
};
#endif

template <typename Call>
QString write(const QString& path, Call call)
{
    const QString what = QStringLiteral("it could not be written: ");
    const NamedPipe pipe(path);
    if (pipe.lacksReader())
        return what + QStringLiteral("nobody reads this pipe");
    // What went into a pipe cannot be taken back, and its reader may stop reading: signals are not
    // held up for that.
    std::optional<Uninterrupted> writing;
    if (!pipe.isThere())
        writing.emplace();
    return call() ? QString() : what + LastWriteError();
}

} // namespace

QString problemOfWriting(const QByteArray& bytes, const QString& path)
{
    return write(path, [&] { return WriteFile(bytes, path); });
}

QString problemOfWriting(const QDomDocument& document, int indent, const QString& path)
{
    return write(path, [&] { return WriteXmlDocument(document, path, indent); });
}

void writeOrFail(const QByteArray& bytes, const QString& path)
{
    const QString problem = problemOfWriting(bytes, path);
    if (!problem.isEmpty())
        throw Failure(QStringLiteral("\"%1\": %2").arg(path, problem));
}

} // namespace rvopen::toolkit
