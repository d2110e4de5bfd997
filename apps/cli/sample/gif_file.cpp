#include "apps/cli/sample/picture_files.h"

#include <gif_lib.h>

#include <memory>
#include <vector>

namespace sample
{

namespace
{

struct FreeMap {
    void operator()(ColorMapObject *map) const { GifFreeMapObject(map); }
};
using ColorMap = std::unique_ptr<ColorMapObject, FreeMap>;

int appendBytes(GifFileType *file, const GifByteType *bytes, int count)
{
    static_cast<QByteArray *>(file->UserData)->append(reinterpret_cast<const char *>(bytes), count);
    return count;
}

// The frame's pixels as palette numbers; null when the frame cannot be quantised.
ColorMap quantise(const QImage &frame, std::vector<GifByteType> &numbers)
{
    const auto count = static_cast<std::size_t>(frame.width()) * static_cast<std::size_t>(frame.height());
    std::vector<GifByteType> red(count), green(count), blue(count);
    for (std::size_t i = 0; i < count; ++i) {
        const int at = static_cast<int>(i);
        const QRgb pixel = frame.pixel(at % frame.width(), at / frame.width());
        red[i] = static_cast<GifByteType>(qRed(pixel));
        green[i] = static_cast<GifByteType>(qGreen(pixel));
        blue[i] = static_cast<GifByteType>(qBlue(pixel));
    }
    numbers.resize(count);
    int colours = 256;
    ColorMap map(GifMakeMapObject(colours, nullptr));
    const auto width = static_cast<unsigned>(frame.width()), height = static_cast<unsigned>(frame.height());
    if (!map || GifQuantizeBuffer(width, height, &colours, red.data(), green.data(), blue.data(), numbers.data(),
                                  map->Colors) == GIF_ERROR)
        return nullptr;
    return map;
}

// Decoders know the repetition only by this application block, whose name is part of the format.
bool putLoopForever(GifFileType *file)
{
    const unsigned char repeat[] = {1, 0, 0};
    return EGifPutExtensionLeader(file, APPLICATION_EXT_FUNC_CODE) == GIF_OK &&
           EGifPutExtensionBlock(file, 11, "NETSCAPE2.0") == GIF_OK &&
           EGifPutExtensionBlock(file, sizeof(repeat), repeat) == GIF_OK && EGifPutExtensionTrailer(file) == GIF_OK;
}

bool putFrame(GifFileType *file, const QImage &frame, int centiseconds)
{
    std::vector<GifByteType> numbers;
    const ColorMap map = quantise(frame, numbers);
    GraphicsControlBlock control{DISPOSE_DO_NOT, false, centiseconds, NO_TRANSPARENT_COLOR};
    GifByteType packed[4];
    EGifGCBToExtension(&control, packed);
    if (!map || EGifPutExtension(file, GRAPHICS_EXT_FUNC_CODE, sizeof(packed), packed) == GIF_ERROR ||
        EGifPutImageDesc(file, 0, 0, frame.width(), frame.height(), false, map.get()) == GIF_ERROR)
        return false;
    for (int y = 0; y < frame.height(); ++y)
        if (EGifPutLine(file, numbers.data() + y * frame.width(), frame.width()) == GIF_ERROR)
            return false;
    return true;
}

} // namespace

QByteArray gifFile(const QVector<QImage> &frames, int centiseconds)
{
    QByteArray bytes;
    int error = 0;
    GifFileType *file = frames.isEmpty() ? nullptr : EGifOpen(&bytes, appendBytes, &error);
    if (file == nullptr)
        return QByteArray();
    EGifSetGifVersion(file, true);
    bool good = EGifPutScreenDesc(file, frames.first().width(), frames.first().height(), 8, 0, nullptr) == GIF_OK &&
                putLoopForever(file);
    for (const QImage &frame : frames)
        good = good && putFrame(file, frame, centiseconds);
    return EGifCloseFile(file, &error) == GIF_OK && good ? bytes : QByteArray();
}

} // namespace sample
