#pragma once

#include <new>

namespace memory {

/// What `step`, a function without arguments, returns; `failure` where there is no memory for it: that is a
/// failure like any other, and no exception leaves the library.
template <typename Result, typename Step>
Result resultOr(Result failure, Step const& step)
{
    try {
        return step();
    } catch (std::bad_alloc const&) {
        return failure;
    }
}

/// The same for a step that succeeds or not.
template <typename Step>
bool succeeds(Step const& step)
{
    return resultOr(false, step);
}

} // namespace memory
