#ifndef BENCH_LIBRARY_RECIPE_H
#define BENCH_LIBRARY_RECIPE_H

#include <QString>

namespace bench
{

/// Writes a device folder with a made-up library of `assets` photos and videos, in the shape of iOS 15 with its indices:
/// 3 albums for 100 assets, of which one holds half of all assets and the others 20 each; 1.5 faces for an asset in 200
/// groups; 50 memories of 100 assets; 2 % in bursts of ten; 60 % with a place, eight at each place.
/// The first `files` assets get a file of `fileBytes` bytes each.
/// The same call writes the same library. Throws testkit::LibraryError.
void writeDevice(const QString &folder, int assets, int files, qint64 fileBytes);

} // namespace bench

#endif
