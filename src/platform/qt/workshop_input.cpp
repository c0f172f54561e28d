// What a person does in the workshop.
#include <QCheckBox>
#include <QKeyEvent>
#include <QPlainTextEdit>
#include <QTabBar>
#include <algorithm>
#include <optional>
#include <utility>

#include "platform/qt/workshop_panel.h"
#include "session/input.h"
#include "session/workshop.h"

namespace gridwright {

namespace {

bool isCtrl(const QKeyEvent& event) {
  return (event.modifiers() & ~(Qt::KeypadModifier | Qt::ShiftModifier)) == Qt::ControlModifier;
}

enum class Key { none, use, cancel, undo, redo, larger, smaller, plain, hand };

/// What a key means to the workshop, whatever in it has the keyboard.
Key keyOf(const QKeyEvent& event) {
  if (event.key() == Qt::Key_Escape && event.modifiers() == Qt::NoModifier) return Key::cancel;
  if (!isCtrl(event)) return Key::none;
  const bool isShifted = event.modifiers().testFlag(Qt::ShiftModifier);
  switch (event.key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
      return Key::use;
    case Qt::Key_Z:
      return isShifted ? Key::redo : Key::undo;
    case Qt::Key_Y:
      return Key::redo;
    case Qt::Key_Plus:
    case Qt::Key_Equal:
      return Key::larger;
    case Qt::Key_Minus:
      return Key::smaller;
    case Qt::Key_0:
      return Key::plain;
    default:
      return event.key() >= Qt::Key_1 && event.key() <= Qt::Key_9 ? Key::hand : Key::none;
  }
}

}  // namespace

void WorkshopPanel::onTool(std::function<void(Sheet&)> act) {
  inputs_.byPerson([act = std::move(act)](Program& program) { onSheet(program, act); });
}

void WorkshopPanel::listenToSheet() {
  view_->onPress = [this](Corner at) {
    if (!putAt(at)) onTool([at](Sheet& sheet) { sheet.press(at.x, at.y); });
  };
  view_->onDrag = [this](Corner at, bool straight) {
    onTool([at, straight](Sheet& sheet) { sheet.drag(at.x, at.y, straight); });
  };
  view_->onRelease = [this](Corner at, bool straight) {
    onTool([at, straight](Sheet& sheet) { sheet.release(at.x, at.y, straight); });
  };
  view_->onEnd = [this] { onTool([](Sheet& sheet) { sheet.endStroke(); }); };
  view_->onPick = [this](Corner at) { onTool([at](Sheet& sheet) { sheet.pick(at.x, at.y); }); };
  view_->onMovePlaced = [this](Corner at, Size size) { move(at, size); };
  view_->onPointer = [this] { showStatus(); };
  connect(&counting_, &QTimer::timeout, this, [this] { inputs_.byTimer(countSheet); });
  connect(&watching_, &QTimer::timeout, this, [this] { inputs_.byTimer(watchSheetFile); });
  // The next pump finds the tick as it is now.
  connect(regions_, &QCheckBox::toggled, this,
          [this] { inputs_.byPerson([](Program& program) { ++program.workshop.revision; }); });
  connect(pages_, &QTabBar::currentChanged, this, [this](int page) {
    if (mirroring_) return;
    inputs_.byPerson([page](Program& program) {
      turnPage(program, page == 1 ? WorkshopPage::prepare : WorkshopPage::sheet);
    });
  });
}

void WorkshopPanel::listenToTools() {
  tools_->onSettings = [this](const ToolSettings& settings) {
    onTool([settings](Sheet& sheet) { sheet.choose(settings); });
    showStatus();
  };
  tools_->onHand = [this](Hand hand) {
    view_->leaveFrame();
    if (hand == Hand::words) words_->text()->setFocus(Qt::OtherFocusReason);
    showStatus();
  };
  words_->onPutDown = stamps_->onPutDown = [this] { putAt(std::nullopt); };
}

void WorkshopPanel::listenToPreparePage() {
  prepare_->onChange = [this](const PrepareSettings& settings) {
    inputs_.byPerson([settings](Program& program) { input::preparationChanged(program, settings); });
  };
  prepare_->onPlace = [this] {
    inputs_.byPerson([](Program& program) { placePrepared(program, std::nullopt, std::nullopt); });
  };
  prepare_->onPutAway = [this] { inputs_.byPerson(putPictureAway); };
  prepare_->onUse = [this] { inputs_.byPerson(input::preparedAccepted); };
  prepare_->onAsItIs = [this] { inputs_.byPerson(input::pictureAcceptedAsItIs); };
  prepare_->onCancel = [this] { inputs_.byPerson(input::preparationCancelled); };
}

/// \returns whether words or a stamp are in hand, which a press puts down.
bool WorkshopPanel::putAt(std::optional<Corner> at) {
  const int ink = tools_->settings().colour;
  if (tools_->hand() == Hand::words) {
    inputs_.byPerson([words = words_->settings(ink), at](Program& program) { putWords(program, words, at); });
    return true;
  }
  if (tools_->hand() != Hand::stamp) return false;
  inputs_.byPerson([stamp = stamps_->settings(ink), at](Program& program) { putStamp(program, stamp, at); });
  return true;
}

/// A picture takes longer to be laid anew than the mouse to be moved on.
void WorkshopPanel::move(Corner at, Size size) {
  const bool isAsked = move_.has_value();
  move_ = Move{at, size};
  if (isAsked) return;
  inputs_.byPerson([this](Program& program) {
    if (const auto last = std::exchange(move_, std::nullopt)) movePlaced(program, last->at, last->size);
  });
}

// No shortcut of the window may take a key that means something here: each comes as a key press then, to what
// has the keyboard and, where that has no use for it, to this.
bool WorkshopPanel::event(QEvent* event) {
  if (event->type() == QEvent::ShortcutOverride && keyOf(*static_cast<QKeyEvent*>(event)) != Key::none) {
    event->accept();
    return true;
  }
  return PanelFrame::event(event);
}

bool WorkshopPanel::eventFilter(QObject* watched, QEvent* event) {
  const bool isOverride = event->type() == QEvent::ShortcutOverride;
  if (isOverride || event->type() == QEvent::KeyPress) {
    const auto& key = *static_cast<QKeyEvent*>(event);
    if (keyOf(key) != Key::none) {
      event->accept();
      return isOverride || takeKey(key);
    }
  }
  return PanelFrame::eventFilter(watched, event);
}

void WorkshopPanel::keyPressEvent(QKeyEvent* event) {
  if (!takeKey(*event)) PanelFrame::keyPressEvent(event);
}

/// Beside the sheet, a page without one knows how to be used and how to be left.
bool WorkshopPanel::takeKey(const QKeyEvent& event) {
  const Key key = keyOf(event);
  if (key == Key::none) return false;
  if (key == Key::use || key == Key::cancel) {
    if (!event.isAutoRepeat())
      inputs_.byPerson(key == Key::use ? input::preparedAccepted : input::preparationCancelled);
    return true;
  }
  if (!view_->isVisible()) return true;
  if (key == Key::undo) inputs_.byPerson(undoStep);
  if (key == Key::redo) inputs_.byPerson(redoStep);
  if (key == Key::larger || key == Key::smaller) view_->zoomBy(key == Key::larger ? 1 : -1);
  if (key == Key::plain) view_->zoomTo(1);
  if (key == Key::hand) tools_->choose(static_cast<Hand>(event.key() - Qt::Key_1));
  return true;
}

// A window that changes its size under a stroke ends it.
void WorkshopPanel::resizeEvent(QResizeEvent* event) {
  view_->endStroke();
  PanelFrame::resizeEvent(event);
}

}  // namespace gridwright
