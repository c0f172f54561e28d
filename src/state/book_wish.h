// What a person wants of a book of mazes, and the words that gridwright-book is asked for it by.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "canvas/outcome.h"

namespace gridwright {

/// The most used options of a book, as the panel shows them. A text is the value of its option, as the
/// command has it; an empty one is not given.
struct BookWish {
  bool drawing = true;                ///< The drawing on the Canvas,
  bool sheet = false;                 ///< the sheet of the workshop,
  std::vector<std::string> pictures;  ///< and files, in this order.
  std::string names;                  ///< A file with a name in each line.
  std::string number;                 ///< Of mazes,
  bool inAll = false;                 ///< in the book, or for each picture.
  std::string kinds, walls, patterns;
  std::string paper, perPage, answers, answersPerPage;
  std::string title;
  std::string caption = "{n}";  ///< An empty one is none.
  std::string seed;
  std::string file;  ///< The book.
  friend bool operator==(const BookWish&, const BookWish&) = default;
};

/// The names that drawing and sheet have as files of the working folder.
struct BookFiles {
  std::string drawing, sheet;
};

/// The words of the command line, without the program's name.
std::vector<std::string> bookWords(const BookWish& wish, const BookFiles& files);

/// The same as a line for a shell, which makes the book in any folder.
std::string bookLine(const BookWish& wish, const BookFiles& files, const std::filesystem::path& folder);

/// What words ask for, by the options that the panel has, `--drawing` and `--sheet`; where they name no
/// picture it is the drawing. What they leave out stays as the panel opened with it: seed and file; or is not
/// given. \returns a Fault with the word that is not understood.
Outcome<BookWish> bookWishOf(const std::vector<std::string>& words, const BookWish& opened);

/// Words as a shell takes them apart, by quotes of both kinds and backslashes.
/// \returns a Fault with what is left of the line where a quote is not closed.
Outcome<std::vector<std::string>> shellWords(std::string_view line);

/// A line that a shell takes apart into just these words.
std::string shellLine(const std::vector<std::string>& words);

}  // namespace gridwright
