#ifndef EXPORTER_LIBRARY_ACCESS_H
#define EXPORTER_LIBRARY_ACCESS_H

#include <QList>

class photo_manager_int;
struct photoItem;

namespace exporter
{

// The library answers as if there were nothing when memory runs short. For an export that would be photos and albums
// that are left out without a word, so these look twice, and throw std::bad_alloc.

QList<qint64> photosOf(photo_manager_int &library);
QList<qint64> albumsOf(photo_manager_int &library);

/// False when the library has no such photo.
bool readPhoto(photo_manager_int &library, qint64 id, photoItem *photo);

} // namespace exporter

#endif
