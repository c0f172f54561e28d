#include "printing/taken_picture.h"

#include <algorithm>
#include <cstdint>
#include <vector>

#include "pictures/ready.h"
#include "printing/page.h"

namespace gridwright {

Bitmap takenPicture(Program& program, bool withoutTrail, bool clear) {
  const bool walked = program.state.phase == Phase::solving || program.state.phase == Phase::solved;
  const BitmapView shown =
      walked && withoutTrail ? program.pictures.load("drawing2.bmp") : program.canvas.shownView();
  const bool whiteGround = program.state.print.whiteGround;
  const Colour ground = program.canvas.backColor();
  const Square part = partOnPage(program, shown);
  Bitmap taken = plainBitmap(part.right - part.left + 1, part.bottom - part.top + 1, qb::white);
  auto to = taken.pixels.begin();
  for (int y = part.top; y <= part.bottom; ++y) {
    const Colour* from = shown.row(y);
    to = std::transform(from + part.left, from + part.right + 1, to, [&](Colour raw) {
      const Colour pixel = Canvas::colourOf(raw);
      if (pixel != kPaper && pixel != ground) return pixel;
      return (whiteGround ? qb::white : pixel) | (clear ? kSeeThrough : 0);
    });
  }
  return taken;
}

int scaleWithin(const Size& picture, const Size& area, int dpi) {
  constexpr std::int64_t kTenthsInAnInch = 254;
  const auto times = [&](int room, int side) {
    return std::int64_t{room} * dpi / (kTenthsInAnInch * std::max(1, side));
  };
  return static_cast<int>(std::max<std::int64_t>(
      1, std::min(times(area.width, picture.width), times(area.height, picture.height))));
}

int scaleOnPage(const Size& picture, const PageSetup& setup, const UsualPaper& usual, int dpi) {
  const PaperSize upright = setup.paper.value_or(usual.size);
  const bool lies = setup.landscape.value_or(picture.width > picture.height);
  const Size sheet = lies ? Size{upright.height, upright.width} : Size{upright.width, upright.height};
  const Margins wanted = setup.margins.value_or(usual.margins);
  const auto room = [](int side, int before, int after) {
    const double left = side - heldMargin(before, side) - heldMargin(after, side);
    return std::max(1, static_cast<int>(left));
  };
  return scaleWithin(
      picture, {room(sheet.width, wanted.left, wanted.right), room(sheet.height, wanted.top, wanted.bottom)},
      dpi);
}

bool hasHoles(const BitmapView& picture) {
  for (int y = 0; y < picture.height; ++y) {
    const Colour* row = picture.row(y);
    Colour all = 0;  // over the row as a whole: a loop that may stop at each pixel takes longer
    for (int x = 0; x < picture.width; ++x) all |= row[x];
    if (isSeeThrough(all)) return true;
  }
  return false;
}

std::optional<ColourLayers> layersOfTaken(const BitmapView& picture, std::size_t most) {
  if (!hasHoles(picture)) return layersOf(picture, most);
  // What is the same in the picture below stays free: so that has the see-through pixels, and no other.
  Bitmap below = picture.copied();
  auto pixel = below.pixels.begin();
  for (int y = 0; y < picture.height; ++y) {
    pixel = std::transform(picture.row(y), picture.row(y) + picture.width, pixel, [](Colour raw) {
      return isSeeThrough(raw) ? raw & kColourBits : (raw & kColourBits) ^ 1;
    });
  }
  return layersOver(below, picture, most);
}

}  // namespace gridwright
