// Bitmap files made byte by byte, of every depth, so that a reader is tested with what others write.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "canvas/bitmap.h"

namespace gridwright::test {

/// How the rows of a coded picture are put into runs; any of them is the format's.
enum class RunStyle {
  greedy,   ///< Runs of equal pixels where there are, runs of single pixels where three or more differ.
  lone,     ///< Each pixel is a run of its own.
  singles,  ///< Runs of single pixels, as long as may be.
  pairs,    ///< At 4 bits: runs of two pixels in turn.
  jumps,    ///< What has the palette's first colour is jumped over, and rows and picture end early.
};

/// Where the channels of a pixel lie in its 16 or 32 bits.
struct Masks {
  std::uint32_t red = 0, green = 0, blue = 0, alpha = 0;
};

struct BitmapFile {
  int bits = 24;         ///< 1, 4, 8, 16, 24 or 32.
  bool fromTop = false;  ///< Row order.
  bool os2 = false;      ///< The 12-byte header.
  bool runs = false;     ///< Run-length coded, at 4 and 8 bits.
  bool masks = false;    ///< Bit fields 5-6-5 at 16 bits, with an alpha channel at 32.
  bool os2Cut = false;   ///< The 64-byte header of OS/2, cut to 16.
  bool padded = false;   ///< Runs fill a row's padding too.

  static constexpr int kNeeded = -1, kUnsaid = -2;
  int header = 0;           ///< Its bytes; 0 stands for 12, 16 or 40, as said above.
  Masks channels{};         ///< Where bit fields lie elsewhere than said above.
  bool alphaCoded = false;  ///< Bit fields with a fourth for alpha behind a header of 40 bytes.
  RunStyle style = RunStyle::greedy;
  bool endless = false;   ///< No mark ends the coded picture.
  int colours = kNeeded;  ///< Entries of the palette; kUnsaid: all that the depth has, and the header says 0.
  int gap = 0;            ///< Bytes between what is read and the pixels.
};

/// The picture as a file. Indexed depths hold a palette of the colours that the picture has; 16 bits
/// hold what fits into five or six bits a channel.
std::string fileOf(const Bitmap& picture, const BitmapFile& form);

/// What a file of this form can hold of a picture: each channel in as many steps as its bits have.
Bitmap heldBy(const Bitmap& picture, const BitmapFile& form);

/// Overwrites a little-endian number in a file.
void poke(std::string& file, std::size_t at, std::uint32_t value, int bytes = 4);

/// A picture of as many colours as `colours`, no two neighbours alike.
Bitmap motley(int width, int height, int colours);

}  // namespace gridwright::test
