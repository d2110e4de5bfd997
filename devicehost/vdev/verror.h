#ifndef DEVICEHOST_VDEV_VERROR_H
#define DEVICEHOST_VDEV_VERROR_H

#include <QString>

namespace devicehost
{

/// Why an operation on a device failed: an errno value to decide by, and words for people.
struct VError {
    int code = 0;                   ///< errno value; 0 for none
    QString text;                   ///< a clause without full stop, such as "Permission denied"
    QString advice = {};            ///< what people can do, where the device knows more than deviceAdvice(); else empty
    bool deviceUnreachable = false; ///< it is the device that cannot be reached, not one of its files
};

/// The system's own words for an errno value, whichever thread asks.
QString errnoText(int code);

VError errnoError(int code);

/// Whether a name is simply not there, as against something that is there and cannot be used.
bool isAbsence(const VError &error);

} // namespace devicehost

#endif
