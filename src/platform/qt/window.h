// The one window: a menu bar and the view of the Canvas under it.
#pragma once

#include <QMainWindow>
#include <functional>

#include "platform/qt/canvas_view.h"

namespace gridwright {

class Window : public QMainWindow {
 public:
  Window();

  std::function<void()> onClose;  ///< A person wants the window closed; the program unwinds first.

  /// Shows the window with room for the smallest Canvas; its menus must stand already.
  void open();

  [[nodiscard]] CanvasView& view() const { return *view_; }
  QMenu* createPopupMenu() override { return nullptr; }

 protected:
  void closeEvent(QCloseEvent* event) override;

 private:
  void openFirstMenu();

  CanvasView* view_;
};

}  // namespace gridwright
