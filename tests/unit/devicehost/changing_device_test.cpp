// Openings through the reference host of a library that is stopped, or whose files change while they are copied.

#include "support.h"

#include "devicehost/device_host.h"
#include "photolib/photolib.h"
#include "testing/library_builder.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QTemporaryDir>

#include <functional>

using testkit::LibraryBytes;

namespace
{

constexpr int photos = 400;
constexpr int newPhotos = 3;
constexpr qint64 piece = 128 * 1024;

struct ReleaseManager {
    void operator()(photo_manager_int *manager) const { releasePhotolib(&manager); }
};

/// A library of more than one piece; `newPhotos` more are in its log. `title` makes libraries differ.
LibraryBytes libraryNamed(const QString &title)
{
    testkit::LibraryBuilder builder(testkit::Era::Ios16);
    testkit::AlbumRow album;
    album.title = title;
    builder.addAlbum(album);
    for (int i = 0; i < photos; ++i)
        builder.addAsset();
    builder.checkpoint();
    for (int i = 0; i < newPhotos; ++i)
        builder.addAsset();
    return builder.bytes(testkit::WalMode::WithContent);
}

const LibraryBytes &library()
{
    static const LibraryBytes bytes = libraryNamed(QStringLiteral("Holiday"));
    return bytes;
}

int openDescriptors()
{
    return QDir(QStringLiteral("/proc/self/fd"))
        .entryList(QDir::AllEntries | QDir::System | QDir::NoDotAndDotDot)
        .size();
}

class ChangingDevice : public testing::Test
{
protected:
    ChangingDevice() { qputenv("TMPDIR", temporary.path().toUtf8()); }

    QString database() const { return folder.filePath(QStringLiteral("PhotoData/Photos.sqlite")); }
    QString log() const { return database() + QStringLiteral("-wal"); }

    /// Does `change` as soon as the first bytes of the device's file `name` have come.
    void duringCopyOf(const QString &name, const std::function<void()> &change)
    {
        host.setProgress([this, name, change](const devicehost::Progress &progress) {
            if (progress.path != name || changed)
                return;
            changed = true;
            readWhenChanged = progress.bytesRead;
            change();
        });
    }

    /// Opens the library; whatever comes out, nothing stays open and the device is as it was.
    bool open()
    {
        const int before = openDescriptors();
        manager.reset(getPhotolib(&host));
        const bool opened = manager->openLibrary();
        EXPECT_EQ(openDescriptors(), before + 1) << "more than the mark of the local folder is open";
        return opened;
    }

    bool reopensWhole()
    {
        writeFile(database(), library().database);
        writeFile(log(), library().wal);
        devicehost::DeviceHost again(host.devicePath());
        const std::unique_ptr<photo_manager_int, ReleaseManager> second(getPhotolib(&again));
        return second->openLibrary() && second->getPhotoCount() == photos + newPhotos;
    }

