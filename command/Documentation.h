// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QPair>
#include <QString>
#include <QStringList>
#include <QVector>

namespace rvopen::command {

/// What the parser knows of an option or argument.
struct OptionDoc {
    QStringList names;
    /// Placeholder of the value; empty for a flag.
    QString value;
    QStringList choices;
    /// Values that completions offer, where others are as good.
    QStringList usual;
    QString variable;
    QString group;
    QString help;
    bool isPositional = false;
    bool isRequired = false;
    bool isRepeated = false;
};

struct CommandDoc {
    QString name;
    QString summary;
    QString description;
    /// Command line and effect.
    QVector<QPair<QString, QString>> examples;
    QVector<OptionDoc> arguments;
    QVector<OptionDoc> options;
    QVector<CommandDoc> commands;
};

/// Says that there is no such command, and which one was meant, if one is like it.
QString noCommand(const QString& name, const CommandDoc& program);

/// What is generated from the parser, so that it says what the parser takes.
/// @{
QString helpText(const CommandDoc& command);
QString manualPage(const CommandDoc& program);
QString bashCompletion(const CommandDoc& program);
QString zshCompletion(const CommandDoc& program);
QString fishCompletion(const CommandDoc& program);
/// @}

} // namespace rvopen::command
