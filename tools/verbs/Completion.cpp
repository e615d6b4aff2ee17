#include "Text.h"
#include "Verb.h"
#include "describe/Command.h"
#include "verbs/Choices.h"

#include <array>

using namespace Qt::StringLiterals;

namespace tool {

namespace {

struct Shell
{
    char const* name;
    QString (*completion)(Command const& program);
};

constexpr std::array shells = {Shell{"bash", bashCompletion}, Shell{"zsh", zshCompletion},
                               Shell{"fish", fishCompletion}};

ExitCode run(CLI::App& program, std::string const& name, Console& console)
{
    for (Shell const& shell : shells) {
        if (name == shell.name)
            console.result(shell.completion(describe(program)));
    }
    return ExitCode::Ok;
}

Verb::Action setUp(CLI::App& app)
{
    auto const name = std::make_shared<std::string>();
    std::vector<std::string> names;
    for (Shell const& shell : shells)
        names.emplace_back(shell.name);
    app.add_option("SHELL", *name, Text::utf8("The shell: bash, zsh or fish"))
        ->required()
        ->check(oneOf(names));
    return [name, &program = *app.get_parent()](Console& console) { return run(program, *name, console); };
}

Verb::Action setUpManual(CLI::App& app)
{
    return [&program = *app.get_parent()](Console& console) {
        console.result(manualPage(describe(program), QStringLiteral(SURFACEIO_VERSION)));
        return ExitCode::Ok;
    };
}

} // namespace

Verb const completionVerb = {
    "completion",
    QT_TRANSLATE_NOOP(
        "Text", "Prints a script that lets a shell complete the verbs, options and values of this program."),
    "  surfaceio completion bash > ~/.local/share/bash-completion/completions/surfaceio\n"
    "  surfaceio completion fish > ~/.config/fish/completions/surfaceio.fish",
    setUp,
};

// For the build, which installs what it prints.
Verb const manualVerb = {
    "manual",
    QT_TRANSLATE_NOOP("Text", "Prints the manual page."),
    "  surfaceio manual > surfaceio.1\n  surfaceio manual | man -l -",
    setUpManual,
    true,
};

} // namespace tool
