// Leptonica does what pictures/ asks of a library for pictures; it is known here alone.
#pragma once

#include "pictures/picture_work.h"

namespace gridwright {

class LeptonicaWork : public PictureWork {
 public:
  Bitmap scaled(const Bitmap& picture, Size size) override;
  Bitmap smoothed(const Bitmap& picture, int side) override;
  Segments segmented(const Bitmap& picture, int most) override;
  Mask withoutSpecks(const Mask& mask, Size size, int least) override;
  std::vector<std::uint8_t> depths(const Mask& mask, Size size) override;
};

}  // namespace gridwright
