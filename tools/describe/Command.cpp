#include "describe/Command.h"

#include "Text.h"

#include <CLI/CLI.hpp>

using namespace Qt::StringLiterals;

namespace tool {

namespace {

QString text(std::string const& bytes)
{
    return QString::fromStdString(bytes);
}

// Kept by `oneOf` in the name of the check.
QStringList choicesOf(CLI::Option& option)
{
    try {
        return text(option.get_validator(0)->get_name()).split(u' ', Qt::SkipEmptyParts);
    } catch (CLI::OptionNotFound const&) {
        return {};
    }
}

CommandOption describeOption(CLI::Option& option)
{
    CommandOption described;
    for (std::string const& name : option.get_snames())
        described.names << u'-' + text(name);
    for (std::string const& name : option.get_lnames())
        described.names << u"--"_s + text(name);
    described.description = text(option.get_description());
    if (option.get_items_expected_max() > 0)
        described.value = text(option.get_type_name());
    described.choices = choicesOf(option);
    described.isCommon = option.get_group() == commonGroup();
    return described;
}

CommandArgument describeArgument(CLI::Option& option)
{
    return {text(option.get_name(true)), text(option.get_description()), choicesOf(option),
            option.get_required(), option.get_items_expected_max() > 1};
}

bool isListed(CLI::App const* app)
{
    return !app->get_group().empty();
}

} // namespace

std::string examplesHeading()
{
    return "\n\n" + Text::utf8("Examples:") + '\n';
}

std::string commonGroup()
{
    return Text::utf8("Options of every verb");
}

Command describe(CLI::App& app)
{
    Command command;
    command.name = text(app.get_name());
    QString const description = text(app.get_description());
    QString const heading = text(examplesHeading());
    qsizetype const end = description.indexOf(heading);
    command.purpose = description.left(end);
    if (end >= 0) {
        for (QString const& line : description.mid(end + heading.size()).split(u'\n'))
            command.examples << line.trimmed();
    }
    for (CLI::Option* option : app.get_options([](CLI::Option*) { return true; })) {
        if (option->nonpositional())
            command.options.push_back(describeOption(*option));
        else
            command.arguments.push_back(describeArgument(*option));
    }
    for (CLI::App* verb : app.get_subcommands([](CLI::App const* sub) { return isListed(sub); }))
        command.commands.push_back(describe(*verb));
    return command;
}

QString quoted(QString text, QLatin1StringView quote)
{
    return u'\'' + text.replace(u'\'', quote) + u'\'';
}

} // namespace tool
