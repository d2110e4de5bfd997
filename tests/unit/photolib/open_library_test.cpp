#include "testing/faulty_device.h"
#include "testing/log_recorder.h"
#include "tests/unit/photolib/made_library.h"
#include "tests/unit/photolib/photo_manager_probe.h"

#include <QTextCodec>

#include <gtest/gtest.h>

using testkit::Era;
using testkit::FakeDevice;
using testkit::Fault;
using testkit::FaultyDevice;
using testkit::LibraryBuilder;
using testkit::LogRecorder;
using testkit::Operation;
using testkit::OperationKind;

namespace
{

constexpr testkit::OperationKinds shownKinds =
    testkit::fileOperations | testkit::deviceCalls | OperationKind::OpenSqlite | OperationKind::CloseSqlite;

constexpr char stopLine[] = "PHOTOLIB 2 Can not parse photo lib";

/// What a reader logs for the library of these tests, when the two companion files are missing or are not copied.
QStringList parseLines(bool companionsTried)
{
    QStringList lines{"PHOTOLIB 1 load ATHCameraDB"};
    if (companionsTried)
        lines += QStringList{"PHOTOLIB 2 Can not open file: /PhotoData/Photos.sqlite-wal",
                             "PHOTOLIB 2 Can not open file: /PhotoData/Photos.sqlite-shm"};
    return lines + QStringList{"PHOTOLIB 1 Parser_Ath_camera_DB", "PHOTOLIB 1 Got asset table name: Z_28ASSETS",
                               "PHOTOLIB 1 Parser_Ath_camera_DB success", "PHOTOLIB 1 load ATHCameraDB end"};
}

QStringList failedLoadLines(const QStringList &reasons)
{
    return QStringList{"PHOTOLIB 1 load ATHCameraDB"} + reasons +
           QStringList{"PHOTOLIB 2 Can not load lib", "PHOTOLIB 1 load ATHCameraDB end", stopLine};
}

QStringList databaseCopied(int size)
{
    return {"shouldStop = false",
            "devicePath = \"fake:device\"",
            "vDevOpen 2 \"fake:device\" = dev1",
            "vFileOpen dev1 \"/PhotoData/Photos.sqlite\" 0 = file1",
            "vDevOpen 0 \"\" = dev2",
            "vDevCreateDir dev2 \"<local>\" = 0",
            "vFileOpen dev2 \"<local>/Photos.sqlite\" 1 = file2",
            QString("vFileRead file1 4194304 = %1").arg(size),
            QString("vFileWrite file2 %1 = %1").arg(size),
            "vFileRead file1 4194304 = 0",
            "vFileClose file1",
            "vDevClose dev1",
            "vFileClose file2",
            "vDevClose dev2"};
}

QStringList companionMissing(const char *suffix, int device)
{
    return {"shouldStop = false", "devicePath = \"fake:device\"",
            QString("vDevOpen 2 \"fake:device\" = dev%1").arg(device),
            QString("vFileOpen dev%1 \"/PhotoData/Photos.sqlite%2\" 0 = null").arg(device).arg(suffix),
            QString("vDevClose dev%1").arg(device)};
}

class OpenLibrary : public testing::Test
{
protected:
    OpenLibrary()
    {
        LibraryBuilder library(Era::Ios16, bareLibrary());
        library.setLibraryUuid("DB-UUID");
        testkit::AssetRow video;
        video.kind = 1;
        asset = library.addAsset(video);
        database = library.bytes().database;
        device.addFile("/PhotoData/Photos.sqlite", database);
        device.addFile(markerPath, markerNaming("CURRENT"));
        device.clearOperations();
    }

    ~OpenLibrary() override { EXPECT_EQ(probe.busySemaphore().available(), 1) << "an opening kept the semaphore"; }

    QStringList upToTheEndOfTheParse() const
    {
        return QStringList{"localDataFolder = \"<local>/\""} + databaseCopied(database.size()) +
               companionMissing("-wal", 3) + companionMissing("-shm", 4) +
               QStringList{"openSqlite \"<local>/Photos.sqlite\" = 0", "closeSqlite"};
    }

    void expectModelUntouched()
    {
        EXPECT_TRUE(probe.groups().isEmpty());
        EXPECT_TRUE(probe.knownUuids().isEmpty());
        EXPECT_TRUE(probe.databaseUuid().isEmpty());
        EXPECT_TRUE(probe.currentLibraryUuid().isEmpty());
    }

    qint64 asset = 0;
    QByteArray database;
    LogRecorder log;
    FakeDevice device;
    const Manager manager = makeManager(device);
    PhotoManagerProbe probe{implementationOf(manager)};
};

} // namespace

