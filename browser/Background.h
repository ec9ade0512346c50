// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QCoreApplication>
#include <QMetaObject>
#include <QPointer>
#include <QRunnable>
#include <QThreadPool>

#include <memory>
#include <type_traits>
#include <utility>

namespace rvopen::browser {

/// Does \p work in another thread, and then calls \p done with what came of it in the thread of the
/// application, unless \p context has gone meanwhile. What \p work uses is its own.
template <typename Work, typename Done>
void inBackground(QObject* context, Work work, Done done)
{
    class Task : public QRunnable {
    public:
        Task(QObject* context, Work work, Done done)
            : m_context(context)
            , m_work(std::move(work))
            , m_done(std::move(done))
        {
        }

        void run() override
        {
            using Result = std::decay_t<std::invoke_result_t<Work&>>;
            const auto result = std::make_shared<Result>(m_work());
            QMetaObject::invokeMethod(
                QCoreApplication::instance(),
                [context = m_context, done = m_done, result]() mutable {
                    if (context)
                        done(*result);
                },
                Qt::QueuedConnection);
        }

    private:
        QPointer<QObject> m_context;
        Work m_work;
        Done m_done;
    };
    QThreadPool::globalInstance()->start(new Task(context, std::move(work), std::move(done)));
}

} // namespace rvopen::browser
