// Bitmap files made byte by byte, of every depth, so that a reader is tested with what others write.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "canvas/bitmap.h"

namespace gridwright::test {

struct BitmapFile {
  int bits = 24;         ///< 1, 4, 8, 16, 24 or 32.
  bool fromTop = false;  ///< Row order.
  bool os2 = false;      ///< The 12-byte header.
  bool runs = false;     ///< Run-length coded, at 4 and 8 bits.
  bool masks = false;    ///< Bit fields 5-6-5 at 16 bits, with an alpha channel at 32.
  bool os2Cut = false;   ///< The 64-byte header of OS/2, cut to 16.
  bool padded = false;   ///< Runs fill a row's padding too.
};

/// The picture as a file. Indexed depths hold a palette of the colours that the picture has; 16 bits
/// hold what fits into five or six bits a channel.
std::string fileOf(const Bitmap& picture, const BitmapFile& form);

/// Overwrites a little-endian number in a file.
void poke(std::string& file, std::size_t at, std::uint32_t value, int bytes = 4);

/// A picture of as many colours as `colours`, no two neighbours alike.
Bitmap motley(int width, int height, int colours);

}  // namespace gridwright::test
