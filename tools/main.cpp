#include "Console.h"
#include "Interrupt.h"
#include "Language.h"
#include "LibraryLog.h"
#include "Text.h"
#include "UsageText.h"
#include "Verb.h"
#include "describe/Command.h"
#include "verbs/Choices.h"

#include <QCoreApplication>

#include <algorithm>
#include <csignal>

#ifdef Q_OS_UNIX
#include <fcntl.h>
#include <unistd.h>
#endif

namespace {

using namespace tool;

// One row for each verb, in the order of the help.
constexpr std::array verbs = {&infoVerb,    &checkVerb,  &convertVerb,    &bakeVerb,  &atlasVerb,
                              &previewVerb, &headerVerb, &tagsVerb,       &vmeshVerb, &sampleVerb,
                              &formatsVerb, &bundleVerb, &completionVerb, &manualVerb};

struct CommonOptions
{
    bool quiet = false;
    bool verbose = false;
    bool strict = false;
    std::string colour = "auto";
};

#ifdef Q_OS_UNIX
// A standard stream that the caller closed would lend its number to the next file that is opened, and our
// messages would end up in a scan. Opened the wrong way round, every use of it still fails.
void occupyStandardStreams()
{
    for (int const stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
        if (fcntl(stream, F_GETFD) == -1)
            static_cast<void>(open("/dev/null", stream == STDIN_FILENO ? O_WRONLY : O_RDONLY));
    }
}
#endif

void prepareProcess()
{
    Interrupt::install();
#ifdef Q_OS_UNIX
    occupyStandardStreams();
    // A reader that goes away is seen as a failed write.
    std::signal(SIGPIPE, SIG_IGN);
#ifdef SIGXFSZ
    // So is a file that may not grow further.
    std::signal(SIGXFSZ, SIG_IGN);
#endif
#endif
}

void addCommonOptions(CLI::App& verb, CommonOptions& common)
{
    std::string const group = commonGroup();
    verb.add_flag("-q,--quiet", common.quiet, Text::utf8("Show failures only, no warnings"))->group(group);
    verb.add_flag("-v,--verbose", common.verbose, Text::utf8("Show more of what is done, on stderr"))
        ->group(group);
    verb.add_flag("--strict", common.strict, Text::utf8("Exit with 5 when all went well but for warnings"))
        ->group(group);
    verb.add_option("--color", common.colour, Text::utf8("Colour messages: auto, always or never"))
        ->check(oneOf({"auto", "always", "never"}))
        ->type_name("WHEN")
        ->group(group);
}

Console::Colour colourNamed(std::string const& name)
{
    if (name == "always")
        return Console::Colour::Always;
    return name == "never" ? Console::Colour::Never : Console::Colour::Auto;
}

Verb::Action addVerb(CLI::App& program, Verb const& verb, CommonOptions& common)
{
    std::string const description = Text::utf8(verb.purpose) + examplesHeading() + verb.examples;
    CLI::App* const options = program.add_subcommand(verb.name, description);
    if (verb.isHidden)
        options->group("");
    Verb::Action action = verb.setUp(*options);
    addCommonOptions(*options, common);
    return action;
}

// Verbs are listed with the first sentence of their description only.
class HelpFormatter : public CLI::Formatter
{
public:
    HelpFormatter()
    {
        label("Usage", Text::utf8("Usage"));
        label("OPTIONS", Text::utf8("OPTIONS"));
        label("SUBCOMMAND", Text::utf8("SUBCOMMAND"));
        label("Positionals", Text::utf8("Positionals"));
        label("REQUIRED", Text::utf8("REQUIRED"));
        label("Needs", Text::utf8("Needs"));
    }

private:
    // These two groups have their names from CLI11.
    std::string make_group(std::string group, bool isPositional,
                           std::vector<CLI::Option const*> options) const override
    {
        return Formatter::make_group(group == "Options" ? Text::utf8("Options") : group, isPositional,
                                     options);
    }

    std::string make_subcommands(CLI::App const* app, CLI::AppFormatMode mode) const override
    {
        return CLI::detail::find_and_replace(Formatter::make_subcommands(app, mode), "\nSubcommands:\n",
                                             '\n' + Text::utf8("Subcommands") + ":\n");
    }

