#include "platform/pictures/prepare_words.h"

#include <array>
#include <charconv>
#include <string_view>
#include <utility>

#include "canvas/canvas.h"

namespace gridwright {

const std::string kPrepareUsage =
    "usage: gridwright-prepare IN OUT.bmp [--size WxH] [--wall 5..50] [--kind regular|3d|pipe] [--colours "
    "2..16]"
    " [--detail 1..5] [--outlines none|thin|thick] [--grow LIST] [--force]";

namespace {

constexpr int kSmallestWall = 5, kLargestWall = 50;

Fault wrong(const std::string& option, const std::string& value, const std::string& wanted) {
  return {Fault::Kind::malformed, option + " " + value + ": " + wanted};
}

/// A plain number within bounds, and nothing beside it.
std::optional<int> numberIn(std::string_view word, int least, int most) {
  int number = 0;
  const auto [end, error] = std::from_chars(word.data(), word.data() + word.size(), number);
  if (error != std::errc() || end != word.data() + word.size() || number < least || number > most)
    return std::nullopt;
  return number;
}

std::optional<Size> sizeIn(std::string_view word) {
  const auto by = word.find('x');
  if (by == std::string_view::npos) return std::nullopt;
  const auto width = numberIn(word.substr(0, by), 1, Canvas::kSide);
  const auto height = numberIn(word.substr(by + 1), 1, Canvas::kSide);
  if (!width || !height) return std::nullopt;
  return Size{*width, *height};
}

/// Numbers with commas between them.
std::optional<std::vector<int>> listIn(std::string_view word) {
  std::vector<int> list;
  for (;;) {
    const auto comma = word.find(',');
    const auto number = numberIn(word.substr(0, comma), 1, kMostColours);
    if (!number) return std::nullopt;
    list.push_back(*number);
    if (comma == std::string_view::npos) return list;
    word.remove_prefix(comma + 1);
  }
}

template <class Value, std::size_t kCount>
std::optional<Value> oneOf(const std::array<std::pair<std::string_view, Value>, kCount>& choices,
                           std::string_view word) {
  for (const auto& [name, value] : choices) {
    if (name == word) return value;
  }
  return std::nullopt;
}

constexpr std::array<std::pair<std::string_view, MazeKind>, 3> kKinds = {
    {{"regular", MazeKind::regular}, {"3d", MazeKind::threeD}, {"pipe", MazeKind::pipe}}};
constexpr std::array<std::pair<std::string_view, Outlines>, 3> kOutlines = {
    {{"none", Outlines::none}, {"thin", Outlines::thin}, {"thick", Outlines::thick}}};

/// Puts a value where it belongs, if there is one. \returns whether there was.
template <class Value, class Place>
bool put(const std::optional<Value>& value, Place& place) {
  if (value) place = *value;
  return value.has_value();
}

/// \returns what the option wants, where the value is not that; nothing when it is.
std::optional<std::string> readOption(const std::string& option, const std::string& value,
                                      PrepareWords& line) {
  const auto wanted = [](bool good, const char* words) {
    return good ? std::nullopt : std::optional<std::string>(words);
  };
  if (option == "--size") return wanted(put(sizeIn(value), line.size), "a size is WxH, 1x1 to 1000x1000");
  if (option == "--wall")
    return wanted(put(numberIn(value, kSmallestWall, kLargestWall), line.wallSize),
                  "a wall is 5 to 50 pixels");
  if (option == "--kind")
    return wanted(put(oneOf(kKinds, value), line.kind), "a kind is regular, 3d or pipe");
  if (option == "--colours")
    return wanted(put(numberIn(value, kFewestColours, kMostColours), line.settings.colours),
                  "there are 2 to 16 colours, paper counted");
  if (option == "--detail")
    return wanted(put(numberIn(value, kCoarsest, kFinest), line.settings.detail), "a detail is 1 to 5");
  if (option == "--outlines")
    return wanted(put(oneOf(kOutlines, value), line.settings.outlines), "outlines are none, thin or thick");
  if (option == "--grow")
    return wanted(put(listIn(value), line.settings.grow),
                  "numbers of colours, the largest area's is 1, as in 1,3,4");
  return "no such option";
}

}  // namespace

Outcome<PrepareWords> readPrepareWords(const std::vector<std::string>& words) {
  PrepareWords line;
  std::vector<std::string> files;
  bool onlyFiles = false;  // after a --, since a name may begin with a dash
  for (std::size_t i = 0; i < words.size(); ++i) {
    const std::string& word = words[i];
    if (!onlyFiles && word == "--") {
      onlyFiles = true;
    } else if (!onlyFiles && word == "--force") {
      line.mayReplace = true;
    } else if (!onlyFiles && word.size() > 1 && word[0] == '-') {
      if (i + 1 == words.size()) return wrong(word, "", "a value is missing, or there is no such option");
      const std::string& value = words[++i];
      if (const auto wanted = readOption(word, value, line)) return wrong(word, value, *wanted);
    } else {
      files.push_back(word);
    }
  }
  if (files.size() != 2 || files[0].empty() || files[1].empty())
    return Fault{Fault::Kind::malformed, kPrepareUsage};
  line.in = files[0];
  line.out = files[1];
  return line;
}

}  // namespace gridwright
