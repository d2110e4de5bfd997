#include "apps/browser/page/photo_query.h"

#include "apps/browser/page/month_range.h"
#include "apps/browser/page/natural_order.h"
#include "apps/browser/page/photo_search.h"

#include <algorithm>
#include <tuple>

namespace browser
{

namespace
{

// For std::sort, which cannot be asked to stop.
struct Stopped {
};

bool isOnDevice(const Photo &photo, const PhotoQuery &query)
{
    return !photo.is(CloudOnly) && !(query.lacking && query.lacking->contains(photo.id));
}

bool passes(const Photo &photo, const PhotoQuery &query)
{
    const quint32 filters = query.filters;
    const auto fails = [filters](PhotoFilter filter, bool holds) { return (filters & filter) != 0 && !holds; };
    return !(fails(OnlyPhotos, photo.kind != MediaKind::Video) || fails(OnlyVideos, photo.kind == MediaKind::Video) ||
             fails(OnlyFavorites, photo.is(Favorite)) || fails(OnlyLivePhotos, photo.is(LivePhoto)) ||
             fails(OnlyOnDevice, isOnDevice(photo, query)) || fails(OnlyEdited, photo.is(Edited)) ||
             fails(OnlyLocated, photo.is(Located)));
}

class Finder
{
public:
    Finder(const Snapshot &library, const std::atomic<bool> &stopFlag, PhotoList &result)
        : snapshot(library), stop(stopFlag), list(result)
    {
    }

    void find()
    {
        const PhotoSearch search(snapshot, list.query.text);
        const QList<qint64> &ids = snapshot.collections[static_cast<std::size_t>(list.query.collection)].photoIds;
        list.rows.reserve(static_cast<std::size_t>(ids.size()));
        for (const qint64 id : ids) {
            checkStop();
            const auto row = snapshot.rows.constFind(id);
            if (row != snapshot.rows.constEnd() && passes(photo(*row), list.query) && search.matches(*row))
                list.rows.push_back(*row);
        }
    }

    // Indices in the snapshot ascend as ids do, so they are the last key of every order.
    void sort()
    {
        switch (list.query.sort) {
        case SortKey::Taken:
            return sortBy([this](int row) { return std::make_tuple(photo(row).created, row); });
        case SortKey::Added:
            return sortBy([](int row) { return row; });
        case SortKey::Size:
            return sortBy([this](int row) { return std::make_tuple(photo(row).fileSize, row); });
        case SortKey::Kind:
            return sortBy([this](int row) { return std::make_tuple(photo(row).kind, photo(row).created, row); });
        case SortKey::Name:
            return sortRows([this](int a, int b) {
                const int order = compareNaturally(photo(a).fileName, photo(b).fileName);
                return order != 0 ? order < 0 : a < b;
            });
        }
    }

    void index()
    {
        list.positions.assign(snapshot.photos.size(), -1);
        for (int position = 0; position < list.size(); ++position)
            list.positions[static_cast<std::size_t>(list.rows[static_cast<std::size_t>(position)])] = position;
    }

    void makeSections()
    {
        list.hasHeadings = list.query.sort == SortKey::Taken;
        if (!list.hasHeadings) {
            if (!list.rows.empty())
                list.sections.push_back({0, list.size(), QDate()});
            return;
        }
        MonthRange month;
        for (int position = 0; position < list.size(); ++position) {
            const qint64 created = photo(list.rows[static_cast<std::size_t>(position)]).created;
            if (position == 0 || !month.contains(created)) {
                month = MonthRange::around(created);
                list.sections.push_back({position, 0, month.month});
            }
            ++list.sections.back().count;
        }
    }

private:
    const Photo &photo(int row) const { return snapshot.photos[static_cast<std::size_t>(row)]; }

    void checkStop() const
    {
        if (stop.load(std::memory_order_relaxed))
            throw Stopped();
    }

    template <class KeyOf>
    void sortBy(KeyOf keyOf)
    {
        sortRows([&keyOf](int a, int b) { return keyOf(a) < keyOf(b); });
    }

    template <class Less>
    void sortRows(Less less)
    {
        std::sort(list.rows.begin(), list.rows.end(), [this, &less](int a, int b) {
            checkStop();
            return list.query.descending ? less(b, a) : less(a, b);
        });
    }

    const Snapshot &snapshot;
    const std::atomic<bool> &stop;
    PhotoList &list;
};

} // namespace

std::shared_ptr<const PhotoList> findPhotos(const Snapshot &snapshot, const PhotoQuery &query,
                                            const std::atomic<bool> &stop)
{
    auto list = std::make_shared<PhotoList>();
    list->query = query;
    Finder finder(snapshot, stop, *list);
    try {
        finder.find();
        finder.sort();
    } catch (const Stopped &) {
        return nullptr;
    }
    finder.index();
    finder.makeSections();
    return list;
}

} // namespace browser
