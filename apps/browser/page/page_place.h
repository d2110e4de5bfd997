#ifndef APPS_BROWSER_PAGE_PAGE_PLACE_H
#define APPS_BROWSER_PAGE_PAGE_PLACE_H

#include "apps/browser/page/photo_query.h"

#include <QVector>

namespace browser
{

/// Where a person is in a page: for another page of the same device. A plain value.
struct PagePlace {
    QString collection; ///< of collectionName()
    QString text;       ///< that is searched for
    quint32 filters = 0;
    QVector<qint64> selected;
    qint64 current = 0; ///< 0 for none
    qint64 first = 0;   ///< the first photo on the screen; 0 for none
    int above = 0;      ///< pixels of it that are above the screen
};

/// The same text for the same collection of every snapshot of a library.
QString collectionName(const Collection &collection);

/// Index in Snapshot::collections; -1 when the snapshot does not have it.
int findCollection(const Snapshot &snapshot, const QString &name);

} // namespace browser

#endif
