#include "photolib/photo_manager.h"

#include "photolib/boundary.h"
#include "photolib/db/photos_db.h"

using namespace photolib;

photo_manager::photo_manager(IIPod *device) : photo_manager_int(device), hostDevice(device)
{
    referenceDate = QDateTime::fromString(QStringLiteral("2001"), QStringLiteral("yyyy"));
    referenceDate.setTimeSpec(Qt::UTC);
}

photo_manager::~photo_manager()
{
    delete photosDb;
    photosDb = nullptr;
}

void photo_manager::cancel()
{
    cancelRequested = true;
    busySemaphore.acquire(); // returns when no opening is running
    busySemaphore.release();
}

bool photo_manager::isCancelled()
{
    return cancelRequested;
}

QString photo_manager::getLibraryUuid()
{
    return guarded(QString(), [this] {
        if (!photosDb)
            return QString();
        if (!currentLibraryUuid.isEmpty())
            return QString::fromUtf8(currentLibraryUuid);
        return photosDb->uuid();
    });
}
