// What a script waits for, pump by pump.
#include <algorithm>
#include <cstdint>
#include <limits>
#include <string>

#include "platform/headless/headless_desktop.h"
#include "platform/shared/end_signals.h"
#include "state/program.h"

namespace gridwright {

namespace {
constexpr std::int64_t kPatience = 50'000'000;  // pumps that `until` waits
}

// The two waits that run through millions of pumps come first: a pump with nothing due costs a few
// comparisons.
void HeadlessDesktop::doEvents(Program& program, Pace pace) {
  if (pace == Pace::housekeeping) return;
  if (endSignal() != 0) throw ProgramEnd{};
  while (waits(program, pace) == Turn::again) {
    if (lineTaken(program) == Turn::givePump) return;
  }
}

HeadlessDesktop::Turn HeadlessDesktop::waits(Program& program, Pace pace) {
  if (awaited_ != nullptr) {
    if (awaited_->read(program) == awaitedValue_) {
      awaited_ = nullptr;
      pumpsLeft_ = 0;
      return Turn::again;
    }
    if (pace == Pace::idle)
      fail("nothing more happens, and it is " + std::to_string(awaited_->read(program)));
    if (--pumpsLeft_ < 0) fail("not in time, it is " + std::to_string(awaited_->read(program)));
    return Turn::givePump;
  }
  if (pumpsLeft_ > 0) {
    --pumpsLeft_;
    return Turn::givePump;
  }
  if (keysLeft_ > 0) return pressKey(program);
  if (settling_ && pace != Pace::idle) {
    if (--settlePumps_ < 0) fail("it does not come to rest");
    return Turn::givePump;
  }
  settling_ = false;
  return Turn::again;
}

// While the script waits it looks at nothing but the field it waits for.
std::int64_t HeadlessDesktop::quietPumps(const Program& program) {
  if (awaited_ != nullptr)
    return isSteady(*awaited_) && awaited_->read(program) != awaitedValue_ ? pumpsLeft_ : 0;
  if (pumpsLeft_ > 0) return pumpsLeft_;
  return settling_ && keysLeft_ == 0 ? std::min(settlePumps_, kPatience) : 0;
}

void HeadlessDesktop::passOver(std::int64_t pumps) {
  std::int64_t& left = settling_ ? settlePumps_ : pumpsLeft_;
  left -= std::min(pumps, left);
}

HeadlessDesktop::Turn HeadlessDesktop::pumps(Program&, const ScriptLine&) {
  pumpsLeft_ = number(1);
  return Turn::again;
}

// With a number of pumps within which it must come to rest; a loop that waits for nothing would go on for
// ever.
HeadlessDesktop::Turn HeadlessDesktop::settle(Program&, const ScriptLine& line) {
  settlePumps_ = line.words.size() > 1 ? number(1) : std::numeric_limits<std::int64_t>::max();
  settling_ = true;
  return Turn::again;
}

HeadlessDesktop::Turn HeadlessDesktop::until(Program&, const ScriptLine& line) {
  awaited_ = fieldNamed(word(1));
  if (awaited_ == nullptr) refuse("no such field: " + word(1));
  awaitedValue_ = number(2);
  pumpsLeft_ = line.words.size() > 3 ? number(3) : kPatience;
  return Turn::again;
}

}  // namespace gridwright
