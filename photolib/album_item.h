#ifndef PHOTOLIB_ALBUM_ITEM_H
#define PHOTOLIB_ALBUM_ITEM_H

/// @file
/// The record of an album.

#include "photolib/export.h"

#include <QByteArray>
#include <QList>
#include <QString>

/// One album as it crosses the boundary. Host and library must be built against the same declaration.
///
/// A plain value that its holder owns; copies share their Qt members until one side writes. Use one object on one
/// thread at a time.
struct PHOTOLIB_EXPORT albumItem {
    qint64 id;           ///< the album's Z_PK; 0 by default
    qint32 entity;       ///< the album's entity number (Z_ENT); 19 by default
    qint32 kind;         ///< ZKIND; 1550, the default, is an album that may be deleted
    qint32 trashedState; ///< 1 when the album is in the trash. Not set by the constructor: set it before createAlbum()
    QByteArray uuid;     ///< null by default
    QString title;       ///< null by default
    qint32 albumType;    ///< 1 for kind 2, 2 (the default) for kind 1550, 0 for every other kind
    QList<qint64> photoIds; ///< Z_PKs of the album's photos, in the album's order

    /// Sets the defaults named above. Needs no memory.
    albumItem();

    /// Copies every field, an unset `trashedState` as it stands.
    albumItem(const albumItem &other);

    /// Copies `id`, `uuid`, `title`, `albumType` and `photoIds` only: `entity`, `kind` and `trashedState` of the
    /// target keep their values. Hosts rely on it.
    albumItem &operator=(const albumItem &other);

    /// Gives up this object's share of its texts and lists.
    ~albumItem();
};

#endif
