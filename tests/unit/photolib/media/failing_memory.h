#ifndef TESTS_UNIT_PHOTOLIB_MEDIA_FAILING_MEMORY_H
#define TESTS_UNIT_PHOTOLIB_MEDIA_FAILING_MEMORY_H

/// Memory that runs short when a test wants it. All of this is for one thread at a time, the one that calls.

/// The `number`-th allocation of this thread from now on fails, 1 being the next; 0 for none. Those in a HostCode do
/// not count.
void failAllocation(int number);

/// Whether that allocation was asked for.
bool allocationFailed();

/// Allocations of this thread so far less what it freed.
long liveAllocations();

/// Bytes that this thread has asked for so far, whether it has freed them or not.
long askedBytes();

/// Code that is not the library's, for which there is always memory.
class HostCode
{
public:
    HostCode();
    ~HostCode();
    HostCode(const HostCode &) = delete;
    HostCode &operator=(const HostCode &) = delete;
};

#endif
