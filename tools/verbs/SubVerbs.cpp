#include "verbs/SubVerbs.h"

#include "describe/Command.h"

#include <CLI/CLI.hpp>

namespace tool {

SubVerbs::SubVerbs(CLI::App& verb)
    : parent(verb)
{
    parent.require_subcommand(1);
}

CLI::App& SubVerbs::add(std::string const& name, std::string const& purpose, Verb::Action action,
                        std::string const& examples)
{
    CLI::App* const verb = parent.add_subcommand(name, purpose + examplesHeading() + examples);
    verb->fallthrough();
    rows->push_back({verb, std::move(action)});
    return *verb;
}

Verb::Action SubVerbs::action() const
{
    return [rows = rows](Console& console) {
        for (Row const& row : *rows) {
            if (row.verb->parsed())
                return row.action(console);
        }
        return ExitCode::Usage;
    };
}

} // namespace tool
