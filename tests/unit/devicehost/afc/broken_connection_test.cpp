#include "memory_phone.h"
#include "phone_reading.h"

#include "devicehost/afc/client.h"
#include "devicehost/afc/file.h"
#include "devicehost/afc/lane.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <memory>
#include <new>

using namespace devicehost::afc;

namespace
{

constexpr const char *path = "/DCIM/a";

void expectNothingLeft(const MemoryPhone &phone)
{
    EXPECT_EQ(phone.openConnections, 0);
    EXPECT_EQ(phone.openHandles, 0);
}

/// What is reported as the whole file is the whole file, and what is read of it before an error is its beginning.
void expectNothingWrong(const Reading &reading, const QByteArray &content)
{
    if (reading.complete)
        EXPECT_EQ(reading.content, content);
    else
        EXPECT_NE(reading.error.code, 0);
    EXPECT_TRUE(content.startsWith(reading.content));
}

/// Bytes that a phone sends while a file of this content is opened and read without a fault.
qint64 bytesOfASession(const QByteArray &content, int block)
{
    MemoryPhone phone;
    phone.files[path] = content;
    EXPECT_TRUE(readOverSession(phone.session(), path, block).complete);
    EXPECT_GT(phone.bytesSent, content.size());
    return phone.bytesSent;
}

/// Memory runs short while the first answer is taken.
class ShortOfMemory final : public Transport
{
public:
    explicit ShortOfMemory(int *received) : received(received) {}

    bool send(const char *, std::size_t) override { return true; }

    qint64 receive(char *, std::size_t, std::chrono::milliseconds) override
    {
        if (++*received == 1)
            throw std::bad_alloc();
        return ended;
    }

private:
    int *received;
};

} // namespace

TEST(AfcBrokenConnection, AnAnswerThatWasNotTakenForLackOfMemoryIsTakenByNobodyElse)
{
    int received = 0;
    Client client(std::make_unique<ShortOfMemory>(&received), std::make_shared<Watchdog>([] { return false; }),
                  std::chrono::seconds(30));
    FileInfo info;
    EXPECT_THROW(client.fileInfo(path, &info), std::bad_alloc);
    EXPECT_FALSE(client.isUsable());
    EXPECT_FALSE(client.fileInfo(path, &info).ok());
    EXPECT_EQ(received, 1);
}

TEST(AfcBrokenConnection, ACutAtAnyByteIsMendedByOneNewConnection)
{
    const QByteArray content = patterned(300);
    const qint64 all = bytesOfASession(content, 128);
    for (qint64 cut = 0; cut < all; ++cut) {
        SCOPED_TRACE(cut);
        MemoryPhone phone;
        phone.files[path] = content;
        phone.cutAfter = cut;
        const Reading reading = readOverSession(phone.session(), path, 128);
        EXPECT_TRUE(reading.complete);
        EXPECT_EQ(reading.content, content);
        EXPECT_LE(phone.connections, 2);
        expectNothingLeft(phone);
    }
}

TEST(AfcBrokenConnection, WithNoNewConnectionACutAtAnyByteIsAnError)
{
    const QByteArray content = patterned(300);
    const qint64 all = bytesOfASession(content, 128);
    int failures = 0;
    for (qint64 cut = 0; cut < all; ++cut) {
        SCOPED_TRACE(cut);
        MemoryPhone phone;
        phone.files[path] = content;
        phone.cutAfter = cut;
        phone.connectionsAllowed = 1;
        const Reading reading = readOverSession(phone.session(), path, 128);
        expectNothingWrong(reading, content);
        expectNothingLeft(phone);
        if (reading.complete)
            continue;
        ++failures;
        EXPECT_EQ(reading.error.text, "the device is not connected");
    }
    EXPECT_EQ(failures, all - 48); // the answer to the closing is the last of all, and the file was read by then
}

TEST(AfcBrokenConnection, AConnectionThatAlwaysBreaksEndsInAnError)
{
    const QByteArray content = patterned(300);
    const qint64 all = bytesOfASession(content, 128);
    for (qint64 cut = 0; cut < all; ++cut) {
        SCOPED_TRACE(cut);
        MemoryPhone phone;
        phone.files[path] = content;
        phone.cutAfter = cut;
        phone.cutAlways = true;
        const Reading reading = readOverSession(phone.session(), path, 128);
        expectNothingWrong(reading, content);
        EXPECT_LE(phone.connections, 5); // one more for every answer that came, and none besides
        expectNothingLeft(phone);
    }
}

