#ifndef DEVICEHOST_AFC_QUIET_THREAD_H
#define DEVICEHOST_AFC_QUIET_THREAD_H

#include <csignal>
#include <thread>
#include <utility>

namespace devicehost::afc
{

/// A thread that takes no signals: they are for the threads of the program. Throws std::system_error when there can be
/// no more threads.
template <class Work>
std::thread threadWithoutSignals(Work &&work)
{
    // A new thread takes over the signal mask of the one that makes it.
    struct Masked {
        Masked()
        {
            sigset_t all;
            ::sigfillset(&all);
            ::pthread_sigmask(SIG_SETMASK, &all, &before);
        }
        ~Masked() { ::pthread_sigmask(SIG_SETMASK, &before, nullptr); }
        sigset_t before = {};
    } const masked;
    return std::thread(std::forward<Work>(work));
}

} // namespace devicehost::afc

#endif
