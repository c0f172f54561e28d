// What of a picture is paper, and where its subject lies.
#include "pictures/paper.h"

#include <gtest/gtest.h>

#include "platform/pictures/leptonica_work.h"
#include "support/pictures.h"

namespace gridwright::test {
namespace {

/// A letter a pixel: `.` white, `x` black, ` ` transparent, others a grey.
Layer layer(const Text& rows) {
  Layer made{plainBitmap(static_cast<int>(rows[0].size()), static_cast<int>(rows.size()), kWhite), {}};
  made.clear.assign(made.colours.pixels.size(), 0);
  std::size_t at = 0;
  for (const std::string& row : rows) {
    for (const char c : row) {
      made.clear[at] = c == ' ' ? 1 : 0;
      made.colours.pixels[at++] = c == 'x' ? kBlack : c == 'g' ? 0xE0E0E0 : c == 'm' ? 0x808080 : kWhite;
    }
  }
  return made;
}

std::string maskOf(const Text& rows) {
  std::string text;
  for (const std::uint8_t paper : findPaper(layer(rows)).mask) text += paper != 0 ? 'p' : '-';
  return text;
}

TEST(WhiteAtTheEdge, IsPaperAndWhatIsClosedInIsNot) {
  EXPECT_EQ(maskOf({".......", ".xxxxx.", ".x...x.", ".xxxxx.", "......."}),
            "pppppppp-----pp-----pp-----pppppppp");
}

TEST(ALittleNoise, IsPaperToo) { EXPECT_EQ(maskOf({"....", ".g..", "...g"}), "pppppppppppp"); }

TEST(TransparentParts, ArePaperWhereverTheyLie) {
  EXPECT_EQ(maskOf({"xxxx", "x  x", "xxx "}).substr(5, 2), "pp");
}

TEST(APictureThatIsCutOut, HasNoOtherPaper) {
  const Paper paper = findPaper(layer({"     ", " ... ", " .x. ", "     "}));
  EXPECT_FALSE(paper.hasColour);
  EXPECT_EQ(paper.mask[6], 0);
}

TEST(APictureWithAnEdgeOfManyColours, HasNoPaper) {
  EXPECT_EQ(maskOf({".xmx.", "x...m", "mx.xm"}).find('p'), std::string::npos);
}

TEST(TheSubject, IsWhatIsNoPaperWithoutSpecks) {
  LeptonicaWork work;
  Mask paper(200, 1);
  paper[0] = 0;  // a speck
  for (int y = 3; y <= 6; ++y) {
    for (int x = 5; x <= 9; ++x)
      paper[std::size_t{20} * static_cast<std::size_t>(y) + static_cast<std::size_t>(x)] = 0;
  }
  EXPECT_EQ(subjectOf(paper, {20, 10}, 3, work), (Square{5, 3, 9, 6}));
  EXPECT_EQ(subjectOf(paper, {20, 10}, 1, work), (Square{0, 0, 9, 6}));
  const Square none = subjectOf(Mask(200, 1), {20, 10}, 3, work);
  EXPECT_LT(none.right, none.left);
}

}  // namespace
}  // namespace gridwright::test
