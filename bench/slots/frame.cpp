// frame: an .ithmb frame to a bitmap, by the function that the library uses.

#include "photolib/media/ithmb_frame.h"

#include <benchmark/benchmark.h>

#include <vector>

namespace
{

// The largest container's: 332 by 332 pixels in rows of 336.
void convertFrame(benchmark::State &state)
{
    const ithmbGeometry geometry{223104, 336, 332, 332};
    std::vector<unsigned char> frame(static_cast<std::size_t>(geometry.frameBytes) + photolib::frameTrailerBytes);
    for (std::size_t i = 0; i < frame.size(); ++i)
        frame[i] = static_cast<unsigned char>(i * 31 + i / 251);
    unsigned char *const trailer = frame.data() + geometry.frameBytes;
    for (const std::size_t field : {16U, 20U}) { // width and height
        trailer[field] = 332 & 0xFF;
        trailer[field + 1] = 332 >> 8;
        trailer[field + 2] = trailer[field + 3] = 0;
    }
    const photolib::PictureSize size = photolib::pictureSizeOf(trailer);
    std::vector<unsigned char> pixels(static_cast<std::size_t>(photolib::bitmapPixelBytes(size)));
    for (auto _ : state) {
        photolib::convertIthmbFrame(frame.data(), geometry, pixels.data());
        benchmark::DoNotOptimize(pixels.data());
        benchmark::ClobberMemory();
    }
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(pixels.size()));
}
BENCHMARK(convertFrame);

} // namespace

BENCHMARK_MAIN();
