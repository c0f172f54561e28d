#include "pictures/words.h"

#include <algorithm>
#include <cstdint>
#include <utility>

#include "pictures/word_layout.h"

namespace gridwright {

namespace {

constexpr int kHighest = 1000;  ///< Of a capital, in pixels.

bool beginsALetter(char byte) { return (static_cast<unsigned char>(byte) & 0xC0) != 0x80; }

/// The lines of a text, no more letters than are painted, blanks counted. Other things than letters that a
/// text can hold count as blanks.
struct Lines {
  std::vector<std::string> lines{1};
  bool isCut = false;
};

Lines linesOf(const std::string& text) {
  Lines read;
  int letters = 0;
  for (const char byte : text) {
    const bool endsLine = byte == '\n';
    if (beginsALetter(byte) && !endsLine) ++letters;
    if (letters > kMostLetters || read.lines.size() > kMostLetters) {
      read.isCut = true;
      break;
    }
    if (endsLine) {
      read.lines.emplace_back();
    } else {
      read.lines.back() += static_cast<unsigned char>(byte) < ' ' ? ' ' : byte;
    }
  }
  return read;
}

/// Letters at a place, with all that belongs to them.
struct Composed {
  JoinedLetters joined;
  BitPlane all;   ///< Letters and bars.
  Corner origin;  ///< Of its plane, on the sheet.
  Square box;     ///< Of all that is painted, frame included, on the sheet.
};

/// One text on one ground.
class Words {
 public:
  Words(const WordSettings& settings, const WordGround& ground, InkWork& work)
      : settings_(settings), ground_(ground), work_(work), text_(linesOf(settings.text)) {}

  WordInk make() {
    if (settings_.height) {
      capital_ = std::clamp(std::clamp(*settings_.height, 1, kHighest) * ground_.pitch.stepY, 1, kHighest);
      place();
    } else {
      fit();
    }
    WordInk made;
    if (!composed_.joined.letters.empty()) paint(made);
    made.note = note();
    return made;
  }

 private:
  void render(int capital) {
    rendered_.clear();
    for (const std::string& line : text_.lines)
      rendered_.push_back(work_.line(line, {settings_.font, settings_.bold, capital}));
  }

  Composed composeAt(const WordLayout& layout, Corner at) const {
    const WordLayout::Letters letters = layout.lettersAt(at);
    Composed made;
    made.joined = settings_.join ? joinLetters(letters, ground_.pitch) : plainLetters(letters);
    made.origin = letters.origin;
    made.all = BitPlane(letters.plane);
    for (const ReadyLetter& letter : made.joined.letters) made.all |= letter.ink;
    for (const auto& bars : made.joined.bars) {
      for (const Square& box : bars) made.all.setBox(box);
    }
    made.box = made.all.bounds().moved(made.origin.x, made.origin.y);
    if (settings_.frame) {
      const Size wide{4 * ground_.pitch.stepX, 4 * ground_.pitch.stepY};  // two cells away, two thick
      made.box = {made.box.left - wide.width, made.box.top - wide.height, made.box.right + wide.width,
                  made.box.bottom + wide.height};
    }
    return made;
  }

  /// What is painted comes to lie where it is wanted. That depends on where it lies, since letters are made
  /// thick for the cells beneath them; a few tries find it.
  void place() {
    constexpr int kTries = 5;
    render(capital_);
    const WordLayout layout(rendered_, capital_, ground_.pitch);
    laidLines_ = layout.lines();
    if (layout.size() == Size{}) return;
    Corner at = wanted(layout.size());
    for (int i = 0; i < kTries; ++i) {
      composed_ = composeAt(layout, at);
      const Square& box = composed_.box;
      const Corner want = wanted({box.right - box.left + 1, box.bottom - box.top + 1});
      if (want.x == box.left && want.y == box.top) return;
      at = {at.x + want.x - box.left, at.y + want.y - box.top};
    }
  }

  [[nodiscard]] Corner wanted(Size size) const {
    constexpr int kFar = 100'000;
    if (ground_.place)
      return {std::clamp(ground_.place->x, -kFar, kFar), std::clamp(ground_.place->y, -kFar, kFar)};
    return {(ground_.size.width - size.width) / 2, (ground_.size.height - size.height) / 2};
  }

  /// As large as leaves the margin free: the size that a first try tells, and smaller until all of it fits.
  void fit() {
    const Size margin{ground_.margin * ground_.pitch.stepX, ground_.margin * ground_.pitch.stepY};
    const Corner from = ground_.place.value_or(Corner{margin.width, margin.height});
    const Size room{ground_.size.width - margin.width - std::clamp(from.x, 0, ground_.size.width),
                    ground_.size.height - margin.height - std::clamp(from.y, 0, ground_.size.height)};
    capital_ = std::clamp(ground_.size.height, 1, kHighest / 4);
    render(capital_);
    const Size first = WordLayout(rendered_, capital_, ground_.pitch).size();
    if (first == Size{}) return;
    shrink(room, first);
    for (;;) {
      place();
      const Size size{composed_.box.right - composed_.box.left + 1,
                      composed_.box.bottom - composed_.box.top + 1};
      if (capital_ == 1 || (size.width <= room.width && size.height <= room.height)) return;
      shrink(room, size);
    }
  }

