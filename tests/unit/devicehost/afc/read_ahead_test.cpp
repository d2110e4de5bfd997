// What is asked for before anybody calls for it.

#include "memory_phone.h"
#include "phone_reading.h"

#include "devicehost/afc/client.h"
#include "devicehost/afc/device.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>

using namespace devicehost::afc;

namespace
{

constexpr int mebibyte = 1024 * 1024;
constexpr const char *first = "/a";
constexpr const char *second = "/b";

class ReadAhead : public testing::Test
{
protected:
    ReadAhead()
    {
        phone.files[first] = firstContent;
        phone.files[second] = secondContent;
    }

    std::unique_ptr<VFile> open(const char *path)
    {
        devicehost::VError error;
        return device->openFile(path, 0, &error);
    }

    /// The next `size` bytes; fewer at the end and on an error.
    static QByteArray read(VFile *file, int size)
    {
        QByteArray bytes(size, '\0');
        devicehost::VError error;
        qint64 done = 0;
        for (qint64 count = 1; done < size && count > 0; done += std::max<qint64>(count, 0))
            count = file->read(bytes.data() + done, size - done, &error);
        return bytes.left(static_cast<int>(done));
    }

    /// Alike again after so many bytes that whole pieces never are.
    static QByteArray repeated(int size)
    {
        constexpr int period = 65537;
        return patterned(period).repeated(size / period + 1).left(size);
    }

    int reads() const { return static_cast<int>(phone.operations.count(Operation::FileRefRead)); }

    MemoryPhone phone;
    devicehost::VError openError;
    const std::unique_ptr<VDev> device = openDevice(phone.session(), &openError);
    const QByteArray firstContent = repeated(13 * mebibyte + 5);
    const QByteArray secondContent = repeated(12 * mebibyte + 7).mid(7);
};

} // namespace

TEST_F(ReadAhead, AFewPiecesAreOnTheWayWhenACallReturns)
{
    const std::unique_ptr<VFile> file = open(first);
    EXPECT_TRUE(read(file.get(), mebibyte) == firstContent.left(mebibyte));
    EXPECT_EQ(reads(), 8);
    EXPECT_TRUE(read(file.get(), mebibyte) == firstContent.mid(mebibyte, mebibyte));
    EXPECT_EQ(reads(), 9);
}

TEST_F(ReadAhead, NothingIsAskedForBehindTheEnd)
{
    const std::unique_ptr<VFile> file = open(first);
    for (int place = 0; place < firstContent.size(); place += 2 * mebibyte)
        EXPECT_TRUE(read(file.get(), 2 * mebibyte) == firstContent.mid(place, 2 * mebibyte));
    EXPECT_EQ(reads(), 14 + 1); // the last one hears that there is no more
}

TEST_F(ReadAhead, SmallCallsAskForThemselvesOnly)
{
    const std::unique_ptr<VFile> file = open(first);
    for (int call = 1; call <= 5; ++call) {
        EXPECT_TRUE(read(file.get(), mebibyte / 2) == firstContent.mid((call - 1) * mebibyte / 2, mebibyte / 2));
        EXPECT_EQ(reads(), call);
    }
}

TEST_F(ReadAhead, CallsOfAnySizeGetWhatIsThere)
{
    const std::unique_ptr<VFile> file = open(first);
    int place = 0;
    for (const int size :
         {mebibyte, 2 * mebibyte, mebibyte, 100, mebibyte + 1, mebibyte + 1, 3 * mebibyte, 1, mebibyte}) {
        EXPECT_TRUE(read(file.get(), size) == firstContent.mid(place, size)) << place << ' ' << size;
        place += size;
    }
}

TEST_F(ReadAhead, ASeekLeadsToItsPlace)
{
    const std::unique_ptr<VFile> file = open(first);
    for (const int place : {0, 5 * mebibyte, mebibyte + 3, 13 * mebibyte, 13 * mebibyte + 5, 0, mebibyte}) {
        EXPECT_EQ(file->seek(place, 0), place);
        EXPECT_TRUE(read(file.get(), mebibyte) == firstContent.mid(place, mebibyte)) << place;
        EXPECT_TRUE(read(file.get(), mebibyte) == firstContent.mid(place + mebibyte, mebibyte)) << place;
    }
}

TEST_F(ReadAhead, FilesThatAreReadInTurnsGetTheirOwnBytesAndWasteNone)
{
    const std::unique_ptr<VFile> one = open(first);
    const std::unique_ptr<VFile> other = open(second);
    for (int place = 0; place < 12 * mebibyte; place += mebibyte) {
        EXPECT_TRUE(read(one.get(), mebibyte) == firstContent.mid(place, mebibyte)) << place;
        EXPECT_TRUE(read(other.get(), mebibyte) == secondContent.mid(place, mebibyte)) << place;
    }
    EXPECT_EQ(reads(), 24 + 7); // what was on the way when the second one began
}

TEST_F(ReadAhead, AFileThatIsClosedEarlyLeavesTheConnectionToTheNext)
{
    for (int round = 0; round < 3; ++round) {
        EXPECT_TRUE(read(open(first).get(), mebibyte) == firstContent.left(mebibyte));
        const std::unique_ptr<VFile> other = open(second);
        EXPECT_TRUE(read(other.get(), secondContent.size()) == secondContent);
    }
    EXPECT_EQ(phone.connections, 1);
    EXPECT_EQ(phone.openHandles, 0);
}

TEST_F(ReadAhead, ARefusalInTheMiddleIsSaidWhereItComes)
{
    phone.edit = [this](int, Operation operation, QByteArray *answer) {
        if (operation == Operation::FileRefRead && reads() >= 4)
            *answer = MemoryPhone::status(readNumber(answer->constData() + 24), 4);
    };
    const std::unique_ptr<VFile> file = open(first);
    for (int place = 0; place < 3 * mebibyte; place += mebibyte)
        EXPECT_TRUE(read(file.get(), mebibyte) == firstContent.mid(place, mebibyte));
    EXPECT_EQ(read(file.get(), mebibyte), QByteArray());
    EXPECT_EQ(file->tell(), 3 * mebibyte);
    phone.edit = nullptr;
    EXPECT_TRUE(read(file.get(), mebibyte) == firstContent.mid(3 * mebibyte, mebibyte));
    EXPECT_EQ(phone.connections, 1);
}

TEST_F(ReadAhead, ACutAnywhereIsMended)
{
    phone.files[first] = firstContent.left(3 * mebibyte);
    for (qint64 cut = 0; cut < 3 * mebibyte + 500; cut += 77777) {
        SCOPED_TRACE(cut);
        MemoryPhone breaking;
        breaking.files = phone.files;
        breaking.cutAfter = cut;
        const Reading reading = readOverSession(breaking.session(), first, mebibyte);
        EXPECT_TRUE(reading.complete);
        EXPECT_TRUE(reading.content == phone.files[first]);
        EXPECT_EQ(breaking.openHandles, 0);
    }
}
