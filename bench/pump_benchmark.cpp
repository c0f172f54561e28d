// The headless twin's pump with nothing due: under 10 ns, against a virtual call that does nothing.
//
// Baseline: GCC 12 -O3, 2 shared cores, 2026-11-20
//   nothing 0.4 ns, until 4.4 ns, pumps 2.7 ns, settle 2.7 ns
#include <benchmark/benchmark.h>

#include <limits>

#include "measured_world.h"
#include "platform/headless/headless_desktop.h"
#include "state/program.h"

namespace gridwright::bench {
namespace {

void nothing(benchmark::State& state) {
  StillDesktop desktop;
  Program program(desktop, "/no/such/folder");
  Platform& platform = desktop;
  program.state.phase = Phase::making;
  for (auto _ : state) platform.doEvents(program, Pace::working);
}
BENCHMARK(nothing);

void twin(benchmark::State& state, const char* script) {
  HeadlessDesktop desktop("script", script, {});
  Program program(desktop, "/no/such/folder");
  Platform& platform = desktop;
  program.state.phase = Phase::making;
  platform.doEvents(program, Pace::working);  // takes the line
  for (auto _ : state) platform.doEvents(program, Pace::working);
}
BENCHMARK_CAPTURE(twin, until, "until phase 2 9000000000000000");
BENCHMARK_CAPTURE(twin, pumps, "pumps 9000000000000000");
BENCHMARK_CAPTURE(twin, settle, "settle");

}  // namespace
}  // namespace gridwright::bench
