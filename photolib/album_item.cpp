#include "photolib/album_item.h"

#include "photolib/item_values.h"

using namespace photolib;

namespace
{
constexpr qint32 defaultAlbumEntity = 19;
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
