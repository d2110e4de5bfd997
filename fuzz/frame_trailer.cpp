#include "fuzz/frame_trailer.h"

#include "photolib/media/ithmb_frame.h"

#include <QtEndian>

#include <limits>

namespace fuzz
{

namespace
{

constexpr int widthInTrailer = 16;
constexpr int heightInTrailer = 20;

qint32 anyExtent(ByteReader *in)
{
    switch (in->choice(16)) {
    case 13:
        return in->choice(65536);
    case 14:
        return in->int32();
    case 15:
        return std::numeric_limits<qint32>::max() - in->choice(65536);
    default:
        return in->choice(400);
    }
}

} // namespace

QByteArray anyTrailer(ByteReader *in)
{
    QByteArray trailer(static_cast<int>(photolib::frameTrailerBytes), '\0');
    qToLittleEndian(anyExtent(in), trailer.data() + widthInTrailer);
    qToLittleEndian(anyExtent(in), trailer.data() + heightInTrailer);
    return trailer;
}

} // namespace fuzz
