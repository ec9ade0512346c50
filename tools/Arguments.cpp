// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "Arguments.h"

#include <CLI/CLI.hpp>

#include <string>
#include <vector>

namespace rvopen::tools {

namespace {

QString text(const std::string& value)
{
    return QString::fromStdString(value);
}

std::vector<std::string> strings(const QStringList& list)
{
    std::vector<std::string> result;
    for (const QString& item : list)
        result.push_back(item.toStdString());
    return result;
}

std::function<void(const std::string&)> into(QString& target)
{
    return [&target](const std::string& value) { target = text(value); };
}

std::function<void(const std::vector<std::string>&)> into(QStringList& target)
{
    return [&target](const std::vector<std::string>& values) {
        for (const std::string& value : values)
            target << text(value);
    };
}

/// Without a name, which would stand in the help.
CLI::Validator isNotNegative()
{
    return CLI::Validator(CLI::NonNegativeNumber).name(std::string());
}

} // namespace

Arguments::Arguments(CLI::App& app)
    : m_app(app)
{
}

CLI::Option* Arguments::describe(CLI::Option* option, const char* value)
{
    return option->type_name(value);
}

void Arguments::positional(const char* name, QString& target, const char* help, bool required)
{
    m_app.add_option_function<std::string>(name, into(target), help)
        ->type_name("")
        ->required(required);
}

void Arguments::positional(const char* name, QStringList& target, const char* help, bool required)
{
    m_app.add_option_function<std::vector<std::string>>(name, into(target), help)
        ->type_name("")
        ->required(required);
}

void Arguments::flag(const char* names, bool& target, const char* help)
{
    m_app.add_flag(names, target, help);
}

void Arguments::option(const char* names, QString& target, const char* value, const char* help)
{
    describe(m_app.add_option_function<std::string>(names, into(target), help), value);
}

void Arguments::option(const char* names, QStringList& target, const char* value, const char* help)
{
    describe(m_app.add_option_function<std::vector<std::string>>(names, into(target), help), value)
        ->allow_extra_args(false)
        ->multi_option_policy(CLI::MultiOptionPolicy::TakeAll);
}

void Arguments::option(const char* names, int& target, const char* value, const char* help)
{
    describe(m_app.add_option(names, target, help), value)->check(isNotNegative());
}

void Arguments::option(const char* names, double& target, const char* value, const char* help)
{
    describe(m_app.add_option(names, target, help), value)->check(isNotNegative());
}

void Arguments::choice(const char* names, QString& target, const QStringList& choices,
                       const char* help)
{
    m_app.add_option_function<std::string>(names, into(target), help)
        ->type_name(choices.join(QLatin1Char('|')).toStdString())
        ->check(CLI::IsMember(strings(choices)).name(std::string()));
}

void Arguments::folder(const char* names, QString& target, const char* variable, const char* help)
{
    describe(m_app.add_option_function<std::string>(names, into(target), help), "DIR")
        ->envname(variable)
        ->check(CLI::Validator(CLI::ExistingDirectory).name(std::string()))
        ->group("Folders of the host");
}

void Arguments::hidden(const char* names, QString& target)
{
    m_app.add_option_function<std::string>(names, into(target))->group("");
}

void Arguments::onlyOne(const QStringList& names)
{
    for (const QString& name : names) {
        for (const QString& other : names) {
            if (name != other)
                m_app.get_option(name.toStdString())
                    ->excludes(m_app.get_option(other.toStdString()));
        }
    }
}

void Arguments::description(const char* text)
{
    m_app.description(m_app.get_description() + "\n\n" + text);
}

void Arguments::example(const char* commandLine, const char* effect)
{
    std::string footer = m_app.get_footer();
    footer += std::string("  ") + commandLine + "\n      " + effect + "\n";
    m_app.footer(footer);
}

} // namespace rvopen::tools
