#ifndef DEVICEHOST_AFC_WATCHDOG_H
#define DEVICEHOST_AFC_WATCHDOG_H

#include <chrono>
#include <condition_variable>
#include <functional>
#include <list>
#include <mutex>
#include <thread>

namespace devicehost::afc
{

/// Ends transfers that wait too long, or that the user does not want any more, by shutting their socket down: nothing
/// else ends all of them, in the clear and encrypted, reading and writing. A thread of its own does that; it sleeps
/// while no transfer runs.
///
/// Any thread may use it. It must outlive its watches.
class Watchdog
{
public:
    using Clock = std::chrono::steady_clock;

    enum class Verdict { Quiet, TimedOut, Stopped };

    /// `stopRequested` is asked from time to time, on the thread of this object and on those of the watches.
    explicit Watchdog(std::function<bool()> stopRequested);
    ~Watchdog();
    Watchdog(const Watchdog &) = delete;
    Watchdog &operator=(const Watchdog &) = delete;

    bool stopRequested() const { return stop(); }

    /// Starts the thread unless it runs. False when there can be no more threads.
    bool start();

    /// Watches one socket for as long as it lives.
    class Watch
    {
    public:
        /// start() comes first, unless `socket` is -1: then nothing is shut down, but verdict() still tells.
        Watch(Watchdog &watchdog, int socket, std::chrono::milliseconds patience);
        ~Watch();
        Watch(const Watch &) = delete;
        Watch &operator=(const Watch &) = delete;

        /// Begins to count anew.
        void renew();

        /// What is left of the time; never below 0.
        std::chrono::milliseconds left();

        /// Why the transfer has to end, or that it need not.
        Verdict verdict();

    private:
        friend class Watchdog;

        Watchdog &owner;
        const int socket;
        const std::chrono::milliseconds patience;
        Clock::time_point deadline; ///< guarded by the owner's mutex, as what follows
        Verdict reason = Verdict::Quiet;
        std::list<Watch *>::iterator place;
    };

private:
    void run();
    void judge(Watch &watch) const;

    const std::function<bool()> stop;
    std::mutex mutex;
    std::condition_variable changed;
    std::list<Watch *> watches;
    bool asleep = false;
    bool ending = false;
    std::thread thread;
};

} // namespace devicehost::afc

#endif
