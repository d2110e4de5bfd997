#ifndef TESTS_CLI_FAKE_LIBRARY_H
#define TESTS_CLI_FAKE_LIBRARY_H

#include "photolib/photolib.h"

#include <QMap>

namespace photocli
{

/// A library made of the records that a test puts into it.
class FakeLibrary : public photo_manager_int
{
public:
    FakeLibrary() : photo_manager_int(nullptr) {}

    photoItem &addPhoto(qint64 id)
    {
        photoItem &photo = photos[id];
        photo.id = id;
        photo.uuid = "UUID-" + QByteArray::number(id);
        return photo;
    }

    albumItem &addAlbum(qint64 id, const QString &title, const QList<qint64> &ids)
    {
        albumItem &album = albums[id];
        album.id = id;
        album.kind = 2;
        album.trashedState = 0;
        album.uuid = "ALBUM-" + QByteArray::number(id);
        album.title = title;
        album.photoIds = ids;
        return album;
    }

    void addGroup(int category, const QString &key, const QList<qint64> &ids)
    {
        photoGroup group;
        group.category = category;
        group.key = key;
        group.assetIds = ids;
        groups[category][key] = group;
    }

    bool openLibrary() override { return true; }
    void cancel() override {}
    bool isCancelled() override { return false; }
    QString getLibraryUuid() override { return QStringLiteral("FAKE"); }
    int getPhotoCount() override { return photos.size(); }
    QList<qint64> getPhotoList() override { return photos.keys(); }
    bool getPhotoItem(const qint64 *photoId, photoItem *out) override
    {
        const auto found = photos.constFind(*photoId);
        if (found == photos.constEnd())
            return false;
        *out = *found;
        return true;
    }
    int getThumbnail(const qint64 *, QByteArray *) override { return 0; }
    int readPhotoFile(const qint64 *, QByteArray *) override { return 0; }
    int getAlbumCount() override { return albums.size(); }
    QList<qint64> getAlbumList() override { return albums.keys(); }
    bool getAlbumItem(const qint64 *albumId, albumItem *out) override
    {
        const auto found = albums.constFind(*albumId);
        if (found == albums.constEnd())
            return true;
        *out = *found;
        out->kind = found->kind;
        out->trashedState = found->trashedState;
        return true;
    }
    int addPhotoToAlbum(photoItem *, albumItem *) override { return -1; }
    int addPhoto(photoItem *, const qint64 *) override { return -1; }
    int createAlbum(albumItem *) override { return -1; }
    int deleteAlbum(const qint64 *) override { return -1; }
    int updateAlbum(albumItem *) override { return -1; }
    int deletePhoto(const qint64 *) override { return 0; }
    QStringList getGroupKeys(int category) override { return groups.value(category).keys(); }
    photoGroup getPhotoGroup(int category, const QString &key) override { return groups.value(category).value(key); }

private:
    QMap<qint64, photoItem> photos;
    QMap<qint64, albumItem> albums;
    QMap<int, QMap<QString, photoGroup>> groups;
};

} // namespace photocli

#endif
