#ifndef PHOTOLIB_LOGGING_H
#define PHOTOLIB_LOGGING_H

namespace photolib
{

/// The tag and levels of every line that the library hands to the host's Log().
constexpr char logTag[] = "PHOTOLIB";
constexpr int logProgress = 1;
constexpr int logError = 2;

} // namespace photolib

#endif
