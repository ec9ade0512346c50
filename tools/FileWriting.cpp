// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "FileWriting.h"

#include "Failure.h"
#include "Interrupts.h"

#include <rvopen/RVOpenPaths.h>
#include <rvopen/RVOpenWriter.h>

#include <QFile>

#if defined(__unix__) || defined(__APPLE__)
#include <cerrno>
#include <chrono>
#include <fcntl.h>
#include <sys/stat.h>
#include <thread>
#include <unistd.h>
#endif

namespace rvopen::tools {

namespace {

#if defined(__unix__) || defined(__APPLE__)
/// Opening a named pipe waits until somebody reads it, for ever if nobody does. While an object of
/// this class lives there is one who does, or isMissing().
class PipeReader {
public:
    explicit PipeReader(const QString& path)
    {
        using std::chrono::steady_clock;
        const QByteArray name = QFile::encodeName(PathToOpen(path));
        struct stat status = {};
        if (::stat(name.constData(), &status) != 0 || !S_ISFIFO(status.st_mode))
            return;
        const auto end = steady_clock::now() + std::chrono::seconds(5);
        do {
            m_number = ::open(name.constData(), O_WRONLY | O_NONBLOCK | O_CLOEXEC);
            m_isMissing = m_number < 0 && errno == ENXIO;
            if (m_isMissing)
                std::this_thread::sleep_for(std::chrono::milliseconds(20));
        } while (m_isMissing && !isInterrupted() && steady_clock::now() < end);
    }
    ~PipeReader()
    {
        if (m_number >= 0)
            ::close(m_number);
    }
    PipeReader(const PipeReader&) = delete;
    PipeReader& operator=(const PipeReader&) = delete;

    bool isMissing() const
    {
        return m_isMissing;
    }

private:
    int m_number = -1;
    bool m_isMissing = false;
};
#else
class PipeReader {
public:
    explicit PipeReader(const QString&) {}
    bool isMissing() const
    {
        return false;
    }
};
#endif

template <typename Call>
QString write(const QString& path, Call call)
{
    const QString what = QStringLiteral("it could not be written: ");
    // Nothing is held up yet while somebody is waited for.
    const PipeReader reader(path);
    if (reader.isMissing())
        return what + QStringLiteral("nobody reads this pipe");
    const Uninterrupted writing;
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

} // namespace rvopen::tools
