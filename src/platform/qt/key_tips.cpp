#include "platform/qt/key_tips.h"

#include <QAction>
#include <QCoreApplication>
#include <QMenu>
#include <QMouseEvent>
#include <QToolTip>

namespace gridwright {

namespace {
constexpr int kWait = 150;  // milliseconds: a menu that opens hides every tip, and keys may hurry by
constexpr int kAbove = 16;  // Qt puts a tip that far below the place it is given, to clear a pointer
}  // namespace

KeyTips::KeyTips(QObject* parent) : QObject(parent) {
  QCoreApplication::instance()->installEventFilter(this);
  wait_.setSingleShot(true);
  connect(&wait_, &QTimer::timeout, this, [this] { show(); });
}

void KeyTips::watch(QMenu& menu) {
  for (QAction* action : menu.actions()) {
    connect(action, &QAction::hovered, this, [this, &menu, action] { reached(menu, *action); });
  }
  connect(&menu, &QMenu::aboutToHide, this, [this] {
    wait_.stop();
    QToolTip::hideText();
  });
}

bool KeyTips::eventFilter(QObject* watched, QEvent* event) {
  switch (event->type()) {
    case QEvent::KeyPress:
    case QEvent::Shortcut:
      byKey_ = true;
      break;
    case QEvent::MouseButtonPress:
      byKey_ = false;
      break;
    case QEvent::MouseMove: {
      const QPoint at = static_cast<QMouseEvent*>(event)->globalPosition().toPoint();
      if (at != pointer_) byKey_ = false;
      pointer_ = at;
      break;
    }
    default:
      break;
  }
  return QObject::eventFilter(watched, event);
}

void KeyTips::reached(QMenu& menu, QAction& action) {
  if (!byKey_) return wait_.stop();
  menu_ = &menu;
  action_ = &action;
  wait_.start(kWait);
}

void KeyTips::show() const {
  if (!menu_->isVisible() || menu_->activeAction() != action_) return;
  const QPoint beside = menu_->mapToGlobal(menu_->actionGeometry(action_).topRight());
  // The empty text hides the tip of the item before.
  QToolTip::showText(beside - QPoint(0, kAbove), action_->statusTip(), menu_);
}

}  // namespace gridwright
