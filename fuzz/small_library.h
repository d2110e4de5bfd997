#ifndef FUZZ_SMALL_LIBRARY_H
#define FUZZ_SMALL_LIBRARY_H

#include "testing/era.h"

#include <QByteArray>

namespace fuzz
{

struct SmallLibrary {
    QByteArray database;
    QByteArray wal; ///< some later changes
};

/// A library of one release with a few rows in every table that is read, in a file as small as SQLite makes it: the
/// fuzzer wastes less time on bytes that nobody reads. Throws testkit::LibraryError.
SmallLibrary smallLibrary(testkit::Era era);

} // namespace fuzz

#endif
