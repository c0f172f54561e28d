// How far a run of mazes is, and its end: a button in the status line's row.
#pragma once

#include <QPushButton>

#include "state/program.h"

namespace gridwright {

/// Shown while a run is under way. It takes no height of its own, and the keyboard by Tab alone, so that the
/// Canvas keeps its size, and what carves or plays its keys; without a status line it is away too.
class RunCancel : public QPushButton {
 public:
  explicit RunCancel(QWidget* parent);

  /// Brings it in line with the run, if that has changed since.
  void mirror(const PrintState& run);

  [[nodiscard]] QSize minimumSizeHint() const override { return {sizeHint().width(), 0}; }

 private:
  int done_ = 0, total_ = 0;
};

}  // namespace gridwright
