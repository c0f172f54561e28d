// What a person does on the sheet, by mouse or by keys.
#include <QKeyEvent>
#include <QMouseEvent>
#include <QScrollBar>
#include <algorithm>

#include "platform/qt/sheet_view.h"

namespace gridwright {

namespace {

constexpr int kReach = 8;  // screen pixels from a handle that still take it

Corner cornerOf(QPoint pixel) { return {pixel.x(), pixel.y()}; }

std::optional<QPoint> directionOf(int key) {
  switch (key) {
    case Qt::Key_Left:
      return QPoint(-1, 0);
    case Qt::Key_Right:
      return QPoint(1, 0);
    case Qt::Key_Up:
      return QPoint(0, -1);
    case Qt::Key_Down:
      return QPoint(0, 1);
    default:
      return std::nullopt;
  }
}

}  // namespace

std::optional<Corner> SheetView::pointer() const {
  if (!hasPointer_ || !picture_.rect().contains(pointer_)) return std::nullopt;
  return cornerOf(pointer_);
}

void SheetView::movePointer(QPoint pixel, bool byKeys) {
  if (byKeys_) updateBox({pointer_, QSize(1, 1)});
  pointer_ = pixel;
  hasPointer_ = true;
  byKeys_ = byKeys;
  if (byKeys_) updateBox({pointer_, QSize(1, 1)});
  if (onPointer) onPointer();
}

/// Keys begin in the middle, and stay on the sheet.
void SheetView::movePointerByKeys(QPoint by) {
  const QPoint to = (hasPointer_ ? pointer_ : picture_.rect().center()) + by;
  movePointer({std::clamp(to.x(), 0, picture_.width() - 1), std::clamp(to.y(), 0, picture_.height() - 1)},
              true);
  showPointer();
}

/// Scrolls until the pixel under the pointer is seen.
void SheetView::showPointer() {
  const auto show = [this](QScrollBar& bar, int at, int room) {
    const int from = at * scale();
    if (from < bar.value()) bar.setValue(from);
    if (from + scale() > bar.value() + room) bar.setValue(from + scale() - room);
  };
  show(*horizontalScrollBar(), pointer_.x(), screenSize().width());
  show(*verticalScrollBar(), pointer_.y(), screenSize().height());
}

Qt::CursorShape SheetView::cursorShape() const {
  using Part = PlacedFrame::Part;
  const auto part = frame_ ? frame_->partAt(pointer_, std::max(1, kReach / scale())) : std::nullopt;
  if (!part) return Qt::CrossCursor;
  if (*part == Part::inside) return Qt::SizeAllCursor;
  return *part == Part::topRight || *part == Part::bottomLeft ? Qt::SizeBDiagCursor : Qt::SizeFDiagCursor;
}

void SheetView::showCursor() {
  const Qt::CursorShape shape = cursorShape();
  if (viewport()->cursor().shape() != shape) viewport()->setCursor(shape);
}

void SheetView::endStroke() {
  if (held_ == Held::nothing) return;
  const bool onFrame = held_ == Held::frame;
  held_ = Held::nothing;
  if (!onFrame) onEnd();
}

/// A press outside the frame leaves it, and does nothing else: it may be meant for just that.
void SheetView::pressFrame() {
  const auto part = frame_->partAt(pointer_, std::max(1, kReach / scale()));
  if (!part) return leaveFrame();
  held_ = Held::frame;
  grip_ = *part;
  grabbed_ = frame_;
  grabbedAt_ = pointer_;
}

void SheetView::mousePressEvent(QMouseEvent* event) {
  event->accept();
  if (held_ != Held::nothing) return;
  movePointer(pixelAt(event->position()), false);
  if (event->button() == Qt::RightButton) return onPick(cornerOf(pointer_));
  if (event->button() != Qt::LeftButton) return;
  if (frame_) return pressFrame();
  held_ = Held::byMouse;
  onPress(cornerOf(pointer_));
}

void SheetView::moveFrame(const QRect& box) {
  showFrame(box);
  onMovePlaced({box.x(), box.y()}, {box.width(), box.height()});
}

void SheetView::dragTo(QPoint pixel, Qt::KeyboardModifiers modifiers) {
  const bool isShifted = modifiers.testFlag(Qt::ShiftModifier);
  if (held_ == Held::byMouse || held_ == Held::byKey) return onDrag(cornerOf(pixel), isShifted);
  if (held_ != Held::frame) return;
  const QRect box = grabbed_->dragged(grip_, pixel - grabbedAt_, isShifted);
  moveFrame(box);
}

void SheetView::mouseMoveEvent(QMouseEvent* event) {
  event->accept();
  if (held_ == Held::byKey) return;
  const QPoint pixel = pixelAt(event->position());
  if (hasPointer_ && pixel == pointer_) return;
  movePointer(pixel, false);
  if (held_ == Held::nothing) return showCursor();
  dragTo(pixel, event->modifiers());
}

void SheetView::mouseReleaseEvent(QMouseEvent* event) {
  event->accept();
  if (event->button() != Qt::LeftButton) return;
  if (held_ == Held::frame) {
    held_ = Held::nothing;
    return;
  }
  if (held_ != Held::byMouse) return;
  held_ = Held::nothing;
  movePointer(pixelAt(event->position()), false);
  onRelease(cornerOf(pointer_), event->modifiers().testFlag(Qt::ShiftModifier));
}

/// Arrows, with Ctrl by a cell, and + and -: while a placed picture is framed they are its own.
bool SheetView::keyOnFrame(const QKeyEvent& event) {
  const bool isPlain = (event.modifiers() & (Qt::ControlModifier | Qt::AltModifier)) == 0;
  if (isPlain && (event.key() == Qt::Key_Return || event.key() == Qt::Key_Enter)) {
    leaveFrame();
    return true;
  }
  QRect box = frame_->box();
  if (const auto towards = directionOf(event.key())) {
    const bool byCell = event.modifiers().testFlag(Qt::ControlModifier);
    box.translate(towards->x() * (byCell ? pitch_.stepX : 1), towards->y() * (byCell ? pitch_.stepY : 1));
  } else if (isPlain && (event.key() == Qt::Key_Plus || event.key() == Qt::Key_Minus)) {
    box = frame_->scaled(event.key() == Qt::Key_Plus);
  } else {
    return false;
  }
  moveFrame(box);
  return true;
}

/// \returns whether the key moves the pointer.
bool SheetView::keyMoves(const QKeyEvent& event) {
  const auto towards = directionOf(event.key());
  if (!towards || event.modifiers().testFlag(Qt::AltModifier)) return false;
  if (held_ == Held::byMouse) return true;
  const bool byCell = event.modifiers().testFlag(Qt::ControlModifier);
  const QPoint by(towards->x() * (byCell ? pitch_.stepX : 1), towards->y() * (byCell ? pitch_.stepY : 1));
  movePointerByKeys(by);
  dragTo(pointer_, event.modifiers());
  return true;
}

void SheetView::keyPressEvent(QKeyEvent* event) {
  event->accept();
  if (frame_ && held_ == Held::nothing && keyOnFrame(*event)) return;
  if (keyMoves(*event)) return;
  if (event->key() == Qt::Key_Shift) return dragTo(pointer_, event->modifiers() | Qt::ShiftModifier);
  const bool isButton = event->key() == Qt::Key_Space && (event->modifiers() & Qt::ControlModifier) == 0;
  if (!isButton) return QAbstractScrollArea::keyPressEvent(event);
  if (event->isAutoRepeat() || held_ != Held::nothing || frame_) return;
  movePointerByKeys({});
  held_ = Held::byKey;
  onPress(cornerOf(pointer_));
}

void SheetView::keyReleaseEvent(QKeyEvent* event) {
  if (event->isAutoRepeat()) return event->accept();
  if (event->key() == Qt::Key_Shift) dragTo(pointer_, event->modifiers() & ~Qt::ShiftModifier);
  if (event->key() != Qt::Key_Space || held_ != Held::byKey)
    return QAbstractScrollArea::keyReleaseEvent(event);
  held_ = Held::nothing;
  onRelease(cornerOf(pointer_), event->modifiers().testFlag(Qt::ShiftModifier));
}

void SheetView::focusInEvent(QFocusEvent* event) {
  const auto reason = event->reason();
  if (reason == Qt::TabFocusReason || reason == Qt::BacktabFocusReason) movePointerByKeys({});
  viewport()->update();
}

void SheetView::focusOutEvent(QFocusEvent* /*event*/) {
  endStroke();
  viewport()->update();
}

void SheetView::hideEvent(QHideEvent* event) {
  endStroke();
  if (!event->spontaneous()) frameLeft_ = false;
  QAbstractScrollArea::hideEvent(event);
}

}  // namespace gridwright
