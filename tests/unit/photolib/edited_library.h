#ifndef TESTS_UNIT_PHOTOLIB_EDITED_LIBRARY_H
#define TESTS_UNIT_PHOTOLIB_EDITED_LIBRARY_H

#include "testing/log_recorder.h"
#include "tests/unit/photolib/made_library.h"
#include "tests/unit/photolib/photo_manager_probe.h"

#include <gtest/gtest.h>

#include <thread>

/// An open library to edit: photos 1 to 4, of which 1 and 2 are synced (group 28, "0"); album 5 (kind 2) holds 1 and
/// 2, the user album 7 (kind 1550, trashed state 3) holds 3. The next photo is 41, the next album 31. A test must
/// consume every line that its edits log.
class EditedLibrary : public testing::Test
{
protected:
    EditedLibrary()
    {
        for (const qint64 key : {1, 2, 3, 4}) {
            testkit::AssetRow photo;
            photo.key = key;
            photo.directory = key < 3 ? "Photos/x" : "DCIM/100APPLE";
            photo.uuid = QString("PHOTO-%1").arg(key);
            library.addAsset(photo);
        }
        for (const qint64 key : {5, 7}) {
            testkit::AlbumRow album;
            album.key = key;
            album.kind = key == 5 ? 2 : 1550;
            album.title = QString("Album %1").arg(key);
            album.uuid = QString("ALBUM-%1").arg(key);
            album.entity = library.facts().album;
            album.trashedState = key == 7 ? 3 : 0;
            library.addAlbum(album);
        }
        for (const qint64 member : {1, 2})
            library.addToAlbum(5, member);
        library.addToAlbum(7, 3);
        library.setEntityMax("Asset", 40);
        library.setEntityMax("GenericAlbum", 30);
        putOn(device, library);
        EXPECT_TRUE(manager->openLibrary());
        log.takeAll();
        device.clearOperations();
    }

    photoItem photo(qint64 id) const
    {
        photoItem item;
        EXPECT_TRUE(manager->getPhotoItem(&id, &item)) << id;
        return item;
    }

    albumItem album(qint64 id) const
    {
        albumItem item;
        item.id = unknownId; // getAlbumItem() is true for an unknown album
        EXPECT_TRUE(manager->getAlbumItem(&id, &item));
        EXPECT_EQ(item.id, id);
        return item;
    }

    QList<qint64> syncedPhotos() const { return manager->getPhotoGroup(28, "0").assetIds; }

    static constexpr qint64 unknownId = 12345;
    static constexpr qint64 nextPhoto = 41;
    static constexpr qint64 nextAlbum = 31;

    testkit::LogRecorder log;
    testkit::FakeDevice device;
    testkit::LibraryBuilder library{testkit::Era::Ios16, bareLibrary()};
    const Manager manager = makeManager(device);
    PhotoManagerProbe probe{implementationOf(manager)};
};

/// Whether another thread holds the mutex now.
inline bool isHeld(QMutex &mutex)
{
    bool free = false;
    std::thread([&] {
        free = mutex.tryLock();
        if (free)
            mutex.unlock();
    }).join();
    return !free;
}

#endif
