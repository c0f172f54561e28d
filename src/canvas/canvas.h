// The picture that is the maze: a block of pixels with two planes.
//
// The *persistent* plane survives repainting and is what gets saved. The *shown* plane is what a
// person sees and what a page is printed from. While `autoRedraw()` is true a stroke goes to both
// planes; while it is false it goes to the shown plane alone and the next `cls()` takes it away.
//
// Contract
//  * `point()` reads the plane that strokes go to. Outside the visible part it gives `kOutside`.
//  * Strokes are clipped and never fail. Box corners are inclusive and come in any order.
//  * The block is 1000 by 1000 pixels and never moves in memory; the visible part lies at its top
//    left. What a smaller window hides is kept and comes back with a larger one.
//  * A pixel that neither the picture nor a stroke has covered follows `setBackColor()`.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <vector>

#include "canvas/bitmap.h"
#include "canvas/bitmap_view.h"
#include "canvas/colour.h"
#include "canvas/geometry.h"

namespace gridwright {

class Canvas {
 public:
  static constexpr int kSide = 1000;  ///< The largest width and height, in pixels.

  Canvas();
  Canvas(const Canvas&) = delete;  // the plane that strokes go to is a pointer into this very block
  Canvas& operator=(const Canvas&) = delete;

  /// Size of the visible part. `resize` holds both between 1 and 1000.
  [[nodiscard]] int scaleWidth() const { return width_; }
  [[nodiscard]] int scaleHeight() const { return height_; }
  void resize(Size size);

  [[nodiscard]] bool autoRedraw() const { return autoRedraw_; }
  void setAutoRedraw(bool on) {
    autoRedraw_ = on;
    plane_ = on ? persistent_.data() : shown_.data();
  }

  /// Colour of a pixel of the plane that strokes go to, `kOutside` beyond the visible part.
  [[nodiscard]] Colour point(int x, int y) const {
    if (!inside(x, y)) return kOutside;
    noteReads(1);
    return plane_[index(x, y)] & kColourBits;
  }
  /// Colours of a row of pixels from (x, y); the caller keeps the run inside the visible part.
  [[nodiscard]] const Colour* row(int x, int y) const { return plane_ + index(x, y); }
  /// Counts pixels that were read, in the one build of the tests that counts them.
#ifdef GRIDWRIGHT_COUNTS_READS
  static inline std::int64_t reads = 0;
  static void noteReads(std::size_t pixels) { reads += static_cast<std::int64_t>(pixels); }
#else
  static void noteReads(std::size_t /*pixels*/) {}
#endif
  /// What `row` gives, less the mark that says whether a stroke has covered the pixel.
  static constexpr Colour colourOf(Colour raw) { return raw & kColourBits; }
  [[nodiscard]] bool inside(int x, int y) const {
    return static_cast<unsigned>(x) < static_cast<unsigned>(width_) &&
           static_cast<unsigned>(y) < static_cast<unsigned>(height_);
  }

  /// A straight line parallel to an axis, from the first point up to and not including the second.
  void line(int x1, int y1, int x2, int y2, Colour colour);
  /// The one-pixel outline of a box.
  void outline(int x1, int y1, int x2, int y2, Colour colour);
  /// A filled box, both corners included.
  void fill(int x1, int y1, int x2, int y2, Colour colour);
  void fill(const Square& box, Colour colour) { fill(box.left, box.top, box.right, box.bottom, colour); }

  /// Without redraw: drops the strokes made without it. With redraw: `backColor()` everywhere.
  void cls();

  /// Copies a picture to the top left, one to one, cut at 1000 by 1000.
  void paintPicture(const BitmapView& source);

  /// Makes both planes anew: `backColor()` everywhere, the bitmap at the top left over it.
  void setPicture(const BitmapView& picture);
  void clearPicture() { setPicture(Bitmap{}); }

  [[nodiscard]] Colour backColor() const { return backColor_; }
  /// Recolours, on both planes, what nothing has covered since the picture was last set.
  void setBackColor(Colour colour);

  /// The visible part of the persistent plane and of what a person sees, where they lie: as they stand until
  /// the next stroke.
  [[nodiscard]] BitmapView imageView() const { return visiblePart(persistent_); }
  [[nodiscard]] BitmapView shownView() const { return visiblePart(shown_); }
  /// The persistent plane as far as it shows anything: the visible part, and what a smaller window hides of a
  /// picture that is larger.
  [[nodiscard]] BitmapView wholeView() const;
  [[nodiscard]] Bitmap image() const { return imageView().copied(); }       ///< The persistent plane.
  [[nodiscard]] Bitmap shownImage() const { return shownView().copied(); }  ///< What a person sees.
  [[nodiscard]] Colour shownPoint(int x, int y) const;                      ///< A pixel of that.
  [[nodiscard]] const Colour* shownRow(int y) const { return shown_.data() + index(0, y); }

  /// Whether the persistent plane's visible part shows anything: more than one colour.
  [[nodiscard]] bool showsAnything() const;

  /// The part of the shown plane that changed since `takeDirty`, right and bottom excluded.
  struct Dirty {
    int left = 0, top = 0, right = 0, bottom = 0;
    [[nodiscard]] bool empty() const { return left >= right || top >= bottom; }
  };
  [[nodiscard]] bool isDirty() const { return !dirty_.empty(); }
  Dirty takeDirty();
  /// The part of both planes that changed since `takePainted`, right and bottom excluded: for a routine
  /// that remembers what it has read.
  Dirty takePainted();
  /// Boxes of the persistent plane that strokes went to since `takeKept`, beyond the visible part too, in no
  /// order; they may overlap. For who keeps what stood there before.
  struct KeptBoxes {
    std::array<Dirty, 8> boxes;
    std::size_t count = 0;
  };
  KeptBoxes takeKept();
  /// A row of the persistent plane, with the marks of what a stroke has covered.
  [[nodiscard]] const Colour* keptRow(int y) const { return persistent_.data() + index(0, y); }
  /// The persistent image with this colour wherever neither the picture nor a stroke has covered it.
  [[nodiscard]] Bitmap imageOnGround(Colour ground) const;
  /// Puts pixels back on both planes as `keptRow` gave them, with their marks: the box's rows, one after the
  /// other. The box lies within the block.
  void putBack(const Dirty& box, const Colour* pixels);
  /// Grows with every change of a pixel: what was read at the same count is still so.
  [[nodiscard]] std::uint64_t changes() const { return changes_; }
  /// The same for strokes that went to the persistent plane, whatever they changed.
  [[nodiscard]] std::uint64_t keptChanges() const { return keptChanges_; }

 private:
  static constexpr Colour kCovered = 0x1000000;  // a mark in the pixel: one write sets both

  static std::size_t index(int x, int y) {
    return static_cast<std::size_t>(y) * kSide + static_cast<std::size_t>(x);
  }
  void touch(int left, int top, int right, int bottom);
  static void widen(Dirty& part, int left, int top, int right, int bottom);
  void noteKept(int left, int top, int right, int bottom);
  [[nodiscard]] BitmapView visiblePart(const std::vector<Colour>& plane) const {
    return {width_, height_, plane.data(), kSide};
  }

  std::vector<Colour> persistent_, shown_;
  Colour* plane_;
  int width_ = 800, height_ = 600;
  bool autoRedraw_ = true;
  Colour backColor_ = qb::white;
  Dirty dirty_, painted_;
  KeptBoxes kept_;
  std::uint64_t changes_ = 0, keptChanges_ = 0;
};

}  // namespace gridwright
