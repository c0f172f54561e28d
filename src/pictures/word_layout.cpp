#include "pictures/word_layout.h"

#include <algorithm>
#include <utility>

namespace gridwright {

namespace {

int floorTo(int number, int step) {
  const int rest = number % step;
  return number - (rest < 0 ? rest + step : rest);
}

BitPlane inkOf(const WordLayout::Letters& letters) {
  BitPlane all(letters.plane);
  for (const auto& line : letters.lines) {
    for (const Letter& letter : line) all |= letter.ink();
  }
  return all;
}

/// The largest region, as cells.
BitPlane largestRegion(const LetterCells& grid, const BitPlane& ink) {
  BitPlane left = grid.cellsOf(ink);
  BitPlane largest(left.size());
  std::int64_t most = 0;
  for (int row = 0; row < left.height(); ++row) {
    for (int column = left.next(row, 0, true); column < left.width(); column = left.next(row, column, true)) {
      const BitPlane region = grid.regionFrom(ink, left, {column, row});
      left.without(region);
      if (region.count() <= most) continue;
      most = region.count();
      largest = region;
    }
  }
  return largest;
}

/// Joins dots and accents to what they stand over. \returns whether each has found its way.
bool joinParts(BitPlane& ink, const std::vector<BitPlane>& parts, const LetterCells& grid) {
  const BitPlane holes = holesOf(ink);
  const BitPlane whole = ink;
  for (std::size_t i = 1; i < parts.size(); ++i) {
    const BitPlane part = floodedFrom(whole, parts[i]);
    const BitPlane rest = floodedFrom(ink, parts.front());
    const BarSearch search{grid, grid.cellsOf(part), grid.cellsOf(rest), holes};
    if (search.from.count() == 0) return false;
    const auto bar = search.bent();
    if (!bar) return false;
    for (const Square& box : *bar) ink.setBox(grid.pixelsOf(box));
  }
  return true;
}

/// A letter as thin as it can be with all its cells one region; as it was where no thickness up to a cell
/// helps.
ReadyLetter readyLetter(const Letter& letter, const BitPlane& barred, const LetterCells& grid) {
  ReadyLetter ready{letter.name, {}, {}, false};
  BitPlane thick = letter.ink();
  const int most = std::max(grid.pitch().stepX, grid.pitch().stepY);
  for (int by = 0; by <= most; ++by) {
    if (by > 0) thick = thickened(thick, barred, by % 2 == 0);
    ready.ink = thick;
    ready.isOne = joinParts(ready.ink, letter.parts, grid) && grid.isOneRegion(ready.ink);
    if (ready.isOne) break;
  }
  if (!ready.isOne) ready.ink = letter.ink();
  ready.cells = ready.isOne ? grid.cellsOf(ready.ink) : largestRegion(grid, ready.ink);
  return ready;
}

/// All letters of a text made ready one after the other: none grows into the room of another.
class Maker {
 public:
  Maker(const WordLayout::Letters& letters, const CellPitch& pitch)
      : grid(letters.plane, pitch), all_(inkOf(letters)) {}

  ReadyLetter make(const Letter& letter) {
    BitPlane others = all_;
    others.without(letter.ink());
    ReadyLetter ready = readyLetter(letter, withRim(others), grid);
    all_ |= ready.ink;
    return ready;
  }
  [[nodiscard]] const BitPlane& all() const { return all_; }

  const LetterCells grid;

