// The window that people use. It reads the program's models and shows them; what a person does it
// hands to the program from inside the pump, and only there.
#pragma once

#include <QEventLoop>
#include <QSocketNotifier>
#include <QTimer>
#include <chrono>
#include <filesystem>
#include <functional>
#include <memory>

#include "platform/pictures/leptonica_work.h"
#include "platform/pictures/qt_ink.h"
#include "platform/qt/book_page.h"
#include "platform/qt/book_strip.h"
#include "platform/qt/control_mirror.h"
#include "platform/qt/ears.h"
#include "platform/qt/export_page.h"
#include "platform/qt/input_queue.h"
#include "platform/qt/keys_page.h"
#include "platform/qt/memory.h"
#include "platform/qt/menu_mirror.h"
#include "platform/qt/page_setup_page.h"
#include "platform/qt/printing.h"
#include "platform/qt/window.h"
#include "platform/qt/work_thread.h"
#include "platform/qt/workshop_panel.h"
#include "platform/shared/end_signals.h"
#include "state/platform.h"

namespace gridwright {

namespace book {
class BookMaker;
}

class QtDesktop : public Platform {
 public:
  /// Opens the window. \param workFolder where a PDF goes when there is no printer.
  explicit QtDesktop(const std::filesystem::path& workFolder);
  ~QtDesktop() override;

  void doEvents(Program& program, Pace pace) override;
  std::int64_t quietPumps(const Program& program) override;
  void passOver(std::int64_t pumps) override;
  Size clientSize() override { return window_.view().clientSize(); }
  WindowState windowState() override;
  std::filesystem::path contentFolder() override;
  WindowPlace normalPlace() override;
  void setNormalPlace(const WindowPlace& place) override;
  void setWindowState(WindowState state) override;
  Size maximise() override;
  void switchWholeScreen() override { window_.switchWholeScreen(); }
  void raise() override;
  void messageBox(std::string_view text) override;
  void workBeside(Program& program, Work work) override;
  Outcome<Picture> readPicture(const std::filesystem::path& file, Size fit) override;
  PictureWork& pictureWork() override { return pictureWork_; }
  InkWork& inkWork() override { return ink_; }
  Outcome<Done> savePng(const BitmapView& picture, const std::filesystem::path& path) override;
  bool openElsewhere(const std::filesystem::path& file) override;
  std::optional<std::filesystem::path> choosePicture() override;
  Outcome<Pasted> pasted() override;
  Outcome<Bitmap> loadBitmap(const std::filesystem::path& path) override;
  Outcome<FileMark> saveBitmap(const BitmapView& picture, const std::filesystem::path& path,
                               Overwrite how) override;
  Outcome<Done> printForm(const BitmapView& picture, const PageLook& look) override {
    return printing_.page(picture, look);
  }
  Outcome<PagesWent> printAlone(const BitmapView& picture, const PageLook& look) override;
  void previewPage(const BitmapView& picture, const PageLook& look) override;
  UsualPaper usualPaper() override;
  Outcome<PagesWent> endOfPages() override;
  Outcome<Done> writePicture(const PictureFile& wanted, const std::filesystem::path& path) override;
  bool copyPicture(const BitmapView& picture, const std::string& svg) override;
  std::uint32_t clockSeed() override;
  Outcome<Done> makeBook(Program& program, const BookOrder& order) override;
  void stopBook() override;
  void endBook(Program& program) override;
  std::string remembered(std::string_view key) override;
  void remember(std::string_view key, const std::string& value) override;

  /// From now on these signals end the program as the closed window does.
  void endBy(const EndSignals& asked);
  void endByNone() { asked_.reset(); }

  /// Nobody is there to read a message any more: it goes to standard error.
  void nobodyReads() { attended_ = false; }

  /// Files that the program was started with arrive in the first pump.
  void bring(std::vector<std::filesystem::path> files);

  /// From now on it remembers, in this file; the window goes where it was when it was last remembered.
  /// Without it each run is the first.
  void rememberIn(const std::filesystem::path& file);
  /// Remembers where the window is when it is neither minimised nor maximised.
  void rememberPlace();

