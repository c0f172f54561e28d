#include "platform/qt/qt_desktop.h"

#include <QApplication>
#include <QCoreApplication>
#include <QDesktopServices>
#include <QFile>
#include <QGuiApplication>
#include <QMenuBar>
#include <QMessageBox>
#include <QThread>
#include <QUrl>
#include <algorithm>
#include <iostream>

#include "menus/status_words.h"
#include "platform/book/book_maker.h"
#include "platform/shared/image_files.h"
#include "session/input.h"
#include "session/remembered.h"
#include "state/shortcuts.h"

namespace gridwright {

namespace {

using namespace std::chrono_literals;

constexpr auto kBetweenQuestions = 1ms;  // half of what a person's input may wait in a running loop
constexpr auto kLookRarely = 100us;      // clock looks closer together than this are too many
constexpr auto kLookOften = 400us;       // and further apart too few
constexpr int kMostPassesBetween = 64;
constexpr int kPassedOverForOne = 8;  // pumps that are left out take less time than one that is not
constexpr auto kMaximiseTime = 200ms;

}  // namespace

QtDesktop::QtDesktop(const std::filesystem::path& workFolder)
    : menus_(*window_.menuBar(), inputs_),
      controls_(window_.view(), inputs_,
                [this](ControlId swatch, Qt::MouseButton button) { swatchPressed(swatch, button); }),
      printing_(workFolder, defaultPrinter, paperOfDesktop()),
      ink_(contentFolderOfProgram() / "stamps"),
      workshop_(new WorkshopPanel(&window_.view(), inputs_, ink_)),
      pageFrame_(new PanelFrame(&window_.view())),
      pageSetup_(new PageSetupPage(pageFrame_)),
      exportFrame_(new PanelFrame(&window_.view())),
      exportPage_(new ExportPage(exportFrame_)),
      bookStrip_(new BookStrip(&window_.view())),
      bookFrame_(new PanelFrame(&window_.view())),
      bookPage_(new BookPage(bookFrame_)),
      keysPage_(new KeysPage(&window_.view())),
      ears_(window_.centralWidget()) {
  controls_.setHolder(workshop_, workshop_->first());
  controls_.addGuest(&window_.runCancel());
  listenToArrivals();
  listenToPages();
  listenToExport();
  listenToBook();
  listenToWindow();
  autosave_.setSingleShot(true);
  autosave_.setInterval(std::chrono::seconds(input::kAutosaveSeconds));
  QObject::connect(&autosave_, &QTimer::timeout, &window_, [this] {
    inputs_.byTimer([this](Program& program) {
      // A command that was just taken may be leaving the drawing: what it leaves is kept later.
      if (program.state.keyBusy) return autosave_.start();
      input::autosave(program);
    });
  });
  window_.open();
}

QtDesktop::~QtDesktop() = default;

void QtDesktop::listenToWindow() {
  window_.onClose = [this] { closing_ = true; };
  window_.view().onPlaced = [this] {
    controls_.place();
    workshop_->setGeometry(window_.view().rect());
    placeInMiddle(*pageFrame_);
    placeInMiddle(*exportFrame_);
    placeBook();
    keysPage_->setGeometry(window_.view().rect());
  };
  window_.view().onKey = [this](int code, KeyGo go) {
    inputs_.byPerson([code, go](Program& program) { input::keyDown(program, code, go); });
  };
  window_.view().onMouse = [this](int button) {
    inputs_.byPerson([button](Program& program) { input::mouseDown(program, button); });
  };
  window_.onMenus = [this] {
    if (program_ == nullptr || !program_->keys.shown) return true;
    inputs_.byPerson(input::viewDismissed);  // like any other key
    return false;
  };
  window_.onShortcut = [this](std::string_view keys) { shortcut(keys); };
  window_.view().onDismiss = [this] {
    inputs_.byPerson([](Program& program) { input::viewDismissed(program); });
  };
  keysPage_->onDismiss = window_.view().onDismiss;
  window_.statusLine().onOpen = [this](const std::filesystem::path& file) {
    if (openElsewhere(file)) return;
    inputs_.byPerson([file](Program& program) {
      program.notices.tell("no program on this desktop opens " + file.filename().string());
    });
  };
}

/// What is pasted, and the whole screen, have no need of the menus: their keys are heard at the title too.
void QtDesktop::shortcut(std::string_view keys) {
  inputs_.byPerson([keys](Program& program) {
    const std::optional<Item> item = itemOfKeys(program.menus, keys);
    if (!item) return;
    if (item == Item::pastepicture) return input::pasteAsked(program);
    if (item == Item::copymaze) return input::copyAsked(program);
    const bool atTitle = program.state.phase == Phase::title;
    if (item == Item::wholescreen && atTitle) return program.platform.switchWholeScreen();
    input::menuClick(program, *item);
  });
}

// A message box has a loop of its own, which must not hold up the end.
void QtDesktop::endBy(const EndSignals& asked) {
  if (asked.wakeUp() < 0) return;
  asked_ = std::make_unique<QSocketNotifier>(asked.wakeUp(), QSocketNotifier::Read);
  QObject::connect(asked_.get(), &QSocketNotifier::activated, &window_, [this] {
    asked_->setEnabled(false);
    closing_ = true;
    nobodyReads();
    if (QWidget* box = QApplication::activeModalWidget()) box->close();
  });
}

void QtDesktop::doEvents(Program& program, Pace pace) {
  program_ = &program;
  if (pace != Pace::housekeeping && finishWork(program)) return;
  hearOfBook(program);
  if (pace == Pace::working && !isDue(program)) return;
  bringInLine(program);
  const auto flags = pace == Pace::housekeeping ? QEventLoop::ExcludeUserInputEvents : QEventLoop::AllEvents;
  bool reached = ask(program, flags);
  while (pace == Pace::idle && !reached && !mustEnd() && !(beside_ && beside_->hasOutcome())) {
    hearOfBook(program);
    bringInLine(program);
    ears_.whileWaiting(program);
    describe(program);  // after it: Orca 43 stumbles over a new description of what has the keyboard for it
    if (memory_) {
      rememberPlace();
      rememberSettings(program);
    }
    reached = ask(program, QEventLoop::WaitForMoreEvents);
  }
  if (mustEnd()) throw ProgramEnd{};
}

/// A signal is looked for here too: the system may have had no pipe to wake this up with.
bool QtDesktop::mustEnd() {
  if (endSignal() != 0) nobodyReads();
  return closing_ || endSignal() != 0;
}

// Run millions of times a second by a busy loop: a few comparisons, and the clock now and then.
bool QtDesktop::isDue(Program& program) {
  if (program.menus.revision() != menus_.shown() || program.controls.revision() != controls_.shown())
    return true;
  if (workshop_->isBehind(program) || program.regions.revision != regionsShown_) return true;
  if (program.pages.revision != pagesShown_ || program.keys.revision != keysShown_) return true;
  if (program.exporting.revision != exportShown_) return true;
  if (isBehindBook(program)) return true;
  if (program.canvas.isDirty() && showCanvas(program)) return true;
  return --passesLeft_ <= 0 && clockSaysDue();
}

// Until the clock is looked at next nothing happens here, unless there is something to show.
std::int64_t QtDesktop::quietPumps(const Program& program) {
  const bool shown =
      program.menus.revision() == menus_.shown() && program.controls.revision() == controls_.shown();
  const bool painted = program.canvas.isDirty() && !window_.isMinimized();
  return shown && !painted ? std::int64_t{kPassedOverForOne} * (passesLeft_ - 1) : 0;
}

void QtDesktop::passOver(std::int64_t pumps) { passesLeft_ -= static_cast<int>(pumps / kPassedOverForOne); }

bool QtDesktop::showCanvas(Program& program) {
  return !window_.isMinimized() && window_.view().showChanges(program.canvas);
}

// Passes differ a thousandfold in length, so the number of them between two looks follows their time.
bool QtDesktop::clockSaysDue() {
  const auto now = Clock::now();
  if (now - lastLooked_ < kLookRarely) passesBetween_ = std::min(kMostPassesBetween, passesBetween_ * 2);
  if (now - lastLooked_ > kLookOften) passesBetween_ = std::max(1, passesBetween_ / 4);
  lastLooked_ = now;
  passesLeft_ = passesBetween_;
  return now - lastAsked_ >= kBetweenQuestions;
}

void QtDesktop::bringInLine(Program& program) {
  menus_.mirror(program.menus);
  if (inputs_.empty()) controls_.mirror(program.controls);  // not over what is being typed
  window_.statusLine().mirror(program);
  if (inputs_.empty()) mirrorWorkshop(program);
  mirrorRegions(program);
  waitForAutosave(program);
  mirrorPages(program);
  mirrorExport(program);
  mirrorBook(program);
  mirrorKeys(program);
  mirrorMarks(program);
  window_.view().setAtTitle(program.state.phase == Phase::title);
  showCanvas(program);
  ears_.whileWorking(program);
}

/// Each change of the drawing or of the sheet begins the wait anew.
void QtDesktop::waitForAutosave(const Program& program) {
  const Sheet* sheet = program.workshop.sheet.get();
  const std::uint64_t sheetIs = sheet == nullptr ? 0 : sheet->revision();
  const bool drawn = program.state.phase == Phase::drawing && program.canvas.keptChanges() != drawingSeen_;
  if (drawn || sheetIs != sheetSeen_) autosave_.start();
  drawingSeen_ = program.canvas.keptChanges();
  sheetSeen_ = sheetIs;
}

/// Tells a screen reader what the picture is about, in the words of the status line without what is counted.
/// Only a program that waits for a person is described: a walker at work stands somewhere else before a word
/// is spoken.
void QtDesktop::describe(const Program& program) {
  QString words = qString(program.controls.caption());
  const std::string status = statusWords(statusOf(program.state));
  if (!status.empty()) words += "; " + qString(status);
  if (window_.view().accessibleDescription() != words) window_.view().setAccessibleDescription(words);
}

/// Lets Qt run, then hands over what that brought. \returns whether anything reached the program.
bool QtDesktop::ask(Program& program, QEventLoop::ProcessEventsFlags flags) {
  QCoreApplication::processEvents(flags);
  lastAsked_ = Clock::now();
  controls_.keepFocus(program.controls);
  const bool resized = reportSize(program);
  return inputs_.deliver(program, !flags.testFlag(QEventLoop::ExcludeUserInputEvents)) || resized;
}

/// A window that comes back is told like one that changed its size: while it was away nothing was.
bool QtDesktop::reportSize(Program& program) {
  const bool minimised = window_.isMinimized();
  const Size size = clientSize();
  const bool changed = size.width != reportedSize_.width || size.height != reportedSize_.height;
  const bool cameBack = wasMinimised_ && !minimised;
  wasMinimised_ = minimised;
  if (minimised || (!changed && !cameBack)) return false;
  reportedSize_ = size;
  input::resized(program, size);
  return true;
}

WindowState QtDesktop::windowState() {
  if (window_.isMinimized()) return WindowState::minimised;
  return window_.isMaximized() || window_.isFullScreen() ? WindowState::maximised : WindowState::normal;
}

std::filesystem::path QtDesktop::contentFolder() { return contentFolderOfProgram(); }

Outcome<PagesWent> QtDesktop::printAlone(const BitmapView& picture, const PageLook& look) {
  auto went = printing_.pageAlone(picture, look);
  if (!went) messageBox(kPagesLost);
  return went;
}

Outcome<PagesWent> QtDesktop::endOfPages() {
  auto went = printing_.endOfPages();
  if (!went) messageBox(kPagesLost);
  return went;
}

void QtDesktop::setWindowState(WindowState state) {
  if (state == windowState()) return;
  const Qt::WindowStates now = window_.windowState();
  if (state != WindowState::minimised && now.testFlag(Qt::WindowFullScreen)) {
    window_.setWindowState(now & ~Qt::WindowMinimized);  // back on the whole screen, where it was
    return;
  }
  switch (state) {
    case WindowState::minimised:
      window_.showMinimized();
      break;
    case WindowState::maximised:
      window_.showMaximized();
      break;
    case WindowState::normal:
      window_.showNormal();
      break;
  }
}

Size QtDesktop::maximise() {
  if (windowState() == WindowState::maximised) return clientSize();
  waitForNewSize([this] { setWindowState(WindowState::maximised); });
  return clientSize();
}

/// All is heard meanwhile but a person: what is typed now belongs to what will stand afterwards.
void QtDesktop::waitForNewSize(const std::function<void()>& ask) {
  const QSize before = window_.view().size();
  ask();
  const auto end = Clock::now() + kMaximiseTime;
  while (window_.view().size() == before && Clock::now() < end) {
    QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
    QThread::msleep(1);
  }
  QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
}

void QtDesktop::raise() {
  window_.raise();
  window_.activateWindow();
  window_.view().repaint();
}

void QtDesktop::messageBox(std::string_view text) {
  if (!attended_) {
    std::cerr << text << '\n';
    return;
  }
  if (program_ != nullptr) bringInLine(*program_);
  QMessageBox box(QMessageBox::NoIcon, QString(), qString(text), QMessageBox::Ok, &window_);
  box.setTextFormat(Qt::PlainText);
  run(box);
}

int QtDesktop::run(QDialog& dialog) {
  const int answer = dialog.exec();
  window_.statusLine().skipTime();
  return answer;
}

bool QtDesktop::openElsewhere(const std::filesystem::path& file) {
  return QDesktopServices::openUrl(QUrl::fromLocalFile(QFile::decodeName(file.c_str())));
}

Outcome<Done> QtDesktop::savePng(const BitmapView& picture, const std::filesystem::path& path) {
  return writePngFile(picture, path);
}

Outcome<Bitmap> QtDesktop::loadBitmap(const std::filesystem::path& path) { return readBitmapFile(path); }

Outcome<FileMark> QtDesktop::saveBitmap(const BitmapView& picture, const std::filesystem::path& path,
                                        Overwrite how) {
  return writeBitmapFile(picture, path, how);
}

std::uint32_t QtDesktop::clockSeed() {
  const auto ticks = static_cast<std::uint64_t>(std::chrono::system_clock::now().time_since_epoch().count());
  return static_cast<std::uint32_t>(ticks ^ ticks >> 32);
}

void QtDesktop::swatchPressed(ControlId swatch, Qt::MouseButton button) {
  if (button == Qt::LeftButton)
    inputs_.byPerson([swatch](Program& program) { input::swatchLeft(program, swatch); });
  if (button == Qt::RightButton)
    inputs_.byPerson([swatch](Program& program) { input::swatchRight(program, swatch); });
}

}  // namespace gridwright
