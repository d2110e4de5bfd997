#include "testing/fake_device.h"

#include "photolib/host/sql_utils.h"
#include "photolib/host/vdev.h"

#include <QTextCodec>

#include <gmock/gmock.h>
#include <gtest/gtest-spi.h>
#include <gtest/gtest.h>

#include <sqlite3.h>

#include <limits>
#include <memory>
#include <thread>
#include <vector>

using testkit::FakeDevice;
using testkit::Operation;
using testkit::OperationKind;

namespace
{

/// An open device side with one open file; closes both, unless a test did.
struct OpenedFile {
    explicit OpenedFile(const char *path, const char *deviceName = "fake:device")
        : device(vDevOpen(VDevDevice, deviceName)), file(vFileOpen(device, path, 0))
    {
    }
    OpenedFile(const OpenedFile &) = delete;
    OpenedFile &operator=(const OpenedFile &) = delete;
    ~OpenedFile()
    {
        if (file != nullptr)
            vFileClose(file);
        vDevClose(device);
    }

    VDev *device;
    VFile *file;
};

QByteArray readBytes(VFile *file, int size)
{
    QByteArray bytes(size, '\0');
    bytes.truncate(std::max(vFileRead(file, bytes.data(), size), 0));
    return bytes;
}

/// A database with one table and one row, as a file of its own.
void makeDatabase(const QString &path)
{
    sqlite3 *db = nullptr;
    ASSERT_EQ(sqlite3_open(path.toUtf8().constData(), &db), SQLITE_OK);
    ASSERT_EQ(sqlite3_exec(db, "CREATE TABLE T(A); INSERT INTO T VALUES(7)", nullptr, nullptr, nullptr), SQLITE_OK);
    ASSERT_EQ(sqlite3_close(db), SQLITE_OK);
}

} // namespace

TEST(FakeDevice, RecordsEveryOperationOfACopyInOrder)
{
    FakeDevice device;
    device.addFile("/PhotoData/Photos.sqlite", "abcde");

    VDev *side = vDevOpen(VDevDevice, "fake:device");
    VFile *source = vFileOpen(side, "/PhotoData/Photos.sqlite", 0);
    VDev *local = vDevOpen(VDevLocal, "");
    EXPECT_EQ(vDevCreateDir(local, device.localPath("a/b").toUtf8().constData()), 0);
    VFile *target = vFileOpen(local, device.localPath("a/b/copy").toUtf8().constData(), 1);
    char buffer[8];
    EXPECT_EQ(vFileRead(source, buffer, 8), 5);
    EXPECT_EQ(vFileWrite(target, buffer, 5), 5);
    EXPECT_EQ(vFileRead(source, buffer, 8), 0);
    vFileClose(source);
    vDevClose(side);
    vFileClose(target);
    vDevClose(local);

    EXPECT_EQ(device.operations(), QStringList({
                                       "vDevOpen 2 \"fake:device\" = dev1",
                                       "vFileOpen dev1 \"/PhotoData/Photos.sqlite\" 0 = file1",
                                       "vDevOpen 0 \"\" = dev2",
                                       "vDevCreateDir dev2 \"<local>/a/b\" = 0",
                                       "vFileOpen dev2 \"<local>/a/b/copy\" 1 = file2",
                                       "vFileRead file1 8 = 5",
                                       "vFileWrite file2 5 = 5",
                                       "vFileRead file1 8 = 0",
                                       "vFileClose file1",
                                       "vDevClose dev1",
                                       "vFileClose file2",
                                       "vDevClose dev2",
                                   }));
    EXPECT_EQ(device.localFile("a/b/copy"), "abcde");
}

TEST(FakeDevice, RecordsFailedOpensAndTheNullDevice)
{
    FakeDevice device;
    EXPECT_EQ(vDevOpen(VDevDevice, "another"), nullptr);
    device.setReachable(false);
    EXPECT_EQ(vDevOpen(VDevDevice, "fake:device"), nullptr);
    device.setReachable(true);
    VDev *side = vDevOpen(VDevDevice, "fake:device");
    EXPECT_EQ(vFileOpen(side, "/absent", 0), nullptr);
    EXPECT_EQ(vFileOpen(side, "", 0), nullptr);
    vDevClose(side);
    vDevClose(nullptr);
    EXPECT_EQ(device.operations(),
              QStringList({"vDevOpen 2 \"another\" = null", "vDevOpen 2 \"fake:device\" = null",
                           "vDevOpen 2 \"fake:device\" = dev1", "vFileOpen dev1 \"/absent\" 0 = null",
                           "vFileOpen dev1 \"\" 0 = null", "vDevClose dev1", "vDevClose null"}));
}

