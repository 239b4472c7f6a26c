// bench/grey_bench.cpp: converts a picture of 1280 by 720 to black and white, compared with copying the same bytes.
#include "screen/bitmap/stretch.h"

#include <benchmark/benchmark.h>

#include <cstring>
#include <random>

namespace tarvik {

namespace {

/// A receiver's display: noise on a dark background.
QImage Screen()
{
    QImage picture(1280, 720, QImage::Format_RGB32);
    picture.fill(QColor(10, 20, 30));
    std::mt19937 random(1);
    for (int y = 300; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x)
            picture.setPixel(x, y, 0xFF000000U | static_cast<QRgb>(random()));
    }
    return picture;
}

void Copy(const QImage& from, QImage& to)
{
    std::memcpy(to.bits(), from.constBits(), static_cast<size_t>(from.sizeInBytes()));
}

void GreyCopy(benchmark::State& state)
{
    const QImage from = Screen();
    QImage to = Screen();
    for ([[maybe_unused]] auto turn : state) {
        Copy(from, to);
        benchmark::ClobberMemory();
    }
}

void GreyConvert(benchmark::State& state)
{
    const QImage from = Screen();
    QImage to = Screen();
    for ([[maybe_unused]] auto turn : state) {
        state.PauseTiming();
        Copy(from, to);
        state.ResumeTiming();
        ConvertToBlackAndWhite(to);
        benchmark::ClobberMemory();
    }
}

BENCHMARK(GreyCopy)->Unit(benchmark::kMicrosecond);
BENCHMARK(GreyConvert)->Unit(benchmark::kMicrosecond);

} // namespace

} // namespace tarvik

BENCHMARK_MAIN();
