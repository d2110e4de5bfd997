#ifndef PHOTOLIB_PHOTO_GROUP_H
#define PHOTOLIB_PHOTO_GROUP_H

/// @file
/// The record of a group of photos.

#include <QList>
#include <QString>

/// One automatic group of photos: all videos, one person, one memory, one burst, ...
///
/// A plain value that its holder owns; copies share their Qt members until one side writes. Use one object on one
/// thread at a time. Host and library must be built against the same declaration.
struct photoGroup {
    qint32 category = 0; ///< the category code under which the group is stored
    QString key;         ///< the key inside its category; "0" where a category has one group only
    QString title;       ///< for memories (category 15) subtitle and title; else empty
    qint64 coverAssetId =
        0;               ///< Z_PK of the cover photo, 0 for none; for people (category 4) the face group's number or 0
    qint32 favorite = 0; ///< for memories the favourite mark; else 0
    QList<qint64> assetIds; ///< Z_PKs of the photos, in the order in which they were added
};

#endif