 private:
  BitPlane all_;
};

std::vector<Square> inPixels(const LetterCells& grid, const Bar& bar) {
  std::vector<Square> boxes;
  for (const Square& cells : bar) boxes.push_back(grid.pixelsOf(cells));
  return boxes;
}

/// A bar to a letter on the same line, or from line to line.
std::vector<Square> barBetween(const BarSearch& search, bool sameLine) {
  auto bar = sameLine ? search.level() : search.upright();
  if (!bar) bar = sameLine ? search.upright() : search.level();
  return inPixels(search.grid, bar ? *bar : search.underline());
}

}  // namespace

WordLayout::WordLayout(const std::vector<LineInk>& lines, int capital, const CellPitch& pitch)
    : pitch_(pitch) {
  int widest = 0;
  for (const LineInk& line : lines) widest = std::max(widest, line.ink.width());
  int baseline = 0;
  int bottom = 0;
  int top = 0;
  for (const LineInk& line : lines) {
    if (line.ink.height() > 0) {
      const bool isFirst = places_.empty();
      if (isFirst) top = baseline - line.baseline;
      baseline = isFirst ? baseline : std::max(baseline, bottom + pitch.stepY + line.baseline);
      bottom = baseline - line.baseline + line.ink.height();
      if (bottom - top > InkWork::kInkSide) break;
      places_.push_back({&line, (widest - line.ink.width()) / 2, baseline - line.baseline - top});
    }
    baseline += capital + 3 * capital / 4;
  }
  if (!places_.empty()) size_ = {widest, places_.back().y + places_.back().line->ink.height()};
}

WordLayout::Letters WordLayout::lettersAt(Corner at) const {
  constexpr int kRoomCells = 6;  // for what a letter grows by, and for an underline
  Letters made;
  made.origin = {floorTo(at.x - kRoomCells * pitch_.stepX, pitch_.stepX),
                 floorTo(at.y - kRoomCells * pitch_.stepY, pitch_.stepY)};
  made.plane = {at.x - made.origin.x + size_.width + kRoomCells * pitch_.stepX,
                at.y - made.origin.y + size_.height + kRoomCells * pitch_.stepY};
  for (const Place& place : places_) {
    made.lines.push_back(
        lettersOf(*place.line, made.plane, at.x - made.origin.x + place.x, at.y - made.origin.y + place.y));
  }
  return made;
}

JoinedLetters joinLetters(const WordLayout::Letters& letters, const CellPitch& pitch) {
  Maker maker(letters, pitch);
  JoinedLetters joined;
  std::vector<std::size_t> lineBegins;
  for (const auto& line : letters.lines) {
    lineBegins.push_back(joined.letters.size());
    for (const Letter& letter : line) joined.letters.push_back(maker.make(letter));
  }
  lineBegins.push_back(joined.letters.size());
  joined.bars.resize(joined.letters.size());
  const BitPlane holes = holesOf(maker.all());
  std::optional<BitPlane> before;  // the cells of the line before
  for (std::size_t line = 0; line + 1 < lineBegins.size(); ++line) {
    std::optional<std::size_t> last;
    std::optional<BitPlane> all;
    for (std::size_t i = lineBegins[line]; i < lineBegins[line + 1]; ++i) {
      const BitPlane& cells = joined.letters[i].cells;
      if (cells.count() == 0) continue;
      if (last)
        joined.bars[i - 1] = barBetween({maker.grid, joined.letters[*last].cells, cells, holes}, true);
      last = i;
      if (all) *all |= cells;
      if (!all) all = cells;
    }
    if (all && before) {
      const auto bar = barBetween({maker.grid, *before, *all, holes}, false);
      auto& bars = joined.bars[lineBegins[line] - 1];
      bars.insert(bars.end(), bar.begin(), bar.end());
    }
    if (all) before = std::move(all);
  }
  return joined;
}

JoinedLetters plainLetters(const WordLayout::Letters& letters) {
  JoinedLetters plain;
  for (const auto& line : letters.lines) {
    for (const Letter& letter : line) plain.letters.push_back({letter.name, letter.ink(), {}, true});
  }
  plain.bars.resize(plain.letters.size());
  return plain;
}

bool canBeWhole(const WordLayout::Letters& letters, const std::string& name, const CellPitch& pitch) {
  Maker maker(letters, pitch);
  for (const auto& line : letters.lines) {
    for (const Letter& letter : line) {
      if (letter.name == name && !maker.make(letter).isOne) return false;
    }
  }
  return true;
}

}  // namespace gridwright
