#ifndef FUZZ_HOSTILE_VALUE_H
#define FUZZ_HOSTILE_VALUE_H

#include "fuzz/byte_reader.h"

struct sqlite3_stmt;

namespace fuzz
{

/// Binds a value of `row` (from 0) to the parameter `index` (from 1). A `plain` one is what a column of this kind has
/// in real libraries: k a key, t a title, f a file name, d a folder, u an identifier, 0 and 1 flags, s seconds. Any
/// other one may be what no library ever had.
void bindValue(sqlite3_stmt *statement, int index, char kind, int row, bool plain, ByteReader *in);

/// A word that the library or SQLite has a use for somewhere: names of tables, columns and folders, place markers,
/// ways out of a folder, numbers at the end of a range.
QByteArray knownWord(ByteReader *in);

} // namespace fuzz

#endif
