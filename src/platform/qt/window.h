// The one window: a menu bar, the view of the Canvas under it, and the status line under that.
#pragma once

#include <QMainWindow>
#include <filesystem>
#include <functional>
#include <string_view>
#include <vector>

#include "platform/qt/book_bar.h"
#include "platform/qt/canvas_view.h"
#include "platform/qt/run_cancel.h"
#include "platform/qt/status_line.h"

class QMimeData;

namespace gridwright {

class Window : public QMainWindow {
 public:
  Window();

  std::function<void()> onClose;  ///< A person wants the window closed; the program unwinds first.

  /// Files of this computer were dropped on the window; none when what was dropped is no such file.
  std::function<void(std::vector<std::filesystem::path>)> onDrop;
  /// Keys of the menus, as the table of them writes them, while no text box has them.
  std::function<void(std::string_view keys)> onShortcut;

  /// F10 was pressed: whether the menus may be opened now.
  std::function<bool()> onMenus;

  /// Shows the window with room for the usual Canvas, enlarged by a whole or half number where the screen has
  /// plenty, or on all of a screen that has too little; its menus must stand already.
  void open();

  /// Covers the whole screen, or goes back to what it was, maximised or not.
  void switchWholeScreen();

  [[nodiscard]] CanvasView& view() const { return *view_; }
  [[nodiscard]] StatusLine& statusLine() const { return *statusLine_; }
  [[nodiscard]] RunCancel& runCancel() const { return *runCancel_; }
  [[nodiscard]] BookBar& bookBar() const { return *bookBar_; }
  QMenu* createPopupMenu() override { return nullptr; }

 protected:
  void closeEvent(QCloseEvent* event) override;
  void dragEnterEvent(QDragEnterEvent* event) override;
  void dropEvent(QDropEvent* event) override;

 private:
  void listenToShortcuts();
  void openFirstMenu();

  QWidget* inside_;
  CanvasView* view_;
  StatusLine* statusLine_;
  BookBar* bookBar_ = nullptr;
  RunCancel* runCancel_ = nullptr;
};

/// The files of this computer that dragged or copied data names.
std::vector<std::filesystem::path> localFiles(const QMimeData& data);

}  // namespace gridwright
