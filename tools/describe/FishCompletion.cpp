#include "describe/Command.h"

using namespace Qt::StringLiterals;

namespace tool {

namespace {

QString quotedText(QString text)
{
    return quoted(text.replace(u'\\', u"\\\\"_s), "\\'"_L1);
}

QString line(QString const& program, QString const& condition, QString const& rest)
{
    return u"complete -c %1 -n %2 %3\n"_s.arg(program, quotedText(condition), rest);
}

QString optionText(CommandOption const& option)
{
    QString text;
    for (QString const& name : option.names)
        text += name.startsWith("--"_L1) ? u"-l "_s + name.mid(2) + u' ' : u"-s "_s + name.mid(1) + u' ';
    if (!option.choices.isEmpty())
        text += u"-x -a "_s + quotedText(option.choices.join(u' ')) + u' ';
    else if (!option.value.isEmpty())
        text += u"-r -F "_s;
    return text + u"-d "_s + quotedText(option.description);
}

QString seen(QStringList const& names)
{
    return u"__fish_seen_subcommand_from "_s + names.join(u' ');
}

void addCommand(QString& text, QString const& program, QString const& condition, Command const& command)
{
    QStringList names;
    for (Command const& verb : command.commands)
        names << verb.name;
    QString const here = names.isEmpty() ? condition : condition + u"; and not "_s + seen(names);
    for (CommandOption const& option : command.options)
        text += line(program, here, optionText(option));
    for (CommandArgument const& argument : command.arguments) {
        if (!argument.choices.isEmpty())
            text += line(program, here, u"-f -a "_s + quotedText(argument.choices.join(u' ')));
    }
    for (Command const& verb : command.commands) {
        text += line(program, here, u"-f -a %1 -d %2"_s.arg(verb.name, quotedText(verb.purpose)));
        addCommand(text, program, condition + u"; and "_s + seen({verb.name}), verb);
    }
}

} // namespace

QString fishCompletion(Command const& program)
{
    QString text = u"# fish completion of %1\n"_s.arg(program.name);
    addCommand(text, program.name, u"true"_s, program);
    return text;
}

} // namespace tool
