#include "apps/browser/page/texts.h"

#include <QDateTime>
#include <QLocale>

#include <cmath>

namespace browser
{

QString Texts::month(const QDate &month)
{
    if (!month.isValid())
        return tr("No date");
    return QLocale().toString(month, tr("MMMM yyyy", "month and year, as QDate formats them"));
}

QString Texts::duration(qint32 seconds)
{
    const QLatin1Char zero('0');
    const int total = std::max(0, seconds);
    if (total < 3600)
        return tr("%1:%2", "minutes and seconds").arg(total / 60).arg(total % 60, 2, 10, zero);
    return tr("%1:%2:%3", "hours, minutes and seconds")
        .arg(total / 3600)
        .arg(total / 60 % 60, 2, 10, zero)
        .arg(total % 60, 2, 10, zero);
}

QString Texts::size(qint64 bytes)
{
    return QLocale().formattedDataSize(bytes, 1, QLocale::DataSizeSIFormat);
}

QString Texts::roughSize(qint64 bytes)
{
    return tr("about %1", "size of a file").arg(size(bytes));
}

QString Texts::dateAndTime(qint64 date)
{
    if (date == Photo::noDate)
        return {};
    return QLocale().toString(QDateTime::fromMSecsSinceEpoch(date), QLocale::LongFormat);
}

QString Texts::coordinates(double latitude, double longitude, int decimals)
{
    const QString format = latitude < 0 ? (longitude < 0 ? tr("%1° S, %2° W") : tr("%1° S, %2° E"))
                                        : (longitude < 0 ? tr("%1° N, %2° W") : tr("%1° N, %2° E"));
    const QLocale locale;
    return format.arg(locale.toString(std::abs(latitude), 'f', decimals),
                      locale.toString(std::abs(longitude), 'f', decimals));
}

QString Texts::kind(const Photo &photo)
{
    if (photo.is(LivePhoto))
        return tr("Live Photo");
    if (photo.is(Screenshot))
        return tr("Screenshot");
    if (photo.is(Panorama))
        return tr("Panorama");
    if (photo.is(SlowMotion))
        return tr("Slow-motion video");
    if (photo.is(TimeLapse))
        return tr("Time-lapse video");
    if (photo.kind == MediaKind::Video)
        return tr("Video");
    if (photo.kind == MediaKind::Animation)
        return tr("Animated picture");
    return photo.is(Raw) ? tr("RAW photo") : tr("Photo");
}

QString Texts::description(const Photo &photo, bool lacksOriginal)
{
    QStringList facts{photo.fileName, kind(photo)};
    const auto add = [&facts](bool holds, const QString &text) { facts += holds ? QStringList(text) : QStringList(); };
    if (photo.created != Photo::noDate)
        facts += QLocale().toString(QDateTime::fromMSecsSinceEpoch(photo.created), QLocale::ShortFormat);
    add(photo.kind == MediaKind::Video, duration(photo.duration));
    add(photo.is(Favorite), tr("Favorite"));
    add(photo.is(Burst), tr("Part of a burst"));
    add(photo.is(CloudOnly) || lacksOriginal, tr("Only in the cloud, not on the device"));
    return facts.join(tr(", ", "between facts of a photo"));
}

QString Texts::photoCount(int count)
{
    return tr("%Ln photo(s)", nullptr, count);
}

} // namespace browser
