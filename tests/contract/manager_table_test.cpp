#include "contract_host.h"
#include "exported_record.h"
#include "handmade_device.h"
#include "loaded_library.h"
#include "made_library.h"

#include "photolib/photolib.h"

#include <gtest/gtest.h>

// Every slot of the manager, called by its position in the table of virtual functions and not by its name. The C++
// ABI gives the destructor two entries, so slot N is entry N + 1.

namespace
{

using Entry = void (*)();

class ManagerTable : public testing::Test
{
protected:
    ManagerTable() : manager(library.getPhotolib(device.get())) {}
    ~ManagerTable() override { library.releasePhotolib(&manager); }

    template <typename Result, typename... Arguments>
    Result call(int slot, Arguments... arguments)
    {
        const Entry *table = *reinterpret_cast<const Entry *const *>(manager);
        using Function = Result (*)(void *, Arguments...);
        return reinterpret_cast<Function>(table[slot + 1])(manager, arguments...);
    }

    void putLibraryOnDevice()
    {
        host.deviceFiles.insert("/PhotoData/Photos.sqlite", makeLibrary(device.folder.path()));
    }

    ContractHost host;
    HandmadeDevice device;
    LoadedLibrary library;
    const ExportedMembers<photoItem> photoMembers{library, "9photoItem"};
    const ExportedMembers<albumItem> albumMembers{library, "9albumItem"};
    photo_manager_int *manager;
    qint64 id = 7;
    qint64 albumId = 5;
};

} // namespace

TEST_F(ManagerTable, AnswersNothingWithoutALibrary)
{
    Exported<photoItem> photo(photoMembers);
    Exported<albumItem> album(albumMembers);
    QByteArray bytes("untouched");
    EXPECT_FALSE(call<bool>(3));
    EXPECT_EQ(call<QString>(4), QString());
    EXPECT_EQ(call<int>(5), 0);
    EXPECT_TRUE((call<QList<qint64>>(6).isEmpty()));
    EXPECT_FALSE((call<bool, const qint64 *, photoItem *>(7, &id, photo.get())));
    EXPECT_EQ((call<int, const qint64 *, QByteArray *>(8, &id, &bytes)), 0);
    EXPECT_EQ((call<int, const qint64 *, QByteArray *>(9, &id, &bytes)), 0);
    EXPECT_EQ(bytes, QByteArray("untouched"));
    EXPECT_EQ(call<int>(10), 0);
    EXPECT_TRUE((call<QList<qint64>>(11).isEmpty()));
    EXPECT_FALSE((call<bool, const qint64 *, albumItem *>(12, &albumId, album.get())));
    EXPECT_EQ((call<int, photoItem *, albumItem *>(13, photo.get(), album.get())), -1);
    EXPECT_EQ((call<int, photoItem *, const qint64 *>(14, photo.get(), &albumId)), -1);
    EXPECT_EQ((call<int, albumItem *>(15, album.get())), -1);
    EXPECT_EQ((call<int, const qint64 *>(16, &albumId)), -1);
    album->id = 41;
    EXPECT_EQ((call<int, albumItem *>(17, album.get())), -1);
    EXPECT_EQ((call<int, const qint64 *>(18, &id)), 0);
    EXPECT_TRUE((call<QStringList, int>(19, 25).isEmpty()));
    const QString key = QStringLiteral("0");
    EXPECT_TRUE((call<photoGroup, int, const QString &>(20, 25, key).key.isNull()));
    EXPECT_EQ(host.log, QStringList({QStringLiteral("PHOTOLIB 2 no photolib or photo"),
                                     QStringLiteral("PHOTOLIB 2 no photolib or photo"),
                                     QStringLiteral("PHOTOLIB 2 no photolib or album"),
                                     QStringLiteral("PHOTOLIB 2 can not get the album: 41")}));
}

TEST_F(ManagerTable, AnswersQueriesOfAnOpenLibrary)
{
    putLibraryOnDevice();
    EXPECT_TRUE(call<bool>(1));
    EXPECT_EQ(call<QString>(4), QStringLiteral("DATABASE-UUID"));
    EXPECT_EQ(call<int>(5), 2);
    EXPECT_EQ((call<QList<qint64>>(6)), QList<qint64>({7, 9}));
    Exported<photoItem> photo(photoMembers);
    EXPECT_TRUE((call<bool, const qint64 *, photoItem *>(7, &id, photo.get())));
    EXPECT_EQ(photo->fileName, QStringLiteral("IMG_0007.JPG"));
    EXPECT_EQ(photo->dateCreated, QDateTime(QDate(2001, 1, 1), QTime(0, 0, 10), Qt::UTC));
    EXPECT_EQ(call<int>(10), 1);
    EXPECT_EQ((call<QList<qint64>>(11)), QList<qint64>({5}));
    Exported<albumItem> album(albumMembers);
    EXPECT_TRUE((call<bool, const qint64 *, albumItem *>(12, &albumId, album.get())));
    EXPECT_EQ(album->title, QStringLiteral("Trip"));
    EXPECT_EQ(album->photoIds, QList<qint64>({7}));
    EXPECT_EQ((call<QStringList, int>(19, 25)), QStringList(QStringLiteral("0")));
    const QString key = QStringLiteral("0");
    EXPECT_EQ((call<photoGroup, int, const QString &>(20, 28, key).assetIds), QList<qint64>({9}));
}

