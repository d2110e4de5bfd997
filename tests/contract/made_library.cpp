#include "made_library.h"

#include <QFile>

#include <sqlite3.h>

#include <gtest/gtest.h>

namespace
{

constexpr char statements[] =
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

} // namespace

QByteArray makeLibrary(const QString &folder, int thumbnailIndex)
{
    const QString path = folder + QLatin1String("/made.sqlite");
    sqlite3 *db = nullptr;
    EXPECT_EQ(sqlite3_open(path.toUtf8().constData(), &db), SQLITE_OK);
    EXPECT_EQ(sqlite3_exec(db, statements, nullptr, nullptr, nullptr), SQLITE_OK) << sqlite3_errmsg(db);
    const QByteArray update = "update ZASSET set ZTHUMBNAILINDEX = " + QByteArray::number(thumbnailIndex);
    EXPECT_EQ(sqlite3_exec(db, update.constData(), nullptr, nullptr, nullptr), SQLITE_OK) << sqlite3_errmsg(db);
    sqlite3_close(db);
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly));
    return file.readAll();
}
