#ifndef APPS_BROWSER_LIBRARY_SNAPSHOT_PHOTO_H
#define APPS_BROWSER_LIBRARY_SNAPSHOT_PHOTO_H

#include "apps/browser/library/snapshot.h"

struct photoItem;

namespace browser
{

/// What the browser keeps of a record.
Photo photoOf(const photoItem &item);

/// Whether these are degrees on the globe; records without a place hold -180 in both.
bool isOnGlobe(double latitude, double longitude);

} // namespace browser

#endif
