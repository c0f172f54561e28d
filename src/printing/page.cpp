#include "printing/page.h"

#include <algorithm>
#include <utility>

#include "pictures/ready.h"
#include "printing/page_about.h"

namespace gridwright {

namespace {

/// All corners included; empty when `left` is greater than `right`.
Square boxOfPicture(const BitmapView& shown, Colour ground) {
  Square box{shown.width, shown.height, -1, -1};
  for (int y = 0; y < shown.height; ++y) {
    const Colour* row = shown.row(y);
    const auto isPicture = [&](Colour pixel) { return Canvas::colourOf(pixel) != ground; };
    const Colour* first = std::find_if(row, row + shown.width, isPicture);
    if (first == row + shown.width) continue;
    int last = shown.width - 1;
    while (!isPicture(row[last])) --last;
    box = {std::min(box.left, static_cast<int>(first - row)), std::min(box.top, y), std::max(box.right, last),
           y};
  }
  return box;
}

bool holdsPaper(const BitmapView& shown) {
  for (int y = 0; y < shown.height; ++y) {
    const Colour* row = shown.row(y);
    int count = 0;  // over the row as a whole: a loop that may stop at each pixel takes longer
    for (int x = 0; x < shown.width; ++x) count += Canvas::colourOf(row[x]) == kPaper ? 1 : 0;
    if (count > 0) return true;
  }
  return false;
}

}  // namespace

Square partOnPage(const Program& program, const BitmapView& shown) {
  const Square whole{0, 0, shown.width - 1, shown.height - 1};
  const ProgramState& s = program.state;
  if (!s.print.whiteGround) return whole;
  const Square box = boxOfPicture(shown, program.canvas.backColor());
  if (box.left > box.right) return whole;
  return {std::max(0, box.left - s.wallWidth), std::max(0, box.top - s.wallHeight),
          std::min(whole.right, box.right + s.wallWidth), std::min(whole.bottom, box.bottom + s.wallHeight)};
}

namespace {

/// \param part of the shown plane that the page shows.
PageLook lookOf(Program& program, const Square& part, const MazeInRun& maze) {
  const ProgramState& s = program.state;
  PageLook look{program.pages.setup, {}, mazeCells(program), aboutPage(program, maze)};
  const bool hasStart = s.phase >= Phase::placing && s.phase <= Phase::solved;
  if (!look.setup.endWords || !hasStart || isSearching(s)) return look;
  look.ends = {{s.start.moved(-part.left, -part.top), "Start"},
               {s.finish.moved(-part.left, -part.top), "Finish"}};
  return look;
}

}  // namespace

void setWhiteGround(Program& program, bool on) {
  program.state.print.whiteGround = on;
  program.menus.setChecked(Item::whiteground, on);
}

void whiteground(Program& program) { setWhiteGround(program, !program.state.print.whiteGround); }

Page pageOf(Program& program, const MazeInRun& maze) {
  const BitmapView shown = program.canvas.shownView();
  const bool whiteGround = program.state.print.whiteGround;
  if (!whiteGround && !holdsPaper(shown)) return {shown, lookOf(program, {}, maze)};
  const Square part = partOnPage(program, shown);
  const Colour ground = whiteGround ? program.canvas.backColor() : kPaper;
  Bitmap page = plainBitmap(part.right - part.left + 1, part.bottom - part.top + 1, qb::white);
  auto to = page.pixels.begin();
  for (int y = part.top; y <= part.bottom; ++y) {
    const Colour* from = shown.row(y);
    to = std::transform(from + part.left, from + part.right + 1, to, [&](Colour raw) {
      const Colour pixel = Canvas::colourOf(raw);
      return pixel == kPaper || pixel == ground ? qb::white : pixel;
    });
  }
  return {std::move(page), lookOf(program, part, maze)};
}

}  // namespace gridwright
