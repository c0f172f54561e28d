// The words that options and lists say values by.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "platform/book/book_record.h"

namespace gridwright::book {

std::string_view wordOf(MazeKind kind);
std::string_view wordOf(Ends ends);
std::string_view wordOf(Answers answers);
std::string_view wordOf(MazeFormat format);
std::string_view pathsWord(bool large);
std::string_view underpassesWord(bool isShort);
std::string wordOf(const Part& part);             ///< `2/4`
std::string wordOf(const ColourPair& pair);       ///< `navy=yellow`
std::string wordOf(Tiles tiles);                  ///< `3x4`
std::string wordOf(const PatternWish& patterns);  ///< `none`, `random:5`, or the set's name.

/// The other way; nothing for any other word.
std::optional<MazeKind> kindOf(std::string_view word);
std::optional<Ends> endsOf(std::string_view word);
std::optional<Answers> answersOf(std::string_view word);
std::optional<MazeFormat> formatOf(std::string_view word);
std::optional<Tiles> tilesOf(std::string_view word);
std::optional<PatternWish> patternsOf(std::string_view word);
std::optional<bool> pathsOf(std::string_view word);
std::optional<bool> underpassesOf(std::string_view word);
std::optional<Part> partOf(std::string_view word);
/// Two different colours of the palette, by their names; `grey`, `aqua` and `fuchsia` are known too.
std::optional<ColourPair> colourPairOf(std::string_view word);

/// A whole number within both bounds, in digits alone.
std::optional<int> wholeNumberOf(std::string_view word, int least, int most);

/// A paper by its name, `WxHmm` or `WxHin`: from 50 mm to 1200 mm each way. Nothing for any other word.
std::optional<Paper> paperOf(std::string_view word);

/// A length with its unit, `15mm` or `0.5in`, or a bare `0`, in thousandths of a point.
std::optional<int> lengthOf(std::string_view word);

/// A number with so many digits, at most 9, behind a point, whatever the language of the desktop puts there.
std::string pointNumber(double number, int digits);

/// Whether every brace of a caption opens or closes one of the five names.
bool isCaption(std::string_view words);

}  // namespace gridwright::book
