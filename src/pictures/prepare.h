// Any picture made ready for a maze: few exact colours, hard edges, outlines that hold, paper all round.
//
// The steps: the picture is fitted, what is paper is found, noise goes and soft edges are made hard, what is
// left is sorted into few colours, specks go, thin borders are made two pixels wide, the colours found are
// paired with the sixteen, outlines are drawn, and the subject is put in the middle of paper. No step draws
// by chance: the same picture and settings give the same bytes.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "canvas/maze_kind.h"
#include "pictures/picture.h"
#include "pictures/picture_work.h"
#include "pictures/ready.h"
#include "pictures/regions.h"

namespace gridwright {

enum class Outlines {
  automatic,
  none,
  thin,
  thick
};  ///< automatic: thin, unless the picture has lines of its own

inline constexpr int kFewestColours = 2, kMostColours = 16;  ///< Paper counted.
inline constexpr int kCoarsest = 1, kFinest = 5;             ///< Of `detail`.

struct PrepareSettings {
  bool asItsSize =
      false;  ///< The picture's own pixels, and what lies past the Canvas is cut; else it is fitted.
  int colours = 6;
  int detail = 3;
  Outlines outlines = Outlines::automatic;
  /// Which of the colours found a maze grows in, counted from 1; numbers that none has are passed over.
  /// Left out: all but lines.
  std::optional<std::vector<int>> grow;
  friend bool operator==(const PrepareSettings&, const PrepareSettings&) = default;
};

/// What the picture is made ready for.
struct PrepareGround {
  Size canvas;  ///< Of the picture that comes out; each side 1 to 1000.
  int wallSize = 10;
  MazeKind kind = MazeKind::regular;
  ColourSets sets = startingSets();  ///< What colours mean where the picture is to stand.
  friend bool operator==(const PrepareGround& one, const PrepareGround& other) {
    return one.canvas == other.canvas && one.wallSize == other.wallSize && one.kind == other.kind &&
           sameSets(one.sets, other.sets);
  }
};

/// A colour of the picture that is not paper.
struct FoundColour {
  Colour colour = 0;      ///< As it is in the picture, about.
  Colour becomes = 0;     ///< The one of the sixteen that it is painted in.
  std::int64_t area = 0;  ///< Pixels, before outlines are drawn.
  bool grows = false;     ///< Whether a maze grows in it.
  bool isLines = false;   ///< Whether it is the picture's own lines.
};

struct Prepared {
  Bitmap picture;                      ///< As large as the Canvas: the fifteen without white, and paper.
  std::vector<FoundColour> found;      ///< The largest area first.
  Outlines outlines = Outlines::thin;  ///< What automatic came to.
  RegionCount count;
  Size cutFrom{};  ///< How large the picture is, where not all of it came onto the Canvas; else 0 by 0.
  Size taken{};    ///< How much of it the Canvas takes then.
};

/// A picture under preparation. It remembers the steps that a change of settings leaves alone, so that a
/// change costs little more than the steps it concerns. One thread at a time.
class Preparation {
 public:
  /// Keeps references to both.
  Preparation(const Picture& picture, PictureWork& work);
  ~Preparation();
  Preparation(const Preparation&) = delete;
  Preparation& operator=(const Preparation&) = delete;

  /// Settings outside their ranges count as the nearest inside.
  Prepared make(const PrepareSettings& settings, const PrepareGround& ground);

 private:
  struct Steps;
  std::unique_ptr<Steps> steps_;
};

/// The same, once.
Prepared prepare(const Picture& picture, const PrepareSettings& settings, const PrepareGround& ground,
                 PictureWork& work);

/// The line of what would come of it, and of what was cut: "2,156 cells in 3 regions; 12 areas too small for
/// a cell", and where something was cut "; the picture is 1200x900, the Canvas takes 780x580 of it".
std::string prepareLine(const Prepared& prepared);

}  // namespace gridwright
