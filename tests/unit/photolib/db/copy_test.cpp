#include "testing/faulty_device.h"
#include "testing/log_recorder.h"
#include "tests/unit/photolib/db/made_database.h"

#include <QTextCodec>

#include <memory>
#include <set>

using dbtests::error;
using testkit::FakeDevice;
using testkit::Fault;
using testkit::FaultyDevice;
using testkit::Operation;
using testkit::OperationKind;

namespace
{

constexpr int block = 4194304;

/// Copies single files with an object that has read no library.
class DatabaseCopy : public ::testing::Test
{
protected:
    DatabaseCopy() : db(nullptr)
    {
        log.takeAll();
        probe.setDevice(&device);
        device.addFile("/f", "content");
    }

    bool copy(const QString &devicePath, const QString &localPath)
    {
        return probe.copyDeviceFile(devicePath, localPath);
    }
    bool copyToLocalFile(const QString &devicePath = "/f") { return copy(devicePath, device.localPath("f")); }

    /// A file whose bytes differ from block to block.
    void addLargeFile(qint64 size)
    {
        device.addVirtualFile("/f", size, [](qint64 offset, char *buffer, qint64 count) {
            for (qint64 i = 0; i < count; ++i)
                buffer[i] = static_cast<char>((offset + i) / 1000 % 251);
        });
    }

    QStringList operations() const { return device.operations(testkit::allOperations); }

    FakeDevice device;
    testkit::LogRecorder log;
    Photos_DB db;
    PhotosDbProbe probe{db};
};

/// Failure of one kind of operation on one side.
Fault failureOf(OperationKind kind, VDevType side, Fault::Effect effect = Fault::Effect::Fail, int at = 1)
{
    Fault fault(kind, effect, at);
    fault.where = [side](const Operation &operation) { return operation.fileSystem == side; };
    return fault;
}

} // namespace

TEST_F(DatabaseCopy, MovesTheBytesInAFixedOrderOfOperations)
{
    EXPECT_TRUE(copyToLocalFile());
    EXPECT_EQ(operations(), (QStringList{
                                "shouldStop = false",
                                "devicePath = \"fake:device\"",
                                "vDevOpen 2 \"fake:device\" = dev1",
                                "vFileOpen dev1 \"/f\" 0 = file1",
                                "vDevOpen 0 \"\" = dev2",
                                "vDevCreateDir dev2 \"<local>\" = 0",
                                "vFileOpen dev2 \"<local>/f\" 1 = file2",
                                "vFileRead file1 4194304 = 7",
                                "vFileWrite file2 7 = 7",
                                "vFileRead file1 4194304 = 0",
                                "vFileClose file1",
                                "vDevClose dev1",
                                "vFileClose file2",
                                "vDevClose dev2",
                            }));
    EXPECT_EQ(device.localFile("f"), "content");
}

TEST_F(DatabaseCopy, CopiesTheThreeFilesOfTheLibraryOneAfterTheOther)
{
    const QByteArray main(5000, 'm');
    device.addFile("/PhotoData/Photos.sqlite", main);
    device.addFile("/PhotoData/Photos.sqlite-wal", "wal");
    device.addFile("/PhotoData/Photos.sqlite-shm", "shm");
    // SQLite itself would tidy such files away.
    const FaultyDevice noDatabase(device, OperationKind::OpenSqlite);
    const Photos_DB read(&device);
    EXPECT_EQ(device.localFile("Photos.sqlite"), main);
    EXPECT_EQ(device.localFile("Photos.sqlite-wal"), "wal");
    EXPECT_EQ(device.localFile("Photos.sqlite-shm"), "shm");
    EXPECT_EQ(device.operations(OperationKind::OpenFile),
              (QStringList{
                  "vFileOpen dev1 \"/PhotoData/Photos.sqlite\" 0 = file1",
                  "vFileOpen dev2 \"<local>/Photos.sqlite\" 1 = file2",
                  "vFileOpen dev3 \"/PhotoData/Photos.sqlite-wal\" 0 = file3",
                  "vFileOpen dev4 \"<local>/Photos.sqlite-wal\" 1 = file4",
                  "vFileOpen dev5 \"/PhotoData/Photos.sqlite-shm\" 0 = file5",
                  "vFileOpen dev6 \"<local>/Photos.sqlite-shm\" 1 = file6",
              }));
    EXPECT_EQ(device.operations(OperationKind::CreateFolder).size(), 3);
    log.takeAll();
}

