#include "testing/faulty_device.h"

#include "photolib/host/sql_utils.h"
#include "photolib/host/vdev.h"

#include <gtest/gtest-spi.h>
#include <gtest/gtest.h>

#include <sqlite3.h>

#include <memory>
#include <optional>

using testkit::FakeDevice;
using testkit::Fault;
using testkit::FaultyDevice;
using testkit::Operation;
using testkit::OperationKind;

namespace
{

class FaultyDeviceTest : public testing::Test
{
protected:
    FaultyDeviceTest()
    {
        device.addFile("/f", "0123456789");
        side = vDevOpen(VDevDevice, "fake:device");
        file = vFileOpen(side, "/f", 0);
    }
    ~FaultyDeviceTest() override
    {
        vFileClose(file);
        vDevClose(side);
    }

    QByteArray read(int size)
    {
        QByteArray bytes(size, '\0');
        answer = vFileRead(file, bytes.data(), size);
        return bytes;
    }

    FakeDevice device;
    VDev *side = nullptr;
    VFile *file = nullptr;
    int answer = 0;
};

/// Copies "/f" to the local file "copy", as carefully as a host could wish; true when all of it arrived.
bool copyCarefully(const FakeDevice &device)
{
    VDev *side = vDevOpen(VDevDevice, "fake:device");
    VFile *source = side != nullptr ? vFileOpen(side, "/f", 0) : nullptr;
    VDev *local = source != nullptr ? vDevOpen(VDevLocal, "") : nullptr;
    VFile *target = local != nullptr ? vFileOpen(local, device.localPath("copy").toUtf8().constData(), 1) : nullptr;
    char buffer[4];
    int got = 0;
    bool done = target != nullptr;
    while (done && (got = vFileRead(source, buffer, 4)) > 0)
        done = vFileWrite(target, buffer, got) == got;
    done = done && got == 0;
    if (target != nullptr)
        vFileClose(target);
    if (source != nullptr)
        vFileClose(source);
    vDevClose(local);
    vDevClose(side);
    return done;
}

} // namespace

TEST_F(FaultyDeviceTest, FailsTheChosenOperationOnly)
{
    const FaultyDevice faulty(device, Fault(OperationKind::Read, Fault::Effect::Fail, 2));
    EXPECT_EQ(read(2), "01");
    EXPECT_FALSE(faulty.fired());
    EXPECT_EQ(vFileTell(file), 2);
    read(2);
    EXPECT_EQ(answer, -1);
    EXPECT_TRUE(faulty.fired());
    EXPECT_EQ(faulty.firedOperation().text(), "vFileRead file1 2 = -1");
    EXPECT_EQ(read(2), "23");
    EXPECT_EQ(device.operations(OperationKind::Read),
              QStringList({"vFileRead file1 2 = 2", "vFileRead file1 2 = -1", "vFileRead file1 2 = 2"}));
}

TEST_F(FaultyDeviceTest, EveryKindAnswersItsFailure)
{
    const auto failing = [this](OperationKind kind) { return std::make_unique<FaultyDevice>(device, Fault(kind)); };
    VDev *local = vDevOpen(VDevLocal, "");
    VFile *target = vFileOpen(local, device.localPath("t").toUtf8().constData(), 1);
    auto faulty = failing(OperationKind::OpenDevice);
    EXPECT_EQ(vDevOpen(VDevDevice, "fake:device"), nullptr);
    faulty.reset();
    faulty = failing(OperationKind::OpenFile);
    EXPECT_EQ(vFileOpen(side, "/f", 0), nullptr);
    faulty.reset();
    faulty = failing(OperationKind::CreateFolder);
    EXPECT_EQ(vDevCreateDir(local, device.localPath("d").toUtf8().constData()), -1);
    EXPECT_FALSE(QFile::exists(device.localPath("d")));
    faulty.reset();
    faulty = failing(OperationKind::Write);
    EXPECT_EQ(vFileWrite(target, "1", 1), -1);
    EXPECT_EQ(device.localFile("t"), "");
    faulty.reset();
    faulty = failing(OperationKind::Seek);
    EXPECT_EQ(vFileSeek(file, 3, 0), -1);
    EXPECT_EQ(vFileTell(file), 0);
    faulty.reset();
    faulty = failing(OperationKind::Tell);
    EXPECT_EQ(vFileTell(file), -1);
    faulty.reset();
    faulty = failing(OperationKind::OpenSqlite);
    sqlite3 *db = nullptr;
    EXPECT_EQ(SqlUtils::openSqlite(":memory:", &db), SQLITE_CANTOPEN);
    EXPECT_EQ(db, nullptr);
    faulty.reset();
    ASSERT_EQ(SqlUtils::openSqlite(":memory:", &db), SQLITE_OK);
    faulty = failing(OperationKind::PrepareSqlite);
    sqlite3_stmt *statement = nullptr;
    EXPECT_EQ(SqlUtils::prepareSqlite(db, "SELECT 1", -1, &statement, nullptr), SQLITE_ERROR);
    EXPECT_EQ(statement, nullptr);
    EXPECT_STREQ(sqlite3_errmsg(db), "near \"injected\": syntax error");
    faulty.reset();
    EXPECT_EQ(sqlite3_close(db), SQLITE_OK);
    vFileClose(target);
    vDevClose(local);
}

TEST_F(FaultyDeviceTest, ShortReadGivesHalfAndGoesOnBehindIt)
{
    const FaultyDevice faulty(device, Fault(OperationKind::Read, Fault::Effect::ShortTransfer));
    EXPECT_EQ(read(100).left(6), "01234\xEE");
    EXPECT_EQ(answer, 5);
    EXPECT_EQ(read(100).left(5), "56789");
    EXPECT_EQ(answer, 5);
}

