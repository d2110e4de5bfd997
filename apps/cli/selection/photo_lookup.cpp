#include "apps/cli/selection/photo_lookup.h"

#include "apps/cli/messages.h"
#include "apps/cli/selection/selection.h"

namespace photocli
{

QList<qint64> photosNamed(photo_manager_int &library, const QString &text)
{
    bool isNumber = false;
    const qint64 number = text.toLongLong(&isNumber);
    photoItem photo;
    if (isNumber && library.getPhotoItem(&number, &photo))
        return {number};
    QList<qint64> ids;
    for (const qint64 id : library.getPhotoList()) {
        if (library.getPhotoItem(&id, &photo) && sameUuid(photo.uuid, text))
            ids += id;
    }
    return ids;
}

QString noSuchPhoto(const QString &text)
{
    return QStringLiteral("no photo has the id or UUID %1; \"photolib photos DEVICE\" lists the ids").arg(quoted(text));
}

} // namespace photocli
