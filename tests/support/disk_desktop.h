// A desktop of memory whose bitmaps lie in a real folder, through the decoder that the desktops use.
#pragma once

#include "platform/shared/image_files.h"
#include "support/bare_desktop.h"

namespace gridwright::test {

class DiskDesktop : public BareDesktop {
 public:
  Outcome<Bitmap> loadBitmap(const std::filesystem::path& path) override { return readBitmapFile(path); }
  Outcome<FileMark> saveBitmap(const BitmapView& picture, const std::filesystem::path& path,
                               Overwrite how) override {
    return writeBitmapFile(picture, path, how);
  }
};

}  // namespace gridwright::test
