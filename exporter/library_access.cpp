#include "exporter/library_access.h"

#include "photolib/photolib.h"

#include <QByteArray>

#include <new>

namespace exporter
{

namespace
{

constexpr int probeBytes = 64 * 1024;

// Throws while there is no memory for a list of a common length.
void requireMemory()
{
    QByteArray probe;
    probe.reserve(probeBytes);
}

} // namespace

QList<qint64> photosOf(photo_manager_int &library)
{
    const QList<qint64> ids = library.getPhotoList();
    if (!ids.isEmpty())
        return ids;
    requireMemory();
    if (library.getPhotoCount() != 0)
        throw std::bad_alloc();
    return ids;
}

QList<qint64> albumsOf(photo_manager_int &library)
{
    const QList<qint64> ids = library.getAlbumList();
    if (!ids.isEmpty())
        return ids;
    requireMemory();
    if (library.getAlbumCount() != 0)
        throw std::bad_alloc();
    return ids;
}

bool readPhoto(photo_manager_int &library, qint64 id, photoItem *photo)
{
    if (library.getPhotoItem(&id, photo))
        return true;
    requireMemory();
    if (library.getPhotoItem(&id, photo))
        throw std::bad_alloc();
    return false;
}

} // namespace exporter
