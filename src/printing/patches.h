// A picture cut into rectangles of one colour, for pages that a printer draws and does not copy pixel by
// pixel.
//
// Who draws one patch beside another of another colour draws a fine line of what lies below between them, in
// every resolution that does not hit their edge: each takes its share of the same dot, one after the other.
// So nothing lies beside another thing here. Colours come one after the other, the most frequent first, as
// one patch that is as large as the picture; each of the others reaches below those that come later by one
// pixel, where they meet.
#pragma once

#include <cstddef>
#include <optional>
#include <vector>

#include "canvas/bitmap_view.h"

namespace gridwright {

/// A rectangle, in pixels from the picture's top left.
struct Patch {
  int x = 0, y = 0, width = 0, height = 0;
  friend bool operator==(const Patch&, const Patch&) = default;
};

/// What is drawn in one colour, at once.
struct ColourLayer {
  Colour colour = 0;
  std::vector<Patch> patches;
};

/// In the order in which they are drawn.
using ColourLayers = std::vector<ColourLayer>;

/// How many patches a page may take; of more, its pixels are drawn sooner. 20,000, or four for each cell of
/// its maze where that is more. \param cells with a corridor; what is below 0 counts as none.
std::size_t mostPatches(int cells);

/// How many patches all layers have.
std::size_t countPatches(const ColourLayers& layers);

/// The picture in patches: runs of its rows, each as far down as the same run goes on. Drawn one after the
/// other they give each pixel its colour. \returns nothing where it would take more than `most`.
std::optional<ColourLayers> layersOf(const BitmapView& picture, std::size_t most);

/// The patches that make `picture` of `below`, a picture of the same size that is drawn already: what is the
/// same in both stays free. \returns nothing where it would take more than `most`.
std::optional<ColourLayers> layersOver(const BitmapView& below, const BitmapView& picture, std::size_t most);

}  // namespace gridwright
