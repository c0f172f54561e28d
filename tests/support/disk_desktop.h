// A desktop of memory whose bitmaps lie in a real folder, through the decoder that the desktops use.
#pragma once

#include "platform/shared/image_files.h"
#include "support/bare_desktop.h"

namespace gridwright::test {

class DiskDesktop : public BareDesktop {
 public:
  Outcome<Bitmap> loadBitmap(const FilePlace& target) override { return readBitmapFile(target); }
  Outcome<FileMark> saveBitmap(const BitmapView& picture, const FilePlace& target, Overwrite how) override {
    const std::filesystem::path path = target.path();
    if (path.parent_path() == full) return Fault{Fault::Kind::notWritable, path.string()};
    return writeBitmapFile(picture, target, how);
  }
  std::filesystem::path full;  ///< A folder whose disk has room for small files, but for no picture.
};

}  // namespace gridwright::test
