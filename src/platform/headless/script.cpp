#include "platform/headless/script.h"

#include <charconv>
#include <sstream>
#include <utility>

namespace gridwright {

namespace {

ScriptLine cut(std::string_view line, int number) {
  ScriptLine cut;
  cut.number = number;
  cut.whole = line;
  const std::size_t first = line.find('"');
  const std::size_t last = line.rfind('"');
  std::string_view words = line;
  if (first != std::string_view::npos && last > first) {
    cut.hasText = true;
    cut.text = line.substr(first + 1, last - first - 1);
    words = line.substr(0, first);
  }
  std::istringstream in{std::string(words)};
  for (std::string word; in >> word;) cut.words.push_back(word);
  return cut;
}

}  // namespace

std::vector<ScriptLine> readScript(std::string_view source) {
  std::vector<ScriptLine> lines;
  int number = 0;
  while (!source.empty()) {
    const std::size_t end = source.find('\n');
    std::string_view line = source.substr(0, end);
    source.remove_prefix(end == std::string_view::npos ? source.size() : end + 1);
    ++number;
    // A number sign inside a quoted text is part of the text.
    const std::size_t quote = line.find('"');
    const std::size_t comment = line.find('#');
    if (comment != std::string_view::npos && (quote == std::string_view::npos || comment < quote)) {
      line = line.substr(0, comment);
    }
    ScriptLine parts = cut(line, number);
    if (!parts.words.empty()) lines.push_back(std::move(parts));
  }
  return lines;
}

std::vector<std::string> quotedWords(std::string_view line) {
  std::vector<std::string> words;
  bool isQuoted = false, isWord = false;
  for (std::size_t i = 0; i < line.size(); ++i) {
    const char letter = line[i];
    const bool isBlank = letter == ' ' || letter == '\t' || letter == '\r';
    if (isBlank && !isQuoted) {
      isWord = false;
      continue;
    }
    if (!isWord) words.emplace_back();
    isWord = true;
    if (letter == '"') {
      isQuoted = !isQuoted;
    } else if (isQuoted && letter == '\\' && i + 1 < line.size()) {
      ++i;
      words.back() += line[i] == 'n' ? '\n' : line[i];
    } else {
      words.back() += letter;
    }
  }
  return words;
}

std::optional<ScriptSetting> settingIn(std::string_view word) {
  const std::size_t equals = word.find('=');
  if (equals == std::string_view::npos) return std::nullopt;
  return ScriptSetting{word.substr(0, equals), word.substr(equals + 1)};
}

Outcome<std::int64_t> wholeNumber(std::string_view word) {
  std::string_view digits = word;
  if (digits.size() > 1 && digits[0] == '+' && digits[1] != '-') digits.remove_prefix(1);
  std::int64_t value = 0;
  const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), value);
  if (error != std::errc{} || end != digits.data() + digits.size()) {
    return Fault{Fault::Kind::malformed, "not a whole number: " + std::string(word)};
  }
  return value;
}

bool readNumber(std::string_view word, int least, int most, int& value) {
  const auto number = wholeNumber(word);
  if (!number || number.value() < least || number.value() > most) return false;
  value = static_cast<int>(number.value());
  return true;
}

bool readFlag(std::string_view word, bool& flag) {
  flag = word == "1";
  return word == "0" || word == "1";
}

Outcome<std::pair<int, int>> sizeWord(std::string_view word) {
  const std::size_t by = word.find('x');
  if (by != std::string_view::npos) {
    const auto width = wholeNumber(word.substr(0, by));
    const auto height = wholeNumber(word.substr(by + 1));
    if (width && height && width.value() >= 50 && width.value() <= 1000 && height.value() >= 50 &&
        height.value() <= 1000) {
      return std::pair{static_cast<int>(width.value()), static_cast<int>(height.value())};
    }
  }
  return Fault{Fault::Kind::malformed, "not a size from 50x50 to 1000x1000: " + std::string(word)};
}

}  // namespace gridwright
