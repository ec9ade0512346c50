// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "LongWork.h"

#include "Background.h"

#include <rvopen/toolkit/documents/Failure.h>

namespace rvopen::browser {

namespace {

constexpr int s_progressInterval = 100;

} // namespace

LongWork::LongWork(QObject* parent)
    : QObject(parent)
    , m_state(std::make_shared<State>())
{
    m_timer.setInterval(s_progressInterval);
    connect(&m_timer, &QTimer::timeout, this, &LongWork::progressed);
}

LongWork::~LongWork()
{
    stop();
}

void LongWork::start(const Work& work)
{
    m_timer.start();
    inBackground(
        this,
        [work, state = m_state]() -> Ending {
            try {
                return work(*state);
            } catch (const toolkit::Failure& failure) {
                return [message = failure.Message()] { return message; };
            }
        },
        [this](const Ending& ending) {
            m_timer.stop();
            deleteLater();
            Q_EMIT finished(ending ? ending() : QString());
        });
}

void LongWork::stop()
{
    m_state->stop = true;
}

int LongWork::count() const
{
    return m_state->count;
}

int LongWork::done() const
{
    return m_state->done;
}

} // namespace rvopen::browser
