#include "hostile/AllocationHook.h"

#include "hostile/Sanitizers.h"

#include <algorithm>
#include <cerrno>
#include <cstdlib>

#if defined(__GLIBC__) && !defined(SURFACEIO_HAS_SANITIZER)
#define SURFACEIO_HAS_HOOK 1
#include <malloc.h>
#endif

namespace hostile::allocations {

namespace {

// Plain values: they are needed before anything is constructed, and by one thread at a time.
struct State
{
    bool isWatching;
    bool isFailing;
    bool forGood;
    std::size_t first;
    std::size_t asked;
    std::ptrdiff_t held;
    std::ptrdiff_t peak;
    std::size_t count;
    std::size_t total;
};

thread_local constinit State state = {};

[[maybe_unused]] bool mayAllocate()
{
    if (!state.isFailing)
        return true;
    ++state.asked;
    return state.forGood ? state.asked < state.first : state.asked != state.first;
}

[[maybe_unused]] void note(std::ptrdiff_t more)
{
    if (!state.isWatching)
        return;
    state.held += more;
    state.peak = std::max(state.peak, state.held);
    if (more > 0) {
        ++state.count;
        state.total += static_cast<std::size_t>(more);
    }
}

} // namespace

Watch::Watch()
{
    state.held = state.peak = 0;
    state.count = state.total = 0;
    state.isWatching = true;
}

Watch::~Watch()
{
    state.isWatching = false;
}

std::size_t Watch::peakBytes() const
{
    return static_cast<std::size_t>(state.peak);
}

std::size_t Watch::count() const
{
    return state.count;
}

std::size_t Watch::totalBytes() const
{
    return state.total;
}

void failFrom(std::size_t first, bool forGood)
{
    state.first = first;
    state.forGood = forGood;
    state.asked = 0;
    state.isFailing = true;
}

std::size_t stopFailing()
{
    state.isFailing = false;
    return state.asked;
}

#ifdef SURFACEIO_HAS_HOOK

bool isAvailable()
{
    return true;
}

namespace {

std::ptrdiff_t sizeOf(void* memory)
{
    return memory ? static_cast<std::ptrdiff_t>(malloc_usable_size(memory)) : 0;
}

void* noted(void* memory)
{
    note(sizeOf(memory));
    return memory;
}

void* none()
{
    errno = ENOMEM;
    return nullptr;
}

} // namespace

#else

bool isAvailable()
{
    return false;
}

#endif

} // namespace hostile::allocations

#ifdef SURFACEIO_HAS_HOOK

// The names of the GNU C library for what is behind the hook; `operator new` comes through here, too.
// NOLINTBEGIN(bugprone-reserved-identifier)
extern "C" {
void* __libc_malloc(std::size_t size);
void* __libc_calloc(std::size_t count, std::size_t size);
void* __libc_realloc(void* memory, std::size_t size);
void* __libc_memalign(std::size_t alignment, std::size_t size);
void __libc_free(void* memory);

using namespace hostile::allocations;

void* malloc(std::size_t size)
{
    return mayAllocate() ? noted(__libc_malloc(size)) : none();
}

void* calloc(std::size_t count, std::size_t size)
{
    return mayAllocate() ? noted(__libc_calloc(count, size)) : none();
}

void* realloc(void* memory, std::size_t size)
{
    if (size > 0 && !mayAllocate())
        return none();
    std::ptrdiff_t const before = sizeOf(memory);
    void* const moved = __libc_realloc(memory, size);
    if (moved || size == 0)
        note(sizeOf(moved) - before);
    return moved;
}

void* memalign(std::size_t alignment, std::size_t size)
{
    return mayAllocate() ? noted(__libc_memalign(alignment, size)) : none();
}

void* aligned_alloc(std::size_t alignment, std::size_t size)
{
    return memalign(alignment, size);
}

int posix_memalign(void** memory, std::size_t alignment, std::size_t size)
{
    *memory = memalign(alignment, size);
    return *memory ? 0 : ENOMEM;
}

void free(void* memory)
{
    note(-sizeOf(memory));
    __libc_free(memory);
}
}
// NOLINTEND(bugprone-reserved-identifier)

#endif
