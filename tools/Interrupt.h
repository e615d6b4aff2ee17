#pragma once

#include <atomic>

namespace tool {

/// What Ctrl-C, a request to end (SIGTERM) or a terminal that goes away does to the program.
///
/// As long as nothing is half done it ends at once. While a `Deferral` lives the signal only sets the flag,
/// which the readers poll and every file that is written looks at before it is moved into place; main() then
/// ends the program with the exit code of the signal.
class Interrupt
{
public:
    /// Takes over the signals that are not ignored. Once, before any thread.
    static void install();

    /// Becomes true with the first signal. The cancel flag of every reader that the program uses.
    static std::atomic<bool> const& flag();

    /// What the program returns after a signal, 128 + its number; 0 while there was none.
    static int exitCode();

    /// Something is half done. Any thread, any number at a time.
    class Deferral
    {
    public:
        Deferral();
        ~Deferral();
        Deferral(Deferral const&) = delete;
        Deferral& operator=(Deferral const&) = delete;
    };
};

} // namespace tool
