// Bitmaps as others write them, and as they should not: every header, depth, coding, row order, palette, mask
// and offset that the format knows, and each way in which a header can lie.
#pragma once

#include <string>
#include <vector>

#include "canvas/bitmap.h"
#include "support/bitmap_files.h"

namespace gridwright::test {

/// A file with what it holds, and a name that says what it is: header-bits-coding-order-size-and more.
struct FormedBitmap {
  std::string name;
  BitmapFile form;
  Bitmap picture;
  std::string bytes;
};

/// One file of each form, each 13 by 5 pixels.
std::vector<FormedBitmap> oneOfEachForm();

/// The same in many sizes, with palettes of other lengths, and with bytes between palette and pixels.
std::vector<FormedBitmap> everyWholeBitmap();

/// A file whose header says what is not so.
struct LyingBitmap {
  std::string what;
  std::string bytes;
};

/// Lies that leave no picture: a file that bears one is refused.
std::vector<LyingBitmap> liesAbout(const FormedBitmap& whole);

/// Lies about what no reader needs, such as the length of the file: the picture is whole all the same.
std::vector<LyingBitmap> harmlessLiesAbout(const FormedBitmap& whole);

}  // namespace gridwright::test
