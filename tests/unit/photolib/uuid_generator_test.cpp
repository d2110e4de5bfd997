// A program of its own: it stands between the library and Qt's old generator of random numbers, to see how it is
// seeded and to have it draw what a test wants.

#include "tests/unit/photolib/edited_library.h"

#include <QDateTime>

#include <dlfcn.h>

#include <functional>

namespace
{

using Seed = void (*)(uint);
using Draw = int (*)();

template <typename Function>
Function functionOfQt(const char *name)
{
    return reinterpret_cast<Function>(dlsym(RTLD_NEXT, name));
}

struct {
    QList<uint> seeds;          ///< as the library gave them
    QList<int> draws;           ///< as the library got them
    QList<int> wanted;          ///< the next draws; when there is none left, Qt draws
    bool secondStands = false;  ///< every seed is the same, as if the clock stood still
    std::function<void()> hook; ///< called before each draw
} randomness;

constexpr uint standingSecond = 1'600'000'000;

void seedOfQt(uint seed)
{
    static const auto function = functionOfQt<Seed>("_Z6qsrandj");
    function(seed);
}

int drawOfQt()
{
    static const auto function = functionOfQt<Draw>("_Z5qrandv");
    return function();
}

/// The `count` first pairs that Qt draws after this seed, each as the identifier that it becomes.
QList<QByteArray> idsAfterSeed(uint seed, int count)
{
    QList<QByteArray> ids;
    seedOfQt(seed);
    for (int i = 0; i < count; ++i) {
        QByteArray id(16, '\0');
        const int high = drawOfQt();
        const int low = drawOfQt();
        for (int byte = 0; byte < 4; ++byte) {
            id[8 + byte] = static_cast<char>(low >> (8 * byte));
            id[12 + byte] = static_cast<char>(high >> (8 * byte));
        }
        ids.append(id);
    }
    return ids;
}

/// "00000000-0000-0000-2B1A-00004D3C0000"
QByteArray textOf(const QByteArray &id)
{
    QByteArray text;
    for (int i = 0; i < id.size(); ++i) {
        text += QString::asprintf("%02X", static_cast<unsigned char>(id[i])).toLatin1();
        if (i == 3 || i == 5 || i == 7 || i == 9)
            text += '-';
    }
    return text;
}

class UuidGenerator : public EditedLibrary
{
protected:
    UuidGenerator() { randomness = {}; }
    ~UuidGenerator() override { randomness = {}; }

    QByteArray idOfNewAlbum()
    {
        albumItem album;
        album.trashedState = 0;
        EXPECT_EQ(manager->createAlbum(&album), 0);
        return album.uuid;
    }

    QByteArray idOfNewPhoto()
    {
        const qint64 noAlbum = 0;
        photoItem photo;
        EXPECT_EQ(manager->addPhoto(&photo, &noAlbum), 0);
        return photo.uuid;
    }
};

} // namespace

QT_WARNING_PUSH
QT_WARNING_DISABLE_DEPRECATED

void qsrand(uint seed)
{
    randomness.seeds.append(seed);
    seedOfQt(randomness.secondStands ? standingSecond : seed);
}

int qrand()
{
    if (randomness.hook)
        randomness.hook();
    const int value = randomness.wanted.isEmpty() ? drawOfQt() : randomness.wanted.takeFirst();
    randomness.draws.append(value);
    return value;
}

QT_WARNING_POP

TEST_F(UuidGenerator, IsSeededWithThePresentSecondOnceForEachIdentifier)
{
    for (int i = 1; i <= 2; ++i) {
        const uint before = QDateTime::currentDateTimeUtc().toTime_t();
        idOfNewAlbum();
        const uint after = QDateTime::currentDateTimeUtc().toTime_t();
        ASSERT_EQ(randomness.seeds.size(), i);
        EXPECT_GE(randomness.seeds.last(), before);
        EXPECT_LE(randomness.seeds.last(), after);
    }
}

