#include "platform/qt/window.h"

#include <QAction>
#include <QCloseEvent>
#include <QDropEvent>
#include <QFile>
#include <QHBoxLayout>
#include <QMenuBar>
#include <QMimeData>
#include <QShortcut>
#include <QUrl>
#include <QVBoxLayout>
#include <algorithm>
#include <set>

#include "platform/qt/panels.h"
#include "state/shortcuts.h"

namespace gridwright {

namespace {

constexpr QSize kSmallestWindow{480, 320};
constexpr double kShareOfScreen = 0.8;  // that a window takes which may be larger
constexpr int kTitleBar = 40;           // about what a desktop puts above a window

}  // namespace

Window::Window()
    : inside_(new QWidget(this)), view_(new CanvasView(inside_)), statusLine_(new StatusLine(inside_)) {
  auto* column = new QVBoxLayout(inside_);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(0);
  column->addWidget(view_, 1);
  auto* row = new QHBoxLayout;
  row->setSpacing(0);
  row->addWidget(statusLine_, 1);
  bookBar_ = new BookBar(inside_, row);
  runCancel_ = new RunCancel(inside_, row);
  column->addLayout(row);
  setCentralWidget(inside_);
  menuBar()->setNativeMenuBar(false);
  menuBar()->setContextMenuPolicy(Qt::PreventContextMenu);
  connect(new QShortcut(Qt::Key_F10, this), &QShortcut::activated, this, [this] { openFirstMenu(); });
  listenToShortcuts();
  setAcceptDrops(true);
  setMinimumSize(kSmallestWindow);
}

// The standard keys for copying, pasting and opening are more than the ones that the menu shows.
void Window::listenToShortcuts() {
  const auto listen = [this](const QKeySequence& pressed, std::string_view keys) {
    connect(new QShortcut(pressed, this), &QShortcut::activated, this, [this, keys] {
      // Where a menu was left the bar has the keyboard, which belongs to what opens.
      menuBar()->setActiveAction(nullptr);
      onShortcut(keys);
    });
  };
  std::set<std::string_view> heard;
  for (const Shortcut& shortcut : kShortcuts) {
    if (!heard.insert(shortcut.keys).second) continue;
    const QKeySequence written(qString(shortcut.keys));
    QList<QKeySequence> all = {written};
    for (const auto standard : {QKeySequence::Copy, QKeySequence::Paste, QKeySequence::Open}) {
      const QList<QKeySequence> known = QKeySequence::keyBindings(standard);
      if (known.contains(written)) all = known;
    }
    for (const QKeySequence& keys : all) listen(keys, shortcut.keys);
  }
}

void Window::switchWholeScreen() { setWindowState(windowState() ^ Qt::WindowFullScreen); }

// On a screen of four thousand pixels at a scale of one, 800 points would be a stamp.
void Window::open() {
  const QSize room = screen()->availableSize() - QSize(0, kTitleBar);
  const QSize hint = view_->sizeHint();
  const int halves = static_cast<int>(
      2 * kShareOfScreen * std::min(1.0 * room.width() / hint.width(), 1.0 * room.height() / hint.height()));
  const QSize client = hint * std::max(2, halves) / 2;
  const QSize wanted(client.width(),
                     client.height() + menuBar()->heightForWidth(client.width()) + statusLine_->height());
  resize(wanted.boundedTo(room));
  if (wanted.width() > room.width() || wanted.height() > room.height()) {
    showMaximized();  // on a small screen each row counts
  } else {
    show();
  }
}

// The window stays while the loops unwind: no widget goes away under the feet of the program.
void Window::closeEvent(QCloseEvent* event) {
  event->ignore();
  if (onClose) onClose();
}

namespace {

// A source that hears that its file was moved takes the file away.
void acceptAsCopy(QDropEvent& event) {
  event.setDropAction(Qt::CopyAction);
  event.accept();
}

}  // namespace

// Whatever has an address is let in, so that a person is told why an address in the web is not taken.
void Window::dragEnterEvent(QDragEnterEvent* event) {
  if (event->mimeData()->hasUrls()) acceptAsCopy(*event);
}

void Window::dropEvent(QDropEvent* event) {
  onDrop(localFiles(*event->mimeData()));
  acceptAsCopy(*event);
}

std::vector<std::filesystem::path> localFiles(const QMimeData& data) {
  std::vector<std::filesystem::path> files;
  for (const QUrl& url : data.urls()) {
    if (url.isLocalFile()) files.emplace_back(QFile::encodeName(url.toLocalFile()).toStdString());
  }
  return files;
}

void Window::openFirstMenu() {
  if (onMenus && !onMenus()) return;
  for (QAction* title : menuBar()->actions()) {
    if (!title->isVisible() || !title->isEnabled()) continue;
    menuBar()->setActiveAction(title);
    return;
  }
}

}  // namespace gridwright
