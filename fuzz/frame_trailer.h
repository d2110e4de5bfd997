#ifndef FUZZ_FRAME_TRAILER_H
#define FUZZ_FRAME_TRAILER_H

#include "fuzz/byte_reader.h"

namespace fuzz
{

/// The bytes behind a frame of a thumbnail container, with a picture size that is mostly one of a picture, seldom any.
QByteArray anyTrailer(ByteReader *in);

} // namespace fuzz

#endif
