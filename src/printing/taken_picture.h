// The picture on the Canvas as it is taken elsewhere, into a file or to be pasted.
#pragma once

#include <cstddef>
#include <optional>

#include "canvas/geometry.h"
#include "printing/patches.h"
#include "state/export_panel.h"
#include "state/program.h"

namespace gridwright {

/// The picture with its colours as they are on the Canvas; with a white ground its rectangle as a page has
/// it, paper and ground white. \param withoutTrail in phases 3 and 4 the picture as it was before the walk;
/// elsewhere there is no trail. \param clear paper and `BackColor` are see-through: `kSeeThrough`.
Bitmap takenPicture(Program& program, bool withoutTrail, bool clear);

/// The largest whole multiple, at least 1, at which a picture fits the printable area of its page at so many
/// dots an inch: the paper, laid as pages of this picture are, without its margins.
int scaleOnPage(const Size& picture, const PageSetup& setup, const UsualPaper& usual, int dpi);

/// The same for any area, in tenths of a millimetre.
int scaleWithin(const Size& picture, const Size& area, int dpi);

/// Whether a pixel is see-through, and whether any of a picture is.
constexpr bool isSeeThrough(Colour pixel) { return (pixel & kSeeThrough) != 0; }
bool hasHoles(const BitmapView& picture);

/// The patches that draw the picture, none where it is see-through. \returns nothing where it would take more
/// than `most`.
std::optional<ColourLayers> layersOfTaken(const BitmapView& picture, std::size_t most);

}  // namespace gridwright
