// All that can be looked at in a pump, as one number: the record, the pixels of both planes, the draws to
// come.
#pragma once

#include <cstdint>

#include "state/field_names.h"
#include "state/program.h"

namespace gridwright::test {

class WholeLook {
 public:
  explicit WholeLook(const Program& program) {
    for (const FieldName& field : fieldNames()) add(field.read(program));
    const WalkerState& w = program.state.walker;
    add(w.passesSinceCarved);
    add(w.freeCellMetSinceStep ? 1 : 0);
    add(static_cast<std::int64_t>(w.channelPosition));
    const Canvas& canvas = program.canvas;
    for (int y = 0; y < canvas.scaleHeight(); ++y) {
      for (int x = 0; x < canvas.scaleWidth(); ++x) {
        add(canvas.row(0, y)[x]);
        add(canvas.shownRow(y)[x]);
      }
    }
    Random draws = program.random;
    for (int i = 0; i < 3; ++i) add(draws.oneTo(1'000'000'000));
  }
  [[nodiscard]] std::uint64_t number() const { return number_; }

 private:
  void add(std::int64_t value) {
    number_ = (number_ ^ static_cast<std::uint64_t>(value)) * 1099511628211U;
    number_ ^= number_ >> 31;
  }
  std::uint64_t number_ = 1469598103934665603U;
};

}  // namespace gridwright::test
