// Tips of menu items for those who use no mouse: an item that a key reaches shows its tip beside it, as
// one does on which the pointer rests.
#pragma once

#include <QObject>
#include <QPoint>
#include <QTimer>

class QAction;
class QMenu;

namespace gridwright {

class KeyTips : public QObject {
 public:
  explicit KeyTips(QObject* parent);

  /// Shows the tips of this menu's own items.
  void watch(QMenu& menu);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void reached(QMenu& menu, QAction& action);
  void show() const;

  bool byKey_ = false;  // what was used last
  QPoint pointer_;      // where it was last, since a menu that opens under it moves nothing
  QMenu* menu_ = nullptr;
  QAction* action_ = nullptr;  // that a key reached last
  QTimer wait_;
};

}  // namespace gridwright
