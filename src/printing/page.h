// The Canvas as a page shows it.
#pragma once

#include <utility>

#include "canvas/bitmap_view.h"
#include "state/program.h"

namespace gridwright {

/// A picture to be printed: the shown plane itself where paper takes it as it stands, until something is
/// painted; else one that was made of it.
class Page {
 public:
  Page(const BitmapView& shown, PageLook look) : shown_(shown), look_(std::move(look)) {}
  Page(Bitmap made, PageLook look) : made_(std::move(made)), shown_(made_), look_(std::move(look)) {}
  Page(const Page&) = delete;
  Page& operator=(const Page&) = delete;

  [[nodiscard]] const BitmapView& view() const { return shown_; }
  /// How it is set up, and where its ends lie that are to have a word.
  [[nodiscard]] const PageLook& look() const { return look_; }

 private:
  Bitmap made_;
  BitmapView shown_;
  PageLook look_;
};

void whiteground(Program& program);  ///< "White ground": on, or off again.
void setWhiteGround(Program& program, bool on);

/// The part of a picture that a page shows: with a white ground the smallest box outside which every pixel is
/// `BackColor`, with one wall size round it where the picture has that; else, and where there is nothing but
/// ground, the whole of it.
Square partOnPage(const Program& program, const BitmapView& picture);

/// The shown plane as paper takes it. Paper is plain white there, since a printer may put dots for what is
/// only nearly white. With a white ground it is `partOnPage`, and `BackColor` is white.
/// Words beside the ends belong to a maze that has both: after it is made, where the finish is found.
/// \param maze which of a run it shows.
Page pageOf(Program& program, const MazeInRun& maze = {});

}  // namespace gridwright
