// A picture, or words, as a bitmap that makes a maze: what gridwright-prepare writes and a book is made of.
#pragma once

#include <optional>
#include <string>

#include "canvas/outcome.h"
#include "pictures/prepare.h"
#include "pictures/words.h"

namespace gridwright {

/// What a maze will be like for which something is made ready.
struct ReadyGround {
  int wallSize = 10;
  MazeKind kind = MazeKind::regular;
  std::optional<Size> size;  ///< Of the Canvas, for a picture; left out: the picture's shape.
};

struct MadeReady {
  Bitmap picture;
  std::string line;  ///< What would come of it, for a person.
};

/// A picture that is ready already comes out as it is, on paper.
MadeReady pictureMadeReady(const Picture& picture, const PrepareSettings& settings,
                           const ReadyGround& ground);

/// The words as large as their settings say, with two cells of paper all round. Needs a QGuiApplication.
/// \returns a Fault with one line when there is nothing to paint.
Outcome<MadeReady> wordsMadeReady(const WordSettings& settings, const ReadyGround& ground);

}  // namespace gridwright
