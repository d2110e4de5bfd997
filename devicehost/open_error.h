#ifndef DEVICEHOST_OPEN_ERROR_H
#define DEVICEHOST_OPEN_ERROR_H

/// @file
/// Why a file could not be opened.

#include <QString>

namespace devicehost
{

/// Why a file could not be opened. A plain value.
struct OpenError {
    bool absent = false; ///< there is no file of that name, as against one that is there and cannot be opened
    QString text;        ///< a clause without full stop, such as "Permission denied"; empty when nothing failed yet
    QString advice;      ///< what people can do, as a clause to follow a semicolon; empty for an absent file
};

/// Why the last vFileOpen() on the calling thread that answered null did so. Opening another file successfully does
/// not change it. Any thread.
OpenError lastOpenError();

} // namespace devicehost

#endif
