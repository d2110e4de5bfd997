#ifndef DEVICEHOST_ADVICE_H
#define DEVICEHOST_ADVICE_H

#include "devicehost/vdev/verror.h"

#include <QString>

namespace devicehost
{

/// What people can do about an errno value that a device gave, as a clause to follow a semicolon.
QString deviceAdvice(int code);

/// The same for an error that may bring advice of its own.
QString deviceAdvice(const VError &error);

/// The same for the folder of this computer that receives the database copy.
QString localAdvice(int code);

/// What helps when the device is there, but what it delivers is no use.
QString copyAgain();

} // namespace devicehost

#endif
