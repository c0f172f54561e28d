// The computer's answer against the plainest wall follower over pixels that leaves the same trail; the limit
// is three times. Beside it, against the making of the maze.
//
// Baseline: GCC 12 -O3, 2 shared cores under load, 2026-11-22
//                            plain    solving   ratio   before   of the making
//   79 by 59 cells          0.54 ms    1.4 ms    2.6      7.2     0.18
//   199 by 199 cells         6.3 ms   11.6 ms    1.8      6.3     0.10
#include <benchmark/benchmark.h>

#include <chrono>

#include "measured_world.h"
#include "plain_follower.h"
#include "solve/solvingmaze.h"

namespace gridwright::bench {
namespace {

double solve(MeasuredWorld& world) {
  ProgramState& s = world.program.state;
  world.program.canvas.fill(s.start, s.startColor);
  world.program.canvas.fill(s.finish, s.finishColor);
  putWalkOnStart(s);
  s.solver.pathLength = 0;
  s.phase = Phase::solving;
  world.desktop.until = Phase::solved;
  const auto begin = std::chrono::steady_clock::now();
  try {
    solvingmaze(world.program);
  } catch (const ProgramEnd&) {
  }
  world.desktop.until = Phase::title;
  return std::chrono::duration<double>(std::chrono::steady_clock::now() - begin).count();
}

/// On a tree the answer is a chain: from the start each cell of the trail has one that follows.
bool endsAtTheFinish(const MeasuredWorld& world) {
  const ProgramState& s = world.program.state;
  return s.phase == Phase::solved && s.cur.sameCorner(s.finish) && s.solver.pathLength > 0;
}

/// The same maze by the plainest wall follower, its answer checked once a maze.
PlainFollower plainFollower(MeasuredWorld& world) {
  const ProgramState& s = world.program.state;
  world.program.canvas.fill(s.start, s.startColor);
  world.program.canvas.fill(s.finish, s.finishColor);
  const Colour carved = world.program.canvas.point(s.cur.left, s.cur.top);
  return {
      world.program.canvas.image(), s.wallWidth, s.start, s.finish, {carved, s.startColor, s.finishColor}};
}

double follow(PlainFollower& plain) {
  const auto begin = std::chrono::steady_clock::now();
  benchmark::DoNotOptimize(plain.follow());
  return std::chrono::duration<double>(std::chrono::steady_clock::now() - begin).count();
}

void solving(benchmark::State& state) {
  MeasuredWorld world(static_cast<int>(state.range(0)), static_cast<int>(state.range(1)),
                      static_cast<int>(state.range(2)));
  ProgramState& s = world.program.state;
  s.startColor = kPalette[13] - 1;
  s.finishColor = kPalette[12] - 1;
  double made = 0;
  double solved = 0;
  double followed = 0;
  std::uint32_t seed = 0;
  for (auto _ : state) {
    made += world.secondsToMake(++seed);
    PlainFollower plain = plainFollower(world);
    followed += follow(plain);
    const double took = solve(world);
    if (!endsAtTheFinish(world)) return state.SkipWithError("a maze without its answer is not timed");
    if (plain.pixels() != world.program.canvas.image()) return state.SkipWithError("another trail");
    solved += took;
    state.SetIterationTime(took);
  }
  state.counters["ratio_to_making"] = solved / made;
  state.counters["plain_ms"] = followed * 1000 / static_cast<double>(state.iterations());
  state.counters["ratio"] = solved / followed;
}

BENCHMARK(solving)
    ->Args({800, 600, 10})
    ->Args({1000, 1000, 5})
    ->Unit(benchmark::kMillisecond)
    ->UseManualTime()
    ->MinTime(2.0);

}  // namespace
}  // namespace gridwright::bench