    std::string make_subcommand(CLI::App const* sub) const override
    {
        std::string const description = sub->get_description();
        std::stringstream line;
        CLI::detail::format_help(line, sub->get_name(), description.substr(0, description.find('\n')),
                                 column_width_);
        return line.str();
    }
};

std::vector<std::string> reversedArguments()
{
    std::vector<std::string> arguments;
    for (QString const& argument : QCoreApplication::arguments().mid(1))
        arguments.push_back(argument.toStdString());
    std::reverse(arguments.begin(), arguments.end());
    return arguments;
}

// CLI11 says only that a verb is missing.
QString unknownVerb(CLI::App const& parent)
{
    std::vector<std::string> const words = parent.remaining();
    QStringList names;
    for (CLI::App const* const verb : parent.get_subcommands([](CLI::App const*) { return true; })) {
        if (!verb->get_group().empty())
            names << QString::fromStdString(verb->get_name());
    }
    bool const isUnknown = parent.get_subcommands().empty() && !names.isEmpty() && !words.empty();
    return isUnknown ? Text::tr("expected one of %1, found \"%2\"")
                           .arg(names.join(QStringLiteral(", ")), QString::fromStdString(words.front()))
                     : QString();
}

ExitCode usageError(CLI::App const& program, CLI::ParseError const& error, Console& console)
{
    QString command = QStringLiteral("surfaceio");
    CLI::App const* app = &program;
    while (!app->get_subcommands().empty()) {
        app = app->get_subcommands().front();
        command += u' ' + QString::fromStdString(app->get_name());
    }
    QString const unknown = unknownVerb(*app);
    console.failure(unknown.isEmpty() ? usageSentence(QString::fromStdString(error.what())) : unknown);
    console.failure(Text::tr("see \"%1 --help\"").arg(command));
    return ExitCode::Usage;
}

ExitCode run(Verb::Action const& action, CommonOptions const& common, Console& console)
{
    console.setQuiet(common.quiet);
    console.setVerbose(common.verbose);
    console.setColour(colourNamed(common.colour));
    LogToConsole const log(console);
    ExitCode const code = action(console);
    bool const isSpoilt = code == ExitCode::Ok && common.strict && console.warningCount() > 0;
    return isSpoilt ? ExitCode::WarningsUnderStrict : code;
}

bool wantsJson(CLI::App const& program)
{
    for (CLI::App const* app = &program; app != nullptr;) {
        CLI::Option const* const json = app->get_option_no_throw("--json");
        if (json != nullptr && json->count() > 0)
            return true;
        app = app->get_subcommands().empty() ? nullptr : app->get_subcommands().front();
    }
    return false;
}

ExitCode parseAndRun(Language& language, Console& console)
{
    CLI::App program(
        Text::utf8("Looks at, checks and converts surface meshes of dental and maxillofacial scans."));
    program.name("surfaceio");
    program.set_help_flag("-h,--help", Text::utf8("Print this help message and exit"));
    program.set_version_flag("--version", "surfaceio " SURFACEIO_VERSION,
                             Text::utf8("Display program version information and exit"));
    program.formatter(std::make_shared<HelpFormatter>());
    program.require_subcommand(1);
    CommonOptions common;
    std::map<std::string, Verb::Action> actions;
    for (Verb const* verb : verbs)
        actions[verb->name] = addVerb(program, *verb, common);
    try {
        program.parse(reversedArguments());
    } catch (CLI::Success const& help) { // --help and --version
        std::stringstream text;
        program.exit(help, text, text);
        console.result(QString::fromStdString(text.str()));
        return ExitCode::Ok;
    } catch (CLI::ParseError const& error) {
        return usageError(program, error, console);
    }
    if (wantsJson(program))
        language.becomeEnglish();
    return run(actions.at(program.get_subcommands().front()->get_name()), common, console);
}

} // namespace

int main(int argc, char** argv)
{
    prepareProcess();
    QCoreApplication const application(argc, argv);
    Language language(Language::preferred());
    Console console;
    ExitCode code = parseAndRun(language, console);
    if (!console.finish() && code == ExitCode::Ok) {
        console.failure(Text::tr("the results could not be written to the standard output"));
        code = ExitCode::ReadOrWriteFailed;
    }
    return Interrupt::exitCode() != 0 ? Interrupt::exitCode() : static_cast<int>(code);
}
