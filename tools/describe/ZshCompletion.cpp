#include "describe/Command.h"

using namespace Qt::StringLiterals;

namespace tool {

namespace {

QString quotedText(QString const& text)
{
    return quoted(text, "'\\''"_L1);
}

// Inside the specification of _arguments and _describe.
QString escaped(QString text)
{
    for (char16_t const character : {u'\\', u'[', u']', u':'})
        text.replace(QChar(character), u'\\' + QString(QChar(character)));
    return text;
}

QString actionFor(QStringList const& choices)
{
    return choices.isEmpty() ? u"_files"_s : u'(' + choices.join(u' ') + u')';
}

QStringList specificationsOf(CommandOption const& option)
{
    QStringList specifications;
    for (QString const& name : option.names) {
        QString text = u"(%1)%2[%3]"_s.arg(option.names.join(u' '), name, escaped(option.description));
        if (!option.value.isEmpty())
            text += u":%1:%2"_s.arg(escaped(option.value), actionFor(option.choices));
        specifications << quotedText(text);
    }
    return specifications;
}

QStringList specificationsOf(Command const& command)
{
    QStringList specifications;
    for (CommandOption const& option : command.options)
        specifications << specificationsOf(option);
    for (CommandArgument const& argument : command.arguments)
        specifications << quotedText(u"%1:%2:%3"_s.arg(argument.isRepeated ? u"*"_s : QString(),
                                                       argument.name, actionFor(argument.choices)));
    return specifications;
}

QString dispatch(QString const& function, Command const& command)
{
    QString verbs;
    QString cases;
    for (Command const& verb : command.commands) {
        verbs += u"            %1\n"_s.arg(quotedText(verb.name + u':' + escaped(verb.purpose)));
        cases += u"            %1) %2_%1 ;;\n"_s.arg(verb.name, function);
    }
    return u"    case $state in\n"
           "    verb)\n"
           "        verbs=(\n%1        )\n"
           "        _describe verb verbs ;;\n"
           "    rest)\n"
           "        case $words[1] in\n%2        esac ;;\n"
           "    esac\n"_s.arg(verbs, cases);
}

void addFunction(QString& text, QString const& function, Command const& command)
{
    for (Command const& verb : command.commands)
        addFunction(text, function + u'_' + verb.name, verb);
    QStringList specifications = specificationsOf(command);
    bool const hasVerbs = !command.commands.empty();
    if (hasVerbs)
        specifications << u"'1:verb:->verb'"_s << u"'*::argument:->rest'"_s;
    text += function + u"() {\n    local -a verbs\n    local context state state_descr line\n"_s;
    text += u"    typeset -A opt_args\n    _arguments %1 \\\n        "_s.arg(hasVerbs ? u"-C"_s : u"-s"_s);
    text += specifications.join(u" \\\n        "_s) + u'\n';
    text += hasVerbs ? dispatch(function, command) : QString();
    text += u"}\n\n"_s;
}

} // namespace

QString zshCompletion(Command const& program)
{
    QString text = u"#compdef %1\n\n"_s.arg(program.name);
    QString const function = u'_' + program.name;
    addFunction(text, function, program);
    // Loaded by the completion system the file is the function; read by hand it only defines it.
    return text + u"if [ \"$funcstack[1]\" = %1 ]; then\n    %1 \"$@\"\nelse\n    compdef %1 %2\nfi\n"_s.arg(
                      function, program.name);
}

} // namespace tool
