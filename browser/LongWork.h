// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QObject>
#include <QString>
#include <QTimer>

#include <atomic>
#include <functional>
#include <memory>

namespace rvopen::browser {

/// Something that is done in another thread while all else goes on, with how far it is; it goes by
/// itself once it has ended.
class LongWork : public QObject {
    Q_OBJECT

public:
    /// What both threads know of it.
    struct State {
        std::atomic<bool> stop{false};
        std::atomic<int> done{0};
        std::atomic<int> count{0};
    };
    /// What is to be done in this thread once the other has ended; it answers with what the person
    /// is told, or nothing.
    using Ending = std::function<QString()>;
    /// What the other thread does; null where there is nothing to be done then. It may throw a
    /// Failure, which the person is told.
    using Work = std::function<Ending(State& state)>;

    explicit LongWork(QObject* parent);
    ~LongWork() override;

    void start(const Work& work);
    /// It ends as soon as it can.
    void stop();
    int count() const;
    int done() const;

Q_SIGNALS:
    void progressed();
    /// \p message is empty where there is nothing to be told.
    void finished(const QString& message);

private:
    std::shared_ptr<State> m_state;
    QTimer m_timer;
};

} // namespace rvopen::browser
