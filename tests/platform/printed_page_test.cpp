// What another program finds in a printed document: every pixel of the Canvas, and nothing lossy.
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <filesystem>
#include <string>

#include "canvas/canvas.h"
#include "platform/shared/image_files.h"
#include "support/page_printer.h"
#include "support/pictures.h"

namespace gridwright::test {
namespace {

TEST(APrintedPage, HoldsTheCanvasPixelForPixelWhenAnotherProgramReadsIt) {
  const TempFolder temp;
  const std::array pages = {motleyPage(800, 600), motleyPage(333, 777)};
  PdfDocument document(temp.path() / "out.pdf");
  for (const Bitmap& page : pages) ASSERT_TRUE(document.addPage(page));
  ASSERT_TRUE(document.finish());

  const std::string folder = temp.path().string();
  EXPECT_NE(outputOf("pdfinfo '" + folder + "/out.pdf'").find("Pages:           2"), std::string::npos);
  ASSERT_EQ(outputOf("pdfimages '" + folder + "/out.pdf' '" + folder + "/page'"), "");
  for (std::size_t i = 0; i < pages.size(); ++i) {
    EXPECT_TRUE(samePicture(readPpm(temp.path() / ("page-00" + std::to_string(i) + ".ppm")), pages[i]));
  }
}

TEST(APrintedPage, FillsThePaperInOneDirectionAndKeepsItsShape) {
  const TempFolder temp;
  PdfDocument document(temp.path() / "out.pdf");
  ASSERT_TRUE(document.addPage(plainBitmap(800, 600, kPalette[1])));
  ASSERT_TRUE(document.finish());
  const std::string folder = temp.path().string();
  // 72 pixels an inch: A4 lying on its side is 842 by 595, less 28 of margin all round.
  ASSERT_EQ(outputOf("pdftoppm -r 72 '" + folder + "/out.pdf' '" + folder + "/sheet'"), "");
  const Bitmap sheet = readPpm(temp.path() / "sheet-1.ppm");
  ASSERT_EQ(sheet.width, 842);
  ASSERT_EQ(sheet.height, 595);
  const auto isInk = [&](int x, int y) { return sheet.at(x, y) == kPalette[1]; };
  EXPECT_TRUE(isInk(421, 31) && isInk(421, 563)) << "as high as the printable area";
  EXPECT_FALSE(isInk(421, 25) || isInk(421, 570));
  EXPECT_TRUE(isInk(69, 297) && isInk(772, 297)) << "four to three";
  EXPECT_FALSE(isInk(60, 297) || isInk(781, 297));
}

using AWordyPage = PagePrinter;

TEST_F(AWordyPage, HasTheNameAndTheTitleOverThePicture) {
  PageLook look;
  look.setup.title = "Mazes of Spring";
  look.setup.nameLine = true;
  const Bitmap sheet = printed(plainBitmap(600, 800, kPalette[1]), look);
  EXPECT_EQ(words(), "Name: Mazes of Spring");
  const Square picture = boxOf(sheet, kPalette[1]);
  EXPECT_GE(picture.top, 28 + 70) << "25 millimetres under the upper margin";
  EXPECT_LT(picture.top, sheet.height / 3);
  EXPECT_NEAR((picture.right - picture.left) * 4, (picture.bottom - picture.top) * 3, 12)
      << "its shape stays";
  EXPECT_LE(picture.bottom, 842 - 28);
}

TEST_F(AWordyPage, HasItsWholePictureEvenOnTheSmallestPaperWithTheWidestMargins) {
  PageLook look;
  look.setup.title = std::string(500, 'W');
  look.setup.nameLine = true;
  look.setup.paper = paperNamed("a6");
  look.setup.margins = allRound(kMostMargin);
  const Bitmap sheet = printed(plainBitmap(600, 800, kPalette[9]), look);
  EXPECT_NEAR(sheet.width, 298, 1);
  EXPECT_NEAR(sheet.height, 420, 1);
  const Square picture = boxOf(sheet, kPalette[9]);
  EXPECT_GE(picture.bottom - picture.top, 140) << "a quarter of the height is the head's, at most";
  const Square ink = boxOf(sheet, 0);
  EXPECT_GE(ink.left, 70) << "within the margins, of which each has a quarter of its side at most";
  EXPECT_LE(ink.right, 298 - 70);
}

TEST_F(AWordyPage, HasStartAndFinishBesideTheEndsAndOffThem) {
  Bitmap maze = plainBitmap(600, 800, qb::white);
  const Square start{100, 100, 119, 119}, finish{480, 680, 499, 699};
  for (int y = start.top; y <= start.bottom; ++y) {
    for (int x = start.left; x <= start.right; ++x) pixelAt(maze, x, y) = kPalette[1];
  }
  for (int y = finish.top; y <= finish.bottom; ++y) {
    for (int x = finish.left; x <= finish.right; ++x) pixelAt(maze, x, y) = kPalette[2];
  }
  for (int y = 90; y < 400; ++y) {  // lines to the right of the start: the word goes to its left
    for (int x = 122; x < 600; x += 4) pixelAt(maze, x, y) = kPalette[3];
  }
  PageLook look{{}, {{start, "Start"}, {finish, "Finish"}}};
  look.setup.endWords = true;
  const Bitmap bare = printed(maze, {});
  const Square startBox = boxOf(bare, kPalette[1]), finishBox = boxOf(bare, kPalette[2]);
  const Bitmap sheet = printed(maze, look);
  EXPECT_EQ(words(), "Start Finish");
  EXPECT_EQ(boxOf(sheet, kPalette[1]), startBox) << "the square itself stays as it is";
  EXPECT_EQ(boxOf(sheet, kPalette[2]), finishBox);
  Bitmap upper = sheet;  // the ink of the first word alone
  for (int y = sheet.height / 2; y < sheet.height; ++y) {
    for (int x = 0; x < sheet.width; ++x) pixelAt(upper, x, y) = qb::white;
  }
  const Square word = boxOf(upper, 0);
  EXPECT_LT(word.right, startBox.left);
  EXPECT_GT(word.right, startBox.left - 10) << "beside it";
  EXPECT_TRUE(word.top < startBox.bottom && word.bottom > startBox.top);
}

TEST_F(AWordyPage, LeavesAWordOutThatHasNoPlace) {
  PageLook look{{}, {{{0, 0, 599, 799}, "Start"}}};
  look.setup.endWords = true;
  look.setup.margins = allRound(0);
  look.setup.paper = PaperSize{1050, 1400};
  printed(plainBitmap(600, 800, qb::white), look);
  EXPECT_EQ(words(), "");
}

TEST_F(AWordyPage, IsInItsPixelsTheSameAsABareOne) {
  PageLook look;
  look.setup.title = "Mazes";
  const Bitmap picture = motleyPage(200, 150);
  printed(picture, look);
  ASSERT_EQ(outputOf("pdfimages '" + file() + "' '" + temp_.path().string() + "/page'"), "");
  EXPECT_TRUE(samePicture(readPpm(temp_.path() / "page-000.ppm"), picture));
}

TEST_F(AWordyPage, LiesAsItIsSetUpAndTheNextOneAsItsPicture) {
  PageLook upright;
  upright.setup.landscape = false;
  upright.setup.paper = paperNamed("letter");
  PdfDocument document(temp_.path() / "out.pdf");
  ASSERT_TRUE(document.addPage(plainBitmap(800, 600, kPalette[1]), upright));
  ASSERT_TRUE(document.addPage(plainBitmap(800, 600, kPalette[1])));
  ASSERT_TRUE(document.finish());
  const std::string sizes = outputOf("pdfinfo -f 1 -l 2 '" + file() + "'");
  EXPECT_NE(sizes.find("Page    1 size:  612 x 792 pts (letter)"), std::string::npos) << sizes;
  EXPECT_NE(sizes.find("Page    2 size:  842 x 595 pts (A4)"), std::string::npos) << sizes;
}

TEST_F(AWordyPage, KeepsTheMarginsThatAreSet) {
  PageLook look;
  look.setup.margins = Margins{300, 100, 200, 100};
  const Bitmap sheet = printed(plainBitmap(800, 600, kPalette[1]), look);
  const Square picture = boxOf(sheet, kPalette[1]);
  EXPECT_GE(picture.left, 84);
  const int middle = (picture.left + picture.right) / 2;
  EXPECT_NEAR(middle, (85 + 842 - 57) / 2, 2) << "in the middle of what is left";
}

}  // namespace
}  // namespace gridwright::test
