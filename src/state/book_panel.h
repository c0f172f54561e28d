// The panel that makes a book of mazes, and the book that is being made beside the program, as they stand.
// Rules write this model; a tenant shows it and reports what a person does through session/input.h.
#pragma once

#include <cstddef>
#include <cstdint>
#include <deque>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "canvas/bitmap.h"
#include "files/file_mark.h"
#include "files/file_place.h"
#include "state/book_wish.h"

namespace gridwright {

/// A command line of gridwright-book, without the program's name.
struct BookOrder {
  std::vector<std::string> words;
  std::filesystem::path folder;  ///< A whole path: where names without one lie.
};

inline constexpr std::size_t kMostSmallPages = 40;  ///< That are kept, the newest ones.
inline constexpr int kSmallPageSide = 96;           ///< Pixels of the longer side of one.

/// A page that was made, much smaller than it is.
struct SmallPage {
  int number = 0;  ///< Of its maze, from 1.
  Bitmap picture;
};

/// A file that was written for a book alone.
struct SavedForBook {
  FilePlace place;
  std::optional<FileMark>
      mark;  ///< As it was written: one that a person has saved over since is the person's.
};

/// How a book ended.
struct BookEnd {
  std::size_t mazes = 0;                ///< In the file that is there now; 0 where none is.
  bool stopped = false;                 ///< Somebody wanted it to end; nothing is there.
  std::vector<std::string> complaints;  ///< For a person; the last line says why nothing is there.
};

/// What has happened to a book since the last news of it.
struct BookNews {
  std::size_t done = 0, all = 0;  ///< Mazes; `all` is 0 until that is known.
  std::vector<SmallPage> pages;   ///< Made since, the newest last.
  std::optional<BookEnd> end;
};

struct BookMaking {
  bool underWay = false;
  bool stopping = false;  ///< A person wants it to end.
  bool pagesShown = false;
  std::size_t done = 0, all = 0;
  std::deque<SmallPage> pages;      ///< They stay when it is done, until the next book.
  std::filesystem::path file;       ///< The book.
  std::vector<SavedForBook> saved;  ///< These go where it is not made.
  std::uint64_t revision = 1;       ///< Grows with every change of this.
};

struct BookPanel {
  bool open = false;
  BookWish wish;    ///< As the panel opens with it, or a script fills it in.
  BookFiles files;  ///< What the drawing and the sheet are or will be saved as.
  bool hasSheet = false;
  /// The line was copied, which names those files: they are there and stay.
  bool drawingIsSaved = false, sheetIsSaved = false;
  std::filesystem::path folder;
  std::string line;            ///< What is against the wish; empty for nothing.
  std::uint64_t revision = 1;  ///< Grows with every change of this, so that a tenant shows it anew.
  BookMaking making;
};

}  // namespace gridwright
