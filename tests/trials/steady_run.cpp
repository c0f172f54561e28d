#include "trials/steady_run.h"

#include <linux/perf_event.h>
#include <malloc.h>
#include <sys/ioctl.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <memory>
#include <sstream>

#include "platform/headless/headless_desktop.h"
#include "platform/shared/image_files.h"
#include "session/input.h"
#include "session/main_loop.h"
#include "support/pictures.h"
#include "support/work_folders.h"

namespace gridwright::test {

extern "C" {
// Neither inlined nor merged with another: callgrind cuts its count here.
__attribute__((noinline, noclone)) void gridwright_twentieth_begins() { asm volatile(""); }
}

namespace {

constexpr int kParts = 20;

/// The processor's own count of instructions, where the system gives it.
class Instructions {
 public:
  Instructions() {
    perf_event_attr wanted{};
    wanted.type = PERF_TYPE_HARDWARE;
    wanted.size = sizeof wanted;
    wanted.config = PERF_COUNT_HW_INSTRUCTIONS;
    wanted.exclude_kernel = wanted.exclude_hv = 1;
    file_ = static_cast<int>(::syscall(SYS_perf_event_open, &wanted, 0, -1, -1, 0));
  }
  Instructions(const Instructions&) = delete;
  Instructions& operator=(const Instructions&) = delete;
  ~Instructions() {
    if (isOpen()) ::close(file_);
  }
  [[nodiscard]] bool isOpen() const { return file_ >= 0; }
  [[nodiscard]] std::uint64_t count() const {
    std::uint64_t now = 0;
    if (!isOpen() || ::read(file_, &now, sizeof now) != sizeof now) return 0;
    return now;
  }

 private:
  int file_ = -1;
};

std::int64_t residentBytes() {
  std::ifstream status("/proc/self/statm");
  std::int64_t all = 0, resident = 0;
  status >> all >> resident;
  return resident * ::sysconf(_SC_PAGESIZE);
}

int openFiles() {
  const std::filesystem::directory_iterator files("/proc/self/fd");
  return static_cast<int>(std::distance(begin(files), end(files)));
}

/// A desktop whose person does one thing a pump, and is looked at every twentieth.
class SteadyDesktop : public HeadlessDesktop {
 public:
  SteadyDesktop(LongRun run, int count, const HeadlessOptions& options)
      : HeadlessDesktop("long run", "", options), run_(run), count_(count) {
    samples_.reserve(kParts + 1);
  }

  void doEvents(Program& program, Pace pace) override {
    if (pace == Pace::housekeeping) return;
    ++passes_;
    const int part = done(program) * kParts / count_;
    if (isReady_ && part >= static_cast<int>(samples_.size())) look(program);
    if (samples_.size() > kParts) throw ProgramEnd{};
    act(program, pace);
  }
  std::int64_t quietPumps(const Program& /*program*/) override { return 1000; }
  void passOver(std::int64_t pumps) override { passes_ += pumps; }

  [[nodiscard]] const std::vector<SteadySample>& samples() const { return samples_; }

 private:
  [[nodiscard]] int done(const Program& program) const {
    if (run_ != LongRun::job) return done_;
    const PrintState& print = program.state.print;
    return step_ > kSteps && print.printMode == PrintMode::none ? count_ : print.printedCount;
  }

  void look(Program& program) {
    const struct mallinfo2 heap = ::mallinfo2();
    const std::uint64_t instructions = counter_.count();
    samples_.push_back({done(program), passes_, static_cast<std::int64_t>(heap.uordblks + heap.hblkhd),
                        residentBytes(), openFiles(), instructions - instructions_});
    passes_ = 0;
    program.random.seed(1);
    gridwright_twentieth_begins();
    instructions_ = counter_.count();
  }

  void act(Program& p, Pace pace) {
    switch (run_) {
      case LongRun::job:
        return beginJob(p);
      case LongRun::title:
        return waitAtTitle(p);
      case LongRun::quits:
        return quit(p);
      default:
        if (pace == Pace::idle) undo(p);
    }
  }

  static void choose(Program& p, Item item) {
    if (!p.menus.available(item)) throw ScriptStop{2, "not to be chosen: " + std::string(rowOf(item).name)};
    input::menuClick(p, item);
  }

  static constexpr int kSteps = 20;  // the job has begun long before

