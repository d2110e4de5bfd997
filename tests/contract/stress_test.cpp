// A host that uses the loaded library from many threads at once, for as long as PHOTOLIB_STRESS_SECONDS says (half a
// second without it). What the contract forbids, queries or media beside edits or beside an opening of the same
// manager, is not done: each round has its phases. The thread sanitizer runs over this program.

#include "exported_record.h"
#include "loaded_library.h"

#include "photolib/photolib.h"
#include "testing/fake_device.h"
#include "testing/library_builder.h"
#include "testing/log_recorder.h"
#include "testing/patience.h"

#include <QSet>

#include <gtest/gtest.h>

#include <mutex>

using testkit::FakeDevice;
using testkit::runTogether;

namespace
{

constexpr int threadCount = 8;
constexpr int photoCount = 6;
constexpr qint64 pictureInContainer = 1; // this photo has a small picture in the container only
constexpr qint64 sharedAlbum = 5;
constexpr char containerPath[] = "/PhotoData/Thumbnails/3309.ithmb";

QByteArray contentOf(qint64 photo)
{
    return QByteArray(20000 + static_cast<int>(photo), static_cast<char>('a' + photo));
}

QByteArray smallPictureOf(qint64 photo)
{
    return "JPEG " + QByteArray::number(photo);
}

/// One frame of 64 x 64 pixels and its trailer.
QByteArray container()
{
    QByteArray frame(64 * 64 * 2 + 28, '\0');
    frame[64 * 64 * 2 + 16] = 64;
    frame[64 * 64 * 2 + 20] = 64;
    return frame;
}

QByteArray database()
{
    testkit::BuilderOptions options;
    options.builtinAlbums = false;
    testkit::LibraryBuilder library(testkit::Era::Ios16, options);
    for (int i = 0; i < photoCount; ++i) {
        testkit::AssetRow photo;
        photo.directory = "Photos/x";
        photo.fileName = QString("IMG_%1.JPG").arg(i + 1);
        library.addAsset(photo);
    }
    testkit::AlbumRow album;
    album.key = sharedAlbum;
    album.kind = 1550;
    library.addAlbum(album);
    return library.bytes().database;
}

void fill(FakeDevice &device, const QByteArray &library)
{
    device.addFile("/PhotoData/Photos.sqlite", library);
    device.addFile(containerPath, container());
    for (qint64 id = 1; id <= photoCount; ++id) {
        device.addFile(QString("/Photos/x/IMG_%1.JPG").arg(id), contentOf(id));
        if (id != pictureInContainer)
            device.addFile(QString("/PhotoData/Thumbnails/V2/Photos/x/IMG_%1.JPG/5003.JPG").arg(id),
                           smallPictureOf(id));
    }
}

class Stress : public testing::Test
{
protected:
    Stress()
    {
        // Qt's codec and the C library's time zone are made on first use, with locks that the thread sanitizer does
        // not see.
        qputenv("TZ", "UTC");
        EXPECT_EQ(QString("warm").toLocal8Bit(), QByteArray("warm"));
    }

    /// Reads media while others cancel: every answer is whole or none.
    void readMedia(photo_manager_int *manager, int thread) const
    {
        for (qint64 id = 1; id <= photoCount; ++id) {
            QByteArray file("mine");
            const bool read = manager->readPhotoFile(&id, &file) == 1;
            EXPECT_EQ(file, read ? contentOf(id) : QByteArray("mine"));
            // One thread only asks for the picture in the container: its layout is the manager's.
            if (id == pictureInContainer && thread != 1)
                continue;
            QByteArray picture;
            const int result = manager->getThumbnail(&id, &picture);
            if (id != pictureInContainer) {
                EXPECT_TRUE(picture.isEmpty() || picture == smallPictureOf(id));
            } else if (result == 0) {
                EXPECT_TRUE(picture.isEmpty() || picture.size() == 54 + 64 * 64 * 3) << picture.size();
            }
        }
    }

    void query(photo_manager_int *manager) const
    {
        Exported<photoItem> photo(photoMembers);
        Exported<albumItem> album(albumMembers);
        for (const qint64 id : manager->getPhotoList())
            EXPECT_TRUE(manager->getPhotoItem(&id, photo.get()));
        for (const qint64 id : manager->getAlbumList())
            EXPECT_TRUE(manager->getAlbumItem(&id, album.get()));
        EXPECT_EQ(manager->getGroupKeys(28), QStringList(QStringLiteral("0")));
        EXPECT_FALSE(manager->getPhotoGroup(28, QStringLiteral("0")).assetIds.isEmpty());
        EXPECT_FALSE(manager->getLibraryUuid().isEmpty());
        EXPECT_EQ(manager->getPhotoCount(), manager->getPhotoList().size());
    }

