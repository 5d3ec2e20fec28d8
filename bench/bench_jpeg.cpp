// What writing a report picture as a JPEG costs: a 1,600 x 1,200 picture of graph-like content
// (a white page with coloured lines and a grey band) at quality 75, the default sampling.
#include "reports/clsImageDIB.h"
#include "reports/clsImageJPEG.h"

#include <benchmark/benchmark.h>

#include <cmath>

using namespace corvane;

namespace {

clsImageDIB GraphPicture(int width, int height) {
    clsImageDIB image;
    image.Create(width, height);
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) {
            std::uint32_t rgb = y > height * 3 / 4 ? 0xBABABA : 0xFFFFFF;
            if (std::abs(y - height / 2 - static_cast<int>(200 * std::sin(x * 0.01))) < 2) {
                rgb = 0x0000FF;
            }
            if (x % 100 == 0 || y % 100 == 0) {
                rgb = 0x808080;
            }
            image.SetPixel(x, y, rgb);
        }
    }
    return image;
}

void EncodeJPEG(benchmark::State& state) {
    const clsImageDIB image =
        GraphPicture(static_cast<int>(state.range(0)), static_cast<int>(state.range(1)));
    std::size_t bytes = 0;
    for (auto _ : state) {
        const auto out = image.SaveImageToJPEGByteArray(75);
        bytes = out.size();
        benchmark::DoNotOptimize(out.data());
    }
    state.counters["bytes"] = static_cast<double>(bytes);
}

} // namespace

BENCHMARK(EncodeJPEG)->Args({1600, 1200})->Name("EncodeJPEG/1600x1200/q75")->Unit(benchmark::kMillisecond);
