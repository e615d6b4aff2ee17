#include "hostile/Attempt.h"

namespace hostile {

FaultPlan& faultPlan()
{
    static thread_local FaultPlan plan;
    return plan;
}

} // namespace hostile
