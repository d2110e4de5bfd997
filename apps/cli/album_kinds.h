#ifndef APPS_CLI_ALBUM_KINDS_H
#define APPS_CLI_ALBUM_KINDS_H

#include "photolib/album_item.h"

namespace photocli
{

/// What an album is, for people: "user album", "shared album", "folder", ...; "kind N" for a kind that is not known.
QString albumKindName(qint32 kind);

/// Whether the device made the album for its own use: one of the albums that every library has, without a name that
/// would mean anything to people.
bool isBuiltinAlbum(const albumItem &album);

} // namespace photocli

#endif
