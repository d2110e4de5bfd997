#ifndef APPS_CLI_OUTPUT_DESCRIPTOR_H
#define APPS_CLI_OUTPUT_DESCRIPTOR_H

#include <cstddef>

namespace photocli
{

/// Writes all bytes to a file descriptor, which stays the caller's. Returns 0, or the errno value of what went wrong;
/// EINTR when the user interrupted and the reader takes nothing more at once. A reader that never reads thus cannot
/// hold up Ctrl-C, whenever the signal comes. May be called from any thread.
int writeAll(int descriptor, const char *bytes, std::size_t count);

} // namespace photocli

#endif
