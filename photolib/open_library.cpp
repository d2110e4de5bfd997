#include "photolib/photo_manager.h"

#include "photolib/boundary.h"
#include "photolib/current_library_uuid.h"
#include "photolib/db/photos_db.h"
#include "photolib/host/iipod.h"
#include "photolib/host/log.h"
#include "photolib/logging.h"

#include <QSemaphoreReleaser>

using namespace photolib;

bool photo_manager::openLibrary()
{
    cancelRequested = false;
    if (!hostDevice)
        return false;
    busySemaphore.acquire();
    const QSemaphoreReleaser release(busySemaphore);

    const bool opened = guarded(false, [this] {
        if (!parseDatabase() || hostDevice->shouldStop())
            return false;
        databaseUuid = photosDb->uuid();
        buildModel();
        return true;
    });
    if (!opened) {
        Log(logTag, logError, "Can not parse photo lib");
        return false;
    }
    guarded(false, [this] {
        readCurrentLibraryUuid(hostDevice, &currentLibraryUuid);
        return true;
    });
    return true;
}

// The reader takes its place before it is looked at: also a failed one is the manager's reader from here on.
bool photo_manager::parseDatabase()
{
    auto reader = std::make_unique<Photos_DB>(hostDevice);
    if (photosDb)
        earlierReaders.emplace_back(photosDb);
    photosDb = reader.release();
    return photosDb->isLoaded();
}