TEST_F(OpenLibrary, CopiesParsesAsksToStopAndReadsTheMarkerInThisOrder)
{
    EXPECT_TRUE(manager->openLibrary());
    const QStringList marker{"shouldStop = false",
                             "devicePath = \"fake:device\"",
                             "vDevOpen 2 \"fake:device\" = dev5",
                             "vFileOpen dev5 \"/Photos/Sync/CurrentLibraryUUID.plist\" 0 = file3",
                             QString("vFileRead file3 1024 = %1").arg(markerNaming("CURRENT").size()),
                             "vFileRead file3 1024 = 0",
                             "vFileClose file3",
                             "vDevClose dev5"};
    EXPECT_EQ(device.operations(shownKinds), upToTheEndOfTheParse() + marker);
    log.expectLines(parseLines(true));
}

TEST_F(OpenLibrary, FillsModelAndUuids)
{
    EXPECT_TRUE(manager->openLibrary());
    EXPECT_EQ(probe.databaseUuid(), QString("DB-UUID"));
    EXPECT_EQ(probe.currentLibraryUuid(), QByteArray("CURRENT"));
    EXPECT_EQ(manager->getPhotoList(), QList<qint64>{asset});
    EXPECT_EQ(manager->getPhotoGroup(1, "0").assetIds, QList<qint64>{asset});
    log.takeAll();
}

TEST_F(OpenLibrary, ModelIsBuiltBeforeTheMarkerIsRead)
{
    bool grouped = false;
    device.onOperation([&](const Operation &operation) {
        if (operation.kind == OperationKind::OpenFile && operation.path == markerPath)
            grouped = probe.knownUuids().contains("DB-UUID") && manager->getGroupKeys(1) == QStringList{"0"};
    });
    EXPECT_TRUE(manager->openLibrary());
    EXPECT_TRUE(grouped);
    log.takeAll();
}

TEST_F(OpenLibrary, WithoutAMarkerTheDeviceIsClosedAndTheLibraryIsOpen)
{
    device.removeFile(markerPath);
    EXPECT_TRUE(manager->openLibrary());
    EXPECT_EQ(
        device.operations(shownKinds),
        upToTheEndOfTheParse() +
            QStringList({"shouldStop = false", "devicePath = \"fake:device\"", "vDevOpen 2 \"fake:device\" = dev5",
                         "vFileOpen dev5 \"/Photos/Sync/CurrentLibraryUUID.plist\" 0 = null", "vDevClose dev5"}));
    EXPECT_EQ(manager->getLibraryUuid(), QString("DB-UUID"));
    log.expectLines(parseLines(true));
}

TEST_F(OpenLibrary, DeviceThatCannotBeOpenedForTheMarkerIsClosedAsANullHandle)
{
    Fault fault(OperationKind::OpenDevice, Fault::Effect::Fail, 4);
    fault.where = [](const Operation &operation) { return operation.fileSystem == VDevDevice; };
    const FaultyDevice faulty(device, fault);
    EXPECT_TRUE(manager->openLibrary());
    EXPECT_TRUE(faulty.fired());
    EXPECT_EQ(device.operations(shownKinds),
              upToTheEndOfTheParse() + QStringList({"shouldStop = false", "devicePath = \"fake:device\"",
                                                    "vDevOpen 2 \"fake:device\" = null", "vDevClose null"}));
    EXPECT_EQ(manager->getLibraryUuid(), QString("DB-UUID"));
    log.expectLines(parseLines(true));
}

TEST_F(OpenLibrary, NamesTheDeviceInLocalEncodingForTheMarkerAndInUtf8ForTheCopy)
{
    QTextCodec::setCodecForLocale(QTextCodec::codecForName("ISO-8859-1"));
    device.setDevicePath(QString::fromUtf8("fake:ger\xC3\xA4t"));
    EXPECT_TRUE(manager->openLibrary());
    const QStringList opens = device.operations(OperationKind::OpenDevice);
    ASSERT_EQ(opens.size(), 5);
    EXPECT_EQ(opens.first(), QString::fromUtf8("vDevOpen 2 \"fake:ger\xC3\xA4t\" = dev1"));
    EXPECT_EQ(opens.last(), QString("vDevOpen 2 \"fake:ger\\xE4t\" = dev5"));
    EXPECT_EQ(probe.currentLibraryUuid(), QByteArray("CURRENT"));
    log.takeAll();
}

TEST_F(OpenLibrary, UnreachableDeviceFails)
{
    device.setReachable(false);
    EXPECT_FALSE(manager->openLibrary());
    EXPECT_EQ(device.operations(shownKinds),
              (QStringList{"localDataFolder = \"<local>/\"", "shouldStop = false", "devicePath = \"fake:device\"",
                           "vDevOpen 2 \"fake:device\" = null"}));
    log.expectLines(failedLoadLines({"PHOTOLIB 2 Can not open device"}));
    expectModelUntouched();
}

