#include "tests/unit/photolib/photo_item_fields.h"

namespace
{

// Null and empty are different values here, as they are to hosts.
bool isIdentical(const QString &a, const QString &b)
{
    return a == b && a.isNull() == b.isNull();
}

bool isIdentical(const QByteArray &a, const QByteArray &b)
{
    return a == b && a.isNull() == b.isNull();
}

template <typename Value>
bool isIdentical(const Value &a, const Value &b)
{
    return a == b;
}

template <typename Value>
PhotoField field(const char *name, std::size_t offset, Value photoItem::*member, const Value &standard,
                 const Value &other)
{
    return {name, offset, [=](const photoItem &photo) { return isIdentical(photo.*member, standard); },
            [=](photoItem &photo) { photo.*member = other; },
            [=](const photoItem &a, const photoItem &b) { return isIdentical(a.*member, b.*member); }};
}

QDateTime day(int number)
{
    return QDateTime(QDate(2020, 1, number), QTime(12, 30), Qt::UTC);
}

// The type is written out: a field whose type changed no longer fits hosts.
#define PHOTO_FIELD(type, name, standard, other)                                                                       \
    field<type>(#name, offsetof(photoItem, name), &photoItem::name, type(standard), type(other))

} // namespace

const std::vector<PhotoField> &photoFields()
{
    static const std::vector<PhotoField> fields = {
        PHOTO_FIELD(qint64, id, 0, 5'000'000'000),
        PHOTO_FIELD(qint32, entity, 27, 30),
        PHOTO_FIELD(QByteArray, uuid, QByteArray(), "A1-B2"),
        PHOTO_FIELD(QString, fileName, QString(), "IMG_0001.JPG"),
        PHOTO_FIELD(qint32, mediaType, 3, 1),
        PHOTO_FIELD(QString, directory, QString(), "DCIM/100APPLE"),
        PHOTO_FIELD(QString, metadataPath, QString(), "PhotoData/Metadata/x"),
        PHOTO_FIELD(qint32, orientation, 0, 6),
        PHOTO_FIELD(qint32, height, 0, 3024),
        PHOTO_FIELD(qint32, width, 0, 4032),
        PHOTO_FIELD(qint32, duration, 0, 12),
        PHOTO_FIELD(qint64, fileSize, 0, 6'000'000'000),
        PHOTO_FIELD(QDateTime, dateCreated, QDateTime(), day(1)),
        PHOTO_FIELD(QDateTime, modificationDate, QDateTime(), day(2)),
        PHOTO_FIELD(QDateTime, trashedDate, QDateTime(), day(3)),
        PHOTO_FIELD(qint32, trashedState, 0, 1),
        PHOTO_FIELD(QString, avalancheUuid, QString(), "burst"),
        PHOTO_FIELD(qint32, avalanchePickType, 0, 52),
        PHOTO_FIELD(double, sortToken, 0.0, 1.5),
        PHOTO_FIELD(qint32, visibilityState, 0, 2),
        PHOTO_FIELD(qint64, faceAreaPoints, 0, 7'000'000'000),
        PHOTO_FIELD(qint32, favorite, 0, 1),
        PHOTO_FIELD(qint32, kindSubtype, 0, 101),
        PHOTO_FIELD(double, latitude, -180.0, 48.8584),
        PHOTO_FIELD(double, longitude, -180.0, -2.2945),
        PHOTO_FIELD(qint32, duplicateAssetVisibilityState, 0, 3),
        PHOTO_FIELD(qint32, duplicateMetadataMatchingAlbum, 0, 4),
        PHOTO_FIELD(qint32, duplicatePerceptualMatchingAlbum, 0, 5),
        PHOTO_FIELD(qint32, packedBadgeAttributes, 0, 8),
        PHOTO_FIELD(qint32, depthType, 0, 1),
        PHOTO_FIELD(qint32, moment, 0, 9),
        PHOTO_FIELD(qint32, thumbnailIndex, -1, 10),
        PHOTO_FIELD(QString, uniformTypeIdentifier, "", "public.jpeg"),
        PHOTO_FIELD(qint64, localResourcesState, 32, 8'000'000'000),
        PHOTO_FIELD(qint64, customRenderedValue, 0, 9'000'000'000),
        PHOTO_FIELD(qint32, cameraCaptureDevice, 0, 1),
        PHOTO_FIELD(qint32, hasAdjustments, 0, 1),
        PHOTO_FIELD(qint32, hidden, 0, 1),
        PHOTO_FIELD(qint32, cloudLocalState, 0, 11),
        PHOTO_FIELD(qint32, importSession, 0, 12),
    };
    return fields;
}