    /// Makes an album and a photo that stay, and others that go.
    void edit(photo_manager_int *manager)
    {
        Exported<albumItem> kept(albumMembers);
        kept->trashedState = 0;
        EXPECT_EQ(manager->createAlbum(kept.get()), 0);
        Exported<photoItem> photo(photoMembers);
        EXPECT_EQ(manager->addPhotoToAlbum(photo.get(), kept.get()), 0);
        EXPECT_EQ(manager->addPhoto(photo.get(), &sharedAlbum), 0);
        kept->title = QString::number(photo->id);
        EXPECT_EQ(manager->updateAlbum(kept.get()), 0);
        Exported<albumItem> gone(albumMembers);
        gone->trashedState = 0;
        EXPECT_EQ(manager->createAlbum(gone.get()), 0);
        EXPECT_EQ(manager->deleteAlbum(&gone->id), 0);
        Exported<photoItem> passing(photoMembers);
        EXPECT_EQ(manager->addPhotoToAlbum(passing.get(), nullptr), 0);
        EXPECT_EQ(manager->deletePhoto(&passing->id), 0);

        const std::lock_guard<std::mutex> lock(mutex);
        for (const QByteArray &uuid : {kept->uuid, gone->uuid, photo->uuid, passing->uuid})
            uuids.insert(uuid);
        photos.insert(photo->id);
    }

    /// A manager of this thread's own, from beginning to end.
    void wholeLife(int thread) const
    {
        FakeDevice device(QString("fake:own-%1").arg(thread));
        fill(device, librarySource);
        photo_manager_int *manager = library.getPhotolib(&device);
        EXPECT_TRUE(manager->openLibrary());
        readMedia(manager, 1);
        query(manager);
        manager->cancel();
        library.releasePhotolib(&manager);
    }

    void openings(photo_manager_int *manager)
    {
        runTogether(threadCount, [&](int thread) {
            if (thread < 2) {
                EXPECT_TRUE(manager->openLibrary());
            } else if (thread < 4) {
                wholeLife(thread);
            } else if (thread < 6) {
                manager->cancel();
            } else {
                manager->isCancelled();
            }
        });
    }

    void reading(photo_manager_int *manager)
    {
        EXPECT_TRUE(manager->openLibrary()); // ends the request to cancel
        runTogether(threadCount, [&](int thread) {
            if (thread == 0)
                wholeLife(thread);
            else if (thread < 5)
                readMedia(manager, thread);
            else if (thread < 7)
                query(manager);
            else
                manager->cancel();
        });
        EXPECT_TRUE(manager->isCancelled());
    }

    void editing(photo_manager_int *manager)
    {
        runTogether(threadCount, [&](int thread) {
            if (thread == 0)
                wholeLife(thread);
            else if (thread == 1)
                manager->cancel();
            else
                edit(manager);
        });
    }

    void checkEdits(photo_manager_int *manager)
    {
        constexpr int editors = threadCount - 2;
        EXPECT_EQ(uuids.size(), 4 * editors);
        EXPECT_EQ(photos.size(), editors);
        EXPECT_EQ(manager->getPhotoCount(), photoCount + editors);
        EXPECT_EQ(manager->getAlbumCount(), 1 + editors);
        Exported<albumItem> shared(albumMembers);
        EXPECT_TRUE(manager->getAlbumItem(&sharedAlbum, shared.get()));
        EXPECT_EQ(QSet<qint64>(shared->photoIds.begin(), shared->photoIds.end()), photos);
        EXPECT_EQ(shared->photoIds.size(), editors);
    }

    const LoadedLibrary library;
    const ExportedMembers<photoItem> photoMembers{library, "9photoItem"};
    const ExportedMembers<albumItem> albumMembers{library, "9albumItem"};
    const QByteArray librarySource = database();
    std::mutex mutex; // guards the two sets
    QSet<QByteArray> uuids;
    QSet<qint64> photos;
};

std::chrono::milliseconds duration()
{
    bool given = false;
    const int seconds = qEnvironmentVariableIntValue("PHOTOLIB_STRESS_SECONDS", &given);
    return given ? std::chrono::seconds(seconds) : std::chrono::milliseconds(500);
}

} // namespace

TEST_F(Stress, WhatTheContractAllowsIsSafeFromManyThreadsAtOnce)
{
    testkit::LogRecorder log;
    const auto end = std::chrono::steady_clock::now() + duration();
    do {
        FakeDevice device("fake:shared");
        fill(device, librarySource);
        photo_manager_int *manager = library.getPhotolib(&device);
        openings(manager);
        reading(manager);
        uuids.clear();
        photos.clear();
        editing(manager);
        checkEdits(manager);
        library.releasePhotolib(&manager);
        log.takeAll();
    } while (!HasFailure() && std::chrono::steady_clock::now() < end);
}