TEST_F(UuidGenerator, GivesTheFirstTwoDrawsAfterTheSeed)
{
    const QByteArray id = idOfNewAlbum();
    EXPECT_EQ(randomness.draws.size(), 2);
    EXPECT_EQ(id, idsAfterSeed(randomness.seeds.first(), 1).first());
}

TEST_F(UuidGenerator, GivesSixteenBytesTheLastEightOfThemLittleEndianWithTheSecondDrawFirst)
{
    randomness.wanted = {0x3C4D, 0x1A2B};
    EXPECT_EQ(idOfNewAlbum().toHex(), QByteArray("00000000000000002b1a00004d3c0000"));
    randomness.wanted = {0x01020304, 0x05060708};
    EXPECT_EQ(idOfNewPhoto().toHex(), QByteArray("00000000000000000807060504030201"));
    randomness.wanted = {0x7fffffff, 0};
    EXPECT_EQ(idOfNewAlbum().toHex(), QByteArray("000000000000000000000000ffffff7f"));
}

TEST_F(UuidGenerator, WidensDrawsWithTheirSign)
{
    randomness.wanted = {1, -2};
    EXPECT_EQ(idOfNewAlbum().toHex(), QByteArray("0000000000000000feffffffffffffff"));
    randomness.wanted = {-2, 1};
    EXPECT_EQ(idOfNewAlbum().toHex(), QByteArray("000000000000000001000000feffffff"));
}

TEST_F(UuidGenerator, RemembersTheBytesAndNotTheText)
{
    const int known = probe.knownUuids().size();
    const QByteArray id = idOfNewAlbum();
    EXPECT_TRUE(probe.knownUuids().value(id));
    EXPECT_EQ(probe.knownUuids().size(), known + 1);
}

TEST_F(UuidGenerator, DrawsAgainWhenTheBytesAreKnown)
{
    probe.knownUuids().insert(QByteArray::fromHex("0000000000000000"
                                                  "02000000"
                                                  "01000000"),
                              false);
    randomness.wanted = {1, 2, 3, 4};
    EXPECT_EQ(idOfNewAlbum().toHex(), QByteArray("00000000000000000400000003000000"));
    EXPECT_TRUE(randomness.wanted.isEmpty());
}

TEST_F(UuidGenerator, DrawsAgainWhenTheTextIsKnown)
{
    probe.knownUuids().insert("00000000-0000-0000-2B1A-00004D3C0000", true);
    randomness.wanted = {0x3C4D, 0x1A2B, 3, 4};
    EXPECT_EQ(idOfNewPhoto().toHex(), QByteArray("00000000000000000400000003000000"));
}

TEST_F(UuidGenerator, TextInLowerCaseOrSwappedOrderIsNoClash)
{
    for (const char *text : {"00000000-0000-0000-2b1a-00004d3c0000", "00000000-0000-0000-1A2B-000000003C4D",
                             "0000000000000000-2B1A00004D3C0000", "00000000000000002B1A00004D3C0000"})
        probe.knownUuids().insert(text, true);
    randomness.wanted = {0x3C4D, 0x1A2B};
    EXPECT_EQ(idOfNewAlbum().toHex(), QByteArray("00000000000000002b1a00004d3c0000"));
}

TEST_F(UuidGenerator, DrawsUntilAPairIsFreeOfBothClashes)
{
    QMap<QByteArray, bool> &known = probe.knownUuids();
    known.insert(QByteArray::fromHex("0000000000000000"
                                     "02000000"
                                     "01000000"),
                 true);
    known.insert("00000000-0000-0000-0400-000003000000", true);
    known.insert(QByteArray::fromHex("0000000000000000"
                                     "06000000"
                                     "05000000"),
                 true);
    randomness.wanted = {1, 2, 3, 4, 5, 6, 1, 2, 7, 8};
    EXPECT_EQ(idOfNewAlbum().toHex(), QByteArray("00000000000000000800000007000000"));
    EXPECT_EQ(randomness.seeds.size(), 1) << "only once for all of them";
}

