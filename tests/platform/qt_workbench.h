// The workshop in its window, and what a person does with mouse and keys in it.
#pragma once

#include <gtest/gtest.h>

#include <QApplication>
#include <QDropEvent>
#include <QMimeData>
#include <QMouseEvent>
#include <QPushButton>
#include <QTest>
#include <QToolButton>
#include <QUrl>
#include <QWheelEvent>

#include "platform/qt_session.h"
#include "session/workshop.h"

namespace gridwright {

inline constexpr int kNavy = 1, kGreen = 2, kRed = 12;

/// A session in which the workshop is open, with white paper of 800 by 600 or more.
struct Workbench : Session {
  Workbench() {
    workshop(program);
    pump(Pace::working);
    pump(Pace::working);
  }
  SheetView& view() { return desktop.workshop().view(); }
  Sheet& sheet() { return *program.workshop.sheet; }
  WorkshopTools& tools() { return desktop.workshop().tools(); }
  /// What a person does, and the pumps that take it to the program and bring the window in line: of those
  /// that follow each other closely one in a few looks for input.
  template <class Act>
  void inputs(Act act) {
    act();
    for (int i = 0; i < 4; ++i) {
      pump(Pace::working);
      QTest::qWait(1);
    }
    pump(Pace::housekeeping);
  }
  void press(int x, int y, Qt::MouseButton button = Qt::LeftButton) {
    inputs([&] { QTest::mousePress(view().viewport(), button, {}, view().placeOf({x, y})); });
  }
  void drag(int x, int y, Qt::KeyboardModifiers held = {}) {
    inputs([&] { move(x, y, held); });
  }
  /// As the window system tells it: with the button that is held.
  void move(int x, int y, Qt::KeyboardModifiers held = {}) {
    const QPointF place = view().placeOf({x, y});
    QMouseEvent event(QEvent::MouseMove, place, view().viewport()->mapToGlobal(place), Qt::NoButton,
                      Qt::LeftButton, held);
    QApplication::sendEvent(view().viewport(), &event);
  }
  void release(int x, int y, Qt::KeyboardModifiers held = {}, Qt::MouseButton button = Qt::LeftButton) {
    inputs([&] { QTest::mouseRelease(view().viewport(), button, held, view().placeOf({x, y})); });
  }
  void key(Qt::Key key, Qt::KeyboardModifiers held = {}, QWidget* at = nullptr) {
    inputs([&] { QTest::keyClick(at != nullptr ? at : &view(), key, held); });
  }
  void choose(Hand hand) {
    inputs([&] { tools().button(hand)->click(); });
  }
  void wheel(int x, int y, int notches) {
    const QPointF place = view().placeOf({x, y});
    QWheelEvent event(place, view().viewport()->mapToGlobal(place), {}, {0, 120 * notches}, Qt::NoButton,
                      Qt::NoModifier, Qt::NoScrollPhase, false);
    inputs([&] { QApplication::sendEvent(view().viewport(), &event); });
  }
  QPushButton* button(const QString& text) {
    for (auto* button : desktop.workshop().findChildren<QPushButton*>())
      if (button->text().remove('&') == text && button->isVisible()) return button;
    return nullptr;
  }
  QString said(const char* label) { return desktop.workshop().findChild<ElidedLabel*>(label)->words(); }
  int ink(int x, int y) { return sheet().inkAt(x, y).value_or(-1); }
  /// What is on the screen is what is on the sheet.
  bool showsTheSheet() {
    const QImage& shown = view().picture();
    if (shown.size() != QSize(sheet().size().width, sheet().size().height)) return false;
    for (int y = 0; y < shown.height(); ++y)
      for (int x = 0; x < shown.width(); ++x) {
        const Colour colour = sheet().picture().at(x, y);
        if (shown.pixel(x, y) != qRgb(colour & 255, colour >> 8 & 255, colour >> 16 & 255)) return false;
      }
    return true;
  }
};

/// A picture comes onto the sheet.
struct Placing : Workbench {
  Placing() {
    QImage picture(120, 100, QImage::Format_RGB32);
    picture.fill(qRgb(254, 254, 254));
    for (int y = 30; y < 70; ++y)
      for (int x = 30; x < 90; ++x) picture.setPixel(x, y, qRgb(0, 128, 0));
    picture.save(folder.path() + "/leaf.png");
  }
  void bring() {
    QMimeData data;
    data.setUrls({QUrl::fromLocalFile(folder.path() + "/leaf.png")});
    QDragEnterEvent enter({300, 300}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&desktop.window(), &enter);
    QDropEvent event({300, 300}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&desktop.window(), &event);
    for (int i = 0; i < 2000 && !(program.prepare.open && program.prepare.made); ++i) {
      pump(Pace::working);
      QTest::qWait(5);
    }
    pump(Pace::working);
  }
  void place() {
    press(2, 2);  // so that it is not the first on the sheet
    release(2, 2);
    bring();
    ASSERT_TRUE(button("Place")->isEnabled());
    inputs([&] { button("Place")->click(); });
    ASSERT_TRUE(program.workshop.placed);
    ASSERT_TRUE(view().frame());
    ASSERT_EQ(size(), (Size{60, 40})) << "its ink alone";
  }
  Corner at() { return program.workshop.placed->at; }
  Size size() { return program.workshop.placed->size; }
};

}  // namespace gridwright
