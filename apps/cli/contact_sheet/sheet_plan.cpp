#include "apps/cli/contact_sheet/sheet_plan.h"

#include "apps/cli/album_kinds.h"
#include "apps/cli/categories.h"
#include "apps/cli/contact_sheet/group_title.h"
#include "apps/cli/output/value_text.h"
#include "apps/cli/selection/album_lookup.h"

#include <QSet>

namespace photocli
{

namespace
{

QList<qint64> members(photo_manager_int &library, const SheetGroup &group)
{
    return group.albumId != 0 ? albumOf(library, group.albumId).photoIds
                              : library.getPhotoGroup(group.category, group.key).assetIds;
}

class Planner
{
public:
    Planner(photo_manager_int &photoLibrary, const SelectionRequest &selection)
        : library(photoLibrary), request(selection)
    {
    }

    SheetPlan make()
    {
        choosePhotos();
        const bool namesNone = request.albums.isEmpty() && request.groups.isEmpty();
        // What holds nearly everything comes first, as people begin with it.
        if (namesNone || !request.groups.isEmpty()) {
            addCategory(photosCategory);
            addCategory(videosCategory);
        }
        if (namesNone || !request.albums.isEmpty())
            addAlbums();
        if (namesNone || !request.groups.isEmpty()) {
            for (const Category &category : categories()) {
                if (category.code != photosCategory && category.code != videosCategory)
                    addCategory(category.code);
            }
        }
        addLoosePhotos();
        return std::move(plan);
    }

private:
    void choosePhotos()
    {
        const Selection selection(library, request);
        selection.forEach([this](const photoItem &photo) {
            plan.photos.insert(photo.id);
            order += photo.id;
            if (isRealDate(photo.dateCreated)) {
                if (plan.firstDate.isNull() || photo.dateCreated < plan.firstDate)
                    plan.firstDate = photo.dateCreated;
                if (plan.lastDate.isNull() || photo.dateCreated > plan.lastDate)
                    plan.lastDate = photo.dateCreated;
            }
            return true;
        });
    }

    void addGroup(SheetSection &section, SheetGroup group)
    {
        const QList<qint64> ids = photosOf(library, plan, group);
        group.photos = ids.size();
        if (group.photos == 0)
            return;
        if (group.category != 0)
            group.title = groupTitle(library, group.category, group.key, ids.first());
        for (const qint64 id : ids)
            placed.insert(id);
        section.photos += group.photos;
        section.groups += group;
    }

    void addSection(const SheetSection &section)
    {
        if (!section.groups.isEmpty())
            plan.sections += section;
    }

    QStringList wantedKeys(int code)
    {
        if (request.groups.isEmpty())
            return library.getGroupKeys(code);
        QSet<QString> wanted;
        for (const GroupName &name : qAsConst(request.groups)) {
            if (name.category != code)
                continue;
            for (const QString &key : groupKeys(library, name))
                wanted.insert(key);
        }
        QStringList keys;
        for (const QString &key : library.getGroupKeys(code)) {
            if (wanted.contains(key))
                keys += key;
        }
        return keys;
    }

    void addCategory(int code)
    {
        SheetSection section;
        section.title = categoryTitle(code);
        for (const QString &key : wantedKeys(code))
            addGroup(section, {code, key, 0, {}, 0});
        addSection(section);
    }

    QVector<albumItem> wantedAlbums()
    {
        QVector<albumItem> albums;
        for (const QString &name : qAsConst(request.albums)) {
            const QVector<albumItem> found = findAlbums(library, name); // one by one: gcc warns of += at -O3
            for (const albumItem &album : found)
                albums += album;
        }
        if (!request.albums.isEmpty())
            return albums;
        for (const qint64 id : library.getAlbumList()) {
            const albumItem album = albumOf(library, id);
            if (!isBuiltinAlbum(album) && !album.title.isEmpty() && album.trashedState != 1)
                albums += album;
        }
        return albums;
    }

    void addAlbums()
    {
        SheetSection section;
        section.title = QStringLiteral("Albums");
        IdSet seen;
        for (const albumItem &album : wantedAlbums()) {
            if (seen.contains(album.id))
                continue;
            seen.insert(album.id);
            const QString title = album.title.isEmpty() ? QStringLiteral("Album %1").arg(album.id) : album.title;
            addGroup(section, {0, {}, album.id, title, 0});
        }
        addSection(section);
    }

    void addLoosePhotos()
    {
        for (const qint64 id : qAsConst(order)) {
            if (!placed.contains(id))
                plan.loose += id;
        }
        if (plan.loose.isEmpty())
            return;
        SheetSection section;
        section.title = QStringLiteral("In no group");
        section.photos = plan.loose.size();
        section.groups += SheetGroup{0, {}, 0, {}, section.photos};
        plan.sections += section;
    }

    photo_manager_int &library;
    const SelectionRequest &request;
    SheetPlan plan;
    QList<qint64> order;
    IdSet placed;
};

} // namespace

SheetPlan planSheet(photo_manager_int &library, const SelectionRequest &request)
{
    return Planner(library, request).make();
}

QList<qint64> photosOf(photo_manager_int &library, const SheetPlan &plan, const SheetGroup &group)
{
    if (group.category == 0 && group.albumId == 0)
        return plan.loose;
    QList<qint64> shown;
    IdSet seen;
    for (const qint64 id : members(library, group)) {
        if (!plan.photos.contains(id) || seen.contains(id))
            continue;
        seen.insert(id);
        shown += id;
    }
    return shown;
}

} // namespace photocli
