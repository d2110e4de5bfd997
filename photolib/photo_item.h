#ifndef PHOTOLIB_PHOTO_ITEM_H
#define PHOTOLIB_PHOTO_ITEM_H

/// @file
/// The record of a photo or video.

#include "photolib/export.h"

#include <QByteArray>
#include <QDateTime>
#include <QString>

/// One photo or video as it crosses the boundary. Host and library must be built against the same declaration.
///
/// A plain value that its holder owns; copies share their Qt members until one side writes. Use one object on one
/// thread at a time. Numbers whose meaning is the device's own are passed on as its database holds them; a column that
/// the device's release lacks reads 0 (and its text "0").
struct PHOTOLIB_EXPORT photoItem {
    qint64 id;                  ///< the photo's Z_PK; 0, the default, means a photo that is not in the library yet
    qint32 entity;              ///< the entity number (Z_ENT); 27 by default
    QByteArray uuid;            ///< null by default
    QString fileName;           ///< name of the file on the device, such as IMG_0001.JPG; null by default
    qint32 mediaType;           ///< 1 video, 2 animated GIF, 3 (the default) still photo
    QString directory;          ///< folder on the device below the media root, such as DCIM/100APPLE; null by default
    QString metadataPath;       ///< for videos the folder of its metadata on the device; else empty; null by default
    qint32 orientation;         ///< EXIF orientation, 1 to 8; 0 by default
    qint32 height;              ///< pixels
    qint32 width;               ///< pixels
    qint32 duration;            ///< whole seconds, truncated toward zero
    qint64 fileSize;            ///< bytes of the original
    QDateTime dateCreated;      ///< UTC; null by default
    QDateTime modificationDate; ///< UTC; null by default
    QDateTime trashedDate;      ///< UTC; null by default; 2001-01-01 when the photo was never deleted
    qint32 trashedState;        ///< 1 when the photo is recently deleted
    QString avalancheUuid;      ///< the burst that the photo belongs to; null by default
    qint32 avalanchePickType;   ///< bit set: the photo's role in its burst
    double sortToken;           ///< the device's sort key, near dateCreated in seconds since 2001-01-01 UTC
    qint32 visibilityState;     ///< 0 visible, 2 kept out of the main view (bursts, shared albums)
    qint64 faceAreaPoints;      ///< packed area of the faces, the device's own format
    qint32 favorite;            ///< 1 when marked as a favourite
    qint32 kindSubtype; ///< 0 plain, 1 panorama, 2 live photo, 10 screenshot, 101 slow motion, 102 time-lapse, ...
    double latitude;    ///< degrees; -180.0, the default, means no location
    double longitude;   ///< degrees; -180.0, the default, means no location
    qint32 duplicateAssetVisibilityState;    ///< 0 none, 1 has a duplicate, 2 is one
    qint32 duplicateMetadataMatchingAlbum;   ///< Z_PK of the set of photos with equal metadata, 0 for none
    qint32 duplicatePerceptualMatchingAlbum; ///< Z_PK of the set of photos that look alike, 0 for none
    qint32 packedBadgeAttributes;            ///< bit set of badges; 6 a RAW photo
    qint32 depthType;                        ///< 1 portrait
    qint32 moment;                           ///< Z_PK of the moment, 0 for none
    qint32 thumbnailIndex;                   ///< slot in the thumbnail containers; -1, the default, for none
    QString uniformTypeIdentifier;           ///< such as public.jpeg; empty, not null, by default
    qint64 localResourcesState;              ///< bit set of the resources on the device; 32 by default
    qint64 customRenderedValue;              ///< EXIF value of HDR and panorama rendering; 0 by default
    qint32 cameraCaptureDevice;              ///< 1 front camera
    qint32 hasAdjustments;                   ///< 1 when edited on the device
    qint32 hidden;                           ///< 1 when hidden
    qint32 cloudLocalState;                  ///< 1 when in the cloud library; 0 by default
    qint32 importSession;                    ///< Z_PK of the import session, 0 for none

    /// Sets the defaults named above; a number without one is 0.
    photoItem();

    /// Copies every field.
    photoItem(const photoItem &other);

    /// Copies every field but `entity`, which keeps its value. Hosts rely on it.
    photoItem &operator=(const photoItem &other);

    /// Gives up this object's share of its texts.
    ~photoItem();
};

#endif
