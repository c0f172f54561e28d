// A size as people read it.
#pragma once

#include <string>

#include "canvas/geometry.h"

namespace gridwright {

/// "800x600"
inline std::string sizeWords(Size size) {
  return std::to_string(size.width) + "x" + std::to_string(size.height);
}

}  // namespace gridwright
