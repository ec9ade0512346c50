// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "MessageLine.h"

#include <QAccessible>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QStyle>
#include <QToolButton>

#include <algorithm>

namespace rvopen::browser {

MessageLine::MessageLine(QWidget* parent)
    : QWidget(parent)
    , m_label(new QLabel)
    , m_buttons(new QHBoxLayout)
{
    setObjectName(QStringLiteral("messageLine"));
    setAccessibleName(tr("Messages"));
    setAutoFillBackground(true);
    setBackgroundRole(QPalette::ToolTipBase);
    setForegroundRole(QPalette::ToolTipText);
    m_label->setWordWrap(true);
    m_label->setForegroundRole(QPalette::ToolTipText);
    m_label->setTextFormat(Qt::PlainText);
    m_label->setTextInteractionFlags(Qt::TextSelectableByMouse);
    auto* const close = new QToolButton;
    close->setIcon(style()->standardIcon(QStyle::SP_TitleBarCloseButton));
    close->setToolTip(tr("Close this message"));
    close->setAccessibleName(tr("Close this message"));
    close->setAutoRaise(true);
    close->setFocusPolicy(Qt::StrongFocus);
    auto* const layout = new QHBoxLayout(this);
    layout->addWidget(m_label, 1);
    layout->addLayout(m_buttons);
    layout->addWidget(close);
    connect(close, &QToolButton::clicked, this, &MessageLine::next);
    hide();
}

void MessageLine::say(const QString& text)
{
    // What is to be answered stays until it is; what was only said makes room.
    const bool isAsking = !m_waiting.isEmpty() && !m_waiting.first().answers.isEmpty();
    if (isAsking) {
        m_waiting.append({QString(), text, {}});
        return;
    }
    m_waiting = {{QString(), text, {}}};
    show(m_waiting.first());
}

void MessageLine::ask(const QString& key, const QString& text, const QVector<Answer>& answers)
{
    withdraw(key);
    m_waiting.erase(
        std::remove_if(m_waiting.begin(), m_waiting.end(),
                       [](const Message& message) { return message.answers.isEmpty(); }),
        m_waiting.end());
    m_waiting.append({key, text, answers});
    show(m_waiting.first());
}

void MessageLine::withdraw(const QString& key)
{
    if (m_waiting.isEmpty())
        return;
    const auto isAbout = [&key](const Message& message) {
        return !message.key.isEmpty() && message.key == key;
    };
    if (isAbout(m_waiting.first()))
        next();
    m_waiting.erase(std::remove_if(m_waiting.begin(), m_waiting.end(), isAbout), m_waiting.end());
}

QString MessageLine::text() const
{
    return isHidden() ? QString() : m_label->text();
}

void MessageLine::show(const Message& message)
{
    while (QLayoutItem* const item = m_buttons->takeAt(0)) {
        item->widget()->deleteLater();
        delete item;
    }
    m_label->setText(message.text);
    for (const Answer& answer : message.answers) {
        auto* const button = new QPushButton(answer.text);
        m_buttons->addWidget(button);
        connect(button, &QPushButton::clicked, this, [this, act = answer.act] {
            next();
            act();
        });
    }
    QWidget::show();
    // Those who hear instead of see are told as well.
    QAccessibleEvent event(this, QAccessible::Alert);
    QAccessible::updateAccessibility(&event);
}

void MessageLine::next()
{
    if (!m_waiting.isEmpty())
        m_waiting.removeFirst();
    if (m_waiting.isEmpty())
        hide();
    else
        show(m_waiting.first());
}

} // namespace rvopen::browser
