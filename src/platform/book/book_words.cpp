#include "platform/book/book_words.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <utility>

#include "canvas/colour.h"
#include "state/setting_words.h"

namespace gridwright::book {
namespace {

template <class Value, std::size_t kCount>
using Words = SettingWords<Value, kCount>;

constexpr Words<Ends, 4> kEnds = {{{Ends::set, "set"},
                                   {Ends::farthest, "farthest"},
                                   {Ends::farthestUnderpasses, "farthest-underpasses"},
                                   {Ends::mostUnderpasses, "most-underpasses"}}};
constexpr Words<Answers, 4> kAnswers = {
    {{Answers::none, "none"}, {Answers::after, "after"}, {Answers::end, "end"}, {Answers::file, "file"}}};
constexpr Words<MazeFormat, 2> kFormats = {{{MazeFormat::vector, "vector"}, {MazeFormat::pixels, "pixels"}}};
/// What people call three of the palette's colours besides.
constexpr Words<int, 3> kOtherNames = {{{8, "grey"}, {11, "aqua"}, {13, "fuchsia"}}};

constexpr double kPerInch = 72000, kPerMillimetre = kPerInch / 25.4;  // thousandths of a point
constexpr int kMostTiles = 20, kMostParts = 10'000;

int thousandths(double length, double unit) { return static_cast<int>(std::lround(length * unit)); }

/// The papers that have a name, in millimetres.
struct NamedPaper {
  std::string_view name;
  double width, height;
};
constexpr std::array<NamedPaper, 5> kPapers = {{{"a3", 297, 420},
                                                {"a4", 210, 297},
                                                {"a5", 148, 210},
                                                {"letter", 215.9, 279.4},
                                                {"legal", 215.9, 355.6}}};

template <class Value, std::size_t kCount>
std::optional<Value> valueIn(const Words<Value, kCount>& words, std::string_view word) {
  for (const auto& [value, name] : words)
    if (name == word) return value;
  return std::nullopt;
}

std::optional<int> colourOf(std::string_view name) {
  const auto* found = std::find(kPaletteNames.begin(), kPaletteNames.end(), name);
  if (found != kPaletteNames.end()) return static_cast<int>(found - kPaletteNames.begin());
  return valueIn(kOtherNames, name);
}

/// A number without sign, exponent or anything before and behind it.
std::optional<double> plainNumber(std::string_view word) {
  const auto isPlain = [](char c) { return (c >= '0' && c <= '9') || c == '.'; };
  if (word.empty() || !std::all_of(word.begin(), word.end(), isPlain)) return std::nullopt;
  double number = 0;
  const auto [end, error] = std::from_chars(word.data(), word.data() + word.size(), number);
  if (error != std::errc{} || end != word.data() + word.size()) return std::nullopt;
  return number;
}

/// Takes the unit off the end of a word. \returns its size in thousandths of a point, 0 for no unit.
double takeUnit(std::string_view& word) {
  const double unit = word.ends_with("mm") ? kPerMillimetre : word.ends_with("in") ? kPerInch : 0;
  if (unit > 0) word.remove_suffix(2);
  return unit;
}

}  // namespace

std::string_view wordOf(MazeKind kind) { return wordIn(kMazeKindWords, kind); }
std::string_view wordOf(Ends ends) { return wordIn(kEnds, ends); }
std::string_view wordOf(Answers answers) { return wordIn(kAnswers, answers); }
std::string_view wordOf(MazeFormat format) { return wordIn(kFormats, format); }

std::string_view pathsWord(bool large) { return wordIn(kPathsWords, large); }
std::string_view underpassesWord(bool isShort) { return wordIn(kUnderpassesWords, isShort); }

std::string wordOf(const Part& part) { return std::to_string(part.number) + "/" + std::to_string(part.of); }

std::string wordOf(const ColourPair& pair) {
  const auto name = [](int colour) {
    return std::string(kPaletteNames.at(static_cast<std::size_t>(colour)));
  };
  return name(pair.ground) + "=" + name(pair.corridor);
}

std::string wordOf(Tiles tiles) { return std::to_string(tiles.columns) + "x" + std::to_string(tiles.rows); }

std::string wordOf(const PatternWish& patterns) {
  if (patterns.kind == PatternWish::Kind::none) return "none";
  if (patterns.kind == PatternWish::Kind::set) return patterns.name;
  return "random:" + std::to_string(patterns.size);
}

std::optional<MazeKind> kindOf(std::string_view word) { return valueIn(kMazeKindWords, word); }
std::optional<Ends> endsOf(std::string_view word) { return valueIn(kEnds, word); }
std::optional<Answers> answersOf(std::string_view word) { return valueIn(kAnswers, word); }
std::optional<MazeFormat> formatOf(std::string_view word) { return valueIn(kFormats, word); }

std::optional<bool> pathsOf(std::string_view word) { return valueIn(kPathsWords, word); }
std::optional<bool> underpassesOf(std::string_view word) { return valueIn(kUnderpassesWords, word); }

std::optional<Part> partOf(std::string_view word) {
  const auto slash = word.find('/');
  if (slash == std::string_view::npos) return std::nullopt;
  const auto of = wholeNumberOf(word.substr(slash + 1), 1, kMostParts);
  const auto number = wholeNumberOf(word.substr(0, slash), 1, of.value_or(1));
  if (!of || !number) return std::nullopt;
  return Part{*number, *of};
}

std::optional<ColourPair> colourPairOf(std::string_view word) {
  const auto equals = word.find('=');
  if (equals == std::string_view::npos) return std::nullopt;
  const auto ground = colourOf(word.substr(0, equals));
  const auto corridor = colourOf(word.substr(equals + 1));
  if (!ground || !corridor || ground == corridor) return std::nullopt;
  return ColourPair{*ground, *corridor};
}

// What prints numbers for people asks their language, and a page has its words from no desktop.
std::string pointNumber(double number, int digits) {
  std::array<char, 400> text{};
  const auto end =
      std::to_chars(text.data(), text.data() + text.size(), number, std::chars_format::fixed, digits).ptr;
  return {text.data(), end};
}

std::optional<int> wholeNumberOf(std::string_view word, int least, int most) {
  int number = 0;
  const auto [end, error] = std::from_chars(word.data(), word.data() + word.size(), number);
  if (word.empty() || error != std::errc{} || end != word.data() + word.size()) return std::nullopt;
  if (number < least || number > most) return std::nullopt;
  return number;
}

std::optional<Tiles> tilesOf(std::string_view word) {
  const auto cross = word.find('x');
  if (cross == std::string_view::npos) return std::nullopt;
  const auto columns = wholeNumberOf(word.substr(0, cross), 1, kMostTiles);
  const auto rows = wholeNumberOf(word.substr(cross + 1), 1, kMostTiles);
  if (!columns || !rows) return std::nullopt;
  return Tiles{*columns, *rows};
}

std::optional<PatternWish> patternsOf(std::string_view word) {
  using Kind = PatternWish::Kind;
  if (word.empty()) return std::nullopt;
  if (word == "none") return PatternWish{};
  if (word == "random") return PatternWish{Kind::random, 5, {}};
  if (word.starts_with("random:")) {
    const auto size = wholeNumberOf(word.substr(7), 2, 99);
    if (!size) return std::nullopt;
    return PatternWish{Kind::random, *size, {}};
  }
  return PatternWish{Kind::set, 5, std::string(word)};
}

std::optional<Paper> paperOf(std::string_view word) {
  for (const NamedPaper& paper : kPapers)
    if (paper.name == word)
      return Paper{std::string(word), thousandths(paper.width, kPerMillimetre),
                   thousandths(paper.height, kPerMillimetre)};
  std::string_view measures = word;
  const double unit = takeUnit(measures);
  const auto cross = measures.find('x');
  if (unit == 0 || cross == std::string_view::npos) return std::nullopt;
  const auto width = plainNumber(measures.substr(0, cross));
  const auto height = plainNumber(measures.substr(cross + 1));
  const auto fits = [&](double side) {
    return side * unit >= 50 * kPerMillimetre && side * unit <= 1200 * kPerMillimetre;
  };
  if (!width || !height || !fits(*width) || !fits(*height)) return std::nullopt;
  return Paper{std::string(word), thousandths(*width, unit), thousandths(*height, unit)};
}

std::optional<int> lengthOf(std::string_view word) {
  if (word == "0") return 0;
  const double unit = takeUnit(word);
  const auto length = plainNumber(word);
  if (unit == 0 || !length || *length * unit > 1200 * kPerMillimetre) return std::nullopt;
  return thousandths(*length, unit);
}

bool isCaption(std::string_view words) {
  constexpr auto kNames = std::to_array<std::string_view>({"n", "picture", "seed", "cells", "difficulty"});
  for (;;) {
    const auto open = words.find_first_of("{}");
    if (open == std::string_view::npos) return true;
    const auto close = words.find('}', open);
    if (words[open] == '}' || close == std::string_view::npos) return false;
    const std::string_view name = words.substr(open + 1, close - open - 1);
    if (std::find(kNames.begin(), kNames.end(), name) == kNames.end()) return false;
    words.remove_prefix(close + 1);
  }
}

}  // namespace gridwright::book
