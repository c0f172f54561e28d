// A pass of the walker in each kind of maze, against a pass in the regular kind; and the search for a
// finish against a solve.
//
// The limit is 2 for a pass and 3 for the search. A 3-d maze needs more than twice as many passes as a
// regular one; it is the single pass that is held. Nobody looks at the pumps.
//
// Baseline: GCC 12 -O3, 2 shared cores, 2026-11-21, 79 by 59 cells: a regular pass 36 ns; to that 3-d 0.9,
// Short pipes 1.2 to 2.0, Long pipes 1.4 to 1.6. Their mazes are short: much of it is the picture painted at
// the start, and few of their passes walk back.
#include <benchmark/benchmark.h>

#include <chrono>

#include "maze/makemaze.h"
#include "measured_world.h"
#include "solve/solvingmaze.h"
#include "state/grid.h"

namespace gridwright::bench {
namespace {

using Clock = std::chrono::steady_clock;

double nanoseconds(Clock::duration d) { return std::chrono::duration<double, std::nano>(d).count(); }

struct Kind {
  MazeKind kind;
  bool longPipes;
};
constexpr std::array kKinds = {Kind{MazeKind::regular, false}, Kind{MazeKind::threeD, false},
                               Kind{MazeKind::pipe, false}, Kind{MazeKind::pipe, true}};

/// Nanoseconds a pass of one whole maze.
double passOf(MeasuredWorld& world, const Kind& kind) {
  world.becomes(kind.kind, kind.longPipes);
  world.program.random.seed(1);
  world.desktop.pumps = 0;
  const auto begin = Clock::now();
  makemaze(world.program);
  return nanoseconds(Clock::now() - begin) / static_cast<double>(world.desktop.pumps);
}

void pass(benchmark::State& state) {
  const Kind kind = kKinds.at(static_cast<std::size_t>(state.range(0)));
  const bool large = state.range(1) != 0;
  MeasuredWorld world(large ? 1000 : 800, large ? 1000 : 600, large ? 5 : 10);
  double own = 0;
  for (auto _ : state) {
    own = passOf(world, kind);
    state.SetIterationTime(own * 1e-9);
  }
  state.counters["ns_a_pass"] = own;
  state.counters["passes"] = static_cast<double>(world.desktop.pumps);
  state.counters["ratio"] = own / passOf(world, kKinds[0]);
}
BENCHMARK(pass)
    ->ArgsProduct({{1, 2, 3}, {0, 1}})
    ->Unit(benchmark::kNanosecond)
    ->UseManualTime()
    ->Iterations(2);

/// Time of the solver's loop over the made maze, from its start to where it leaves or is solved.
double solve(MeasuredWorld& world, FinishMethod method) {
  Program& program = world.program;
  ProgramState& s = program.state;
  s.phase = Phase::solving;
  s.finishMethod = s.solver.activeFinishMethod = method;
  s.finishFound = false;
  s.startColor = qb::lightMagenta - 1;
  s.finishColor = qb::gray + 1;
  s.solver.pathLength = s.solver.bestPathLength = 0;
  const Square finish = s.finish;
  if (method != FinishMethod::user) s.finish = kTakenOff;
  putWalkOnStart(s);
  world.desktop.until = Phase::solved;
  const auto begin = Clock::now();
  try {
    solvingmaze(program);
  } catch (const ProgramEnd&) {
  }
  const double took = nanoseconds(Clock::now() - begin);
  world.desktop.until = Phase::title;
  s.finish = finish;
  return took;
}

void search(benchmark::State& state) {
  MeasuredWorld world(1000, 1000, 5);
  world.program.random.seed(1);
  makemaze(world.program);
  const Bitmap maze = world.program.canvas.image();
  double searching = 0;
  double solving = 0;
  for (auto _ : state) {
    world.program.canvas.paintPicture(maze);
    solving += solve(world, FinishMethod::user);
    world.program.canvas.paintPicture(maze);
    const double took = solve(world, FinishMethod::largest);
    searching += took;
    state.SetIterationTime(took * 1e-9);
  }
  state.counters["ratio_to_solve"] = searching / solving;
}
BENCHMARK(search)->Unit(benchmark::kMillisecond)->UseManualTime()->Iterations(20);

}  // namespace
}  // namespace gridwright::bench
