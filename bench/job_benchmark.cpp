// A job of a hundred regular mazes with answers, 79 by 59 cells, into one PDF, by the program itself,
// against the least that such a book takes: for each maze the plainest walk over pixels and the plainest one
// along its walls, and Qt writing two such pages, which are the program's own.
//
// Ratios are of the processor's time; by the clock they tell what else the machine is doing. Limits: 40 ms a
// maze; 150 MB, of which 2 MB more for a hundred mazes than for ten; 40 KB a page. The ratio is to come
// to 1.7. Both books draw their pages in rectangles.
//
// Baseline: GCC 12 -O3, 2 shared cores under load, 2026-11-22
//   plain book 18 to 22 ms a maze, job 28 to 33 ms, ratio 1.43 to 1.52; 46 MB, growth 0 to 4 MB; 29 KB a page
#include <benchmark/benchmark.h>

#include <chrono>
#include <filesystem>
#include <string>

#include "measured_process.h"
#include "plain_follower.h"
#include "plain_walk.h"
#include "platform/shared/image_files.h"

namespace gridwright::bench {
namespace {

namespace fs = std::filesystem;

Spent printMazes(const ProcessFolder& folder, int mazes) {
  return folder.run("menu cgenerate\nmenu printwithsolutions\ntype Text3 \"" + std::to_string(mazes) +
                        "\"\nenter Text3\nmenu createreg\nuntil printTotal 0\n",
                    {"--pdf", (folder.path() / "book.pdf").string()});
}

/// Leaves a maze of the program's own, without its trail and with it.
void makePages(const ProcessFolder& folder) {
  const char* script =
      "menu cgenerate\nmenu createreg\nuntil phase 2\nimage maze.bmp\nmenu solvemaze\nuntil phase 4\n"
      "image answer.bmp\n";
  if (!folder.run(script).succeeded) std::abort();
}

/// The plainest walks over the pixels of each maze and along its walls, and two pages of the program's own,
/// so that there is the same to pack.
Spent plainBook(const ProcessFolder& folder, int mazes) {
  const Bitmap maze = readBitmapFile(folder.path() / "maze.bmp").value();
  const Bitmap answer = readBitmapFile(folder.path() / "answer.bmp").value();
  const auto begin = std::chrono::steady_clock::now();
  const double processor = millisecondsSoFar();
  PlainWalk walk(kProcessWidth, kProcessHeight, kProcessWall);
  walk.carve(0);
  const auto [right, bottom] = walk.putEnds();
  const Square start{kProcessWall + 1, kProcessWall + 1, 2 * kProcessWall - 2, 2 * kProcessWall - 2};
  const Square finish{right, bottom, right + kProcessWall - 3, bottom + kProcessWall - 3};
  PlainFollower follower(plainBitmap(kProcessWidth, kProcessHeight, 0), kProcessWall, start, finish,
                         {PlainWalk::kCarved, PlainWalk::kStart, PlainWalk::kFinish});
  PdfDocument book(folder.path() / "plain.pdf");
  for (int made = 0; made < mazes; ++made) {
    benchmark::DoNotOptimize(walk.carve(static_cast<std::uint32_t>(made)));
    walk.putEnds();
    if (!book.addPage(maze)) std::abort();
    benchmark::DoNotOptimize(follower.follow(walk.pixels()));
    if (!book.addPage(answer)) std::abort();
  }
  if (!book.finish()) std::abort();
  return {millisecondsSince(begin), millisecondsSoFar() - processor, 0, true};
}

void job(benchmark::State& state) {
  const ProcessFolder folder("gridwright-bench-job");
  const int mazes = static_cast<int>(state.range(0));
  makePages(folder);
  const Spent few = printMazes(folder, mazes / 10);
  Spent spent;
  Spent plain;
  double megabytes = 0;
  const auto add = [](Spent& sum, const Spent& run) {
    sum.milliseconds += run.milliseconds;
    sum.processor += run.processor;
  };
  for (auto _ : state) {
    const Spent run = printMazes(folder, mazes);
    if (!run.succeeded) return state.SkipWithError("a job that fails is not timed");
    state.SetIterationTime(run.milliseconds / 1000);
    add(spent, run);
    add(plain, plainBook(folder, mazes));
    megabytes = run.megabytes;
  }
  const double made = static_cast<double>(mazes) * static_cast<double>(state.iterations());
  state.counters["ms_a_maze"] = spent.processor / made;
  state.counters["plain_ms_a_maze"] = plain.processor / made;
  state.counters["ratio"] = spent.processor / plain.processor;
  state.counters["ratio_by_clock"] = spent.milliseconds / plain.milliseconds;
  state.counters["MB"] = megabytes;
  state.counters["MB_growth"] = megabytes - few.megabytes;
  state.counters["KB_a_page"] =
      static_cast<double>(fs::file_size(folder.path() / "book.pdf")) / 1024 / 2 / mazes;
}
BENCHMARK(job)->Arg(100)->Unit(benchmark::kMillisecond)->UseManualTime()->Iterations(3);

}  // namespace
}  // namespace gridwright::bench
