// Books by the program itself, of mazes of 80 by 60 cells with their answers on vector pages, against the
// least that such pages take: for each maze the plainest walk over pixels, the plainest one along its walls,
// and Qt writing the rectangles of both pages.
//
// Ratios of one core are of the processor's time; what two cores gain is told by the clock, and by nothing
// else that the machine does meanwhile. Targets: 2 times the plain book on one core; 1.85 times as fast on
// two; 60 KB a maze; 30 KB of memory more for each maze, and 500 MB at the most for 10,000.
//
// Baseline: GCC 12 -O3, 2 shared cores under a load of 4 to 5, 2026-11-22
//   book 25 ms a maze, plain book 15 ms, ratio 1.73; 11 KB a maze of file
//   (nothing can be told of two cores while others work on them)
#include <benchmark/benchmark.h>

#include <QBuffer>
#include <QColor>
#include <QGuiApplication>
#include <QPageSize>
#include <QPainter>
#include <QPdfWriter>
#include <algorithm>
#include <array>
#include <atomic>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include "plain_follower.h"
#include "plain_walk.h"
#include "platform/book/make_maze.h"
#include "platform/pictures/offscreen.h"
#include "platform/shared/image_files.h"
#include "printing/patches.h"
#include "spent.h"

namespace gridwright::bench {
namespace {

namespace fs = std::filesystem;

constexpr int kWall = 10, kColumns = 80, kRows = 60;
constexpr int kWidth = (kColumns + 2) * kWall, kHeight = (kRows + 2) * kWall;

/// Ground for just so many cells, in a frame of paper.
Bitmap ground() {
  Bitmap picture = plainBitmap(kWidth, kHeight, kPalette[14]);
  for (int y = kWall / 2; y < kHeight - kWall / 2; ++y)
    std::fill_n(picture.pixels.begin() + static_cast<std::ptrdiff_t>(y) * kWidth + kWall / 2, kWidth - kWall,
                kPalette[1]);
  return picture;
}

/// A folder with the picture and the books, which goes with this.
class Shop {
 public:
  Shop() : path_(fs::temp_directory_path() / "gridwright-bench-book") {
    fs::create_directories(path_);
    if (!writeBitmapFile(ground(), path_ / "full.bmp")) std::abort();
  }
  ~Shop() { fs::remove_all(path_); }
  Shop(const Shop&) = delete;
  Shop& operator=(const Shop&) = delete;

  [[nodiscard]] Spent make(int mazes, int jobs) const {
    return spentBy(GRIDWRIGHT_BOOK, {"--quiet", "--force", "--seed", "1", "--wall", std::to_string(kWall),
                                     "-n", std::to_string(mazes), "--jobs", std::to_string(jobs), "-o",
                                     book().string(), (path_ / "full.bmp").string()});
  }
  [[nodiscard]] fs::path book() const { return path_ / "book.pdf"; }
  [[nodiscard]] fs::path plainBook() const { return path_ / "plain.pdf"; }

