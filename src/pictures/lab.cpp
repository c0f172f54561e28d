#include "pictures/lab.h"

#include <cmath>

namespace gridwright {

namespace {

/// A channel of 0 to 255 as an amount of light, 0 to 1.
double lightOf(int channel) {
  const double part = channel / 255.0;
  return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
}

double perceived(double amount) {
  constexpr double kDark = 216.0 / 24389;
  return amount > kDark ? std::cbrt(amount) : (24389.0 / 27 * amount + 16) / 116;
}

}  // namespace

Lab labOf(Colour colour) {
  const double red = lightOf(colour & 0xFF);
  const double green = lightOf(colour >> 8 & 0xFF);
  const double blue = lightOf(colour >> 16 & 0xFF);
  const double x = perceived((0.4124564 * red + 0.3575761 * green + 0.1804375 * blue) / 0.95047);
  const double y = perceived(0.2126729 * red + 0.7151522 * green + 0.0721750 * blue);
  const double z = perceived((0.0193339 * red + 0.1191920 * green + 0.9503041 * blue) / 1.08883);
  return {116 * y - 16, 500 * (x - y), 200 * (y - z)};
}

double apart(const Lab& one, const Lab& other) {
  return std::sqrt((one.l - other.l) * (one.l - other.l) + (one.a - other.a) * (one.a - other.a) +
                   (one.b - other.b) * (one.b - other.b));
}

}  // namespace gridwright
