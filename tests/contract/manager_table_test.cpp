#include "contract_host.h"
#include "exported_record.h"
#include "handmade_device.h"
#include "loaded_library.h"

#include "photolib/photolib.h"

#include <sqlite3.h>

#include <gtest/gtest.h>

#include <QFile>

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

    // A library with album 5 (kind 2, holding photo 7), photo 7 in the camera roll and photo 9 synced.
    void putLibraryOnDevice()
    {
        const QString path = device.folder.filePath(QStringLiteral("made.sqlite"));
        sqlite3 *db = nullptr;
        ASSERT_EQ(sqlite3_open(path.toUtf8().constData(), &db), SQLITE_OK);
        const char *sql =
            "create table Z_METADATA(Z_VERSION, Z_UUID);"
            "insert into Z_METADATA values(1, 'DATABASE-UUID');"
            "create table Z_PRIMARYKEY(Z_ENT, Z_NAME, Z_SUPER, Z_MAX);"
            "insert into Z_PRIMARYKEY values(3,'Asset',0,9),(26,'GenericAlbum',0,5),(27,'Album',26,0);"
            "create table ZGENERICALBUM(Z_PK, Z_ENT, ZTITLE, ZKIND, ZUUID);"
            "insert into ZGENERICALBUM values(5,27,'Trip',2,'ALBUM-UUID');"
            "create table ZASSET(Z_PK, Z_ENT, ZFILENAME, ZDIRECTORY, ZUUID, ZWIDTH, ZHEIGHT, ZKIND, ZTHUMBNAILINDEX,"
            " ZORIENTATION, ZDATECREATED, ZMODIFICATIONDATE);"
            "insert into ZASSET values(7,3,'IMG_0007.JPG','DCIM/100APPLE','PHOTO-7',4,3,0,-1,1,10,20),"
            "(9,3,'IMG_0009.JPG','Photos/Trip','PHOTO-9',4,3,0,-1,1,10,20);"
            "create table ZADDITIONALASSETATTRIBUTES(Z_PK, ZORIGINALFILESIZE);"
            "create table Z_27ASSETS(Z_27ALBUMS, Z_3ASSETS);"
            "insert into Z_27ASSETS values(5,7);";
        char *error = nullptr;
        ASSERT_EQ(sqlite3_exec(db, sql, nullptr, nullptr, &error), SQLITE_OK) << error;
        sqlite3_close(db);
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::ReadOnly));
        host.deviceFiles.insert("/PhotoData/Photos.sqlite", file.readAll());
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
