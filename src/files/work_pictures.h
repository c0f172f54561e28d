// The pictures in progress: "drawing1.bmp" and its fellows in the working folder.
//
// A picture is read from its file, and written beside its name and renamed: a program that is killed leaves
// the old picture or the new one, whole. Of each name the picture that was last written or read is kept in
// memory. If the file cannot be read, or its last write failed, the copy stands in: a full disk or a deleted
// file loses nothing. Failures are quiet, but for a name that is no plain file's. A file that is still as it
// was written or read, by its mark, is not decoded again, because the copy is the same picture, nor written
// again when it would get the same picture.
#pragma once

#include <map>
#include <optional>
#include <string>
#include <string_view>

#include "canvas/bitmap_view.h"
#include "canvas/folded_bitmap.h"
#include "files/file_mark.h"
#include "files/file_place.h"
#include "files/overwrite.h"

namespace gridwright {

class BitmapFiles;
class WorkFolder;

class WorkPictures {
 public:
  WorkPictures(BitmapFiles& bitmaps, WorkFolder& folder) : bitmaps_(bitmaps), folder_(folder) {}

  /// \returns whether the picture is in its file now.
  bool save(std::string_view name, const BitmapView& picture, Overwrite how = Overwrite::unhurried);
  /// Whether its file is known to hold just this picture.
  [[nodiscard]] bool holds(std::string_view name, const BitmapView& picture) const;
  /// The picture, or an empty one that was never written; it stands until the next call.
  BitmapView load(std::string_view name);

 private:
  struct Copy {
    FoldedBitmap picture;
    bool isPart = false;  ///< Its file holds more than a picture may have.
    bool lastWriteFailed = false;
    std::optional<FileMark> file;  ///< Of the file that holds just this picture.
    [[nodiscard]] bool isIn(const FilePlace& place) const;
  };

  BitmapFiles& bitmaps_;
  WorkFolder& folder_;
  std::map<std::string, Copy, std::less<>> copies_;
};

}  // namespace gridwright
