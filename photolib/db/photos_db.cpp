#include "photolib/db/photos_db.h"

#include "photolib/db/schema.h"
#include "photolib/host/iipod.h"
#include "photolib/host/log.h"
#include "photolib/host/sql_utils.h"
#include "photolib/logging.h"

#include <QStandardPaths>

#include <sqlite3.h>

#include <memory>
#include <new>

using namespace photolib;

namespace
{

struct CloseConnection {
    void operator()(sqlite3 *db) const { sqlite3_close(db); }
};

QString localDataFolderOf(IIPod *device)
{
    const QString folder = device->localDataFolder();
    if (folder.isEmpty())
        return QStandardPaths::writableLocation(QStandardPaths::TempLocation) + QLatin1Char('/');
    return folder;
}

entityInfo rootEntity(int number, QLatin1String name)
{
    entityInfo entity;
    entity.entityNumber = number;
    entity.name = name;
    return entity;
}

} // namespace

Photos_DB::Photos_DB(IIPod *device) : device(device)
{
    Log(logTag, logProgress, "load ATHCameraDB");
    try {
        loaded = parseLibrary();
    } catch (const std::bad_alloc &) {
        loaded = false; // what was read stays until the destructor frees it
    }
    if (!loaded)
        Log(logTag, logError, "Can not load lib");
    Log(logTag, logProgress, "load ATHCameraDB end");
}

Photos_DB::~Photos_DB()
{
    clearRecords();
}

bool Photos_DB::parseLibrary()
{
    clearRecords();
    assetEntityName = genericAssetEntity;
    if (!device)
        return false;

    const QString folder = localDataFolderOf(device);
    if (!copyDatabase(folder))
        return false;

    sqlite3 *opened = nullptr;
    if (SqlUtils::openSqlite(folder + QLatin1String("Photos.sqlite"), &opened) != SQLITE_OK) {
        Log(logTag, logError, "Can not open sqlite db");
        return false;
    }
    const std::unique_ptr<sqlite3, CloseConnection> connection(opened);
    return parseCopy(connection.get());
}

// Fails only for a stop request: whatever part of the library can be read is a library.
bool Photos_DB::parseCopy(sqlite3 *db)
{
    readSchemaVersion(db);
    if (stop)
        return false;
    readEntityTable(db);
    if (stop)
        return false;
    chooseAssetEntity();
    readAssetTableSql(db);
    if (stop)
        return false;
    readAdditionalAttributesSql(db);
    if (stop)
        return false;

    Log(logTag, logProgress, "Parser_Ath_camera_DB");
    if (parseAlbums(db) && parseAssets(db) && parseMembershipTables(db))
        Log(logTag, logProgress, "Parser_Ath_camera_DB success");
    if (stop)
        return false;
    parseDetectedFaces(db);
    parseMemories(db);
    return true;
}

void Photos_DB::chooseAssetEntity()
{
    if (entities.contains(genericAssetEntity)) {
        assetEntityName = genericAssetEntity;
        assetTableName = QLatin1String("ZGENERICASSET");
    } else if (entities.contains(assetEntity)) {
        assetEntityName = assetEntity;
        assetTableName = QLatin1String("ZASSET");
    } else {
        entities.insert(assetEntityName, rootEntity(defaultAssetEntityNumber, genericAssetEntity));
    }
    if (!entities.contains(genericAlbumEntity))
        entities.insert(genericAlbumEntity, rootEntity(defaultAlbumEntityNumber, genericAlbumEntity));
}

void Photos_DB::clearRecords()
{
    qDeleteAll(assets);
    assets.clear();
    qDeleteAll(unlinkedAssets);
    unlinkedAssets.clear();
    qDeleteAll(albums);
    albums.clear();
    qDeleteAll(unlinkedAlbums);
    unlinkedAlbums.clear();
    entities.clear();
}
