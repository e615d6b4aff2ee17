#pragma once

#include <QString>

#include <span>

namespace tool {

/// A sentence of others, as a regular expression, and the same for people, with %1 and so on for what its
/// groups quote. The text is a source text of the translations.
struct Rewording
{
    char const* pattern;
    char const* text;
};

/// The text of the first row that fits all of what was said; what was said itself where none does.
QString reworded(QString const& said, std::span<Rewording const> rows);

} // namespace tool
