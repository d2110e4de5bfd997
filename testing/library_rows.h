#ifndef TESTING_LIBRARY_ROWS_H
#define TESTING_LIBRARY_ROWS_H

#include "testing/sql_value.h"

#include <QMap>
#include <QString>
#include <QVector>
#include <optional>

// A default-constructed row is one that a real library could hold. Three kinds of fields: plain ones are written as
// they stand; an empty optional and a null QString get a value from the builder, which the comment names; `columns`
// sets any column of the row's table by name and wins over all fields. A field whose column the era lacks is left out
// silently; a name in `columns` that the table lacks is an error.

namespace testkit
{

using ColumnValues = QMap<QString, SqlValue>;

/// A photo or a video, and its row of ZADDITIONALASSETATTRIBUTES. Dates are seconds since 2001-01-01 00:00:00 UTC.
/// In the automatic values n counts the assets of the library from 1.
struct AssetRow {
    std::optional<qint64> key; ///< Z_PK: the highest so far + 1
    QString uuid;              ///< made from n, upper case
    QString directory;         ///< "DCIM/100APPLE", a new folder every 1000 assets
    QString fileName;          ///< "IMG_0001.JPG", or ".MOV" for a video
    int kind = 0;              ///< 0 photo, 1 video
    int kindSubtype = 0;
    int width = 4032;
    int height = 3024;
    int orientation = 1;
    int favorite = 0;
    int hidden = 0;
    int trashedState = 0;
    int visibilityState = 0;
    int cloudLocalState = 0;
    int depthType = 0;
    int packedBadgeAttributes = 0;
    int hasAdjustments = 0;
    qint64 faceAreaPoints = 0;
    std::optional<qint64> thumbnailIndex; ///< 0, 1, 2, ... : n - 1
    std::optional<qint64> moment = 1;     ///< NULL
    std::optional<qint64> importSession;  ///< NULL; otherwise the key of an album of kind 1506
    QString avalancheUuid;                ///< NULL
    int avalanchePickType = 0;
    QString uniformTypeIdentifier;          ///< public.jpeg, com.apple.quicktime-movie for a video
    std::optional<double> dateCreated;      ///< 600000000 + 37.25 n: every fourth one is a whole number
    std::optional<double> addedDate;        ///< dateCreated + 1.5
    std::optional<double> modificationDate; ///< dateCreated + 10
    std::optional<double> trashedDate;      ///< NULL while trashedState is 0, then dateCreated + 100
    double duration = 0.0;                  ///< seconds
    double latitude = -180.0;               ///< both -180: no location
    double longitude = -180.0;
    ColumnValues columns;

    bool hasAttributes = true;          ///< false: no row of ZADDITIONALASSETATTRIBUTES at all
    std::optional<qint64> attributeKey; ///< Z_PK of that row: see AttributeKeys
    qint64 fileSize = 1500000;          ///< ZORIGINALFILESIZE, bytes
    int cameraDevice = 0;               ///< ZCAMERACAPTUREDEVICE: 1 is the front camera
    ColumnValues attributeColumns;      ///< as `columns`, for that row
};

/// An album, folder, import session, ...
struct AlbumRow {
    std::optional<qint64> key; ///< Z_PK: the highest so far + 1
    QString title;             ///< NULL
    int kind = 2;              ///< 2 user album, 1505 shared, 1506 import session, 4000 folder, ...
    QString uuid;              ///< made from the count of albums
    int trashedState = 0;
    std::optional<int> entity;    ///< the entity of that kind in this era, Album for a kind that it does not know
    std::optional<qint64> parent; ///< ZPARENTFOLDER: the root folder if the library has one
    ColumnValues columns;
};

/// A face found in a photo. The asset and the person go into the columns that the era has for them.
struct FaceRow {
    std::optional<qint64> key;            ///< Z_PK: the highest so far + 1
    std::optional<qint64> asset;          ///< NULL
    std::optional<qint64> faceGroup;      ///< NULL
    std::optional<qint64> keyFaceOfGroup; ///< ZFACEGROUPBEINGKEYFACE: NULL; the group's number in its key face
    std::optional<qint64> crop;           ///< ZFACECROP: NULL
    std::optional<qint64> person;         ///< NULL
    int manual = 0;
    ColumnValues columns;
};

/// A memory and the assets of its extended curated list, in this order.
struct MemoryRow {
    std::optional<qint64> key; ///< Z_PK: the highest so far + 1
    QString title;             ///< NULL
    QString subtitle;          ///< NULL
    int favorite = 0;
    std::optional<qint64> keyAsset; ///< NULL
    QVector<qint64> curatedAssets;
    ColumnValues columns;
};

} // namespace testkit

#endif
