// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "Documentation.h"

#include "toolkit/edit/Likeness.h"

#include <rvopen/RVOpenVersion.h>

#include <QRegularExpression>

#include <algorithm>

namespace rvopen::command {

namespace {

QString argumentText(const OptionDoc& argument)
{
    const QString name = argument.value + QLatin1String(argument.isRepeated ? "..." : "");
    return argument.isRequired ? name : QLatin1Char('[') + name + QLatin1Char(']');
}

QString synopsis(const CommandDoc& command)
{
    QString line = QStringLiteral("[options]");
    for (const OptionDoc& argument : command.arguments)
        line += QLatin1Char(' ') + argumentText(argument);
    if (!command.commands.isEmpty())
        line += QLatin1String(" COMMAND ...");
    return line;
}

QStringList wrapped(const QString& paragraph, int width)
{
    QStringList lines;
    QString line;
    for (const QString& word : paragraph.split(QLatin1Char(' '))) {
        if (!line.isEmpty() && line.size() + 1 + word.size() > width) {
            lines << line;
            line.clear();
        }
        line += (line.isEmpty() ? QString() : QStringLiteral(" ")) + word;
    }
    return lines << line;
}

const int s_width = 80;
const int s_column = 26;

QString entry(const QString& term, const QString& explanation)
{
    QString result = QLatin1String("  ") + term;
    const QStringList lines = wrapped(explanation, s_width - s_column);
    const bool isLong = result.size() + 2 > s_column;
    if (isLong)
        result += QLatin1Char('\n');
    for (int i = 0; i < int(lines.size()); ++i) {
        const bool isBehind = i == 0 && !isLong;
        result += isBehind ? QString(s_column - int(result.size()), QLatin1Char(' '))
                           : QString(s_column, QLatin1Char(' '));
        result += lines[i] + QLatin1Char('\n');
    }
    return result;
}

QString withVariable(const OptionDoc& option)
{
    return option.variable.isEmpty() ? option.help
                                     : option.help + QStringLiteral(" ($%1)").arg(option.variable);
}

QString optionText(const OptionDoc& option)
{
    QString result = option.names.join(QStringLiteral(", "));
    if (!option.value.isEmpty())
        result += QLatin1Char(' ') + option.value;
    return result;
}

QStringList groupsOf(const CommandDoc& command)
{
    QStringList groups;
    for (const OptionDoc& option : command.options) {
        if (!groups.contains(option.group))
            groups << option.group;
    }
    return groups;
}

/// For troff: backslashes, hyphens and dots at the start of a line are its own.
QString troff(QString text)
{
    text.replace(QLatin1Char('\\'), QLatin1String("\\e"));
    text.replace(QLatin1Char('-'), QLatin1String("\\-"));
    static const QRegularExpression lineStart(QStringLiteral("^(?=[.'])"),
                                              QRegularExpression::MultilineOption);
    return text.replace(lineStart, QStringLiteral("\\&"));
}

QString troffOptions(const QVector<OptionDoc>& options)
{
    QString result;
    for (const OptionDoc& option : options) {
        result += QLatin1String(".TP\n");
        if (option.isPositional) {
            result += QStringLiteral("\\fI%1\\fR\n").arg(troff(option.value));
        } else {
            QStringList names;
            for (const QString& name : option.names)
                names << QStringLiteral("\\fB%1\\fR").arg(troff(name));
            result += names.join(QStringLiteral(", "));
            if (!option.value.isEmpty())
                result += QStringLiteral(" \\fI%1\\fR").arg(troff(option.value));
            result += QLatin1Char('\n');
        }
        result += troff(withVariable(option)) + QLatin1Char('\n');
    }
    return result;
}

QString troffExamples(const CommandDoc& command)
{
    QString result;
    for (const auto& example : command.examples) {
        result +=
            QStringLiteral(".TP\n.B %1\n%2\n").arg(troff(example.first), troff(example.second));
    }
    return result;
}

QString troffVariables(const QVector<OptionDoc>& options)
{
    QString result;
    for (const OptionDoc& option : options) {
        if (!option.variable.isEmpty())
            result +=
                QStringLiteral(".TP\n.B %1\n%2. \\fB%3\\fR goes before it.\n")
                    .arg(troff(option.variable), troff(option.help), troff(option.names.last()));
    }
    return result +
           QLatin1String(".TP\n.B RVOPEN_CATALOGUE\nWith off, no index of presets is read or "
                         "written.\n"
                         ".TP\n.B NO_COLOR\nWhere it is not empty, nothing is coloured "
                         "unless \\-\\-color asks for it.\n");
}

QString shellQuoted(QString text)
{
    return QLatin1Char('\'') + text.replace(QLatin1Char('\''), QLatin1String("'\\''")) +
           QLatin1Char('\'');
}

QStringList namesOf(const QVector<OptionDoc>& options)
{
    QStringList names;
    for (const OptionDoc& option : options)
        names << option.names;
    return names;
}

/// What completions offer as values; empty where they know none.
QStringList valuesOf(const OptionDoc& option)
{
    return option.choices.isEmpty() ? option.usual : option.choices;
}

/// The same for the arguments of a command, of which the first says it all.
QStringList operandsOf(const CommandDoc& command)
{
    return command.arguments.isEmpty() ? QStringList() : valuesOf(command.arguments.first());
}

/// A list of words in zsh and fish: blanks in one of them have a backslash.
QString wordsOf(QStringList values)
{
    return values.replaceInStrings(QStringLiteral(" "), QStringLiteral("\\ "))
        .join(QLatin1Char(' '));
}

/// Branches of a bash case that complete the values of options.
QString bashValues(const QVector<OptionDoc>& options)
{
    QString result;
    for (const OptionDoc& option : options) {
        if (option.value.isEmpty())
            continue;
        QString action = QStringLiteral("return");
        if (!valuesOf(option).isEmpty())
            action = QStringLiteral("local IFS=$'\\n'; "
                                    "COMPREPLY=($(compgen -W $'%1' -- \"$current\")); return")
                         .arg(valuesOf(option).join(QStringLiteral("\\n")));
        else if (option.value == QLatin1String("DIR"))
            action = QStringLiteral("COMPREPLY=($(compgen -d -- \"$current\")); return");
        else if (option.value == QLatin1String("FILE"))
            action = QStringLiteral("COMPREPLY=($(compgen -f -- \"$current\")); return");
        result +=
            QStringLiteral("    %1) %2 ;;\n").arg(option.names.join(QStringLiteral(" | ")), action);
    }
    return result;
}

QString zshEscaped(QString text)
{
    for (const char c : {'\\', '[', ']', ':'})
        text.replace(QLatin1Char(c), QLatin1Char('\\') + QString(QLatin1Char(c)));
    return text;
}

QStringList zshOptions(const QVector<OptionDoc>& options)
{
    QStringList specs;
    for (const OptionDoc& option : options) {
        QString value;
        if (!valuesOf(option).isEmpty())
            value = QStringLiteral(":value:(%1)").arg(wordsOf(valuesOf(option)));
        else if (option.value == QLatin1String("DIR"))
            value = QStringLiteral(":folder:_files -/");
        else if (option.value == QLatin1String("FILE"))
            value = QStringLiteral(":file:_files");
        else if (!option.value.isEmpty())
            value = QStringLiteral(":%1: ").arg(option.value.toLower());
        for (const QString& name : option.names)
            specs << shellQuoted(
                QStringLiteral("%1[%2]%3").arg(name, zshEscaped(option.help), value));
    }
    return specs;
}

QString fishOptions(const QVector<OptionDoc>& options, const QString& condition)
{
    QString result;
    for (const OptionDoc& option : options) {
        result += QStringLiteral("complete -c rvopen") + condition;
        for (const QString& name : option.names)
            result += name.startsWith(QLatin1String("--")) ? QStringLiteral(" -l ") + name.mid(2)
                                                           : QStringLiteral(" -s ") + name.mid(1);
        if (!valuesOf(option).isEmpty())
            result += QStringLiteral(" -x -a ") + shellQuoted(wordsOf(valuesOf(option)));
        else if (option.value == QLatin1String("DIR"))
            result += QStringLiteral(" -x -a '(__fish_complete_directories)'");
        else if (option.value == QLatin1String("FILE"))
            result += QStringLiteral(" -r");
        else if (!option.value.isEmpty())
            result += QStringLiteral(" -x");
        result += QStringLiteral(" -d ") + shellQuoted(option.help) + QLatin1Char('\n');
    }
    return result;
}

const char s_generatedNote[] =
    "# SPDX-FileCopyrightText: 2026 The rvopen authors\n# SPDX-License-Identifier: MIT\n";

} // namespace

QString noCommand(const QString& name, const CommandDoc& program)
{
    QStringList known;
    for (const CommandDoc& command : program.commands)
        known << command.name;
    return QStringLiteral("there is no command \"%1\"").arg(name) +
           toolkit::didYouMean(toolkit::likeliest(name, known));
}

QString helpText(const CommandDoc& command)
{
    const bool isWhole = !command.commands.isEmpty();
    QString help =
        QStringLiteral("Usage: rvopen %1%2\n\n")
            .arg(isWhole ? QString() : command.name + QLatin1Char(' '), synopsis(command));
    help += wrapped(command.summary + (isWhole ? QString() : QStringLiteral(".")), s_width)
                .join(QLatin1Char('\n')) +
            QLatin1String("\n\n");
    if (!command.description.isEmpty())
        help +=
            wrapped(command.description, s_width).join(QLatin1Char('\n')) + QLatin1String("\n\n");
    if (isWhole) {
        help += QLatin1String("Commands:\n");
        for (const CommandDoc& sub : command.commands)
            help += entry(sub.name, sub.summary);
        help += QLatin1Char('\n');
    }
    if (!command.arguments.isEmpty()) {
        help += QLatin1String("Arguments:\n");
        for (const OptionDoc& argument : command.arguments)
            help += entry(argument.value, argument.help);
        help += QLatin1Char('\n');
    }
    for (const QString& group : groupsOf(command)) {
        help += group + QLatin1String(":\n");
        for (const OptionDoc& option : command.options) {
            if (option.group == group)
                help += entry(optionText(option), withVariable(option));
        }
        help += QLatin1Char('\n');
    }
    help += QLatin1String("Examples:\n");
    for (const auto& example : command.examples)
        help += QLatin1String("  ") + example.first + QLatin1String("\n      ") + example.second +
                QLatin1Char('\n');
    if (isWhole)
        help +=
            QLatin1String("\n\"rvopen COMMAND --help\" tells about a command. The options above go "
                          "with every\ncommand.\n");
    else
        help +=
            QLatin1String("\n\"rvopen --help\" tells of the options that go with every command.\n");
    return help;
}

QString manualPage(const CommandDoc& program)
{
    QString page = QStringLiteral(".TH RVOPEN 1 \"\" \"rvopen %1\" \"User commands\"\n"
                                  ".SH NAME\nrvopen \\- look into, check, change and compare "
                                  "snapshot documents and preset archives\n"
                                  ".SH SYNOPSIS\n.B rvopen\n[options] COMMAND ...\n"
                                  ".SH DESCRIPTION\n%2\n.SH OPTIONS\n")
                       .arg(QLatin1String(RVOPEN_VERSION_STRING), troff(program.summary));
    page += troffOptions(program.options);
    page += QLatin1String(".SH COMMANDS\n");
    for (const CommandDoc& command : program.commands) {
        page += QStringLiteral(".SS \"rvopen %1 %2\"\n%3.\n.PP\n%4\n")
                    .arg(command.name, troff(synopsis(command)), troff(command.summary),
                         troff(command.description));
        page += troffOptions(command.arguments) + troffOptions(command.options) +
                troffExamples(command);
    }
    page += QLatin1String(".SH EXIT STATUS\n.TP\n.B 0\nFine.\n.TP\n.B 1\nFindings or "
                          "differences.\n.TP\n.B 2\nIt could not be done; standard error says "
                          "why, as file:line:column: message.\n.SH ENVIRONMENT\n");
    page += troffVariables(program.options) + QLatin1String(".SH EXAMPLES\n");
    page += troffExamples(program);
    return page +
           QLatin1String(".SH FILES\nBelow the prefix, in\n.IR share/rvopen :\n.TP\n"
                         ".BR install \", \" archives \", \" snapshots\nWhat there is to start "
                         "from. The examples run in a copy of these folders.\n.TP\n.B schemas\n"
                         "JSON schemas of what \\-\\-json prints.\n.TP\n.B formats\n"
                         "RELAX NG schemas of the documents.\n"
                         ".SH SEE ALSO\nThe guide, the cookbook and the formats, in\n"
                         ".I share/doc/rvopen-doc\nof the documentation's package.\n");
}

QString bashCompletion(const CommandDoc& program)
{
    const QString globals = namesOf(program.options).join(QLatin1Char(' '));
    QStringList names;
    QString cases;
    QString values = bashValues(program.options);
    for (const CommandDoc& command : program.commands) {
        names << command.name;
        cases += QStringLiteral("    %1) options='%2' operands='%3' ;;\n")
                     .arg(command.name, namesOf(command.options).join(QLatin1Char(' ')),
                          operandsOf(command).join(QLatin1Char(' ')));
    }
    for (const CommandDoc& command : program.commands)
        values += bashValues(command.options);
    QStringList once = values.split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    once.removeDuplicates();
    return QLatin1String(s_generatedNote) +
           QStringLiteral("_rvopen()\n{\n"
                          "    local current=${COMP_WORDS[COMP_CWORD]} "
                          "previous=${COMP_WORDS[COMP_CWORD-1]}\n"
                          "    local command= options= operands= word\n"
                          "    for word in \"${COMP_WORDS[@]:1:COMP_CWORD-1}\"; do\n"
                          "        case $word in\n"
                          "        %1) command=$word; break ;;\n"
                          "        esac\n"
                          "    done\n"
                          "    case $previous in\n%2\n    esac\n"
                          "    case $command in\n%3    esac\n"
                          "    if [[ $current == -* ]]; then\n"
                          "        COMPREPLY=($(compgen -W \"$options %4\" -- \"$current\"))\n"
                          "    elif [[ -z $command ]]; then\n"
                          "        COMPREPLY=($(compgen -W '%5' -- \"$current\"))\n"
                          "    elif [[ -n $operands ]]; then\n"
                          "        COMPREPLY=($(compgen -W \"$operands\" -- \"$current\"))\n"
                          "    else\n"
                          "        COMPREPLY=($(compgen -f -- \"$current\"))\n"
                          "    fi\n}\n"
                          "complete -o filenames -F _rvopen rvopen\n")
               .arg(names.join(QStringLiteral(" | ")), once.join(QLatin1Char('\n')), cases, globals,
                    names.join(QLatin1Char(' ')));
}

QString zshCompletion(const CommandDoc& program)
{
    QStringList commands;
    QString cases;
    for (const CommandDoc& command : program.commands) {
        commands << shellQuoted(command.name + QLatin1Char(':') + command.summary);
        const QStringList operands = operandsOf(command);
        const QString rest =
            operands.isEmpty()
                ? QStringLiteral("'*:file:_files'")
                : QStringLiteral("'1:value:(%1)'").arg(operands.join(QLatin1Char(' ')));
        cases += QStringLiteral("    %1) _arguments $globals %2 %3 ;;\n")
                     .arg(command.name, zshOptions(command.options).join(QLatin1Char(' ')), rest);
    }
    return QLatin1String("#compdef rvopen\n") + QLatin1String(s_generatedNote) +
           QStringLiteral("_rvopen()\n{\n"
                          "    local -a commands globals\n"
                          "    local context state state_descr line\n"
                          "    typeset -A opt_args\n"
                          "    commands=(%1)\n"
                          "    globals=(%2)\n"
                          "    _arguments -C $globals '1: :->command' '*:: :->rest'\n"
                          "    case $state in\n"
                          "    command) _describe command commands; return ;;\n"
                          "    rest) ;;\n"
                          "    *) return ;;\n"
                          "    esac\n"
                          "    case $line[1] in\n%3    esac\n}\n"
                          "if [ \"$funcstack[1]\" = _rvopen ]; then\n"
                          "    _rvopen \"$@\"\n"
                          "else\n"
                          "    compdef _rvopen rvopen\n"
                          "fi\n")
               .arg(commands.join(QLatin1Char(' ')),
                    zshOptions(program.options).join(QLatin1Char(' ')), cases);
}

QString fishCompletion(const CommandDoc& program)
{
    QString result = QLatin1String(s_generatedNote);
    result += fishOptions(program.options, QString());
    for (const CommandDoc& command : program.commands) {
        result += QStringLiteral("complete -c rvopen -n __fish_use_subcommand -f -a %1 -d %2\n")
                      .arg(command.name, shellQuoted(command.summary));
        const QString condition =
            QStringLiteral(" -n '__fish_seen_subcommand_from %1'").arg(command.name);
        result += fishOptions(command.options, condition);
        const QStringList operands = operandsOf(command);
        if (!operands.isEmpty())
            result += QStringLiteral("complete -c rvopen%1 -f -a %2\n")
                          .arg(condition, shellQuoted(operands.join(QLatin1Char(' '))));
    }
    return result;
}

} // namespace rvopen::command
