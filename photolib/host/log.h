#ifndef PHOTOLIB_HOST_LOG_H
#define PHOTOLIB_HOST_LOG_H

/// @file
/// The host's log.

#include "photolib/export.h"

/// The host's log. Called with the tag "PHOTOLIB" and a printf format; level 1 is progress, level 2 an error. The
/// message has no line break at its end.
///
/// Ownership: the tag, the format and everything that the arguments point to are valid during the call only.
/// Units: texts in the arguments are UTF-8, or the local 8-bit encoding for device names.
/// Threads: called on the thread that called the library, from several threads at once when the host uses several.
/// It may be called with the manager's locks held: do not call the manager from it.
/// Failure: there is none to answer, and it must not throw.
PHOTOLIB_HOST void Log(const char *tag, int level, const char *format, ...) __attribute__((format(printf, 3, 4)));

#endif
