#ifndef PHOTOLIB_ITEM_VALUES_H
#define PHOTOLIB_ITEM_VALUES_H

#include <QtGlobal>

/// Values of the items' fields that stand for something.
namespace photolib
{

/// Latitude and longitude of a photo that was taken nowhere known.
constexpr double noCoordinate = -180.0;

/// `kind` and `albumType` of an album that its user made.
constexpr qint32 userAlbumKind = 1550;
constexpr qint32 userAlbumType = 2;

} // namespace photolib

#endif
