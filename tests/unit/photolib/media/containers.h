#ifndef TESTS_UNIT_PHOTOLIB_MEDIA_CONTAINERS_H
#define TESTS_UNIT_PHOTOLIB_MEDIA_CONTAINERS_H

#include "photolib/media/ithmb_frame.h"

#include <QByteArray>

#include <array>
#include <functional>

/// The thumbnail containers of devices as they are documented, and frames as devices write them; written down anew
/// here, apart from the library's own table and conversion.

struct Container {
    const char *path;
    int frameBytes;
    int rowPixels;
    int frameRows;
    int frameColumns;

    ithmbGeometry geometry() const { return {frameBytes, rowPixels, frameRows, frameColumns}; }
};

inline constexpr std::array<Container, 8> containers = {{
    {"/PhotoData/Thumbnails/332x332.ithmb", 223104, 336, 332, 332},
    {"/PhotoData/Thumbnails/240x240.ithmb", 115200, 240, 240, 240},
    {"/PhotoData/Thumbnails/166x166.ithmb", 55776, 168, 166, 166},
    {"/PhotoData/Thumbnails/158x158.ithmb", 50560, 160, 158, 158},
    {"/PhotoData/Thumbnails/120x120.ithmb", 28800, 120, 120, 120},
    {"/PhotoData/Thumbnails/3319.ithmb", 50240, 160, 157, 157},
    {"/PhotoData/Thumbnails/4031.ithmb", 28800, 120, 120, 120},
    {"/PhotoData/Thumbnails/3309.ithmb", 8192, 64, 64, 64},
}};

/// For comparisons.
inline std::array<int, 4> numbersOf(const ithmbGeometry &geometry)
{
    return {geometry.frameBytes, geometry.rowPixels, geometry.frameRows, geometry.frameColumns};
}

inline QByteArray littleEndian(qint64 value, int bytes)
{
    QByteArray result;
    for (int i = 0; i < bytes; ++i)
        result.append(static_cast<char>(value >> (8 * i)));
    return result;
}

/// What follows a frame. The unused bytes are no zeros, so that reading one of them is noticed.
inline QByteArray trailerOf(qint64 width, qint64 height)
{
    return QByteArray(16, '\x77') + littleEndian(width, 4) + littleEndian(height, 4) + QByteArray(4, '\x77');
}

/// A frame without its trailer; `pixel` tells the 16 bits at a column and a row of the whole frame.
inline QByteArray frameOf(const Container &container, const std::function<int(int column, int row)> &pixel)
{
    QByteArray frame;
    for (int row = 0; row < container.frameRows; ++row) {
        for (int column = 0; column < container.rowPixels; ++column)
            frame += littleEndian(pixel(column, row), 2);
    }
    return frame;
}

/// The bitmap's rows as the format's description gives them, pixel by pixel.
inline QByteArray expectedRows(const QByteArray &frame, const ithmbGeometry &container, qint64 width, qint64 height)
{
    const qint64 padding = (4 - width * 3 % 4) % 4;
    const qint64 top = (container.frameRows - height) / 2;
    const qint64 left = (container.frameColumns - width) / 2;
    QByteArray rows;
    for (qint64 y = 0; y < height; ++y) {
        for (qint64 x = 0; x < width; ++x) {
            const qint64 row = container.frameRows - 1 - top - y;
            const qint64 column = left + x;
            int pixel = 0;
            if (row >= 0 && row < container.frameRows && column >= 0 && column < container.rowPixels) {
                const auto at = static_cast<int>(2 * (row * container.rowPixels + column));
                pixel = static_cast<unsigned char>(frame[at]) + 256 * static_cast<unsigned char>(frame[at + 1]);
            }
            for (const int divisor : {1, 32, 1024})
                rows.append(static_cast<char>(pixel / divisor % 32 * 8));
        }
        rows.append(QByteArray(static_cast<int>(padding), '\0'));
    }
    return rows;
}

#endif
