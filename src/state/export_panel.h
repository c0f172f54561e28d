// The picture on the Canvas taken elsewhere: what a person wishes, and the panel that asks for it.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "canvas/bitmap_view.h"
#include "state/page_setup.h"

namespace gridwright {

/// Set in a pixel of a picture that is taken elsewhere: nothing is seen there. Canvas planes know of no such
/// pixel.
inline constexpr Colour kSeeThrough = 0x2000000;

enum class PictureFormat { png, svg, pdf };

inline constexpr int kLeastDpi = 72, kMostDpi = 1200, kUsualDpi = 300;

/// What a person wishes.
struct ExportWish {
  std::string file;     ///< In the working folder unless it begins at the root; its ending is the format.
  int dpi = kUsualDpi;  ///< Of a PNG.
  std::optional<bool> answer =
      std::nullopt;    ///< With the trail, without it; nothing: as it stands on the Canvas.
  bool clear = false;  ///< Paper and `BackColor` are see-through.
  friend bool operator==(const ExportWish&, const ExportWish&) = default;
};

/// The panel, which a tenant shows: what a person changes there counts when it is accepted.
struct ExportPanel {
  ExportWish wish;  ///< As it was accepted last in this run.
  bool open = false;
  bool answerStands = false;   ///< As the panel opened: the Canvas shows a solved maze.
  bool mazeStands = false;     ///< And there is a maze that can be had without a trail.
  std::string line;            ///< Why nothing was written; empty for nothing.
  std::uint64_t revision = 1;  ///< Grows as it opens and closes, and with the line.
};

/// A picture that is to be written for other programs.
struct PictureFile {
  BitmapView picture;  ///< Pixels may be see-through.
  PictureFormat format = PictureFormat::png;
  int scale = 1;            ///< Of a PNG: so many of its pixels a pixel, along each axis.
  int dpi = kUsualDpi;      ///< Of a PNG, as it says of itself.
  const PageLook& look;     ///< Of a PDF's page.
  const UsualPaper& usual;  ///< And what holds where that says nothing.
};

}  // namespace gridwright