  /// Makes capitals as high as would make this size fit, were all in proportion, and at least a little lower
  /// than when they did not fit.
  void shrink(Size room, Size size) {
    const std::int64_t byWidth = std::int64_t{capital_} * std::max(room.width, 1) / size.width;
    const std::int64_t byHeight = std::int64_t{capital_} * std::max(room.height, 1) / size.height;
    const auto fits = static_cast<int>(std::clamp<std::int64_t>(std::min(byWidth, byHeight), 1, kHighest));
    capital_ = composed_.joined.letters.empty() ? fits : std::max(1, std::min(fits, capital_ - 1));
  }

  [[nodiscard]] Colour colourOf(std::size_t letter) const {
    if (settings_.colour) return colourOfInk(std::clamp(*settings_.colour, 0, kPaperInk));
    return ground_.turns.empty() ? colourOfInk(1) : colourOfInk(ground_.turns[letter % ground_.turns.size()]);
  }

  void paint(WordInk& made) const {
    const Square& box = composed_.box;
    made.at = {box.left, box.top};
    made.picture = plainBitmap(box.right - box.left + 1, box.bottom - box.top + 1, kPaper);
    const auto fill = [&](const Square& part, Colour colour) {
      for (int y = part.top; y <= part.bottom; ++y) {
        const auto row = made.picture.pixels.begin() + std::ptrdiff_t{y} * made.picture.width;
        std::fill(row + part.left, row + part.right + 1, colour);
      }
    };
    if (settings_.frame) {
      const CellPitch& cell = ground_.pitch;
      fill({0, 0, made.picture.width - 1, made.picture.height - 1},
           colourOfInk(std::clamp(ground_.frameInk, 0, kPaperInk)));
      fill({2 * cell.stepX, 2 * cell.stepY, made.picture.width - 1 - 2 * cell.stepX,
            made.picture.height - 1 - 2 * cell.stepY},
           kPaper);
    }
    const int dx = composed_.origin.x - box.left;
    const int dy = composed_.origin.y - box.top;
    const auto& [letters, bars] = composed_.joined;
    for (std::size_t i = 0; i < letters.size(); ++i) {
      for (const Square& bar : bars[i]) fill(bar.moved(dx, dy), colourOf(i));
    }
    for (std::size_t i = 0; i < letters.size(); ++i) {
      forRuns(letters[i].ink, [&](int y, int left, int right) {
        fill({left + dx, y + dy, right + dx, y + dy}, colourOf(i));
      });
    }
  }

  [[nodiscard]] std::string note() const;
  [[nodiscard]] std::vector<std::string> heightsFor(std::vector<std::string> names) const;
  [[nodiscard]] std::vector<std::string> leftOut() const;
  [[nodiscard]] std::vector<std::string> apart() const;
  [[nodiscard]] bool isOff(const ReadyLetter& letter) const;

