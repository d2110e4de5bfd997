#include "contract_host.h"
#include "handmade_device.h"
#include "loaded_library.h"
#include "made_library.h"

#include "photolib/photolib.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>

#include <thread>

#include <malloc.h>

// A host may load the library for each device and unload it again. Nothing may stay: a leak of the library's is a leak
// of the application's. When the leak checker names no function, as the library is gone by then, load it with
// RTLD_NODELETE while you look for the leak.

namespace
{

/// What a process holds.
struct Resources {
    std::size_t heapBytes;
    int mappings; ///< regions of memory
    int descriptors;
    int threads;
};

int entriesOf(const char *folder)
{
    return QDir(QLatin1String(folder)).entryList(QDir::AllEntries | QDir::System | QDir::NoDotAndDotDot).size();
}

QByteArray mappings()
{
    QFile file(QStringLiteral("/proc/self/maps"));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

Resources resources()
{
    Resources now{};
    now.descriptors = entriesOf("/proc/self/fd");
    now.threads = entriesOf("/proc/self/task");
#if !defined(__SANITIZE_ADDRESS__) // which has a heap of its own, and its leak checker judges that
    now.mappings = mappings().count('\n');
    const struct mallinfo2 heap = mallinfo2();
    now.heapBytes = heap.uordblks + heap.hblkhd;
#endif
    return now;
}

class Reload : public testing::Test
{
protected:
    Reload() { host.deviceFiles.insert("/PhotoData/Photos.sqlite", makeLibrary(device.folder.path())); }

    // One life of the library in this process.
    void loadUseAndUnload(bool open)
    {
        LoadedLibrary library;
        photo_manager_int *manager = library.getPhotolib(device.get());
        ASSERT_NE(manager, nullptr);
        if (open)
            use(manager);
        library.releasePhotolib(&manager);
        host.log.clear();
    }

    void use(photo_manager_int *manager)
    {
        ASSERT_TRUE(manager->openLibrary());
        const qint64 photo = 7;
        QByteArray bytes;
        EXPECT_EQ(manager->getPhotoList(), QList<qint64>({7, 9}));
        EXPECT_EQ(manager->getPhotoGroup(28, QStringLiteral("0")).assetIds, QList<qint64>({9}));
        manager->getThumbnail(&photo, &bytes);
        manager->readPhotoFile(&photo, &bytes);
        manager->deletePhoto(&photo);
        EXPECT_EQ(host.openHandles, 0);
    }

    ContractHost host;
    HandmadeDevice device;
};

} // namespace

TEST_F(Reload, AThousandLoadsAndUnloadsLeaveNothingBehind)
{
    const auto rounds = [this](int count) {
        for (int round = 0; round < count; ++round) {
            loadUseAndUnload(round % 10 == 0);
            ASSERT_FALSE(LoadedLibrary::isLoaded()) << "round " << round;
        }
    };
    // On threads of their own, as freed memory that a thread's cache holds back counts as in use.
    std::thread([&] { rounds(20); }).join(); // Qt, SQLite and the C library set themselves up
    const Resources before = resources();
    std::thread([&] { rounds(1000); }).join();
    const Resources after = resources();
    EXPECT_LE(after.heapBytes, before.heapBytes + 1000); // the smallest block that each opening could lose makes 2400
    EXPECT_EQ(after.mappings, before.mappings);
    EXPECT_EQ(after.descriptors, before.descriptors);
    EXPECT_EQ(after.threads, before.threads);
}

TEST_F(Reload, AnUnloadedLibraryIsNoLongerMapped)
{
    const QByteArray name("libphotolib.so");
    {
        LoadedLibrary library;
        ASSERT_TRUE(mappings().contains(name));
    }
    EXPECT_FALSE(mappings().contains(name));
}

TEST_F(Reload, AnswersOutliveTheLibraryThatGaveThem)
{
    QStringList keys;
    photoGroup group;
    QString uuid;
    QList<qint64> photos;
    {
        LoadedLibrary library;
        photo_manager_int *manager = library.getPhotolib(device.get());
        ASSERT_TRUE(manager->openLibrary());
        keys = manager->getGroupKeys(28);
        group = manager->getPhotoGroup(28, QStringLiteral("0"));
        uuid = manager->getLibraryUuid();
        photos = manager->getPhotoList();
        library.releasePhotolib(&manager);
    }
    ASSERT_FALSE(LoadedLibrary::isLoaded());
    EXPECT_EQ(keys, QStringList(QStringLiteral("0")));
    EXPECT_EQ(group.key, QStringLiteral("0"));
    EXPECT_EQ(group.assetIds, QList<qint64>({9}));
    EXPECT_EQ(uuid, QStringLiteral("DATABASE-UUID"));
    EXPECT_EQ(photos, QList<qint64>({7, 9}));
}