TEST(AfcBrokenConnection, SeveralRequestsOnTheWayLoseNothing)
{
    const QByteArray content = patterned(3 * 1024 * 1024 + 5);
    const int block = 4 * 1024 * 1024;
    const qint64 all = bytesOfASession(content, block);
    // Around where every answer ends and the next begins, and some places in between; every byte would be terabytes.
    QList<qint64> cuts;
    for (qint64 cut = 0; cut < all; cut += 99991)
        cuts += cut;
    for (qint64 piece = 1; piece <= 3; ++piece)
        for (qint64 off = 0; off < 360; off += 13)
            cuts += piece * 1024 * 1024 + off;
    for (const qint64 cut : cuts) {
        SCOPED_TRACE(cut);
        MemoryPhone phone;
        phone.files[path] = content;
        phone.cutAfter = cut;
        const Reading reading = readOverSession(phone.session(), path, block);
        EXPECT_TRUE(reading.complete);
        EXPECT_TRUE(reading.content == content);
    }
}

TEST(AfcBrokenConnection, ReadingGoesOnOnlyInTheSameFile)
{
    for (const bool sameSize : {false, true}) {
        MemoryPhone phone;
        phone.files[path] = patterned(1000);
        phone.edit = [&phone, sameSize](int number, Operation, QByteArray *answer) {
            if (number != 4) // the second read
                return;
            answer->clear();
            answer->append("garbage that is long enough to be taken for a header", 48);
            phone.files[path] = QByteArray(sameSize ? 1000 : 999, 'x');
            phone.modified = "1700000000000000001";
        };
        const Reading reading = readOverSession(phone.session(), path, 100);
        EXPECT_FALSE(reading.complete);
        EXPECT_EQ(reading.content, patterned(1000).left(100));
        EXPECT_EQ(reading.error.code, ESTALE);
        expectNothingLeft(phone);
    }
}

TEST(AfcBrokenConnection, AFileThatFailedStaysFailed)
{
    MemoryPhone phone;
    phone.files[path] = patterned(1000);
    phone.cutAfter = 250;
    phone.connectionsAllowed = 1;
    devicehost::VError error;
    const std::unique_ptr<VDev> device = openDevice(phone.session(), &error);
    const std::unique_ptr<VFile> file = device->openFile(path, 0, &error);
    ASSERT_NE(file, nullptr);
    char buffer[1000];
    EXPECT_EQ(file->read(buffer, 1000, &error), -1);
    phone.connectionsAllowed = 2;
    EXPECT_EQ(file->read(buffer, 1000, &error), -1);
    EXPECT_EQ(file->read(buffer, 1000, &error), -1);
    EXPECT_EQ(file->tell(), 0);
    // The device is as good as new all the same.
    const std::unique_ptr<VFile> other = device->openFile(path, 0, &error);
    ASSERT_NE(other, nullptr);
    EXPECT_EQ(other->read(buffer, 1000, &error), 1000);
}

TEST(AfcBrokenConnection, AllFilesOfADeviceGoOnOverTheSameNewConnection)
{
    MemoryPhone phone;
    phone.files[path] = patterned(1000);
    phone.files["/b"] = patterned(2000);
    devicehost::VError error;
    const std::unique_ptr<VDev> device = openDevice(phone.session(), &error);
    const std::unique_ptr<VFile> first = device->openFile(path, 0, &error);
    const std::unique_ptr<VFile> second = device->openFile("/b", 0, &error);
    phone.edit = [](int number, Operation, QByteArray *answer) {
        if (number == 5)
            answer->replace(0, 1, "X");
    };
    char buffer[1000];
    EXPECT_EQ(first->read(buffer, 1000, &error), 1000);
    EXPECT_EQ(QByteArray(buffer, 1000), patterned(1000));
    EXPECT_EQ(second->seek(500, 0), 500);
    EXPECT_EQ(second->read(buffer, 1000, &error), 1000);
    EXPECT_EQ(QByteArray(buffer, 1000), patterned(2000).mid(500, 1000));
    EXPECT_EQ(phone.connections, 2);
}

TEST(AfcBrokenConnection, SilenceEndsTheOperationWithoutAnotherTry)
{
    const QByteArray content = patterned(300);
    const qint64 all = bytesOfASession(content, 128) - 48;
    for (qint64 stall = 0; stall < all; ++stall) {
        SCOPED_TRACE(stall);
        MemoryPhone phone;
        phone.files[path] = content;
        phone.cutAfter = stall;
        phone.stallInsteadOfCut = true;
        const Reading reading = readOverSession(phone.session(), path, 128);
        EXPECT_FALSE(reading.complete);
        EXPECT_EQ(reading.error.code, ETIMEDOUT);
        EXPECT_EQ(reading.error.text, "the device does not answer");
        EXPECT_TRUE(content.startsWith(reading.content));
        EXPECT_EQ(phone.connections, 1);
        EXPECT_EQ(phone.openConnections, 0);
    }
}
