// What is asked of a library for pictures. The order of the steps, and what is made of their results, is
// decided here in pictures/; how a median is found quickly is not.
#pragma once

#include <cstdint>
#include <vector>

#include "canvas/bitmap.h"

namespace gridwright {

/// One a pixel, rows from the top: not 0 where something holds.
using Mask = std::vector<std::uint8_t>;

/// A picture sorted into few colours.
struct Segments {
  std::vector<Colour> colours;       ///< The mean of each segment's pixels.
  std::vector<std::uint8_t> labels;  ///< One a pixel: which of the colours it belongs to.
};

/// None of these keeps anything between two calls, and each gives the same for the same. They may be called
/// from any thread. An empty picture gives an empty one; a library without memory ends the program as `new`
/// does.
class PictureWork {
 public:
  virtual ~PictureWork() = default;

  /// The picture at another size, at least 1 by 1: smaller by the means of areas, larger without steps.
  virtual Bitmap scaled(const Bitmap& picture, Size size) = 0;
  /// Each pixel, channel by channel, the median of the square of `side` pixels around it; `side` is odd.
  virtual Bitmap smoothed(const Bitmap& picture, int side) = 0;
  /// At most `most` colours, 1 to 16; fewer where the picture has no more that differ.
  virtual Segments segmented(const Bitmap& picture, int most) = 0;
  /// The mask without what hangs together by sides or corners and is less than `least` pixels wide and high.
  virtual Mask withoutSpecks(const Mask& mask, Size size, int least) = 0;
  /// How far each pixel of the mask lies, in pixels by sides and corners, from the nearest that is not in it;
  /// 0 outside the mask, at most 255. Beyond the picture's edge nothing is in it.
  virtual std::vector<std::uint8_t> depths(const Mask& mask, Size size) = 0;
};

}  // namespace gridwright
