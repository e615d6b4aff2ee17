#pragma once

#include <QString>
#include <QStringList>

#include <string>
#include <vector>

namespace CLI {
class App;
}

namespace tool {

/// An option or a flag of a command.
struct CommandOption
{
    /// With their dashes, the short ones first: "-o", "--output".
    QStringList names;
    QString description;
    /// What its value is called, empty for a flag.
    QString value;
    /// The only values that it takes; empty where any may be.
    QStringList choices;
    /// Whether it belongs to every verb.
    bool isCommon = false;
};

/// What stands on the command line by its place.
struct CommandArgument
{
    QString name;
    QString description;
    QStringList choices;
    bool isRequired = false;
    bool isRepeated = false;
};

/// The program, a verb, or a verb within a verb, as its help knows it. Completions and the manual page are
/// made from this and can forget nothing.
struct Command
{
    QString name;
    QString purpose;
    /// Commands, one a line.
    QStringList examples;
    std::vector<CommandOption> options;
    std::vector<CommandArgument> arguments;
    std::vector<Command> commands;
};

/// What stands between the purpose of a verb and its examples, in its description for CLI11.
std::string examplesHeading();
/// The group of the options that every verb has.
std::string commonGroup();

/// What CLI11 knows of a command and all below it; hidden verbs are left out.
Command describe(CLI::App& app);

/// The completion scripts of three shells.
QString bashCompletion(Command const& program);
QString zshCompletion(Command const& program);
QString fishCompletion(Command const& program);

/// The manual page in the language of man(7).
QString manualPage(Command const& program, QString const& version);

/// `text` in single quotes of a shell, quotes within it written as `quote`.
QString quoted(QString text, QLatin1StringView quote);

} // namespace tool
