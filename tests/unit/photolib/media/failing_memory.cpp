#include "tests/unit/photolib/media/failing_memory.h"

#include <cerrno>
#include <cstddef>

extern "C" {
void *__libc_malloc(std::size_t size);
void *__libc_calloc(std::size_t count, std::size_t size);
void *__libc_realloc(void *memory, std::size_t size);
void __libc_free(void *memory);
}

namespace
{

thread_local int left = 0; ///< allocations until the one that fails; 0 when none is to fail
thread_local bool failed = false;
thread_local int hostDepth = 0;
thread_local long live = 0;
thread_local long asked = 0;

bool isRefused()
{
    if (left == 0 || hostDepth > 0 || --left > 0)
        return false;
    failed = true;
    errno = ENOMEM;
    return true;
}

void *counted(void *memory)
{
    live += memory ? 1 : 0;
    return memory;
}

} // namespace

void failAllocation(int number)
{
    left = number;
    failed = false;
}

bool allocationFailed()
{
    return failed;
}

long liveAllocations()
{
    return live;
}

long askedBytes()
{
    return asked;
}

HostCode::HostCode()
{
    ++hostDepth;
}

HostCode::~HostCode()
{
    --hostDepth;
}

// The C library's allocation functions of this program and of the libraries that it uses; operator new is made of them.
extern "C" {

void *malloc(std::size_t size)
{
    asked += static_cast<long>(size);
    return isRefused() ? nullptr : counted(__libc_malloc(size));
}

void *calloc(std::size_t count, std::size_t size)
{
    asked += static_cast<long>(count * size);
    return isRefused() ? nullptr : counted(__libc_calloc(count, size));
}

void *realloc(void *memory, std::size_t size)
{
    asked += static_cast<long>(size);
    if (isRefused())
        return nullptr;
    void *moved = __libc_realloc(memory, size);
    return memory ? moved : counted(moved);
}

void free(void *memory)
{
    live -= memory ? 1 : 0;
    __libc_free(memory);
}
}
