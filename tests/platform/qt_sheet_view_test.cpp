// The sheet on the screen: strokes by mouse and by keys, the zoom, the frame round a placed picture.
#include <gtest/gtest.h>

#include "platform/qt_workbench.h"

namespace gridwright {
namespace {

TEST(ADraggedPencil, PaintsThroughEachPlaceThatTheMouseWasAt) {
  Workbench w;
  w.press(20, 20);
  w.inputs([&] {  // three moves in one pump
    w.move(60, 20);
    w.move(60, 60);
    w.move(100, 60);
  });
  w.release(100, 60);
  EXPECT_EQ(w.ink(40, 20), kNavy);
  EXPECT_EQ(w.ink(60, 40), kNavy);
  EXPECT_EQ(w.ink(80, 60), kNavy);
  EXPECT_EQ(w.ink(40, 40), kPaperInk) << "no short cut";
  EXPECT_TRUE(w.showsTheSheet());
  EXPECT_EQ(w.program.canvas.shownPoint(40, 20), w.program.canvas.backColor()) << "the Canvas waits for Use";
}

TEST(AShape, ShowsBeforeTheButtonIsLetGoAndShiftGivesItEqualSides) {
  Workbench w;
  w.choose(Hand::rectangle);
  w.press(10, 10);
  w.drag(50, 30);
  EXPECT_EQ(w.ink(50, 30), kNavy);
  EXPECT_TRUE(w.showsTheSheet());
  w.drag(30, 20);
  EXPECT_EQ(w.ink(50, 30), kPaperInk);
  EXPECT_TRUE(w.showsTheSheet());
  w.release(50, 30, Qt::ShiftModifier);
  EXPECT_EQ(w.ink(50, 50), kNavy);
  EXPECT_EQ(w.ink(51, 51), kPaperInk);
}

TEST(AShiftThatGoesDownInMidDrag, MakesTheLineStraightAtOnce) {
  Workbench w;
  w.choose(Hand::line);
  w.view().setFocus();
  w.press(10, 10);
  w.drag(60, 14);
  EXPECT_EQ(w.ink(60, 14), kNavy);
  w.inputs([&] { QTest::keyPress(&w.view(), Qt::Key_Shift); });
  EXPECT_EQ(w.ink(60, 14), kPaperInk);
  EXPECT_EQ(w.ink(60, 10), kNavy);
  w.inputs([&] { QTest::keyRelease(&w.view(), Qt::Key_Shift); });
  EXPECT_EQ(w.ink(60, 14), kNavy);
}

TEST(AStroke, GoesOnOffTheSheetAndComesBack) {
  Workbench w;
  w.press(5, 5);
  w.drag(-300, 5);
  w.drag(5, 40);
  w.release(5, 40);
  EXPECT_EQ(w.ink(0, 5), kNavy);
  EXPECT_EQ(w.ink(5, 40), kNavy);
  w.key(Qt::Key_Z, Qt::ControlModifier);
  EXPECT_EQ(w.ink(5, 5), kPaperInk) << "all of it is one step";
}

TEST(AnotherButton, DoesNothingWhileOneIsHeld) {
  Workbench w;
  w.inputs([&] { w.tools().inks().button(kRed)->click(); });
  w.press(20, 20);
  w.release(20, 20);
  w.inputs([&] { w.tools().inks().button(kGreen)->click(); });
  w.press(60, 60);
  w.press(20, 20, Qt::RightButton);
  w.release(20, 20, {}, Qt::RightButton);
  EXPECT_EQ(w.sheet().settings().colour, kGreen);
  EXPECT_TRUE(w.sheet().isPressed());
  w.release(60, 60);
  w.press(20, 20, Qt::RightButton);
  EXPECT_EQ(w.sheet().settings().colour, kRed) << "the right button picks";
  EXPECT_TRUE(w.tools().inks().button(kRed)->isChecked());
}

TEST(TheKeyboardGone, EndsTheStroke) {
  Workbench w;
  w.view().setFocus();
  w.press(20, 20);
  ASSERT_TRUE(w.sheet().isPressed());
  w.inputs([&] { w.button("Use")->setFocus(); });
  EXPECT_FALSE(w.sheet().isPressed());
  w.drag(90, 20);
  EXPECT_EQ(w.ink(60, 20), kPaperInk);
}

TEST(AWindowResizedInMidDrag, EndsTheStrokeAndLeavesTheSheetAsLarge) {
  Workbench w;
  const Size before = w.sheet().size();
  w.press(20, 20);
  w.inputs([&] { w.desktop.window().resize(860, 760); });
  EXPECT_FALSE(w.sheet().isPressed());
  EXPECT_EQ(w.sheet().size(), before);
  EXPECT_EQ(w.desktop.workshop().size(), w.desktop.window().view().size());
}

TEST(KeysAlone, DrawALine) {
  Workbench w;
  w.key(Qt::Key_2, Qt::ControlModifier);
  EXPECT_EQ(w.tools().hand(), Hand::line);
  w.view().setFocus();
  w.key(Qt::Key_Right);
  const auto from = w.view().pointer();
  ASSERT_TRUE(from);
  w.inputs([&] { QTest::keyPress(&w.view(), Qt::Key_Space); });
  EXPECT_TRUE(w.sheet().isPressed());
  for (int i = 0; i < 3; ++i) w.key(Qt::Key_Down);
  w.key(Qt::Key_Right, Qt::ControlModifier);
  w.inputs([&] { QTest::keyRelease(&w.view(), Qt::Key_Space); });
  EXPECT_FALSE(w.sheet().isPressed());
  EXPECT_EQ(w.view().pointer()->x, from->x + w.sheet().pitch().stepX);
  EXPECT_EQ(w.view().pointer()->y, from->y + 3);
  EXPECT_EQ(w.ink(from->x, from->y), kNavy);
  EXPECT_EQ(w.ink(from->x + w.sheet().pitch().stepX, from->y + 3), kNavy);
}

TEST(ThePointer, StaysOnTheSheet) {
  Workbench w;
  w.view().setFocus();
  for (int i = 0; i < 120; ++i) w.key(Qt::Key_Left, Qt::ControlModifier);
  EXPECT_EQ(w.view().pointer()->x, 0);
}

TEST(TheWheel, ZoomsAtThePointerAndTheKeysAboutTheMiddle) {
  Workbench w;
  const QPoint place = w.view().placeOf({100, 80});
  w.wheel(100, 80, 3);
  EXPECT_EQ(w.view().zoom(), 4);
  EXPECT_LE((w.view().placeOf({100, 80}) - place).manhattanLength(), 4);
  w.wheel(100, 80, 99);
  EXPECT_EQ(w.view().zoom(), 16);
  w.wheel(100, 80, -99);
  EXPECT_EQ(w.view().zoom(), 1);
  w.key(Qt::Key_Plus, Qt::ControlModifier);
  w.key(Qt::Key_Equal, Qt::ControlModifier);
  EXPECT_EQ(w.view().zoom(), 3);
  EXPECT_TRUE(w.said("sheetstatus").endsWith("zoom 3"));
  w.key(Qt::Key_Minus, Qt::ControlModifier);
  EXPECT_EQ(w.view().zoom(), 2);
  w.key(Qt::Key_0, Qt::ControlModifier);
  EXPECT_EQ(w.view().zoom(), 1);
}

TEST(AZoomedSheet, HasSharpPixelsAndAGridOfCells) {
  Workbench w;
  w.press(203, 155);
  w.release(203, 155);
  w.wheel(203, 155, 99);
  const QPoint middle = w.view().placeOf({203, 155});
  const QImage shot = w.view().viewport()->grab().toImage();
  for (int by = -6; by <= 6; by += 3) EXPECT_EQ(shot.pixel(middle + QPoint(by, by)), qRgb(0, 0, 128));
  EXPECT_EQ(shot.pixel(middle + QPoint(16, 0)), qRgb(254, 254, 254));
  const QPoint corner = w.view().placeOf({200, 150});  // cells begin at the wall size, ten pixels apart
  EXPECT_NE(shot.pixel(corner - QPoint(8, 0)), qRgb(254, 254, 254));
  EXPECT_NE(shot.pixel(corner - QPoint(0, 8)), qRgb(254, 254, 254));
  EXPECT_EQ(shot.pixel(w.view().placeOf({207, 157}) - QPoint(8, 8)), qRgb(254, 254, 254));
}

TEST(ThePlaceInMidZoom, IsTheOneUnderTheMouse) {
  Workbench w;
  w.wheel(300, 200, 4);
  w.press(310, 205);
  w.release(310, 205);
  EXPECT_EQ(w.ink(310, 205), kNavy);
  EXPECT_TRUE(w.said("sheetstatus").startsWith("310, 205 · "));
}

TEST(APlacedPicture, IsMovedByItsInsideAndByArrows) {
  Placing w;
  w.place();
  const Corner begin = w.at();
  w.press(begin.x + 30, begin.y + 20);
  w.drag(begin.x + 50, begin.y + 25);
  w.drag(begin.x + 130, begin.y + 70);
  w.release(begin.x + 130, begin.y + 70);
  EXPECT_EQ(w.at().x, begin.x + 100);
  EXPECT_EQ(w.at().y, begin.y + 50);
  EXPECT_EQ(w.ink(begin.x, begin.y), kPaperInk);
  EXPECT_TRUE(w.showsTheSheet());
  w.view().setFocus();
  w.key(Qt::Key_Left);
  w.key(Qt::Key_Up, Qt::ControlModifier);
  EXPECT_EQ(w.at().x, begin.x + 99);
  EXPECT_EQ(w.at().y, begin.y + 50 - w.sheet().pitch().stepY);
  w.key(Qt::Key_Z, Qt::ControlModifier);
  EXPECT_FALSE(w.view().frame()) << "the whole placing is one step";
  EXPECT_EQ(w.ink(begin.x + 120, begin.y + 60), kPaperInk);
}

TEST(ACornerOfAPlacedPicture, ScalesItAndKeepsItsShapeWithoutShift) {
  Placing w;
  w.place();
  const Corner begin = w.at();
  w.press(begin.x + 59, begin.y + 39);
  w.drag(begin.x + 119, begin.y + 39);
  EXPECT_EQ(w.size(), (Size{120, 80}));
  w.drag(begin.x + 99, begin.y + 39, Qt::ShiftModifier);
  EXPECT_EQ(w.size(), (Size{100, 40}));
  w.release(begin.x + 99, begin.y + 39);
  w.view().setFocus();
  w.key(Qt::Key_Plus);
  EXPECT_EQ(w.size(), (Size{105, 42}));
  w.key(Qt::Key_Minus);
  EXPECT_EQ(w.size(), (Size{100, 40}));
}

TEST(AToolOrAPressBeside, LeavesThePlacedPicture) {
  Placing w;
  w.place();
  const Corner begin = w.at();
  w.choose(Hand::pencil);
  EXPECT_FALSE(w.view().frame());
  w.press(begin.x + 5, begin.y + 5);
  w.release(begin.x + 5, begin.y + 5);
  EXPECT_EQ(w.ink(begin.x + 5, begin.y + 5), kNavy) << "the pencil paints over it";
  Placing other;
  other.place();
  other.press(other.at().x - 40, other.at().y - 40);
  other.release(other.at().x - 40, other.at().y - 40);
  EXPECT_FALSE(other.view().frame());
  EXPECT_EQ(other.ink(other.at().x - 40, other.at().y - 40), kPaperInk);
  other.bring();
  other.inputs([&] { other.button("Place")->click(); });
  EXPECT_TRUE(other.view().frame()) << "another picture has a frame again";
}

}  // namespace
}  // namespace gridwright