TEST_F(DatabaseCopy, AnEmptyFileIsCreatedEmpty)
{
    device.addFile("/f", "");
    EXPECT_TRUE(copyToLocalFile());
    EXPECT_EQ(device.operationCount(OperationKind::Write), 0);
    EXPECT_TRUE(QFile::exists(device.localPath("f")));
}

TEST_F(DatabaseCopy, ReplacesALongerLocalFile)
{
    QFile old(device.localPath("f"));
    ASSERT_TRUE(old.open(QIODevice::WriteOnly));
    old.write(QByteArray(100, 'x'));
    old.close();
    EXPECT_TRUE(copyToLocalFile());
    EXPECT_EQ(device.localFile("f"), "content");
}

// Copies that are not attempted.

TEST_F(DatabaseCopy, WithoutADeviceItIsNotAttemptedAndSucceeds)
{
    probe.setDevice(nullptr);
    EXPECT_TRUE(copyToLocalFile());
    EXPECT_EQ(operations(), QStringList());
}

TEST_F(DatabaseCopy, AfterAStopRequestOfTheHostItIsNotAttemptedAndSucceeds)
{
    device.setShouldStop(true);
    EXPECT_TRUE(copyToLocalFile());
    EXPECT_EQ(operations(), QStringList{"shouldStop = true"});
}

TEST_F(DatabaseCopy, WithoutADevicePathItIsNotAttemptedAndSucceeds)
{
    EXPECT_TRUE(copy("", device.localPath("f")));
    EXPECT_TRUE(copy(QString(), device.localPath("f")));
    EXPECT_EQ(device.operationCount(testkit::fileOperations), 0);
}

TEST_F(DatabaseCopy, WithoutALocalPathItIsNotAttemptedAndSucceeds)
{
    EXPECT_TRUE(copy("/f", ""));
    EXPECT_TRUE(copy("/f", QString()));
    EXPECT_EQ(device.operationCount(testkit::fileOperations), 0);
}

TEST_F(DatabaseCopy, TheHostsStopRequestIsLookedAtOnceAFileOnly)
{
    addLargeFile(3LL * block);
    device.stopFromCall(2);
    EXPECT_TRUE(copyToLocalFile());
    EXPECT_EQ(device.localFile("f").size(), 3 * block);
    EXPECT_EQ(device.slotCalls(7), 1);
    EXPECT_EQ(device.slotCalls(16), 1);
}

// Failures to open.

TEST_F(DatabaseCopy, AnUnreachableDeviceFailsWithNothingOpen)
{
    device.setReachable(false);
    EXPECT_FALSE(copyToLocalFile());
    log.expectLine(error("Can not open device"));
    EXPECT_EQ(device.operations(), QStringList{"vDevOpen 2 \"fake:device\" = null"});
}

TEST_F(DatabaseCopy, AMissingSourceFailsAndClosesTheDevice)
{
    EXPECT_FALSE(copyToLocalFile("/missing"));
    log.expectLine(error("Can not open file: /missing"));
    EXPECT_EQ(device.operations(), (QStringList{
                                       "vDevOpen 2 \"fake:device\" = dev1",
                                       "vFileOpen dev1 \"/missing\" 0 = null",
                                       "vDevClose dev1",
                                   }));
}

TEST_F(DatabaseCopy, TheDeviceIsClosedBeforeAMissingSourceIsReported)
{
    int closed = -1;
    log.onLine([&](const QString &) { closed = device.operationCount(OperationKind::CloseDevice); });
    EXPECT_FALSE(copyToLocalFile("/missing"));
    EXPECT_EQ(closed, 1);
    log.expectLine(error("Can not open file: /missing"));
}

TEST_F(DatabaseCopy, AMissingLocalSideFailsAndLeavesSourceAndDeviceOpen)
{
    const FaultyDevice faulty(device, failureOf(OperationKind::OpenDevice, VDevLocal));
    device.expectLeftOpen(2);
    EXPECT_FALSE(copyToLocalFile());
    log.expectLine(error("Can not open folder: " + device.localPath("f")));
    EXPECT_EQ(device.operations(), (QStringList{
                                       "vDevOpen 2 \"fake:device\" = dev1",
                                       "vFileOpen dev1 \"/f\" 0 = file1",
                                       "vDevOpen 0 \"\" = null",
                                   }));
    EXPECT_EQ(device.openHandles(), (QStringList{"dev1", "file1"}));
}

