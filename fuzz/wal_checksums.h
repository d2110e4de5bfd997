#ifndef FUZZ_WAL_CHECKSUMS_H
#define FUZZ_WAL_CHECKSUMS_H

#include <QByteArray>

namespace fuzz
{

/// Makes the header of a write-ahead log and all its frames pass for written by one program: the salts of the frames
/// are the header's, and the checksums fit. SQLite ignores frames that do not fit, so without this hardly any change
/// of the bytes would reach it. Everything else stays as it is, the page size and the page numbers included.
void mendWal(QByteArray *wal);

} // namespace fuzz

#endif
