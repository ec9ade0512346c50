// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "Interrupts.h"

#include "Command.h"
#include "toolkit/documents/Interruption.h"

#include <array>
#include <atomic>
#include <csignal>
#include <cstdlib>
#include <cstring>

#if defined(__unix__) || defined(__APPLE__)
#include <unistd.h>
#endif

namespace rvopen::command {

using namespace toolkit;

namespace {

std::atomic<int> s_depth{0};
std::atomic<bool> s_interrupted{false};
/// A handler of signals may read no string that the program is changing.
std::array<char, 4096> s_litter{};

[[noreturn]] void endNow()
{
    std::_Exit(ExitFailed);
}

void onSignal(int)
{
    s_interrupted = true;
    if (s_depth == 0) {
#if defined(__unix__) || defined(__APPLE__)
        if (s_litter[0])
            unlink(s_litter.data());
        const char message[] = "\nrvopen: interrupted\n";
        const auto written = write(STDERR_FILENO, message, sizeof message - 1);
        static_cast<void>(written);
#endif
        endNow();
    }
}

/// By what signals tell.
class Signals : public toolkit::Interruption {
public:
    void hold() override
    {
        ++s_depth;
    }

    void release() override
    {
        if (--s_depth == 0 && s_interrupted)
            onSignal(0);
    }

    bool isWanted() const override
    {
        return s_interrupted;
    }

    void removeAtEnd(const QByteArray& path) override
    {
        const toolkit::Uninterrupted changing;
        s_litter[0] = '\0';
        if (std::size_t(path.size()) < s_litter.size())
            std::memcpy(s_litter.data(), path.constData(), std::size_t(path.size()) + 1);
    }
};

/// What the caller wants to be ignored stays so, as the hang-up under nohup.
void handle(int signal)
{
    if (std::signal(signal, onSignal) == SIG_IGN)
        std::signal(signal, SIG_IGN);
}

} // namespace

void handleInterrupts()
{
    static Signals interruption;
    toolkit::Interruption::use(&interruption);
    handle(SIGINT);
    handle(SIGTERM);
#if defined(SIGHUP)
    handle(SIGHUP);
#endif
#if defined(SIGXFSZ)
    // A file that grows beyond the limit is an error of writing like others.
    std::signal(SIGXFSZ, SIG_IGN);
#endif
}

} // namespace rvopen::command
