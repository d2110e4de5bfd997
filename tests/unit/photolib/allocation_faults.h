#ifndef TESTS_UNIT_PHOTOLIB_ALLOCATION_FAULTS_H
#define TESTS_UNIT_PHOTOLIB_ALLOCATION_FAULTS_H

/// Lets allocations of this thread fail: operator new and, in builds without sanitizers, malloc() and its relatives for
/// every library of the process, Qt's and SQLite's included.

#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
constexpr bool failsMalloc = false; // the sanitizer has it for itself
#else
constexpr bool failsMalloc = true;
#endif

enum class Shortage {
    Once,    ///< one allocation fails
    Lasting, ///< from there on every one does
};

/// While it lives, the `number`-th allocation (from 1) fails.
class AllocationFault
{
public:
    AllocationFault(long number, Shortage shortage) noexcept;
    ~AllocationFault();
    AllocationFault(const AllocationFault &) = delete;
    AllocationFault &operator=(const AllocationFault &) = delete;

    bool fired() const noexcept;
};

/// While it lives, no allocation of this thread fails or is counted towards one that does.
class AllocationPause
{
public:
    AllocationPause() noexcept;
    ~AllocationPause();
    AllocationPause(const AllocationPause &) = delete;
    AllocationPause &operator=(const AllocationPause &) = delete;
};

/// Blocks that this thread has allocated less those that it has freed; always 0 in builds with sanitizers, which find
/// leaks themselves.
long liveBlocks() noexcept;

#endif
