#pragma once

#include <CLI/CLI.hpp>

#include <string>
#include <vector>

namespace tool {

/// The check of an option that takes one of `names`, none of which has a space. Its help stays as it is;
/// completions and the manual page list the names.
inline CLI::Validator oneOf(std::vector<std::string> const& names)
{
    CLI::Validator check = CLI::IsMember(names);
    return check.description("").name(CLI::detail::join(names, " "));
}

} // namespace tool