TEST_F(DatabaseCopy, ADestinationThatCannotBeCreatedFailsAndClosesEverything)
{
    const FaultyDevice faulty(device, failureOf(OperationKind::OpenFile, VDevLocal));
    EXPECT_FALSE(copyToLocalFile());
    log.expectLine(error("Can not open file: " + device.localPath("f")));
    EXPECT_EQ(device.operations(), (QStringList{
                                       "vDevOpen 2 \"fake:device\" = dev1",
                                       "vFileOpen dev1 \"/f\" 0 = file1",
                                       "vDevOpen 0 \"\" = dev2",
                                       "vDevCreateDir dev2 \"<local>\" = 0",
                                       "vFileOpen dev2 \"<local>/f\" 1 = null",
                                       "vFileClose file1",
                                       "vDevClose dev1",
                                       "vDevClose dev2",
                                   }));
    EXPECT_FALSE(QFile::exists(device.localPath("f")));
}

TEST_F(DatabaseCopy, EverythingIsClosedBeforeAMissingDestinationIsReported)
{
    const FaultyDevice faulty(device, failureOf(OperationKind::OpenFile, VDevLocal));
    QStringList open{"not reported"};
    log.onLine([&](const QString &) { open = device.openHandles(); });
    EXPECT_FALSE(copyToLocalFile());
    EXPECT_EQ(open, QStringList());
    log.takeAll();
}

TEST_F(DatabaseCopy, AFolderThatCannotBeCreatedIsNotLookedAt)
{
    const FaultyDevice faulty(device, OperationKind::CreateFolder);
    EXPECT_TRUE(copyToLocalFile());
    EXPECT_TRUE(faulty.fired());
    EXPECT_EQ(device.localFile("f"), "content");
}

TEST_F(DatabaseCopy, MessagesNameThePathsInUtf8)
{
    EXPECT_FALSE(copyToLocalFile(QString::fromUtf8("/Fotos/Größe €.sqlite")));
    log.expectLine(error(QString::fromUtf8("Can not open file: /Fotos/Größe €.sqlite")));
}

// Blocks.

TEST_F(DatabaseCopy, ReadsBlocksOfFourMebibytes)
{
    addLargeFile(2LL * block + 5);
    EXPECT_TRUE(copyToLocalFile());
    EXPECT_EQ(device.operations(OperationKind::Read | OperationKind::Write), (QStringList{
                                                                                 "vFileRead file1 4194304 = 4194304",
                                                                                 "vFileWrite file2 4194304 = 4194304",
                                                                                 "vFileRead file1 4194304 = 4194304",
                                                                                 "vFileWrite file2 4194304 = 4194304",
                                                                                 "vFileRead file1 4194304 = 5",
                                                                                 "vFileWrite file2 5 = 5",
                                                                                 "vFileRead file1 4194304 = 0",
                                                                             }));
    const QByteArray copied = device.localFile("f");
    ASSERT_EQ(copied.size(), 2 * block + 5);
    for (int i = 0; i < copied.size(); i += 997)
        ASSERT_EQ(copied[i], static_cast<char>(i / 1000 % 251)) << i;
}

TEST_F(DatabaseCopy, AnExactMultipleOfTheBlockEndsWithAReadOfNothing)
{
    addLargeFile(block);
    EXPECT_TRUE(copyToLocalFile());
    EXPECT_EQ(device.operations(OperationKind::Read | OperationKind::Write), (QStringList{
                                                                                 "vFileRead file1 4194304 = 4194304",
                                                                                 "vFileWrite file2 4194304 = 4194304",
                                                                                 "vFileRead file1 4194304 = 0",
                                                                             }));
    EXPECT_EQ(device.localFile("f").size(), block);
}

TEST_F(DatabaseCopy, OneBufferServesAllBlocks)
{
    addLargeFile(3LL * block);
    std::set<const void *> buffers;
    device.onOperation([&](const Operation &operation) {
        if (operation.kind == OperationKind::Read)
            buffers.insert(operation.destination);
        if (operation.kind == OperationKind::Write)
            buffers.insert(operation.source);
    });
    EXPECT_TRUE(copyToLocalFile());
    EXPECT_EQ(buffers.size(), 1U);
}

TEST_F(DatabaseCopy, AShortReadIsNotTheEnd)
{
    const FaultyDevice faulty(device, failureOf(OperationKind::Read, VDevDevice, Fault::Effect::ShortTransfer));
    EXPECT_TRUE(copyToLocalFile());
    EXPECT_EQ(device.localFile("f"), "content");
    EXPECT_EQ(device.operations(OperationKind::Write),
              (QStringList{"vFileWrite file2 3 = 3", "vFileWrite file2 4 = 4"}));
}

