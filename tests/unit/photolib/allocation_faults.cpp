#include "tests/unit/photolib/allocation_faults.h"

#include <cerrno>
#include <cstddef>
#include <cstdlib>
#include <new>

namespace
{

thread_local long left = 0; ///< allocations until the one that fails; 0: none fails
thread_local bool lasting = false;
thread_local bool hasFired = false;
thread_local bool paused = false;
thread_local long live = 0;

bool refused() noexcept
{
    if (paused)
        return false;
    if (hasFired)
        return lasting && left > 0;
    hasFired = left > 0 && --left == 0;
    if (hasFired && lasting)
        left = 1; // stays so until the fault goes
    return hasFired;
}

} // namespace

AllocationFault::AllocationFault(long number, Shortage shortage) noexcept
{
    hasFired = false;
    lasting = shortage == Shortage::Lasting;
    left = number;
}

AllocationFault::~AllocationFault()
{
    left = 0;
}

bool AllocationFault::fired() const noexcept
{
    return hasFired;
}

AllocationPause::AllocationPause() noexcept
{
    paused = true;
}

AllocationPause::~AllocationPause()
{
    paused = false;
}

long liveBlocks() noexcept
{
    return live;
}

#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)

void *operator new(std::size_t size)
{
    void *const memory = refused() ? nullptr : std::malloc(size == 0 ? 1 : size);
    if (memory == nullptr)
        throw std::bad_alloc();
    return memory;
}

void operator delete(void *memory) noexcept
{
    std::free(memory);
}

void operator delete(void *memory, std::size_t) noexcept
{
    std::free(memory);
}

#else

// operator new of the standard library calls malloc().
extern "C" {

void *__libc_malloc(std::size_t size);
void *__libc_calloc(std::size_t count, std::size_t size);
void *__libc_realloc(void *memory, std::size_t size);
void *__libc_memalign(std::size_t alignment, std::size_t size);
void __libc_free(void *memory);

static void *counted(void *memory)
{
    live += memory == nullptr ? 0 : 1;
    return memory;
}

void *malloc(std::size_t size)
{
    if (refused()) {
        errno = ENOMEM;
        return nullptr;
    }
    return counted(__libc_malloc(size));
}

void *calloc(std::size_t count, std::size_t size)
{
    if (refused()) {
        errno = ENOMEM;
        return nullptr;
    }
    return counted(__libc_calloc(count, size));
}

void *realloc(void *memory, std::size_t size)
{
    if (size != 0 && refused()) {
        errno = ENOMEM;
        return nullptr;
    }
    void *const moved = __libc_realloc(memory, size);
    if (memory == nullptr)
        return counted(moved);
    live -= size == 0 && moved == nullptr ? 1 : 0;
    return moved;
}

int posix_memalign(void **memory, std::size_t alignment, std::size_t size)
{
    if (refused())
        return ENOMEM;
    *memory = counted(__libc_memalign(alignment, size));
    return *memory == nullptr ? ENOMEM : 0;
}

void *aligned_alloc(std::size_t alignment, std::size_t size)
{
    if (refused()) {
        errno = ENOMEM;
        return nullptr;
    }
    return counted(__libc_memalign(alignment, size));
}

void free(void *memory)
{
    live -= memory == nullptr ? 0 : 1;
    __libc_free(memory);
}

} // extern "C"

#endif
