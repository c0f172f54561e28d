// The script language of the headless twin: one command a line.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "canvas/outcome.h"

namespace gridwright {

/// One line of a script, cut into words; the text between the first and the last double quote of the
/// line stands apart.
struct ScriptLine {
  int number = 0;  ///< From 1, as an editor counts.
  std::vector<std::string> words;
  std::string text;
  bool hasText = false;
  std::string whole;  ///< As it stands.
};

/// A line cut at its blanks, but for those between double quotes, which may stand anywhere in a word and are
/// left out; within them \n is a new line, and a backslash before another letter stands for that letter. A
/// quote that is never closed reaches to the end.
std::vector<std::string> quotedWords(std::string_view line);

/// One of the words "name=value".
struct ScriptSetting {
  std::string_view name, value;
};
/// \returns nothing where the word has no equals sign.
std::optional<ScriptSetting> settingIn(std::string_view word);

/// The lines that hold a command; blank ones and comments are left out.
std::vector<ScriptLine> readScript(std::string_view source);

/// A whole number, decimal, with an optional sign, and nothing else.
Outcome<std::int64_t> wholeNumber(std::string_view word);

/// A whole number from `least` to `most`. \returns whether it is one; else `value` stays.
bool readNumber(std::string_view word, int least, int most, int& value);

/// "0" or "1". \returns whether it is one of them.
bool readFlag(std::string_view word, bool& flag);

/// Reads each word from the `first` on. \returns the first that was not understood; empty when all were.
template <class Read>
std::string readAll(const std::vector<std::string>& words, std::size_t first, Read read) {
  for (std::size_t i = first; i < words.size(); ++i) {
    const auto setting = settingIn(words[i]);
    if (!setting || !read(*setting)) return words[i];
  }
  return {};
}

/// A size such as 800x600.
Outcome<std::pair<int, int>> sizeWord(std::string_view word);

}  // namespace gridwright
