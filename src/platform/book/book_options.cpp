#include "platform/book/book_options.h"

#include <algorithm>
#include <array>
#include <functional>
#include <optional>
#include <set>
#include <thread>
#include <utility>

#include "platform/book/book_words.h"
#include "platform/book/maze_counts.h"
#include "platform/book/page_plan.h"
#include "state/export_panel.h"

namespace gridwright::book {

namespace {

constexpr int kMostJobs = 1024;

Fault fault(std::string words) { return {Fault::Kind::malformed, std::move(words)}; }

/// Puts a value where it belongs, if there is one. \returns whether there was.
template <class Value, class Place>
bool put(Value&& value, Place& place) {
  if (value) place = *std::forward<Value>(value);
  return static_cast<bool>(value);
}

/// Values with commas between them; none of it is taken where one of them is none.
template <class Value, class Read>
bool putList(std::string_view words, std::vector<Value>& place, Read read) {
  std::vector<Value> list;
  for (;;) {
    const auto comma = words.find(',');
    const std::optional<Value> value = read(words.substr(0, comma));
    if (!value) return false;
    list.push_back(*value);
    if (comma == std::string_view::npos) break;
    words.remove_prefix(comma + 1);
  }
  place = std::move(list);
  return true;
}

auto within(int least, int most) {
  return [=](std::string_view word) { return wholeNumberOf(word, least, most); };
}

bool putSeed(std::string_view word, BookLine& line) {
  constexpr std::size_t kMostDigits = 10;
  const bool isPlain = !word.empty() && word.size() <= kMostDigits &&
                       std::all_of(word.begin(), word.end(), [](char c) { return c >= '0' && c <= '9'; });
  const unsigned long long seed = isPlain ? std::stoull(std::string(word)) : ~0ULL;
  if (seed > 0xFFFFFFFFULL) return false;
  line.plan.seed = static_cast<std::uint32_t>(seed);
  line.hasSeed = true;
  return true;
}

/// A mode, or the file that the answers go to.
bool putAnswers(const std::string& word, BookLine& line) {
  if (word.ends_with(".pdf") && word.size() > 4) {
    line.plan.answers = Answers::file;
    line.run.answersFile = word;
    return true;
  }
  line.run.answersFile.clear();
  return word != wordOf(Answers::file) && put(answersOf(word), line.plan.answers);
}

/// A folder, and how many dots an inch its pictures have where it ends in a colon and a number.
bool putPngFolder(const std::string& word, BookLine& line) {
  const auto colon = word.rfind(':');
  const std::string behind = colon == std::string::npos ? "" : word.substr(colon + 1);
  const bool isNumber = !behind.empty() && behind.find_first_not_of("0123456789") == std::string::npos;
  line.run.pngFolder = isNumber ? word.substr(0, colon) : word;
  if (isNumber && !put(wholeNumberOf(behind, kLeastDpi, kMostDpi), line.run.pngDpi)) return false;
  if (!isNumber) line.run.pngDpi = kUsualDpi;
  return !line.run.pngFolder.empty();
}

/// With what an option goes: the making of a book, its making again from a list, the joining of its parts.
enum Going : unsigned { kMaking = 1, kAgain = 2, kJoining = 4 };

struct Option {
  std::string_view name;
  std::string_view value;   ///< As the help shows it; empty for an option without one.
  std::string_view wanted;  ///< What is allowed.
  unsigned goesWith;
  std::function<bool(const std::string&, BookLine&)> take;
};

bool sorted(const std::string& word, BookLine& line) {
  return line.plan.sortByDifficulty = word == "difficulty";
}

template <class Place>
std::function<bool(const std::string&, BookLine&)> path(Place place) {
  return [place](const std::string& word, BookLine& line) {
    line.run.*place = word;
    return !word.empty();
  };
}

template <class Record>
std::function<bool(const std::string&, BookLine&)> flag(Record BookLine::*record, bool Record::*place) {
  return [=](const std::string&, BookLine& line) { return line.*record.*place = true; };
}

std::vector<Option> mazeOptions() {
  const auto list = [](auto place, auto read) {
    return
        [=](const std::string& word, BookLine& line) { return putList(word, line.plan.wished.*place, read); };
  };
  using W = WishedSettings;
  return {
      {"-n", "N", "a picture has 1 to 1000000 mazes", kMaking,
       [](const std::string& w, BookLine& l) {
         return put(wholeNumberOf(w, 1, kMostMazes), l.plan.mazesAPicture);
       }},
      {"--total", "N", "a book has 1 to 1000000 mazes", kMaking,
       [](const std::string& w, BookLine& l) { return put(wholeNumberOf(w, 1, kMostMazes), l.plan.total); }},
      {"--words", "NAMES.txt", "it is a file with a name in each line", kMaking,
       [](const std::string& w, BookLine& l) { return !(l.plan.words = w).empty(); }},
      {"--kind", "regular|3d|pipe", "a kind is regular, 3d or pipe", kMaking, list(&W::kinds, kindOf)},
      {"--wall", "5..50", "a wall is 5 to 50 pixels", kMaking, list(&W::walls, within(5, 50))},
      {"--difficulty", "1..6", "a difficulty is 1 to 6", kMaking, list(&W::difficulties, within(1, 6))},
      {"--paths", "normal|large", "paths are normal or large", kMaking, list(&W::largePaths, pathsOf)},
      {"--underpasses", "short|long", "underpasses are short or long", kMaking,
       list(&W::shortUnderpasses, underpassesOf)},
      {"--patterns", "NAME|random[:2..99]|none",
       "patterns are none, random, random:2 to random:99, or the name of a set", kMaking,
       list(&W::patterns, patternsOf)},
      {"--maze-colours", "COLOUR=COLOUR,...",
       "two different colours of the palette by their names, as in navy=yellow", kMaking,
       list(&W::mazeColours, colourPairOf)},
      {"--ends", "set|farthest|farthest-underpasses|most-underpasses",
       "ends are set, farthest, farthest-underpasses or most-underpasses", kMaking, list(&W::ends, endsOf)},
      {"--seed", "S", "a seed is 0 to 4294967295", kMaking, putSeed},
      {"--sort", "difficulty", "a book is sorted by difficulty", kMaking, sorted},
  };
}

std::vector<Option> pageOptions() {
  return {
      {"--paper", "a3|a4|a5|letter|legal|WxHmm|WxHin",
       "a paper is a3, a4, a5, letter, legal, or WxHmm or WxHin of 50 to 1200 mm each way", kMaking,
       [](const std::string& w, BookLine& l) { return put(paperOf(w), l.plan.paper); }},
      {"--landscape", "", "", kMaking, flag(&BookLine::plan, &BookPlan::landscape)},
      {"--margin", "LENGTH", "a length is 0, or a number and its unit, as in 15mm or 0.5in", kMaking,
       [](const std::string& w, BookLine& l) { return put(lengthOf(w), l.plan.margin); }},
      {"--gutter", "LENGTH", "a length is 0, or a number and its unit, as in 15mm or 0.5in", kMaking,
       [](const std::string& w, BookLine& l) { return put(lengthOf(w), l.plan.gutter); }},
      {"--per-page", "CxR", "it is columns and rows, 1x1 to 20x20", kMaking,
       [](const std::string& w, BookLine& l) { return put(tilesOf(w), l.plan.perPage); }},
      {"--answers", "none|after|end|FILE.pdf", "answers are none, after, end, or go to a FILE.pdf",
       kMaking | kAgain | kJoining, putAnswers},
      {"--answers-per-page", "CxR", "it is columns and rows, 1x1 to 20x20", kMaking,
       [](const std::string& w, BookLine& l) { return put(tilesOf(w), l.plan.answersPerPage); }},
      {"--title", "TEXT", "", kMaking,
       [](const std::string& w, BookLine& l) {
         l.plan.title = w;
         return true;
       }},
      {"--caption", "FORMAT", "what stands in braces is {n}, {picture}, {seed}, {cells} or {difficulty}",
       kMaking, [](const std::string& w, BookLine& l) { return isCaption(l.plan.caption = w); }},
      {"--page-numbers", "", "", kMaking, flag(&BookLine::plan, &BookPlan::pageNumbers)},
      {"--name-line", "", "", kMaking, flag(&BookLine::plan, &BookPlan::nameLine)},
      {"--format", "vector|pixels", "a format is vector or pixels", kMaking,
       [](const std::string& w, BookLine& l) { return put(formatOf(w), l.plan.format); }},
  };
}

std::vector<Option> runOptions() {
  return {
      {"-o", "FILE.pdf", "a file has a name", kMaking | kAgain | kJoining, path(&BookRun::output)},
      {"--list", "FILE.json", "a file has a name", kMaking | kAgain | kJoining, path(&BookRun::list)},
      {"--svg", "DIR", "a folder has a name", kMaking | kAgain, path(&BookRun::svgFolder)},
      {"--png", "DIR[:72..1200]", "it is a folder, and behind a colon 72 to 1200 dots an inch",
       kMaking | kAgain, putPngFolder},
      {"--from", "FILE.json", "a file has a name", kMaking | kAgain, path(&BookRun::from)},
      {"--jobs", "N", "there are 1 to 1024 jobs", kMaking | kAgain | kJoining,
       [](const std::string& w, BookLine& l) { return put(wholeNumberOf(w, 1, kMostJobs), l.run.jobs); }},
      {"--part", "K/N", "a part is 1/N to N/N, of at most 10000", kMaking | kAgain,
       [](const std::string& w, BookLine& l) { return put(partOf(w), l.run.part); }},
      {"--force", "", "", kMaking | kAgain | kJoining, flag(&BookLine::run, &BookRun::mayReplace)},
      {"--strict", "", "", kMaking | kAgain, flag(&BookLine::run, &BookRun::strict)},
      {"--quiet", "", "", kMaking | kAgain | kJoining, flag(&BookLine::run, &BookRun::quiet)},
  };
}

std::vector<Option> allOptions() {
  std::vector<Option> all = mazeOptions();
  for (auto&& more : {pageOptions(), runOptions()}) all.insert(all.end(), more.begin(), more.end());
  return all;
}

/// A command line as it is read.
class Reader {
 public:
  Outcome<BookLine> read(const std::vector<std::string>& words) {
    line_.run.jobs =
        static_cast<int>(std::clamp(std::thread::hardware_concurrency(), 1U, unsigned{kMostJobs}));
    for (std::size_t i = 0; i < words.size(); ++i) {
      const std::string& word = words[i];
      if (onlyFiles_ || word.size() < 2 || word[0] != '-') {
        files_.push_back(word);
      } else if (word == "--") {
        onlyFiles_ = true;  // a name may begin with a dash
      } else if (word == "--join") {
        joins_ = true;
      } else if (auto wrong = readOption(words, i)) {
        return *std::move(wrong);
      }
    }
    // Behind its own page an answer is as large as its maze.
    if (line_.plan.answers == Answers::after && !has("--answers-per-page"))
      line_.plan.answersPerPage = line_.plan.perPage;
    if (auto wrong = whyNot()) return *std::move(wrong);
    if (joins_) {
      line_.run.join.assign(files_.begin(), files_.end());
    } else {
      line_.plan.pictures = files_;
    }
    return line_;
  }

