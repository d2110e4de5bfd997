#include "apps/browser/library/snapshot.h"

#include "apps/browser/library/snapshot_collections.h"
#include "apps/browser/library/snapshot_photo.h"
#include "photolib/photolib.h"

namespace browser
{

std::shared_ptr<const Snapshot> readSnapshot(photo_manager_int &manager, const std::atomic<bool> &stop)
{
    auto snapshot = std::make_shared<Snapshot>();
    const QList<qint64> ids = manager.getPhotoList();
    snapshot->photos.reserve(static_cast<std::size_t>(ids.size()));
    snapshot->rows.reserve(ids.size());
    for (const qint64 id : ids) {
        photoItem item;
        if (stop.load(std::memory_order_relaxed))
            return nullptr;
        if (!manager.getPhotoItem(&id, &item))
            continue;
        snapshot->rows.insert(id, static_cast<int>(snapshot->photos.size()));
        snapshot->photos.push_back(photoOf(item));
        snapshot->photos.back().id = id;
    }
    snapshot->libraryUuid = manager.getLibraryUuid();
    if (!readCollections(manager, *snapshot, stop))
        return nullptr;
    return snapshot;
}

} // namespace browser
