#include "describe/Command.h"

using namespace Qt::StringLiterals;

namespace tool {

namespace {

// The command as the script keeps it: "" for the program, "tags", "tags list".
struct Tables
{
    QStringList commands;
    QString values;
    QString words;
};

QString caseLabel(QString const& command, QString const& word)
{
    return u'"' + command + u' ' + word + u'"';
}

void addValues(Tables& tables, QString const& key, CommandOption const& option)
{
    if (option.value.isEmpty())
        return;
    QStringList labels;
    for (QString const& name : option.names)
        labels << caseLabel(key, name);
    // Without a choice the shell offers files.
    QString const reply =
        option.choices.isEmpty()
            ? QString()
            : u" mapfile -t COMPREPLY < <(compgen -W '%1' -- \"$current\");"_s.arg(option.choices.join(u' '));
    tables.values += u"        %1)%2 return ;;\n"_s.arg(labels.join(u" | "_s), reply);
}

void addCommand(Tables& tables, QString const& key, Command const& command)
{
    QStringList options;
    for (CommandOption const& option : command.options) {
        options << option.names;
        addValues(tables, key, option);
    }
    QStringList words;
    for (CommandArgument const& argument : command.arguments)
        words << argument.choices;
    for (Command const& verb : command.commands) {
        words << verb.name;
        tables.commands << caseLabel(key, verb.name);
        addCommand(tables, key.isEmpty() ? verb.name : key + u' ' + verb.name, verb);
    }
    tables.words +=
        u"        \"%1\") options='%2' words='%3' ;;\n"_s.arg(key, options.join(u' '), words.join(u' '));
}

constexpr auto script = R"(# bash completion of %1
_%1() {
    local current=${COMP_WORDS[COMP_CWORD]} previous=${COMP_WORDS[COMP_CWORD - 1]}
    local command='' options='' words='' i
    COMPREPLY=()
    for ((i = 1; i < COMP_CWORD; ++i)); do
        case "$command ${COMP_WORDS[i]}" in
        %2)
            command="${command:+$command }${COMP_WORDS[i]}" ;;
        esac
    done
    case "$command $previous" in
%3    esac
    case "$command" in
%4    esac
    [[ $current == -* ]] && words=$options
    mapfile -t COMPREPLY < <(compgen -W "$words" -- "$current")
}
complete -o default -F _%1 %1
)"_L1;

} // namespace

QString bashCompletion(Command const& program)
{
    Tables tables;
    addCommand(tables, {}, program);
    QString text = script;
    text.replace(u"%1"_s, program.name);
    text.replace(u"%2"_s, tables.commands.join(u" | \\\n        "_s));
    text.replace(u"%3"_s, tables.values);
    return text.replace(u"%4"_s, tables.words);
}

} // namespace tool
