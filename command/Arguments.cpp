// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "Arguments.h"

#include "CommandLine.h"
#include "Documentation.h"
#include "toolkit/documents/Utf8.h"
#include "toolkit/edit/Likeness.h"

#include <rvopen/toolkit/schema/ValueCheck.h>

#include <CLI/CLI.hpp>
#include <memory>
#include <sstream>
#include <string>
#include <vector>

namespace rvopen::command {

using namespace toolkit;

namespace {

QString text(const std::string& value)
{
    return fromUtf8(value);
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

/// What checks a value and answers what is wrong with it. Without a name, which would stand in the
/// help.
CLI::Validator validator(const std::function<QString(const QString&)>& problemOf)
{
    return CLI::Validator(
        [problemOf](std::string& value) { return problemOf(text(value)).toStdString(); },
        std::string());
}

CLI::Validator isNotNegative(ValueType type)
{
    return validator([type](const QString& value) {
        const QString problem = FaultMessage(ParamInfo(), CheckText(type, value));
        return problem.isEmpty() && value.toDouble() < 0
                   ? QStringLiteral("\"%1\" is below 0").arg(value)
                   : problem;
    });
}

CLI::Validator isOneOf(const QStringList& choices)
{
    return validator([choices](const QString& value) {
        return choices.contains(value) ? QString()
                                       : QStringLiteral("\"%1\" is none of %2%3")
                                             .arg(value, choices.join(QStringLiteral(", ")),
                                                  didYouMean(likeliest(value, choices)));
    });
}

OptionDoc docOf(const CLI::Option& option)
{
    OptionDoc doc;
    doc.isPositional = option.get_positional();
    doc.isRequired = option.get_required();
    doc.isRepeated = option.get_expected_max() > 1;
    doc.help = text(option.get_description());
    doc.group = text(option.get_group());
    doc.variable = text(option.get_envname());
    for (const std::string& name : option.get_snames())
        doc.names << QLatin1Char('-') + text(name);
    for (const std::string& name : option.get_lnames())
        doc.names << QLatin1String("--") + text(name);
    if (doc.isPositional)
        doc.value = text(option.get_name()).toUpper();
    else if (option.get_type_size_max() > 0)
        // Behind the colon the parser names what checks the value.
        doc.value = text(option.get_type_name()).section(QLatin1Char(':'), 0, 0);
    if (doc.value.contains(QLatin1Char('|')))
        doc.choices = doc.value.split(QLatin1Char('|'));
    doc.usual = text(option.get_default_str()).split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    return doc;
}

CommandDoc docOf(const CLI::App& app)
{
    CommandDoc doc;
    doc.name = text(app.get_name());
    const QString description = text(app.get_description());
    doc.summary = description.section(QStringLiteral("\n\n"), 0, 0);
    doc.description = description.section(QStringLiteral("\n\n"), 1);
    const QStringList lines = text(app.get_footer()).split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    for (int i = 0; i + 1 < int(lines.size()); i += 2)
        doc.examples.append({lines[i].trimmed(), lines[i + 1].trimmed()});
    for (const CLI::Option* option : app.get_options()) {
        if (option->get_group().empty())
            continue;
        const OptionDoc optionDoc = docOf(*option);
        (optionDoc.isPositional ? doc.arguments : doc.options).append(optionDoc);
    }
    for (const CLI::App* sub : app.get_subcommands([](const CLI::App*) { return true; }))
        doc.commands.append(docOf(*sub));
    return doc;
}

QStringList optionsOf(const CommandDoc& command)
{
    QStringList names;
    for (const OptionDoc& option : command.options)
        names << option.names;
    return names;
}

/// Why the command line cannot be taken. What is not known comes first: what is missing then may be
/// what it was meant for.
QString complaintOf(const CLI::App& program, const CLI::ParseError& error)
{
    const std::vector<CLI::App*> parsed = program.get_subcommands();
    const QString command = parsed.empty() ? QString() : text(parsed.front()->get_name());
    QString problem = QString::fromLocal8Bit(error.what());
    const std::vector<std::string> unknown = program.remaining();
    if (!unknown.empty()) {
        const QString word = text(unknown.front());
        const CommandDoc doc = docOf(program);
        QStringList known;
        if (word.startsWith(QLatin1Char('-'))) {
            const QString option = word.section(QLatin1Char('='), 0, 0);
            known = optionsOf(doc);
            if (!parsed.empty())
                known = optionsOf(docOf(*parsed.front())) + known;
            problem = (command.isEmpty()
                           ? QStringLiteral("there is no option \"%1\"").arg(option)
                           : QStringLiteral("%1 has no option \"%2\"").arg(command, option)) +
                      didYouMean(likeliest(option, known));
        } else if (parsed.empty()) {
            problem = noCommand(word, doc);
        } else {
            problem = QStringLiteral("%1 takes no further argument \"%2\"").arg(command, word);
        }
    }
    if (problem.endsWith(QLatin1Char('?')))
        return problem;
    return problem + QStringLiteral("; \"rvopen %1--help\" tells what there is")
                         .arg(command.isEmpty() ? QString() : command + QLatin1Char(' '));
}

class HelpFormatter : public CLI::FormatterBase {
public:
    std::string make_help(const CLI::App* app, std::string, CLI::AppFormatMode) const override
    {
        return helpText(docOf(*app)).toStdString();
    }
};

} // namespace

Arguments::Arguments(CLI::App& app)
    : m_app(app)
{
}

CLI::Option* Arguments::describe(CLI::Option* option, const char* value, const QStringList& usual)
{
    // What the parser calls the default is only a text to it, and has no other use here.
    return option->type_name(value)->default_str(usual.join(QLatin1Char('\n')).toStdString());
}

void Arguments::positional(const char* name, QString& target, const char* help, bool required,
                           const QStringList& usual)
{
    describe(m_app.add_option_function<std::string>(name, into(target), help), "", usual)
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

void Arguments::option(const char* names, QString& target, const char* value, const char* help,
                       const QStringList& usual)
{
    describe(m_app.add_option_function<std::string>(names, into(target), help), value, usual);
}

void Arguments::option(const char* names, QStringList& target, const char* value, const char* help,
                       const QStringList& usual)
{
    describe(m_app.add_option_function<std::vector<std::string>>(names, into(target), help), value,
             usual)
        ->allow_extra_args(false)
        ->multi_option_policy(CLI::MultiOptionPolicy::TakeAll);
}

void Arguments::option(const char* names, int& target, const char* value, const char* help)
{
    describe(m_app.add_option(names, target, help), value)
        ->check(isNotNegative(ValueType::Integer));
}

void Arguments::option(const char* names, double& target, const char* value, const char* help)
{
    describe(m_app.add_option(names, target, help), value)->check(isNotNegative(ValueType::Float));
}

void Arguments::choice(const char* names, QString& target, const QStringList& choices,
                       const char* help)
{
    m_app.add_option_function<std::string>(names, into(target), help)
        ->type_name(choices.join(QLatin1Char('|')).toStdString())
        ->check(isOneOf(choices));
}

void Arguments::flagOrValue(const char* names, QString& target, const char* standard,
                            const char* help)
{
    // The parser keeps a reference, and the option keeps what it refers to.
    const auto value = std::make_shared<std::string>();
    m_app.add_flag(std::string(names) + '{' + standard + '}', *value, help)
        ->each([value, &target](const std::string& given) { target = text(given); });
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

CommandLine::CommandLine(const char* name, const char* description, const char* version)
    : m_app(std::make_unique<CLI::App>())
{
    m_app->name(name);
    m_app->description(description);
    m_app->formatter(std::make_shared<HelpFormatter>());
    m_app->set_help_flag("-h,--help", "Print this help");
    m_app->set_version_flag("-V,-v,--version", version, "Print the version");
    m_app->require_subcommand(0, 1);
}

CommandLine::~CommandLine() = default;

Arguments CommandLine::global()
{
    return Arguments(*m_app);
}

Arguments CommandLine::command(const char* name, const char* summary)
{
    CLI::App* const sub = m_app->add_subcommand(name, summary);
    sub->footer(std::string());
    sub->fallthrough();
    return Arguments(*sub);
}

ParsedLine CommandLine::parse(int argc, char** argv)
{
    ParsedLine line;
    try {
        m_app->parse(argc, argv);
    } catch (const CLI::ParseError& error) {
        if (error.get_exit_code() != 0) {
            line.problem = complaintOf(*m_app, error);
        } else {
            std::ostringstream stream;
            m_app->exit(error, stream, stream);
            line.answer = text(stream.str());
        }
        return line;
    }
    for (const CLI::App* const sub : m_app->get_subcommands())
        line.command = text(sub->get_name());
    return line;
}

CommandDoc CommandLine::documentation() const
{
    return docOf(*m_app);
}

} // namespace rvopen::command