  /// One step a pump, until the job is under way.
  void beginJob(Program& p) {
    switch (step_++) {
      case 0:
        return input::buttonClick(p, ControlId::Command2);
      case 1:
        return choose(p, Item::importdrawing);
      case 2:
        return input::textTyped(p, ControlId::Text8, "picture");
      case 3:
        return input::enterPressed(p, ControlId::Text8);
      case 6:
        return choose(p, Item::cgenerate);
      case 7:
        return choose(p, Item::printwithsolutions);
      case 8:
        return input::textTyped(p, ControlId::Text3, std::to_string(count_));
      case 9:
        return input::enterPressed(p, ControlId::Text3);
      case 12:
        isReady_ = true;
        return choose(p, Item::newmaze);
      default:
        return;
    }
  }

  /// Whichever timer runs next fires, and that many seconds have gone by.
  void waitAtTitle(Program& p) {
    isReady_ = true;
    for (const ControlId timer : {ControlId::Timer1, ControlId::Timer2}) {
      if (!p.controls[timer].enabled || p.controls[timer].interval <= 0) continue;
      done_ += std::max(p.controls[timer].interval / 1000, 1);
      return input::timerTick(p, timer);
    }
    throw ScriptStop{1, "no timer runs at the title"};
  }

  void quit(Program& p) {
    isReady_ = true;
    if (p.state.phase == Phase::title) return input::buttonClick(p, ControlId::Command2);
    if (p.state.phase != Phase::drawing) return;
    choose(p, Item::quit2);
    ++done_;
  }

  /// Six strokes round a square, three taken back, two done again, two taken back.
  void undo(Program& p) {
    if (p.state.phase == Phase::title) return input::buttonClick(p, ControlId::Command2);
    constexpr std::array kRound = {'l', 'k', 'k', 'j', 'j', 'i', 'u', 'u', 'u', 'r', 'r', 'u', 'u'};
    isReady_ = true;
    const char what = kRound.at(static_cast<std::size_t>(step_++) % kRound.size());
    if (what == 'r') return choose(p, Item::redo);
    if (what != 'u') return input::keyDown(p, what - 'a' + 'A');
    choose(p, Item::undo);
    ++done_;
  }

  const LongRun run_;
  const int count_;
  int step_ = 0, done_ = 0;
  bool isReady_ = false;
  std::int64_t passes_ = 0;
  const Instructions counter_;
  std::uint64_t instructions_ = 0;
  std::vector<SteadySample> samples_;
};

}  // namespace

std::vector<SteadySample> runLong(LongRun run, int count) {
  const TempFolder folder, pages;
  const Bitmap picture = drawing({"............", "............", "...,,,......", "...,,,..##..",
                                  "........##..", "............", "............"});
  for (const char* name : {"picture.bmp", "example1.bmp", "example2.bmp", "credit1.bmp"})
    if (!writeBitmapFile(picture, folder.path() / name)) throw ScriptStop{2, "the folder takes no picture"};
  HeadlessOptions options;
  options.size = {picture.width, picture.height};
  options.pdfFile = pages.path() / "pages.pdf";
  SteadyDesktop desktop(run, count, options);
  const auto program = std::make_unique<Program>(desktop, folder.path());
  try {
    runProgram(*program);
  } catch (const ProgramEnd&) {
    return desktop.samples();
  }
}

bool countsInstructions() { return Instructions().isOpen(); }

double bytesEachOf(LongRun run) { return run == LongRun::job ? 1024 : 0; }

std::string unsteadiness(const std::vector<SteadySample>& samples, double bytesEach) {
  constexpr std::int64_t kOnce = 128 * 1024, kOnceResident = 8 * 1024 * 1024;
  const SteadySample& early = samples.at(kParts / 5);
  const SteadySample& last = samples.at(kParts);
  const auto mayGrow = static_cast<std::int64_t>(bytesEach * (last.done - early.done));
  std::ostringstream words;
  if (last.heap - early.heap > mayGrow + kOnce)
    words << "the heap grew by " << last.heap - early.heap << " bytes; ";
  if (last.resident - early.resident > mayGrow + kOnceResident)
    words << "the memory grew by " << last.resident - early.resident << " bytes; ";
  if (last.files != early.files) words << last.files << " files are open, not " << early.files << "; ";
  if (static_cast<double>(last.passes) > 1.02 * static_cast<double>(early.passes))
    words << "a twentieth took " << last.passes << " passes, not " << early.passes << "; ";
  if (static_cast<double>(last.instructions) > 1.05 * static_cast<double>(early.instructions))
    words << "a twentieth took " << last.instructions << " instructions, not " << early.instructions << "; ";
  return words.str();
}

}  // namespace gridwright::test
