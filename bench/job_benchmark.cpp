// A job of a hundred regular mazes with answers, 79 by 59 cells, into one PDF, by the program itself,
// against the least that such a book takes: the plainest walk over pixels for each maze, and Qt writing
// two such pages.
//
// Limits: 40 ms a maze, which is a ratio of 2.6 where this was set; 150 MB, of which 2 MB more for a
// hundred mazes than for ten; 40 KB a page.
//
// Baseline: GCC 12 -O3, 2 shared cores, 2026-11-20
//   plain book 15 ms a maze, job 35 ms, ratio 2.3; 43 MB, growth 0.1 MB; 22 KB a page
#include <benchmark/benchmark.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <filesystem>
#include <fstream>
#include <string>

#include "plain_walk.h"
#include "platform/shared/image_files.h"

namespace gridwright::bench {
namespace {

namespace fs = std::filesystem;
using Clock = std::chrono::steady_clock;

constexpr int kWidth = 800;
constexpr int kHeight = 600;
constexpr int kWall = 10;

double millisecondsSince(Clock::time_point begin) {
  return std::chrono::duration<double, std::milli>(Clock::now() - begin).count();
}

/// A folder with a picture that is all background but for its frame.
struct Folder {
  Folder() {
    fs::create_directories(path);
    Bitmap picture = plainBitmap(kWidth, kHeight, kPalette[14]);
    for (int y = 4; y < kHeight - 4; ++y) {
      for (int x = 4; x < kWidth - 4; ++x)
        picture.pixels[static_cast<std::size_t>(y) * kWidth + static_cast<std::size_t>(x)] = kPalette[1];
    }
    if (!writeBitmapFile(picture, path / "full.bmp")) std::abort();
  }
  ~Folder() { fs::remove_all(path); }
  Folder(const Folder&) = delete;
  Folder& operator=(const Folder&) = delete;

  fs::path path = fs::temp_directory_path() / "gridwright-bench-job";
};

struct Spent {
  double milliseconds = 0, megabytes = 0;
  bool succeeded = false;
};

/// Runs the program on a script as a process of its own, and says what it took.
Spent runProgram(const Folder& folder, const fs::path& script) {
  const auto begin = Clock::now();
  const pid_t child = ::fork();
  if (child == 0) {
    ::execl(GRIDWRIGHT_HEADLESS, GRIDWRIGHT_HEADLESS, "--work", folder.path.c_str(), "--pdf",
            (folder.path / "book.pdf").c_str(), script.c_str(), nullptr);
    ::_exit(127);
  }
  int status = 0;
  rusage used{};
  const bool ended = ::wait4(child, &status, 0, &used) == child && WIFEXITED(status);
  return {millisecondsSince(begin), static_cast<double>(used.ru_maxrss) / 1024,
          ended && WEXITSTATUS(status) == 0};
}

Spent printMazes(const Folder& folder, int mazes) {
  const fs::path script = folder.path / "book.txt";
  std::ofstream(script) << "seed 7\nclick Command2\nmenu importdrawing\ntype Text8 \"full\"\nenter Text8\n"
                           "menu cgenerate\nmenu printwithsolutions\ntype Text3 \""
                        << mazes << "\"\nenter Text3\nmenu createreg\nuntil printTotal 0\nimage last.bmp\n";
  return runProgram(folder, script);
}

/// The last page of the job, twice a maze, and the walk.
double plainBook(const Folder& folder, int mazes) {
  const Bitmap page = readBitmapFile(folder.path / "last.bmp").value();
  PlainWalk walk(kWidth, kHeight, kWall);
  const auto begin = Clock::now();
  PdfDocument book(folder.path / "plain.pdf");
  for (int maze = 0; maze < mazes; ++maze) {
    benchmark::DoNotOptimize(walk.carve(static_cast<std::uint32_t>(maze)));
    for (int side = 0; side < 2; ++side) {
      if (!book.addPage(page)) std::abort();
    }
  }
  if (!book.finish()) std::abort();
  return millisecondsSince(begin);
}

void job(benchmark::State& state) {
  const Folder folder;
  const int mazes = static_cast<int>(state.range(0));
  const Spent few = printMazes(folder, mazes / 10);
  double spent = 0;
  double plain = 0;
  double megabytes = 0;
  for (auto _ : state) {
    const Spent run = printMazes(folder, mazes);
    if (!run.succeeded) return state.SkipWithError("a job that fails is not timed");
    state.SetIterationTime(run.milliseconds / 1000);
    spent += run.milliseconds;
    plain += plainBook(folder, mazes);
    megabytes = run.megabytes;
  }
  const double made = static_cast<double>(mazes) * static_cast<double>(state.iterations());
  state.counters["ms_a_maze"] = spent / made;
  state.counters["plain_ms_a_maze"] = plain / made;
  state.counters["ratio"] = spent / plain;
  state.counters["MB"] = megabytes;
  state.counters["MB_growth"] = megabytes - few.megabytes;
  state.counters["KB_a_page"] =
      static_cast<double>(fs::file_size(folder.path / "book.pdf")) / 1024 / 2 / mazes;
}
BENCHMARK(job)->Arg(100)->Unit(benchmark::kMillisecond)->UseManualTime()->Iterations(3);

}  // namespace
}  // namespace gridwright::bench
