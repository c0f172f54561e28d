// Long runs of one program, looked at twenty times on the way: what it holds and what it costs must stay as
// it is.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace gridwright::test {

/// What the program does over and over, and what is counted.
enum class LongRun {
  job,    ///< Mazes of one job with answers, printed into one document.
  title,  ///< Seconds at the title by its own timers: slides come and go.
  quits,  ///< Drawings begun and quit to the title.
  undos,  ///< Strokes, taken back and done again; the steps taken back are counted.
};

struct SteadySample {
  int done = 0;
  std::int64_t passes = 0;  ///< Since the sample before.
  std::int64_t heap = 0;    ///< Bytes that are allocated.
  std::int64_t resident = 0;
  int files = 0;                   ///< Open ones.
  std::uint64_t instructions = 0;  ///< Since the sample before; 0 where the processor's counter is not open.
};

/// Runs in a folder of its own. Each twentieth draws the same random numbers, so that a job makes the same
/// mazes in each. \param count at least 20. \returns the beginning and twenty samples more.
std::vector<SteadySample> runLong(LongRun run, int count);

/// Whether the processor's instructions can be counted here.
bool countsInstructions();

/// What has grown between the fifth part of the run and its end, or taken longer; empty when nothing has.
/// \param bytesEach what each unit may leave behind: a document knows where each of its pages lies.
std::string unsteadiness(const std::vector<SteadySample>& samples, double bytesEach);

/// Bytes that each unit of a run may leave behind.
double bytesEachOf(LongRun run);

/// Where an instrument that counts from without may cut: called before each twentieth.
extern "C" void gridwright_twentieth_begins();

}  // namespace gridwright::test