 private:
  std::optional<Fault> readOption(const std::vector<std::string>& words, std::size_t& i) {
    const std::string& word = words[i];
    const auto option =
        std::find_if(options_.begin(), options_.end(), [&](const Option& o) { return o.name == word; });
    if (option == options_.end()) return fault(word + ": there is no such option; --help lists them all");
    given_.insert(option->name);
    if (option->value.empty()) {
      option->take(word, line_);
      return std::nullopt;
    }
    if (i + 1 == words.size()) return fault(word + ": a value is missing, " + std::string(option->value));
    const std::string& value = words[++i];
    if (option->take(value, line_)) return std::nullopt;
    return fault(word + " " + value + ": " + std::string(option->wanted));
  }

  [[nodiscard]] bool has(std::string_view name) const { return given_.count(name) != 0; }

  /// What contradicts what.
  [[nodiscard]] std::optional<Fault> whyNot() const {
    if (std::any_of(files_.begin(), files_.end(), [](const std::string& file) { return file.empty(); }))
      return fault("a name of a file is empty");
    if (joins_ || has("--from")) return whyNotWithout();
    if (files_.empty() && !has("--words"))
      return fault("no picture is named; --help says what a command line may hold");
    if (has("-n") && has("--total"))
      return fault("-n and --total contradict each other: mazes a picture, or mazes in all");
    // How many names a file holds is known when it is read; one at least, or there is no book.
    if (const auto why = whyTooMany(line_.plan, files_.size() + (has("--words") ? 1 : 0)))
      return fault("-n: " + *why);
    if (has("--part") && !line_.hasSeed)
      return fault("--part needs --seed: all parts of a book are made from the same one");
    if (line_.plan.answers == Answers::none && has("--answers-per-page"))
      return fault("--answers-per-page contradicts --answers none");
    if (const auto why = whyNoPages(line_.plan)) return fault(*why);
    return std::nullopt;
  }

