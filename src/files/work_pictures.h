// The pictures in progress: "drawing1.bmp" and its fellows in the working folder.
//
// A picture is read from its file. If that cannot be read, or its last write failed, the copy kept in
// memory stands in: a full disk or a deleted file loses nothing. Failures are quiet, but for a name that
// is no plain file's. A file that is
// still as it was written is not decoded again, because the copy is the same picture, nor written
// again when it would get the same picture.
#pragma once

#include <cstdint>
#include <filesystem>
#include <map>
#include <optional>
#include <string>
#include <string_view>

#include "canvas/bitmap.h"
#include "files/overwrite.h"

namespace gridwright {

class BitmapFiles;
class WorkFolder;

class WorkPictures {
 public:
  WorkPictures(BitmapFiles& bitmaps, WorkFolder& folder) : bitmaps_(bitmaps), folder_(folder) {}

  /// \returns whether the picture is in its file now.
  bool save(std::string_view name, Bitmap picture, Overwrite how = Overwrite::inPlace);
  /// The picture, or an empty one that was never written; it stands until the next call.
  const Bitmap& load(std::string_view name);

 private:
  /// What tells that a file was touched since.
  struct Stamp {
    std::filesystem::file_time_type time;
    std::uintmax_t size = 0;
    friend bool operator==(const Stamp&, const Stamp&) = default;
  };
  struct Copy {
    Bitmap picture;
    bool lastWriteFailed = false;
    std::optional<Stamp> written;
  };

  static std::optional<Stamp> stampOf(const std::filesystem::path& path);
  static bool isAsWritten(const Copy& copy, const std::filesystem::path& path);

  BitmapFiles& bitmaps_;
  WorkFolder& folder_;
  std::map<std::string, Copy, std::less<>> copies_;
  Bitmap fromFile_;
};

}  // namespace gridwright
