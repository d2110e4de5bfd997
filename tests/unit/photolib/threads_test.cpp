// What a host may do from several threads at once, to one manager. The thread sanitizer runs over this program.

#include "testing/patience.h"
#include "tests/unit/photolib/edited_library.h"

#include <QSet>

#include <array>
#include <atomic>
#include <mutex>
#include <vector>

using testkit::comesTrue;
using testkit::ends;
using testkit::Operation;
using testkit::OperationKind;
using testkit::runTogether;

namespace
{

constexpr int threadCount = 8;

class Threads : public EditedLibrary
{
protected:
    /// What one thread may do to albums and photos beside others that do the same.
    void edit(int rounds, QList<QByteArray> *uuids, QList<qint64> *photos)
    {
        const qint64 shared = 7;
        for (int round = 0; round < rounds; ++round) {
            albumItem own;
            own.trashedState = 0;
            EXPECT_EQ(manager->createAlbum(&own), 0);
            photoItem photo;
            EXPECT_EQ(manager->addPhotoToAlbum(&photo, &own), 0);
            EXPECT_EQ(manager->addPhoto(&photo, &shared), 0);
            own.title = QString::number(photo.id);
            EXPECT_EQ(manager->updateAlbum(&own), 0);
            photoItem passing;
            EXPECT_EQ(manager->addPhotoToAlbum(&passing, nullptr), 0);
            EXPECT_EQ(manager->deletePhoto(&passing.id), 0);
            albumItem gone;
            gone.trashedState = 0;
            EXPECT_EQ(manager->createAlbum(&gone), 0);
            EXPECT_EQ(manager->deleteAlbum(&gone.id), 0);
            uuids->append(own.uuid);
            uuids->append(photo.uuid);
            uuids->append(passing.uuid);
            uuids->append(gone.uuid);
            photos->append(photo.id);
        }
    }

    void addMedia()
    {
        for (const qint64 id : {1, 2, 3, 4}) {
            const photoItem item = photo(id);
            device.addFile(QString("/%1/%2").arg(item.directory, item.fileName), contentOf(id));
            device.addFile(QString("/PhotoData/Thumbnails/V2/%1/%2/5005.JPG").arg(item.directory, item.fileName),
                           pictureOf(id));
        }
    }

    static QByteArray contentOf(qint64 id) { return QByteArray(5000, static_cast<char>('a' + id)); }
    static QByteArray pictureOf(qint64 id) { return QByteArray(50, static_cast<char>('A' + id)); }

    /// All slots that only look.
    void query() const
    {
        EXPECT_FALSE(manager->getLibraryUuid().isEmpty());
        EXPECT_EQ(manager->getPhotoCount(), 4);
        EXPECT_EQ(manager->getPhotoList(), (QList<qint64>{1, 2, 3, 4}));
        EXPECT_EQ(photo(3).uuid, QByteArray("PHOTO-3"));
        EXPECT_EQ(manager->getAlbumCount(), 2);
        EXPECT_EQ(manager->getAlbumList(), (QList<qint64>{5, 7}));
        EXPECT_EQ(album(5).photoIds, (QList<qint64>{1, 2}));
        EXPECT_EQ(manager->getGroupKeys(28), QStringList{"0"});
        EXPECT_EQ(syncedPhotos(), (QList<qint64>{1, 2}));
    }

    void readFile(qint64 id) const
    {
        QByteArray content;
        EXPECT_EQ(manager->readPhotoFile(&id, &content), 1);
        EXPECT_EQ(content, contentOf(id));
    }

    void readThumbnail(qint64 id) const
    {
        QByteArray picture;
        EXPECT_EQ(manager->getThumbnail(&id, &picture), 0);
        EXPECT_EQ(picture, pictureOf(id));
    }

    /// Does `others` on another thread while the first read of `reader` waits for it.
    void runInside(const std::function<void()> &reader, const std::function<void()> &others)
    {
        std::atomic<bool> met{false};
        device.onOperation([&](const Operation &operation) {
            if (operation.kind != OperationKind::Read || met.exchange(true))
                return;
            auto run = std::async(std::launch::async, others);
            EXPECT_TRUE(ends(run)) << "waits for the read";
        });
        reader();
        device.onOperation({});
        EXPECT_TRUE(met);
    }
};

} // namespace

