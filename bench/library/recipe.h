#ifndef BENCH_LIBRARY_RECIPE_H
#define BENCH_LIBRARY_RECIPE_H

#include <QString>

namespace bench
{

enum class Albums {
    Usual,    ///< 3 for 100 assets: one holds half of all assets, the others 20 each
    OneOfAll, ///< one that holds all assets
    Small,    ///< each holds 20 assets, and each asset is in one
};

/// What a library holds. The same recipe makes the same library.
struct Recipe {
    int assets = 0;         ///< photos and videos, a tenth of them videos
    bool synced = false;    ///< all of them were placed on the device by a host
    bool oneBurst = false;  ///< all of them are one burst
    bool ownPlaces = false; ///< each has a place that no other has
    Albums albums = Albums::Usual;
    int files = 0;        ///< so many of the first have a file
    qint64 fileBytes = 0; ///< of each file
};

/// Writes a device folder with a made-up library in the shape of iOS 15 with its indexes: albums as wanted; 1.5 faces
/// for an asset in 200 groups; 50 memories of 100 assets; 2 % in bursts of ten; 60 % with a place, most places with
/// four or five. With files, the first asset also has a JPEG thumbnail, and a container holds frames for all that have
/// files. Throws testkit::LibraryError.
void writeDevice(const QString &folder, const Recipe &recipe);

} // namespace bench

#endif