 private:
  fs::path path_;
};

void draw(QPainter& painter, const ColourLayers& layers) {
  for (const ColourLayer& layer : layers) {
    const QColor colour(layer.colour & 0xFF, layer.colour >> 8 & 0xFF, layer.colour >> 16 & 0xFF);
    for (const Patch& patch : layer.patches)
      painter.fillRect(patch.x, patch.y, patch.width, patch.height, colour);
  }
}

/// One of the program's own mazes, so that Qt has the same rectangles to write.
book::MadeMaze oneMaze() {
  book::SourcePicture picture;
  picture.name = "full";
  picture.picture = book::PackedPicture(ground());
  book::RegionStarts starts;
  book::MazeOrder order{1, 1, {}, picture, {}};
  order.wish.wall = kWall;
  const std::atomic<bool> stop{false};
  auto made = book::makeMaze(order, starts, stop);
  if (!made || made.value().record.cells != kColumns * kRows) std::abort();
  return std::move(made.value());
}

/// \returns the processor's time of so many mazes, in milliseconds.
double plainBook(const Shop& shop, int mazes) {
  const book::MadeMaze made = oneMaze();
  const ColourLayers maze = layersOf(made.maze, 100000).value();
  const ColourLayers trail = layersOver(made.maze, made.answer, 100000).value();
  PlainWalk walk(kWidth, kHeight, kWall);
  walk.carve(0);
  const auto [right, bottom] = walk.putEnds();
  const Square start{kWall + 1, kWall + 1, 2 * kWall - 2, 2 * kWall - 2};
  const Square finish{right, bottom, right + kWall - 3, bottom + kWall - 3};
  PlainFollower follower(plainBitmap(kWidth, kHeight, 0), kWall, start, finish,
                         {PlainWalk::kCarved, PlainWalk::kStart, PlainWalk::kFinish});
  const double begin = millisecondsSoFar();
  QPdfWriter writer(QString::fromStdString(shop.plainBook().string()));
  writer.setPageSize(QPageSize(QPageSize::A4));
  QPainter painter(&writer);
  for (int i = 0; i < mazes; ++i) {
    benchmark::DoNotOptimize(walk.carve(static_cast<std::uint32_t>(i)));
    walk.putEnds();
    if (i > 0) writer.newPage();
    draw(painter, maze);
    benchmark::DoNotOptimize(follower.follow(walk.pixels()));
    writer.newPage();
    draw(painter, maze);
    draw(painter, trail);
  }
  painter.end();
  return millisecondsSoFar() - begin;
}

void oneCore(benchmark::State& state) {
  const Shop shop;
  const int mazes = static_cast<int>(state.range(0));
  Spent spent;
  double plain = 0;
  for (auto _ : state) {
    const Spent run = shop.make(mazes, 1);
    if (!run.succeeded) return state.SkipWithError("a book that fails is not timed");
    state.SetIterationTime(run.milliseconds / 1000);
    spent.processor += run.processor;
    plain += plainBook(shop, mazes);
  }
  const double made = static_cast<double>(mazes) * static_cast<double>(state.iterations());
  state.counters["ms_a_maze"] = spent.processor / made;
  state.counters["plain_ms_a_maze"] = plain / made;
  state.counters["ratio"] = spent.processor / plain;
  state.counters["KB_a_maze"] = static_cast<double>(fs::file_size(shop.book())) / 1024 / mazes;
}
BENCHMARK(oneCore)->Arg(100)->Unit(benchmark::kMillisecond)->UseManualTime()->Iterations(3);

void twoCores(benchmark::State& state) {
  const Shop shop;
  const int mazes = static_cast<int>(state.range(0));
  std::vector<double> gains;
  for (auto _ : state) {
    const Spent one = shop.make(mazes, 1);
    const Spent two = shop.make(mazes, 2);
    if (!one.succeeded || !two.succeeded) return state.SkipWithError("a book that fails is not timed");
    state.SetIterationTime(two.milliseconds / 1000);
    gains.push_back(one.milliseconds / two.milliseconds);
  }
  std::sort(gains.begin(), gains.end());
  state.counters["times_as_fast"] = gains[gains.size() / 2];
}
BENCHMARK(twoCores)->Arg(200)->Unit(benchmark::kMillisecond)->UseManualTime()->Iterations(5);

void memory(benchmark::State& state) {
  const Shop shop;
  const int mazes = static_cast<int>(state.range(0));
  const int fewMazes = mazes / 10;
  Spent few;
  Spent many;
  for (auto _ : state) {
    few = shop.make(fewMazes, 2);
    many = shop.make(mazes, 2);
    if (!few.succeeded || !many.succeeded) return state.SkipWithError("a book that fails is not measured");
    state.SetIterationTime(many.milliseconds / 1000);
  }
  state.counters["MB"] = many.megabytes;
  state.counters["KB_a_maze"] = (many.megabytes - few.megabytes) * 1024 / (mazes - fewMazes);
}
BENCHMARK(memory)->Arg(1000)->Arg(10000)->Unit(benchmark::kMillisecond)->UseManualTime()->Iterations(1);

}  // namespace
}  // namespace gridwright::bench

int main(int argc, char** argv) {
  const auto application = gridwright::applicationWithoutScreen("book_benchmark");
  benchmark::Initialize(&argc, argv);
  benchmark::RunSpecifiedBenchmarks();
}