TEST_F(DatabaseCopy, AReadErrorEndsTheCopyWhichCountsAsDone)
{
    addLargeFile(3LL * block);
    const FaultyDevice faulty(device, failureOf(OperationKind::Read, VDevDevice, Fault::Effect::Fail, 2));
    EXPECT_TRUE(copyToLocalFile());
    EXPECT_EQ(device.operations(OperationKind::Read | OperationKind::Write | OperationKind::CloseFile |
                                OperationKind::CloseDevice),
              (QStringList{
                  "vFileRead file1 4194304 = 4194304",
                  "vFileWrite file2 4194304 = 4194304",
                  "vFileRead file1 4194304 = -1",
                  "vFileClose file1",
                  "vDevClose dev1",
                  "vFileClose file2",
                  "vDevClose dev2",
              }));
    EXPECT_EQ(device.localFile("f").size(), block);
}

TEST_F(DatabaseCopy, AShortWriteEndsTheCopyWhichCountsAsDone)
{
    addLargeFile(3LL * block);
    const FaultyDevice faulty(device, failureOf(OperationKind::Write, VDevLocal, Fault::Effect::ShortTransfer, 2));
    EXPECT_TRUE(copyToLocalFile());
    EXPECT_EQ(device.operations(OperationKind::Read | OperationKind::Write | OperationKind::CloseFile |
                                OperationKind::CloseDevice),
              (QStringList{
                  "vFileRead file1 4194304 = 4194304",
                  "vFileWrite file2 4194304 = 4194304",
                  "vFileRead file1 4194304 = 4194304",
                  "vFileWrite file2 4194304 = 2097152",
                  "vFileClose file1",
                  "vDevClose dev1",
                  "vFileClose file2",
                  "vDevClose dev2",
              }));
    EXPECT_EQ(device.localFile("f").size(), block + block / 2);
}

TEST_F(DatabaseCopy, AWriteErrorEndsTheCopyWhichCountsAsDone)
{
    const FaultyDevice faulty(device, failureOf(OperationKind::Write, VDevLocal));
    EXPECT_TRUE(copyToLocalFile());
    EXPECT_EQ(device.operationCount(OperationKind::Read), 1);
    EXPECT_EQ(device.openHandles(), QStringList());
}

TEST_F(DatabaseCopy, TheStopFlagEndsTheCopyBeforeTheBlockIsWritten)
{
    addLargeFile(3LL * block);
    int reads = 0;
    device.onOperation([&](const Operation &operation) {
        if (operation.kind == OperationKind::Read && ++reads == 2)
            probe.stop() = true;
    });
    EXPECT_TRUE(copyToLocalFile());
    EXPECT_EQ(reads, 2);
    EXPECT_EQ(device.localFile("f").size(), block);
    EXPECT_EQ(device.openHandles(), QStringList());
}

TEST_F(DatabaseCopy, AStopFlagThatIsSetAlreadyStillCreatesTheFile)
{
    probe.stop() = true;
    EXPECT_TRUE(copyToLocalFile());
    EXPECT_TRUE(QFile::exists(device.localPath("f")));
    EXPECT_EQ(device.localFile("f").size(), 0);
    EXPECT_EQ(device.operationCount(OperationKind::Read), 1);
}

// Paths.

namespace
{

/// The folder that a copy to `localPath` creates, and the name it opens there; nothing is written.
class LocalPath : public DatabaseCopy
{
protected:
    QString folderOf(const QString &localPath)
    {
        const FaultyDevice noFolder(device, OperationKind::CreateFolder);
        const FaultyDevice noFile(device, failureOf(OperationKind::OpenFile, VDevLocal));
        EXPECT_FALSE(copy("/f", localPath));
        log.expectLine(error("Can not open file: " + localPath));
        EXPECT_EQ(device.operations(OperationKind::OpenFile).last(), "vFileOpen dev2 \"" + localPath + "\" 1 = null");
        const QString line = device.operations(OperationKind::CreateFolder).last();
        device.clearOperations();
        return line.section('"', 1, 1);
    }
};

} // namespace

TEST_F(LocalPath, IsCutBeforeItsLastSlash)
{
    EXPECT_EQ(folderOf("/var/data/Photos.sqlite"), "/var/data");
    EXPECT_EQ(folderOf("/var/data//Photos.sqlite"), "/var/data/");
}

