#ifndef APPS_BROWSER_LIBRARY_DEVICE_IDENTITY_H
#define APPS_BROWSER_LIBRARY_DEVICE_IDENTITY_H

#include <QString>

namespace browser
{

/// The same text for two names of one device, as far as that can be known: a folder by whatever way it is reached, and
/// a phone on the cable that the desktop has mounted, too. For comparing only. Looks at the device, so it is not for
/// the user-interface thread.
QString deviceIdentity(const QString &device);

} // namespace browser

#endif
