#pragma once

#include <QString>

#include <functional>
#include <optional>
#include <vector>

/// One program for each library that is compared, so that none has another's start-up or memory. Each does
/// rows of the table ("ply-read", …) on the files of a folder that `table_data` made.
namespace table {

/// What came out, or what was written: of a result that is too small nobody believes the time.
struct Size
{
    qint64 vertices;
    qint64 facets;
    /// What a result takes in memory; 0 where nobody asks.
    qint64 bytes = 0;
};

/// What is measured; nothing when it failed. Its result dies with the call.
using Work = std::function<std::optional<Size>()>;

struct Contender
{
    char const* row;
    /// Prepares what is not measured.
    std::function<Work(QString const& folder)> prepare;
    /// The part of our work that this library does not do, such as "merging". Empty: nothing is left out.
    char const* lacks = "";
};

/// Usage: PROGRAM ROW FOLDER MILLISECONDS. Works at least twice, and on until the time is used up. Prints one
/// line of JSON: the milliseconds of each round by the clock and of the processor, by how many kB the first
/// round raised the peak of memory, and what came out. Without arguments it prints its rows.
int run(std::vector<Contender> const& contenders, int argc, char** argv);

} // namespace table
