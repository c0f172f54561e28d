// Reading and writing of bitmap files, as the folder's pictures need them; the door to the system has both.
#pragma once

#include "canvas/bitmap.h"
#include "canvas/bitmap_view.h"
#include "canvas/outcome.h"
#include "files/file_mark.h"
#include "files/file_place.h"
#include "files/overwrite.h"

namespace gridwright {

class BitmapFiles {
 public:
  virtual ~BitmapFiles() = default;

  /// Decodes a bitmap file of any depth to exact 24-bit colour, cut at 1000 by 1000.
  /// \returns a Fault, and nothing else happens, when it cannot be opened or is not whole.
  virtual Outcome<Bitmap> loadBitmap(const FilePlace& place) = 0;

  /// Writes a 24-bit bitmap file beside its name and renames it: what was there or the new one is there,
  /// whole, at any moment, also on failure. To what is no plain file nothing is written. \returns the mark of
  /// the file that was written, or a Fault.
  virtual Outcome<FileMark> saveBitmap(const BitmapView& picture, const FilePlace& place, Overwrite how) = 0;
};

}  // namespace gridwright
