#include "exporter/layout_fields.h"

#include "exporter/safe_name.h"

namespace exporter
{

namespace
{

// The database's zero: it stands for a date that the database does not have.
const qint64 zeroDate = 978307200000;

QDateTime knownOrNull(const QDateTime &date)
{
    return isKnownDate(date) ? date : QDateTime();
}

QDateTime created(const photoItem &photo)
{
    return knownOrNull(photo.dateCreated);
}

QDateTime modified(const photoItem &photo)
{
    return knownOrNull(photo.modificationDate);
}

QDateTime trashed(const photoItem &photo)
{
    return knownOrNull(photo.trashedDate);
}

QString mediaType(const photoItem &photo)
{
    switch (photo.mediaType) {
    case 1:
        return QStringLiteral("video");
    case 2:
        return QStringLiteral("gif");
    default:
        return QStringLiteral("photo");
    }
}

template <typename Number, Number photoItem::*member>
QString number(const photoItem &photo)
{
    return QString::number(photo.*member);
}

} // namespace

bool isKnownDate(const QDateTime &date)
{
    return date.isValid() && date.toMSecsSinceEpoch() != zeroDate;
}

const std::vector<LayoutField> &layoutFields()
{
    static const std::vector<LayoutField> fields{
        {"created", "date when the picture was taken", created, nullptr},
        {"modified", "date of the last change", modified, nullptr},
        {"trashed", "date when it was deleted", trashed, nullptr},
        {"fileName", "name on the device with extension", nullptr, [](const photoItem &p) { return p.fileName; }},
        {"stem", "name on the device without extension", nullptr,
         [](const photoItem &p) { return stemOf(p.fileName); }},
        {"extension", "extension on the device", nullptr, [](const photoItem &p) { return extensionOf(p.fileName); }},
        {"directory", "folder on the device, as one name", nullptr, [](const photoItem &p) { return p.directory; }},
        {"id", "number in the library", nullptr, number<qint64, &photoItem::id>},
        {"uuid", "UUID", nullptr, [](const photoItem &p) { return QString::fromUtf8(p.uuid); }},
        {"mediaType", "photo, video or gif", nullptr, mediaType},
        {"kindSubtype", "number of the kind: 2 Live Photo, 10 screenshot, ...", nullptr,
         number<qint32, &photoItem::kindSubtype>},
        {"favorite", "1 for a favourite, else 0", nullptr, number<qint32, &photoItem::favorite>},
        {"hidden", "1 for a hidden photo, else 0", nullptr, number<qint32, &photoItem::hidden>},
        {"width", "pixels", nullptr, number<qint32, &photoItem::width>},
        {"height", "pixels", nullptr, number<qint32, &photoItem::height>},
        {"duration", "seconds", nullptr, number<qint32, &photoItem::duration>},
    };
    return fields;
}

} // namespace exporter