TEST_F(LocalPath, IsCutBeforeItsLastBackslashWhenItHasNoSlash)
{
    EXPECT_EQ(folderOf("C:\\data\\Photos.sqlite"), "C:\\data");
}

TEST_F(LocalPath, IsCutBeforeTheLaterOfBothSeparators)
{
    EXPECT_EQ(folderOf("C:\\data/photos\\Photos.sqlite"), "C:\\data/photos");
    EXPECT_EQ(folderOf("C:\\data\\photos/Photos.sqlite"), "C:\\data\\photos");
}

TEST_F(LocalPath, IsCutBeforeASeparatorAtItsStartAndItsEnd)
{
    EXPECT_EQ(folderOf("/Photos.sqlite"), "");
    EXPECT_EQ(folderOf("data/"), "data");
}

TEST_F(LocalPath, WithoutSeparatorStandsForTheFolderAsAWhole)
{
    EXPECT_EQ(folderOf("Photos.sqlite"), "Photos.sqlite");
}

TEST_F(LocalPath, IsPassedInUtf8)
{
    EXPECT_EQ(folderOf(QString::fromUtf8("/home/Jörg/€/Photos.sqlite")), QString::fromUtf8("/home/Jörg/€"));
}

TEST_F(DatabaseCopy, TheDevicesNameAndPathsAreUtf8InEveryLocale)
{
    QTextCodec *before = QTextCodec::codecForLocale();
    QTextCodec::setCodecForLocale(QTextCodec::codecForName("ISO-8859-1"));
    device.setDevicePath(QString::fromUtf8("fake:Gerät"));
    device.addFile(QString::fromUtf8("/Bücher"), "content");
    QByteArrayList names;
    device.onOperation([&](const Operation &operation) {
        if (operation.kind == OperationKind::OpenDevice || operation.kind == OperationKind::OpenFile)
            names << operation.path;
    });
    const bool copied = copy(QString::fromUtf8("/Bücher"), device.localPath(QString::fromUtf8("Grün")));
    QTextCodec::setCodecForLocale(before);

    EXPECT_TRUE(copied);
    ASSERT_EQ(names.size(), 4);
    EXPECT_EQ(names[0], "fake:Gerät");
    EXPECT_EQ(names[1], "/Bücher");
    EXPECT_EQ(names[2], "");
    EXPECT_TRUE(names[3].endsWith("/Grün"));
}

// What a copy that was not attempted means for the library.

using LibraryCopy = dbtests::LibraryTest;

TEST_F(LibraryCopy, AHostThatStopsGetsTheLibraryThatItsFolderHolds)
{
    open();
    close();
    device.clearOperations();
    device.setShouldStop(true);
    const Photos_DB &db = openAnyhow();
    EXPECT_TRUE(db.isLoaded());
    EXPECT_EQ(db.uuid(), "LIBRARY-UUID");
    log.expectLines({dbtests::progress("load ATHCameraDB"), dbtests::progress("Parser_Ath_camera_DB"), dbtests::parsed,
                     dbtests::progress("load ATHCameraDB end")});
    EXPECT_EQ(device.operationCount(testkit::fileOperations), 0);
}

TEST_F(LibraryCopy, AHostThatStopsAndHoldsNoCopyGetsNone)
{
    putOnDevice();
    device.setShouldStop(true);
    EXPECT_FALSE(openAnyhow().isLoaded());
    EXPECT_EQ(log.consumeMatching(error("")),
              (QStringList{error("Can not open sqlite db"), error("Can not load lib")}));
    log.takeAll();
}

TEST_F(LibraryCopy, AHostThatStopsAfterTheMainFileGetsTheLibraryWithoutItsLog)
{
    putOnDevice();
    device.addFile("/PhotoData/Photos.sqlite-wal", "never copied");
    device.stopFromCall(2);
    EXPECT_TRUE(openAnyhow().isLoaded());
    EXPECT_FALSE(QFile::exists(device.localPath("Photos.sqlite-wal")));
    EXPECT_EQ(device.operations(OperationKind::OpenFile).size(), 2);
    log.takeAll();
}

TEST_F(LibraryCopy, ACopyThatBreaksOffIsOpenedAllTheSame)
{
    putOnDevice();
    Fault fault(OperationKind::Write);
    fault.effect = Fault::Effect::ShortTransfer;
    const FaultyDevice faulty(device, fault);
    openAnyhow();
    EXPECT_TRUE(faulty.fired());
    EXPECT_EQ(device.operations(OperationKind::OpenSqlite).size(), 1);
    log.takeAll();
}
