// Memory that runs short anywhere in an export: no exception, nothing lost, no wrong byte, and the next run is whole.
// With the reference host, as a program has it.

#include "devicehost/device_host.h"
#include "devicehost/open_error.h"
#include "exporter/concurrent_sha256.h"
#include "exporter/exporter.h"
#include "photolib/photolib.h"
#include "testing/library_builder.h"
#include "tests/unit/photolib/allocation_faults.h"

#include <gtest/gtest.h>

#include <QCryptographicHash>
#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QFileInfo>
#include <QMap>
#include <QTemporaryDir>

#include <cstring>
#include <new>
#include <tuple>

using namespace exporter;

namespace
{

using Tree = QMap<QString, QByteArray>;

QString memoryFolder()
{
    const QFileInfo memory(QStringLiteral("/dev/shm"));
    return (memory.isDir() && memory.isWritable() ? memory.filePath() : QDir::tempPath()) +
           QStringLiteral("/photolib-memory-XXXXXX");
}

/// A device folder with a pair and an edited photo, both in an album.
class SmallDevice
{
public:
    SmallDevice() : folder(memoryFolder())
    {
        testkit::BuilderOptions options;
        options.builtinAlbums = false;
        options.indices = false;
        testkit::LibraryBuilder builder(testkit::Era::Ios15, options);
        const qint64 live = addPhoto(builder, QStringLiteral("IMG_0001.HEIC"));
        const qint64 edited = addPhoto(builder, QStringLiteral("IMG_0002.JPG"));
        testkit::AlbumRow album;
        album.title = QStringLiteral("Album");
        const qint64 id = builder.addAlbum(album);
        builder.addToAlbum(id, edited);
        builder.addToAlbum(id, live);
        write(QStringLiteral("DCIM/100APPLE/IMG_0001.MOV"), "its film");
        write(QStringLiteral("DCIM/100APPLE/IMG_0002.AAE"), "notes");
        write(QStringLiteral("PhotoData/Mutations/DCIM/100APPLE/IMG_0002/Adjustments/FullSizeRender.jpg"), "edited");
        builder.write(folder.filePath(QStringLiteral("PhotoData/Photos.sqlite")));
    }

    QString name() const { return QStringLiteral("folder:") + folder.path(); }

    static Tree exported()
    {
        return {{QStringLiteral("IMG_0001.HEIC"), "IMG_0001.HEIC"},
                {QStringLiteral("IMG_0001.MOV"), "its film"},
                {QStringLiteral("IMG_0002.JPG"), "IMG_0002.JPG"},
                {QStringLiteral("IMG_0002.AAE"), "notes"},
                {QStringLiteral("IMG_0002_edited.jpg"), "edited"},
                {QStringLiteral("Albums/Album/1_IMG_0002.JPG"), "IMG_0002.JPG"},
                {QStringLiteral("Albums/Album/1_IMG_0002.AAE"), "notes"},
                {QStringLiteral("Albums/Album/1_IMG_0002_edited.jpg"), "edited"},
                {QStringLiteral("Albums/Album/2_IMG_0001.HEIC"), "IMG_0001.HEIC"},
                {QStringLiteral("Albums/Album/2_IMG_0001.MOV"), "its film"}};
    }

private:
    qint64 addPhoto(testkit::LibraryBuilder &builder, const QString &name)
    {
        testkit::AssetRow row;
        row.directory = QStringLiteral("DCIM/100APPLE");
        row.fileName = name;
        write(row.directory + QLatin1Char('/') + name, name.toUtf8());
        return builder.addAsset(row);
    }

    void write(const QString &file, const QByteArray &content) const
    {
        QFile out(folder.filePath(file));
        QDir().mkpath(QFileInfo(out).path());
        if (!out.open(QIODevice::WriteOnly) || out.write(content) != content.size())
            qFatal("%s cannot be written", qPrintable(file));
    }