TEST_F(ManagerTable, EditsAnOpenLibrary)
{
    putLibraryOnDevice();
    ASSERT_TRUE(call<bool>(1));
    host.log.clear();
    Exported<albumItem> album(albumMembers);
    album->title = QStringLiteral("New");
    album->trashedState = 0;
    EXPECT_EQ((call<int, albumItem *>(15, album.get())), 0);
    EXPECT_EQ(album->id, 6);
    EXPECT_EQ(album->kind, 1550);
    EXPECT_EQ(album->entity, 26);
    EXPECT_EQ(album->uuid.size(), 16);
    Exported<photoItem> photo(photoMembers);
    EXPECT_EQ((call<int, photoItem *, albumItem *>(13, photo.get(), album.get())), 0);
    EXPECT_EQ(photo->id, 10);
    EXPECT_EQ(photo->entity, 3);
    EXPECT_EQ(album->photoIds, QList<qint64>({10}));
    EXPECT_EQ((call<int, photoItem *, const qint64 *>(14, photo.get(), &albumId)), 0);
    EXPECT_EQ((call<QList<qint64>>(6)), QList<qint64>({7, 9, 10}));

    album->title = QStringLiteral("Renamed");
    EXPECT_EQ((call<int, albumItem *>(17, album.get())), 0);
    EXPECT_TRUE((call<bool, const qint64 *, albumItem *>(12, &albumId, album.get())));
    EXPECT_EQ(album->photoIds, QList<qint64>({7, 10}));
    const qint64 created = 6;
    EXPECT_TRUE((call<bool, const qint64 *, albumItem *>(12, &created, album.get())));
    EXPECT_EQ(album->title, QStringLiteral("Renamed"));
    EXPECT_EQ((call<int, const qint64 *>(16, &created)), 0);
    EXPECT_EQ((call<int, const qint64 *>(16, &albumId)), 0) << "refused, and not told";
    EXPECT_EQ((call<QList<qint64>>(11)), QList<qint64>({5}));

    const qint64 synced = 9;
    EXPECT_EQ((call<int, const qint64 *>(18, &synced)), 0);
    EXPECT_EQ((call<QList<qint64>>(6)), QList<qint64>({7, 10}));
    const QString key = QStringLiteral("0");
    EXPECT_TRUE((call<photoGroup, int, const QString &>(20, 28, key).assetIds.isEmpty()));
    EXPECT_TRUE(host.log.isEmpty());
}

TEST_F(ManagerTable, ReadsThumbnailsAndFilesOfAnOpenLibrary)
{
    putLibraryOnDevice();
    host.deviceFiles.insert("/PhotoData/Thumbnails/V2/DCIM/100APPLE/IMG_0007.JPG/5003.JPG", "THUMBNAIL");
    host.deviceFiles.insert("/DCIM/100APPLE/IMG_0007.JPG", "FILE");
    ASSERT_TRUE(call<bool>(1));
    host.log.clear();
    const int devicePathSlot = 16;
    device.calls[devicePathSlot] = 0;
    QByteArray bytes("before");
    EXPECT_EQ((call<int, const qint64 *, QByteArray *>(8, &id, &bytes)), 0);
    EXPECT_EQ(bytes, QByteArray("THUMBNAIL"));
    EXPECT_EQ(device.calls[devicePathSlot], 2);
    EXPECT_EQ((call<int, const qint64 *, QByteArray *>(9, &id, &bytes)), 1);
    EXPECT_EQ(bytes, QByteArray("FILE"));
    EXPECT_EQ(device.calls[devicePathSlot], 3);

    const qint64 without = 9;
    EXPECT_EQ((call<int, const qint64 *, QByteArray *>(8, &without, &bytes)), -1);
    EXPECT_EQ((call<int, const qint64 *, QByteArray *>(9, &without, &bytes)), 0);
    EXPECT_EQ(bytes, QByteArray("FILE"));
    EXPECT_EQ(host.openHandles, 0);
    EXPECT_EQ(host.log, QStringList(QStringLiteral("PHOTOLIB 1 This is a newly added photo?")));
}

TEST_F(ManagerTable, CutsAThumbnailOutOfAContainer)
{
    QByteArray sqlite = makeLibrary(device.folder.path(), 1);
    host.deviceFiles.insert("/PhotoData/Photos.sqlite", sqlite);
    constexpr int frameBytes = 8192;
    QByteArray record(frameBytes, '\x55');
    record += QByteArray(16, '\0') + QByteArray::fromHex("0200000001000000") + QByteArray(4, '\0');
    host.deviceFiles.insert("/PhotoData/Thumbnails/3309.ithmb", QByteArray(record.size(), '\0') + record);
    ASSERT_TRUE(call<bool>(1));
    QByteArray bytes;
    EXPECT_EQ((call<int, const qint64 *, QByteArray *>(8, &id, &bytes)), 0);
    EXPECT_EQ(bytes.left(6).toHex(), QByteArray("424d3e000000"));
    EXPECT_EQ(bytes.mid(54).toHex(), QByteArray("a850a8a850a80000"));
    EXPECT_EQ(host.openHandles, 0);
}

TEST_F(ManagerTable, CancelLastsUntilTheNextOpening)
{
    putLibraryOnDevice();
    call<void>(2);
    EXPECT_TRUE(call<bool>(3));
    EXPECT_TRUE(call<bool>(1));
    EXPECT_FALSE(call<bool>(3));
}

TEST_F(ManagerTable, SlotZeroDestroysTheManager)
{
    putLibraryOnDevice();
    ASSERT_TRUE(call<bool>(1));
    call<void>(0); // the entry that also frees the object; leak checkers see to the rest
    manager = nullptr;
    EXPECT_EQ(host.openHandles, 0);
}
