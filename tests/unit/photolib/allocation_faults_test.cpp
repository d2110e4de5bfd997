// Memory that runs short anywhere: no exception crosses the interface, nothing is lost, and the manager stays usable.
// With the reference host, so that its functions are held to the same.

#include "devicehost/device_host.h"
#include "devicehost/log_sink.h"
#include "photolib/photolib.h"
#include "testing/library_builder.h"
#include "tests/unit/photolib/allocation_faults.h"
#include "tests/unit/photolib/media/containers.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <dlfcn.h>

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <tuple>
#include <vector>

// Stands before the parser of property lists, libplist, which does not look whether its own allocations fail: it then
// writes to a null pointer or frees twice. All that the library does around it is held to the rules.
extern "C" void plist_from_xml(const char *xml, std::uint32_t length, void **result)
{
    using Parser = void (*)(const char *, std::uint32_t, void **);
    const AllocationPause pause;
    static const auto parse = reinterpret_cast<Parser>(::dlsym(RTLD_NEXT, "plist_from_xml"));
    parse(xml, length, result);
}

namespace
{

constexpr char currentUuid[] = "1B4E28BA-2FA1-11D2-883F-0016D3CCA427";

/// A device folder with one of everything that is read.
class SmallDevice
{
public:
    SmallDevice()
    {
        testkit::BuilderOptions options;
        options.builtinAlbums = false;
        options.indices = false;
        testkit::LibraryBuilder builder(testkit::Era::Ios15, options);
        testkit::AssetRow asset;
        asset.latitude = 50.5;
        asset.longitude = 8.25;
        asset.avalancheUuid = QStringLiteral("burst");
        const qint64 photo = builder.addAsset(asset);
        testkit::AlbumRow album;
        album.title = QStringLiteral("A title that is longer than a short one");
        builder.addToAlbum(builder.addAlbum(album), photo);
        testkit::FaceRow face;
        face.asset = photo;
        face.faceGroup = 3;
        face.crop = 1;
        builder.addFace(face);
        testkit::MemoryRow memory;
        memory.title = QStringLiteral("Memory");
        builder.addMemory(memory);
        QDir().mkpath(path(QStringLiteral("PhotoData/Thumbnails")));
        QDir().mkpath(path(QStringLiteral("DCIM/100APPLE")));
        QDir().mkpath(path(QStringLiteral("Photos/Sync")));
        builder.write(path(QStringLiteral("PhotoData/Photos.sqlite")));
        write(QStringLiteral("Photos/Sync/CurrentLibraryUUID.plist"),
              "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<plist version=\"1.0\"><dict><key>libraryUUID</key>"
              "<string>" +
                  QByteArray(currentUuid) + "</string></dict></plist>\n");
        write(QStringLiteral("DCIM/100APPLE/IMG_0001.JPG"), QByteArray(200000, 'p'));
        write(QStringLiteral("PhotoData/Thumbnails/3309.ithmb"), QByteArray(8192, '\x55') + trailerOf(64, 64));
    }

    QString name() const { return QStringLiteral("folder:") + folder.path(); }

private:
    QString path(const QString &file) const { return folder.filePath(file); }

    void write(const QString &file, const QByteArray &content) const
    {
        QFile out(path(file));
        if (!out.open(QIODevice::WriteOnly) || out.write(content) != content.size())
            qFatal("%s cannot be written", qPrintable(file));
    }

    QTemporaryDir folder;
};

struct Step {
    const char *name;
    std::function<void(photo_manager_int *)> work;
};

void createAlbum(photo_manager_int *manager)
{
    albumItem album;
    album.title = QStringLiteral("Another title that is longer than short");
    manager->createAlbum(&album);
}

void addPhoto(photo_manager_int *manager)
{
    photoItem photo;
    photo.fileName = QStringLiteral("IMG_7777.JPG");
    photo.directory = QStringLiteral("Photos/Sync/100SYNCD");
    const qint64 album = manager->getAlbumList().value(0);
    manager->addPhoto(&photo, &album);
}

void changeAlbum(photo_manager_int *manager)
{
    albumItem album;
    const qint64 id = manager->getAlbumList().value(0);
    if (manager->getAlbumItem(&id, &album))
        manager->updateAlbum(&album);
}

const std::vector<Step> &steps()
{
    static const std::vector<Step> all = {
        {"getLibraryUuid", [](photo_manager_int *manager) { manager->getLibraryUuid(); }},
        {"getPhotoCount", [](photo_manager_int *manager) { manager->getPhotoCount(); }},
        {"getAlbumCount", [](photo_manager_int *manager) { manager->getAlbumCount(); }},
        {"getPhotoItem",
         [](photo_manager_int *manager) {
             const qint64 id = 1;
             photoItem item;
             manager->getPhotoItem(&id, &item);
         }},
        {"getAlbumItem",
         [](photo_manager_int *manager) {
             const qint64 id = 1;
             albumItem item;
             manager->getAlbumItem(&id, &item);
         }},
        {"getThumbnail",
         [](photo_manager_int *manager) {
             const qint64 id = 1;
             QByteArray picture;
             manager->getThumbnail(&id, &picture);
         }},
        {"readPhotoFile",
         [](photo_manager_int *manager) {
             const qint64 id = 1;
             QByteArray content;
             manager->readPhotoFile(&id, &content);
         }},
        {"getGroupKeys", [](photo_manager_int *manager) { manager->getGroupKeys(4); }},
        {"getPhotoGroup", [](photo_manager_int *manager) { manager->getPhotoGroup(16, QStringLiteral("burst")); }},
        {"createAlbum", createAlbum},
        {"addPhoto", addPhoto},
        {"updateAlbum", changeAlbum},
        {"deletePhoto",
         [](photo_manager_int *manager) {
             const qint64 id = 4711;
             manager->deletePhoto(&id);
         }},
        {"deleteAlbum",
         [](photo_manager_int *manager) {
             const qint64 id = 4711;
             manager->deleteAlbum(&id);
         }},
    };
    return all;
}

/// The faults of an opening are shared out, so that they run side by side.
constexpr int parts = 4;

class AllocationFaults : public testing::TestWithParam<std::tuple<Shortage, int>>
{
protected:
    AllocationFaults() { qputenv("TMPDIR", temporary.path().toUtf8()); }

