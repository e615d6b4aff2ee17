#include "Console.h"
#include "Text.h"
#include "describe/Command.h"

#include <array>

using namespace Qt::StringLiterals;

namespace tool {

namespace {

struct ExitMeaning
{
    ExitCode code;
    char const* meaning;
};

constexpr std::array exitMeanings = {
    ExitMeaning{ExitCode::Ok, QT_TRANSLATE_NOOP("Text", "all went well")},
    ExitMeaning{ExitCode::ReadOrWriteFailed,
                QT_TRANSLATE_NOOP("Text", "a file could not be read or written")},
    ExitMeaning{ExitCode::Usage, QT_TRANSLATE_NOOP("Text", "the command line makes no sense")},
    ExitMeaning{ExitCode::Malformed,
                QT_TRANSLATE_NOOP("Text", "a file is damaged, or is not what it says it is")},
    ExitMeaning{ExitCode::Unsupported,
                QT_TRANSLATE_NOOP("Text", "a sound file of a kind that the library does not read")},
    ExitMeaning{ExitCode::WarningsUnderStrict,
                QT_TRANSLATE_NOOP("Text", "all went well but for warnings, and --strict was given")},
    ExitMeaning{ExitCode::SomeFailed,
                QT_TRANSLATE_NOOP("Text", "several files were asked for, and some of them failed")},
    ExitMeaning{ExitCode::Interrupted, QT_TRANSLATE_NOOP("Text", "interrupted with Ctrl-C")},
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
    QString text = bold(path) + u" [%1]"_s.arg(italic(Text::tr("options")));
    for (CommandArgument const& argument : command.arguments)
        text += u' ' + argumentName(argument);
    return text;
}

QString examplesText(Command const& command)
{
    QString text = u".PP\n%1\n.PP\n.nf\n.RS 4\n"_s.arg(escaped(Text::tr("Examples:")));
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
        text += item(bold(QString::number(static_cast<int>(row.code))), Text::tr(row.meaning));
    return text;
}

QString heading(QString const& text)
{
    return u".SH %1\n"_s.arg(escaped(text));
}

QString sentence(QString const& text)
{
    return escaped(text) + u'\n';
}

QString introduction(Command const& program, QString const& version)
{
    QString const name = program.name;
    QString text = u".TH %1 1 \"\" \"%2 %3\" \"%4\"\n"_s.arg(name.toUpper(), name, version,
                                                             escaped(Text::tr("User Commands")));
    text += heading(Text::tr("NAME")) +
            u"%1 \\- %2\n"_s.arg(name, escaped(Text::tr("looks at, checks and converts surface meshes")));
    text += heading(Text::tr("SYNOPSIS")) + u"%1 %2 [%3] [%4]\n"_s.arg(bold(name), italic(Text::tr("verb")),
                                                                       italic(Text::tr("options")),
                                                                       italic(Text::tr("files")));
    text += heading(Text::tr("DESCRIPTION")) + sentence(program.purpose);
    return text + u".PP\n"_s +
           sentence(Text::tr("Results go to the standard output, everything else to the standard error."));
}

QString environment()
{
    return item(bold(u"NO_COLOR"_s),
                Text::tr(
                    "When set and not empty, messages are not coloured unless --color always is given.")) +
           item(
               bold(u"LANGUAGE"_s) + u", "_s + bold(u"LC_ALL"_s) + u", "_s + bold(u"LC_MESSAGES"_s) +
                   u", "_s + bold(u"LANG"_s),
               Text::tr("The language of messages and help: German, Polish, or else English. Numbers are the "
                        "same in every language, and with --json the results and their sentences are in "
                        "English."));
}

} // namespace

QString manualPage(Command const& program, QString const& version)
{
    QString text = introduction(program, version) + heading(Text::tr("OPTIONS"));
    for (CommandOption const& option : program.options)
        text += optionText(option);
    text += u".PP\n"_s + sentence(Text::tr("Every verb takes:")) + commonOptions(program);
    text += heading(Text::tr("VERBS"));
    for (Command const& verb : program.commands)
        addCommand(text, program.name + u' ' + verb.name, verb);
    text += heading(Text::tr("EXIT STATUS")) + exitStatus();
    return text + heading(Text::tr("ENVIRONMENT")) + environment();
}

} // namespace tool
