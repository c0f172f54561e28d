// Where the window stands when it is not maximised, and what is remembered of it and of everything else
// between runs.
#include <QCoreApplication>
#include <QGuiApplication>
#include <QScreen>
#include <algorithm>
#include <sstream>

#include "platform/qt/qt_desktop.h"

namespace gridwright {

namespace {

constexpr std::string_view kPlace = "window";

}  // namespace

WindowPlace QtDesktop::normalPlace() {
  const QRect place = window_.normalGeometry();
  return {place.left(), place.top(), place.width(), place.height()};
}

void QtDesktop::setNormalPlace(const WindowPlace& place) {
  const QRect wanted(place.left, place.top, place.width, place.height);
  const auto screens = QGuiApplication::screens();
  const bool onAScreen = std::any_of(screens.begin(), screens.end(), [&](const QScreen* screen) {
    return screen->availableGeometry().contains(wanted);
  });
  if (window_.isFullScreen()) return;  // a person wants the screen for it
  if (wanted.isEmpty() || !onAScreen || wanted == window_.normalGeometry()) return;
  // The window manager knows only the place that a window has had while it was normal.
  if (windowState() != WindowState::normal) waitForNewSize([this] { window_.showNormal(); });
  window_.setGeometry(wanted);
  QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
}

namespace {

/// A window that was partly off its screen keeps its size and comes back onto it.
WindowPlace ontoItsScreen(const WindowPlace& place) {
  QRect wanted(place.left, place.top, place.width, place.height);
  const QScreen* screen = QGuiApplication::screenAt(wanted.center());
  const QRect room = screen == nullptr ? QRect() : screen->availableGeometry();
  if (wanted.width() > room.width() || wanted.height() > room.height()) return place;
  wanted.moveLeft(std::clamp(wanted.left(), room.left(), room.right() + 1 - wanted.width()));
  wanted.moveTop(std::clamp(wanted.top(), room.top(), room.bottom() + 1 - wanted.height()));
  return {wanted.left(), wanted.top(), wanted.width(), wanted.height()};
}

}  // namespace

std::string QtDesktop::remembered(std::string_view key) {
  return memory_ ? memory_->value(key) : std::string();
}

void QtDesktop::remember(std::string_view key, const std::string& value) {
  if (memory_) memory_->put(key, value);
}

void QtDesktop::rememberIn(const std::filesystem::path& file) {
  memory_ = std::make_unique<Memory>(file);
  placeKnown_ = memory_->value(kPlace);
  WindowPlace place;
  std::istringstream in(placeKnown_);
  if (in >> place.left >> place.top >> place.width >> place.height) setNormalPlace(ontoItsScreen(place));
}

void QtDesktop::rememberPlace() {
  if (!memory_ || window_.isMinimized()) return;
  const WindowPlace place = normalPlace();
  std::ostringstream words;
  words << place.left << ' ' << place.top << ' ' << place.width << ' ' << place.height;
  if (place.width <= 0 || words.str() == placeKnown_) return;
  placeKnown_ = words.str();
  memory_->put(kPlace, placeKnown_);
}

}  // namespace gridwright
