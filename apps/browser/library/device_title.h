#ifndef APPS_BROWSER_LIBRARY_DEVICE_TITLE_H
#define APPS_BROWSER_LIBRARY_DEVICE_TITLE_H

#include <QString>

namespace browser
{

/// What people call a device that is named with its scheme: the phone's own name, else the folder's; the device itself
/// where it tells nothing. Looks at the device, so it is not for the user-interface thread.
QString deviceTitle(const QString &device);

/// The path of a folder or backup on this computer; empty for other devices.
QString localPathOf(const QString &device);

} // namespace browser

#endif
