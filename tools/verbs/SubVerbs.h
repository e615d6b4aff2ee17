#pragma once

#include "Verb.h"

#include <memory>
#include <string>
#include <vector>

namespace tool {

/// The verbs within a verb, such as "get" in "surfaceio header get FILE". One of them must be given.
class SubVerbs
{
public:
    explicit SubVerbs(CLI::App& verb);

    /// Adds one, for its options to be added to. Options of every verb may follow it. `examples` are two
    /// commands, one a line.
    CLI::App& add(std::string const& name, std::string const& purpose, Verb::Action action,
                  std::string const& examples);

    /// Does what the one that was given does.
    Verb::Action action() const;

private:
    struct Row
    {
        CLI::App* verb;
        Verb::Action action;
    };

    CLI::App& parent;
    std::shared_ptr<std::vector<Row>> rows = std::make_shared<std::vector<Row>>();
};

} // namespace tool
