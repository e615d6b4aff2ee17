#pragma once

#include <functional>

namespace hostile {

/// How a child process ended.
struct ChildEnd
{
    /// What `step` returned, 0 to 255; -1 after a signal.
    int result = -1;
    /// The signal that ended it, or 0.
    int signal = 0;
};

/// Whether there are child processes here.
bool canFork();

/// Runs `step` in a copy of this process, which ends without any clearing up.
ChildEnd runInChild(std::function<int()> const& step);

} // namespace hostile