TEST_F(FaultyDeviceTest, ShortWriteWritesHalf)
{
    VDev *local = vDevOpen(VDevLocal, "");
    VFile *target = vFileOpen(local, device.localPath("t").toUtf8().constData(), 1);
    const FaultyDevice faulty(device, Fault(OperationKind::Write, Fault::Effect::ShortTransfer));
    EXPECT_EQ(vFileWrite(target, "abcdef", 6), 3);
    EXPECT_EQ(vFileWrite(target, "x", 1), 1);
    vFileClose(target);
    vDevClose(local);
    EXPECT_EQ(device.localFile("t"), "abcx");
    EXPECT_EQ(device.operations(OperationKind::Write).first(), "vFileWrite file2 6 = 3");
}

TEST_F(FaultyDeviceTest, TruncatedFileEndsInTheMiddleOfTheRead)
{
    const FaultyDevice faulty(device, Fault(OperationKind::Read, Fault::Effect::Truncate, 2));
    EXPECT_EQ(read(4), "0123");
    read(4);
    EXPECT_EQ(answer, 2);
    read(4);
    EXPECT_EQ(answer, 0);
    read(4);
    EXPECT_EQ(answer, 0);
    EXPECT_EQ(vFileSeek(file, 0, 2), 10) << "the size that the device tells stays";
}

TEST_F(FaultyDeviceTest, GoneDeviceFailsFromThereOnButTheLocalSideWorks)
{
    const FaultyDevice faulty(device, Fault(OperationKind::Read, Fault::Effect::DeviceGone, 2));
    EXPECT_EQ(read(2), "01");
    read(2);
    EXPECT_EQ(answer, -1);
    read(2);
    EXPECT_EQ(answer, -1);
    EXPECT_EQ(vFileSeek(file, 0, 0), -1);
    EXPECT_EQ(vFileTell(file), -1);
    EXPECT_EQ(vFileOpen(side, "/f", 0), nullptr);
    EXPECT_EQ(vDevOpen(VDevDevice, "fake:device"), nullptr);
    VDev *local = vDevOpen(VDevLocal, "");
    EXPECT_NE(local, nullptr);
    vDevClose(local);
}

TEST_F(FaultyDeviceTest, SeekGoesToAnotherPlaceAndTellAnswersAsChosen)
{
    const FaultyDevice seeks(device, Fault(OperationKind::Seek, Fault::Effect::WrongPosition));
    EXPECT_EQ(vFileSeek(file, 4, 0), 5);
    EXPECT_EQ(vFileSeek(file, 4, 0), 4);
    Fault negative(OperationKind::Tell, Fault::Effect::Answer);
    negative.answer = -7;
    const FaultyDevice tells(device, negative);
    EXPECT_EQ(vFileTell(file), -7);
    EXPECT_EQ(vFileTell(file), 4);
    EXPECT_EQ(device.operations(OperationKind::Seek).first(), "vFileSeek file1 4 0 = 5");
}

TEST_F(FaultyDeviceTest, CountsOnlyTheOperationsThatWhereAccepts)
{
    device.addFile("/g", "x");
    Fault fault(OperationKind::OpenFile);
    fault.where = [](const Operation &operation) { return operation.path == "/g"; };
    const FaultyDevice faulty(device, fault);
    VFile *other = vFileOpen(side, "/f", 0);
    EXPECT_NE(other, nullptr);
    vFileClose(other);
    EXPECT_EQ(vFileOpen(side, "/g", 0), nullptr);
}

TEST_F(FaultyDeviceTest, DeviceIsSoundAgainAfterIt)
{
    {
        const FaultyDevice faulty(device, Fault(OperationKind::Read, Fault::Effect::DeviceGone));
        read(2);
        EXPECT_EQ(answer, -1);
    }
    EXPECT_EQ(read(2), "01");
}

TEST(ForEveryFault, VisitsEveryOperationOnceAndEndsWithASoundRun)
{
    QStringList fired;
    int sound = 0;
    const int runs =
        testkit::forEveryFault(testkit::faultableOperations, [&](FakeDevice &device, FaultyDevice &faulty) {
            device.addFile("/f", "0123456789");
            const bool done = copyCarefully(device);
            EXPECT_EQ(done, !faulty.fired());
            EXPECT_TRUE(!done || device.localFile("copy") == "0123456789");
            if (faulty.fired())
                fired.append(faulty.firedOperation().text().section(' ', 0, 1));
            else
                ++sound;
        });
    EXPECT_EQ(runs, 11);
    EXPECT_EQ(sound, 1);
    EXPECT_EQ(fired, QStringList({"vDevOpen 2", "vFileOpen dev1", "vDevOpen 0", "vFileOpen dev2", "vFileRead file1",
                                  "vFileWrite file2", "vFileRead file1", "vFileWrite file2", "vFileRead file1",
                                  "vFileWrite file2", "vFileRead file1"}));
}

TEST(ForEveryFault, NoFaultAtAllFailsTheTest)
{
    const auto idle = [](FakeDevice &, FaultyDevice &) {};
    EXPECT_NONFATAL_FAILURE(testkit::forEveryFault(OperationKind::Read, idle), "the fault never happened");
}

TEST(ForEveryFault, LeftOpenHandleIsReportedWithTheFaultThatLedToIt)
{
    const auto careless = [](FakeDevice &device, FaultyDevice &) {
        device.addFile("/f", "1");
        VDev *side = vDevOpen(VDevDevice, "fake:device");
        if (VFile *file = vFileOpen(side, "/f", 0)) {
            vFileClose(file);
            vDevClose(side);
        }
    };
    EXPECT_NONFATAL_FAILURE(testkit::forEveryFault(OperationKind::OpenFile, careless), "dev1 was left open");
}
