// A picture sorted into few colours, as one label a pixel, and what is done with its areas.
#pragma once

#include <cstdint>
#include <vector>

#include "canvas/geometry.h"
#include "pictures/lab.h"
#include "pictures/picture_work.h"

namespace gridwright {

inline constexpr std::uint8_t kPaperLabel = 255;

struct Areas {
  Size size;
  std::vector<std::uint8_t> labels;  ///< One a pixel: which colour it has, or `kPaperLabel`.
  std::vector<Lab> colours;          ///< What the labels look like.
  Lab paper;                         ///< What paper looks like.
};

/// The pixels of one label.
Mask maskOf(const Areas& areas, std::uint8_t label);

/// Labels whose colours can hardly be told apart become one.
void joinAlike(Areas& areas);

/// A narrow strip between two colours, of a colour between theirs, is what a camera or a soft edge has left:
/// its pixels go to the nearer of the two. A line has the same colour on both sides and stays.
void removeRims(Areas& areas);

/// What hangs together in one colour and is less than `least` pixels wide and high takes the one of the
/// colours beside it that is nearest to its own: so a grey piece of a black line becomes line again, and
/// never a gap.
void removeSpecks(Areas& areas, int least, PictureWork& work);

/// The label that draws the picture's outlines, or `kPaperLabel`: the darkest, if no disc of `cell` pixels
/// fits in it and most of the edges between colours run along it.
std::uint8_t linesOf(const Areas& areas, int cell, PictureWork& work);

/// Where a label of the list is a single pixel wide it becomes two wide, over whatever lies there: a line
/// that goes on by corners alone then hangs together by its sides, and holds as a border.
void widenThinPlaces(Areas& areas, const std::vector<bool>& isBorder);

/// Where an outline is drawn: two pixels wide, or four when `thick`, along each edge between two colours of
/// which neither is paper. Paper stays paper.
Mask outlinesOf(const Areas& areas, bool thick);

}  // namespace gridwright
