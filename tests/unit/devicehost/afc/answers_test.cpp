#include "memory_phone.h"
#include "phone_reading.h"

#include "devicehost/afc/errors.h"

#include <gtest/gtest.h>

#include <cerrno>

using namespace devicehost::afc;

namespace
{

constexpr const char *path = "/DCIM/a";
const QByteArray content = patterned(300);
constexpr int block = 128;

/// The operations of a reading without a fault.
QList<Operation> usualOperations()
{
    MemoryPhone phone;
    phone.files[path] = content;
    readOverSession(phone.session(), path, block);
    return phone.operations;
}

bool meansLost(quint64 status)
{
    return status == 2 || status == 30 || status == 32;
}

quint64 packetNumberOf(const QByteArray &answer)
{
    return readNumber(answer.constData() + 24);
}

/// Reads with the answer to one operation replaced by what `change` makes of it.
Reading readWith(MemoryPhone *phone, int at, const std::function<void(QByteArray *)> &change)
{
    phone->files[path] = content;
    phone->edit = [at, change](int number, Operation, QByteArray *answer) {
        if (number == at)
            change(answer);
    };
    return readOverSession(phone->session(), path, block);
}

} // namespace

TEST(AfcAnswers, AReadingTakesTheseOperations)
{
    EXPECT_EQ(usualOperations(),
              (QList<Operation>{Operation::GetFileInfo, Operation::FileRefOpen, Operation::FileRefRead,
                                Operation::FileRefRead, Operation::FileRefRead, Operation::FileRefRead,
                                Operation::FileRefClose}));
}

TEST(AfcAnswers, EveryErrorCodeAtEveryOperationIsReportedOrMended)
{
    const QList<Operation> usual = usualOperations();
    QList<quint64> codes;
    for (quint64 code = 1; code <= 40; ++code)
        codes += code;
    codes << 255 << 0x80000000u << ~quint64(0);
    for (int at = 1; at <= usual.size(); ++at) {
        for (const quint64 code : codes) {
            SCOPED_TRACE(testing::Message() << "operation " << at << ", code " << code);
            MemoryPhone phone;
            const Reading reading = readWith(&phone, at, [code](QByteArray *answer) {
                *answer = MemoryPhone::status(packetNumberOf(*answer), code);
            });
            const bool harmless = usual[at - 1] == Operation::FileRefClose || meansLost(code);
            EXPECT_EQ(reading.complete, harmless);
            EXPECT_TRUE(content.startsWith(reading.content));
            if (harmless) {
                EXPECT_EQ(reading.content, content);
            } else {
                const devicehost::VError expected = explain(ErrorSource::Service, static_cast<qint64>(code));
                EXPECT_EQ(reading.error.code, expected.code);
                EXPECT_EQ(reading.error.text, expected.text);
                EXPECT_EQ(reading.error.advice, expected.advice);
            }
            EXPECT_EQ(phone.connections, meansLost(code) && usual[at - 1] != Operation::FileRefClose ? 2 : 1);
            EXPECT_EQ(phone.openConnections, 0);
        }
    }
}

TEST(AfcAnswers, AfterARefusalTheConnectionIsUsedOn)
{
    MemoryPhone phone;
    phone.files[path] = content;
    const std::shared_ptr<Session> session = phone.session();
    EXPECT_EQ(readOverSession(session, "/missing").error.code, ENOENT);
    EXPECT_EQ(readOverSession(session, path).content, content);
    EXPECT_EQ(phone.connections, 1);
}

TEST(AfcAnswers, NoFlippedBitOfAHeaderMakesAWrongByte)
{
    const int operations = usualOperations().size();
    for (int at = 1; at < operations; ++at) { // the last is the closing, which nobody waits for
        for (int bit = 0; bit < 40 * 8; ++bit) {
            SCOPED_TRACE(testing::Message() << "operation " << at << ", bit " << bit);
            MemoryPhone phone;
            const Reading reading = readWith(&phone, at, [bit](QByteArray *answer) {
                (*answer)[bit / 8] = static_cast<char>(answer->at(bit / 8) ^ 1 << bit % 8);
            });
            EXPECT_TRUE(content.startsWith(reading.content));
            if (reading.complete)
                EXPECT_EQ(reading.content, content);
            else
                EXPECT_NE(reading.error.code, 0);
            EXPECT_EQ(phone.openConnections, 0);
        }
    }
}

