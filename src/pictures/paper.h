// What of a picture is paper: the ground that it stands on.
#pragma once

#include "pictures/picture.h"
#include "pictures/picture_work.h"

namespace gridwright {

struct Paper {
  Mask mask;                  ///< One a pixel: 1 where the picture is transparent, or paper.
  bool hasColour = false;     ///< Whether paper of a colour was found.
  Colour colour = qb::white;  ///< That colour; white where none was found.
};

/// Paper is what hangs together with the picture's edge in the one colour that most of the edge has, a little
/// noise, and shade that comes on slowly, allowed; and what is transparent. What is closed in is none.
Paper findPaper(const Layer& layer);

/// The smallest square that holds all that is not paper, specks less than `speck` pixels wide and high left
/// out. Right is less than left when there is nothing.
Square subjectOf(const Mask& paper, Size size, int speck, PictureWork& work);

}  // namespace gridwright