    QTemporaryDir folder;
};

Tree treeOf(const QString &folder)
{
    Tree tree;
    QDirIterator walk(folder, QDir::Files | QDir::NoDotAndDotDot, QDirIterator::Subdirectories);
    while (walk.hasNext()) {
        QFile file(walk.next());
        EXPECT_TRUE(file.open(QIODevice::ReadOnly));
        tree.insert(file.fileName().mid(folder.size() + 1), file.readAll());
    }
    return tree;
}

int descriptors()
{
    return QDir(QStringLiteral("/proc/self/fd")).entryList(QDir::Files | QDir::System | QDir::NoDotAndDotDot).size();
}

OpenFailure whyNotOpened()
{
    const devicehost::OpenError error = devicehost::lastOpenError();
    return {error.absent, error.text};
}

class Silent final : public ExportObserver
{
};

/// The faults are shared out, so that they run side by side.
constexpr int parts = 16;

/// Of this many faults one is followed by another run; coprime to the parts, so that each part has its share.
constexpr int resumed = 5;

class ExportAllocations : public testing::TestWithParam<std::tuple<Shortage, int>>
{
protected:
    ExportAllocations() : destination(memoryFolder()), host(device.name())
    {
        manager = getPhotolib(&host);
        EXPECT_TRUE(manager->openLibrary());
        ids = manager->getPhotoList();
        options.destination = destination.filePath(QStringLiteral("out"));
        options.layout = QStringLiteral("{stem}");
        options.edited = true;
        options.albums = true;
        options.reserve = 0;
        options.lastOpenFailure = whyNotOpened;
    }
    ~ExportAllocations() override { releasePhotolib(&manager); }

    /// One export during which the `number`-th allocation fails. False when there was no such allocation.
    bool exportWithFault(long number)
    {
        QDir(options.destination).removeRecursively();
        const int before = descriptors();
        Silent observer;
        RunOutcome outcome;
        bool fired = false;
        {
            const AllocationFault fault(number, std::get<Shortage>(GetParam()));
            outcome = run(*manager, host, ids, options, observer);
            fired = fault.fired();
        }
        EXPECT_TRUE(outcome.isSuccess() || fired) << qPrintable(outcome.message);
        EXPECT_EQ(outcome.end == RunEnd::Completed, outcome.message.isEmpty());
        EXPECT_EQ(before, descriptors());
        const Tree tree = treeOf(options.destination);
        for (auto file = tree.begin(); file != tree.end(); ++file)
            EXPECT_EQ(SmallDevice::exported().value(file.key()), file.value()) << qPrintable(file.key());
        if (outcome.isSuccess()) {
            EXPECT_EQ(SmallDevice::exported(), tree);
        } else if (number % resumed == 0) {
            const RunOutcome next = run(*manager, host, ids, options, observer);
            EXPECT_TRUE(next.isSuccess()) << qPrintable(next.message);
            EXPECT_EQ(SmallDevice::exported(), treeOf(options.destination));
        }
        return fired;
    }

    SmallDevice device;
    QTemporaryDir destination;
    devicehost::DeviceHost host;
    photo_manager_int *manager = nullptr;
    QList<qint64> ids;
    ExportOptions options;
};

} // namespace

TEST_P(ExportAllocations, ThatFailLeaveNoWrongByteAndTheNextRunIsWhole)
{
    for (int round = 0; round < 3; ++round) // what Qt and SQLite make once in a process is made here
        exportWithFault(0);
    long number = 1 + std::get<int>(GetParam());
    long before = liveBlocks();
    for (; exportWithFault(number) && !HasFailure(); number += parts) {
        if (liveBlocks() <= before)
            continue;
        before = liveBlocks();
        exportWithFault(number); // what a library keeps for the process it makes once, a leak comes again
        EXPECT_LE(liveBlocks(), before) << "blocks lost after fault " << number;
    }
    EXPECT_FALSE(HasFailure()) << "fault " << number;
    EXPECT_GT(number, failsMalloc ? 1000 : 40);
    RecordProperty("allocations", static_cast<int>(number));
}

INSTANTIATE_TEST_SUITE_P(Shortages, ExportAllocations,
                         testing::Combine(testing::Values(Shortage::Once, Shortage::Lasting), testing::Range(0, parts)),
                         [](const auto &instance) {
                             const bool once = std::get<Shortage>(instance.param) == Shortage::Once;
                             return (once ? "Once" : "Lasting") + std::to_string(std::get<int>(instance.param));
                         });

TEST(ConcurrentSha256, IsRightOrToldToLackMemory)
{
    const QByteArray content(3 * ConcurrentSha256::blockSize, 'c');
    const QByteArray expected = QCryptographicHash::hash(content, QCryptographicHash::Sha256);
    const auto answer = [&content] {
        ConcurrentSha256 hash(content.size());
        for (int at = 0; at < content.size(); at += ConcurrentSha256::blockSize) {
            std::memcpy(hash.nextBlock(), content.constData() + at, ConcurrentSha256::blockSize);
            hash.add(ConcurrentSha256::blockSize);
        }
        return hash.result();
    };
    for (const Shortage shortage : {Shortage::Once, Shortage::Lasting}) {
        long number = 1;
        for (bool fired = true; fired; ++number) {
            const AllocationFault fault(number, shortage);
            try {
                EXPECT_EQ(expected, answer());
            } catch (const std::bad_alloc &) {
            }
            fired = fault.fired();
        }
        EXPECT_GT(number, 3);
    }
}
