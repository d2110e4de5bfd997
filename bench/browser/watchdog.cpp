#include "bench/browser/watchdog.h"

#include <algorithm>
#include <chrono>

#include <time.h>

namespace bench
{

namespace
{

double now(clockid_t clock)
{
    timespec time = {};
    clock_gettime(clock, &time);
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) * 1e-9;
}

} // namespace

double wallNow()
{
    return now(CLOCK_MONOTONIC);
}

double threadCpuNow()
{
    return now(CLOCK_THREAD_CPUTIME_ID);
}

Watchdog::Watchdog() : startWall(wallNow()), startCpu(threadCpuNow()), cpuAtLast(startCpu), thread([this] { send(); })
{
}

Watchdog::~Watchdog()
{
    {
        const std::lock_guard<std::mutex> lock(mutex);
        ending = true;
    }
    wake.notify_all();
    thread.join();
}

void Watchdog::send()
{
    std::unique_lock<std::mutex> lock(mutex);
    while (!ending) {
        waiting = true;
        const double sentAt = wallNow();
        QMetaObject::invokeMethod(
            this, [this, sentAt] { answered(sentAt); }, Qt::QueuedConnection);
        wake.wait(lock, [this] { return ending || !waiting; });
        wake.wait_for(lock, std::chrono::milliseconds(1), [this] { return ending; });
    }
}

void Watchdog::answered(double sentAt)
{
    const double cpu = threadCpuNow();
    stalls.longestWall = std::max(stalls.longestWall, wallNow() - sentAt);
    stalls.longestCpu = std::max(stalls.longestCpu, cpu - cpuAtLast);
    cpuAtLast = cpu;
    {
        const std::lock_guard<std::mutex> lock(mutex);
        waiting = false;
    }
    wake.notify_all();
}

Stalls Watchdog::take()
{
    Stalls taken = stalls;
    const double wall = wallNow(), cpu = threadCpuNow();
    taken.wall = wall - startWall;
    taken.cpu = cpu - startCpu;
    stalls = Stalls();
    startWall = wall;
    startCpu = cpuAtLast = cpu;
    return taken;
}

} // namespace bench