TEST(FakeDevice, SeeksAndTellsFromStartAndEnd)
{
    FakeDevice device;
    device.addFile("/f", "0123456789");
    {
        const OpenedFile opened("/f");
        device.clearOperations();
        EXPECT_EQ(vFileSeek(opened.file, 0, 2), 10);
        EXPECT_EQ(vFileTell(opened.file), 10);
        EXPECT_EQ(vFileSeek(opened.file, -3, 2), 7);
        EXPECT_EQ(readBytes(opened.file, 5), "789");
        EXPECT_EQ(vFileSeek(opened.file, 2, 0), 2);
        EXPECT_EQ(readBytes(opened.file, 3), "234");
        EXPECT_EQ(vFileTell(opened.file), 5);
        EXPECT_EQ(vFileSeek(opened.file, -1, 0), -1);
        EXPECT_EQ(vFileTell(opened.file), 5);
        EXPECT_EQ(vFileSeek(opened.file, 20, 0), 20);
        EXPECT_EQ(vFileRead(opened.file, nullptr, 0), 0);
        EXPECT_EQ(readBytes(opened.file, 5), "");
        EXPECT_EQ(vFileSeek(opened.file, std::numeric_limits<qint64>::max(), 2), -1);
    }
    EXPECT_THAT(device.operations(),
                testing::IsSupersetOf({QString("vFileSeek file1 -3 2 = 7"), QString("vFileSeek file1 -1 0 = -1"),
                                       QString("vFileTell file1 = 10"), QString("vFileRead file1 0 = 0")}));
}

TEST(FakeDevice, VirtualFileOfManyGigabytesIsMadeUpWhereItIsRead)
{
    constexpr qint64 size = qint64{1} << 50;
    FakeDevice device;
    device.addVirtualFile("/huge", size, [](qint64 offset, char *buffer, qint64 count) {
        for (qint64 i = 0; i < count; ++i)
            buffer[i] = static_cast<char>('a' + (offset + i) % 26);
    });
    const OpenedFile opened("/huge");
    EXPECT_EQ(vFileSeek(opened.file, 0, 2), size);
    EXPECT_EQ(vFileTell(opened.file), size);
    constexpr qint64 place = 26 * (qint64{1} << 40) + 3;
    EXPECT_EQ(vFileSeek(opened.file, place, 0), place);
    EXPECT_EQ(readBytes(opened.file, 4), "defg");
    EXPECT_EQ(vFileTell(opened.file), place + 4);
    EXPECT_EQ(vFileSeek(opened.file, -2, 2), size - 2);
    EXPECT_EQ(readBytes(opened.file, 4).size(), 2);
}

TEST(FakeDevice, OpenHandleKeepsReadingARemovedFile)
{
    FakeDevice device;
    device.addFile("/f", "old");
    const OpenedFile opened("/f");
    device.addFile("/f", "new");
    device.removeFile("/f");
    EXPECT_EQ(readBytes(opened.file, 3), "old");
    EXPECT_EQ(vFileOpen(opened.device, "/f", 0), nullptr);
}

TEST(FakeDevice, DatabaseOfThisComputerIsAddedWithItsCompanions)
{
    FakeDevice device;
    const QString source = device.localPath("source.sqlite");
    makeDatabase(source);
    QFile wal(source + "-wal");
    ASSERT_TRUE(wal.open(QIODevice::WriteOnly));
    wal.write("wal");
    wal.close();
    device.addDatabase(source);

    const OpenedFile main("/PhotoData/Photos.sqlite");
    EXPECT_EQ(readBytes(main.file, 15), "SQLite format 3");
    const OpenedFile companion("/PhotoData/Photos.sqlite-wal");
    EXPECT_EQ(readBytes(companion.file, 15), "wal");
    EXPECT_EQ(vFileOpen(companion.device, "/PhotoData/Photos.sqlite-shm", 0), nullptr);
}

