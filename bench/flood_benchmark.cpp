// A fill of a whole sheet against one plain pass over its pixels.
#include <benchmark/benchmark.h>

#include <algorithm>
#include <cstddef>
#include <cstdlib>
#include <utility>

#include "pictures/flood.h"
#include "pictures/sheet.h"

namespace {

using namespace gridwright;

constexpr int kSide = Sheet::kSide;

/// The baseline: each pixel is looked at, and painted where it has the colour.
void aPlainPass(benchmark::State& state) {
  Bitmap picture = plainBitmap(kSide, kSide, kPaper);
  Colour from = kPaper;
  Colour to = kPalette[1];
  for (auto _ : state) {
    for (int y = 0; y < kSide; ++y) {
      for (int x = 0; x < kSide; ++x) {
        Colour& pixel = picture.pixels[static_cast<std::size_t>(y) * kSide + static_cast<std::size_t>(x)];
        if (pixel == from) pixel = to;
      }
    }
    std::swap(from, to);
    benchmark::DoNotOptimize(picture.pixels.data());
    benchmark::ClobberMemory();
  }
}
BENCHMARK(aPlainPass)->Unit(benchmark::kMicrosecond);

/// The same with the step that takes it back, which looks at all pixels before and after, and copies them.
void aFloodWithItsStep(benchmark::State& state) {
  Sheet sheet({kSide, kSide});
  ToolSettings tool;
  tool.tool = Tool::fill;
  for (auto _ : state) {
    tool.colour = tool.colour == 1 ? 2 : 1;
    sheet.choose(tool);
    sheet.press(kSide / 2, kSide / 2);
  }
  if (sheet.inkAt(0, 0) != tool.colour || sheet.inkAt(kSide - 1, kSide - 1) != tool.colour) std::abort();
}
BENCHMARK(aFloodWithItsStep)->Unit(benchmark::kMicrosecond);

/// What is flooded, with the look for a gap, painted. At most four times a plain pass.
void aFlood(benchmark::State& state) {
  Bitmap picture = plainBitmap(kSide, kSide, kPaper);
  Colour to = kPalette[1];
  for (auto _ : state) {
    const Flood flood = floodOf(picture, kSide / 2, kSide / 2, {10, 10});
    forRuns(flood.pixels, [&](int y, int left, int right) {
      const auto row = picture.pixels.begin() + std::ptrdiff_t{y} * kSide;
      std::fill(row + left, row + right + 1, to);
    });
    if (flood.gap || picture.at(0, 0) != to) std::abort();
    to = to == kPaper ? kPalette[1] : kPaper;
  }
}
BENCHMARK(aFlood)->Unit(benchmark::kMicrosecond);

}  // namespace
