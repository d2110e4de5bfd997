#include "apps/cli/standard_streams.h"

#include <csignal>
#include <fcntl.h>
#include <unistd.h>

namespace photocli
{

void prepareStandardStreams()
{
    for (int descriptor = STDIN_FILENO; descriptor <= STDERR_FILENO; ++descriptor) {
        // open() takes the lowest free number. Read-only, so that writing to a closed output still fails.
        if (::fcntl(descriptor, F_GETFD) == -1 && ::open("/dev/null", O_RDONLY) == -1)
            return;
    }
    ::signal(SIGPIPE, SIG_IGN);
}

} // namespace photocli
