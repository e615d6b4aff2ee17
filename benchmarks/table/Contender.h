#pragma once

#include <QString>

#include <functional>
#include <vector>

/// One program for each library that is compared, so that none has another's start-up or memory. Each does
/// rows of the table ("ply-read", …) on the files of a folder that `table_data` made.
namespace table {

/// What is measured; false when it failed. Its result dies with the call.
using Work = std::function<bool()>;

struct Contender
{
    char const* row;
    /// Prepares what is not measured.
    std::function<Work(QString const& folder)> prepare;
};

/// Usage: PROGRAM ROW FOLDER ROUNDS. Prints one line of JSON: the milliseconds of each round by the clock and
/// of the processor, and by how many kB the first round raised the peak of memory. Without arguments it
/// prints its rows.
int run(std::vector<Contender> const& contenders, int argc, char** argv);

} // namespace table
