#ifndef TESTS_UNIT_PHOTOLIB_DB_WHOLE_LIBRARY_H
#define TESTS_UNIT_PHOTOLIB_DB_WHOLE_LIBRARY_H

#include "tests/unit/photolib/db/made_database.h"

namespace dbtests
{

/// What an opening logs before and after the parse.
inline const QString begin = progress("load ATHCameraDB");
inline const QString failed = error("Can not load lib");
inline const QString end = progress("load ATHCameraDB end");
inline const QStringList missingCompanions{error("Can not open file: /PhotoData/Photos.sqlite-wal"),
                                           error("Can not open file: /PhotoData/Photos.sqlite-shm")};

inline constexpr char metadataQuery[] = "select Z_VERSION, Z_UUID from Z_METADATA";
inline constexpr char entityQuery[] = "select Z_ENT, Z_NAME , Z_SUPER , Z_MAX from Z_PRIMARYKEY";
inline constexpr char assetSqlQuery[] = "SELECT sql FROM sqlite_master where tbl_name = 'ZASSET' and name = 'ZASSET'";
inline constexpr char attributesSqlQuery[] =
    "SELECT sql FROM sqlite_master where tbl_name = 'ZADDITIONALASSETATTRIBUTES' and "
    "name = 'ZADDITIONALASSETATTRIBUTES'";
inline constexpr char tableNamesQuery[] = "SELECT tbl_name FROM sqlite_master where type = 'table'";
inline constexpr char croppedFacesQuery[] = "select ZFACEGROUP from ZDETECTEDFACE where zfacecrop is not null";

/// One face in asset 1, and one memory of asset 1.
inline constexpr char faceAndMemory[] =
    "create table ZDETECTEDFACE (ZASSET, ZFACEGROUP, ZFACEGROUPBEINGKEYFACE, ZFACECROP);"
    "insert into ZDETECTEDFACE values (1, 7, 7, 1);"
    "create table ZMEMORY (Z_PK, ZFAVORITE, ZKEYASSET, ZSUBTITLE, ZTITLE);"
    "insert into ZMEMORY values (9, 1, 1, 'Spring', 'Garden');"
    "create table Z_3MEMORIESBEINGEXTENDEDCURATEDASSETS (Z_3EXTENDEDCURATEDASSETS, "
    "Z_40MEMORIESBEINGEXTENDEDCURATEDASSETS);"
    "insert into Z_3MEMORIESBEINGEXTENDEDCURATEDASSETS values (1, 9);";

/// One album with one asset in it.
inline constexpr char albumWithAsset[] = "insert into ZGENERICALBUM values (5, 26, 'Trip', 2, 'ALBUM-UUID', 0);"
                                         "create table Z_26ASSETS (Z_26ALBUMS, Z_3ASSETS);"
                                         "insert into Z_26ASSETS values (5, 1);";

/// Opens libraries that hold one of everything.
class WholeLibraryTest : public LibraryTest
{
protected:
    void addOneOfEverything() { sql.rows += insertAsset({}) + albumWithAsset + faceAndMemory; }
    void expectFaceAndMemory(const Photos_DB &db)
    {
        EXPECT_EQ(db.faceGroupAssetIds("7"), QList<qint64>{1});
        EXPECT_EQ(db.memoryKeys(), QStringList{"9"});
    }
};

} // namespace dbtests

#endif
