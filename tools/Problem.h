#pragma once

#include "Console.h"
#include "Interrupt.h"

namespace tool {

/// Why something failed: the exit code, and what was expected, found and where. None is also a problem's
/// value.
struct Problem
{
    ExitCode code = ExitCode::Ok;
    QString sentence;

    explicit operator bool() const { return code != ExitCode::Ok; }
};

/// The problem of a file that would have been written, after Ctrl-C; none otherwise.
inline Problem interruption()
{
    return Interrupt::flag()
               ? Problem{ExitCode::Interrupted, QStringLiteral("interrupted; nothing was written")}
               : Problem();
}

/// Says "path: sentence" when there is a problem, and returns its exit code.
inline ExitCode reported(Problem const& problem, QString const& path, Console& console)
{
    if (problem)
        console.failure(path + QStringLiteral(": ") + problem.sentence);
    return problem.code;
}

} // namespace tool
