#ifndef APPS_CLI_SAMPLE_FRAME_CONTAINER_H
#define APPS_CLI_SAMPLE_FRAME_CONTAINER_H

#include <QByteArray>
#include <QImage>

namespace sample
{

/// How a container of small pictures lays out its records. Pixels are 16 bits: 5 red, 5 green, 5 blue.
struct FrameLayout {
    const char *fileName; ///< in PhotoData/Thumbnails
    int rowPixels;        ///< 16-bit pixels from one row to the next
    int rows;             ///< stored rows of a frame
    int columns;          ///< columns that a picture may fill

    int frameBytes() const { return rowPixels * rows * 2; }
    int recordBytes() const { return frameBytes() + 28; }
};

/// The two containers of the sample device. The first one is what a reader finds first.
constexpr FrameLayout largeFrames{"4031.ithmb", 120, 120, 120};
constexpr FrameLayout smallFrames{"3309.ithmb", 64, 64, 64};

/// One record: the picture, scaled to fit and centred, and the trailer that gives its size.
QByteArray frameRecord(const QImage &picture, const FrameLayout &layout);

} // namespace sample

#endif
