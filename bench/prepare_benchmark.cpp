// Making a picture ready, beside what it is held against: a photograph of 12 million pixels beside its
// decoding alone, three times which it may take to be shown; and a change of one setting beside one median
// filter of the Canvas, one and a half times which it may take.
//
// Baseline: GCC 12 -O3, 2 shared cores, 2026-11-22
//   decoding alone 64 to 68 ms, into the panel 188 to 199 ms: 2.75 to 3.0 (3.3 with a median of all the
//   paper) median 66 ms, a change 45 to 57 ms: 0.7 to 0.8
#include <benchmark/benchmark.h>

#include <QImage>
#include <cstdlib>

#include "photograph.h"
#include "pictures/prepare.h"
#include "pictures/ready.h"
#include "platform/pictures/leptonica_work.h"
#include "platform/pictures/read_picture.h"

namespace gridwright {
namespace {

std::string_view photographBytes() {
  return {bench::photograph().constData(), static_cast<std::size_t>(bench::photograph().size())};
}

const PrepareGround kGround{{1000, 1000}, 10, MazeKind::regular};

void baselineDecodingAlone(benchmark::State& state) {
  for (auto _ : state) {
    const QImage image = QImage::fromData(bench::photograph());
    if (image.width() != bench::kPhotographWidth) std::abort();
    benchmark::DoNotOptimize(image.constBits());
  }
}
BENCHMARK(baselineDecodingAlone)->Unit(benchmark::kMillisecond);

void aPhotographIntoThePanel(benchmark::State& state) {
  LeptonicaWork work;
  for (auto _ : state) {
    const auto picture = readPictureBytes(photographBytes(), kGround.canvas, "it");
    if (!picture) std::abort();
    const Prepared prepared = prepare(picture.value(), {}, kGround, work);
    if (!isReady(prepared.picture, startingSets())) std::abort();
  }
}
BENCHMARK(aPhotographIntoThePanel)->Unit(benchmark::kMillisecond);

void baselineMedianOfACanvas(benchmark::State& state) {
  LeptonicaWork work;
  const auto picture = readPictureBytes(photographBytes(), kGround.canvas, "it");
  const Bitmap canvas = work.scaled(picture.value().whole.colours, kGround.canvas);
  for (auto _ : state) benchmark::DoNotOptimize(work.smoothed(canvas, 5));
}
BENCHMARK(baselineMedianOfACanvas)->Unit(benchmark::kMillisecond);

void aChangeOfASetting(benchmark::State& state) {
  LeptonicaWork work;
  const auto picture = readPictureBytes(photographBytes(), kGround.canvas, "it");
  Preparation preparation(picture.value(), work);
  PrepareSettings settings;
  preparation.make(settings, kGround);
  for (auto _ : state) {
    settings.detail = settings.detail % kFinest + 1;
    settings.colours = settings.colours % kMostColours + 2;
    benchmark::DoNotOptimize(preparation.make(settings, kGround));
  }
}
BENCHMARK(aChangeOfASetting)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace gridwright