TEST_F(OpenLibrary, FailedReaderIsNotAskedToStopButStaysTheManagersReader)
{
    device.removeFile("/PhotoData/Photos.sqlite");
    EXPECT_FALSE(manager->openLibrary());
    EXPECT_EQ(device.operationCount(OperationKind::ShouldStop), 1) << "by the copy, and by no one else";
    log.expectLines(failedLoadLines({"PHOTOLIB 2 Can not open file: /PhotoData/Photos.sqlite"}));
    ASSERT_NE(probe.reader(), nullptr);
    EXPECT_FALSE(probe.reader()->isLoaded());
    expectModelUntouched();

    // An album is unknown now; before, there was no library to ask.
    const qint64 unknown = 1;
    albumItem album;
    EXPECT_TRUE(manager->getAlbumItem(&unknown, &album));
    EXPECT_EQ(manager->getPhotoCount(), 0);
}

TEST_F(OpenLibrary, FileThatIsNoDatabaseFails)
{
    device.addFile("/PhotoData/Photos.sqlite", "this is no database at all");
    EXPECT_FALSE(manager->openLibrary());
    log.expectLines(failedLoadLines({"PHOTOLIB 2 Can not open file: /PhotoData/Photos.sqlite-wal",
                                     "PHOTOLIB 2 Can not open file: /PhotoData/Photos.sqlite-shm",
                                     "PHOTOLIB 2 Can not open sqlite db"}));
    expectModelUntouched();
}

TEST_F(OpenLibrary, LocalSideThatCannotBeOpenedLeavesDeviceAndFileOpenOnPurpose)
{
    Fault fault(OperationKind::OpenDevice);
    fault.where = [](const Operation &operation) { return operation.fileSystem == VDevLocal; };
    const FaultyDevice faulty(device, fault);
    device.expectLeftOpen(2);
    EXPECT_FALSE(manager->openLibrary());
    EXPECT_EQ(device.openHandles(), (QStringList{"dev1", "file1"}));
    EXPECT_EQ(device.operations(),
              (QStringList{"vDevOpen 2 \"fake:device\" = dev1", "vFileOpen dev1 \"/PhotoData/Photos.sqlite\" 0 = file1",
                           "vDevOpen 0 \"\" = null"}));
    log.expectLines(
        failedLoadLines({QString("PHOTOLIB 2 Can not open folder: %1").arg(device.localPath("Photos.sqlite"))}));
}

TEST_F(OpenLibrary, StopBeforeTheFirstCopySkipsAllCopiesAndFailsAtTheMissingCopy)
{
    device.setShouldStop(true);
    EXPECT_FALSE(manager->openLibrary());
    EXPECT_EQ(device.operations(shownKinds),
              (QStringList{"localDataFolder = \"<local>/\"", "shouldStop = true", "shouldStop = true",
                           "shouldStop = true", "openSqlite \"<local>/Photos.sqlite\" = 14"}));
    log.expectLines(failedLoadLines({"PHOTOLIB 2 Can not open sqlite db"}));
    expectModelUntouched();
}

TEST_F(OpenLibrary, StopDuringTheCopiesEndsTheOpeningAfterTheParse)
{
    device.stopFromCall(2);
    EXPECT_FALSE(manager->openLibrary());
    EXPECT_EQ(device.operations(shownKinds),
              QStringList{"localDataFolder = \"<local>/\""} + databaseCopied(database.size()) +
                  QStringList({"shouldStop = true", "shouldStop = true", "openSqlite \"<local>/Photos.sqlite\" = 0",
                               "closeSqlite", "shouldStop = true"}));
    log.expectLines(parseLines(false) + QStringList{stopLine});
    expectModelUntouched();
}

TEST_F(OpenLibrary, StopBeforeTheLastCopyEndsTheOpeningAfterTheParse)
{
    device.stopFromCall(3);
    EXPECT_FALSE(manager->openLibrary());
    EXPECT_EQ(device.operationCount(OperationKind::ShouldStop), 4);
    EXPECT_EQ(log.consumeMatching("-shm"), QStringList());
    EXPECT_EQ(log.takeAll().last(), QString(stopLine));
    expectModelUntouched();
}

TEST_F(OpenLibrary, StopAfterTheParseFailsWithTheParsedReaderInPlaceButNoModel)
{
    device.stopFromCall(4);
    EXPECT_FALSE(manager->openLibrary());
    EXPECT_EQ(device.operations(shownKinds), upToTheEndOfTheParse() + QStringList{"shouldStop = true"});
    log.expectLines(parseLines(true) + QStringList{stopLine});
    expectModelUntouched();
    EXPECT_EQ(manager->getPhotoList(), QList<qint64>{asset});
    EXPECT_EQ(manager->getLibraryUuid(), QString("DB-UUID"));
}

