#pragma once

#include <new>

namespace memory {

/// What `step`, a function without arguments, returns; false where there is no memory for it: that is a
/// failure like any other, and no exception leaves the library.
template <typename Step>
bool succeeds(Step const& step)
{
    try {
        return step();
    } catch (std::bad_alloc const&) {
        return false;
    }
}

} // namespace memory
