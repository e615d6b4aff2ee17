#pragma once

namespace meshoperations {

/// Asks for the cache line at `address` where the compiler can say so. Any address will do.
inline void prefetch([[maybe_unused]] void const* address)
{
#if defined(__GNUC__) || defined(__clang__)
    __builtin_prefetch(address);
#endif
}

} // namespace meshoperations
