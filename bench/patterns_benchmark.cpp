// A pass with patterns of length 1, 5 and 99 against one without a pattern (limit 1.3), and what a
// random pattern for every maze adds on the largest Canvas (limit 5 ms, with pictures and step files on
// disk). The picture set aside for the field is the same before every maze, as in a run of mazes.
//
// Baseline: GCC 12 -O3, 2 shared cores, 2026-11-20
//   0.9, 1.0, 0.9 of a pass without a pattern; a random pattern 2.3 ms, of which 1.8 are processor time
#include <benchmark/benchmark.h>

#include <chrono>
#include <filesystem>
#include <memory>

#include "maze/makemaze.h"
#include "measured_world.h"
#include "patterns/random_patterns.h"
#include "platform/headless/headless_desktop.h"

namespace gridwright::bench {
namespace {

using Clock = std::chrono::steady_clock;

double passOf(MeasuredWorld& world, PatternState patternState) {
  double spent = 0;
  world.desktop.pumps = 0;
  for (std::uint32_t seed = 1; seed <= 4; ++seed) {
    world.toTheBeginning();
    world.program.state.patternState = patternState;
    world.program.state.randomStepsTemporary = false;
    world.program.random.seed(seed);
    const auto begin = Clock::now();
    makemaze(world.program);
    spent += std::chrono::duration<double, std::nano>(Clock::now() - begin).count();
  }
  return spent / static_cast<double>(world.desktop.pumps);
}

void patterns(benchmark::State& state) {
  MeasuredWorld world(800, 600, 10);
  const auto length = static_cast<std::size_t>(state.range(0));
  for (int direction = 1; direction <= 4; ++direction) {
    Steps steps;
    for (std::size_t i = 0; i < length; ++i) steps.push_back(i % 2 == 0 ? direction : direction % 4 + 1);
    world.program.steps.write(MazeKind::regular, direction, steps);
  }
  double with = 0;
  for (auto _ : state) {
    with = passOf(world, PatternState::choose);
    state.SetIterationTime(with * 1e-9);
  }
  state.counters["ratio"] = with / passOf(world, PatternState::random);
}
BENCHMARK(patterns)->Arg(1)->Arg(5)->Arg(99)->UseManualTime()->Iterations(3);

void randomPatternForEveryMaze(benchmark::State& state) {
  const auto folder = std::filesystem::temp_directory_path() / "gridwright-bench";
  std::filesystem::create_directories(folder);
  // Waits for something that never comes: events are looked for and none is due.
  HeadlessDesktop desktop("bench", "until phase 99\n", HeadlessOptions{{1000, 1000}, {}, {}, {}});
  auto program = std::make_unique<Program>(desktop, folder);
  program->canvas.resize({1000, 1000});
  program->state.randomPatterns.randomPatternMode = 5;
  program->state.phase = Phase::making;
  for (auto _ : state) {
    if (!makeRandomPatterns(*program)) return state.SkipWithError("a quit is not timed");
  }
  program.reset();
  std::filesystem::remove_all(folder);
}
BENCHMARK(randomPatternForEveryMaze)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace gridwright::bench
