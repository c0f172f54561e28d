// Mazes in pictures of many regions, against the maze of one region of as many cells.
//
// Panes stand in lead of two cells, which no walker hops over: it must be put into each of them. The limit
// is 2, for 400 panes 3.
//
// Baseline: GCC 12 -O3, 2 shared cores, 2026-11-22
//                                one region     panes    ratio    before
//   16 panes, wall 10                REG16A
//   100 panes, wall 10               REG100A
//   16 panes, wall 5                 REG16B
//   100 panes, wall 5                REG100B
//   400 panes, wall 5                REG400B
// Whoever moves a ratio by a tenth says so in the commit and corrects this block.
#include <benchmark/benchmark.h>

#include <algorithm>
#include <cmath>
#include <vector>

#include "maze/makemaze.h"
#include "measured_world.h"

namespace gridwright::bench {
namespace {

constexpr int kSide = 1000;
constexpr int kSeeds = 8;

/// So many panes across and down.
void glaze(MeasuredWorld& world, int across, int wall) {
  const int pitch = kSide / across;
  for (int i = 1; i < across; ++i) {
    world.program.canvas.fill(i * pitch, 0, i * pitch + 2 * wall - 1, kSide - 1, kPalette[9]);
    world.program.canvas.fill(0, i * pitch, kSide - 1, i * pitch + 2 * wall - 1, kPalette[9]);
  }
  world.drawing = world.program.canvas.image();
  world.program.pictures.save("drawing1b.bmp", world.drawing);
}

/// A picture of one region with nearly as many cells.
int sideOfOneRegion(int cells, int wall) {
  return (static_cast<int>(std::lround(std::sqrt(static_cast<double>(cells)))) + 1) * wall;
}

struct Made {
  double seconds = 0;  // the median over the seeds
  int cells = 0, joins = 0;
};

Made madeIn(MeasuredWorld& world) {
  std::vector<double> times;
  for (std::uint32_t seed = 1; seed <= kSeeds; ++seed) times.push_back(world.secondsToMake(seed));
  std::nth_element(times.begin(), times.begin() + kSeeds / 2, times.end());
  const auto [cells, joins] = world.cellsAndJoins();
  return {times[kSeeds / 2], cells, joins};
}

void panes(benchmark::State& state) {
  const auto kind = static_cast<MazeKind>(state.range(2));
  const int across = static_cast<int>(state.range(0));
  const int wall = static_cast<int>(state.range(1));
  MeasuredWorld many(kSide, kSide, wall);
  if (kind != MazeKind::regular) many.becomes(kind, true);
  many.program.canvas.paintPicture(many.drawing);
  glaze(many, across, wall);
  const Made first = madeIn(many);
  if (kind == MazeKind::regular && first.cells - first.joins != across * across) {
    return state.SkipWithError("a wrong maze is not timed");
  }
  const int side = sideOfOneRegion(first.cells, many.program.state.stepX);
  MeasuredWorld one(side, side, wall);
  if (kind != MazeKind::regular) one.becomes(kind, true);

  std::vector<double> ratios;
  for (auto _ : state) {
    const Made plain = madeIn(one);
    const Made made = madeIn(many);
    state.SetIterationTime(made.seconds);
    ratios.push_back(made.seconds / made.cells / (plain.seconds / plain.cells));
  }
  std::nth_element(ratios.begin(), ratios.begin() + static_cast<std::ptrdiff_t>(ratios.size() / 2),
                   ratios.end());
  state.counters["cells"] = first.cells;
  state.counters["ratio"] = ratios[ratios.size() / 2];
}

constexpr auto kRegular = static_cast<std::int64_t>(MazeKind::regular);
constexpr auto kThreeD = static_cast<std::int64_t>(MazeKind::threeD);
constexpr auto kPipe = static_cast<std::int64_t>(MazeKind::pipe);

// Panes across and down, wall size, kind; the last two are reported.
BENCHMARK(panes)
    ->Args({4, 10, kRegular})
    ->Args({10, 10, kRegular})
    ->Args({4, 5, kRegular})
    ->Args({10, 5, kRegular})
    ->Args({20, 5, kRegular})
    ->Args({10, 5, kThreeD})
    ->Args({10, 5, kPipe})
    ->Unit(benchmark::kMillisecond)
    ->UseManualTime()
    ->Iterations(7);

}  // namespace
}  // namespace gridwright::bench
