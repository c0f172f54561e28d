#include "platform/pictures/prepare_words.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <string_view>
#include <utility>

#include "canvas/canvas.h"

namespace gridwright {

const std::string kPrepareUsage =
    "usage: gridwright-prepare IN OUT.bmp [--size WxH] [--wall 5..50] [--kind regular|3d|pipe] [--colours "
    "2..16]"
    " [--detail 1..5] [--outlines none|thin|thick] [--grow LIST] [--force]\n"
    "       gridwright-prepare --words TEXT [--font NAME] [--height CELLS] [--colour 0..14|turn] [--join "
    "0|1] "
    "[--frame] [--wall 5..50] [--kind regular|3d|pipe] [--force] OUT.bmp";

namespace {

constexpr int kSmallestWall = 5, kLargestWall = 50;
constexpr int kMostCellsHigh = 200;

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

/// What is wanted of a value that was not understood; nothing of one that was.
using Wanted = std::optional<std::string>;

Wanted wanted(bool good, const char* words) { return good ? std::nullopt : Wanted(words); }

/// \returns nothing where it is no option of words.
std::optional<Wanted> readWordOption(const std::string& option, const std::string& value,
                                     WordSettings& words) {
  if (option == "--words") {
    words.text = value;
    return wanted(!value.empty(), "there are no words");
  }
  if (option == "--font") {
    words.font = value;
    return wanted(!value.empty(), "a font has a name");
  }
  if (option == "--height") {
    words.height = numberIn(value, 1, kMostCellsHigh);
    return wanted(words.height.has_value(), "a capital is 1 to 200 cells high");
  }
  if (option == "--colour") {
    words.colour = numberIn(value, 0, kPaperInk - 1);
    return wanted(words.colour || value == "turn", "a colour is 0 to 14, or turn");
  }
  if (option == "--join") {
    words.join = value == "1";
    return wanted(value == "0" || value == "1", "letters are joined, 1, or not, 0");
  }
  return std::nullopt;
}

Wanted readPictureOption(const std::string& option, const std::string& value, PrepareWords& line) {
  if (option == "--size") return wanted(put(sizeIn(value), line.size), "a size is WxH, 1x1 to 1000x1000");
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

/// A command line as it is read, and which of its options go with words alone, and with pictures alone.
class Reader {
 public:
  explicit Reader(const std::vector<std::string>& words) : words_(words) { settings_.height.reset(); }

  Outcome<PrepareWords> read() {
    for (std::size_t i = 0; i < words_.size(); ++i) {
      const std::string& word = words_[i];
      if (onlyFiles_ || word.size() < 2 || word[0] != '-') {
        files_.push_back(word);
      } else if (!readFlag(word)) {
        if (i + 1 == words_.size()) return wrong(word, "", "a value is missing, or there is no such option");
        const std::string& value = words_[++i];
        if (const auto faulty = readOption(word, value)) return wrong(word, value, *faulty);
      }
    }
    return whole();
  }

 private:
  bool readFlag(const std::string& word) {
    if (word == "--") {
      onlyFiles_ = true;  // a name may begin with a dash
    } else if (word == "--force") {
      line_.mayReplace = true;
    } else if (word == "--frame") {
      settings_.frame = true;
      ofWords_ = word;
    } else {
      return false;
    }
    return true;
  }

  Wanted readOption(const std::string& option, const std::string& value) {
    if (option == "--wall")
      return wanted(put(numberIn(value, kSmallestWall, kLargestWall), line_.wallSize),
                    "a wall is 5 to 50 pixels");
    if (option == "--kind")
      return wanted(put(oneOf(kKinds, value), line_.kind), "a kind is regular, 3d or pipe");
    if (const auto faulty = readWordOption(option, value, settings_)) {
      ofWords_ = option;
      paintsWords_ = paintsWords_ || option == "--words";
      return *faulty;
    }
    ofPictures_ = option;
    return readPictureOption(option, value, line_);
  }

  Outcome<PrepareWords> whole() {
    const std::string& astray = paintsWords_ ? ofPictures_ : ofWords_;
    if (!astray.empty())
      return wrong(astray, "", paintsWords_ ? "does not go with --words" : "goes with --words alone");
    const std::size_t wantedFiles = paintsWords_ ? 1 : 2;
    const bool isNamed =
        std::none_of(files_.begin(), files_.end(), [](const auto& file) { return file.empty(); });
    if (files_.size() != wantedFiles || !isNamed)
      return Fault{Fault::Kind::malformed, firstLine(kPrepareUsage)};
    if (paintsWords_) {
      line_.words = settings_;
    } else {
      line_.in = files_.front();
    }
    line_.out = files_.back();
    return line_;
  }

  static std::string firstLine(const std::string& text) { return text.substr(0, text.find('\n')); }

  const std::vector<std::string>& words_;
  PrepareWords line_;
  WordSettings settings_;
  std::vector<std::string> files_;
  std::string ofWords_, ofPictures_;  ///< The last option of each that was read.
  bool onlyFiles_ = false, paintsWords_ = false;
};

}  // namespace

Outcome<PrepareWords> readPrepareWords(const std::vector<std::string>& words) { return Reader(words).read(); }

}  // namespace gridwright