  /// How long drawing and sheet stand still before they are kept.
  void autosaveAfter(std::chrono::milliseconds time) { autosave_.setInterval(time); }

  /// A press on a colour of a panel.
  void swatchPressed(ControlId swatch, Qt::MouseButton button);

  [[nodiscard]] Window& window() { return window_; }
  [[nodiscard]] const MenuMirror& menus() const { return menus_; }
  [[nodiscard]] const ControlMirror& controls() const { return controls_; }
  [[nodiscard]] WorkshopPanel& workshop() const { return *workshop_; }
  [[nodiscard]] const PreparePage& preparePage() const { return workshop_->preparePage(); }
  [[nodiscard]] const PageSetupPage& pageSetup() const { return *pageSetup_; }
  [[nodiscard]] const ExportPage& exportPage() const { return *exportPage_; }
  [[nodiscard]] BookPage& bookPage() const { return *bookPage_; }
  [[nodiscard]] const BookStrip& bookStrip() const { return *bookStrip_; }
  [[nodiscard]] const KeysPage& keysPage() const { return *keysPage_; }

 private:
  using Clock = std::chrono::steady_clock;

  bool mustEnd();
  bool isDue(Program& program);
  bool showCanvas(Program& program);
  bool clockSaysDue();
  void bringInLine(Program& program);
  bool ask(Program& program, QEventLoop::ProcessEventsFlags flags);
  bool reportSize(Program& program);
  void waitForNewSize(const std::function<void()>& ask);
  void describe(const Program& program);
  void listenToWindow();
  void listenToArrivals();
  bool finishWork(Program& program);
  void mirrorWorkshop(Program& program);
  void mirrorRegions(const Program& program);
  void waitForAutosave(const Program& program);
  void listenToPages();
  void mirrorPages(const Program& program);
  void placeInMiddle(PanelFrame& frame);
  void askForPaper();
  void listenToExport();
  void mirrorExport(const Program& program);
  void askForExportName(const Program& program);
  void listenToBook();
  [[nodiscard]] bool isBehindBook(const Program& program) const;
  void mirrorBook(const Program& program);
  void placeBook();
  void hearOfBook(Program& program);
  std::vector<std::filesystem::path> askForFiles(const char* title, const char* kinds, bool many);
  void mirrorKeys(const Program& program);
  void mirrorMarks(const Program& program);
  void shortcut(std::string_view keys);
  int run(QDialog& dialog);

  InputQueue inputs_;
  Window window_;
  MenuMirror menus_;
  ControlMirror controls_;
  Printing printing_;
  QtInk ink_;
  WorkshopPanel* workshop_;
  PanelFrame* pageFrame_;
  PageSetupPage* pageSetup_;
  PanelFrame* exportFrame_;
  ExportPage* exportPage_;
  BookStrip* bookStrip_;
  PanelFrame* bookFrame_;
  BookPage* bookPage_;
  KeysPage* keysPage_;
  Ears ears_;
  std::uint64_t regionsShown_ = 0, pagesShown_ = 0, keysShown_ = 0, exportShown_ = 0, bookShown_ = 0;
  std::uint64_t makingShown_ = 0;
  LeptonicaWork pictureWork_;
  std::unique_ptr<WorkThread> beside_;      // begun with the first work
  std::unique_ptr<book::BookMaker> books_;  // begun with the first book
  std::unique_ptr<Memory> memory_;          // null while nothing is remembered
  QTimer autosave_;                         // runs since the last change of what it keeps
  std::string placeKnown_;                  // as it is remembered
  std::uint64_t drawingSeen_ = 0, sheetSeen_ = 0;
  std::unique_ptr<QSocketNotifier> asked_;
  Program* program_ = nullptr;  // the one in the pump, for what a message box leaves behind it
  bool closing_ = false;
  bool attended_ = true;  // somebody reads messages

  bool lettersShown_ = false;
  Size reportedSize_;
  bool wasMinimised_ = false;

  Clock::time_point lastAsked_, lastLooked_;
  int passesLeft_ = 0;  // until the clock is looked at again
  int passesBetween_ = 1;
};

}  // namespace gridwright
