// Paper, and whether a picture makes a maze as it is.
#pragma once

#include "canvas/bitmap.h"
#include "canvas/colour_sets.h"
#include "pictures/picture.h"

namespace gridwright {

/// The ground of a prepared picture: it looks and prints white, is in no colour set, and no maze enters it.
inline constexpr Colour kPaper = 0xFEFEFE;

/// Whether a picture is taken as it is: at most 1000 by 1000, every colour paper or one of the sixteen but
/// white, and the pixel at (1, 1) paper or a border by these sets.
bool isReady(const Bitmap& picture, const ColourSets& sets);
/// The same of a picture from a file, all of which is here in its own pixels: laid on paper where it is
/// transparent.
bool isReady(const Picture& picture, const ColourSets& sets);

/// The sets as they stand when the program starts, and after "Reset all colors": the first eight colours
/// backgrounds, every maze colour white.
ColourSets startingSets();

/// Whether each palette colour means the same in both.
bool sameSets(const ColourSets& one, const ColourSets& other);

}  // namespace gridwright
