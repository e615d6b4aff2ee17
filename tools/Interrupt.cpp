#include "Interrupt.h"

#include <csignal>
#include <cstdlib>

namespace tool {

namespace {

constexpr int firstSignalCode = 128;

std::atomic<bool> isRequested = false;
std::atomic<int> received = 0;
std::atomic<int> deferrals = 0;
// A signal handler may use nothing else.
static_assert(std::atomic<bool>::is_always_lock_free && std::atomic<int>::is_always_lock_free);

extern "C" void onSignal(int signal)
{
    received = signal;
    isRequested = true;
    if (deferrals == 0)
        std::_Exit(firstSignalCode + signal);
}

// A shell that starts a program in the background has it ignore Ctrl-C, and that is kept.
void takeOver(int signal)
{
    if (std::signal(signal, onSignal) == SIG_IGN)
        std::signal(signal, SIG_IGN);
}

} // namespace

void Interrupt::install()
{
    takeOver(SIGINT);
    takeOver(SIGTERM);
#ifdef SIGHUP
    takeOver(SIGHUP);
#endif
}

std::atomic<bool> const& Interrupt::flag()
{
    return isRequested;
}

int Interrupt::exitCode()
{
    return isRequested ? firstSignalCode + received : 0;
}

Interrupt::Deferral::Deferral()
{
    ++deferrals;
}

Interrupt::Deferral::~Deferral()
{
    --deferrals;
}

} // namespace tool
