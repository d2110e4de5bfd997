#include "apps/cli/commands/library_summary.h"

#include "apps/cli/album_kinds.h"
#include "apps/cli/categories.h"
#include "apps/cli/interrupt.h"
#include "apps/cli/media_type.h"
#include "apps/cli/output/value_text.h"
#include "apps/cli/selection/album_lookup.h"
#include "apps/cli/selection/id_set.h"

#include <algorithm>
#include <limits>

namespace photocli
{

namespace
{

void addPhoto(LibrarySummary &summary, const photoItem &photo)
{
    ++(isVideo(photo) ? summary.videos : summary.photos);
    if (photo.trashedState == 1)
        ++summary.recentlyDeleted;
    // The sizes are a stranger's numbers; a sum that does not fit is not worth more than one that is capped.
    if (photo.fileSize > 0)
        summary.bytes += std::min(photo.fileSize, std::numeric_limits<qint64>::max() - summary.bytes);
    if (!isRealDate(photo.dateCreated))
        return;
    if (!summary.firstDate.isValid() || photo.dateCreated < summary.firstDate)
        summary.firstDate = photo.dateCreated;
    if (!summary.lastDate.isValid() || photo.dateCreated > summary.lastDate)
        summary.lastDate = photo.dateCreated;
}

CategoryCount countCategory(photo_manager_int &library, const Category &category)
{
    CategoryCount count{&category};
    IdSet photos;
    for (const QString &key : library.getGroupKeys(category.code)) {
        ++count.groups;
        for (const qint64 id : library.getPhotoGroup(category.code, key).assetIds)
            photos.insert(id);
    }
    count.photos = photos.size();
    return count;
}

} // namespace

LibrarySummary summarize(photo_manager_int &library)
{
    LibrarySummary summary;
    summary.libraryUuid = library.getLibraryUuid();
    photoItem photo;
    for (const qint64 id : library.getPhotoList()) {
        if (interruptRequested())
            return summary;
        if (library.getPhotoItem(&id, &photo))
            addPhoto(summary, photo);
    }
    for (const qint64 id : library.getAlbumList()) {
        ++summary.albums;
        if (isBuiltinAlbum(albumOf(library, id)))
            ++summary.builtinAlbums;
    }
    for (const Category &category : categories()) {
        const CategoryCount count = countCategory(library, category);
        if (count.groups > 0)
            summary.categories += count;
    }
    return summary;
}

} // namespace photocli
