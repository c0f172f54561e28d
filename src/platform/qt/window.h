// The one window: a menu bar, the view of the Canvas under it, and the status line under that.
#pragma once

#include <QMainWindow>
#include <functional>

#include "platform/qt/canvas_view.h"
#include "platform/qt/status_line.h"

namespace gridwright {

class Window : public QMainWindow {
 public:
  Window();

  std::function<void()> onClose;  ///< A person wants the window closed; the program unwinds first.

  /// Shows the window with room for the smallest Canvas; its menus must stand already.
  void open();

  [[nodiscard]] CanvasView& view() const { return *view_; }
  [[nodiscard]] StatusLine& statusLine() const { return *statusLine_; }
  QMenu* createPopupMenu() override { return nullptr; }

 protected:
  void closeEvent(QCloseEvent* event) override;

 private:
  void openFirstMenu();

  QWidget* inside_;
  CanvasView* view_;
  StatusLine* statusLine_;
};

}  // namespace gridwright
