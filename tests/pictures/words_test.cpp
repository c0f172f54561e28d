// Words: what of them is one region, what the note says of the others, and how they look.
#include "pictures/words.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <random>

#include "canvas/free_cell.h"
#include "pictures/golden.h"
#include "pictures/letter_cells.h"
#include "pictures/regions.h"
#include "pictures/sheet.h"
#include "pictures/with_fonts.h"
#include "support/maze_reading.h"
#include "support/pictures.h"
#include "support/world.h"

namespace gridwright::test {
namespace {

WordGround groundOf(Size size, int wall, MazeKind kind = MazeKind::regular) {
  WordGround ground;
  ground.size = size;
  const int pitch = pitchOf(wall, kind);
  ground.pitch = {pitch, pitch, wall};
  ground.turns = {0, 1, 2, 3, 4, 5, 6, 7};
  return ground;
}

WordSettings wordsOf(const std::string& text, std::optional<int> height = 12) {
  WordSettings words;
  words.text = text;
  words.height = height;
  return words;
}

Bitmap onSheet(const WordInk& words, Size size) {
  Sheet sheet(size);
  sheet.placeInk(words.picture, words.at);
  return sheet.picture();
}

RegionCount counted(const Bitmap& picture, int wall, MazeKind kind = MazeKind::regular) {
  return countRegions(picture, startingSets(), gridOn({picture.width, picture.height}, wall, kind));
}

std::int64_t inkIn(const Bitmap& picture, Colour colour) {
  return std::count(picture.pixels.begin(), picture.pixels.end(), colour);
}

using AWord = WithFonts;

TEST_F(AWord, LooksAsItDid) {
  const std::array<std::tuple<const char*, const char*, int>, 4> words = {{{"word_mia", "MIA", 12},
                                                                           {"word_umlauts", "ÄÖÜ ß", 12},
                                                                           {"word_arabic", "مرحبا", 20},
                                                                           {"word_heart", "♥", 20}}};
  for (const auto& [name, text, height] : words) {
    WordSettings settings = wordsOf(text, height);
    settings.colour.reset();
    settings.frame = true;
    const WordInk made = makeWords(settings, groundOf({1000, 600}, 10), ink);
    EXPECT_EQ(made.note, "") << text;
    EXPECT_EQ(counted(onSheet(made, {1000, 600}), 10).regions, 1) << text;
    EXPECT_TRUE(looksAsItDid(made.picture, name));
  }
}

TEST_F(AWord, ThatTheNoteNamesNoLetterOfIsOneRegion) {
  const std::vector<std::string> fonts = ink.fontNames();
  ASSERT_FALSE(fonts.empty());
  const std::array texts = {"Mia",        "JONAS",       "Zoë Ängström", "fjord & Co.", "i!?:;",
                            "0123456789", "مرحبا",       "\"'`^~",       "Wörld",       "ﬁx @ 100%",
                            "Łódź",       "Anna\nMaria", "♥★☺",          "ΑΒΓ жук"};
  std::mt19937 random(16);
  const auto below = [&](std::size_t bound) { return static_cast<std::size_t>(random() % bound); };
  int whole = 0;
  const int tries = std::getenv("GRIDWRIGHT_MANY_WORDS") != nullptr ? 300 : 8;
  for (int i = 0; i < tries; ++i) {
    WordSettings words = wordsOf(texts.at(below(texts.size())), static_cast<int>(9 + below(8)));
    if (below(3) == 0) words.height.reset();
    words.font = below(2) == 0 ? "DejaVu Sans" : fonts[below(fonts.size())];
    words.bold = below(3) != 0;
    words.frame = below(3) == 0;
    if (below(2) == 0) words.colour.reset();
    const int wall = static_cast<int>(5 + below(16));
    const MazeKind kind = below(4) == 0 ? MazeKind::pipe : MazeKind::regular;
    WordGround ground = groundOf({1000, 700}, wall, kind);
    if (below(3) == 0) ground.place = Corner{static_cast<int>(below(200)), static_cast<int>(below(200))};
    const WordInk made = makeWords(words, ground, ink);
    if (made.note.find('"') != std::string::npos || made.picture.pixels.empty()) continue;
    ++whole;
    EXPECT_EQ(counted(onSheet(made, ground.size), wall, kind).regions, 1)
        << words.text << " in " << words.font << (words.bold ? " bold" : "") << ", wall " << wall
        << ", height " << words.height.value_or(0) << ": " << made.note;
  }
  EXPECT_GT(whole, tries / 2) << "most have no letter that is named";
}

/// Which cells the letters of a word have, from the first to the last: their squares.
Square squareIn(const Bitmap& picture, int wall, bool first) {
  const CellGrid grid = gridOn({picture.width, picture.height}, wall, MazeKind::regular);
  const int columns = (grid.right - wall) / wall + 1;
  for (int i = 0; i < columns; ++i) {
    const int x = wall + (first ? i : columns - 1 - i) * wall;
    for (int y = wall; y <= grid.bottom; y += wall) {
      bool whole = true;
      for (int dy = 0; dy < wall; ++dy) {
        for (int dx = 0; dx < wall; ++dx) whole = whole && startingSets().isFree(picture.at(x + dx, y + dy));
      }
      if (whole) return {x + 1, y + 1, x + wall - 2, y + wall - 2};
    }
  }
  return {};
}

TEST_F(AWord, BecomesAMazeThatLeadsFromTheFirstLetterToTheLast) {
  for (const int wall : {5, 8, 11, 14, 17, 20}) {
    for (const char* text : {"Mia", "JÖRG", "i-ü"}) {
      const Size size{760, 24 * wall};
      const WordInk made =
          makeWords(wordsOf(text, std::string(text) == "JÖRG" ? 10 : 12), groundOf(size, wall), ink);
      if (!made.note.empty()) continue;  // at large walls there is no room for all
      const Bitmap picture = onSheet(made, size);
      World w(size);
      w.desktop.seed = 16;
      w.begin(picture);
      w.desktop.menu(Item::changewallsize);
      w.desktop.enter(ControlId::Text2, std::to_string(wall));
      w.desktop.menu(Item::cgenerate);
      w.desktop.menu(Item::newmaze);
      w.desktop.untilPhase(Phase::placing);
      w.desktop.pumpsPass(1);
      const Square start = squareIn(picture, wall, true);
      const Square finish = squareIn(picture, wall, false);
      ASSERT_EQ(w.run(), "") << text << wall;
      const MazeReading maze(picture, *w.desktop.file("drawing3.bmp"), PlainSets(w.program.colours), wall);
      EXPECT_EQ(maze.fault(), "") << text << wall;
      EXPECT_EQ(maze.regions(), 1) << text << wall;
      const auto way = maze.way(start, finish);
      ASSERT_TRUE(way) << text << wall;
      EXPECT_GT(way->size(), 10U);
    }
  }
}

TEST_F(AWord, StandsWhereItIsWanted) {
  for (const Corner place : {Corner{0, 0}, Corner{33, 47}, Corner{120, 5}}) {
    for (const bool frame : {false, true}) {
      WordSettings words = wordsOf("Lea");
      words.frame = frame;
      WordGround ground = groundOf({900, 400}, 10);
      ground.place = place;
      const WordInk made = makeWords(words, ground, ink);
      EXPECT_EQ(made.at.x, place.x);
      EXPECT_EQ(made.at.y, place.y);
      EXPECT_NE(
          std::count(made.picture.pixels.begin(), made.picture.pixels.begin() + made.picture.width, kPaper),
          made.picture.width)
          << "its first row is painted";
    }
  }
  const WordInk middle = makeWords(wordsOf("Lea"), groundOf({900, 400}, 10), ink);
  const int left = (900 - middle.picture.width) / 2;
  const int top = (400 - middle.picture.height) / 2;
  EXPECT_NEAR(middle.at.x, left, 1);
  EXPECT_NEAR(middle.at.y, top, 1);
}

TEST_F(AWord, HasCapitalsAsHighAsAskedFor) {
  for (const int height : {8, 12, 24}) {
    WordSettings words = wordsOf("H", height);
    words.join = false;
    EXPECT_EQ(makeWords(words, groundOf({1000, 1000}, 10), ink).picture.height, 10 * height);
  }
}

TEST_F(AWord, IsAsLargeAsTheSheetHolds) {
  for (const Size size : {Size{800, 600}, Size{300, 900}, Size{1000, 120}}) {
    const WordInk made = makeWords(wordsOf("Mia", std::nullopt), groundOf(size, 6), ink);
    EXPECT_EQ(made.note, "");
    EXPECT_LE(made.picture.width, size.width - 12);
    EXPECT_LE(made.picture.height, size.height - 12);
    EXPECT_GT(std::max(double(made.picture.width) / size.width, double(made.picture.height) / size.height),
              0.85);
  }
}

TEST_F(AWord, HasALetterThickenedOnlyWhereItsCellsNeedIt) {
  WordSettings plain = wordsOf("I", 24);
  plain.join = false;
  const WordInk as = makeWords(plain, groundOf({600, 600}, 10), ink);
  EXPECT_EQ(makeWords(wordsOf("I", 24), groundOf({600, 600}, 10), ink).picture, as.picture);
  plain.text = "W";
  plain.height = 12;
  plain.font = "DejaVu Serif";
  plain.bold = false;
  const WordInk thin = makeWords(plain, groundOf({600, 600}, 10), ink);
  EXPECT_NE(counted(onSheet(thin, {600, 600}), 10).regions, 1);
  plain.join = true;
  const WordInk thick = makeWords(plain, groundOf({600, 600}, 10), ink);
  EXPECT_EQ(thick.note, "");
  EXPECT_EQ(counted(onSheet(thick, {600, 600}), 10).regions, 1);
  EXPECT_LE(thick.picture.width, thin.picture.width + 20) << "by a cell at most";
}

TEST_F(AWord, OfWhichALetterFallsApartHasItNamedWithTheHeightThatHelps) {
  WordSettings words = wordsOf("@", 5);
  words.font = "DejaVu Serif";
  words.bold = false;
  WordGround ground = groundOf({600, 600}, 10);
  ground.place = Corner{40, 40};
  const WordInk small = makeWords(words, ground, ink);
  int height = 0;
  ASSERT_EQ(
      std::sscanf(small.note.c_str(), "\"@\" is not one region, from a height of %d cells on it is", &height),
      1)
      << small.note;
  words.height = height;
  EXPECT_EQ(makeWords(words, ground, ink).note, "");
  words.height = height - 1;
  EXPECT_NE(makeWords(words, ground, ink).note, "");
}

TEST_F(AWord, KeepsItsHoles) {
  for (const bool join : {false, true}) {
    WordSettings words = wordsOf("o8B", 14);
    words.join = join;
    const WordInk made = makeWords(words, groundOf({900, 500}, 10), ink);
    BitPlane plane({made.picture.width, made.picture.height});
    for (int y = 0; y < made.picture.height; ++y) {
      for (int x = 0; x < made.picture.width; ++x) {
        if (made.picture.at(x, y) != kPaper) plane.set(x, y);
      }
    }
    BitPlane holes = holesOf(plane);
    int count = 0;
    while (holes.count() > 0) {
      const Square box = holes.bounds();
      holes.without(floodedFrom(holes, holes.next(box.top, 0, true), box.top));
      ++count;
    }
    EXPECT_EQ(count, 5) << join;
  }
}

TEST_F(AWord, TakesColoursInTurnLetterByLetter) {
  WordSettings words = wordsOf("abc");
  words.colour.reset();
  WordGround ground = groundOf({900, 400}, 10);
  ground.turns = {4, 2};
  const WordInk made = makeWords(words, ground, ink);
  EXPECT_GT(inkIn(made.picture, kPalette[4]), inkIn(made.picture, kPalette[2]));
  EXPECT_EQ(inkIn(made.picture, kPalette[4]) + inkIn(made.picture, kPalette[2]) + inkIn(made.picture, kPaper),
            static_cast<std::int64_t>(made.picture.pixels.size()));
}

TEST_F(AWord, WrittenFromTheRightBeginsThere) {
  WordSettings words = wordsOf("אב", 14);
  words.colour.reset();
  WordGround ground = groundOf({900, 400}, 10);
  ground.turns = {4, 2};
  const Bitmap picture = makeWords(words, ground, ink).picture;
  double first = 0;
  double second = 0;
  for (std::size_t i = 0; i < picture.pixels.size(); ++i) {
    const auto x = static_cast<double>(i % static_cast<std::size_t>(picture.width));
    if (picture.pixels[i] == kPalette[4]) first += x / static_cast<double>(inkIn(picture, kPalette[4]));
    if (picture.pixels[i] == kPalette[2]) second += x / static_cast<double>(inkIn(picture, kPalette[2]));
  }
  EXPECT_GT(first, second);
}

TEST_F(AWord, HasAFrameTwoCellsThickTwoCellsAway) {
  WordSettings words = wordsOf("HH");
  const WordGround ground = groundOf({900, 400}, 10);
  const WordInk bare = makeWords(words, ground, ink);
  words.frame = true;
  const WordInk framed = makeWords(words, ground, ink);
  EXPECT_EQ(framed.picture.width, bare.picture.width + 80);
  EXPECT_EQ(framed.picture.height, bare.picture.height + 80);
  for (int i = 0; i < 20; ++i) EXPECT_EQ(framed.picture.at(i, 60), kBlue);
  for (int i = 20; i < 40; ++i) EXPECT_EQ(framed.picture.at(i, 60), kPaper);
}

TEST_F(AWord, OfBlanksOrOfNothingPaintsNothing) {
  for (const char* text : {"", "   ", "\n\n\n", "\t\x01"}) {
    for (const std::optional<int> height : {std::optional<int>(12), std::optional<int>()}) {
      const WordInk made = makeWords(wordsOf(text, height), groundOf({300, 300}, 10), ink);
      EXPECT_TRUE(made.picture.pixels.empty());
      EXPECT_EQ(made.note, "there is nothing to paint");
    }
  }
}

TEST_F(AWord, OfTenThousandLettersIsCutAndSaysSo) {
  for (const char letter : {'x', '\n', ' '}) {
    std::string text(10'000, letter);
    text.push_back('x');
    const WordInk made = makeWords(wordsOf(text, 3), groundOf({300, 300}, 10), ink);
    EXPECT_EQ(made.note.rfind("only the first 60 letters are painted", 0), 0U) << made.note;
  }
}

TEST_F(AWord, NamesLettersThatNoFontHasAndLeavesThemOut) {
  const WordInk made = makeWords(wordsOf("a\xF3\xB0\x80\x80m"), groundOf({600, 300}, 10), ink);
  EXPECT_EQ(made.note, "no font has \"\xF3\xB0\x80\x80\"");
  EXPECT_EQ(made.picture, makeWords(wordsOf("am"), groundOf({600, 300}, 10), ink).picture);
}

TEST_F(AWord, SaysWhichLettersTheSheetHasNoRoomFor) {
  const WordInk made = makeWords(wordsOf("Mia Jonas"), groundOf({300, 300}, 10), ink);
  EXPECT_NE(made.note.find("there is no room for \"M\""), std::string::npos) << made.note;
}

TEST_F(AWord, SaysWhichLettersAreWiderThanInkMayBe) {
  WordSettings words = wordsOf("ABCDEFGHIJKLMNOPQRSTUVWXYZ", 40);
  words.join = false;
  const WordInk made = makeWords(words, groundOf({1000, 700}, 20), ink);
  EXPECT_NE(made.note.find("\"Z\""), std::string::npos) << made.note;
  words = wordsOf("g\n\n\n\nA", 200);
  EXPECT_NE(makeWords(words, groundOf({1000, 700}, 10), ink).note.find("\"A\""), std::string::npos);
}

TEST_F(AWord, IsAsLargeAsThereIsRoomFromItsPlace) {
  WordGround ground = groundOf({1000, 800}, 10);
  ground.place = Corner{500, 300};
  WordSettings words = wordsOf("MIA", 12);
  words.height.reset();
  const WordInk made = makeWords(words, ground, ink);
  EXPECT_EQ(made.note, "");
  EXPECT_EQ(made.at.x, 500);
  EXPECT_EQ(made.at.y, 300);
  EXPECT_GT(made.picture.width, 400);
}

TEST_F(AWord, OnTheSmallestSheetBringsNothingDown) {
  for (const char* text : {"W", "Mia Jonas\nÄ", "مرحبا"}) {
    for (const std::optional<int> height :
         {std::optional<int>(200), std::optional<int>(1), std::optional<int>()}) {
      for (const Size size : {Size{50, 50}, Size{1, 1}}) {
        const WordInk made = makeWords(wordsOf(text, height), groundOf(size, 20, MazeKind::pipe), ink);
        EXPECT_EQ(onSheet(made, size).pixels.size(), static_cast<std::size_t>(size.width * size.height));
      }
    }
  }
}

}  // namespace
}  // namespace gridwright::test