TEST(FakeDevice, LocalFilesHaveUtf8NamesAndAreTruncatedByWriting)
{
    FakeDevice device;
    const QByteArray path = device.localPath(QString::fromUtf8("größe.txt")).toUtf8();
    for (const char *content : {"long text", "ab"}) {
        VDev *local = vDevOpen(VDevLocal, "");
        VFile *file = vFileOpen(local, path.constData(), 1);
        EXPECT_EQ(vFileWrite(file, content, static_cast<int>(qstrlen(content))), qstrlen(content));
        vFileClose(file);
        vDevClose(local);
    }
    EXPECT_EQ(device.localFile(QString::fromUtf8("größe.txt")), "ab");
    EXPECT_TRUE(device.operations().contains(QString::fromUtf8("vFileOpen dev1 \"<local>/größe.txt\" 1 = file1")));
}

TEST(FakeDevice, LocalFileThatCannotBeMadeIsANullHandle)
{
    FakeDevice device;
    VDev *local = vDevOpen(VDevLocal, "");
    EXPECT_EQ(vFileOpen(local, device.localPath("absent/file").toUtf8().constData(), 1), nullptr);
    EXPECT_EQ(vFileOpen(local, device.localPath("").toUtf8().constData(), 0), nullptr) << "a folder is no file";
    vDevClose(local);
}

TEST(FakeDevice, DeviceNameIsAcceptedInUtf8AndInTheLocalEncoding)
{
    QTextCodec *before = QTextCodec::codecForLocale();
    QTextCodec::setCodecForLocale(QTextCodec::codecForName("ISO-8859-1"));
    {
        FakeDevice device(QString::fromUtf8("fake:gerät"));
        const OpenedFile utf8("/absent", "fake:ger\xC3\xA4t");
        const OpenedFile latin("/absent", "fake:ger\xE4t");
        EXPECT_NE(utf8.device, nullptr);
        EXPECT_NE(latin.device, nullptr);
        EXPECT_EQ(device.operations(OperationKind::OpenDevice),
                  QStringList(
                      {QString::fromUtf8("vDevOpen 2 \"fake:gerät\" = dev1"), "vDevOpen 2 \"fake:ger\\xE4t\" = dev2"}));
    }
    QTextCodec::setCodecForLocale(before);
}

TEST(FakeDevice, TwoDevicesKeepTheirOperationsApart)
{
    FakeDevice first("one");
    FakeDevice second("two");
    first.addFile("/f", "1");
    second.addFile("/f", "2");
    {
        const OpenedFile fromFirst("/f", "one");
        EXPECT_EQ(readBytes(fromFirst.file, 1), "1");
        VDev *local = vDevOpen(VDevLocal, "");
        vDevClose(local);
    }
    {
        const OpenedFile fromSecond("/f", "two");
        EXPECT_EQ(readBytes(fromSecond.file, 1), "2");
    }
    EXPECT_EQ(first.operations(OperationKind::OpenDevice),
              QStringList({"vDevOpen 2 \"one\" = dev1", "vDevOpen 0 \"\" = dev2"}));
    EXPECT_EQ(second.operations(OperationKind::OpenDevice), QStringList({"vDevOpen 2 \"two\" = dev1"}));
}

TEST(FakeDevice, AnswersOfTheDeviceObjectAreConfigurableAndCounted)
{
    FakeDevice device;
    EXPECT_EQ(device.localDataFolder(), device.localPath(""));
    EXPECT_TRUE(device.isAvailable());
    device.setLocalDataFolder("");
    device.setAvailable(false);
    device.setDevicePath("other");
    EXPECT_EQ(device.localDataFolder(), "");
    EXPECT_FALSE(device.isAvailable());
    EXPECT_EQ(device.devicePath(), "other");
    EXPECT_FALSE(device.shouldStop());
    EXPECT_EQ(device.slotCalls(7), 1);
    EXPECT_EQ(device.slotCalls(16), 1);
    EXPECT_EQ(device.slotCalls(46), 2);
    EXPECT_EQ(device.slotCalls(56), 2);
    EXPECT_EQ(device.operations(testkit::deviceCalls),
              QStringList({"localDataFolder = \"<local>/\"", "isAvailable = true", "localDataFolder = \"\"",
                           "isAvailable = false", "devicePath = \"other\"", "shouldStop = false"}));
    EXPECT_EQ(device.operations(), QStringList());
}

TEST(FakeDevice, ShouldStopCanTurnTrueAtACall)
{
    FakeDevice device;
    EXPECT_FALSE(device.shouldStop());
    device.stopFromCall(2);
    EXPECT_FALSE(device.shouldStop());
    EXPECT_TRUE(device.shouldStop());
    EXPECT_TRUE(device.shouldStop());
    device.setShouldStop(false);
    EXPECT_FALSE(device.shouldStop());
    device.decideShouldStop([](int call) { return call == 6; });
    EXPECT_TRUE(device.shouldStop());
    EXPECT_FALSE(device.shouldStop());
}

