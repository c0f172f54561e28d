// The little scripts of steps that steer the walker: twelve text files, one for each direction and
// kind, in the working folder.
//
// A file holds step codes 1 to 5, one a line, and ends with the line `9999,88`. A default pattern has
// one step, the direction's own code, and is one line: `1,9999,88`. What was written is kept in
// memory too, so the walker, which opens a file every few steps, reads no disk while nothing has
// changed, and a write that fails loses nothing.
#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "canvas/maze_kind.h"
#include "files/step_codes.h"

namespace gridwright {

class WorkFolder;

using Steps = std::vector<int>;

/// Name of a working file, as the program writes it. Directions are 1 left to 4 down.
std::string_view stepFileName(MazeKind kind, int direction);

/// The codes of a text up to the end mark; the end of the text counts as one.
Steps parseSteps(std::string_view text);
/// Whether any of the codes is a step. A pattern without one would stop the walker for good.
bool hasStep(const Steps& steps);
/// One code a line, then `9999,88`.
std::string formatSteps(const Steps& steps);
/// The one-line text of a direction's default pattern.
std::string defaultStepText(int direction);

class StepFiles {
 public:
  explicit StepFiles(WorkFolder& folder) : folder_(folder) {}

  /// The pattern of a direction. A file that is missing, or holds no step, reads as the direction's
  /// default.
  const Steps& steps(MazeKind kind, int direction);
  void write(MazeKind kind, int direction, const Steps& steps);
  /// Writes a list that comes from another file: one without a step becomes the direction's default.
  void install(MazeKind kind, int direction, const Steps& steps);
  void reset(MazeKind kind, int direction);
  void resetKind(MazeKind kind);
  void resetAll();

  /// The scratch twin of a working file: what the editor replayed last.
  void writeScratch(MazeKind kind, int direction, const Steps& steps);

  /// Has the files read anew at their next use: called at each start of a maze, so that a file put
  /// into the folder by hand counts from the next maze on.
  void rereadFromDisk();

 private:
  struct Slot {
    std::optional<Steps> steps;
    bool lastWriteFailed = false;
  };
  Slot& slot(MazeKind kind, int direction);
  void writeText(MazeKind kind, int direction, std::string_view text);
  /// \returns whether the text is in the file now.
  bool put(std::string_view name, std::string_view text);

  WorkFolder& folder_;
  std::array<Slot, 12> slots_;
};

}  // namespace gridwright
