#ifndef APPS_BROWSER_LIBRARY_PLACE_AREAS_H
#define APPS_BROWSER_LIBRARY_PLACE_AREAS_H

#include <QString>

#include <vector>

namespace browser
{

/// A spot at which photos were taken.
struct Spot {
    double latitude = 0; ///< degrees
    double longitude = 0;
    int photos = 0;
};

/// Spots near one another. Never empty; its first spot is the one with the most photos.
struct Area {
    std::vector<int> spots; ///< indices
};

/// Gathers spots that are at most some ten kilometres from the busiest one among them: every step gives a photo a place
/// of its own, and a list of those would be of no use. The busiest areas come first. O(n log n).
std::vector<Area> areasOf(const std::vector<Spot> &spots);

} // namespace browser

#endif
