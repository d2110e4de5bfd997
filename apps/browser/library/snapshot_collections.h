#ifndef APPS_BROWSER_LIBRARY_SNAPSHOT_COLLECTIONS_H
#define APPS_BROWSER_LIBRARY_SNAPSHOT_COLLECTIONS_H

#include "apps/browser/library/snapshot.h"

namespace browser
{

/// Fills the collections of a snapshot whose photos are there. False when `stop` became true.
bool readCollections(photo_manager_int &manager, Snapshot &snapshot, const std::atomic<bool> &stop);

} // namespace browser

#endif
