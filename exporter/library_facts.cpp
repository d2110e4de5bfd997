#include "exporter/library_facts.h"

#include "exporter/asset_files.h"
#include "exporter/library_access.h"
#include "exporter/media_type.h"
#include "photolib/photolib.h"

#include <algorithm>

namespace exporter
{

namespace
{

QString numberKey(const QString &library, const QByteArray &uuid, qint64 id)
{
    return QStringLiteral("%1/%2/%3").arg(library, QString::fromUtf8(uuid)).arg(id);
}

// Others could read like the key of another photo, or become the same text as another one.
bool isPlain(const QByteArray &uuid)
{
    return !uuid.isEmpty() && std::all_of(uuid.begin(), uuid.end(), [](char c) {
        return (c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || c == '-' || c == '_';
    });
}

} // namespace

LibraryFacts::LibraryFacts(photo_manager_int &manager) : library(manager.getLibraryUuid())
{
    if (library.isEmpty()) // also where memory ran short for once
        library = manager.getLibraryUuid();
    std::set<QByteArray> seen;
    const QList<qint64> ids = photosOf(manager);
    for (const qint64 id : ids) {
        photoItem photo;
        if (!readPhoto(manager, id, &photo))
            continue;
        if (seen.count(photo.uuid) != 0)
            repeatedUuids.insert(photo.uuid);
        seen.insert(photo.uuid);
        if (photo.mediaType == videoMedia)
            videos.insert(originalPath(photo));
    }
}

QString LibraryFacts::keyOf(const photoItem &photo) const
{
    if (!isPlain(photo.uuid) || repeatedUuids.count(photo.uuid) != 0)
        return numberKey(library, photo.uuid, photo.id);
    return QString::fromUtf8(photo.uuid);
}

QString LibraryFacts::keyOf(const albumItem &album) const
{
    return !isPlain(album.uuid) ? numberKey(library, {}, album.id) : QString::fromUtf8(album.uuid);
}

} // namespace exporter
