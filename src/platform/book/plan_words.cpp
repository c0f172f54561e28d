#include "platform/book/plan_words.h"

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/book/book_words.h"

namespace gridwright::book {

namespace {

/// Options as a command line gives them, one after the other.
class OptionWords {
 public:
  void add(std::string_view option, const std::string& value) {
    if (!words_.empty()) words_ += "; ";
    words_.append(option).append(" ").append(value);
  }
  template <class Value, class Word>
  void addList(std::string_view option, const std::vector<Value>& values, Word&& word) {
    std::string text;
    for (const auto& value : values) text.append(text.empty() ? "" : ",").append(word(value));
    if (!text.empty()) add(option, text);
  }
  [[nodiscard]] const std::string& words() const { return words_; }

 private:
  std::string words_;
};

std::string settingsOf(const BookPlan& plan) {
  const WishedSettings& wished = plan.wished;
  OptionWords options;
  options.add("seed", std::to_string(plan.seed));
  options.addList("kind", wished.kinds, [](MazeKind kind) { return wordOf(kind); });
  options.addList("wall", wished.walls, [](int wall) { return std::to_string(wall); });
  options.addList("difficulty", wished.difficulties, [](int level) { return std::to_string(level); });
  options.addList("paths", wished.largePaths, [](bool large) { return pathsWord(large); });
  options.addList("underpasses", wished.shortUnderpasses,
                  [](bool isShort) { return underpassesWord(isShort); });
  options.addList("patterns", wished.patterns, [](const PatternWish& wish) { return wordOf(wish); });
  options.addList("ends", wished.ends, [](Ends ends) { return wordOf(ends); });
  options.addList("maze-colours", wished.mazeColours, [](const ColourPair& pair) { return wordOf(pair); });
  if (plan.sortByDifficulty) options.add("sort", "difficulty");
  return options.words();
}

}  // namespace

DocumentWords documentWordsOf(const BookPlan& plan, std::size_t mazes) {
  DocumentWords about;
  about.title = plan.title.empty() ? "Mazes" : plan.title;
  about.subject =
      std::to_string(mazes) + (mazes == 1 ? " maze" : " mazes") + " from seed " + std::to_string(plan.seed);
  about.keywords = settingsOf(plan);
  about.creator = "gridwright-book " GRIDWRIGHT_VERSION;
  return about;
}

}  // namespace gridwright::book
