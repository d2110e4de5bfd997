#ifndef APPS_BROWSER_PAGE_PHOTO_QUERY_H
#define APPS_BROWSER_PAGE_PHOTO_QUERY_H

#include "apps/browser/library/snapshot.h"

#include <QDate>
#include <QSet>
#include <QString>

namespace browser
{

/// By what the photos of the grid are sorted.
enum class SortKey : quint8 { Taken, Added, Name, Size, Kind };

/// Which photos are shown, as bits of PhotoQuery::filters; all that are set must hold.
enum PhotoFilter : quint32 {
    OnlyPhotos = 1U << 0,
    OnlyVideos = 1U << 1,
    OnlyFavorites = 1U << 2,
    OnlyLivePhotos = 1U << 3,
    OnlyOnDevice = 1U << 4,
    OnlyEdited = 1U << 5,
    OnlyLocated = 1U << 6,
};

/// What the grid is asked to show.
struct PhotoQuery {
    int collection = 0; ///< index in Snapshot::collections
    QString text;       ///< words of names, titles of collections and dates
    SortKey sort = SortKey::Taken;
    bool descending = true;
    quint32 filters = 0;
    std::shared_ptr<const QSet<qint64>> lacking; ///< photos whose originals the device said it lacks; may be null

    /// Whether the other one asks for the same, whatever was learnt of the device meanwhile.
    bool asksLike(const PhotoQuery &other) const
    {
        return collection == other.collection && text == other.text && sort == other.sort &&
               descending == other.descending && filters == other.filters;
    }
    bool isNarrowed() const { return filters != 0 || !text.trimmed().isEmpty(); }
};

/// Photos below one heading of the grid.
struct PhotoSection {
    int first = 0; ///< position of its first photo
    int count = 0;
    QDate month; ///< its first day, in local time; null for photos without a date
};

/// The photos that a query found, in their order. Immutable once made.
struct PhotoList {
    PhotoQuery query;
    std::vector<int> rows;      ///< indices in Snapshot::photos
    std::vector<int> positions; ///< by index in Snapshot::photos the position in `rows`, -1 for none
    std::vector<PhotoSection> sections;
    bool hasHeadings = false; ///< whether sections are months; else there is one at most

    int size() const { return static_cast<int>(rows.size()); }
};

/// Finds and sorts. Any thread; null when `stop` became true. Throws std::bad_alloc.
std::shared_ptr<const PhotoList> findPhotos(const Snapshot &snapshot, const PhotoQuery &query,
                                            const std::atomic<bool> &stop);

} // namespace browser

#endif
