#include "apps/cli/selection/selection.h"

#include "apps/cli/categories.h"
#include "apps/cli/failure.h"
#include "apps/cli/media_type.h"
#include "apps/cli/messages.h"
#include "apps/cli/output/text.h"
#include "apps/cli/selection/album_lookup.h"

#include <algorithm>
#include <limits>

namespace photocli
{

namespace
{

bool isDeleted(const photoItem &photo)
{
    return photo.trashedState == 1;
}

} // namespace

bool sameUuid(const QByteArray &uuid, const QString &text)
{
    return QString::fromUtf8(uuidText(uuid)).compare(text, Qt::CaseInsensitive) == 0;
}

Selection::Selection(photo_manager_int &photoLibrary, SelectionRequest selectionRequest)
    : library(photoLibrary), request(std::move(selectionRequest))
{
    resolveAlbums();
    resolveGroups();
    resolveUuids();
}

void Selection::resolveAlbums()
{
    if (request.albums.isEmpty()) {
        candidates = library.getPhotoList();
        return;
    }
    IdSet seen;
    for (const QString &name : qAsConst(request.albums)) {
        for (const albumItem &album : findAlbums(library, name)) {
            for (const qint64 id : album.photoIds) {
                if (!seen.contains(id))
                    candidates += id;
                seen.insert(id);
            }
        }
    }
}

void Selection::resolveGroups()
{
    for (const GroupName &name : qAsConst(request.groups)) {
        for (const QString &key : groupKeys(library, name)) {
            for (const qint64 id : library.getPhotoGroup(name.category, key).assetIds)
                inGroups.insert(id);
        }
    }
}

void Selection::resolveUuids()
{
    if (request.uuids.isEmpty())
        return;
    QStringList missing = request.uuids;
    photoItem photo;
    for (const qint64 id : library.getPhotoList()) {
        if (!library.getPhotoItem(&id, &photo))
            continue;
        for (const QString &uuid : qAsConst(request.uuids)) {
            if (sameUuid(photo.uuid, uuid)) {
                named.insert(id);
                missing.removeAll(uuid);
            }
        }
    }
    if (!missing.isEmpty())
        throw Failure{ExitSomeFailed, QStringLiteral("no photo has the UUID %1; \"photolib photos DEVICE --csv\" lists "
                                                     "the UUIDs of all photos")
                                          .arg(quoted(missing.first()))};
}

void Selection::forEach(const std::function<bool(const photoItem &)> &visit) const
{
    qint64 left = request.limit.value_or(std::numeric_limits<qint64>::max());
    photoItem photo;
    for (const qint64 id : candidates) {
        if (left <= 0)
            return;
        // A group or an album may name photos that the library does not hold.
        if (!library.getPhotoItem(&id, &photo) || !accepts(photo))
            continue;
        --left;
        if (!visit(photo))
            return;
    }
}

bool Selection::accepts(const photoItem &photo) const
{
    return acceptsDeleted(photo) && (request.groups.isEmpty() || inGroups.contains(photo.id)) &&
           (request.uuids.isEmpty() || named.contains(photo.id)) && (!request.favorite || photo.favorite == 1) &&
           (!request.hidden || photo.hidden != 0) && (!request.onlyMovies || isVideo(photo)) &&
           (!request.onlyPhotos || !isVideo(photo)) && acceptsDate(photo);
}

bool Selection::acceptsDeleted(const photoItem &photo) const
{
    if (request.deleted)
        return isDeleted(photo);
    if (!isDeleted(photo) || named.contains(photo.id))
        return true;
    return std::any_of(request.groups.begin(), request.groups.end(),
                       [](const GroupName &name) { return name.category == recentlyDeletedCategory; });
}

bool Selection::acceptsDate(const photoItem &photo) const
{
    const QDateTime &date = photo.dateCreated;
    const auto reached = [&date](const QDateTime &from) { return date.isValid() && date >= from; };
    const auto notPassed = [&date](const QDateTime &to) { return date.isValid() && date <= to; };
    return (request.fromDates.isEmpty() || std::any_of(request.fromDates.begin(), request.fromDates.end(), reached)) &&
           (request.toDates.isEmpty() || std::any_of(request.toDates.begin(), request.toDates.end(), notPassed));
}

} // namespace photocli
