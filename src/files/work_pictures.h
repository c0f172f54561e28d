// The pictures in progress: "drawing1.bmp" and its fellows in the working folder.
//
// A picture is read from its file. If that cannot be read, or its last write failed, the copy kept in
// memory stands in: a full disk or a deleted file loses nothing. Failures are quiet.
#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "canvas/bitmap.h"

namespace gridwright {

class Platform;
class WorkFolder;

class WorkPictures {
 public:
  WorkPictures(Platform& platform, const WorkFolder& folder) : platform_(platform), folder_(folder) {}

  void save(std::string_view name, const Bitmap& picture);
  /// The picture, or an empty one that was never written.
  Bitmap load(std::string_view name);

 private:
  struct Copy {
    int width = 0, height = 0;
    std::vector<std::uint8_t> channels;  // three bytes a pixel: six pictures are kept
    bool lastWriteFailed = false;
  };

  Platform& platform_;
  const WorkFolder& folder_;
  std::map<std::string, Copy, std::less<>> copies_;
};

}  // namespace gridwright
