#include "platform/qt/command_line.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <string_view>

namespace gridwright {

namespace {

/// Qt takes each with one dash or with two.
constexpr auto kQtWithValue = std::to_array<std::string_view>(
    {"platform", "platformpluginpath", "platformtheme", "plugin", "qwindowgeometry", "geometry",
     "qwindowtitle", "title", "qwindowicon", "icon", "session", "style", "stylesheet", "display", "name"});
constexpr auto kQtAlone =
    std::to_array<std::string_view>({"reverse", "widgetcount", "nograb", "dograb", "sync"});
constexpr auto kQtWithSign = std::to_array<std::string_view>({"style", "stylesheet", "qmljsdebugger"});

template <std::size_t n>
bool has(const std::array<std::string_view, n>& names, std::string_view name) {
  return std::find(names.begin(), names.end(), name) != names.end();
}

/// How many words an option of Qt takes, itself among them; 0 for one that Qt does not know.
std::size_t wordsOfQt(std::string_view word) {
  word.remove_prefix(word.starts_with("--") ? 2 : 1);
  const std::size_t sign = word.find('=');
  if (sign != std::string_view::npos) return has(kQtWithSign, word.substr(0, sign)) ? 1 : 0;
  if (has(kQtWithValue, word)) return 2;
  return has(kQtAlone, word) ? 1 : 0;
}

CommandLine complaining(std::string words) {
  CommandLine line;
  line.complaint = "gridwright: " + std::move(words) + "; gridwright --help says more";
  return line;
}

}  // namespace

CommandLine readCommandLine(const std::vector<char*>& words) {
  CommandLine line;
  if (!words.empty()) line.forQt.push_back(words.front());
  bool filesOnly = false;
  for (std::size_t i = 1; i < words.size(); ++i) {
    const std::string_view word = words[i];
    if (filesOnly || word.size() < 2 || word[0] != '-') {
      if (word.empty()) return complaining("an empty word names no file");
      if (line.file) return complaining("one picture or drawing can be opened, not more");
      line.file = std::string(word);
    } else if (word == "--") {
      filesOnly = true;
    } else if (word == "--help" || word == "-h") {
      line.wantsHelp = true;
    } else if (word == "--version") {
      line.wantsVersion = true;
    } else {
      const bool isWork = word == "--work";
      const std::size_t taken = isWork ? 2 : wordsOfQt(word);
      if (taken == 0) return complaining("there is no option " + std::string(word));
      if (i + taken > words.size()) return complaining(std::string(word) + " wants a word after it");
      if (isWork) {
        line.workFolder = words[i + 1];
      } else {
        line.forQt.insert(line.forQt.end(), words.begin() + static_cast<std::ptrdiff_t>(i),
                          words.begin() + static_cast<std::ptrdiff_t>(i + taken));
      }
      i += taken - 1;
    }
  }
  return line;
}

}  // namespace gridwright
