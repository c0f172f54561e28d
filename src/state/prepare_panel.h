// The panel that makes a picture ready for a maze, and the view of how big a maze will be, as they stand.
// Rules write these models; a tenant shows them and reports what a person does through session/input.h.
#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "canvas/bitmap.h"
#include "pictures/prepare.h"

namespace gridwright {

struct PreparePanel {
  bool open = false;
  std::shared_ptr<const Picture> picture;
  std::shared_ptr<Preparation> preparation;  ///< Of `picture`; it works beside the program.
  PrepareSettings settings;                  ///< As a person has them.
  PrepareGround ground;                      ///< What it is made ready for.
  std::shared_ptr<const Prepared> made;      ///< What came of it last; null until there is something.
  std::string line;                          ///< What came of it in words; it stays when the panel closes.
  bool working = false;                      ///< `made` is of earlier settings: newer work is under way.
  bool useWhenMade = false;                  ///< A person wants what that work will give.
  std::uint64_t asked = 0;                   ///< Grows with each work that is begun: only the last counts.
  std::uint64_t revision = 1;  ///< Grows with every change, so that a tenant brings its widgets in line.

  /// Whether the picture can be taken unchanged: it is here in its own pixels and the Canvas holds it.
  [[nodiscard]] bool fitsAsItIs() const {
    return picture && picture->isWholeAsItIs() && picture->own.width <= ground.canvas.width &&
           picture->own.height <= ground.canvas.height;
  }
};

/// The regions of a drawing in colours, over the Canvas and on no plane of it, until the next key or click.
struct RegionsView {
  bool shown = false;
  Bitmap colours;  ///< As large as the Canvas; `kOutside` where nothing is laid over it.
  std::string line;
  std::uint64_t revision = 1;
};

}  // namespace gridwright