TEST_F(Threads, NoEditOfSeveralThreadsIsLost)
{
    constexpr int rounds = 10;
    std::array<QList<QByteArray>, threadCount> uuids;
    std::array<QList<qint64>, threadCount> photos;
    runTogether(threadCount, [&](int thread) {
        const auto index = static_cast<std::size_t>(thread);
        edit(rounds, &uuids[index], &photos[index]);
    });

    QSet<QByteArray> allUuids;
    QSet<qint64> allPhotos{1, 2, 3, 4};
    for (std::size_t thread = 0; thread < threadCount; ++thread) {
        allUuids += QSet<QByteArray>(uuids[thread].begin(), uuids[thread].end());
        allPhotos += QSet<qint64>(photos[thread].begin(), photos[thread].end());
    }
    constexpr int made = threadCount * rounds;
    EXPECT_EQ(allUuids.size(), 4 * made);
    EXPECT_EQ(allPhotos.size(), 4 + made);
    const QList<qint64> listed = manager->getPhotoList();
    EXPECT_EQ(QSet<qint64>(listed.begin(), listed.end()), allPhotos);
    EXPECT_EQ(manager->getAlbumCount(), 2 + made);
    EXPECT_EQ(album(7).photoIds.size(), 1 + made);
    for (const qint64 id : manager->getAlbumList()) {
        if (id < nextAlbum)
            continue;
        const albumItem own = album(id);
        ASSERT_EQ(own.photoIds.size(), 1);
        EXPECT_EQ(own.title, QString::number(own.photoIds.first()));
    }
}

TEST_F(Threads, EachPhotoOfTheSyncedGroupIsRemovedOnceByWhicheverThreadIsFirst)
{
    runTogether(threadCount, [this](int) {
        for (const qint64 id : {1, 2, 3, 4})
            EXPECT_EQ(manager->deletePhoto(&id), 0);
    });
    EXPECT_TRUE(manager->getPhotoList().isEmpty());
    EXPECT_TRUE(syncedPhotos().isEmpty());
}

TEST_F(Threads, AllCancelsWaitForTheEndOfARunningOpening)
{
    std::vector<std::future<int>> cancels;
    std::atomic<int> inside{0};
    bool anyReady = false;
    device.onOperation([&](const Operation &operation) {
        if (operation.kind != OperationKind::OpenFile || !cancels.empty())
            return;
        for (int i = 0; i < threadCount; ++i) {
            cancels.push_back(std::async(std::launch::async, [&] {
                ++inside;
                manager->cancel();
                return device.operationCount();
            }));
        }
        EXPECT_TRUE(comesTrue([&] { return inside == threadCount && manager->isCancelled(); }));
        std::this_thread::sleep_for(testkit::opportunity);
        for (const auto &cancel : cancels)
            anyReady = anyReady || cancel.wait_for(std::chrono::seconds(0)) == std::future_status::ready;
    });
    EXPECT_TRUE(manager->openLibrary());
    for (auto &cancel : cancels) {
        ASSERT_TRUE(ends(cancel));
        EXPECT_EQ(cancel.get(), device.operationCount()) << "a cancel returned before the last operation";
    }
    EXPECT_FALSE(anyReady);
    EXPECT_EQ(probe.busySemaphore().available(), 1);
    EXPECT_TRUE(manager->isCancelled());
    log.takeAll();
}

TEST_F(Threads, QueriesRunBesideOneAnotherAndBesideCancel)
{
    constexpr int rounds = 50;
    runTogether(threadCount, [this](int thread) {
        for (int round = 0; round < rounds; ++round) {
            if (thread == 0) {
                manager->cancel();
                EXPECT_TRUE(manager->isCancelled());
                continue;
            }
            query();
            manager->isCancelled();
        }
    });
}

