// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>
#include <QStringList>

namespace CLI {
class App;
class Option;
} // namespace CLI

namespace rvopen::command {

/// Declares what a command takes.
///
/// Targets must live until the command line is parsed; an option that is not given leaves its
/// target alone. Texts are UTF-8.
class Arguments {
public:
    explicit Arguments(CLI::App& app);

    /// \name Positional
    /// @{
    void positional(const char* name, QString& target, const char* help, bool required = true,
                    const QStringList& usual = QStringList());
    void positional(const char* name, QStringList& target, const char* help, bool required = true);
    /// @}

    /// \name Options
    /// \p names as "-o,--output", \p value what help calls the value, as "FILE". The \p usual
    /// values are what completions offer; others are as good.
    /// @{
    void flag(const char* names, bool& target, const char* help);
    void option(const char* names, QString& target, const char* value, const char* help,
                const QStringList& usual = QStringList());
    void option(const char* names, QStringList& target, const char* value, const char* help,
                const QStringList& usual = QStringList());
    void option(const char* names, int& target, const char* value, const char* help);
    void option(const char* names, double& target, const char* value, const char* help);
    /// One of \p choices.
    void choice(const char* names, QString& target, const QStringList& choices, const char* help);
    /// A flag that may have a value, as "--backup=.old"; \p standard without.
    void flagOrValue(const char* names, QString& target, const char* standard, const char* help);
    /// An existing folder, also from the environment.
    void folder(const char* names, QString& target, const char* variable, const char* help);
    /// Left out of help, manual page and completions.
    void hidden(const char* names, QString& target);
    /// None of the options goes with another one.
    void onlyOne(const QStringList& names);
    /// @}

    /// \name Help
    /// @{
    void description(const char* text);
    /// A command line that does something sensible in the folder of the sample data.
    void example(const char* commandLine, const char* effect);
    /// @}

private:
    CLI::Option* describe(CLI::Option* option, const char* value,
                          const QStringList& usual = QStringList());

    CLI::App& m_app;
};

} // namespace rvopen::command