TEST_F(UuidGenerator, IdentifiersOfOneSecondContinueTheSequenceOfItsDraws)
{
    randomness.secondStands = true;
    QList<QByteArray> ids;
    for (int i = 0; i < 3; ++i)
        ids << idOfNewAlbum() << idOfNewPhoto();
    EXPECT_EQ(ids, idsAfterSeed(standingSecond, 6));
    EXPECT_EQ(QSet<QByteArray>(ids.begin(), ids.end()).size(), 6);
    EXPECT_EQ(randomness.draws.size(), 2 * (1 + 2 + 3 + 4 + 5 + 6)) << "each one passes by those before it";
}

TEST_F(UuidGenerator, IdentifiersOfDeletedRecordsAreNotGivenAgain)
{
    randomness.secondStands = true;
    const QByteArray first = idOfNewAlbum();
    const qint64 album = nextAlbum;
    ASSERT_EQ(manager->deleteAlbum(&album), 0);
    EXPECT_NE(idOfNewAlbum(), first);
}

TEST_F(UuidGenerator, WithoutALibrarySeedsAndGivesSixteenTimesA)
{
    Photos_DB *reader = probe.takeReader();
    const QMap<QByteArray, bool> known = probe.knownUuids();
    EXPECT_EQ(probe.generateUuid(), QByteArray("aaaaaaaaaaaaaaaa"));
    EXPECT_EQ(probe.generateUuid(), QByteArray("aaaaaaaaaaaaaaaa"));
    EXPECT_EQ(randomness.seeds.size(), 2);
    EXPECT_TRUE(randomness.draws.isEmpty());
    EXPECT_EQ(probe.knownUuids(), known);
    probe.setReader(reader);
}

TEST_F(UuidGenerator, LooksForTheLibraryBeforeEachDraw)
{
    probe.knownUuids().insert("00000000-0000-0000-2B1A-00004D3C0000", true);
    randomness.wanted = {0x3C4D, 0x1A2B};
    Photos_DB *reader = nullptr;
    randomness.hook = [&] {
        if (!reader)
            reader = probe.takeReader();
    };
    EXPECT_EQ(probe.generateUuid(), QByteArray("aaaaaaaaaaaaaaaa"));
    EXPECT_EQ(randomness.draws.size(), 2);
    probe.setReader(reader);
}

TEST_F(UuidGenerator, HoldsItsMutexWhileItDrawsAndTheMutexOfEditsStands)
{
    int draws = 0;
    randomness.hook = [&] {
        ++draws;
        EXPECT_TRUE(isHeld(probe.uuidMutex()));
        EXPECT_TRUE(isHeld(probe.editMutex()));
    };
    idOfNewAlbum();
    idOfNewPhoto();
    EXPECT_GE(draws, 4);
    randomness.hook = [&] { EXPECT_FALSE(isHeld(probe.editMutex())) << "the generator itself takes only its own"; };
    probe.generateUuid();
    EXPECT_FALSE(isHeld(probe.uuidMutex()));
}

// The library's own records are in the way: a new record never gets the identifier of one of them.
TEST(UuidGeneratorOfALibrary, PassesByTheUuidsOfItsAlbumsPhotosAndDatabase)
{
    randomness = {};
    randomness.secondStands = true;
    const QList<QByteArray> ids = idsAfterSeed(standingSecond, 4);
    testkit::LibraryBuilder library(testkit::Era::Ios15, bareLibrary());
    testkit::AlbumRow album;
    album.uuid = textOf(ids[0]);
    library.addAlbum(album);
    testkit::AssetRow photo;
    photo.uuid = textOf(ids[1]);
    library.addAsset(photo);
    library.setLibraryUuid(QString::fromLatin1(textOf(ids[2])));
    testkit::LogRecorder log;
    testkit::FakeDevice device;
    putOn(device, library);
    const Manager manager = makeManager(device);
    ASSERT_TRUE(manager->openLibrary());
    log.takeAll();

    albumItem made;
    made.trashedState = 0;
    ASSERT_EQ(manager->createAlbum(&made), 0);
    EXPECT_EQ(made.uuid, ids[3]);
    randomness = {};
}
