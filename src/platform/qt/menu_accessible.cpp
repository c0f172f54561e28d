#include "platform/qt/menu_accessible.h"

#include <QAccessible>
#include <QAccessibleWidget>
#include <QAction>
#include <QMenu>
#include <QMenuBar>
#include <map>

namespace gridwright {

namespace {

/// The caption as it is read: without the letter's mark, and without the keys behind the tab.
QString readCaption(const QAction& action) {
  QString caption = action.text().section('\t', 0, 0);
  for (qsizetype at = caption.indexOf('&'); at >= 0; at = caption.indexOf('&', at + 1)) caption.remove(at, 1);
  return caption;
}

class MenuItemAccessible : public QAccessibleInterface, public QAccessibleActionInterface {
 public:
  MenuItemAccessible(QMenu* menu, QAction* action) : menu_(menu), action_(action) {}

  [[nodiscard]] bool isValid() const override { return true; }
  [[nodiscard]] QObject* object() const override { return action_; }
  [[nodiscard]] QWindow* window() const override { return menu_->windowHandle(); }
  [[nodiscard]] QAccessibleInterface* parent() const override {
    return QAccessible::queryAccessibleInterface(menu_);
  }
  [[nodiscard]] QAccessibleInterface* child(int index) const override {
    return index == 0 && action_->menu() != nullptr ? QAccessible::queryAccessibleInterface(action_->menu())
                                                    : nullptr;
  }
  [[nodiscard]] int childCount() const override { return action_->menu() != nullptr ? 1 : 0; }
  [[nodiscard]] int indexOfChild(const QAccessibleInterface* child) const override {
    return action_->menu() != nullptr && child->object() == action_->menu() ? 0 : -1;
  }
  [[nodiscard]] QAccessibleInterface* childAt(int x, int y) const override {
    QAccessibleInterface* submenu = child(0);
    return submenu != nullptr && submenu->rect().contains(x, y) ? submenu : nullptr;
  }

  [[nodiscard]] QString text(QAccessible::Text what) const override {
    switch (what) {
      case QAccessible::Name:
        return readCaption(*action_);
      case QAccessible::Description:
        return action_->statusTip();
      case QAccessible::Accelerator:
        return action_->text().section('\t', 1);
      default:
        return {};
    }
  }
  void setText(QAccessible::Text /*what*/, const QString& /*text*/) override {}

  [[nodiscard]] QRect rect() const override {
    const QRect place = menu_->actionGeometry(action_);
    return {menu_->mapToGlobal(place.topLeft()), place.size()};
  }
  [[nodiscard]] QAccessible::Role role() const override {
    return action_->isSeparator() ? QAccessible::Separator : QAccessible::MenuItem;
  }
  [[nodiscard]] QAccessible::State state() const override {
    QAccessible::State state;
    state.invisible = !menu_->isVisible() || !action_->isVisible();
    state.focusable = true;
    state.focused = menu_->activeAction() == action_;
    state.disabled = !action_->isEnabled();
    state.checkable = action_->isCheckable();
    state.checked = action_->isChecked();
    state.hasPopup = action_->menu() != nullptr;
    return state;
  }

  void* interface_cast(QAccessible::InterfaceType type) override {
    return type == QAccessible::ActionInterface ? static_cast<QAccessibleActionInterface*>(this) : nullptr;
  }
  [[nodiscard]] QStringList actionNames() const override {
    return {action_->menu() != nullptr ? showMenuAction() : pressAction()};
  }
  void doAction(const QString& name) override {
    if (!action_->isEnabled()) return;
    if (name == pressAction()) action_->trigger();
    if (name == showMenuAction()) menu_->setActiveAction(action_);
  }
  [[nodiscard]] QStringList keyBindingsForAction(const QString& /*name*/) const override {
    return {text(QAccessible::Accelerator)};
  }

 private:
  QMenu* menu_;
  QAction* action_;
};

class MenuAccessible : public QAccessibleWidget {
 public:
  explicit MenuAccessible(QMenu* menu) : QAccessibleWidget(menu, QAccessible::PopupMenu), menu_(menu) {}

  ~MenuAccessible() override {
    for (const auto& [action, id] : items_) QAccessible::deleteAccessibleInterface(id);
  }

  [[nodiscard]] int childCount() const override { return static_cast<int>(menu_->actions().count()); }
  [[nodiscard]] QAccessibleInterface* child(int index) const override {
    const QList<QAction*> actions = menu_->actions();
    return index >= 0 && index < actions.count() ? itemOf(actions[index]) : nullptr;
  }
  [[nodiscard]] int indexOfChild(const QAccessibleInterface* child) const override {
    return static_cast<int>(menu_->actions().indexOf(static_cast<QAction*>(child->object())));
  }
  [[nodiscard]] QAccessibleInterface* childAt(int x, int y) const override {
    QAction* action = menu_->actionAt(menu_->mapFromGlobal(QPoint(x, y)));
    return action == nullptr || action->isSeparator() ? nullptr : itemOf(action);
  }
  /// The item that opens the menu, in the bar or in another menu.
  [[nodiscard]] QAccessibleInterface* parent() const override {
    QAction* opener = menu_->menuAction();
    for (QObject* holder : opener->associatedObjects()) {
      auto* widget = qobject_cast<QWidget*>(holder);
      if (qobject_cast<QMenu*>(holder) == nullptr && qobject_cast<QMenuBar*>(holder) == nullptr) continue;
      const auto place = static_cast<int>(widget->actions().indexOf(opener));
      if (place >= 0) return QAccessible::queryAccessibleInterface(widget)->child(place);
    }
    return QAccessibleWidget::parent();
  }
  [[nodiscard]] QString text(QAccessible::Text what) const override {
    return what == QAccessible::Name ? readCaption(*menu_->menuAction()) : QAccessibleWidget::text(what);
  }

 private:
  QAccessibleInterface* itemOf(QAction* action) const {
    const auto known = items_.find(action);
    QAccessibleInterface* item =
        known == items_.end() ? nullptr : QAccessible::accessibleInterface(known->second);
    if (item != nullptr) return item;  // an entry of the past may have stood at the same address
    item = new MenuItemAccessible(menu_, action);
    items_[action] = QAccessible::registerAccessibleInterface(item);
    return item;
  }

  QMenu* menu_;
  mutable std::map<QAction*, QAccessible::Id> items_;
};

QAccessibleInterface* menuWithTips(const QString& kind, QObject* object) {
  auto* menu = kind == "QMenu" ? qobject_cast<QMenu*>(object) : nullptr;
  return menu != nullptr && menu->toolTipsVisible() ? new MenuAccessible(menu) : nullptr;
}

}  // namespace

void describeMenuItems() { QAccessible::installFactory(menuWithTips); }

}  // namespace gridwright