TEST(FakeDevice, HookRunsBeforeTheOperationAndMayUseTheDevice)
{
    FakeDevice device;
    device.addFile("/f", "1");
    QStringList seen;
    device.onOperation([&](const Operation &operation) {
        if (operation.kind == OperationKind::OpenFile)
            device.removeFile("/f");
        seen.append(operation.text() + " after " + QString::number(device.operationCount()));
    });
    VDev *side = vDevOpen(VDevDevice, "fake:device");
    EXPECT_EQ(vFileOpen(side, "/f", 0), nullptr);
    device.onOperation({});
    vDevClose(side);
    EXPECT_EQ(seen,
              QStringList({"vDevOpen 2 \"fake:device\" = null after 0", "vFileOpen dev1 \"/f\" 0 = null after 1"}));
}

TEST(FakeDevice, ClearingRestartsTheNumbersOfHandles)
{
    FakeDevice device;
    device.addFile("/f", "1");
    {
        const OpenedFile opened("/f");
        device.clearOperations();
        EXPECT_EQ(device.operations(), QStringList());
        EXPECT_EQ(device.openHandles(), QStringList({"dev1", "file1"}));
        const OpenedFile second("/f");
        EXPECT_EQ(device.operations().last(), "vFileOpen dev2 \"/f\" 0 = file2");
    }
    device.clearOperations();
    const OpenedFile opened("/f");
    EXPECT_EQ(device.operations().last(), "vFileOpen dev1 \"/f\" 0 = file1");
}

TEST(FakeDevice, HandlesLeftOpenFailTheTest)
{
    auto device = std::make_unique<FakeDevice>();
    EXPECT_NE(vDevOpen(VDevDevice, "fake:device"), nullptr);
    EXPECT_NONFATAL_FAILURE(device.reset(), "dev1 was left open");
}

TEST(FakeDevice, HandlesLeftOpenOnPurposeAreCounted)
{
    {
        FakeDevice device;
        device.addFile("/f", "1");
        EXPECT_NE(vFileOpen(vDevOpen(VDevDevice, "fake:device"), "/f", 0), nullptr);
        device.expectLeftOpen(2);
    }
    auto device = std::make_unique<FakeDevice>();
    EXPECT_NE(vDevOpen(VDevDevice, "fake:device"), nullptr);
    device->expectLeftOpen(2);
    EXPECT_NONFATAL_FAILURE(device.reset(), "2 handles should have been left open, but these were: dev1");
}

TEST(FakeDevice, DoubleCloseAndUseAfterCloseFailTheTest)
{
    FakeDevice device;
    device.addFile("/f", "1");
    VDev *side = vDevOpen(VDevDevice, "fake:device");
    VFile *file = vFileOpen(side, "/f", 0);
    char byte = 0;
    vFileClose(file);
    EXPECT_NONFATAL_FAILURE(vFileClose(file), "the file is closed: vFileClose file1");
    EXPECT_NONFATAL_FAILURE(EXPECT_EQ(vFileRead(file, &byte, 1), -1), "the file is closed: vFileRead file1 1");
    EXPECT_NONFATAL_FAILURE(EXPECT_EQ(vFileSeek(file, 0, 0), -1), "the file is closed: vFileSeek file1");
    EXPECT_NONFATAL_FAILURE(EXPECT_EQ(vFileTell(file), -1), "the file is closed: vFileTell file1");
    vDevClose(side);
    EXPECT_NONFATAL_FAILURE(vDevClose(side), "the device is closed: vDevClose dev1");
    EXPECT_NONFATAL_FAILURE(EXPECT_EQ(vFileOpen(side, "/f", 0), nullptr), "the device is closed: vFileOpen dev1");
}

TEST(FakeDevice, ClosingADeviceBeforeItsFilesFailsTheTestUnlessAllowed)
{
    FakeDevice device;
    device.addFile("/f", "1");
    char byte = 0;
    VDev *side = vDevOpen(VDevDevice, "fake:device");
    VFile *file = vFileOpen(side, "/f", 0);
    EXPECT_NONFATAL_FAILURE(vDevClose(side), "files of this device are still open: vDevClose dev1");
    EXPECT_NONFATAL_FAILURE(EXPECT_EQ(vFileRead(file, &byte, 1), -1), "the file's device is closed: vFileRead file1");
    vFileClose(file);

    device.allowClosingDeviceBeforeFiles();
    side = vDevOpen(VDevDevice, "fake:device");
    file = vFileOpen(side, "/f", 0);
    vDevClose(side);
    vFileClose(file);
}

