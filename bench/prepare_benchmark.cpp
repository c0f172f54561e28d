// Making a picture ready, beside what it is held against: a photograph of 12 million pixels beside its
// decoding alone, three times which it may take to be shown; and a change of one setting beside one median
// filter of the Canvas, one and a half times which it may take.
#include <benchmark/benchmark.h>

#include <QBuffer>
#include <QImage>
#include <cstdlib>

#include "pictures/prepare.h"
#include "pictures/ready.h"
#include "platform/pictures/leptonica_work.h"
#include "platform/pictures/read_picture.h"

namespace gridwright {
namespace {

constexpr int kWidth = 4000, kHeight = 3000;

/// A photograph-like picture: slopes of colour, a few edges, grain.
const QByteArray& photograph() {
  static const QByteArray bytes = [] {
    QImage image(kWidth, kHeight, QImage::Format_RGB32);
    std::uint32_t chance = 1;
    for (int y = 0; y < kHeight; ++y) {
      auto* row = reinterpret_cast<QRgb*>(image.scanLine(y));
      for (int x = 0; x < kWidth; ++x) {
        chance = chance * 1664525U + 1013904223U;
        const int grain = static_cast<int>(chance >> 28);
        const bool isSun = (x - 2600) * (x - 2600) + (y - 900) * (y - 900) < 500 * 500;
        row[x] = isSun              ? qRgb(230 + grain, 190 + grain, 60 + grain)
                 : y < 1800 + x / 9 ? qRgb(60 + y / 20 + grain, 120 + grain, 200 + grain)
                                    : qRgb(40 + grain, 100 + y / 60 + grain, 30 + grain);
      }
    }
    QByteArray made;
    QBuffer buffer(&made);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, "JPG", 90);
    return made;
  }();
  return bytes;
}

std::string_view photographBytes() {
  return {photograph().constData(), static_cast<std::size_t>(photograph().size())};
}

const PrepareGround kGround{{1000, 1000}, 10, MazeKind::regular};

void baselineDecodingAlone(benchmark::State& state) {
  for (auto _ : state) {
    const QImage image = QImage::fromData(photograph());
    if (image.width() != kWidth) std::abort();
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
