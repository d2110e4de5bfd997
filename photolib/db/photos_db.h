#ifndef PHOTOLIB_DB_PHOTOS_DB_H
#define PHOTOLIB_DB_PHOTOS_DB_H

#include "photolib/db/records.h"

#include <QMap>
#include <QMultiMap>
#include <QSet>
#include <QStringList>

class IIPod;
struct sqlite3;

namespace photolib
{
class Row;
}

/// The device's photo library, read into memory.
///
/// The constructor copies the database from the device, reads the copy and closes it; from then on the object is a
/// plain store of records and never touches the database again. Nothing is written back.
///
/// Keys are Z_PK values taken as unsigned 64-bit numbers; every list comes in ascending key order. Keys of face
/// groups and memories are decimal text and sort as text.
///
/// Threads: no locks of its own. Operations that change the store must not run beside any other operation.
class Photos_DB
{
public:
    /// Reads the library of `device`, which is not owned and may be null; `loaded` tells whether it was read. A
    /// library of which only a part could be read counts as loaded.
    explicit Photos_DB(IIPod *device);

    /// Frees every record. The local copies of the database files stay on disk.
    virtual ~Photos_DB();

    Photos_DB(const Photos_DB &) = delete;
    Photos_DB &operator=(const Photos_DB &) = delete;

    bool isLoaded() const { return loaded; }

    /// Z_UUID of the database; empty when it has none.
    QString uuid() const { return libraryUuid; }

    /// The record stored under a key, owned by the store; null when there is none.
    albumRecord *findAlbum(quint64 key) const;
    assetRecord *findAsset(quint64 key) const;

    QList<qint64> albumIdList() const;
    QList<qint64> assetIdList() const;
    QList<albumRecord *> albumRecords() const;
    QList<assetRecord *> assetRecords() const;

    /// The same without a list of their own, the store's until it changes.
    const QMap<quint64, assetRecord *> &assetMap() const { return assets; }

    /// The entity numbers that new records carry.
    int albumEntityNumber() const;
    int assetEntityNumber() const;

    /// A key that was never handed out or read; 0 when the entity is unknown. Used up even if the caller gives up.
    int nextAlbumPk();
    qint64 nextAssetPk();

    /// Stores a record under its `pk` and takes ownership. A record already stored there leaves the store, but is
    /// freed with it only.
    void addAlbum(albumRecord *album);
    void addAsset(assetRecord *asset);

    /// Takes a user album (kind 1550) out of the store; its record is freed with the store. False, with nothing
    /// changed, for any other album and for an unknown key.
    bool removeAlbum(quint64 key);

    /// Removes and frees an asset. Albums go on listing its key. Always true.
    bool removeAsset(quint64 key);

    /// Keys of the face groups, one for each face: a group of three faces is listed three times.
    QStringList faceGroupKeys() const;

    /// The faces themselves, by group, as faceGroupAssetIds() lists them; the store's.
    const QMultiMap<QString, qint64> &faceMap() const { return faceGroupAssets; }

    /// Assets that show a face of the group, the face read last first, repeats kept.
    QList<qint64> faceGroupAssetIds(const QString &key) const;

    /// The group's own number when its key face was read, else 0.
    qint64 faceGroupKeyFace(const QString &key) const;

    QStringList memoryKeys() const;

    /// Copies one memory into `*memory`. False, with `*memory` untouched, for an unknown key.
    bool copyMemory(const QString &key, memoryRecord *memory) const;

private:
    friend struct PhotosDbProbe; // white-box tests

    bool parseLibrary();
    bool parseCopy(sqlite3 *db);
    void chooseAssetEntity();
    void clearRecords();

    bool copyDatabase(const QString &localFolder);
    bool copyDeviceFile(const QString &devicePath, const QString &localPath);

    QStringList allTableNames(sqlite3 *db) const;
    bool readSchemaVersion(sqlite3 *db);
    bool readEntityTable(sqlite3 *db);
    void readAssetTableSql(sqlite3 *db);
    void readAdditionalAttributesSql(sqlite3 *db);
    void readTableSql(sqlite3 *db, const char *sql, QString *out) const;

    bool parseAlbums(sqlite3 *db);
    albumRecord *parseAlbumRow(const photolib::Row &row);
    bool parseAssets(sqlite3 *db);
    bool parseMembershipTables(sqlite3 *db);
    QStringList membershipTables(sqlite3 *db) const;
    void parseDetectedFaces(sqlite3 *db);
    QStringList croppedFaceGroups(sqlite3 *db) const;
    void parseMemories(sqlite3 *db);

    QMap<quint64, albumRecord *> albums;        // owned
    QMap<quint64, assetRecord *> assets;        // owned
    QMap<QString, entityInfo> entities;         // by entity name
    QMultiMap<QString, qint64> faceGroupAssets; // face group -> asset, newest first
    QMap<QString, qint64> faceGroupKeyFaces;    // face group -> its own number, where its key face was read
    QMap<QString, memoryRecord> memories;       // by Z_PK as text
    IIPod *device;                              // the host's
    QString libraryUuid = QLatin1String("");    // empty, not null
    bool stop = false;                          // ends every loop of the reader; a hook that nothing sets
    bool loaded = false;
    QString assetTableSql;              // CREATE TABLE text of the asset table
    QString additionalAttributesSql;    // CREATE TABLE text of ZADDITIONALASSETATTRIBUTES
    QString assetEntityName;            // "GenericAsset" or "Asset"
    QString assetTableName;             // "ZGENERICASSET" or "ZASSET"; empty when neither is known
    QSet<albumRecord *> unlinkedAlbums; // owned: replaced or removed, callers may still hold them
    QSet<assetRecord *> unlinkedAssets; // owned: replaced
};

#endif
