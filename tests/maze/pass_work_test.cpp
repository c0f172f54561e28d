// The work of a pass, counted instead of timed: pixels read, strokes, menu rows written, memory asked for.
// The rooms that read pixels are built for this test with a count of their reads.
#include <gtest/gtest.h>

#include <cstdlib>
#include <new>
#include <string>

#include "maze/makemaze.h"
#include "state/grid.h"
#include "support/world.h"

namespace {
std::int64_t allocations = 0;
}

[[gnu::noinline]] void* operator new(std::size_t size) {
  ++allocations;
  if (void* memory = std::malloc(size == 0 ? 1 : size)) return memory;
  throw std::bad_alloc{};
}
[[gnu::noinline]] void operator delete(void* memory) noexcept { std::free(memory); }
[[gnu::noinline]] void operator delete(void* memory, std::size_t /*size*/) noexcept { std::free(memory); }

namespace gridwright::test {
namespace {

const Text kRoom(14, std::string(18, '.'));

struct Work {
  std::int64_t pumps = 0, reads = 0, strokes = 0, menuWrites = 0;
  std::int64_t passesThatAllocate = 0;
  /// A number for each pump, rounded up.
  [[nodiscard]] std::int64_t aPump(std::int64_t count) const { return (count + pumps - 1) / pumps; }
};

/// The work of whole mazes with fixed seeds.
Work workOf(MazeKind kind, bool longPipes, bool isWatched) {
  Work work;
  for (std::uint32_t seed = 1; seed <= 4; ++seed) {
    World w(drawing(kRoom));
    ProgramState& s = w.state;
    s.mazeKind = kind;
    pitchFromKind(s);
    measureGrid(w.program);
    w.program.menus.setChecked(Item::pthin, longPipes);
    w.program.pictures.save("drawing1b.bmp", w.canvas.image());
    s.start = s.walker.walkStart = s.cur = s.prev = squareOf(1, 1);
    s.finish = squareOf(17, 13);
    s.creationMode = CreationMode::computer;
    w.program.steps.resetAll();
    w.program.random.seed(seed);
    w.desktop.pumpsPass(1'000'000);
    if (!isWatched) w.desktop.quiet = [](const Program&) { return std::int64_t{1'000'000}; };

    std::int64_t asked = 0;
    bool sweepEnds = false;
    std::uint64_t menus = 0;
    std::uint64_t strokes = 0;
    w.desktop.everyPump = [&](const Program& p) {
      if (w.desktop.pumps == 1) {
        Canvas::reads = 0;
        menus = p.menus.revision();
        strokes = p.canvas.changes();
        for (int d = step::left; d <= step::down; ++d)
          w.program.steps.steps(kind, d);  // read at their first use
      } else if (allocations != asked && !sweepEnds) {
        ++work.passesThatAllocate;
      }
      // The end of the sweep looks for islands, which needs memory; it is no pass.
      sweepEnds = p.state.scanX + p.state.stepX > p.state.canvasWidth &&
                  p.state.scanY + p.state.stepY > p.state.canvasHeight;
      asked = allocations;
    };
    makemaze(w.program);
    work.pumps += w.desktop.pumps;
    work.reads += Canvas::reads;
    work.strokes += static_cast<std::int64_t>(w.canvas.changes() - strokes);
    work.menuWrites += static_cast<std::int64_t>(w.program.menus.revision() - menus);
  }
  return work;
}

struct Limits {
  const char* name;
  MazeKind kind;
  bool longPipes;
  std::int64_t readsWatched, readsUnwatched;  ///< Pixels a pump, at most.
  std::int64_t hundredPumpsStrokes;           ///< Strokes in a hundred pumps, at most.
};

class ThePasses : public ::testing::TestWithParam<Limits> {};

TEST_P(ThePasses, ReadNoMorePixelsThanToday) {
  const Limits& limits = GetParam();
  const Work watched = workOf(limits.kind, limits.longPipes, true);
  const Work unwatched = workOf(limits.kind, limits.longPipes, false);
  EXPECT_EQ(watched.pumps, unwatched.pumps) << "the same mazes";
  EXPECT_LE(watched.aPump(watched.reads), limits.readsWatched);
  EXPECT_LE(unwatched.aPump(unwatched.reads), limits.readsUnwatched);
}

TEST_P(ThePasses, PaintOnlyWhatIsCarved) {
  const Limits& limits = GetParam();
  const Work work = workOf(limits.kind, limits.longPipes, true);
  EXPECT_LE(work.aPump(100 * work.strokes), limits.hundredPumpsStrokes);
}

TEST_P(ThePasses, WriteNoMenuRowOnceTheRulesStand) {
  const Limits& limits = GetParam();
  for (const bool isWatched : {true, false}) {
    EXPECT_EQ(workOf(limits.kind, limits.longPipes, isWatched).menuWrites, 0);
  }
}

TEST_P(ThePasses, AskForNoMemory) {
  const Limits& limits = GetParam();
  for (const bool isWatched : {true, false}) {
    EXPECT_EQ(workOf(limits.kind, limits.longPipes, isWatched).passesThatAllocate, 0);
  }
}

INSTANTIATE_TEST_SUITE_P(Kinds, ThePasses,
                         ::testing::Values(Limits{"Regular", MazeKind::regular, false, 35, 26, 8},
                                           Limits{"ThreeD", MazeKind::threeD, false, 68, 34, 8},
                                           Limits{"ShortPipes", MazeKind::pipe, false, 110, 79, 19},
                                           Limits{"LongPipes", MazeKind::pipe, true, 108, 76, 19}),
                         [](const auto& kind) { return std::string(kind.param.name); });

}  // namespace
}  // namespace gridwright::test