TEST_F(OpenLibrary, StopThatIsTakenBackOnlySkipsOneCompanionFile)
{
    device.decideShouldStop([](int call) { return call == 2; });
    EXPECT_TRUE(manager->openLibrary());
    EXPECT_EQ(log.consumeMatching("-wal"), QStringList());
    EXPECT_EQ(log.consumeMatching("-shm").size(), 1);
    EXPECT_EQ(manager->getPhotoCount(), 1);
    log.takeAll();
}

TEST_F(OpenLibrary, StoppedSecondOpeningReadsTheCopyOfTheFirstAndKeepsTheModel)
{
    EXPECT_TRUE(manager->openLibrary());
    log.takeAll();
    const Photos_DB *first = probe.reader();
    device.setShouldStop(true);
    EXPECT_FALSE(manager->openLibrary());
    log.expectLines(parseLines(false) + QStringList{stopLine});
    EXPECT_NE(probe.reader(), first);
    EXPECT_EQ(manager->getPhotoList(), QList<qint64>{asset});
    EXPECT_EQ(manager->getPhotoGroup(1, "0").assetIds, QList<qint64>{asset});
    EXPECT_EQ(manager->getLibraryUuid(), QString("CURRENT"));
}

TEST_F(OpenLibrary, FailedSecondOpeningEmptiesTheListsButNotTheModel)
{
    EXPECT_TRUE(manager->openLibrary());
    device.removeFile("/PhotoData/Photos.sqlite");
    EXPECT_FALSE(manager->openLibrary());
    log.takeAll();
    EXPECT_EQ(manager->getPhotoList(), QList<qint64>());
    EXPECT_EQ(manager->getPhotoGroup(1, "0").assetIds, QList<qint64>{asset});
}

TEST_F(OpenLibrary, OpeningAfterAFailedOneSucceeds)
{
    device.setReachable(false);
    EXPECT_FALSE(manager->openLibrary());
    device.setReachable(true);
    EXPECT_TRUE(manager->openLibrary());
    log.takeAll();
    EXPECT_EQ(manager->getPhotoGroup(1, "0").assetIds, QList<qint64>{asset});
}

TEST_F(OpenLibrary, SecondOpeningKeepsTheMarkersUuidUntilAnotherIsRead)
{
    EXPECT_TRUE(manager->openLibrary());
    device.addFile(markerPath, "no property list");
    EXPECT_TRUE(manager->openLibrary());
    EXPECT_EQ(manager->getLibraryUuid(), QString("CURRENT"));
    device.addFile(markerPath, markerNaming("LATER"));
    EXPECT_TRUE(manager->openLibrary());
    EXPECT_EQ(manager->getLibraryUuid(), QString("LATER"));
    device.addFile(markerPath, markerNaming(""));
    EXPECT_TRUE(manager->openLibrary());
    EXPECT_EQ(manager->getLibraryUuid(), QString("DB-UUID"));
    log.takeAll();
}

TEST(OpenLibraryFaults, EveryFailingOperationIsSurvivedAndOnlyAFailedLoadFailsTheOpening)
{
    LibraryBuilder library(Era::Ios16, bareLibrary());
    library.addAsset();
    const testkit::LibraryBytes bytes = library.bytes(testkit::WalMode::WithContent);
    const int runs = testkit::forEveryFault(Fault(), [&](FakeDevice &device, FaultyDevice &faulty) {
        LogRecorder log;
        device.addFile("/PhotoData/Photos.sqlite", bytes.database);
        device.addFile("/PhotoData/Photos.sqlite-wal", bytes.wal);
        device.addFile("/PhotoData/Photos.sqlite-shm", bytes.shm);
        device.addFile(markerPath, markerNaming("CURRENT"));
        const Manager manager = makeManager(device);
        const bool opened = manager->openLibrary();
        if (faulty.fired()) {
            const Operation failed = faulty.firedOperation();
            const bool leavesOpen = failed.kind == OperationKind::OpenDevice && failed.fileSystem == VDevLocal;
            device.expectLeftOpen(leavesOpen ? 2 : 0);
        }
        const QStringList lines = log.takeAll();
        EXPECT_EQ(opened, !lines.contains("PHOTOLIB 2 Can not load lib"));
        EXPECT_EQ(opened, !lines.contains(stopLine));
        manager->cancel(); // returns: the opening gave its semaphore back
    });
    // Opens of both sides, reads and writes of four files, and the statements at the least.
    EXPECT_GT(runs, 30);
}
