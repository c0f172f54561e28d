// What stood on the Canvas's persistent plane when it was last looked at, and what has changed since.
//
// Where to look is told by the Canvas's own boxes of strokes, so that no room that paints need know of it.
// One memory at a time may look: each look takes the boxes.
#pragma once

#include <vector>

#include "canvas/canvas.h"
#include "history/colour_runs.h"

namespace gridwright {

/// A box of the persistent plane that has changed, with the marks of what was covered.
struct KeptPatch {
  Canvas::Dirty box;
  Runs before, after;
};
using Patches = std::vector<KeptPatch>;

/// How many bytes patches take.
std::size_t bytesOf(const Patches& patches);

class PictureMemory {
 public:
  /// Whether a pixel that keeps its colour and is covered now, or no longer, has changed.
  enum class Marks { count, areOverlooked };
  explicit PictureMemory(Marks marks) : marks_(marks) {}

  /// Remembers the whole plane as it stands.
  void follow(Canvas& canvas);
  /// What has changed where strokes went since the last look; remembers it. Expects that it has followed.
  Patches take(Canvas& canvas);
  /// The same, wherever it is: another memory has looked meanwhile.
  Patches takeAll(Canvas& canvas);

  /// Puts on the Canvas what was there before, or after; remembers that too.
  void putBefore(Canvas& canvas, const Patches& patches);
  void putAfter(Canvas& canvas, const Patches& patches);

 private:
  [[nodiscard]] Canvas::Dirty changedIn(const Canvas& canvas, const Canvas::Dirty& box) const;
  void takeBox(const Canvas& canvas, const Canvas::Dirty& box, Patches& patches);
  void takeOver(Canvas& canvas);
  void put(Canvas& canvas, const Canvas::Dirty& box, const Runs& runs);
  Colour* row(int y) { return plane_.data() + static_cast<std::size_t>(y) * Canvas::kSide; }
  [[nodiscard]] const Colour* row(int y) const {
    return plane_.data() + static_cast<std::size_t>(y) * Canvas::kSide;
  }

  Marks marks_;
  std::vector<Colour> plane_;
};

}  // namespace gridwright
