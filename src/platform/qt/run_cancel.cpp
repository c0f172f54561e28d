#include "platform/qt/run_cancel.h"

namespace gridwright {

RunCancel::RunCancel(QWidget* parent, QBoxLayout* row) : QPushButton(parent), row_(row) {
  row_->addWidget(this);
  setObjectName("RunCancel");
  setFocusPolicy(Qt::TabFocus);
  setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Ignored);
  setToolTip("ends the run; the maze in hand goes on as an ordinary one");
  hide();
}

void RunCancel::mirror(const PrintState& run, bool alone) {
  const int total = run.printMode == PrintMode::none ? 0 : run.printTotal;
  if (done_ != run.printedCount || total_ != total || alone_ != alone) {
    done_ = run.printedCount;
    total_ = total;
    setText(alone ? QString("Cancel printing: %1 of %2 done").arg(done_).arg(total_) : "Cancel printing");
    setVisible(total_ != 0);
  }
  if (alone_ != alone) moveOut(alone);
  if (alone_ && total_ != 0) placeInCorner();
}

void RunCancel::moveOut(bool alone) {
  alone_ = alone;
  if (alone_) {
    row_->removeWidget(this);
  } else {
    row_->addWidget(this);
  }
}

void RunCancel::placeInCorner() {
  QRect place({}, sizeHint());
  place.moveBottomRight(parentWidget()->rect().bottomRight());
  if (geometry() != place) setGeometry(place);
  raise();
}

}  // namespace gridwright
