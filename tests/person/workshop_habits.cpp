#include <array>
#include <string_view>

#include "person/habits.h"
#include "person/kit.h"
#include "pictures/stamps.h"

namespace gridwright::person {

namespace {

/// Names that the program knows, and one that it does not.
constexpr auto kTargets =
    std::to_array<std::string_view>({"room.bmp",       "a.bmp",          "a.maze",
                                     "good.maze",      "good.bmp",       "drawing1.bmp",
                                     "drawing1b.bmp",  "drawing2.bmp",   "drawing3.bmp",
                                     "drawing4.bmp",   "title.bmp",      "last-drawing.bmp",
                                     "last-sheet.bmp", "sheet.png",      "Left.pt",
                                     "Right.pt",       "up.pt",          "down.pt",
                                     "3dLeft.pt",      "3dup.pt",        "3dpipeRight.pt",
                                     "3dpipedown.pt",  "LEFT.PT",        "left2.pt",
                                     "a.pat",          "good.3d-pat",    "good.3d-pipe-pat",
                                     "a.maze.ready",   "a.bmp.building", "last-drawing.bmp~",
                                     "good.maze~"});
constexpr auto kOutside = std::to_array<std::string_view>({"folder.bmp", "pipe.bmp", "loop.bmp", "gone.bmp",
                                                           "link.bmp", "a.maze", "nothing.png", "/dev/zero",
                                                           "..", "last-drawing.bmp", "../kit/far0.maze"});

std::string place(Choices& choices) {
  return choices.numberBetween(-60, 320) + "," + choices.numberBetween(-60, 320);
}
std::string spot(Choices& choices) {
  return choices.numberBetween(-60, 320) + " " + choices.numberBetween(-60, 320);
}

/// An ink or paper.
std::string ink(Choices& choices) { return choices.oneIn(6) ? "paper" : choices.numberBetween(0, 14); }

std::string toolDeed(Choices& choices) {
  static constexpr auto kTools =
      std::to_array<std::string_view>({"pencil", "line", "rectangle", "ellipse", "fill", "eraser", "pick"});
  static constexpr auto kMirrors = std::to_array<std::string_view>({"none", "lr", "tb", "both"});
  const std::string size = choices.oneIn(4) ? "cell" : choices.numberBetween(1, 50);
  return "tool " + std::string(choices.oneOf(kTools)) + " size=" + size +
         " outline=" + choices.numberBetween(0, 1) + " snap=" + choices.numberBetween(0, 1) +
         " mirror=" + std::string(choices.oneOf(kMirrors)) + " colour=" + ink(choices);
}

std::string wordsDeed(Choices& choices) {
  static constexpr auto kTexts =
      std::to_array<std::string_view>({"A", "MIA", "", " ", "i\\nj", "ÄÖ", "日本", "\\\"", "\\n\\n",
                                       "aaaaaaaaaaaaaaaaaaaaaaaa", "ffi", "\xff\xfe"});
  static constexpr auto kFonts =
      std::to_array<std::string_view>({"DejaVu Sans", "DejaVu Serif", "none such"});
  std::string line = "words \"" + std::string(choices.oneOf(kTexts)) + "\"";
  if (choices.oneIn(3)) line += " font=\"" + std::string(choices.oneOf(kFonts)) + "\"";
  if (choices.oneIn(2)) line += " height=" + (choices.oneIn(3) ? "fit" : choices.numberBetween(1, 30));
  if (choices.oneIn(2)) line += " colour=" + (choices.oneIn(3) ? "turn" : choices.numberBetween(0, 14));
  if (choices.oneIn(2)) line += " join=" + choices.numberBetween(0, 1);
  if (choices.oneIn(3)) line += " frame=" + choices.numberBetween(0, 1);
  if (choices.oneIn(3)) line += " at=" + place(choices);
  return line;
}

std::string stampDeed(Choices& choices) {
  std::string line = "stamp " + std::string(choices.oneOf(kStamps)) +
                     " height=" + choices.numberBetween(1, choices.oneIn(20) ? 200 : 20) +
                     " colour=" + choices.numberBetween(0, 14);
  if (choices.oneIn(2)) line += " at=" + place(choices);
  return line;
}

std::string placeDeed(Choices& choices) {
  std::string line = "place";
  if (choices.oneIn(2)) line += " at=" + place(choices);
  if (choices.oneIn(2))
    line += " size=" + choices.numberBetween(1, 320) + "x" + choices.numberBetween(1, 320);
  return line;
}

std::string prepareDeed(Choices& choices) {
  static constexpr auto kGrow = std::to_array<std::string_view>({"", "1", "2", "1,2,3", "99", "0"});
  static constexpr auto kOutlines = std::to_array<std::string_view>({"none", "thin", "thick"});
  std::string line = "prepare colours=" + choices.numberBetween(2, 16);
  if (choices.oneIn(2)) line += " detail=" + choices.numberBetween(1, 5);
  if (choices.oneIn(2)) line += " size=" + std::string(choices.oneIn(2) ? "asitis" : "window");
  if (choices.oneIn(2)) line += " outlines=" + std::string(choices.oneOf(kOutlines));
  if (choices.oneIn(2)) line += " grow=" + std::string(choices.oneOf(kGrow));
  return line;
}

}  // namespace

std::string workshopDeed(const Program& program, Choices& choices) {
  if (program.prepare.open && choices.oneIn(3)) {
    switch (choices.below(6)) {
      case 0:
        return "accept";
      case 1:
        return "asitis";
      case 2:
        return "cancel";
      case 3:
        return placeDeed(choices);
      default:
        return prepareDeed(choices);
    }
  }
  switch (choices.below(24)) {
    case 0:
      return "accept";
    case 1:
      return "cancel";
    case 2:
      return choices.oneIn(3) ? "newsheet" : "undo";
    case 3:
      return "undo";
    case 4:
      return "redo";
    case 5:
      return wordsDeed(choices);
    case 6:
    case 7:
      return stampDeed(choices);
    case 8:
      return placeDeed(choices);
    case 9:
      return choices.oneIn(2) ? "editelsewhere" : "tick sheetwatch";
    case 10:
      return arrivalDeed(choices);
    case 11:
    case 12:
    case 13:
      return toolDeed(choices);
    case 14:
    case 15:
    case 16:
      return "press " + spot(choices);
    case 17:
    case 18:
    case 19:
      return "release " + spot(choices);
    default:
      return "drag " + spot(choices);
  }
}

std::string fileDeed(Choices& choices) {
  const std::string target(choices.oneOf(kTargets));
  if (choices.oneIn(4)) return "removefile " + target;
  return "copyfile ../kit/" + std::string(choices.oneOf(kKitFiles)) + " " + target;
}

std::string arrivalDeed(Choices& choices) {
  const std::string verb = choices.oneIn(4) ? "paste " : "open ";
  if (choices.oneIn(3)) return verb + std::string(choices.oneOf(kOutside));
  return verb + "../kit/" + std::string(choices.oneOf(kKitFiles));
}

}  // namespace gridwright::person
