#include "apps/cli/output/descriptor.h"

#include "apps/cli/interrupt.h"

#include <algorithm>
#include <cerrno>
#include <climits>
#include <poll.h>
#include <sys/stat.h>
#include <unistd.h>

namespace photocli
{

namespace
{

constexpr int waitMs = 100;

bool isRegularFile(int descriptor)
{
    struct stat info {
    };
    return ::fstat(descriptor, &info) == 0 && S_ISREG(info.st_mode);
}

// Waits until a write of PIPE_BUF bytes does not block. The wait is cut into short pieces, as a signal that comes just
// before poll() does not end it. Returns 0 or an errno value.
int awaitRoom(int descriptor)
{
    for (;;) {
        const bool interrupted = interruptRequested(); // before the look: what has room then still goes out
        struct pollfd wanted {
            descriptor, POLLOUT, 0
        };
        const int ready = ::poll(&wanted, 1, interrupted ? 0 : waitMs);
        if (ready > 0)
            return 0; // also for an error of the descriptor: the write tells which
        if (ready < 0 && errno != EINTR)
            return errno;
        if (interrupted)
            return EINTR;
    }
}

} // namespace

int writeAll(int descriptor, const char *bytes, std::size_t count)
{
    const bool blocksOnReaders = !isRegularFile(descriptor);
    const std::size_t most = blocksOnReaders ? PIPE_BUF : count;
    while (count > 0) {
        if (const int error = blocksOnReaders ? awaitRoom(descriptor) : 0)
            return error;
        const ssize_t written = ::write(descriptor, bytes, std::min(count, most));
        if (written >= 0) {
            bytes += written;
            count -= static_cast<std::size_t>(written);
        } else if (errno != EINTR && errno != EAGAIN) {
            return errno;
        }
    }
    return 0;
}

} // namespace photocli