TEST(FakeDevice, WritingToTheDeviceFailsTheTest)
{
    FakeDevice device;
    VDev *side = vDevOpen(VDevDevice, "fake:device");
    EXPECT_NONFATAL_FAILURE(EXPECT_EQ(vFileOpen(side, "/f", 1), nullptr), "never writes to the device: vFileOpen dev1");
    EXPECT_NONFATAL_FAILURE(EXPECT_EQ(vDevCreateDir(side, "/d"), -1), "never writes to the device: vDevCreateDir dev1");
    vDevClose(side);
}

TEST(FakeDevice, WrongArgumentsFailTheTest)
{
    FakeDevice device;
    device.addFile("/f", "1");
    char byte = 0;
    const OpenedFile opened("/f");
    EXPECT_NONFATAL_FAILURE(EXPECT_EQ(vFileRead(opened.file, &byte, -1), -1), "negative size");
    EXPECT_NONFATAL_FAILURE(EXPECT_EQ(vFileRead(opened.file, nullptr, 1), -1), "null buffer");
    EXPECT_NONFATAL_FAILURE(EXPECT_EQ(vFileWrite(opened.file, &byte, 1), -1), "opened in the other mode");
    EXPECT_NONFATAL_FAILURE(EXPECT_EQ(vFileSeek(opened.file, 0, 1), -1), "unknown origin");
    EXPECT_NONFATAL_FAILURE(EXPECT_EQ(vFileOpen(opened.device, "/f", 2), nullptr), "unknown mode");
    EXPECT_NONFATAL_FAILURE(EXPECT_EQ(vFileOpen(opened.device, nullptr, 0), nullptr), "vFileOpen: null path");
    EXPECT_NONFATAL_FAILURE(EXPECT_EQ(vFileOpen(nullptr, "/f", 0), nullptr), "vFileOpen: null handle");
    EXPECT_NONFATAL_FAILURE(vFileClose(nullptr), "vFileClose: null handle");
    EXPECT_NONFATAL_FAILURE(EXPECT_EQ(vDevOpen(VDevLocal, "/"), nullptr), "type 0 and an empty name");
    EXPECT_NONFATAL_FAILURE(vDevClose(reinterpret_cast<VDev *>(&byte)), "vDevClose: unknown handle");
    EXPECT_NONFATAL_FAILURE(static_cast<IIPod &>(device).reserved55(), "the library called slot 55");
    EXPECT_EQ(device.slotCalls(55), 1);
}

TEST(FakeDevice, OperationsWithoutADeviceFailTheTest)
{
    EXPECT_NONFATAL_FAILURE(EXPECT_EQ(vDevOpen(VDevDevice, "fake:device"), nullptr), "no FakeDevice is alive");
}

TEST(TestSqlUtils, OpensStatesAndClosesARecordedDatabase)
{
    FakeDevice device;
    const QString path = device.localPath("Photos.sqlite");
    makeDatabase(path);
    device.isAvailable();
    sqlite3 *db = nullptr;
    ASSERT_EQ(SqlUtils::openSqlite(path, &db), SQLITE_OK);
    sqlite3_stmt *statement = nullptr;
    const char sql[] = "SELECT A FROM T; SELECT 2";
    const char *tail = nullptr;
    ASSERT_EQ(SqlUtils::prepareSqlite(db, sql, -1, &statement, &tail), SQLITE_OK);
    EXPECT_EQ(tail, sql + 16);
    EXPECT_EQ(sqlite3_step(statement), SQLITE_ROW);
    EXPECT_EQ(sqlite3_column_int(statement, 0), 7);
    EXPECT_EQ(sqlite3_finalize(statement), SQLITE_OK);
    EXPECT_EQ(SqlUtils::prepareSqlite(db, "SELECT 1 and more", 8, &statement, nullptr), SQLITE_OK);
    EXPECT_EQ(sqlite3_finalize(statement), SQLITE_OK);
    EXPECT_EQ(SqlUtils::prepareSqlite(db, "SELECT X FROM T", -1, &statement, nullptr), SQLITE_ERROR);
    EXPECT_EQ(statement, nullptr);
    EXPECT_EQ(sqlite3_close(db), SQLITE_OK);
    EXPECT_EQ(
        device.operations(testkit::sqlOperations),
        QStringList({"openSqlite \"<local>/Photos.sqlite\" = 0", "prepareSqlite \"SELECT A FROM T; SELECT 2\" = 0",
                     "prepareSqlite \"SELECT 1\" = 0", "prepareSqlite \"SELECT X FROM T\" = 1", "closeSqlite"}));
}