    QTemporaryDir folder;
    QTemporaryDir temporary;
    devicehost::DeviceHost host{QStringLiteral("folder:") + folder.path()};
    std::unique_ptr<photo_manager_int, ReleaseManager> manager;
    bool changed = false;
    qint64 readWhenChanged = 0;
};

const QString databaseName = QStringLiteral("/PhotoData/Photos.sqlite");
const QString logName = QStringLiteral("/PhotoData/Photos.sqlite-wal");

TEST_F(ChangingDevice, AStoppedOpeningOfAGigabyteCopiesNothingMore)
{
    writeFile(database(), library().database);
    ASSERT_TRUE(QFile::resize(database(), qint64(1) << 30)); // a sparse file
    writeFile(log(), library().wal);
    int reports = 0;
    host.setProgress([&](const devicehost::Progress &progress) {
        ++reports;
        EXPECT_EQ(progress.bytesRead, piece);
        host.requestStop();
    });
    EXPECT_FALSE(open());
    EXPECT_EQ(reports, 1) << "the end of a file is always reported, so none was reached";
    QDirIterator copies(temporary.path(), {QStringLiteral("Photos.sqlite*")}, QDir::Files,
                        QDirIterator::Subdirectories);
    while (copies.hasNext()) {
        copies.next();
        EXPECT_EQ(copies.fileInfo().size(), 0) << copies.fileName().toStdString();
    }
    EXPECT_TRUE(host.failure().isEmpty());
}

TEST_F(ChangingDevice, ADatabaseThatShrinksIsNoLibrary)
{
    writeFile(database(), library().database);
    ASSERT_GT(library().database.size(), 2 * piece);
    duringCopyOf(databaseName, [this] { EXPECT_TRUE(QFile::resize(database(), piece + 5000)); });
    EXPECT_FALSE(open());
    EXPECT_EQ(readWhenChanged, piece);
    EXPECT_EQ(manager->getPhotoCount(), 0);
    EXPECT_FALSE(host.failure().isEmpty() && host.databaseDamage().isEmpty());
    EXPECT_TRUE(reopensWhole());
}

TEST_F(ChangingDevice, ADatabaseThatIsEmptiedIsNoLibrary)
{
    writeFile(database(), library().database);
    duringCopyOf(databaseName, [this] { EXPECT_TRUE(QFile::resize(database(), 0)); });
    EXPECT_FALSE(open());
    EXPECT_EQ(manager->getPhotoCount(), 0);
    EXPECT_TRUE(reopensWhole());
}

// SQLite takes the size from the header, so what came later does not count.
TEST_F(ChangingDevice, ADatabaseThatGrowsIsReadAsItBegan)
{
    writeFile(database(), library().database);
    duringCopyOf(databaseName, [this] {
        QFile file(database());
        EXPECT_TRUE(file.open(QIODevice::Append));
        EXPECT_EQ(file.write(QByteArray(1000000, 'x')), 1000000);
    });
    EXPECT_TRUE(open());
    EXPECT_TRUE(changed);
    EXPECT_EQ(manager->getPhotoCount(), photos);
    EXPECT_TRUE(host.databaseDamage().isEmpty());
}

// The log of a database counts up to its last whole transaction.
TEST_F(ChangingDevice, ALogThatGrowsIsReadAsItBegan)
{
    writeFile(database(), library().database);
    writeFile(log(), library().wal);
    duringCopyOf(logName, [this] {
        QFile file(log());
        EXPECT_TRUE(file.open(QIODevice::Append));
        EXPECT_EQ(file.write(QByteArray(1000000, 'x')), 1000000);
    });
    EXPECT_TRUE(open());
    EXPECT_TRUE(changed);
    EXPECT_EQ(manager->getPhotoCount(), photos + newPhotos);
}

TEST_F(ChangingDevice, ALogThatLosesItsEndIsReadUpToTheTransactionBefore)
{
    writeFile(database(), library().database);
    writeFile(log(), library().wal);
    duringCopyOf(databaseName, [this] { EXPECT_TRUE(QFile::resize(log(), library().wal.size() - 1)); });
    EXPECT_TRUE(open());
    EXPECT_TRUE(changed);
    EXPECT_EQ(manager->getPhotoCount(), photos);
    EXPECT_TRUE(reopensWhole());
}

// Pages of two states of one database: there is an answer, and it does not lie about damage that SQLite saw.
TEST_F(ChangingDevice, ADatabaseThatIsRewrittenGivesAnAnswer)
{
    writeFile(database(), library().database);
    duringCopyOf(databaseName, [this] { writeFile(database(), QByteArray(library().database.size(), '\x5A')); });
    const bool opened = open();
    EXPECT_TRUE(!opened || !host.databaseDamage().isEmpty());
    EXPECT_TRUE(changed);
    EXPECT_LE(manager->getPhotoCount(), photos);
    EXPECT_TRUE(reopensWhole());
}

// A log that was made for another database fits as far as SQLite can tell: its pages stand in for those of the same
// numbers. What comes out is a library or none, and the device's files are as they were.
TEST_F(ChangingDevice, ALogOfAnotherLibraryDoesNoHarm)
{
    const LibraryBytes other = libraryNamed(QStringLiteral("Somebody else's"));
    for (const QByteArray &foreign : {other.wal, QByteArray(300000, 'w'), other.wal.left(other.wal.size() - 1000)}) {
        writeFile(database(), library().database);
        writeFile(log(), foreign);
        open();
        EXPECT_LE(manager->getPhotoCount(), photos + newPhotos);
        EXPECT_EQ(contentOf(database()), library().database);
        EXPECT_EQ(contentOf(log()), foreign);
        host.discardLocalData();
    }
    EXPECT_TRUE(reopensWhole());
}

} // namespace