    /// One opening during which the `number`-th allocation fails. False when there was no such allocation.
    bool openWithFault(long number)
    {
        devicehost::DeviceHost host(device.name());
        photo_manager_int *manager = nullptr;
        bool opened = false;
        bool fired = false;
        {
            const AllocationFault fault(number, shortage());
            manager = getPhotolib(&host);
            opened = manager != nullptr && manager->openLibrary();
            fired = fault.fired();
        }
        if (manager == nullptr) {
            EXPECT_TRUE(fired);
            return fired;
        }
        EXPECT_TRUE(opened || fired);
        EXPECT_LE(manager->getPhotoCount(), 1);
        if (number % 16 < parts) { // what failed once does not stand in the way
            EXPECT_TRUE(manager->openLibrary());
            EXPECT_EQ(manager->getPhotoCount(), 1);
            EXPECT_EQ(manager->getLibraryUuid(), QString::fromLatin1(currentUuid));
        }
        releasePhotolib(&manager);
        EXPECT_EQ(manager, nullptr);
        return fired;
    }

    static Shortage shortage() { return std::get<Shortage>(GetParam()); }
    static int part() { return std::get<int>(GetParam()); }

    SmallDevice device;
    QTemporaryDir temporary;
};

TEST_P(AllocationFaults, OfAnOpening)
{
    for (int round = 0; round < 3; ++round) // what Qt and SQLite make once in a process is made here
        openWithFault(0);
    long number = 1 + part();
    long before = liveBlocks();
    for (; openWithFault(number) && !HasFailure(); number += parts) {
        if (liveBlocks() <= before)
            continue;
        before = liveBlocks();
        openWithFault(number); // what a library keeps for the process it makes once, a leak comes again
        EXPECT_LE(liveBlocks(), before) << "blocks lost after fault " << number;
    }
    EXPECT_GT(number, failsMalloc ? 1000 : 40);
    openWithFault(0); // removes what could not be removed
    EXPECT_TRUE(QDir(temporary.path()).isEmpty());
}

TEST_P(AllocationFaults, OfEverySlotAfterIt)
{
    devicehost::DeviceHost host(device.name());
    photo_manager_int *manager = getPhotolib(&host);
    ASSERT_TRUE(manager->openLibrary());
    for (std::size_t i = static_cast<std::size_t>(part()); i < steps().size(); i += parts) {
        const Step &step = steps()[i];
        SCOPED_TRACE(step.name);
        step.work(manager);
        bool fired = true;
        for (long number = 1; fired && !HasFailure(); ++number) {
            const AllocationFault fault(number, shortage());
            EXPECT_NO_THROW(step.work(manager)) << number;
            fired = fault.fired();
        }
        EXPECT_GE(manager->getPhotoCount(), 1);
        EXPECT_GE(manager->getAlbumCount(), 1);
    }
    qint64 id = 1;
    QByteArray content;
    EXPECT_EQ(manager->readPhotoFile(&id, &content), 1);
    EXPECT_EQ(content.size(), 200000);
    content.clear();
    EXPECT_EQ(manager->getThumbnail(&id, &content), 0); // what its step read
    EXPECT_EQ(content.left(2), "BM");
    releasePhotolib(&manager);
}

INSTANTIATE_TEST_SUITE_P(Shortages, AllocationFaults,
                         testing::Combine(testing::Values(Shortage::Once, Shortage::Lasting), testing::Range(0, parts)),
                         [](const auto &instance) {
                             const bool once = std::get<Shortage>(instance.param) == Shortage::Once;
                             return (once ? "Once" : "Lasting") + std::to_string(std::get<int>(instance.param));
                         });

} // namespace
