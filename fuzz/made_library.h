#ifndef FUZZ_MADE_LIBRARY_H
#define FUZZ_MADE_LIBRARY_H

#include "fuzz/byte_reader.h"

namespace fuzz
{

/// A photo library database that follows decisions from a fuzzer's bytes: a plain library where they are 0, and from
/// there every table and column missing, of another kind or with other rows, in any text encoding, with views,
/// triggers and generated columns, with a forged schema and with damaged pages.
QByteArray madeLibrary(ByteReader *in);

} // namespace fuzz

#endif
