#include "platform/qt/run_cancel.h"

namespace gridwright {

RunCancel::RunCancel(QWidget* parent) : QPushButton(parent) {
  setObjectName("RunCancel");
  setFocusPolicy(Qt::TabFocus);
  setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Ignored);
  setToolTip("ends the run; the maze in hand goes on as an ordinary one");
  hide();
}

void RunCancel::mirror(const PrintState& run) {
  const int total = run.printMode == PrintMode::none ? 0 : run.printTotal;
  if (done_ == run.printedCount && total_ == total) return;
  done_ = run.printedCount;
  total_ = total;
  setText(QString("Cancel printing: %1 of %2 done").arg(done_).arg(total_));
  setVisible(total_ != 0);
}

}  // namespace gridwright
