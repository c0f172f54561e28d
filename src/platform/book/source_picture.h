// A picture that mazes of a book are made in, as it lies in memory, and what one maze in it is to be like.
#pragma once

#include <map>
#include <mutex>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "canvas/bitmap.h"
#include "canvas/cell_grid.h"
#include "canvas/colour_sets.h"
#include "canvas/maze_kind.h"
#include "history/colour_runs.h"
#include "platform/book/book_record.h"

namespace gridwright::book {

/// Where the largest region of a picture begins, by wall size and kind: looked for once, whoever asks. Any
/// thread.
class RegionStarts {
 public:
  /// \param look how it is looked for; the answer hangs on nothing but the wall size and the kind.
  template <class Look>
  std::optional<Corner> at(int wall, MazeKind kind, Look look) {
    const std::scoped_lock lock(mutex_);
    const auto [place, isNew] = known_.try_emplace({wall, kind});
    if (isNew) place->second = look();
    return place->second;
  }

 private:
  std::mutex mutex_;
  std::map<std::pair<int, MazeKind>, std::optional<Corner>> known_;
};

/// Exact pixels in little memory: what a row has as the one above takes none, and what it has in one colour
/// little.
class PackedPicture {
 public:
  PackedPicture() = default;
  explicit PackedPicture(const Bitmap& picture);
  [[nodiscard]] Size size() const { return size_; }
  [[nodiscard]] Bitmap unpacked() const;

 private:
  Size size_;
  Runs runs_;  // of each pixel's colour against that of the one above
};

struct SourcePicture {
  std::string name;                   ///< The base name of its file, or the words.
  PackedPicture picture;              ///< At most 1000 by 1000.
  std::string drawing;                ///< The record of a drawing; empty for a bitmap.
  MazeKind kind = MazeKind::regular;  ///< Of its mazes where no option says another.
  std::string whyNot;                 ///< Why no maze can be made of it; empty where one can be tried.

  /// The Canvas is as large as the picture, 50 to 1000 pixels each way.
  [[nodiscard]] Size canvas() const;
  [[nodiscard]] bool isDrawing() const { return !drawing.empty(); }
};

/// What options want of one maze; nothing where they say nothing.
struct MazeWish {
  std::optional<MazeKind> kind;
  std::optional<int> wall;
  std::optional<int> difficulty;
  std::optional<bool> largePaths, shortUnderpasses;
  std::optional<PatternWish> patterns;
  std::optional<Ends> ends;
  std::vector<ColourPair> mazeColours;
};

/// The kind of a maze: the one that is wished, else that of its picture.
inline MazeKind kindOf(const MazeWish& wish, const SourcePicture& picture) {
  return wish.kind.value_or(picture.kind);
}

/// What maze `index`, from 0, is to be like: the value at the index modulo the length of each list.
MazeWish wishOf(const WishedSettings& wished, int index);

}  // namespace gridwright::book
