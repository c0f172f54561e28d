#include "platform/qt/swatch_frame.h"

#include <QAbstractButton>
#include <QKeyEvent>
#include <QPainter>
#include <QRegion>
#include <algorithm>
#include <cstdlib>
#include <optional>
#include <tuple>

#include "platform/qt/swatch_button.h"

namespace gridwright {

namespace {

constexpr int kRing = 2;  // width of the ring
constexpr int kAway = 2;  // and how far it stays from what it surrounds, so that no colour hides it
static_assert(kRing + kAway <= SwatchFrame::kBetweenStops / 2);

bool isActivation(int key) { return key == Qt::Key_Space || key == Qt::Key_Return || key == Qt::Key_Enter; }
bool isArrow(int key) {
  return key == Qt::Key_Left || key == Qt::Key_Right || key == Qt::Key_Up || key == Qt::Key_Down;
}

/// A range of screen positions, and how far another lies beyond it.
struct Range {
  int first, last;
  [[nodiscard]] bool meets(const Range& other) const { return first <= other.last && other.first <= last; }
  [[nodiscard]] int centre() const { return (first + last) / 2; }
};
Range across(const QRect& box) { return {box.left(), box.right()}; }
Range down(const QRect& box) { return {box.top(), box.bottom()}; }

/// How well a box is reached from another by an arrow: not at all, or the smaller the better. Left and
/// right stay in their row; up and down go to what lies right above or below, else to what is nearest.
std::optional<std::tuple<bool, int, int>> reach(const QRect& from, const QRect& to, int key) {
  const bool level = key == Qt::Key_Left || key == Qt::Key_Right;
  const bool forward = key == Qt::Key_Right || key == Qt::Key_Down;
  const Range along = level ? across(from) : down(from);
  const Range target = level ? across(to) : down(to);
  const bool beyond = forward ? target.first > along.centre() : target.last < along.centre();
  const bool beside = level ? down(from).meets(down(to)) : across(from).meets(across(to));
  if (!beyond || (level && !beside)) return std::nullopt;
  const int aside = std::abs(across(from).centre() - across(to).centre());
  return std::tuple{!beside, std::abs(target.centre() - along.centre()), aside};
}

}  // namespace

SwatchFrame::SwatchFrame(QWidget* parent) : PanelFrame(parent) {}

void SwatchFrame::addStop(QAbstractButton* stop) {
  stop->setFocusPolicy(Qt::StrongFocus);
  stop->installEventFilter(this);
  stops_.push_back(stop);
}

void SwatchFrame::begin(bool atTicked) {
  const auto ticked = std::find_if(stops_.begin(), stops_.end(), [&](const QAbstractButton* stop) {
    return stop->isChecked() && canHaveKeyboard(*stop);
  });
  last_ = atTicked && ticked != stops_.end() ? *ticked : nullptr;
}

QAbstractButton* SwatchFrame::stop() const {
  const auto has = std::find(stops_.begin(), stops_.end(), window()->focusWidget());
  if (has != stops_.end() && canHaveKeyboard(**has)) return *has;
  if (last_ != nullptr && canHaveKeyboard(*last_)) return last_;
  const auto first = std::find_if(stops_.begin(), stops_.end(),
                                  [&](const QAbstractButton* stop) { return canHaveKeyboard(*stop); });
  return first == stops_.end() ? nullptr : *first;
}

bool SwatchFrame::canHaveKeyboard(const QAbstractButton& stop) const {
  return stop.isEnabled() && stop.isVisibleTo(this);
}

bool SwatchFrame::eventFilter(QObject* watched, QEvent* event) {
  auto* stop = static_cast<QAbstractButton*>(watched);
  if (event->type() == QEvent::FocusIn) last_ = stop;
  if (event->type() == QEvent::FocusIn || event->type() == QEvent::FocusOut) update();
  if (event->type() == QEvent::KeyPress) return keyPressed(*stop, static_cast<QKeyEvent&>(*event));
  return PanelFrame::eventFilter(watched, event);
}

// What no stop had a use for ends here, and does not go on to the Canvas under the panel.
void SwatchFrame::keyPressEvent(QKeyEvent* event) { event->accept(); }

// Each style marks the keyboard's place in its own way on check boxes and buttons, often hardly to be
// seen, and none on a swatch: so all get the same ring.
void SwatchFrame::paintEvent(QPaintEvent* event) {
  PanelFrame::paintEvent(event);
  const auto has = std::find_if(stops_.begin(), stops_.end(),
                                [](const QAbstractButton* stop) { return stop->hasFocus(); });
  if (has == stops_.end()) return;
  const QRect inner = placeOf(**has).adjusted(-kAway, -kAway, kAway, kAway);
  QPainter painter(this);
  for (const QRect& part : QRegion(inner.adjusted(-kRing, -kRing, kRing, kRing)).subtracted(inner)) {
    painter.fillRect(part, palette().color(QPalette::WindowText));
  }
}

QRect SwatchFrame::placeOf(const QAbstractButton& stop) const {
  return {stop.mapTo(this, QPoint()), stop.size()};
}

/// A key held down walks on, but chooses once. \returns whether the key had a meaning here.
bool SwatchFrame::keyPressed(QAbstractButton& stop, const QKeyEvent& event) {
  if ((event.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier)) != 0) return false;
  const int key = event.key();
  const bool shifted = event.modifiers().testFlag(Qt::ShiftModifier);
  if (key == Qt::Key_Tab || key == Qt::Key_Backtab) {
    step(stop, key == Qt::Key_Backtab || shifted ? -1 : 1);
  } else if (isArrow(key)) {
    moveTowards(stop, key);
  } else if (key == Qt::Key_Menu || (key == Qt::Key_Space && shifted)) {
    const auto* swatch = dynamic_cast<SwatchButton*>(&stop);
    if (swatch != nullptr && swatch->onPress && !event.isAutoRepeat()) swatch->onPress(Qt::RightButton);
  } else if (isActivation(key)) {
    if (!event.isAutoRepeat()) stop.click();
  } else if (key == Qt::Key_Escape) {
    if (onEscape && !event.isAutoRepeat()) onEscape(&stop);
  } else {
    return false;
  }
  return true;
}

void SwatchFrame::step(const QAbstractButton& from, int by) {
  const auto count = static_cast<int>(stops_.size());
  const auto at = static_cast<int>(std::find(stops_.begin(), stops_.end(), &from) - stops_.begin());
  for (int i = 1; i < count; ++i) {
    QAbstractButton* next = stops_[static_cast<std::size_t>((at + by * i + i * count) % count)];
    if (canHaveKeyboard(*next)) return give(next);
  }
}

void SwatchFrame::moveTowards(const QAbstractButton& from, int key) {
  QAbstractButton* best = nullptr;
  std::optional<std::tuple<bool, int, int>> nearest;
  for (QAbstractButton* stop : stops_) {
    if (stop == &from || !canHaveKeyboard(*stop)) continue;
    const auto distance = reach(placeOf(from), placeOf(*stop), key);
    if (!distance || (nearest && *nearest <= *distance)) continue;
    nearest = distance;
    best = stop;
  }
  if (best != nullptr) give(best);
}

void SwatchFrame::give(QAbstractButton* stop) {
  last_ = stop;
  stop->setFocus(Qt::TabFocusReason);
}

}  // namespace gridwright
