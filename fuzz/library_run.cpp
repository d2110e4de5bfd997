#include "fuzz/library_run.h"

#include "devicehost/device_host.h"
#include "fuzz/device_folder.h"
#include "fuzz/require.h"
#include "photolib/photolib.h"

#include <algorithm>
#include <memory>

namespace fuzz
{

namespace
{

// All ids are looked up; pictures and files are read for some only, as they open the device several times each.
constexpr int mediaReads = 3;
constexpr int lastCategory = 32;

struct Release {
    void operator()(photo_manager_int *manager) const { releasePhotolib(&manager); }
};
using Manager = std::unique_ptr<photo_manager_int, Release>;

void checkInside(const QByteArray &content)
{
    require(!content.contains(DeviceFolder::forbiddenContent()), "no file outside of the device is read");
}

void readMedia(photo_manager_int &manager, qint64 id)
{
    QByteArray thumbnail;
    const int thumbnailResult = manager.getThumbnail(&id, &thumbnail);
    require(thumbnailResult == 0 || thumbnailResult == -1, "getThumbnail answers 0 or -1");
    checkInside(thumbnail);
    QByteArray content;
    const int fileResult = manager.readPhotoFile(&id, &content);
    require(fileResult >= -1 && fileResult <= 1, "readPhotoFile answers 1, 0 or -1");
    checkInside(content);
}

void askPhotos(photo_manager_int &manager)
{
    const QList<qint64> ids = manager.getPhotoList();
    require(manager.getPhotoCount() == ids.size(), "as many photos are counted as are listed");
    int reads = 0;
    for (const qint64 id : ids) {
        photoItem photo;
        require(manager.getPhotoItem(&id, &photo) && photo.id == id, "a listed photo is found under its id");
        require(!photo.fileName.trimmed().isEmpty(), "a photo has a file name");
        if (reads++ < mediaReads)
            readMedia(manager, id);
    }
    const qint64 absent = 0x7fffffffffffLL;
    photoItem photo;
    require(!manager.getPhotoItem(&absent, &photo), "an id that no row can have is not found");
}

void askAlbums(photo_manager_int &manager)
{
    const QList<qint64> ids = manager.getAlbumList();
    require(manager.getAlbumCount() == ids.size(), "as many albums are counted as are listed");
    for (const qint64 id : ids) {
        albumItem album;
        require(manager.getAlbumItem(&id, &album) && album.id == id, "a listed album is found under its id");
        QList<qint64> members = album.photoIds;
        std::sort(members.begin(), members.end());
        require(std::adjacent_find(members.begin(), members.end()) == members.end(),
                "an album as read lists each photo once");
    }
}

// Only the group of synced photos hears of edits, and may become empty by one.
constexpr int syncedCategory = 28;

void askGroups(photo_manager_int &manager)
{
    for (int category = 0; category <= lastCategory; ++category) {
        for (const QString &key : manager.getGroupKeys(category)) {
            const photoGroup group = manager.getPhotoGroup(category, key);
            require(group.category == category && group.key == key, "a listed group is found under its key");
            require(!group.assetIds.isEmpty() || category == syncedCategory, "a group has a photo");
        }
    }
}

void editAlbums(photo_manager_int &manager)
{
    albumItem album;
    album.trashedState = 0;
    album.title = QStringLiteral("made");
    require(manager.createAlbum(&album) == 0, "an album can be made");
    photoItem photo;
    photo.fileName = QStringLiteral("IMG_9999.JPG");
    photo.directory = QStringLiteral("DCIM/100APPLE");
    require(manager.addPhotoToAlbum(&photo, &album) == 0, "a photo can be added");
    albumItem stored;
    require(manager.getAlbumItem(&album.id, &stored) && stored.uuid == album.uuid && stored.photoIds == album.photoIds,
            "an album that was made is found as it was made");
    photoItem storedPhoto;
    require(manager.getPhotoItem(&photo.id, &storedPhoto) && storedPhoto.uuid == photo.uuid,
            "a photo that was added is found");
    stored.title = QStringLiteral("renamed");
    require(manager.updateAlbum(&stored) == 0 && manager.deletePhoto(&photo.id) == 0, "edits are accepted");
    require(!manager.getPhotoItem(&photo.id, &storedPhoto), "a deleted photo is gone");
    require(manager.deleteAlbum(&album.id) == 0 && !manager.getAlbumList().contains(album.id),
            "an album that was made can be deleted");
}

void editWhatWasRead(photo_manager_int &manager)
{
    for (const qint64 id : manager.getAlbumList()) {
        albumItem album;
        photoItem photo;
        manager.getAlbumItem(&id, &album);
        manager.addPhoto(&photo, &id);
        manager.updateAlbum(&album);
        manager.deleteAlbum(&id);
    }
    for (const qint64 id : manager.getPhotoList())
        manager.deletePhoto(&id);
    require(manager.getPhotoCount() == 0, "every photo can be deleted");
}

} // namespace

void runLibrary(const QString &deviceName)
{
    devicehost::DeviceHost host(deviceName);
    const Manager manager(getPhotolib(&host));
    require(manager != nullptr, "the device is available");
    const bool opened = manager->openLibrary();
    require(opened || !host.failure().isEmpty(), "the host can say why a library was not opened");
    manager->getLibraryUuid();
    askPhotos(*manager);
    askAlbums(*manager);
    askGroups(*manager);
    if (opened) {
        editAlbums(*manager);
        editWhatWasRead(*manager);
        askGroups(*manager);
    }
}

} // namespace fuzz
