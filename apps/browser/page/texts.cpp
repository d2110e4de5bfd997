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

QString Texts::dateAndTime(qint64 date)
{
    if (date == Photo::noDate)
        return {};
    const QDateTime local = QDateTime::fromMSecsSinceEpoch(date);
    const QLocale locale;
    return tr("%1, %2 (%3)", "date, time, time zone")
        .arg(locale.toString(local.date(), QLocale::LongFormat),
             locale.toString(local.time(), tr("HH:mm:ss", "time of day, as QTime formats it")),
             local.timeZoneAbbreviation());
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

QString Texts::description(const Photo &photo)
{
    if (photo.created == Photo::noDate)
        return tr("%1, %2", "file name, kind").arg(photo.fileName, kind(photo));
    const QString date = QLocale().toString(QDateTime::fromMSecsSinceEpoch(photo.created), QLocale::ShortFormat);
    return tr("%1, %2, %3", "file name, kind, date").arg(photo.fileName, kind(photo), date);
}

QString Texts::photoCount(int count)
{
    return tr("%Ln photo(s)", nullptr, count);
}

} // namespace browser
