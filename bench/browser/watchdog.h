#ifndef BENCH_BROWSER_WATCHDOG_H
#define BENCH_BROWSER_WATCHDOG_H

#include <QObject>

#include <atomic>
#include <condition_variable>
#include <mutex>
#include <thread>

namespace bench
{

/// What happened between two looks, in seconds.
struct Stalls {
    double longestWall = 0; ///< that a message to the thread waited at most
    double longestCpu = 0;  ///< that the thread itself computed at most while one waited
    double wall = 0;        ///< of the whole time
    double cpu = 0;         ///< of this thread in the whole time
};

/// Sends messages to the thread that made it, one after the other, and notes how long they wait: what a person feels as
/// a window that hangs. On a busy machine the processor time tells what is this thread's own.
class Watchdog : public QObject
{
public:
    Watchdog();
    ~Watchdog() override;

    /// Since the last call.
    Stalls take();

private:
    void send();
    void answered(double sentAt);

    Stalls stalls;
    double startWall;
    double startCpu;
    double cpuAtLast;
    std::mutex mutex;
    std::condition_variable wake;
    bool waiting = false;
    bool ending = false;
    std::thread thread;
};

/// Seconds of the clock, and of this thread's processor time.
double wallNow();
double threadCpuNow();

} // namespace bench

#endif
