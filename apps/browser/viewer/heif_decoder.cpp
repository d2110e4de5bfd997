#include "apps/browser/viewer/heif_decoder.h"

#include <QColorSpace>

#include <libheif/heif.h>

#include <cstring>
#include <new>

namespace browser
{

namespace
{

constexpr std::size_t mostProfileBytes = 4 * 1024 * 1024;
constexpr int longestSide = 32768; // pixels
constexpr int decoderThreads = 2;

struct Free {
    void operator()(heif_context *context) const { heif_context_free(context); }
    void operator()(heif_image_handle *handle) const { heif_image_handle_release(handle); }
    void operator()(heif_image *image) const { heif_image_release(image); }
};
using Context = std::unique_ptr<heif_context, Free>;
using Handle = std::unique_ptr<heif_image_handle, Free>;
using Decoded = std::unique_ptr<heif_image, Free>;

HeifImage failed(PictureProblem problem)
{
    return {QImage(), problem};
}

PictureProblem problemOf(const heif_error &error)
{
    switch (error.code) {
    case heif_error_Memory_allocation_error:
        return error.subcode == heif_suberror_Security_limit_exceeded ? PictureProblem::TooLarge
                                                                      : PictureProblem::OutOfMemory;
    case heif_error_Unsupported_filetype:
    case heif_error_Unsupported_feature:
        return PictureProblem::UnknownFormat;
    default:
        return PictureProblem::Damaged;
    }
}

QColorSpace colourSpaceOf(const heif_image_handle *handle)
{
    const std::size_t size = heif_image_handle_get_raw_color_profile_size(handle);
    if (size == 0 || size > mostProfileBytes)
        return {};
    QByteArray profile(static_cast<int>(size), Qt::Uninitialized);
    if (heif_image_handle_get_raw_color_profile(handle, profile.data()).code != heif_error_Ok)
        return {};
    return QColorSpace::fromIccProfile(profile);
}

QImage copied(const heif_image *image, QImage::Format format, qint64 mostPixels)
{
    const int width = heif_image_get_width(image, heif_channel_interleaved);
    const int height = heif_image_get_height(image, heif_channel_interleaved);
    int stride = 0;
    const uint8_t *pixels = heif_image_get_plane_readonly(image, heif_channel_interleaved, &stride);
    const int bytesInRow = width * (format == QImage::Format_RGB888 ? 3 : 4);
    if (pixels == nullptr || width <= 0 || height <= 0 || qint64(width) * height > mostPixels || stride < bytesInRow)
        return {};
    QImage result(width, height, format);
    if (result.isNull())
        throw std::bad_alloc();
    for (int y = 0; y < height; ++y)
        std::memcpy(result.scanLine(y), pixels + qint64(y) * stride, static_cast<std::size_t>(bytesInRow));
    return result;
}

} // namespace

bool isHeif(const QByteArray &bytes)
{
    if (bytes.mid(4, 4) != "ftyp")
        return false;
    const QByteArray brand = bytes.mid(8, 4);
    for (const char *known : {"heic", "heix", "heim", "heis", "hevc", "hevx", "mif1", "msf1", "avif", "avis"})
        if (brand == known)
            return true;
    return false;
}

HeifImage decodeHeif(const QByteArray &bytes, qint64 mostPixels)
{
    const Context context(heif_context_alloc());
    if (!context)
        return failed(PictureProblem::OutOfMemory);
    heif_context_set_maximum_image_size_limit(context.get(), longestSide);
    heif_context_set_max_decoding_threads(context.get(), decoderThreads);
    heif_error error = heif_context_read_from_memory_without_copy(context.get(), bytes.constData(),
                                                                  static_cast<std::size_t>(bytes.size()), nullptr);
    if (error.code != heif_error_Ok)
        return failed(problemOf(error));
    heif_image_handle *rawHandle = nullptr;
    error = heif_context_get_primary_image_handle(context.get(), &rawHandle);
    const Handle handle(rawHandle);
    if (error.code != heif_error_Ok)
        return failed(problemOf(error));
    const qint64 width = heif_image_handle_get_width(handle.get());
    const qint64 height = heif_image_handle_get_height(handle.get());
    if (width <= 0 || height <= 0)
        return failed(PictureProblem::Damaged);
    if (width * height > mostPixels)
        return failed(PictureProblem::TooLarge);
    const bool alpha = heif_image_handle_has_alpha_channel(handle.get()) != 0;
    heif_image *rawImage = nullptr;
    error = heif_decode_image(handle.get(), &rawImage, heif_colorspace_RGB,
                              alpha ? heif_chroma_interleaved_RGBA : heif_chroma_interleaved_RGB, nullptr);
    const Decoded decoded(rawImage);
    if (error.code != heif_error_Ok)
        return failed(problemOf(error));
    HeifImage result;
    result.image = copied(decoded.get(), alpha ? QImage::Format_RGBA8888 : QImage::Format_RGB888, mostPixels);
    if (result.image.isNull())
        return failed(PictureProblem::Damaged);
    result.image.setColorSpace(colourSpaceOf(handle.get()));
    return result;
}

} // namespace browser
