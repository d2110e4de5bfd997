#ifndef DEVICEHOST_AFC_PIPE_SIGNAL_H
#define DEVICEHOST_AFC_PIPE_SIGNAL_H

#include <csignal>
#include <ctime>

namespace devicehost::afc
{

/// Keeps the calling thread from being ended by SIGPIPE while it lives: encrypted connections write without asking for
/// an error instead, also when they are closed. What the program has set up for the signal stays as it is.
class PipeSignalBlock
{
public:
    PipeSignalBlock()
    {
        ::sigemptyset(&pipe);
        ::sigaddset(&pipe, SIGPIPE);
        sigset_t pending;
        ::sigpending(&pending);
        wasPending = ::sigismember(&pending, SIGPIPE) == 1;
        ::pthread_sigmask(SIG_BLOCK, &pipe, &before);
    }

    ~PipeSignalBlock()
    {
        // One that came meanwhile goes nowhere; one that had been waiting is somebody else's.
        const timespec now = {};
        if (!wasPending)
            ::sigtimedwait(&pipe, nullptr, &now);
        ::pthread_sigmask(SIG_SETMASK, &before, nullptr);
    }

    PipeSignalBlock(const PipeSignalBlock &) = delete;
    PipeSignalBlock &operator=(const PipeSignalBlock &) = delete;

private:
    sigset_t pipe = {};
    sigset_t before = {};
    bool wasPending = false;
};

} // namespace devicehost::afc

#endif
