#include "Console.h"
#include "describe/Command.h"

#include <array>

using namespace Qt::StringLiterals;

namespace tool {

namespace {

struct ExitMeaning
{
    ExitCode code;
    QLatin1StringView meaning;
};

constexpr std::array exitMeanings = {
    ExitMeaning{ExitCode::Ok, "all went well"_L1},
    ExitMeaning{ExitCode::ReadOrWriteFailed, "a file could not be read or written"_L1},
    ExitMeaning{ExitCode::Usage, "the command line makes no sense"_L1},
    ExitMeaning{ExitCode::Malformed, "a file is damaged, or is not what it says it is"_L1},
    ExitMeaning{ExitCode::Unsupported, "a sound file of a kind that the library does not read"_L1},
    ExitMeaning{ExitCode::WarningsUnderStrict, "all went well but for warnings, and --strict was given"_L1},
    ExitMeaning{ExitCode::SomeFailed, "several files were asked for, and some of them failed"_L1},
    ExitMeaning{ExitCode::Interrupted, "interrupted with Ctrl-C"_L1},
};

QString escaped(QString text)
{
    text.replace(u'\\', u"\\e"_s).replace(u'-', u"\\-"_s);
    bool const isRequest = text.startsWith(u'.') || text.startsWith(u'\'');
    return isRequest ? u"\\&"_s + text : text;
}

QString bold(QString const& text)
{
    return u"\\fB%1\\fR"_s.arg(escaped(text));
}

QString italic(QString const& text)
{
    return u"\\fI%1\\fR"_s.arg(escaped(text));
}

QString item(QString const& term, QString const& description)
{
    return u".TP\n%1\n%2\n"_s.arg(term, escaped(description));
}

QString optionText(CommandOption const& option)
{
    QStringList names;
    for (QString const& name : option.names)
        names << bold(name);
    QString term = names.join(u", "_s);
    if (!option.value.isEmpty())
        term += u' ' + italic(option.choices.isEmpty() ? option.value : option.choices.join(u'|'));
    return item(term, option.description);
}

QString argumentName(CommandArgument const& argument)
{
    QString const name = italic(argument.choices.isEmpty() ? argument.name : argument.choices.join(u'|')) +
                         (argument.isRepeated ? u"..."_s : QString());
    return argument.isRequired ? name : u'[' + name + u']';
}

QString synopsis(QString const& path, Command const& command)
{
    QString text = bold(path) + u" [\\fIoptions\\fR]"_s;
    for (CommandArgument const& argument : command.arguments)
        text += u' ' + argumentName(argument);
    return text;
}

QString examplesText(Command const& command)
{
    QString text = u".PP\nExamples:\n.PP\n.nf\n.RS 4\n"_s;
    for (QString const& example : command.examples)
        text += escaped(example) + u'\n';
    return command.examples.isEmpty() ? QString() : text + u".RE\n.fi\n"_s;
}

void addCommand(QString& text, QString const& path, Command const& command)
{
    text += u".SS %1\n%2\n"_s.arg(escaped(path), escaped(command.purpose));
    if (command.commands.empty())
        text += u".PP\n%1\n"_s.arg(synopsis(path, command));
    for (CommandArgument const& argument : command.arguments)
        text += item(argumentName(argument), argument.description);
    for (CommandOption const& option : command.options) {
        if (!option.isCommon)
            text += optionText(option);
    }
    text += examplesText(command);
    for (Command const& verb : command.commands)
        addCommand(text, path + u' ' + verb.name, verb);
}

QString commonOptions(Command const& program)
{
    QString text;
    for (CommandOption const& option : program.commands.front().options)
        text += option.isCommon ? optionText(option) : QString();
    return text;
}

QString exitStatus()
{
    QString text;
    for (ExitMeaning const& row : exitMeanings)
        text += item(bold(QString::number(static_cast<int>(row.code))), row.meaning);
    return text;
}

} // namespace

QString manualPage(Command const& program, QString const& version)
{
    QString const name = program.name;
    QString text = u".TH %1 1 \"\" \"%2 %3\" \"User Commands\"\n"_s.arg(name.toUpper(), name, version);
    text += u".SH NAME\n%1 \\- looks at, checks and converts surface meshes\n"_s.arg(name);
    text += u".SH SYNOPSIS\n%1 \\fIverb\\fR [\\fIoptions\\fR] [\\fIfiles\\fR]\n"_s.arg(bold(name));
    text += u".SH DESCRIPTION\n%1\n"_s.arg(escaped(program.purpose));
    text += u".PP\nResults go to the standard output, everything else to the standard error.\n"_s;
    text += u".SH OPTIONS\n"_s;
    for (CommandOption const& option : program.options)
        text += optionText(option);
    text += u".PP\nEvery verb takes:\n"_s + commonOptions(program) + u".SH VERBS\n"_s;
    for (Command const& verb : program.commands)
        addCommand(text, name + u' ' + verb.name, verb);
    text += u".SH EXIT STATUS\n"_s + exitStatus();
    text += u".SH ENVIRONMENT\n"_s + item(bold(u"NO_COLOR"_s), u"When set and not empty, messages are not "
                                                               "coloured unless --color always is given."_s);
    return text;
}

} // namespace tool