TEST(AfcAnswers, WrongHeadersAreNoticedOneAndAll)
{
    struct Change {
        const char *what;
        int offset;
        quint64 value;
    };
    const Change changes[] = {
        {"magic", 0, 0},
        {"entire length below the header's", 8, 39},
        {"entire length of nothing", 8, 0},
        {"entire length beyond the room", 8, 40 + 65537},
        {"entire length that is a negative number", 8, ~quint64(0)},
        {"entire length of four gigabytes", 8, quint64(1) << 32},
        {"this length below the header's", 16, 39},
        {"this length beyond the entire one", 16, 100000},
        {"packet number of the future", 24, 1000},
        {"packet number 0", 24, 0},
        {"operation of a request", 32, 0x0F},
        {"no operation", 32, 0},
        {"operation of more than a byte", 32, 0x100000002},
    };
    const int operations = usualOperations().size();
    for (int at = 1; at < operations; ++at) {
        for (const Change &change : changes) {
            SCOPED_TRACE(testing::Message() << "operation " << at << ": " << change.what);
            MemoryPhone phone;
            phone.connectionsAllowed = 1;
            const Reading reading = readWith(
                &phone, at, [&change](QByteArray *answer) { answer->replace(change.offset, 8, number(change.value)); });
            EXPECT_FALSE(reading.complete);
            EXPECT_TRUE(content.startsWith(reading.content));
            EXPECT_NE(reading.error.code, 0);
        }
    }
}

TEST(AfcAnswers, SuccessIsNoAnswerToAQuestion)
{
    for (int at = 1; at <= 6; ++at) {
        MemoryPhone phone;
        const Reading reading =
            readWith(&phone, at, [](QByteArray *answer) { *answer = MemoryPhone::status(packetNumberOf(*answer), 0); });
        EXPECT_TRUE(reading.complete);
        EXPECT_EQ(reading.content, content);
        EXPECT_EQ(phone.connections, 2) << at;
    }
}

TEST(AfcAnswers, ShortAnswersAreReadOnFrom)
{
    for (const qint64 largest : {1, 7, 127, 128, 129, 299}) {
        MemoryPhone phone;
        phone.files[path] = content;
        phone.largestAnswer = largest;
        const Reading reading = readOverSession(phone.session(), path, block);
        EXPECT_TRUE(reading.complete);
        EXPECT_EQ(reading.content, content);
        EXPECT_EQ(phone.connections, 1);
    }
}

TEST(AfcAnswers, ShortAnswersWithSeveralRequestsOnTheWayLoseNothing)
{
    const QByteArray large = patterned(5 * 1024 * 1024 + 17);
    for (const qint64 largest : {1024 * 1024 - 1, 700000, 1024 * 1024}) {
        MemoryPhone phone;
        phone.files[path] = large;
        phone.largestAnswer = largest;
        const Reading reading = readOverSession(phone.session(), path, 4 * 1024 * 1024);
        EXPECT_TRUE(reading.complete);
        EXPECT_TRUE(reading.content == large);
    }
}

TEST(AfcAnswers, BytesMayComeOneByOne)
{
    MemoryPhone phone;
    phone.files[path] = content;
    phone.mostAtOnce = 1;
    const Reading reading = readOverSession(phone.session(), path, block);
    EXPECT_TRUE(reading.complete);
    EXPECT_EQ(reading.content, content);
}