  const WordSettings& settings_;
  const WordGround& ground_;
  InkWork& work_;
  Lines text_;
  int capital_ = 1;
  std::vector<LineInk> rendered_;
  std::size_t laidLines_ = 0;  ///< Of those with ink, how many were not left out.
  Composed composed_;
};

/// Names as they stand in a note, each once.
std::string listOf(const std::vector<std::string>& names) {
  std::string list;
  std::vector<std::string> told;
  for (const std::string& name : names) {
    if (std::find(told.begin(), told.end(), name) != told.end()) continue;
    told.push_back(name);
    list += (list.empty() ? "\"" : ", \"") + name + "\"";
  }
  return list;
}

bool Words::isOff(const ReadyLetter& letter) const {
  const Square box = letter.ink.bounds().moved(composed_.origin.x, composed_.origin.y);
  return box.left < 0 || box.top < 0 || box.right >= ground_.size.width || box.bottom >= ground_.size.height;
}

/// The letters of which a cell, counted on the sheet, does not belong to the one region, and those without a
/// cell.
std::vector<std::string> Words::apart() const {
  const CellPitch& pitch = ground_.pitch;
  const LetterCells grid(composed_.all.size(), pitch);
  BitPlane cells = grid.cellsOf(composed_.all);
  BitPlane onSheet(cells.size());
  const auto place = [](int at, int step) { return at / step; };
  onSheet.setBox(
      {-place(composed_.origin.x, pitch.stepX), -place(composed_.origin.y, pitch.stepY),
       place(lastGridLine(pitch.wall, pitch.stepX, ground_.size.width) - pitch.wall, pitch.stepX) -
           place(composed_.origin.x, pitch.stepX),
       place(lastGridLine(pitch.wall, pitch.stepY, ground_.size.height) - pitch.wall, pitch.stepY) -
           place(composed_.origin.y, pitch.stepY)});
  cells &= onSheet;
  BitPlane left = cells;
  BitPlane main(cells.size());
  for (int row = 0; row < left.height(); ++row) {
    for (int column = left.next(row, 0, true); column < left.width(); column = left.next(row, column, true)) {
      const BitPlane region = grid.regionFrom(composed_.all, left, {column, row});
      left.without(region);
      if (region.count() > main.count()) main = region;
    }
  }
  cells.without(main);
  BitPlane stray(composed_.all.size());
  forRuns(cells, [&](int y, int from, int to) { stray.setBox(grid.pixelsOf({from, y, to, y})); });
  std::vector<std::string> names;
  for (const ReadyLetter& letter : composed_.joined.letters) {
    BitPlane inMain = grid.cellsOf(letter.ink);
    inMain &= main;
    BitPlane astray = stray;
    astray &= letter.ink;
    if (inMain.count() == 0 || astray.count() > 0) names.push_back(letter.name);
  }
  return names;
}

/// What is said of letters that are not one region: at which height each would be.
std::vector<std::string> Words::heightsFor(std::vector<std::string> names) const {
  constexpr int kMostMore = 30;  ///< Cells: a letter that needs more is none that a maze is made of.
  std::vector<std::string> told;
  const int present = (capital_ + ground_.pitch.stepY - 1) / ground_.pitch.stepY;
  const int highest = std::min(present + kMostMore, kHighest / ground_.pitch.stepY);
  for (int height = present + 1; height <= highest && !names.empty(); ++height) {
    std::vector<LineInk> lines;
    const int capital = height * ground_.pitch.stepY;
    for (const std::string& line : text_.lines)
      lines.push_back(work_.line(line, {settings_.font, settings_.bold, capital}));
    const WordLayout layout(lines, capital, ground_.pitch);
    const WordLayout::Letters letters = layout.lettersAt(wanted(layout.size()));
    std::erase_if(names, [&](const std::string& name) {
      if (!canBeWhole(letters, name, ground_.pitch)) return false;
      told.push_back("\"" + name + "\" is not one region, from a height of " + std::to_string(height) +
                     " cells on it is");
      return true;
    });
  }
  for (const std::string& name : names) told.push_back("\"" + name + "\" is not one region at any height");
  return told;
}

/// Letters that were cut off, or whose line was, before there was any ink of them to be painted.
std::vector<std::string> Words::leftOut() const {
  std::vector<std::string> names;
  std::size_t inked = 0;
  for (const LineInk& line : rendered_) {
    const bool isLaid = line.ink.height() == 0 || inked++ < laidLines_;
    for (const LetterExtent& letter : line.letters) {
      if (!isLaid || letter.left >= line.ink.width()) names.push_back(letter.text);
    }
  }
  return names;
}

std::string Words::note() const {
  std::string note;
  const auto tell = [&](const std::string& words) { note += (note.empty() ? "" : "; ") + words; };
  std::vector<std::string> missing;
  for (const LineInk& line : rendered_)
    missing.insert(missing.end(), line.missing.begin(), line.missing.end());
  if (text_.isCut) tell("only the first " + std::to_string(kMostLetters) + " letters are painted");
  if (!missing.empty()) tell("no font has " + listOf(missing));
  const auto& letters = composed_.joined.letters;
  if (letters.empty()) tell("there is nothing to paint");
  std::vector<std::string> off;
  for (const ReadyLetter& letter : letters) {
    if (isOff(letter)) off.push_back(letter.name);
  }
  for (const std::string& name : leftOut()) off.push_back(name);
  if (!off.empty()) tell("there is no room for " + listOf(off));
  if (!settings_.join || letters.empty()) return note;
  std::vector<std::string> told = off;
  std::vector<std::string> broken;
  for (const ReadyLetter& letter : letters) {
    if (letter.isOne || std::find(told.begin(), told.end(), letter.name) != told.end()) continue;
    told.push_back(letter.name);
    broken.push_back(letter.name);
  }
  for (const std::string& words : heightsFor(broken)) tell(words);
  std::vector<std::string> others = apart();
  std::erase_if(others, [&](const std::string& name) {
    return std::find(told.begin(), told.end(), name) != told.end();
  });
  if (!others.empty()) tell(listOf(others) + " could not be joined");
  return note;
}

}  // namespace

WordInk makeWords(const WordSettings& settings, const WordGround& ground, InkWork& work) {
  return Words(settings, ground, work).make();
}

}  // namespace gridwright
