// Reading and writing of bitmap files, as the folder's pictures need them; the door to the system has both.
#pragma once

#include <filesystem>

#include "canvas/bitmap.h"
#include "canvas/outcome.h"
#include "files/overwrite.h"

namespace gridwright {

class BitmapFiles {
 public:
  virtual ~BitmapFiles() = default;

  /// Decodes a bitmap file of any depth to exact 24-bit colour, cut at 1000 by 1000.
  /// \returns a Fault, and nothing else happens, when it cannot be opened or is not whole.
  virtual Outcome<Bitmap> loadBitmap(const std::filesystem::path& path) = 0;

  /// Writes a 24-bit bitmap file. On failure what was there stays as it was, unless the disk itself
  /// fails in the middle of one written in place. To what is no plain file nothing is written.
  virtual Outcome<Done> saveBitmap(const Bitmap& picture, const std::filesystem::path& path,
                                   Overwrite how) = 0;
};

}  // namespace gridwright
