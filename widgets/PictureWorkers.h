// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QByteArray>
#include <QThread>

#include <atomic>
#include <condition_variable>
#include <deque>
#include <functional>
#include <memory>
#include <mutex>
#include <utility>
#include <vector>

namespace rvopen::widgets {

/// Threads that do what was asked for last first.
class PictureWorkers {
public:
    /// Ends early once the flag is true.
    using Work = std::function<void(const std::atomic<bool>& stop)>;

    /// One less than there are processors, and at least one, of low priority.
    PictureWorkers();
    /// Stops all.
    ~PictureWorkers();
    PictureWorkers(const PictureWorkers&) = delete;
    PictureWorkers& operator=(const PictureWorkers&) = delete;

    /// What waits under the key is done next; false where nothing does.
    bool hurry(const QByteArray& key);
    /// In front of all that waits. Gives the keys of what waited too long, and is not done.
    std::vector<QByteArray> add(const QByteArray& key, Work work);
    /// Neither done, if it waits, nor, if it is being done, to its end.
    void stop(const QByteArray& key);

private:
    struct Job {
        Job(const QByteArray& wanted, Work toDo)
            : key(wanted)
            , work(std::move(toDo))
        {
        }

        QByteArray key;
        Work work;
        std::atomic<bool> stop{false};
    };

    void run();

    std::mutex m_mutex;
    std::condition_variable m_isWork;
    std::deque<std::shared_ptr<Job>> m_waiting; ///< The next one last.
    std::vector<std::shared_ptr<Job>> m_running;
    bool m_isEnd = false;
    std::vector<std::unique_ptr<QThread>> m_threads;
};

} // namespace rvopen::widgets
