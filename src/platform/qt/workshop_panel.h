// The workshop over the Canvas: the sheet with its tools, and beside it, while a picture is being made ready,
// the page that does so. It shows a model; what a person does it hands to the program from inside the pump.
#pragma once

#include <QTimer>

#include "platform/qt/input_queue.h"
#include "platform/qt/panels.h"
#include "platform/qt/prepare_page.h"
#include "platform/qt/sheet_view.h"
#include "platform/qt/status_line.h"
#include "platform/qt/workshop_tools.h"
#include "platform/qt/workshop_words.h"

class QCheckBox;
class QHBoxLayout;
class QPushButton;
class QStackedWidget;
class QTabBar;

namespace gridwright {

class WorkshopPanel : public PanelFrame {
 public:
  static constexpr int kBetweenCounts = 100;  ///< Milliseconds, while a stroke is under way.
  static constexpr int kBetweenLooks = 500;   ///< At the file that another program has.

  WorkshopPanel(QWidget* parent, InputQueue& inputs, InkWork& ink);

  /// Brings all in line with the model, and counts what is on the sheet.
  void mirror(Program& program);
  /// Whether anything has changed since.
  [[nodiscard]] bool isBehind(const Program& program) const;

  /// What has the keyboard when the page in front is opened.
  [[nodiscard]] QWidget* first() const;

  [[nodiscard]] SheetView& view() const { return *view_; }
  [[nodiscard]] WorkshopTools& tools() const { return *tools_; }
  [[nodiscard]] WordsPage& words() const { return *words_; }
  [[nodiscard]] StampPage& stamps() const { return *stamps_; }
  [[nodiscard]] const PreparePage& preparePage() const { return *prepare_; }
  [[nodiscard]] QTabBar& pages() const { return *pages_; }

 protected:
  bool event(QEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  static void undoStep(Program& program);
  static void redoStep(Program& program);
  QWidget* buildSheetPage();
  QWidget* buildTools();
  QHBoxLayout* buildSteps();
  QHBoxLayout* buildTelling();
  QHBoxLayout* buildFoot();
  QPushButton* button(const QString& text, const QString& tip, InputQueue::Report report);
  void listenToSheet();
  void listenToTools();
  void listenToPreparePage();
  void onTool(std::function<void(Sheet&)> act);
  void move(Corner at, Size size);
  bool putAt(std::optional<Corner> at);
  bool takeKey(const QKeyEvent& event);
  void mirrorSheet(Program& program);
  void mirrorRegions(const Workshop& workshop);
  void showStatus();

  InputQueue& inputs_;
  QTabBar* pages_;
  QStackedWidget* stack_;
  WordsPage* words_;
  StampPage* stamps_;
  WorkshopTools* tools_;
  SheetView* view_;
  PreparePage* prepare_;
  QPushButton *undo_ = nullptr, *redo_ = nullptr;
  QCheckBox* regions_;
  ElidedLabel *line_, *note_, *status_;
  QTimer counting_{this}, watching_{this};
  std::uint64_t shown_ = 0, prepareShown_ = 0, sheetShown_ = 0, regionsOf_ = 0;
  struct Move {
    Corner at;
    Size size;
  };
  std::optional<Move> move_;  // where the placed picture is wanted: only the last place counts
  bool mirroring_ = false;    // what changes now, no person has changed
};

}  // namespace gridwright
