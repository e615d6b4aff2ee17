#pragma once

#include <cstddef>

/// Counts what is allocated in this process, and makes allocations fail, by standing in front of `malloc`.
/// With the GNU C library only, and never under a sanitizer, which stands there itself.
namespace hostile::allocations {

bool isAvailable();

/// Watches what this thread allocates while it lives.
class Watch
{
public:
    Watch();
    ~Watch();
    Watch(Watch const&) = delete;
    Watch& operator=(Watch const&) = delete;

    /// The most bytes that were held at a time beyond those held at the start.
    std::size_t peakBytes() const;
    /// How many allocations there were, growing ones included.
    std::size_t count() const;
    /// The bytes of all of them.
    std::size_t totalBytes() const;
};

/// From here on the allocation number `first` of this thread fails, counted from 1, and with `forGood` all
/// that follow it.
void failFrom(std::size_t first, bool forGood);
/// No more fail. Returns how many there were since `failFrom`.
std::size_t stopFailing();

} // namespace hostile::allocations
