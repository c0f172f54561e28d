#include "session/title.h"

#include <array>
#include <string_view>

namespace gridwright {

namespace {

constexpr Colour kInk = kPalette[1];
constexpr Colour kPath = kPalette[15];

/// Capital letters of five columns and seven rows.
struct Letter {
  std::array<std::string_view, 7> rows;
};
constexpr std::array<Letter, 10> kName = {{
    {{" ### ", "#   #", "#    ", "# ###", "#   #", "#   #", " ### "}},
    {{"#### ", "#   #", "#   #", "#### ", "# #  ", "#  # ", "#   #"}},
    {{"#####", "  #  ", "  #  ", "  #  ", "  #  ", "  #  ", "#####"}},
    {{"#### ", "#   #", "#   #", "#   #", "#   #", "#   #", "#### "}},
    {{"#   #", "#   #", "#   #", "# # #", "# # #", "## ##", "#   #"}},
    {{"#### ", "#   #", "#   #", "#### ", "# #  ", "#  # ", "#   #"}},
    {{"#####", "  #  ", "  #  ", "  #  ", "  #  ", "  #  ", "#####"}},
    {{" ### ", "#   #", "#    ", "# ###", "#   #", "#   #", " ### "}},
    {{"#   #", "#   #", "#   #", "#####", "#   #", "#   #", "#   #"}},
    {{"#####", "  #  ", "  #  ", "  #  ", "  #  ", "  #  ", "  #  "}},
}};
constexpr int kDot = 12;  // pixels of one letter's dot

/// The name, each letter's dots joined into a corridor of its own.
void paintName(Canvas& canvas, int left, int top) {
  int x = left;
  for (const Letter& letter : kName) {
    for (int row = 0; row < 7; ++row) {
      for (int column = 0; column < 5; ++column) {
        const auto dotAt = [&](int r, int c) {
          return r < 7 && c < 5 &&
                 letter.rows.at(static_cast<std::size_t>(r)).at(static_cast<std::size_t>(c)) == '#';
        };
        if (!dotAt(row, column)) continue;
        const int dx = x + column * kDot;
        const int dy = top + row * kDot;
        canvas.fill(dx, dy, dx + kDot - 1, dy + kDot - 1, kInk);
        canvas.fill(dx + 4, dy + 4, dx + kDot - 5, dy + kDot - 5, kPath);
        if (dotAt(row, column + 1)) canvas.fill(dx + 4, dy + 4, dx + kDot + 4, dy + kDot - 5, kPath);
        if (dotAt(row + 1, column)) canvas.fill(dx + 4, dy + 4, dx + kDot - 5, dy + kDot + 4, kPath);
      }
    }
    x += 6 * kDot;
  }
}

}  // namespace

void paintTitle(Program& program) {
  Canvas& canvas = program.canvas;
  canvas.setAutoRedraw(true);
  canvas.fill(0, 0, 799, 599, qb::yellow);
  for (int ring = 0; ring < 5; ++ring) {
    const int inset = 12 + 16 * ring;
    canvas.outline(inset, inset, 799 - inset, 599 - inset, kInk);
    canvas.outline(inset + 1, inset + 1, 798 - inset, 598 - inset, kInk);
    const int gap = 100 + 97 * ring;  // a way from each ring of the frame into the next
    canvas.fill(gap, inset, gap + 14, inset + 1, qb::yellow);
    canvas.fill(799 - inset - 1, gap / 2 + 60, 799 - inset, gap / 2 + 74, qb::yellow);
  }
  canvas.fill(30, 170, 769, 290, qb::yellow);
  paintName(canvas, 46, 188);
}

Outcome<Bitmap> loadContent(Program& program, std::string_view name) {
  const std::filesystem::path folder = program.platform.contentFolder();
  if (folder.empty()) return Fault{Fault::Kind::notFound, std::string(name)};
  return program.platform.loadBitmap(folder / std::filesystem::path(name));
}

void showTitleButtons(Program& program) {
  for (const ControlId id : {ControlId::Command3, ControlId::Command2, ControlId::Command7}) {
    program.controls.show(id);
  }
}

void hideTitleButtons(Program& program) {
  program.controls.hide(ControlId::Command3);
  program.controls.hide(ControlId::Command2);
  program.controls.setVisible(ControlId::Command7, false);
}

void command2(Program& program) {
  ProgramState& s = program.state;
  s.panelOpen = false;
  s.editedPattern = 0;
  s.session.bookMode = 0;
  s.phase = Phase::drawing;
  hideTitleButtons(program);
  program.controls.runTimer(ControlId::Timer1, false);
  program.controls.runTimer(ControlId::Timer2, false);
}

namespace {

void beginBook(Program& program, MazeKind kind, int difficulty) {
  ProgramState& s = program.state;
  program.canvas.setBackColor(qb::gray);
  s.wallWidth = s.wallHeight = 30;
  s.mazeKind = kind;
  s.difficultyLevel = difficulty;
  s.print.printTotal = 30;
  s.print.printedCount = 0;
  s.print.printMode = PrintMode::withAnswers;
  s.pathSize = 2;
  s.autoMinimize = true;
  s.session.autoMinimizeStyle = 2;
  program.menus.setChecked(Item::aon, true);
  program.menus.setChecked(Item::aoff, false);
  hideTitleButtons(program);
  program.controls.runTimer(ControlId::Timer1, false);
  program.controls.runTimer(ControlId::Timer2, false);
  s.phase = Phase::drawing;
}

}  // namespace

void command4(Program& program) { beginBook(program, MazeKind::regular, 4); }
void command5(Program& program) { beginBook(program, MazeKind::regular, 7); }
void command6(Program& program) { beginBook(program, MazeKind::pipe, 7); }

}  // namespace gridwright
