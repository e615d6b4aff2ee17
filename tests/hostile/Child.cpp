#include "hostile/Child.h"

#include <QtGlobal>

#ifdef Q_OS_UNIX
#include <sys/wait.h>
#include <unistd.h>
#endif

namespace hostile {

#ifdef Q_OS_UNIX

bool canFork()
{
    return true;
}

ChildEnd runInChild(std::function<int()> const& step)
{
    pid_t const child = ::fork();
    if (child == 0)
        ::_exit(step());
    int status = 0;
    if (child < 0 || ::waitpid(child, &status, 0) != child)
        return {};
    if (WIFSIGNALED(status))
        return {-1, WTERMSIG(status)};
    return {WEXITSTATUS(status), 0};
}

#else

bool canFork()
{
    return false;
}

ChildEnd runInChild(std::function<int()> const&)
{
    return {};
}

#endif

} // namespace hostile
