#include "photolib/media/ithmb_frame.h"

#include <algorithm>
#include <limits>

namespace photolib
{

namespace
{

constexpr std::int64_t bytesPerPixel = 3;
constexpr std::int32_t infoHeaderBytes = 40;
constexpr std::size_t widthInTrailer = 16;
constexpr std::size_t heightInTrailer = 20;

std::int32_t littleEndian32(const unsigned char *bytes)
{
    const std::uint32_t value = static_cast<std::uint32_t>(bytes[0]) | static_cast<std::uint32_t>(bytes[1]) << 8 |
                                static_cast<std::uint32_t>(bytes[2]) << 16 | static_cast<std::uint32_t>(bytes[3]) << 24;
    return static_cast<std::int32_t>(value);
}

void put16(unsigned value, unsigned char *out)
{
    out[0] = static_cast<unsigned char>(value);
    out[1] = static_cast<unsigned char>(value >> 8);
}

void put32(std::int32_t value, unsigned char *out)
{
    const auto bits = static_cast<std::uint32_t>(value);
    put16(bits & 0xFFFF, out);
    put16(bits >> 16, out + 2);
}

std::int64_t rowBytes(std::int64_t width)
{
    return (width + 1) * bytesPerPixel / 4 * 4;
}

// 5 bits a channel become the upper bits of a byte each; the lower ones stay 0.
void convertPixels(const unsigned char *source, std::int64_t count, unsigned char *out)
{
    for (std::int64_t x = 0; x < count; ++x) {
        const unsigned pixel = static_cast<unsigned>(source[2 * x]) | static_cast<unsigned>(source[2 * x + 1]) << 8;
        out[3 * x] = static_cast<unsigned char>((pixel & 0x1F) << 3);
        out[3 * x + 1] = static_cast<unsigned char>((pixel >> 5 & 0x1F) << 3);
        out[3 * x + 2] = static_cast<unsigned char>((pixel >> 10 & 0x1F) << 3);
    }
}

} // namespace

PictureSize pictureSizeOf(const unsigned char *trailer)
{
    return {littleEndian32(trailer + widthInTrailer), littleEndian32(trailer + heightInTrailer)};
}

bool isBitmapSize(PictureSize size)
{
    if (size.width < 0 || size.height < 0)
        return false;
    constexpr auto limit = std::numeric_limits<std::int32_t>::max() - static_cast<std::int64_t>(bitmapHeaderBytes);
    const std::int64_t row = rowBytes(size.width);
    return row <= limit && row * size.height <= limit;
}

std::int32_t bitmapRowBytes(PictureSize size)
{
    return static_cast<std::int32_t>(rowBytes(size.width));
}

std::int32_t bitmapPixelBytes(PictureSize size)
{
    return bitmapRowBytes(size) * size.height;
}

void writeBitmapHeader(PictureSize size, unsigned char *out)
{
    constexpr auto headerBytes = static_cast<std::int32_t>(bitmapHeaderBytes);
    std::fill_n(out, bitmapHeaderBytes, static_cast<unsigned char>(0));
    out[0] = 'B';
    out[1] = 'M';
    put32(bitmapPixelBytes(size) + headerBytes, out + 2);
    put32(headerBytes, out + 10);
    put32(infoHeaderBytes, out + 14);
    put32(size.width, out + 18);
    put32(size.height, out + 22);
    put16(1, out + 26);  // planes
    put16(24, out + 28); // bits per pixel
    put32(bitmapPixelBytes(size), out + 34);
}

// The rows are taken from the bottom of the centred picture upward, as the bitmap stores them.
void convertIthmbFrame(const unsigned char *frame, const ithmbGeometry &geometry, unsigned char *out)
{
    const PictureSize size = pictureSizeOf(frame + geometry.frameBytes);
    const std::int64_t above = (geometry.frameRows - static_cast<std::int64_t>(size.height)) / 2;
    const std::int64_t left = (geometry.frameColumns - static_cast<std::int64_t>(size.width)) / 2;
    // Columns of the picture that the frame has pixels for; less than the width where it is larger than the frame.
    const std::int64_t begin = std::max<std::int64_t>(0, -left);
    const std::int64_t end = std::min<std::int64_t>(size.width, geometry.rowPixels - left);
    const std::int64_t bottom = geometry.frameRows - 1 - above;
    const std::int64_t firstRow = std::max<std::int64_t>(0, bottom - (geometry.frameRows - 1));
    const std::int64_t lastRow = std::min<std::int64_t>(size.height - 1, bottom);
    for (std::int64_t y = firstRow; y <= lastRow; ++y) {
        const std::int64_t first = (bottom - y) * geometry.rowPixels + left + begin;
        convertPixels(frame + first * 2, end - begin, out + y * bitmapRowBytes(size) + begin * bytesPerPixel);
    }
}

} // namespace photolib