TEST_F(Threads, MediaReadsAndQueriesRunBesideOneAnother)
{
    constexpr int rounds = 20;
    addMedia();
    runTogether(threadCount, [this](int thread) {
        for (int round = 0; round < rounds; ++round) {
            if (thread == 0)
                readThumbnail(1 + round % 4);
            else if (thread < 4)
                readFile(1 + (thread + round) % 4);
            else
                query();
            EXPECT_FALSE(manager->isCancelled());
        }
    });
}

TEST_F(Threads, NothingWaitsForARunningReadOfAFile)
{
    addMedia();
    runInside([this] { readFile(1); },
              [this] {
                  query();
                  readFile(1);
                  readFile(2);
                  readThumbnail(3);
                  EXPECT_FALSE(manager->isCancelled());
                  manager->cancel();
                  EXPECT_TRUE(manager->isCancelled());
              });
}

TEST_F(Threads, NothingWaitsForARunningThumbnail)
{
    addMedia();
    runInside([this] { readThumbnail(1); },
              [this] {
                  query();
                  readFile(1);
                  readFile(2);
                  EXPECT_FALSE(manager->isCancelled());
                  manager->cancel();
                  EXPECT_TRUE(manager->isCancelled());
              });
}

// A request to cancel ends media reads, each with all or with nothing.
TEST_F(Threads, CancelEndsMediaReadsOfSeveralThreads)
{
    addMedia();
    runTogether(threadCount, [this](int thread) {
        const qint64 id = 1 + thread % 4;
        QByteArray content;
        if (thread == 0) {
            std::this_thread::sleep_for(std::chrono::milliseconds(5));
            manager->cancel();
        } else if (thread == 1) {
            EXPECT_TRUE(comesTrue([&] {
                content.clear();
                return manager->getThumbnail(&id, &content) != 0 || content.isEmpty();
            }));
            EXPECT_TRUE(content.isEmpty());
        } else {
            EXPECT_TRUE(comesTrue([&] {
                content.clear();
                const bool read = manager->readPhotoFile(&id, &content) == 1;
                EXPECT_EQ(content, read ? contentOf(id) : QByteArray());
                return !read;
            }));
        }
    });
    EXPECT_TRUE(manager->isCancelled());
}

TEST_F(Threads, EditsRunBesideCancelAndItsQuery)
{
    constexpr int rounds = 10;
    std::array<QList<QByteArray>, threadCount> uuids;
    std::array<QList<qint64>, threadCount> photos;
    runTogether(threadCount, [&](int thread) {
        const auto index = static_cast<std::size_t>(thread);
        if (thread > 1)
            return edit(rounds, &uuids[index], &photos[index]);
        for (int round = 0; round < 50; ++round) {
            if (thread == 0)
                manager->cancel();
            else
                manager->isCancelled();
        }
    });
    EXPECT_TRUE(manager->isCancelled());
    EXPECT_EQ(manager->getPhotoCount(), 4 + (threadCount - 2) * rounds);
    EXPECT_EQ(manager->getAlbumCount(), 2 + (threadCount - 2) * rounds);
}

TEST_F(Threads, OpeningsAndCancelsOfOneManagerTakeTurns)
{
    constexpr int rounds = 3;
    std::mutex mutex;
    std::vector<std::thread::id> threads; // of each operation, in order
    device.onOperation([&](const Operation &) {
        const std::lock_guard<std::mutex> lock(mutex);
        threads.push_back(std::this_thread::get_id());
    });
    ASSERT_TRUE(manager->openLibrary());
    const std::size_t length = threads.size(); // of one opening
    runTogether(4, [this](int thread) {
        for (int round = 0; round < rounds; ++round) {
            if (thread < 2) {
                EXPECT_TRUE(manager->openLibrary());
            } else {
                manager->cancel();
            }
        }
    });
    device.onOperation({});
    constexpr int openings = 1 + 2 * rounds;
    ASSERT_EQ(threads.size(), length * openings);
    for (std::size_t i = 0; i < threads.size(); ++i)
        ASSERT_EQ(threads[i], threads[i - i % length]) << "operation " << i << " is of another opening";
    EXPECT_EQ(syncedPhotos().size(), 2 * (1 + openings)) << "each opening lists the photos again";
    EXPECT_EQ(manager->getPhotoCount(), 4);
    log.takeAll();
}