TEST(AfcAnswers, AnEmptyAnswerBeforeTheEndIsNotTheEnd)
{
    MemoryPhone phone;
    const Reading reading = readWith(&phone, 4, [](QByteArray *answer) {
        *answer = MemoryPhone::answer(packetNumberOf(*answer), Operation::Data, QByteArray());
    });
    EXPECT_FALSE(reading.complete);
    EXPECT_EQ(reading.content, content.left(block));
    EXPECT_EQ(reading.error.code, EIO);
    EXPECT_EQ(reading.error.text, "the device gives less of the file than it has");
}

TEST(AfcAnswers, AFileThatBecameShorterEndsThere)
{
    MemoryPhone phone;
    const Reading reading = readWith(&phone, 3, [&phone](QByteArray *) { phone.files[path] = content.left(200); });
    EXPECT_TRUE(reading.complete);
    EXPECT_EQ(reading.content, content.left(200));
}

TEST(AfcAnswers, AFileThatBecameLongerIsReadToItsNewEnd)
{
    MemoryPhone phone;
    const Reading reading = readWith(&phone, 3, [&phone](QByteArray *) { phone.files[path] = content + "more"; });
    EXPECT_TRUE(reading.complete);
    EXPECT_EQ(reading.content, content + "more");
}

TEST(AfcAnswers, DescriptionsThatMakeNoSenseOpenNothing)
{
    const auto zeroed = [](QByteArray text) { return text.replace('|', '\0'); };
    const QByteArray good = zeroed("st_size|300|st_ifmt|S_IFREG|");
    FileInfo info;
    ASSERT_TRUE(readFileInfo(good, &info));
    EXPECT_EQ(info.size, 300);
    const QList<QByteArray> bad = {
        "",
        zeroed("|"),
        "st_size",
        zeroed("st_size|"),
        zeroed("st_size|300|"),
        zeroed("st_ifmt|S_IFREG|"),
        good.left(good.size() - 1),
        good + zeroed("key|"),
        zeroed("st_size|-1|st_ifmt|S_IFREG|"),
        zeroed("st_size|+1|st_ifmt|S_IFREG|"),
        zeroed("st_size| 1|st_ifmt|S_IFREG|"),
        zeroed("st_size||st_ifmt|S_IFREG|"),
        zeroed("st_size|x|st_ifmt|S_IFREG|"),
        zeroed("st_size|99999999999999999999|st_ifmt|S_IFREG|"),
    };
    for (const QByteArray &description : bad) {
        SCOPED_TRACE(description.toPercentEncoding().toStdString());
        MemoryPhone phone;
        const Reading reading = readWith(&phone, 1, [&description](QByteArray *answer) {
            *answer = MemoryPhone::answer(packetNumberOf(*answer), Operation::Data, QByteArray(), description);
        });
        EXPECT_FALSE(reading.opened);
        EXPECT_EQ(reading.error.code, EPROTO);
    }
}

TEST(AfcAnswers, OnlyFilesAreOpened)
{
    MemoryPhone phone;
    phone.folders << "/DCIM";
    phone.links << "/link";
    phone.files["/a"] = "content";
    const std::shared_ptr<Session> session = phone.session();
    EXPECT_EQ(readOverSession(session, "/DCIM").error.code, EISDIR);
    EXPECT_EQ(readOverSession(session, "/link").error.code, ELOOP);
    EXPECT_EQ(readOverSession(session, "/none").error.code, ENOENT);
    EXPECT_EQ(readOverSession(session, "//./a").content, "content");
    EXPECT_FALSE(phone.operations.contains(Operation::FileRefSeek));
    phone.operations.clear();
    for (const char *name : {"/../a", "..", "/DCIM/../a", "a/..", "/DCIM/.."}) {
        const Reading reading = readOverSession(session, name);
        EXPECT_EQ(reading.error.code, EXDEV) << name;
    }
    EXPECT_EQ(readOverSession(session, QByteArray("/n").repeated(5000).constData()).error.code, ENAMETOOLONG);
    EXPECT_TRUE(phone.operations.isEmpty()); // the device is not even asked
}
