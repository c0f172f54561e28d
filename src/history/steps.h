// What the history holds: steps of the drawing, and of the carving by hand.
#pragma once

#include <cstddef>
#include <deque>
#include <memory>
#include <optional>

#include "drawings/drawing_record.h"
#include "history/kept_values.h"
#include "history/picture_memory.h"

namespace gridwright {

/// All that a drawing file holds, as it was before a load and after it.
struct LoadedValues {
  DrawingRecord before, after;
};

/// One step of the drawing.
struct DrawingStep {
  Patches patches;
  KeptValues before, after;
  std::unique_ptr<LoadedValues> load;  ///< Null but for a load.
  std::size_t bytes = 0;
};

/// What one arrow key has carved, and the walker as the key found it.
struct CarveStep {
  Patches patches;
  Square cur;
  Square lastStop;
  bool stopSeen = false;
  Colour mazeColor = 0, coveredColor = 0, cellColorAtEntry = 0, previousMazeColor = 0;
};

/// The carving by hand since the hand-over.
struct CarveHistory {
  PictureMemory picture{PictureMemory::Marks::areOverlooked};
  bool follows = false;             ///< The picture is the one on the Canvas, but for the key in hand.
  std::optional<CarveStep> inHand;  ///< Of the last arrow key; it has carved nothing yet.
  bool keyCarves = false;           ///< The last arrow key is the last step.
  std::deque<CarveStep> steps;
  std::size_t bytes = 0;
};

struct History {
  std::size_t mostBytes = 0;
  PictureMemory picture{PictureMemory::Marks::count};
  KeptValues values;  ///< As they were at the last look.
  std::deque<DrawingStep> done, undone;
  std::size_t bytes = 0;       ///< Of both.
  bool stepAwaited = false;    ///< What changes next is a person's doing.
  bool stepBegun = false;      ///< And belongs to the last step.
  std::optional<int> lastKey;  ///< The key that did it; nothing for another input.
  bool windowMoved = false;    ///< Meanwhile, under a panel, the window got another size.
  std::optional<DrawingRecord> beforeLoad;
  CarveHistory carving;
};

}  // namespace gridwright
