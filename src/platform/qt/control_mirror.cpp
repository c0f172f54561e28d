#include "platform/qt/control_mirror.h"

#include <QApplication>
#include <QLabel>
#include <QListWidget>
#include <QMenuBar>
#include <QPushButton>
#include <algorithm>

#include "platform/qt/canvas_view.h"
#include "platform/qt/swatch_button.h"
#include "session/input.h"

namespace gridwright {

namespace {

/// The lower part of the title picture, in Canvas pixels, where the buttons stand one under another.
constexpr std::array kTitleButtons = {ControlId::Command2, ControlId::Command3, ControlId::Command7};
constexpr int kButtonLeft = 250, kButtonTop = 330, kButtonWidth = 300, kButtonHeight = 46, kButtonPitch = 62;
constexpr int kGap = 8;  // between a panel and the edge of the view

void setShown(QWidget& widget, bool on) {
  if (widget.isHidden() == on) widget.setVisible(on);
}

void mirrorList(QListWidget& list, const Control& control) {
  bool same = list.count() == static_cast<int>(control.entries.size());
  for (int i = 0; same && i < list.count(); ++i) {
    same = list.item(i)->text() == qString(control.entries[static_cast<std::size_t>(i)]);
  }
  if (!same) {
    list.clear();
    for (const std::string& entry : control.entries) list.addItem(qString(entry));
  }
  if (list.currentRow() != control.selected) list.setCurrentRow(control.selected);
}

}  // namespace

ControlMirror::ControlMirror(CanvasView& view, InputQueue& inputs, SwatchPress onSwatch)
    : view_(view),
      inputs_(inputs),
      onSwatch_(std::move(onSwatch)),
      timers_{Timer(ControlId::Timer1), Timer(ControlId::Timer2)} {
  buildPanels();
  buildButtons();
  listenToSwatches();
  for (Timer& timer : timers_) {
    QObject::connect(&timer.clock, &QTimer::timeout, &view_, [this, id = timer.id] {
      inputs_.byTimer([id](Program& program) { input::timerTick(program, id); });
    });
  }
}

const QTimer& ControlMirror::timer(ControlId id) const {
  return timers_[id == ControlId::Timer1 ? 0 : 1].clock;
}

void ControlMirror::buildPanels() {
  for (std::size_t i = 0; i < kTextPanels.size(); ++i) {
    textFrames_[i] = buildTextPanel(kTextPanels[i], &view_, widgets_);
    listenToBox(kTextPanels[i]);
  }
  for (std::size_t i = 0; i < kSwatchPanels.size(); ++i) {
    swatchFrames_[i] = buildSwatchPanel(kSwatchPanels[i], &view_, widgets_);
    swatchFrames_[i]->onEscape = [this](const QAbstractButton* stop) {
      const auto* place = std::find(widgets_.begin(), widgets_.end(), stop);
      const ControlId id = controlAt(static_cast<std::size_t>(place - widgets_.begin()));
      inputs_.byPerson([id](Program& program) { input::escapePressed(program, id); });
    };
  }
}

// A button that no panel holds lies on the title.
void ControlMirror::buildButtons() {
  for (std::size_t row = 0; row < kControlCount; ++row) {
    const ControlId id = controlAt(row);
    if (rowOf(id).kind != ControlKind::button) continue;
    if (widgets_[row] == nullptr) {
      widgets_[row] = new QPushButton(&view_);
      widgets_[row]->setObjectName(qString(rowOf(id).name));
      widgets_[row]->hide();
    }
    auto* button = static_cast<QPushButton*>(widgets_[row]);
    if (id != ControlId::Command1) addGuest(button);
    QObject::connect(button, &QPushButton::clicked, &view_, [this, id] {
      inputs_.byPerson([id](Program& program) { input::buttonClick(program, id); });
    });
  }
}

void ControlMirror::listenToBox(const TextPanel& panel) {
  auto* box = static_cast<EntryBox*>(widget(panel.box));
  const ControlId id = panel.box;
  QObject::connect(box, &QLineEdit::textEdited, &view_, [this, id](const QString& text) {
    inputs_.byPerson(
        [id, typed = text.toStdString()](Program& program) { input::textTyped(program, id, typed); });
  });
  box->onEnter = [this, id] {
    inputs_.byPerson([id](Program& program) { input::enterPressed(program, id); });
  };
  box->onEscape = [this, id] {
    inputs_.byPerson([id](Program& program) { input::escapePressed(program, id); });
  };
  if (!panel.list) return;
  auto* list = static_cast<EntryList*>(widget(*panel.list));
  const auto click = [this, id = *panel.list](int entry) {
    inputs_.byPerson([id, entry](Program& program) { input::listClick(program, id, entry); });
  };
  box->onStep = [list, click](int by) {
    if (list->count() > 0) click(std::clamp(list->currentRow() + by, 0, list->count() - 1));
  };
  box->onTab = [list] {
    if (list->isVisible()) list->setFocus(Qt::TabFocusReason);
  };
  list->onTab = [box] { box->setFocus(Qt::TabFocusReason); };
  list->onStep = box->onStep;
  list->onEnter = box->onEnter;
  list->onEscape = box->onEscape;
  QObject::connect(list, &QListWidget::itemClicked, &view_,
                   [list, click](QListWidgetItem* entry) { click(list->row(entry)); });
  QObject::connect(list, &QListWidget::itemDoubleClicked, &view_, [list, click, box](QListWidgetItem* entry) {
    click(list->row(entry));
    box->onEnter();
  });
}

void ControlMirror::listenToSwatches() {
  for (std::size_t row = 0; row < kControlCount; ++row) {
    const ControlId id = controlAt(row);
    if (rowOf(id).kind != ControlKind::checkBox) continue;
    if (auto* swatch = dynamic_cast<SwatchButton*>(widgets_[row])) {
      swatch->onPress = [this, id](Qt::MouseButton button) { onSwatch_(id, button); };
    } else {
      QObject::connect(static_cast<QAbstractButton*>(widgets_[row]), &QAbstractButton::clicked, &view_,
                       [this, id] { onSwatch_(id, Qt::LeftButton); });
    }
  }
}

void ControlMirror::mirror(const ControlModel& model) {
  if (shown_ == model.revision()) return;
  shown_ = model.revision();
  const QString caption = qString(model.caption());
  if (view_.window()->windowTitle() != caption) view_.window()->setWindowTitle(caption);
  std::array<bool, kTextPanels.size()> opening{};
  for (std::size_t i = 0; i < kTextPanels.size(); ++i) {
    opening[i] = model[kTextPanels[i].box].visible && widget(kTextPanels[i].box)->isHidden();
  }
  takeKeyboardFromHidden(model);
  for (std::size_t row = 0; row < kControlCount; ++row) {
    if (widgets_[row] != nullptr) mirrorOne(controlAt(row), model[controlAt(row)]);
  }
  for (Timer& timer : timers_) mirrorTimer(timer, model);
  mirrorPanels(model);
  keepFocus(model);
  for (std::size_t i = 0; i < kTextPanels.size(); ++i) {
    if (opening[i]) static_cast<EntryBox*>(widget(kTextPanels[i].box))->selectAll();
  }
}

void ControlMirror::mirrorOne(ControlId id, const Control& control) {
  QWidget& widget = *widgets_[static_cast<std::size_t>(id)];
  const QString text = qString(control.text);
  switch (rowOf(id).kind) {
    case ControlKind::checkBox: {
      auto& box = static_cast<QAbstractButton&>(widget);
      const QString plain = QString(text).replace("&", "&&");
      if (box.text() != plain) box.setText(plain);
      // A swatch may have no caption; its colour always names it.
      const QString colour = box.accessibleDescription();
      const QString name = text.isEmpty() || colour.isEmpty() ? colour + text : colour + ", " + text;
      if (box.accessibleName() != name) box.setAccessibleName(name);
      box.setChecked(control.value != 0);
      break;
    }
    case ControlKind::button: {
      auto& button = static_cast<QPushButton&>(widget);
      if (button.accessibleName() != text) {
        button.setText(buttonText(id, control.text));
        button.setAccessibleName(text);
      }
      break;
    }
    case ControlKind::label:
      if (auto& label = static_cast<QLabel&>(widget); label.text() != text) label.setText(text);
      break;
    case ControlKind::textBox: {
      auto& box = static_cast<QLineEdit&>(widget);
      if (box.text() != text) box.setText(text);
      break;
    }
    case ControlKind::fileList:
      mirrorList(static_cast<QListWidget&>(widget), control);
      break;
    case ControlKind::timer:
      break;
  }
  widget.setEnabled(control.enabled);
  setShown(widget, control.visible);
}

void ControlMirror::mirrorTimer(Timer& timer, const ControlModel& model) {
  const Control& control = model[timer.id];
  const std::uint64_t starts = model.timerStarts(timer.id);
  if (!control.enabled || control.interval <= 0) {
    timer.clock.stop();
  } else if (!timer.clock.isActive() || timer.starts != starts ||
             timer.clock.interval() != control.interval) {
    timer.clock.start(control.interval);
  }
  timer.starts = starts;
}

// A frame is there while anything on it is.
void ControlMirror::mirrorPanels(const ControlModel& model) {
  for (std::size_t i = 0; i < kTextPanels.size(); ++i) {
    const TextPanel& panel = kTextPanels[i];
    setShown(*textFrames_[i], model[panel.box].visible || model[panel.label].visible);
  }
  for (std::size_t i = 0; i < kSwatchPanels.size(); ++i) {
    const SwatchPanel& panel = kSwatchPanels[i];
    const bool wasHidden = swatchFrames_[i]->isHidden();
    setShown(*swatchFrames_[i], model[panel.label].visible || model[panel.firstSwatch].visible);
    if (wasHidden) swatchFrames_[i]->begin(!panel.classifies);
  }
  place();
}

namespace {

constexpr int kSmallestFont = 6;  // points

/// A frame as large as it wants to be, or, on a small screen, in letters so small that it fits.
void fit(QWidget& frame, const QSize& room) {
  QFont font = frame.parentWidget()->font();
  frame.setFont(font);
  frame.adjustSize();
  const auto isTooLarge = [&] {
    const QSize wanted = frame.sizeHint();
    return wanted.width() > room.width() || wanted.height() > room.height();
  };
  while (isTooLarge() && font.pointSize() > kSmallestFont) {
    font.setPointSize(font.pointSize() - 1);
    frame.setFont(font);
    frame.adjustSize();
  }
}

}  // namespace

void ControlMirror::place() {
  for (std::size_t i = 0; i < kTitleButtons.size(); ++i) {
    const QRect box(kButtonLeft, kButtonTop + static_cast<int>(i) * kButtonPitch, kButtonWidth,
                    kButtonHeight);
    QRect place = view_.placeOf(box).toAlignedRect();
    QFont font = view_.font();
    font.setPointSizeF(font.pointSizeF() * std::max(1.0, 1.0 * place.height() / kButtonHeight));
    widget(kTitleButtons[i])->setFont(font);
    const QPoint centre = place.center();  // where Canvas pixels are small, the words still want their room
    place.setSize(place.size().expandedTo(widget(kTitleButtons[i])->sizeHint() + QSize(kGap, 0)));
    place.moveCenter(centre);
    widget(kTitleButtons[i])->setGeometry(place);
  }
  const QRect room = view_.visibleCanvas();
  for (PanelFrame* frame : textFrames_) {
    if (frame->isHidden()) continue;
    fit(*frame, view_.size());
    QRect place(QPoint(), frame->size());
    place.moveCenter(room.center());
    frame->move(std::max(0, place.left()), std::max(0, place.top()));
  }
  int foot = room.bottom();  // there, so that the drawing stays in sight; a second panel stands on the first
  for (PanelFrame* frame : swatchFrames_) {
    if (frame->isHidden()) continue;
    fit(*frame, view_.size());
    frame->resize(std::min(frame->width(), view_.width()), frame->height());
    foot = std::max(0, foot - kGap - frame->height());
    frame->move(std::max(0, room.center().x() - frame->width() / 2), foot);
  }
}

/// Qt hands the keyboard of a widget that goes on to the next one, along a whole panel that goes with it.
void ControlMirror::takeKeyboardFromHidden(const ControlModel& model) {
  const auto* holder = std::find(widgets_.begin(), widgets_.end(), view_.window()->focusWidget());
  if (holder == widgets_.end() || *holder == nullptr) return;
  const Control& control = model[controlAt(static_cast<std::size_t>(holder - widgets_.begin()))];
  if (!control.visible || !control.enabled) view_.setFocus(Qt::OtherFocusReason);
}

void ControlMirror::setHolder(QWidget* frame, QWidget* first) { holders_[frame] = first; }

void ControlMirror::addGuest(QWidget* guest) {
  guest->setFocusPolicy(Qt::TabFocus);
  guests_.push_back(guest);
}

/// What Tab has given the keyboard instead of the Canvas keeps it as long as it is there.
QWidget* ControlMirror::canvasOrGuest() const {
  const auto has = std::find(guests_.begin(), guests_.end(), view_.window()->focusWidget());
  return has != guests_.end() && (*has)->isVisible() && (*has)->isEnabled() ? *has : &view_;
}

/// The list of a text panel may have the keyboard in place of its box.
QWidget* ControlMirror::boxOrList(ControlId box) const {
  const auto* panel =
      std::find_if(kTextPanels.begin(), kTextPanels.end(), [&](const TextPanel& p) { return p.box == box; });
  QWidget* list = panel == kTextPanels.end() || !panel->list ? nullptr : widget(*panel->list);
  return list != nullptr && view_.window()->focusWidget() == list ? list : widget(box);
}

QWidget* ControlMirror::wantedFocus(const ControlModel& model) const {
  if (model.focus()) return boxOrList(*model.focus());
  for (const auto& [frame, first] : holders_) {
    if (frame->isHidden()) continue;
    QWidget* has = view_.window()->focusWidget();
    return has != nullptr && frame->isAncestorOf(has) ? has : first;
  }
  const auto shown = std::find_if(swatchFrames_.rbegin(), swatchFrames_.rend(),
                                  [](const SwatchFrame* frame) { return !frame->isHidden(); });
  if (shown == swatchFrames_.rend() || (*shown)->stop() == nullptr) return canvasOrGuest();
  return (*shown)->stop();
}

void ControlMirror::keepFocus(const ControlModel& model) {
  if (QApplication::activePopupWidget() != nullptr || QApplication::activeModalWidget() != nullptr) return;
  const bool anyGuest =
      std::any_of(guests_.begin(), guests_.end(), [](const QWidget* guest) { return guest->isVisible(); });
  view_.setFocusPolicy(anyGuest ? Qt::TabFocus : Qt::NoFocus);
  QWidget* wanted = wantedFocus(model);
  QWidget* has = view_.window()->focusWidget();
  const auto* bar = dynamic_cast<QMenuBar*>(has);
  if (has == wanted || (bar != nullptr && bar->activeAction() != nullptr)) return;
  wanted->setFocus(Qt::OtherFocusReason);
}

}  // namespace gridwright
