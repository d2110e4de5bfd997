#include "apps/browser/library/snapshot.h"

#include "photolib/photolib.h"

namespace browser
{

std::shared_ptr<const Snapshot> readSnapshot(photo_manager_int &manager, const std::atomic<bool> &stop)
{
    auto snapshot = std::make_shared<Snapshot>();
    Collection everything;
    everything.photoIds = manager.getPhotoList();
    for (const qint64 id : qAsConst(everything.photoIds)) {
        photoItem item;
        if (stop.load(std::memory_order_relaxed))
            return nullptr;
        if (!manager.getPhotoItem(&id, &item))
            continue;
        Photo photo;
        photo.id = id;
        photo.fileName = item.fileName;
        snapshot->rows.insert(id, static_cast<int>(snapshot->photos.size()));
        snapshot->photos.push_back(photo);
    }
    snapshot->collections.push_back(std::move(everything));
    snapshot->libraryUuid = manager.getLibraryUuid();
    return snapshot;
}

} // namespace browser
