#include "patterns/random_size.h"

#include <algorithm>
#include <string>

#include "menus/menu_rules.h"
#include "menus/panels.h"

namespace gridwright {

namespace {

constexpr int kSmallest = 2;
constexpr int kLargest = 99;

void setVaries(Program& program, bool varies) {
  program.state.randomPatterns.randomSizeVaries = varies;
  markOne(program.menus, {Item::maxrnd, Item::usernd}, varies ? Item::usernd : Item::maxrnd);
}

}  // namespace

void srndpatterns(Program& program) {
  openPanelOverScreen(program, kRandomSizePanel,
                      std::to_string(program.state.randomPatterns.randomPatternSize));
}

void randomSizeEntered(Program& program) {
  const int typed = numberTyped(program.controls[ControlId::Text7].text);
  closePanel(program, kRandomSizePanel);
  program.state.randomPatterns.randomPatternSize = std::clamp(typed, kSmallest, kLargest);
  program.controls.setText(ControlId::Text7, std::to_string(program.state.randomPatterns.randomPatternSize));
  captionRandomSizes(program);
}

void randomSizeEscaped(Program& program) { closePanel(program, kRandomSizePanel); }

void maxrnd(Program& program) { setVaries(program, false); }
void usernd(Program& program) { setVaries(program, true); }

}  // namespace gridwright
