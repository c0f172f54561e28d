// One maze of a book, made by a program of its own.
#pragma once

#include <atomic>
#include <string>

#include "canvas/outcome.h"
#include "platform/book/book_record.h"
#include "platform/book/source_picture.h"

namespace gridwright::book {

/// Everything that one maze hangs on.
struct MazeOrder {
  int number = 1;  ///< From 1.
  std::uint32_t seed = 0;
  MazeWish wish;
  const SourcePicture& picture;
  std::string patternSet;  ///< The text of the set, where one is wished; it is of the wished kind.
};

/// Makes it, solves it and measures it, behind a desktop that touches no file. In any thread, many at a time;
/// the same order makes the same maze. \param starts of this picture with these maze colours. \returns a
/// Fault with the reason, for a person, when the maze cannot be made; with no words when `stop` became true.
Outcome<MadeMaze> makeMaze(const MazeOrder& order, RegionStarts& starts, const std::atomic<bool>& stop);

}  // namespace gridwright::book
