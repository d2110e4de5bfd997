#ifndef PHOTOLIB_DB_RECORDS_H
#define PHOTOLIB_DB_RECORDS_H

#include <QByteArray>
#include <QList>
#include <QString>

class Photos_DB;

/// One row of Z_PRIMARYKEY. A default one stands for an entity that the database does not know: number 0, which no
/// row carries, since entities are numbered from 1.
struct entityInfo {
    int entityNumber = 0; ///< Z_ENT
    QString name;         ///< Z_NAME
    int superEntity = 0;  ///< Z_SUPER, 0 for none
    int maxPk = 0;        ///< Z_MAX, raised to the highest key read and to each key handed out
};

/// One album: a row of ZGENERICALBUM.
struct albumRecord {
    quint64 pk = 0;          ///< Z_PK, read as 32 bits and sign-extended
    int entity = 0;          ///< Z_ENT
    int kind = 0;            ///< ZKIND
    QString title;           ///< ZTITLE, empty for NULL
    QByteArray uuid;         ///< ZUUID, bytes as stored
    int trashedState = 0;    ///< ZTRASHEDSTATE
    QList<qint64> memberIds; ///< Z_PKs of its assets; some may have no record
};

/// One photo or video: a row of ZASSET or ZGENERICASSET with its row of ZADDITIONALASSETATTRIBUTES.
/// Dates are whole seconds since 2001-01-01 00:00:00 UTC. There may be a million: what is long comes first, so that
/// nothing is lost between members, and texts that many records have in common share their characters.
struct assetRecord {
    Photos_DB *owner = nullptr;
    qint64 pk = 0;
    QString fileName;
    QString directory;
    QByteArray uuid;
    QString uniformTypeIdentifier;
    QString avalancheUuid;
    qint64 faceAreaPoints = 0;
    qint64 trashedDate = 0;
    qint64 dateCreated = 0;
    qint64 addedDate = 0;
    qint64 modificationDate = 0;
    double sortToken = 0.0;
    double duration = 0.0;
    double latitude = 0.0;
    double longitude = 0.0;
    qint64 originalFileSize = 0;
    qint64 localResourcesState = 0;
    qint64 customRenderedValue = 0;
    qint32 entity = 0;
    qint32 width = 0;
    qint32 height = 0;
    qint32 kind = 0;
    qint32 kindSubtype = 0;
    qint32 moment = 0;
    qint32 avalanchePickType = 0;
    qint32 visibilityState = 0;
    qint32 favorite = 0;
    qint32 thumbnailIndex = 0;
    qint32 orientation = 0;
    qint32 trashedState = 0;
    qint32 duplicateAssetVisibilityState = 0;
    qint32 duplicateMetadataMatchingAlbum = 0;
    qint32 duplicatePerceptualMatchingAlbum = 0;
    qint32 packedBadgeAttributes = 0;
    qint32 depthType = 0;
    qint32 cameraCaptureDevice = 0;
    qint32 hasAdjustments = 0;
    qint32 hidden = 0;
    qint32 cloudLocalState = 0;
    qint32 importSession = 0;
};

/// One memory: a row of ZMEMORY with the keys of its curated assets.
struct memoryRecord {
    QString subtitle;            ///< ZSUBTITLE, empty for NULL
    QString title;               ///< ZTITLE, empty for NULL
    qint32 favorite = 0;         ///< ZFAVORITE
    qint64 pk = 0;               ///< Z_PK
    qint64 keyAsset = 0;         ///< ZKEYASSET, 0 for NULL
    QList<qint64> curatedAssets; ///< one key a joined row, in row order; the one key 0 for a memory without assets
};

#endif
