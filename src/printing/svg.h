// Pictures in patches as texts that other programs draw at any size.
#pragma once

#include <string>
#include <string_view>

#include "canvas/geometry.h"
#include "printing/patches.h"

namespace gridwright {

/// An SVG of patches, one path a colour, in the order in which they are drawn. Its measure is the picture's
/// pixel, and whoever draws it smooths no edges.
/// \param size of the picture.
/// \param title what it is called, in UTF-8; bytes that are none, and signs that no such text may hold, are
/// left out. Empty for none.
std::string svgOf(const ColourLayers& layers, const Size& size, std::string_view title);

}  // namespace gridwright