TEST(TestSqlUtils, NeitherCreatesAFileNorAcceptsOtherContent)
{
    FakeDevice device;
    sqlite3 *db = nullptr;
    EXPECT_EQ(SqlUtils::openSqlite(device.localPath("absent"), &db), SQLITE_CANTOPEN);
    EXPECT_EQ(db, nullptr);
    EXPECT_FALSE(QFile::exists(device.localPath("absent")));
    QFile file(device.localPath("text"));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(QByteArray(5000, 'x'));
    file.close();
    EXPECT_EQ(SqlUtils::openSqlite(device.localPath("text"), &db), SQLITE_NOTADB);
    EXPECT_EQ(db, nullptr);
}

TEST(TestSqlUtils, WorksWithNoDeviceAlive)
{
    sqlite3 *db = nullptr;
    ASSERT_EQ(SqlUtils::openSqlite(":memory:", &db), SQLITE_OK);
    sqlite3_stmt *statement = nullptr;
    EXPECT_EQ(SqlUtils::prepareSqlite(db, "SELECT 1", -1, &statement, nullptr), SQLITE_OK);
    EXPECT_EQ(sqlite3_finalize(statement), SQLITE_OK);
    EXPECT_EQ(sqlite3_close(db), SQLITE_OK);
}

TEST(TestSqlUtils, ATestMayHandOutAConnectionOfItsOwn)
{
    FakeDevice device;
    QString asked;
    device.setOpenSqlite([&](const QString &path, sqlite3 **db) {
        asked = path + device.localDataFolder();
        return sqlite3_open(":memory:", db);
    });
    sqlite3 *db = nullptr;
    EXPECT_EQ(SqlUtils::openSqlite("any", &db), SQLITE_OK);
    EXPECT_EQ(asked, "any" + device.localPath(""));
    EXPECT_EQ(sqlite3_close(db), SQLITE_OK);
    device.setOpenSqlite({});
    EXPECT_EQ(SqlUtils::openSqlite("any", &db), SQLITE_CANTOPEN);
}

TEST(TestSqlUtils, ConnectionLeftOpenFailsTheTest)
{
    auto device = std::make_unique<FakeDevice>();
    sqlite3 *db = nullptr;
    sqlite3_stmt *statement = nullptr;
    ASSERT_EQ(SqlUtils::openSqlite(":memory:", &db), SQLITE_OK);
    ASSERT_EQ(SqlUtils::prepareSqlite(db, "SELECT 1", -1, &statement, nullptr), SQLITE_OK);
    EXPECT_EQ(sqlite3_close(db), SQLITE_BUSY) << "a statement is left over";
    EXPECT_NONFATAL_FAILURE(device.reset(), "1 database connections were left open");
    EXPECT_EQ(sqlite3_finalize(statement), SQLITE_OK);
    EXPECT_EQ(sqlite3_close(db), SQLITE_OK);
}

TEST(FakeDevice, ManyThreadsMayUseItAtOnce)
{
    constexpr int threadCount = 4;
    constexpr int rounds = 50;
    FakeDevice device;
    device.addFile("/f", "0123456789");
    device.onOperation([](const Operation &) {});
    std::vector<std::thread> threads;
    for (int i = 0; i < threadCount; ++i) {
        threads.emplace_back([&device] {
            for (int round = 0; round < rounds; ++round) {
                device.shouldStop();
                const OpenedFile opened("/f", device.devicePath().toUtf8().constData());
                EXPECT_EQ(readBytes(opened.file, 20), "0123456789");
                sqlite3 *db = nullptr;
                EXPECT_EQ(SqlUtils::openSqlite(":memory:", &db), SQLITE_OK);
                EXPECT_EQ(sqlite3_close(db), SQLITE_OK);
            }
        });
    }
    for (std::thread &thread : threads)
        thread.join();
    EXPECT_EQ(device.operationCount(OperationKind::Read), threadCount * rounds);
    EXPECT_EQ(device.operationCount(OperationKind::CloseSqlite), threadCount * rounds);
    EXPECT_EQ(device.slotCalls(7), threadCount * rounds);
    EXPECT_EQ(device.openHandles(), QStringList());
}
