// What the settings of the prepare step do, on pictures of a few shapes.
#include "pictures/prepare.h"

#include <gtest/gtest.h>

#include "pictures/ready.h"
#include "platform/pictures/leptonica_work.h"
#include "support/pictures.h"

namespace gridwright::test {
namespace {

void fill(Bitmap& picture, const Square& box, Colour colour) {
  for (int y = box.top; y <= box.bottom; ++y) {
    for (int x = box.left; x <= box.right; ++x) pixelAt(picture, x, y) = colour;
  }
}

Picture pictureFrom(const Bitmap& bitmap) {
  Picture picture;
  picture.whole.colours = bitmap;
  picture.own = {bitmap.width, bitmap.height};
  return picture;
}

/// A red and a blue box side by side on white, with a white hole in the red one.
Bitmap twoBoxes() {
  Bitmap picture = plainBitmap(200, 150, kWhite);
  fill(picture, {40, 30, 99, 109}, 0x2010D0);
  fill(picture, {100, 30, 159, 109}, 0xD03010);
  fill(picture, {55, 50, 79, 84}, kWhite);
  return picture;
}

Prepared made(const Bitmap& bitmap, const PrepareSettings& settings = {}, Size canvas = {200, 150}) {
  LeptonicaWork work;
  return prepare(pictureFrom(bitmap), settings, {canvas, 10, MazeKind::regular}, work);
}

TEST(WhiteThatIsClosedIn, IsAColourLikeOthersAndWhiteOutsideIsPaper) {
  const Prepared prepared = made(twoBoxes());
  ASSERT_EQ(prepared.found.size(), 3U);
  EXPECT_EQ(prepared.found[2].colour, kWhite);
  EXPECT_TRUE(prepared.found[2].grows);
  EXPECT_EQ(prepared.picture.at(67, 67), kPalette[7]);
  EXPECT_EQ(prepared.picture.at(20, 67), kPaper);
}

TEST(OutlinesBetweenColours, AreTwoPixelsWideThinAndFourThick) {
  for (const auto& [outlines, wide] :
       {std::pair{Outlines::none, 0}, {Outlines::thin, 2}, {Outlines::thick, 4}}) {
    PrepareSettings settings;
    settings.outlines = outlines;
    const Bitmap picture = made(twoBoxes(), settings).picture;
    int greys = 0;
    for (int x = 85; x < 115; ++x) greys += picture.at(x, 100) == kGrey ? 1 : 0;
    EXPECT_EQ(greys, wide);
    EXPECT_NE(picture.at(40, 100), kGrey) << "none beside paper";
  }
}

TEST(APictureWithoutLines, GetsThinOutlinesOfItself) { EXPECT_EQ(made(twoBoxes()).outlines, Outlines::thin); }

TEST(APictureWithLinesOfItsOwn, GetsNoOthersAndNoMazeGrowsInThem) {
  Bitmap picture = plainBitmap(200, 150, kWhite);
  fill(picture, {40, 30, 159, 109}, kBlack);
  fill(picture, {43, 33, 98, 106}, 0x80D0F0);
  fill(picture, {102, 33, 156, 106}, kWhite);
  const Prepared prepared = made(picture);
  EXPECT_EQ(prepared.outlines, Outlines::none);
  ASSERT_EQ(prepared.found.size(), 3U);
  EXPECT_TRUE(prepared.found[2].isLines);
  EXPECT_FALSE(prepared.found[2].grows);
  EXPECT_EQ(prepared.count.regions, 2);
}

/// Boxes of eight colours in a black grid on white, brown and violet ones among them.
Bitmap gridOfBoxes() {
  constexpr std::array<Colour, 8> kFills = {0x2828DC, 0xDC7828, 0x3CD2FA, 0x50AA3C,
                                            0x78A0F0, 0x285078, 0x823278, 0xD2C83C};
  Bitmap picture = plainBitmap(600, 400, kWhite);
  fill(picture, {240, 140, 363, 263}, kBlack);
  for (int box = 0; box < 16; ++box) {
    const int left = 243 + box % 4 * 30;
    const int top = 143 + box / 4 * 30;
    fill(picture, {left, top, left + 27, top + 27}, kFills.at(static_cast<std::size_t>(box / 2)));
  }
  return picture;
}

TEST(LinesBesideMoreColoursThanAreAskedFor, StayLinesAndKeepApartWhatTheyKeptApart) {
  for (int colours = 3; colours <= 16; ++colours) {
    PrepareSettings settings;
    settings.colours = colours;
    const Prepared prepared = made(gridOfBoxes(), settings, {600, 400});
    EXPECT_EQ(prepared.outlines, Outlines::none) << colours;
    EXPECT_EQ(prepared.count.regions, 16) << colours;
    EXPECT_EQ(prepared.count.tooSmall, 0) << colours;
    EXPECT_LE(prepared.found.size(), static_cast<std::size_t>(colours)) << colours;
  }
}

TEST(ColoursThatAreTicked, GrowAndNoOthers) {
  PrepareSettings settings;
  settings.grow = {2};
  const Prepared prepared = made(twoBoxes(), settings);
  EXPECT_FALSE(prepared.found[0].grows);
  EXPECT_TRUE(prepared.found[1].grows);
  EXPECT_FALSE(prepared.found[2].grows);
  settings.grow = std::vector<int>{};
  EXPECT_EQ(made(twoBoxes(), settings).count.cells, 0);
}

TEST(TheSubject, StandsInTheMiddleOfTheCanvas) {
  Bitmap picture = plainBitmap(200, 150, kWhite);
  fill(picture, {10, 5, 69, 44}, kNavy);
  const Bitmap prepared = made(picture).picture;
  EXPECT_EQ(prepared.at(70, 55), kNavy);
  EXPECT_EQ(prepared.at(129, 94), kNavy);
  EXPECT_EQ(prepared.at(69, 75), kPaper);
  EXPECT_EQ(prepared.at(130, 75), kPaper);
}

TEST(ASubjectThatReachesTheEdge, IsMadeSmallerUntilAWallOfPaperIsLeft) {
  const Bitmap prepared = made(drawing({",,,,,,,,,,,,,,,,,,,"}, 10, ',')).picture;
  EXPECT_EQ(prepared.at(9, 75), kPaper);
  EXPECT_EQ(prepared.at(190, 75), kPaper);
}

TEST(APictureInItsOwnSize, IsNotFitted) {
  PrepareSettings settings;
  settings.asItsSize = true;
  const Prepared prepared = made(twoBoxes(), settings, {600, 400});
  EXPECT_EQ(prepared.picture.at(599, 399), kPaper);
  EXPECT_EQ(std::count_if(prepared.picture.pixels.begin(), prepared.picture.pixels.end(),
                          [](Colour colour) { return colour != kPaper; }),
            120 * 80);
  EXPECT_EQ(prepared.cutFrom, Size{});
}

TEST(APictureThatIsCut, SaysSoInItsLine) {
  PrepareSettings settings;
  settings.asItsSize = true;
  const Prepared prepared = made(twoBoxes(), settings, {100, 80});
  const std::string line = prepareLine(prepared);
  EXPECT_EQ(line.substr(0, regionLine(prepared.count).size()), regionLine(prepared.count));
  EXPECT_EQ(line.substr(regionLine(prepared.count).size()),
            "; the picture is 200x150, the Canvas takes 80x60 of it");
  EXPECT_EQ(prepareLine(made(twoBoxes())), regionLine(made(twoBoxes()).count));
}

TEST(AChangeOfSettings, GivesWhatThoseSettingsGiveAnew) {
  const Picture picture = pictureFrom(twoBoxes());
  LeptonicaWork work;
  Preparation preparation(picture, work);
  PrepareSettings settings;
  PrepareGround ground{{200, 150}, 10, MazeKind::regular};
  const auto same = [&] {
    return samePicture(preparation.make(settings, ground).picture,
                       prepare(picture, settings, ground, work).picture);
  };
  EXPECT_TRUE(same());
  settings.colours = 2;
  EXPECT_TRUE(same());
  settings.detail = 1;
  EXPECT_TRUE(same());
  settings.outlines = Outlines::thick;
  EXPECT_TRUE(same());
  settings.grow = {1};
  EXPECT_TRUE(same());
  ground.wallSize = 20;
  EXPECT_TRUE(same());
  ground.canvas = {400, 200};
  EXPECT_TRUE(same());
  settings.asItsSize = true;
  EXPECT_TRUE(same());
}

TEST(SettingsOutOfTheirRange, CountAsTheNearestInIt) {
  PrepareSettings wild;
  wild.colours = 99;
  wild.detail = -4;
  PrepareSettings held;
  held.colours = 16;
  held.detail = 1;
  EXPECT_TRUE(samePicture(made(twoBoxes(), wild).picture, made(twoBoxes(), held).picture));
}

TEST(ACanvasSmallerThanItsFrame, IsAllPaper) {
  for (const Size canvas : {Size{1, 1}, Size{15, 9}, Size{20, 200}}) {
    const Bitmap picture = made(twoBoxes(), {}, canvas).picture;
    EXPECT_EQ(std::count(picture.pixels.begin(), picture.pixels.end(), kPaper), canvas.width * canvas.height);
  }
}

}  // namespace
}  // namespace gridwright::test
