// The one window: a menu bar, the view of the Canvas under it, and the status line under that.
#pragma once

#include <QMainWindow>
#include <filesystem>
#include <functional>
#include <vector>

#include "platform/qt/canvas_view.h"
#include "platform/qt/run_cancel.h"
#include "platform/qt/status_line.h"
#include "state/menu_tree.h"

class QMimeData;

namespace gridwright {

class Window : public QMainWindow {
 public:
  Window();

  std::function<void()> onClose;  ///< A person wants the window closed; the program unwinds first.

  /// Files of this computer were dropped on the window; none when what was dropped is no such file.
  std::function<void(std::vector<std::filesystem::path>)> onDrop;
  std::function<void()> onPaste;     ///< The keys that paste, while no text box has them.
  std::function<void()> onOpen;      ///< The keys that open a file.
  std::function<void(Item)> onItem;  ///< The keys of another item, while no text box has them.

  /// Shows the window with room for the smallest Canvas; its menus must stand already.
  void open();

  [[nodiscard]] CanvasView& view() const { return *view_; }
  [[nodiscard]] StatusLine& statusLine() const { return *statusLine_; }
  [[nodiscard]] RunCancel& runCancel() const { return *runCancel_; }
  QMenu* createPopupMenu() override { return nullptr; }

 protected:
  void closeEvent(QCloseEvent* event) override;
  void dragEnterEvent(QDragEnterEvent* event) override;
  void dropEvent(QDropEvent* event) override;

 private:
  void openFirstMenu();

  QWidget* inside_;
  CanvasView* view_;
  StatusLine* statusLine_;
  RunCancel* runCancel_;
};

/// The files of this computer that dragged or copied data names.
std::vector<std::filesystem::path> localFiles(const QMimeData& data);

}  // namespace gridwright
