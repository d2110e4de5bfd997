#include "apps/browser/page/page_place.h"

#include <QStringList>

#include <algorithm>

namespace browser
{

// Areas of several places have no key, and differ by their titles.
QString collectionName(const Collection &collection)
{
    return QStringList{QString::number(static_cast<int>(collection.section)), QString::number(collection.category),
                       QString::number(collection.albumId), collection.key,
                       collection.key.isEmpty() && collection.albumId == 0 ? collection.title : QString()}
        .join(QLatin1Char('/'));
}

int findCollection(const Snapshot &snapshot, const QString &name)
{
    const auto &all = snapshot.collections;
    const auto found =
        std::find_if(all.begin(), all.end(), [&name](const Collection &one) { return collectionName(one) == name; });
    return found == all.end() ? -1 : static_cast<int>(found - all.begin());
}

} // namespace browser
