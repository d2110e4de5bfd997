#include "apps/cli/contact_sheet/group_title.h"

#include "apps/cli/categories.h"
#include "apps/cli/output/value_text.h"

#include <QLocale>

#include <cmath>

namespace photocli
{

namespace
{

QString degrees(double value, char positive, char negative)
{
    return QStringLiteral("%1\u00B0 %2")
        .arg(QString::number(std::abs(value), 'f', 4), QChar(value < 0 ? negative : positive));
}

// The keys of bursts and of some other categories are made for machines.
QString burstTitle(const photoItem &photo)
{
    if (!isRealDate(photo.dateCreated))
        return QStringLiteral("Burst");
    const QString date = QLocale::c().toString(photo.dateCreated.toLocalTime(), QStringLiteral("d MMMM yyyy, HH:mm"));
    return QStringLiteral("Burst of %1").arg(date);
}

} // namespace

QString placeText(double latitude, double longitude)
{
    return QStringLiteral("%1, %2").arg(degrees(latitude, 'N', 'S'), degrees(longitude, 'E', 'W'));
}

QString groupTitle(photo_manager_int &library, int category, const QString &key, qint64 firstPhoto)
{
    const photoGroup group = library.getPhotoGroup(category, key);
    if (!group.title.isEmpty())
        return group.title;
    photoItem photo;
    const bool known = library.getPhotoItem(&firstPhoto, &photo);
    if (category == placesCategory && known)
        return placeText(photo.latitude, photo.longitude);
    if (category == burstsCategory && known)
        return burstTitle(photo);
    if (category == peopleCategory)
        return QStringLiteral("Person %1").arg(key);
    if (category == memoriesCategory)
        return QStringLiteral("Memory %1").arg(key);
    return key == QChar('0') ? QString() : key;
}

} // namespace photocli
