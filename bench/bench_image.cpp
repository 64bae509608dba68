// PNG decoding speed: the start-up of a demo decodes every texture it names.
#include <benchmark/benchmark.h>

#include <array>

#include "qlnutils/Image.h"
#include "tests/unit/PngFiles.h"

static std::string picture(int size, bool interlaced) {
    std::vector<unsigned char> pixels;
    for (int y = 0; y < size; ++y)
        for (int x = 0; x < size; ++x) {
            std::array<unsigned char, 4> c{static_cast<unsigned char>(x), static_cast<unsigned char>(y),
                                           static_cast<unsigned char>(x ^ y), 255};
            pixels.insert(pixels.end(), c.begin(), c.end());
        }
    pngfiles::Layout layout;
    layout.width = size;
    layout.height = size;
    layout.interlaced = interlaced;
    return pngfiles::encode(layout, pixels);
}

static void decodeRgba(benchmark::State& state) {
    int size = static_cast<int>(state.range(0));
    std::string png = picture(size, state.range(1) != 0);
    for (auto _ : state) {
        Image image(reinterpret_cast<const unsigned char*>(png.data()), png.size());
        benchmark::DoNotOptimize(image.getData());
    }
    state.SetBytesProcessed(state.iterations() * int64_t(size) * size * 4);
}
BENCHMARK(decodeRgba)->Args({256, 0})->Args({1024, 0})->Args({1024, 1})->Unit(benchmark::kMillisecond);
