#include <gtest/gtest.h>

#include <QImage>
#include <QPaintEvent>
#include <QPixmap>
#include <QTest>
#include <vector>

#include "platform/qt/canvas_view.h"

namespace gridwright {
namespace {

QRgb screenColour(Colour colour) { return qRgb(colour & 255, colour >> 8 & 255, colour >> 16 & 255); }

TEST(TheView, ShowsEveryPixelOfTheCanvasExactly) {
  CanvasView view(nullptr);
  view.resize(800, 600);
  Canvas canvas;
  for (int i = 0; i < 16; ++i)
    canvas.fill(i * 50, i * 30, i * 50 + 49, 599, kPalette[static_cast<std::size_t>(i)]);
  EXPECT_TRUE(view.showChanges(canvas));
  const QImage seen = view.grab().toImage();
  ASSERT_EQ(seen.size(), QSize(800, 600));
  int wrong = 0;
  for (int y = 0; y < 600; ++y) {
    for (int x = 0; x < 800; ++x) wrong += seen.pixel(x, y) != screenColour(canvas.shownPoint(x, y));
  }
  EXPECT_EQ(wrong, 0);
}

TEST(TheView, HasOnlyWhatChangedOnTheScreenAnew) {
  CanvasView view(nullptr);
  view.resize(800, 600);
  Canvas canvas;
  canvas.fill(0, 0, 799, 599, kPalette[1]);
  view.showChanges(canvas);
  canvas.fill(100, 100, 200, 200, kPalette[1]);
  EXPECT_FALSE(view.showChanges(canvas)) << "the stroke drew what stood there already";
  canvas.fill(100, 100, 200, 200, kPalette[2]);
  EXPECT_TRUE(view.showChanges(canvas));
  EXPECT_EQ(view.picture().pixel(150, 150), screenColour(kPalette[2]));
  EXPECT_EQ(view.picture().pixel(201, 200), screenColour(kPalette[1]));
}

/// What a view was asked to paint, one region an event.
class PaintedParts : public QObject {
 public:
  bool eventFilter(QObject* /*watched*/, QEvent* event) override {
    if (event->type() == QEvent::Paint) regions.push_back(static_cast<QPaintEvent*>(event)->region());
    return false;
  }
  std::vector<QRegion> regions;
};

TEST(AStrokeInTheView, IsPaintedAloneAndNowAndThenWithTheOneBefore) {
  CanvasView view(nullptr);
  view.resize(800, 600);
  view.show();
  ASSERT_TRUE(QTest::qWaitForWindowExposed(&view));
  Canvas canvas;
  canvas.fill(0, 0, 799, 599, kPalette[1]);
  view.showChanges(canvas);
  PaintedParts painted;
  view.installEventFilter(&painted);
  int withTheOneBefore = 0;
  QRect before;
  for (int i = 0; i < 200; ++i) {
    const QRect stroke(i % 20 * 40, i / 20 * 40, 9, 9);
    canvas.fill(stroke.left(), stroke.top(), stroke.right(), stroke.bottom(), kPalette[2]);
    ASSERT_TRUE(view.showChanges(canvas));
    ASSERT_EQ(painted.regions.size(), static_cast<std::size_t>(i) + 1) << "at once";
    const QRegion& region = painted.regions.back();
    if (region == QRegion(stroke) + before && i > 0) {
      ++withTheOneBefore;
    } else {
      EXPECT_EQ(region, QRegion(stroke));
    }
    before = stroke;
  }
  EXPECT_GT(withTheOneBefore, 2);
  EXPECT_LT(withTheOneBefore, 20);
}

TEST(TheCanvasSize, IsTheViewsInPointsUpTo1000By1000) {
  CanvasView view(nullptr);
  const auto sizeAt = [&](int width, int height) {
    view.resize(width, height);
    return std::pair(view.clientSize().width, view.clientSize().height);
  };
  EXPECT_EQ(sizeAt(300, 200), std::pair(300, 200));
  EXPECT_EQ(sizeAt(900, 700), std::pair(900, 700));
  EXPECT_EQ(sizeAt(1900, 1200), std::pair(1000, 1000));
  EXPECT_EQ(sizeAt(1900, 900), std::pair(1000, 900));
  EXPECT_EQ(sizeAt(20, 20), std::pair(50, 50));
}

/// By the number of screen pixels, whatever the scale is at which the tests are run.
void giveRoom(CanvasView& view, int width, int height) {
  view.resize(static_cast<int>(width / view.devicePixelRatioF()),
              static_cast<int>(height / view.devicePixelRatioF()));
}

TEST(TheCanvas, IsShownByTheLargestWholeOrHalfNumberAtWhichAllOfItIsSeen) {
  CanvasView view(nullptr);
  Canvas canvas;  // 800 by 600
  view.showChanges(canvas);
  const double ratio = view.devicePixelRatioF();
  struct Case {
    int width, height;
    double zoom;
    int left, top;
  };
  for (const Case& room :
       {Case{800, 600, 1, 0, 0}, Case{1000, 700, 1, 100, 50}, Case{1200, 900, 1.5, 0, 0},
        Case{1320, 900, 1.5, 60, 0}, Case{1800, 1200, 2, 100, 0}, Case{2040, 1500, 2.5, 20, 0},
        Case{640, 480, 0.5, 120, 90}, Case{3840, 2100, 3.5, 520, 0}, Case{90, 90, 0.5, 0, 0}}) {
    if (ratio != 1 && ratio != 2) continue;  // a view has whole points
    giveRoom(view, room.width, room.height);
    const QRectF place = view.placeOf({0, 0, 800, 600});
    EXPECT_EQ(place,
              QRectF(room.left / ratio, room.top / ratio, 800 * room.zoom / ratio, 600 * room.zoom / ratio))
        << room.width << " x " << room.height;
  }
}

/// The pixels of the view's screen, painted in one go or in bits.
QImage screenOf(CanvasView& view, const std::vector<QRect>& parts) {
  QImage screen(view.size() * view.devicePixelRatioF(), QImage::Format_RGB32);
  screen.setDevicePixelRatio(view.devicePixelRatioF());
  for (const QRect& part : parts) view.render(&screen, part.topLeft(), part);
  return screen;
}

TEST(TheCanvas, LooksTheSameAtAHalfNumberHoweverItIsPainted) {
  CanvasView view(nullptr);
  Canvas canvas;
  canvas.resize({100, 80});
  for (int y = 0; y < 80; ++y)
    for (int x = 0; x < 100; ++x)
      canvas.fill(x, y, x, y, kPalette[static_cast<std::size_t>((x * 7 + y * 3) % 16)]);
  for (const int percent : {50, 100, 150, 250}) {
    giveRoom(view, percent, percent * 80 / 100);
    view.showChanges(canvas);
    const QImage whole = screenOf(view, {view.rect()});
    std::vector<QRect> bits;
    for (int y = 0; y < view.height(); y += 7)
      for (int x = 0; x < view.width(); x += 11) bits.push_back(QRect(x, y, 11, 7) & view.rect());
    EXPECT_EQ(screenOf(view, bits), whole) << percent;
    if (percent < 100 || view.devicePixelRatioF() != 1) continue;
    int wrong = 0;
    for (int y = 0; y < 80; ++y)
      for (int x = 0; x < 100; ++x)
        wrong += whole.pixel((2 * x + 1) * percent / 200, (2 * y + 1) * percent / 200) !=
                 screenColour(canvas.shownPoint(x, y));
    EXPECT_EQ(wrong, 0) << percent;
  }
}

TEST(TheTitle, IsShownWholeHoweverLargeTheCanvasIs) {
  for (const Size size : {Size{1000, 1000}, Size{500, 300}}) {
    CanvasView view(nullptr);
    view.resize(800, 600);
    Canvas canvas;
    canvas.resize(size);
    canvas.setPicture(plainBitmap(800, 600, kPalette[1]));
    view.setAtTitle(true);
    view.showChanges(canvas);
    const QImage seen = view.grab().toImage();
    for (const QPoint corner : {QPoint(1, 1), QPoint(797, 1), QPoint(1, 597), QPoint(797, 597)}) {
      const QPointF place = view.placeOf({corner, QSize(2, 2)}).center() * view.devicePixelRatioF();
      EXPECT_EQ(seen.pixel(place.toPoint()), screenColour(kPalette[1]));
    }
    EXPECT_TRUE(QRectF(view.rect()).contains(view.placeOf({0, 0, 800, 600})));
  }
}

TEST(AKey, IsToldHowItCameAfterTheOneBefore) {
  CanvasView view(nullptr);
  std::vector<KeyGo> goes;
  view.onKey = [&](int, KeyGo go) { goes.push_back(go); };
  const auto press = [&](quint64 at, bool repeated) {
    QKeyEvent event(QEvent::KeyPress, Qt::Key_L, Qt::NoModifier, "l", repeated);
    event.setTimestamp(at);
    QCoreApplication::sendEvent(&view, &event);
  };
  press(10'000, false);
  press(10'300, false);
  press(10'960, true);
  press(10'990, true);
  press(11'291, false);
  press(5, false);
  using enum KeyGo;
  EXPECT_EQ(goes, (std::vector{fresh, soon, held, held, fresh, fresh}));
}

TEST(AKeyThatIsReleasedAndPressedAtOnce, IsHeld) {
  CanvasView view(nullptr);
  std::vector<KeyGo> goes;
  view.onKey = [&](int, KeyGo go) { goes.push_back(go); };
  const auto send = [&](QEvent::Type type, Qt::Key key, quint64 at) {
    QKeyEvent event(type, key, Qt::NoModifier);
    event.setTimestamp(at);
    QCoreApplication::sendEvent(&view, &event);
  };
  send(QEvent::KeyPress, Qt::Key_L, 10'000);
  send(QEvent::KeyRelease, Qt::Key_L, 10'660);
  send(QEvent::KeyPress, Qt::Key_L, 10'661);
  send(QEvent::KeyRelease, Qt::Key_L, 10'700);
  send(QEvent::KeyPress, Qt::Key_K, 10'702);
  send(QEvent::KeyRelease, Qt::Key_K, 11'800);
  send(QEvent::KeyPress, Qt::Key_K, 11'840);
  using enum KeyGo;
  EXPECT_EQ(goes, (std::vector{fresh, held, soon, fresh}));
}

TEST(KeysAndMouseButtonsOnTheCanvas, AreReportedByTheirCodes) {
  CanvasView view(nullptr);
  std::vector<int> keys;
  std::vector<int> buttons;
  view.onKey = [&](int code, KeyGo) { keys.push_back(code); };
  view.onMouse = [&](int button) { buttons.push_back(button); };
  QTest::keyClick(&view, Qt::Key_J);
  QTest::keyClick(&view, Qt::Key_Shift);
  QTest::keyClick(&view, Qt::Key_K, Qt::ControlModifier);
  QTest::keyClick(&view, Qt::Key_Left);
  QTest::mouseClick(&view, Qt::LeftButton);
  QTest::mouseClick(&view, Qt::MiddleButton);
  QTest::mouseClick(&view, Qt::RightButton);
  EXPECT_EQ(keys, (std::vector{74, 37}));
  EXPECT_EQ(buttons, (std::vector{1, 2}));
}

}  // namespace
}  // namespace gridwright
