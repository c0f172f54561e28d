// The text of a drawing file: one record line of 88 values, then the twelve step lists.
//
// Reading and writing go through a value of their own, so that the program changes only when all of a
// file is good.
#pragma once

#include <array>
#include <string>
#include <string_view>

#include "canvas/outcome.h"
#include "files/step_files.h"
#include "state/modes.h"

namespace gridwright {

/// The places of the values in the record line, from 0.
namespace record {
inline constexpr std::size_t cur = 0;  ///< Four: left, top, right, bottom.
inline constexpr std::size_t drawColor = 4;
inline constexpr std::size_t start = 5;
inline constexpr std::size_t startColor = 9;
inline constexpr std::size_t finish = 10;
inline constexpr std::size_t finishColor = 14;
inline constexpr std::size_t wallWidth = 15, wallHeight = 16, stepX = 17, stepY = 18;
inline constexpr std::size_t mazeKind = 19, difficultyLevel = 20, phase = 21, drawingOff = 22, mazeColor = 23;
inline constexpr std::size_t playMode = 24, finishMethod = 25, trailOff = 26, creationMode = 27,
                             pathSize = 28;
inline constexpr std::size_t autoMinimize = 29, scaleWidth = 30, scaleHeight = 31, windowState = 32;
inline constexpr std::size_t windowLeft = 33, windowTop = 34, windowHeight = 35, windowWidth = 36;
inline constexpr std::size_t symmetryMode = 37;
inline constexpr std::size_t swatches = 38;  ///< Sixteen.
inline constexpr std::size_t backColor = 54, individualMazeColors = 55;
inline constexpr std::size_t mazeColors = 56;  ///< Sixteen.
inline constexpr std::size_t patternState = 72, stopAtFinish = 73, reserved = 74, randomPatternSize = 75;
inline constexpr std::size_t randomStepsDone = 76, randomPatternMode = 77;
inline constexpr std::size_t randomFlagLeft = 78, randomFlagRight = 79, randomFlagUp = 80,
                             randomFlagDown = 81;
inline constexpr std::size_t randomSizeVaries = 82, randomUsesGo = 83, mazeMadeOnce = 84;
inline constexpr std::size_t backgroundDrawColor = 85, borderDrawColor = 86, pipeWidth = 87;
inline constexpr std::size_t count = 88;
}  // namespace record

struct DrawingRecord {
  std::array<int, record::count> values{};
  /// Left, right, up, down of the regular, the 3-d and the pipe kind.
  std::array<Steps, 12> lists;

  friend bool operator==(const DrawingRecord&, const DrawingRecord&) = default;
};

/// The kind and direction of a list, by its place.
struct ListPlace {
  MazeKind kind;
  int direction;
};
ListPlace listPlace(std::size_t list);

std::string formatDrawing(const DrawingRecord& drawing);

/// A malformed Fault when a value is missing, too many or no number, a wall size lies outside 5 to 50, the
/// kind is none, a list does not end, a code is no step, or anything follows the last list.
Outcome<DrawingRecord> parseDrawing(std::string_view text);

}  // namespace gridwright
