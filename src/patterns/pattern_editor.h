// The pattern editor: a person draws one direction's pattern with the arrow keys on a field of its own.
#pragma once

#include <cstdint>

#include "state/program.h"

namespace gridwright {

/// Takes the whole Canvas for as long as `editedPattern` is not 0, with a loop of its own inside the
/// caller's. Returns when the editor was left, the picture and the walker as they were, or with
/// `phase` -6 at a quit.
void editpat(Program& program);

void editpatterns(Program& program);  ///< "Edit left pattern"
void rightpattern(Program& program);  ///< "Edit right pattern"
void uppattern(Program& program);     ///< "Edit up pattern"
void downpattern(Program& program);   ///< "Edit down pattern"
void exitpattern(Program& program);   ///< "Exit pattern editor"

/// The keys of phase -1: the arrows step, G allows walking back.
void patternKey(Program& program, int code);

/// Tells when a run of random steps is over.
class RandomRunWatch {
 public:
  /// To be asked once a pass of the run. \returns whether as many fresh cells were walked as were wanted, or
  /// the field is too small for them: none has come for a thousand passes to each cell of the field.
  bool isOver(const Program& program);

 private:
  int stepsSeen_ = 0;
  std::int64_t passesInVain_ = 0;
};

/// Ends a run of random steps in the editor, the size put back.
void endRandomRun(ProgramState& state);

}  // namespace gridwright
