#pragma once

#include "hostile/AllocationHook.h"
#include "hostile/Outcome.h"

#include <utility>

namespace hostile {

/// A failing allocation for the next `attempt` of this process, and what it came to.
struct FaultPlan
{
    bool isActive = false;
    std::size_t first = 0;
    bool forGood = false;

    /// Whether the allocation was reached at all.
    bool wasReached = false;
    /// Whether an exception came out.
    bool threw = false;
    /// What the call came to under the fault.
    Outcome outcome;
};

FaultPlan& faultPlan();

/// What `inspect` makes of `step`, a call of a reader. Where a fault is planned `step` is called under it
/// first, and then again, by the same reader, without: the outcome is that of the second call.
template <typename Step, typename Inspect>
Outcome attempt(Step const& step, Inspect const& inspect)
{
    FaultPlan& plan = faultPlan();
    if (!plan.isActive)
        return inspect(step());
    plan.isActive = false;
    decltype(step()) result{};
    allocations::failFrom(plan.first, plan.forGood);
    try {
        result = step();
    } catch (...) {
        plan.threw = true;
    }
    plan.wasReached = allocations::stopFailing() >= plan.first;
    plan.outcome = inspect(std::move(result));
    return inspect(step());
}

} // namespace hostile
