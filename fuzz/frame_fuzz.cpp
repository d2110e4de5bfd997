// One frame of a thumbnail container, converted into exactly as much memory as it may touch, and compared with a plain
// reading of the format, pixel by pixel.

#include "fuzz/byte_reader.h"
#include "fuzz/frame_trailer.h"
#include "fuzz/require.h"
#include "photolib/media/ithmb_frame.h"
#include "photolib/media/thumbnail_places.h"

#include <algorithm>
#include <array>
#include <memory>
#include <vector>

namespace
{

constexpr std::int32_t largestOutput = 1 << 18;

ithmbGeometry geometryFrom(fuzz::ByteReader *in)
{
    const auto &containers = photolib::thumbnailContainers();
    if (in->seldom(32))
        return containers[static_cast<std::size_t>(in->choice(static_cast<int>(containers.size())))].geometry;
    ithmbGeometry geometry{};
    geometry.rowPixels = 1 + in->choice(40);
    geometry.frameRows = 1 + in->choice(40);
    geometry.frameColumns = 1 + in->choice(geometry.rowPixels);
    geometry.frameBytes = geometry.rowPixels * geometry.frameRows * 2;
    return geometry;
}

// Pixels that tell apart where they come from, but for those that the bytes bring.
std::vector<unsigned char> frameFrom(const ithmbGeometry &geometry, fuzz::ByteReader *in)
{
    const QByteArray trailer = fuzz::anyTrailer(in);
    const QByteArray own = in->rest();
    const auto pixels = static_cast<std::size_t>(geometry.frameBytes);
    std::vector<unsigned char> frame(pixels);
    for (std::size_t i = 0; i < pixels; ++i)
        frame[i] = static_cast<unsigned char>(i * 7 + i / 251);
    std::copy_n(own.begin(), std::min(own.size(), geometry.frameBytes), frame.begin());
    frame.insert(frame.end(), trailer.begin(), trailer.end());
    return frame;
}

std::array<unsigned char, 3> pixelAt(const std::vector<unsigned char> &frame, const ithmbGeometry &geometry,
                                     std::int64_t column, std::int64_t row)
{
    if (column < 0 || column >= geometry.rowPixels || row < 0 || row >= geometry.frameRows)
        return {0, 0, 0};
    const auto at = static_cast<std::size_t>(2 * (row * geometry.rowPixels + column));
    const int value = frame[at] | frame[at + 1] << 8;
    const auto channel = [value](int bit) { return static_cast<unsigned char>((value >> bit & 31) * 8); };
    return {channel(0), channel(5), channel(10)};
}

void compare(const std::vector<unsigned char> &frame, const ithmbGeometry &geometry, photolib::PictureSize size,
             const unsigned char *out)
{
    if (size.width == 0)
        return; // as many empty rows as it may be
    const std::int64_t left = (geometry.frameColumns - std::int64_t{size.width}) / 2;
    const std::int64_t top = (geometry.frameRows - std::int64_t{size.height}) / 2;
    const std::int64_t stride = photolib::bitmapRowBytes(size);
    for (std::int64_t y = 0; y < size.height; ++y) {
        const std::int64_t row = geometry.frameRows - 1 - top - y; // the bitmap begins with the bottom row
        for (std::int64_t x = 0; x < size.width; ++x) {
            const auto expected = pixelAt(frame, geometry, left + x, row);
            fuzz::require(std::equal(expected.begin(), expected.end(), out + y * stride + x * 3),
                          "a pixel of the bitmap is the pixel of the frame");
        }
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    fuzz::ByteReader in(data, size);
    const ithmbGeometry geometry = geometryFrom(&in);
    const std::vector<unsigned char> frame = frameFrom(geometry, &in);
    const photolib::PictureSize picture = photolib::pictureSizeOf(frame.data() + geometry.frameBytes);
    if (!photolib::isBitmapSize(picture))
        return 0;
    std::array<unsigned char, photolib::bitmapHeaderBytes> header{};
    photolib::writeBitmapHeader(picture, header.data());
    const std::int32_t outputBytes = photolib::bitmapPixelBytes(picture);
    fuzz::require(outputBytes >= 0, "a bitmap size fits");
    if (outputBytes > largestOutput)
        return 0;
    // An array of no element, too, ends where a byte behind it would be seen.
    const auto out = std::make_unique<unsigned char[]>(static_cast<std::size_t>(outputBytes));
    photolib::convertIthmbFrame(frame.data(), geometry, out.get());
    fuzz::require(photolib::bitmapRowBytes(picture) >= picture.width * 3, "a row holds its pixels");
    compare(frame, geometry, picture, out.get());
    return 0;
}
