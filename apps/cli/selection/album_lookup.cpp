#include "apps/cli/selection/album_lookup.h"

#include "apps/cli/album_kinds.h"
#include "apps/cli/failure.h"
#include "apps/cli/messages.h"
#include "apps/cli/output/text.h"

#include <algorithm>

namespace photocli
{

namespace
{

constexpr int titlesInMessage = 10;

struct Matches {
    QVector<albumItem> byId, byName, byLooseName;
};

Matches matchesOf(photo_manager_int &library, const QString &name)
{
    Matches found;
    bool isNumber = false;
    const qint64 number = name.toLongLong(&isNumber);
    for (const qint64 id : library.getAlbumList()) {
        const albumItem album = albumOf(library, id);
        const QString uuid = QString::fromUtf8(uuidText(album.uuid));
        if (isNumber && album.id == number)
            found.byId += album;
        if (album.title == name || uuid == name)
            found.byName += album;
        else if (album.title.compare(name, Qt::CaseInsensitive) == 0 || uuid.compare(name, Qt::CaseInsensitive) == 0)
            found.byLooseName += album;
    }
    return found;
}

QString existingAlbums(photo_manager_int &library)
{
    QStringList titles;
    int more = 0;
    for (const qint64 id : library.getAlbumList()) {
        const albumItem album = albumOf(library, id);
        if (album.title.isEmpty() || isBuiltinAlbum(album))
            continue;
        if (titles.size() < titlesInMessage)
            titles += quoted(album.title);
        else
            ++more;
    }
    if (titles.isEmpty())
        return QStringLiteral("the library has no album with a title");
    QString text = QStringLiteral("there are ") + titles.join(QStringLiteral(", "));
    if (more > 0)
        text += QStringLiteral(" and %1 more").arg(more);
    return text + QStringLiteral("; \"photolib albums DEVICE\" lists them all");
}

} // namespace

albumItem albumOf(photo_manager_int &library, qint64 id)
{
    albumItem album;
    album.trashedState = 0; // the one field that the record's constructor leaves alone
    library.getAlbumItem(&id, &album);
    return album;
}

QVector<albumItem> findAlbums(photo_manager_int &library, const QString &name)
{
    if (name.isEmpty())
        throw Failure{ExitUsage, QStringLiteral("--album names no album; give a title, an id or a UUID")};
    const Matches found = matchesOf(library, name);
    const QVector<albumItem> &named = found.byName.isEmpty() ? found.byLooseName : found.byName;
    if (!found.byId.isEmpty() && !named.isEmpty() && (named.size() > 1 || named.first().id != found.byId.first().id))
        throw Failure{ExitUsage, QStringLiteral("--album %1 is the id of one album and the title of another; give the "
                                                "album's UUID, which \"photolib albums DEVICE --csv\" shows")
                                     .arg(name)};
    if (!found.byId.isEmpty())
        return found.byId;
    if (named.isEmpty())
        throw Failure{ExitSomeFailed,
                      QStringLiteral("there is no album %1; %2").arg(quoted(name), existingAlbums(library))};
    return named;
}

} // namespace photocli
