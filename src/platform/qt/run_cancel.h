// How far a run of mazes is, and its end: a button in the status line's row.
#pragma once

#include <QBoxLayout>
#include <QPushButton>

#include "state/program.h"

namespace gridwright {

/// Shown while a run is under way. It takes no height of its own, and the keyboard by Tab alone, so that the
/// Canvas keeps its size, and what carves or plays its keys; without a status line, which tells how far the
/// run is, it says so itself and lies in the corner over the Canvas.
class RunCancel : public QPushButton {
 public:
  /// \param row of the status line, at whose end it stands.
  RunCancel(QWidget* parent, QBoxLayout* row);

  /// Brings it in line with the run, if that has changed since.
  /// \param alone without a status line.
  void mirror(const PrintState& run, bool alone);

  [[nodiscard]] QSize minimumSizeHint() const override { return {sizeHint().width(), 0}; }

 private:
  void moveOut(bool alone);
  void placeInCorner();

  QBoxLayout* row_;
  int done_ = 0, total_ = 0;
  bool alone_ = false;
};

}  // namespace gridwright
