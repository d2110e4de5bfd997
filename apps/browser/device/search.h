#ifndef APPS_BROWSER_DEVICE_SEARCH_H
#define APPS_BROWSER_DEVICE_SEARCH_H

#include "apps/browser/device/found_device.h"

#include <QStringList>

namespace browser
{

/// Folders to look into.
struct SearchPlaces {
    QStringList mounts;  ///< each folder in these may be the media folder of a phone
    QStringList backups; ///< each folder in these may be a backup, and they themselves
};

/// Where desktops mount phones, and where programs keep their backups below the home folder.
SearchPlaces usualPlaces();

/// These look at the file system, which can take long where something is mounted that does not answer: not for the
/// user-interface thread.
QVector<FoundDevice> findMountedPhones(const SearchPlaces &places);
QVector<FoundDevice> findBackups(const SearchPlaces &places);

/// The phones that are connected.
struct FoundPhones {
    QVector<FoundDevice> phones;
    bool supported = true; ///< false in a build that does not know phones on USB
    bool daemonRuns = true;
};

/// Asks the phones; waits for each that does not answer. Not for the user-interface thread.
FoundPhones findPhones();

} // namespace browser

#endif
