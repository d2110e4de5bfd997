#include "apps/cli/album_kinds.h"

namespace photocli
{

namespace
{

constexpr qint32 userFolder = 4000;

struct KindName {
    qint32 first;
    qint32 last;
    const char *name;
};

constexpr KindName kindNames[] = {
    {2, 2, "user album"},           {1505, 1505, "shared album"}, {1506, 1506, "import session"},
    {1507, 1507, "smart album"},    {1508, 1508, "project"},      {1509, 1509, "conversation"},
    {1510, 1510, "duplicates"},     {1550, 1550, "synced album"}, {1552, 1699, "built-in smart album"},
    {3571, 3573, "progress mark"},  {3998, 3999, "root folder"},  {userFolder, userFolder, "folder"},
    {4001, 4006, "built-in album"},
};

bool isBuiltinKind(qint32 kind)
{
    return kind > 1550 && kind != userFolder;
}

// The titles of these are names for the device's own use, the same in every library.
bool isProgressMark(qint32 kind)
{
    return kind >= 3571 && kind <= 3573;
}

} // namespace

QString albumKindName(qint32 kind)
{
    for (const KindName &entry : kindNames) {
        if (kind >= entry.first && kind <= entry.last)
            return QLatin1String(entry.name);
    }
    return QStringLiteral("kind %1").arg(kind);
}

bool isBuiltinAlbum(const albumItem &album)
{
    return isBuiltinKind(album.kind) && (album.title.isEmpty() || isProgressMark(album.kind));
}

} // namespace photocli
