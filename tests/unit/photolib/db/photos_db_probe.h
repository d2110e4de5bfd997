#ifndef TESTS_UNIT_PHOTOLIB_DB_PHOTOS_DB_PROBE_H
#define TESTS_UNIT_PHOTOLIB_DB_PHOTOS_DB_PROBE_H

#include "photolib/db/photos_db.h"

/// Looks inside a Photos_DB where a rule cannot be seen from outside. Everything borrowed is the object's own.
struct PhotosDbProbe {
    Photos_DB &db;

    QMap<quint64, albumRecord *> &albums() const { return db.albums; }
    QMap<quint64, assetRecord *> &assets() const { return db.assets; }
    QMap<QString, entityInfo> &entities() const { return db.entities; }
    QMultiMap<QString, qint64> &faceGroupAssets() const { return db.faceGroupAssets; }
    QMap<QString, qint64> &faceGroupKeyFaces() const { return db.faceGroupKeyFaces; }
    QMap<QString, memoryRecord> &memories() const { return db.memories; }
    QString &libraryUuid() const { return db.libraryUuid; }
    bool &stop() const { return db.stop; }
    QString &assetTableSql() const { return db.assetTableSql; }
    QString &additionalAttributesSql() const { return db.additionalAttributesSql; }
    QString &assetEntityName() const { return db.assetEntityName; }
    QString &assetTableName() const { return db.assetTableName; }

    /// Highest key in use of an entity; -1, with nothing inserted, for an unknown one.
    int maxPk(const QString &entity) const
    {
        const auto found = db.entities.constFind(entity);
        return found == db.entities.constEnd() ? -1 : found->maxPk;
    }

    void setDevice(IIPod *device) const { db.device = device; }
    bool parseLibrary() const { return db.parseLibrary(); }
    void clearRecords() const { db.clearRecords(); }
    bool copyDeviceFile(const QString &devicePath, const QString &localPath) const
    {
        return db.copyDeviceFile(devicePath, localPath);
    }

    QStringList allTableNames(sqlite3 *sqlite) const { return db.allTableNames(sqlite); }
    bool readSchemaVersion(sqlite3 *sqlite) const { return db.readSchemaVersion(sqlite); }
    bool readEntityTable(sqlite3 *sqlite) const { return db.readEntityTable(sqlite); }
    void readAssetTableSql(sqlite3 *sqlite) const { db.readAssetTableSql(sqlite); }
    void readAdditionalAttributesSql(sqlite3 *sqlite) const { db.readAdditionalAttributesSql(sqlite); }
    bool parseAlbums(sqlite3 *sqlite) const { return db.parseAlbums(sqlite); }
    bool parseAssets(sqlite3 *sqlite) const { return db.parseAssets(sqlite); }
    bool parseMembershipTables(sqlite3 *sqlite) const { return db.parseMembershipTables(sqlite); }
    void parseDetectedFaces(sqlite3 *sqlite) const { db.parseDetectedFaces(sqlite); }
    void parseMemories(sqlite3 *sqlite) const { db.parseMemories(sqlite); }
};

#endif
