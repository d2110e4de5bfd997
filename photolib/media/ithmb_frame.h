#ifndef PHOTOLIB_MEDIA_ITHMB_FRAME_H
#define PHOTOLIB_MEDIA_ITHMB_FRAME_H

#include <cstddef>
#include <cstdint>

/// Turns one stored frame of a thumbnail container into a bitmap: bytes in, bytes out.
///
/// A frame is `frameRows` rows of `rowPixels` pixels, top row first, each pixel 16 bits little-endian: bits 0 to 4
/// blue, 5 to 9 green, 10 to 14 red. The picture stands in its middle. A trailer of 28 bytes follows each frame and
/// holds the picture's size.

/// The layout of one container.
struct ithmbGeometry {
    std::int32_t frameBytes;   ///< bytes of one stored frame: rowPixels x frameRows x 2
    std::int32_t rowPixels;    ///< 16-bit pixels of one stored row
    std::int32_t frameRows;    ///< stored rows of a frame
    std::int32_t frameColumns; ///< picture columns of a frame, the first of a row
};

namespace photolib
{

constexpr std::size_t frameTrailerBytes = 28;
constexpr std::size_t bitmapHeaderBytes = 54;

/// Width and height of a picture in pixels.
struct PictureSize {
    std::int32_t width;
    std::int32_t height;
};

/// The size that the 28 bytes behind a frame tell.
PictureSize pictureSizeOf(const unsigned char *trailer);

/// Whether a bitmap of this size can be made: nothing is below 0, and header and pixels together fit a signed 32-bit
/// size.
bool isBitmapSize(PictureSize size);

/// Bytes of one bitmap row, 3 a pixel, rounded up to a multiple of 4; and of all rows. For a bitmap size only.
std::int32_t bitmapRowBytes(PictureSize size);
std::int32_t bitmapPixelBytes(PictureSize size);

/// Writes the 54 header bytes of a 24-bit bitmap whose rows stand bottom-up.
void writeBitmapHeader(PictureSize size, unsigned char *out);

/// Writes the rows of the bitmap, bottom row first, 3 bytes a pixel: blue, green, red. `frame` is followed by its
/// trailer, whose size must be a bitmap size; `out` holds bitmapPixelBytes() zero bytes. Pixels of a picture that is
/// larger than its frame stay 0 where the frame has none.
void convertIthmbFrame(const unsigned char *frame, const ithmbGeometry &geometry, unsigned char *out);

} // namespace photolib

#endif
