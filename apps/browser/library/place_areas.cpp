#include "apps/browser/library/place_areas.h"

#include <QHash>

#include <algorithm>
#include <cmath>
#include <numeric>

namespace browser
{

namespace
{

constexpr double reach = 0.1; // degrees of latitude: eleven kilometres

// Cells as large as the reach, so that an area in reach lies in one of nine. Degrees of longitude become shorter
// towards the poles; cells of one row are as wide as the row needs.
struct Cells {
    static constexpr int rows = 1802;

    static int rowOf(double latitude) { return static_cast<int>(std::floor(latitude / reach)); }

    static double widthOf(int row)
    {
        constexpr double radians = 3.14159265358979323846 / 180;
        return reach / std::max(0.01, std::cos(row * reach * radians));
    }

    static qint64 keyOf(int row, double longitude, int shift)
    {
        const auto column = static_cast<qint64>(std::floor(longitude / widthOf(row))) + shift;
        return column * rows * 2 + row + rows;
    }
};

bool isNear(const Spot &one, const Spot &other)
{
    const double width = Cells::widthOf(Cells::rowOf(one.latitude));
    const double north = (one.latitude - other.latitude) / reach;
    const double east = (one.longitude - other.longitude) / width;
    return north * north + east * east <= 1;
}

class AreaMap
{
public:
    explicit AreaMap(const std::vector<Spot> &all) : spots(all) {}

    void add(int spot)
    {
        const Spot &place = spots[static_cast<std::size_t>(spot)];
        const int area = find(place);
        if (area >= 0) {
            areas[static_cast<std::size_t>(area)].spots.push_back(spot);
            return;
        }
        cells.insert(Cells::keyOf(Cells::rowOf(place.latitude), place.longitude, 0), static_cast<int>(areas.size()));
        areas.push_back({{spot}});
    }

    std::vector<Area> areas;

private:
    int find(const Spot &place) const
    {
        const int row = Cells::rowOf(place.latitude);
        for (int down = -1; down <= 1; ++down) {
            for (int right = -1; right <= 1; ++right) {
                const auto range = cells.equal_range(Cells::keyOf(row + down, place.longitude, right));
                for (auto area = range.first; area != range.second; ++area) {
                    const int centre = areas[static_cast<std::size_t>(*area)].spots.front();
                    if (isNear(spots[static_cast<std::size_t>(centre)], place))
                        return *area;
                }
            }
        }
        return -1;
    }

    const std::vector<Spot> &spots;
    QMultiHash<qint64, int> cells; ///< areas by the cell of their first spot
};

} // namespace

std::vector<Area> areasOf(const std::vector<Spot> &spots)
{
    std::vector<int> order(spots.size());
    std::iota(order.begin(), order.end(), 0);
    const auto photosAt = [&spots](int spot) { return spots[static_cast<std::size_t>(spot)].photos; };
    std::stable_sort(order.begin(), order.end(), [&](int a, int b) { return photosAt(a) > photosAt(b); });
    AreaMap map(spots);
    for (const int spot : order)
        map.add(spot);
    const auto photosIn = [&](const Area &area) {
        return std::accumulate(area.spots.begin(), area.spots.end(), 0,
                               [&](int sum, int spot) { return sum + photosAt(spot); });
    };
    std::stable_sort(map.areas.begin(), map.areas.end(),
                     [&](const Area &a, const Area &b) { return photosIn(a) > photosIn(b); });
    return map.areas;
}

} // namespace browser
