#include "state/book_wish.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <optional>

namespace gridwright {

namespace {

constexpr std::string_view kInAll = "--total", kAPicture = "-n";
constexpr std::string_view kDrawing = "--drawing", kSheet = "--sheet";
constexpr std::string_view kOnlyFiles = "--";
constexpr std::string_view kUsualCaption = "{n}";

struct Option {
  std::string_view name;
  std::string BookWish::*value;
};
/// Those whose value is a text of the panel and nothing else.
constexpr auto kOptions = std::to_array<Option>({
    {"--words", &BookWish::names},
    {"--kind", &BookWish::kinds},
    {"--wall", &BookWish::walls},
    {"--patterns", &BookWish::patterns},
    {"--paper", &BookWish::paper},
    {"--per-page", &BookWish::perPage},
    {"--answers", &BookWish::answers},
    {"--answers-per-page", &BookWish::answersPerPage},
    {"--title", &BookWish::title},
    {"--caption", &BookWish::caption},
    {"--seed", &BookWish::seed},
    {"-o", &BookWish::file},
});

bool isLetterOfWords(char c) {
  return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') ||
         (c != '\0' && std::strchr("_@%+=:,./-", c) != nullptr);
}

std::string quoted(const std::string& word) {
  if (!word.empty() && std::all_of(word.begin(), word.end(), isLetterOfWords)) return word;
  std::string text = "'";
  for (const char c : word) {
    if (c == '\'') text += "'\\'";
    text += c;
  }
  return text + "'";
}

/// Words one after the other, as they come.
class WishReader {
 public:
  explicit WishReader(const BookWish& opened) {
    wish_.drawing = false;
    wish_.seed = opened.seed;
    wish_.file = opened.file;
  }

  /// \returns the word that is not understood; empty when all were.
  std::string read(const std::vector<std::string>& words) {
    for (std::size_t i = 0; i < words.size(); ++i) {
      const std::string& word = words[i];
      if (onlyFiles_ || word.size() < 2 || word[0] != '-') {
        if (word.empty()) return "''";
        wish_.pictures.push_back(word);
      } else if (!readFlag(word) && !(i + 1 < words.size() && readOption(word, words[i + 1]) && ++i > 0)) {
        return word;
      }
    }
    if (!wish_.sheet && wish_.pictures.empty() && wish_.names.empty()) wish_.drawing = true;
    return {};
  }
  [[nodiscard]] const BookWish& wish() const { return wish_; }

 private:
  bool readFlag(std::string_view word) {
    if (word == kDrawing) return wish_.drawing = true;
    if (word == kSheet) return wish_.sheet = true;
    if (word == kOnlyFiles) return onlyFiles_ = true;
    return false;
  }

  bool readOption(std::string_view word, const std::string& value) {
    if (word == kAPicture || word == kInAll) {
      const bool inAll = word == kInAll;
      if (!wish_.number.empty() && wish_.inAll != inAll) return false;  // one contradicts the other
      wish_.number = value;
      wish_.inAll = inAll;
      return true;
    }
    const auto* option =
        std::find_if(kOptions.begin(), kOptions.end(), [&](const Option& o) { return o.name == word; });
    if (option == kOptions.end()) return false;
    wish_.*option->value = value;
    return true;
  }

  BookWish wish_;
  bool onlyFiles_ = false;
};

/// A line as a shell reads it, letter by letter.
class ShellReader {
 public:
  void take(char c) {
    if (escaped_) {
      // Between double quotes a backslash is one, but before what it is for.
      if (quote_ == '"' && std::strchr("\"\\$`", c) == nullptr) add('\\');
      escaped_ = false;
      add(c);
    } else if (c == '\\' && quote_ != '\'') {
      escaped_ = isWord_ = true;
    } else if (quote_ != 0) {
      if (c == quote_)
        quote_ = 0;
      else
        add(c);
    } else if (c == '\'' || c == '"') {
      quote_ = c;
      isWord_ = true;
    } else if (c == ' ' || c == '\t' || c == '\r') {
      endWord();
    } else {
      add(c);
    }
  }
  void endWord() {
    if (isWord_) words_.push_back(std::move(word_));
    word_.clear();
    isWord_ = false;
  }
  [[nodiscard]] bool isWhole() const { return quote_ == 0 && !escaped_; }
  [[nodiscard]] const std::string& word() const { return word_; }
  [[nodiscard]] std::vector<std::string> take() { return std::move(words_); }

 private:
  void add(char c) {
    word_ += c;
    isWord_ = true;
  }

  std::vector<std::string> words_;
  std::string word_;
  char quote_ = 0;
  bool escaped_ = false, isWord_ = false;
};

}  // namespace

std::vector<std::string> bookWords(const BookWish& wish, const BookFiles& files) {
  std::vector<std::string> pictures;
  if (wish.drawing) pictures.push_back(files.drawing);
  if (wish.sheet) pictures.push_back(files.sheet);
  pictures.insert(pictures.end(), wish.pictures.begin(), wish.pictures.end());
  std::vector<std::string> words;
  const auto add = [&words](std::string_view option, const std::string& value) {
    words.emplace_back(option);
    words.push_back(value);
  };
  if (!wish.number.empty()) add(wish.inAll ? kInAll : kAPicture, wish.number);
  for (const Option& option : kOptions) {
    const std::string& value = wish.*option.value;
    const bool isUsual = option.value == &BookWish::caption ? value == kUsualCaption : value.empty();
    if (!isUsual) add(option.name, value);
  }
  const bool needsEnd = std::any_of(pictures.begin(), pictures.end(),
                                    [](const std::string& name) { return name.starts_with('-'); });
  if (needsEnd) words.emplace_back(kOnlyFiles);
  words.insert(words.end(), pictures.begin(), pictures.end());
  return words;
}

std::string bookLine(const BookWish& wish, const BookFiles& files, const std::filesystem::path& folder) {
  return "cd " + quoted(folder.string()) + " && gridwright-book " + shellLine(bookWords(wish, files));
}

Outcome<BookWish> bookWishOf(const std::vector<std::string>& words, const BookWish& opened) {
  WishReader reader(opened);
  if (std::string word = reader.read(words); !word.empty())
    return Fault{Fault::Kind::malformed, std::move(word)};
  return reader.wish();
}

Outcome<std::vector<std::string>> shellWords(std::string_view line) {
  ShellReader reader;
  for (const char c : line) reader.take(c);
  if (!reader.isWhole()) return Fault{Fault::Kind::malformed, reader.word()};
  reader.endWord();
  return reader.take();
}

std::string shellLine(const std::vector<std::string>& words) {
  std::string line;
  for (const std::string& word : words) line.append(line.empty() ? "" : " ").append(quoted(word));
  return line;
}

}  // namespace gridwright
