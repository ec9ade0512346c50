// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "PictureWorkers.h"

#include <algorithm>
#include <utility>

namespace rvopen::widgets {

namespace {

/// More than windows show at once.
constexpr std::size_t s_mostWaiting = 512;

template <typename Jobs>
auto find(Jobs& jobs, const QByteArray& key)
{
    return std::find_if(jobs.begin(), jobs.end(),
                        [&key](const auto& job) { return job->key == key; });
}

} // namespace

PictureWorkers::PictureWorkers()
{
    const int threads = std::max(QThread::idealThreadCount() - 1, 1);
    for (int i = 0; i < threads; ++i) {
        m_threads.emplace_back(QThread::create([this] { run(); }));
        m_threads.back()->start(QThread::LowPriority);
    }
}

PictureWorkers::~PictureWorkers()
{
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        m_isEnd = true;
        for (const auto& job : m_running)
            job->stop = true;
    }
    m_isWork.notify_all();
    for (const auto& thread : m_threads)
        thread->wait();
}

bool PictureWorkers::hurry(const QByteArray& key)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    const auto job = find(m_waiting, key);
    if (job == m_waiting.end())
        return false;
    std::rotate(job, job + 1, m_waiting.end());
    return true;
}

std::vector<QByteArray> PictureWorkers::add(const QByteArray& key, Work work)
{
    std::vector<QByteArray> dropped;
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        m_waiting.push_back(std::make_shared<Job>(key, std::move(work)));
        while (m_waiting.size() > s_mostWaiting) {
            dropped.push_back(m_waiting.front()->key);
            m_waiting.pop_front();
        }
    }
    m_isWork.notify_one();
    return dropped;
}

void PictureWorkers::stop(const QByteArray& key)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    const auto waiting = find(m_waiting, key);
    if (waiting != m_waiting.end())
        m_waiting.erase(waiting);
    for (const auto& job : m_running) {
        if (job->key == key)
            job->stop = true;
    }
}

void PictureWorkers::run()
{
    std::unique_lock<std::mutex> lock(m_mutex);
    while (true) {
        m_isWork.wait(lock, [this] { return m_isEnd || !m_waiting.empty(); });
        if (m_isEnd)
            return;
        const auto job = m_waiting.back();
        m_waiting.pop_back();
        m_running.push_back(job);
        lock.unlock();
        job->work(job->stop);
        lock.lock();
        m_running.erase(std::find(m_running.begin(), m_running.end(), job));
    }
}

} // namespace rvopen::widgets
