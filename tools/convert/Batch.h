#pragma once

#include "convert/Conversion.h"

#include <vector>

namespace tool {

struct BatchOptions
{
    /// How many files are converted at a time.
    int jobs = 1;
    /// Begin no other file after the first failure.
    bool failFast = false;
    /// Only say what would be done.
    bool isRehearsal = false;
    /// Make folders of targets that do not exist.
    bool makesFolders = false;
};

/// What became of one conversion.
struct BatchResult
{
    enum class Status
    {
        Converted,
        Planned,
        Failed,
        Skipped,
        Interrupted
    };

    Status status = Status::Skipped;
    ExitCode code = ExitCode::Ok;
    /// What was said on the way, in this order.
    std::vector<Message> messages;
};

/// Its name for programs: "converted" and so on.
QLatin1StringView nameOf(BatchResult::Status status);

/// Converts the files, several at a time, and returns a result for each. What is said about a file goes to
/// the console when it and all files before it are done, and names the file where there are several. On a
/// terminal a line shows how far the work is. Ctrl-C stops the readers.
std::vector<BatchResult> convertAll(std::vector<Conversion> const& conversions, BatchOptions const& options,
                                    Console& console);

} // namespace tool
