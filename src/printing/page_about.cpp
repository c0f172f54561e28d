#include "printing/page_about.h"

#include <string>

#include "printing/patches.h"
#include "solve/maze_ways.h"
#include "state/setting_words.h"

namespace gridwright {

namespace {

/// Whether the Canvas has room for so many cells that a page may take more rectangles for them.
bool canHaveManyCells(const Program& program) {
  const ProgramState& s = program.state;
  const int pitch = s.mazeKind == MazeKind::pipe ? 2 * s.wallWidth : s.wallWidth;
  if (pitch <= 0) return false;
  const BitmapView shown = program.canvas.shownView();
  return mostPatches((shown.width / pitch + 1) * (shown.height / pitch + 1)) > mostPatches(0);
}

std::string patternsWord(const Program& program) {
  if (program.menus.checked(Item::dontusepattern)) return "none";
  if (!program.menus.checked(Item::crnd1)) return "own";
  return "random:" + std::to_string(program.state.randomPatterns.randomPatternSize);
}

/// As the options of a book name them. Difficulty, paths and underpasses belong to kinds with tunnels.
std::string settingsOf(const Program& program) {
  const ProgramState& s = program.state;
  std::string words;
  const auto add = [&words](std::string_view name, std::string_view value) {
    words.append(words.empty() ? "" : "; ").append(name).append(" ").append(value);
  };
  add("kind", wordIn(kMazeKindWords, s.mazeKind));
  add("wall", std::to_string(s.wallWidth));
  if (s.mazeKind != MazeKind::regular) {
    add("difficulty", std::to_string(s.difficultyLevel));
    add("paths", wordIn(kPathsWords, s.pathSize == 2));
  }
  if (s.mazeKind == MazeKind::pipe)
    add("underpasses", wordIn(kUnderpassesWords, !program.menus.checked(Item::pthin)));
  add("patterns", patternsWord(program));
  return words;
}

}  // namespace

int mazeCells(Program& program) {
  const ProgramState& s = program.state;
  if (s.phase < Phase::making || s.phase > Phase::solved || !canHaveManyCells(program)) return 0;
  const auto carvedIn = [&](const BitmapView& picture, Colour start, Colour finish) {
    const MazePicture maze{picture,    program.colours, start,   finish,
                           s.mazeKind, s.wallWidth,     s.start, s.finish};
    return picture.isEmpty() ? 0 : MazeWays(maze).carvedCells();
  };
  const bool hasTrail = s.phase >= Phase::solving;
  const BitmapView maze = hasTrail ? program.pictures.load("drawing2.bmp") : program.canvas.shownView();
  const int carved = carvedIn(maze, s.startColor, s.finishColor);
  return carved - carvedIn(program.pictures.load("drawing1.bmp"), kOutside, kOutside);
}

PageAbout aboutPage(const Program& program, const MazeInRun& maze) {
  const std::string& title = program.pages.setup.title;
  return {title.empty() ? "Gridwright" : title, settingsOf(program), program.random.lastSeed(), maze};
}

}  // namespace gridwright
