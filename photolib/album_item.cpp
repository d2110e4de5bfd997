#include "photolib/album_item.h"

namespace
{
constexpr qint32 defaultAlbumEntity = 19;
constexpr qint32 userAlbumKind = 1550;
constexpr qint32 userAlbumType = 2;
} // namespace

// trashedState stays unset: hosts that create albums set it themselves, and rely on being asked to.
albumItem::albumItem() : id(0), entity(defaultAlbumEntity), kind(userAlbumKind), albumType(userAlbumType)
{
    title.clear();
}

albumItem::albumItem(const albumItem &other) = default;

albumItem &albumItem::operator=(const albumItem &other)
{
    id = other.id;
    uuid = other.uuid;
    title = other.title;
    albumType = other.albumType;
    photoIds = other.photoIds;
    return *this;
}

albumItem::~albumItem() = default;