  /// A book that is made again, or joined, has its options already.
  [[nodiscard]] std::optional<Fault> whyNotWithout() const {
    const unsigned going = joins_ ? kJoining : kAgain;
    const std::string with =
        joins_ ? " does not go with --join: the parts know" : " does not go with --from: the list knows";
    for (const Option& option : options_) {
      if (has(option.name) && (option.goesWith & going) == 0)
        return fault(std::string(option.name) + with + " the options of the book");
    }
    if (has("--answers") && line_.run.answersFile.empty())
      return fault("--answers" + with + " where they stand; a FILE.pdf alone may be named");
    if (!joins_ && !files_.empty()) return fault(files_.front() + with + " the pictures");
    if (joins_ && files_.empty()) return fault("--join: no part is named");
    return std::nullopt;
  }

  const std::vector<Option> options_ = allOptions();
  BookLine line_;
  std::set<std::string_view> given_;
  std::vector<std::string> files_;
  bool onlyFiles_ = false, joins_ = false;
};

}  // namespace

std::optional<std::string> whyNotAnswersFile(const BookPlan& plan, const BookRun& run) {
  const bool isNamed = !run.answersFile.empty();
  if (plan.answers == Answers::file && !isNamed && !run.part)
    return "the book has its answers in a file of their own; name it with --answers FILE.pdf";
  if (plan.answers != Answers::file && isNamed)
    return "the book has no answers in a file of their own; leave --answers out";
  return std::nullopt;
}

std::string bookUsage() {
  constexpr std::size_t kWidth = 100;
  std::string usage =
      "usage: gridwright-book [OPTIONS] PICTURE...\n       gridwright-book [OPTIONS] --join PART.pdf...\n";
  std::string row = "options:";
  const auto add = [&](const std::string& word) {
    if (row.size() + word.size() + 1 > kWidth) {
      usage += row + "\n";
      row.assign(8, ' ');
    }
    row += " " + word;
  };
  for (const Option& option : allOptions()) {
    const std::string value = option.value.empty() ? "" : " " + std::string(option.value);
    add("[" + std::string(option.name) + value + "]");
  }
  add("[--help]");
  add("[--version]");
  return usage + row + "\nSee man gridwright-book.";
}

std::optional<std::string> saidInstead(const std::vector<std::string>& words) {
  const std::vector<Option> options = allOptions();
  for (std::size_t i = 0; i < words.size() && words[i] != "--"; ++i) {
    if (words[i] == "--help") return bookUsage();
    if (words[i] == "--version") return "gridwright-book " GRIDWRIGHT_VERSION;
    const auto option =
        std::find_if(options.begin(), options.end(), [&](const Option& o) { return o.name == words[i]; });
    if (option != options.end() && !option->value.empty()) ++i;
  }
  return std::nullopt;
}

Outcome<BookLine> readBookLine(const std::vector<std::string>& words) { return Reader().read(words); }

}  // namespace gridwright::book
