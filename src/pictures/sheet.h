// The workshop's sheet of paper: exact colours alone, tools that paint on it, and steps that can be taken
// back.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <utility>

#include "canvas/bitmap.h"
#include "canvas/cell_grid.h"
#include "canvas/geometry.h"
#include "pictures/figures.h"
#include "pictures/sheet_steps.h"
#include "pictures/tool.h"

namespace gridwright {

/// At every moment each pixel is one of the inks (tool.h). Places are pixels of the sheet and may lie off it:
/// what would be painted there is left out. Places further off than a hundred thousand pixels count as that
/// far.
///
/// What a tool paints from the press of its button to the release is one step; what changes nothing is none.
/// Whatever else makes a step or takes one back ends a stroke that is under way, where it stands.
class Sheet {
 public:
  static constexpr int kSide = 1000;  ///< The longest side, in pixels; the shortest is 1.

  /// White paper. \param mostBytes what the steps may take; the oldest go first.
  explicit Sheet(Size size, std::size_t mostBytes = SheetSteps::kMostBytes);
  /// A sheet that was kept, as `replace` takes it, but that no step led to it.
  static Sheet asKept(const Bitmap& kept);

  /// What is on the sheet, with the shape that a drag has in hand.
  [[nodiscard]] const Bitmap& picture() const { return picture_; }
  [[nodiscard]] Size size() const { return {picture_.width, picture_.height}; }
  /// The ink at a place; nothing off the sheet.
  [[nodiscard]] std::optional<int> inkAt(int x, int y) const;

  // The tools. A button pressed while one is held, a drag or a release without one, do nothing.
  [[nodiscard]] const ToolSettings& settings() const { return settings_; }
  /// Values outside their ranges count as the nearest inside. A stroke under way keeps what it began with.
  void choose(const ToolSettings& settings);
  /// What a cell is from now on, for a stroke under way too.
  void setPitch(const CellPitch& pitch) { pitch_ = pitch; }
  [[nodiscard]] const CellPitch& pitch() const { return pitch_; }
  /// Fill floods at once, and pick takes the colour; the others begin.
  void press(int x, int y);
  /// Pencil and eraser go on to here, a shape reaches to here.
  /// \param straight lines go level, upright or at 45 degrees, rectangles and ellipses have equal sides.
  void drag(int x, int y, bool straight = false);
  void release(int x, int y, bool straight = false);
  /// As a release where the last drag was.
  void endStroke();
  [[nodiscard]] bool isPressed() const { return pressed_; }
  /// The colour beneath becomes the tool's; nothing happens off the sheet.
  void pick(int x, int y);

  // Steps that no tool makes.
  /// Paper, of this size; its colours mean what they mean at the start.
  void newsheet(Size size);
  /// Puts a picture down with its upper left pixel at a place. Paper in it leaves what is beneath; other
  /// colours than inks are made ones as `replace` does. \param mirror puts it down in mirror places too.
  void placeInk(const Bitmap& ink, Corner at, Mirror mirror = Mirror::none);
  /// The whole sheet becomes this picture, at most `kSide` of each side of it.
  /// \returns how many pixels had a colour that the sheet does not hold: they became the nearest ink, and
  /// white became paper.
  int replace(const Bitmap& picture, Meaning meaning = Meaning::ofTheStart);

  /// What the colours mean; a step that is taken back brings back what they meant.
  [[nodiscard]] Meaning meaning() const { return meaning_; }
  /// From now on they mean this, which makes no step.
  void setMeaning(Meaning meaning);

  /// \returns whether there was a step.
  bool undo();
  bool redo();
  [[nodiscard]] bool canUndo() const { return steps_.canUndo(); }
  [[nodiscard]] bool canRedo() const { return steps_.canRedo(); }
  /// What the steps take, in bytes.
  [[nodiscard]] std::size_t stepBytes() const { return steps_.bytes(); }

  /// What the last step has to say, such as "the fill ran out through a gap at 312, 140"; else empty.
  [[nodiscard]] const std::string& note() const { return note_; }
  /// The last step has this to say.
  void setNote(std::string note) { note_ = std::move(note); }

  /// Grows with every change of a pixel, a size or a step.
  [[nodiscard]] std::uint64_t revision() const { return revision_; }
  /// The smallest square of all pixels that have changed since the last call; right less than left for none.
  Square takeChanged();

 private:
  static Corner held(int x, int y);
  void strokeTo(Corner to, bool straight);
  void paint(const Spans& figure);
  void paintSpans(const Spans& spans);
  void fill(Corner at);
  void layInk(const Bitmap& inks, Corner at, bool leftRight, bool topDown);
  void changed(const Square& part);
  void giveBack();
  void finishStep();
  void crossed(const Square& part);
  void settle();

  Bitmap picture_;
  Bitmap settled_;  ///< As the last step left it.
  Meaning meaning_ = Meaning::ofTheStart, settledMeaning_ = Meaning::ofTheStart;
  SheetSteps steps_;
  ToolSettings settings_, inHand_;  ///< As chosen, and of the stroke under way.
  CellPitch pitch_;
  bool pressed_ = false;
  Corner from_, last_;    ///< Where the stroke under way began, and where it is.
  Square dirty_, shown_;  ///< What differs from `settled_` at most, and from what was taken.
  std::string note_;
  std::uint64_t revision_ = 1;
};

/// A picture in inks alone.
struct InkPicture {
  Bitmap picture;
  int others = 0;  ///< Pixels that had another colour: the nearest ink stands there, and paper for white.
};
InkPicture inInks(const Bitmap& picture);

}  // namespace gridwright
