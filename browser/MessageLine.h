// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>
#include <QVector>
#include <QWidget>

#include <functional>

QT_BEGIN_NAMESPACE
class QLabel;
class QHBoxLayout;
QT_END_NAMESPACE

namespace rvopen::browser {

/// A line in the window that says something, or asks, while all else goes on. What comes while it
/// asks waits for the answer.
class MessageLine : public QWidget {
    Q_OBJECT

public:
    struct Answer {
        QString text;
        std::function<void()> act;
    };

    explicit MessageLine(QWidget* parent = nullptr);

    /// Something to know; goes when it is closed, or something else comes.
    void say(const QString& text);
    /// Something to decide; \p key is what it is about: asked again, it is asked once.
    void ask(const QString& key, const QString& text, const QVector<Answer>& answers);
    /// What was asked about that needs no answer any more.
    void withdraw(const QString& key);
    QString text() const;

private:
    struct Message {
        QString key;
        QString text;
        QVector<Answer> answers;
    };

    void show(const Message& message);
    void next();

    QLabel* m_label;
    QHBoxLayout* m_buttons;
    QVector<Message> m_waiting;
};

} // namespace rvopen::browser
