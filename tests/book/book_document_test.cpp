// What other programs find in the pages of a book.
#include "platform/book/book_document.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <random>
#include <set>
#include <string>
#include <vector>

#include "platform/book/page_words.h"
#include "platform/shared/growing_file.h"
#include "printing/patches.h"
#include "support/made_up_mazes.h"
#include "support/offscreen.h"
#include "support/printed_pages.h"
#include "support/work_folders.h"

namespace gridwright::test {
namespace {

using namespace book;
namespace fs = std::filesystem;

const DocumentWords kAbout{"A title", "A subject", "some words", "a program", "sixteen bytes id"};

/// Mazes in a store, and the documents that come of them.
class ABook : public ::testing::Test {
 public:
  static void SetUpTestSuite() { beginOffscreen(); }

 protected:
  void add(const MadeMaze& made, MazeFormat format = MazeFormat::vector) {
    const BarePage page = barePageOf(made, format, true);
    ASSERT_TRUE(store_.put(made.record.number, page));
    records_.push_back(made.record);
    notVector_ = page.notVector;
  }
  void add(int count, int columns = 12, int rows = 9, int wall = 10) {
    for (int i = 1; i <= count; ++i)
      add(MadeUpMaze(columns, rows, wall, static_cast<std::uint32_t>(i)).made(i));
  }
  fs::path asPart() {
    return written("part.pdf", [&](QIODevice& device) {
      return writePart(records_, "the list", kAbout, store_, device, {});
    });
  }
  fs::path asBook(const std::string& name = "book.pdf") {
    const PlannedBook planned = planPages(plan_, records_);
    return written(name, [&](QIODevice& device) {
      return writeBook(planned.book, records_, wordPagesOf(planned.book, plan_, records_), kAbout, store_,
                       device, {});
    });
  }
  template <class Work>
  fs::path written(const std::string& name, Work&& work) {
    const fs::path path = temp_.path() / name;
    GrowingFile file(path);
    const auto done = work(file);
    EXPECT_TRUE(done) << (done ? "" : done.fault().words);
    EXPECT_TRUE(file.takeName(path));
    return path;
  }
  /// A page as another program shows it, in so many dots an inch.
  Bitmap shown(const fs::path& document, int page, double dots) const {
    const std::string out = (temp_.path() / "shown").string();
    EXPECT_EQ(outputOf("pdftoppm -singlefile -r " + std::to_string(dots) + " -f " + std::to_string(page) +
                       " '" + document.string() + "' '" + out + "'"),
              "");
    return readPpm(out + ".ppm");
  }

  TempFolder temp_;
  BareStore store_{temp_.path()};
  std::vector<MazeRecord> records_;
  std::optional<std::string> notVector_;
  BookPlan plan_;
};

/// Whether a picture shown in four dots a pixel has each pixel's colour in its middle.
::testing::AssertionResult showsEachPixel(const Bitmap& shown, const Bitmap& picture) {
  if (shown.width != 4 * picture.width || shown.height != 4 * picture.height)
    return ::testing::AssertionFailure() << shown.width << " by " << shown.height << " dots";
  for (int y = 0; y < shown.height; ++y) {
    for (int x = 0; x < shown.width; ++x) {
      const bool isMiddle = x % 4 % 3 != 0 && y % 4 % 3 != 0;
      if (isMiddle && shown.at(x, y) != (picture.at(x / 4, y / 4) & kColourBits))
        return ::testing::AssertionFailure() << "another colour at pixel " << x / 4 << ", " << y / 4;
    }
  }
  return ::testing::AssertionSuccess();
}

/// Dots an inch that give four of them to a pixel of a bare page, which is a point wide.
constexpr double kFourAPixel = 288;

Bitmap noise(int side, std::mt19937::result_type colours) {
  std::mt19937 chance(5);
  Bitmap picture = plainBitmap(side, side, 0);
  for (Colour& pixel : picture.pixels) pixel = static_cast<Colour>(chance() % colours * 40503 & 0xFFFFFF);
  return picture;
}

MadeMaze madeOf(const Bitmap& picture, int cells) {
  MadeMaze made;
  made.maze = made.answer = picture;
  made.record.number = 1;
  made.record.width = picture.width;
  made.record.height = picture.height;
  made.record.cells = cells;
  return made;
}

TEST_F(ABook, ShowsEachPixelOfAMazeAndOfItsAnswerInItsColour) {
  const MadeMaze made = MadeUpMaze(31, 22, 7, 3).made(1);
  add(made);
  const fs::path part = asPart();
  EXPECT_TRUE(showsEachPixel(shown(part, 1, kFourAPixel), made.maze));
  EXPECT_TRUE(showsEachPixel(shown(part, 2, kFourAPixel), made.answer));
  EXPECT_EQ(notVector_, std::nullopt);
}

TEST_F(ABook, ShowsEachPixelOfAPictureOfManyColoursInItsColour) {
  const MadeMaze made = madeOf(noise(70, 3000), 1);
  add(made);
  EXPECT_EQ(notVector_, std::nullopt) << "4,900 rectangles at the most";
  EXPECT_TRUE(showsEachPixel(shown(asPart(), 1, kFourAPixel), made.maze));
}

TEST_F(ABook, KeepsAPhotographAroundAMazeInPixelsWithoutLossAndSaysWhy) {
  for (const std::mt19937::result_type colours : {200U, 3000U}) {
    const MadeMaze made = madeOf(noise(200, colours), 300);
    add(made);
    EXPECT_EQ(notVector_, "more than 20000 rectangles");
    const fs::path part = asPart();
    EXPECT_TRUE(showsEachPixel(shown(part, 1, kFourAPixel), made.maze));
    EXPECT_TRUE(showsEachPixel(shown(part, 2, kFourAPixel), made.answer));
    const std::string out = (temp_.path() / "image").string();
    EXPECT_EQ(outputOf("pdfimages -f 1 -l 1 '" + part.string() + "' '" + out + "'"), "");
    EXPECT_TRUE(samePicture(readPpm(out + "-000.ppm"), made.maze));
    records_.clear();
  }
}

TEST_F(ABook, StaysInRectanglesWhereTheyAreFourACellAtTheMost) {
  const Bitmap picture = noise(200, 3000);
  const auto patches = static_cast<int>(countPatches(layersOf(picture, 1000000).value()));
  ASSERT_GT(patches, 20000);
  add(madeOf(picture, (patches + 3) / 4));
  EXPECT_EQ(notVector_, std::nullopt);
  records_.clear();
  add(madeOf(picture, (patches - 1) / 4));
  EXPECT_NE(notVector_, std::nullopt);
}

TEST_F(ABook, IsOfPixelsWhereThatIsAskedForAndTellsOfNoReason) {
  const MadeMaze made = MadeUpMaze(20, 15, 8, 3).made(1);
  add(made, MazeFormat::pixels);
  EXPECT_EQ(notVector_, std::nullopt);
  const fs::path part = asPart();
  EXPECT_TRUE(showsEachPixel(shown(part, 1, kFourAPixel), made.maze));
  EXPECT_TRUE(showsEachPixel(shown(part, 2, kFourAPixel), made.answer));
}

TEST_F(ABook, IsWhatAnotherProgramCallsSound) {
  add(5);
  plan_.title = "Summer";
  plan_.pageNumbers = plan_.nameLine = true;
  for (const fs::path& path : {asBook(), asPart()}) {
    EXPECT_EQ(outputOf("qpdf --check '" + path.string() + "' 2>&1 >/dev/null"), "");
  }
}

TEST_F(ABook, HasPagesOfItsPapersVerySizeAndNoPicturesInThem) {
  add(14);
  plan_.paper = {"180x240mm", 510236, 680315};
  const fs::path book = asBook();
  const std::string told = outputOf("pdfinfo -f 1 -l 16 -box '" + book.string() + "'");
  EXPECT_NE(told.find("Pages:           16"), std::string::npos) << told;
  EXPECT_NE(told.find("Page    1 size:  510.236 x 680.315 pts"), std::string::npos) << told;
  EXPECT_NE(told.find("Page   16 size:  510.236 x 680.315 pts"), std::string::npos) << told;
  EXPECT_NE(told.find("Page   16 MediaBox:      0.00     0.00   510.24   680.31"), std::string::npos) << told;
  const std::string pictures = outputOf("pdfimages -list '" + book.string() + "'");
  EXPECT_EQ(std::count(pictures.begin(), pictures.end(), '\n'), 2) << pictures;  // its head alone
}

TEST_F(ABook, DrawsEachMazeWhereItIsPlannedAndTheAnswerWithItsTrail) {
  add(2);
  plan_.paper = {"100x200mm", 283465, 566929};
  plan_.margin = 28346;
  plan_.answersPerPage = {1, 2};
  const fs::path book = asBook();
  const PlannedBook planned = planPages(plan_, records_);
  const auto seen = [&](const PlannedPage& page, const PlacedMaze& placed, int x, int y) {
    constexpr double kDots = 254;
    const MazeRecord& record = records_[placed.maze];
    const double scale = placed.place.width / record.width;
    const Bitmap sheet = shown(book, page.number, kDots);
    return sheet.at(static_cast<int>((placed.place.x + (x + 0.5) * scale) * kDots / 72),
                    static_cast<int>((placed.place.y + (y + 0.5) * scale) * kDots / 72));
  };
  const MadeMaze second = MadeUpMaze(12, 9, 10, 2).made(2);
  const PlannedPage& maze = planned.book.pages.at(1);
  const PlannedPage& answers = planned.book.pages.at(2);
  for (const auto& [x, y] : {std::pair{4, 4}, {15, 15}, {100, 55}, {128, 98}}) {
    EXPECT_EQ(seen(maze, maze.mazes.at(0), x, y), second.maze.at(x, y)) << x << ", " << y;
    EXPECT_EQ(seen(answers, answers.mazes.at(1), x, y), second.answer.at(x, y)) << x << ", " << y;
  }
  const auto trail = std::find(second.answer.pixels.begin(), second.answer.pixels.end(), kLime);
  const auto at = static_cast<int>(trail - second.answer.pixels.begin());
  EXPECT_EQ(seen(answers, answers.mazes.at(1), at % second.answer.width, at / second.answer.width), kLime);
}

/// How far a colour is from the mixtures of two others, in steps of a channel.
double farFromMixing(Colour seen, Colour a, Colour b) {
  double along = 0;
  double length = 0;
  for (int shift = 0; shift < 24; shift += 8) {
    const double from = a >> shift & 0xFF;
    const double step = (b >> shift & 0xFF) - from;
    along += ((seen >> shift & 0xFF) - from) * step;
    length += step * step;
  }
  const double part = length > 0 ? std::clamp(along / length, 0.0, 1.0) : 0;
  double farthest = 0;
  for (int shift = 0; shift < 24; shift += 8) {
    const double from = a >> shift & 0xFF;
    const double mixed = from + part * ((b >> shift & 0xFF) - from);
    farthest = std::max(farthest, std::abs((seen >> shift & 0xFF) - mixed));
  }
  return farthest;
}

TEST_F(ABook, HasNoLinesBetweenItsColoursInWhateverResolution) {
  std::mt19937 chance(11);
  Bitmap picture = plainBitmap(60, 60, 0);
  std::array<Colour, 25> blocks{};
  for (Colour& block : blocks) block = kPalette[chance() % 15];
  for (int y = 0; y < 60; ++y)
    for (int x = 0; x < 60; ++x)
      pixelAt(picture, x, y) = blocks[static_cast<std::size_t>(y / 12 * 5 + x / 12)];
  add(madeOf(picture, 10));
  plan_.paper = {"60x60mm", 170079, 170079};
  plan_.margin = 20000;
  plan_.caption.clear();
  const fs::path book = asBook();
  const Box place = planPages(plan_, records_).book.pages.at(0).mazes.at(0).place;
  for (const double dots : {150.0, 300.0, 600.0}) {
    const Bitmap sheet = shown(book, 1, dots);
    const double scale = dots / 72 * place.width / picture.width;
    const auto pixelOf = [&](double dot, double edge) {
      return std::clamp(static_cast<int>((dot - edge * dots / 72) / scale), 0, 59);
    };
    int looked = 0;
    const auto begin = static_cast<int>(std::ceil(place.x * dots / 72)) + 1;
    const auto end = static_cast<int>((place.x + place.width) * dots / 72) - 1;
    for (int y = begin; y < end; ++y) {
      for (int x = begin; x < end; ++x) {
        // Where three meet one of them reaches for a pixel between the others.
        std::set<Colour> near;
        for (int v = pixelOf(y - scale, place.y); v <= pixelOf(y + 1 + scale, place.y); ++v)
          for (int u = pixelOf(x - scale, place.x); u <= pixelOf(x + 1 + scale, place.x); ++u)
            near.insert(picture.at(u, v));
        if (near.size() > 2) continue;
        ++looked;
        ASSERT_LE(farFromMixing(sheet.at(x, y), *near.begin(), *near.rbegin()), 4)
            << "in " << dots << " dots an inch at " << x << ", " << y;
      }
    }
    EXPECT_GT(looked, (end - begin) * (end - begin) / 2);
  }
}

TEST_F(ABook, SaysItsWordsAsText) {
  add(3);
  plan_.title = "Für große Kinder";
  plan_.caption = "Maze {n} of {picture}";
  plan_.pageNumbers = plan_.nameLine = true;
  const fs::path book = asBook();
  const std::string second = outputOf("pdftotext -f 2 -l 2 -layout '" + book.string() + "' -");
  for (const char* words : {"Für große Kinder", "Maze 2 of picture 2", "Name:"})
    EXPECT_NE(second.find(words), std::string::npos) << second;
  EXPECT_EQ(second.find("Maze 1"), std::string::npos);
  const std::string answers = outputOf("pdftotext -f 4 -l 4 -layout '" + book.string() + "' -");
  for (const char* words : {"Für große Kinder", "Maze 1 of picture 1", "Maze 3 of picture 3", "4"})
    EXPECT_NE(answers.find(words), std::string::npos) << answers;
  EXPECT_EQ(answers.find("Name:"), std::string::npos) << answers;
}

TEST_F(ABook, HasEachFontOnce) {
  add(6);
  plan_.title = "Summer";
  plan_.pageNumbers = true;
  const std::string fonts = outputOf("pdffonts '" + asBook().string() + "'");
  EXPECT_EQ(std::count(fonts.begin(), fonts.end(), '\n'), 4)
      << "two lines of a head, one plain, one bold: " << fonts;
}

TEST_F(ABook, WithoutAnyWordsHasNoFontsAndNoText) {
  add(1);
  plan_.caption.clear();
  plan_.answers = Answers::none;
  const std::string book = asBook().string();
  EXPECT_EQ(outputOf("pdftotext '" + book + "' -"), "\f");
  const std::string fonts = outputOf("pdffonts '" + book + "'");
  EXPECT_EQ(std::count(fonts.begin(), fonts.end(), '\n'), 2) << fonts;
}

TEST_F(ABook, WrittenTwiceIsTheSameToTheByteAndKnowsNoClock) {
  add(5);
  plan_.title = "Summer";
  plan_.pageNumbers = plan_.nameLine = true;
  const fs::path first = asBook("first.pdf");
  const fs::path second = asBook("second.pdf");
  EXPECT_TRUE(temp_.get("first.pdf") == temp_.get("second.pdf"));
  EXPECT_EQ(outputOf("pdfinfo '" + first.string() + "'").find("Date"), std::string::npos);
}

TEST_F(ABook, BearsTheDateOfItsSourceWhereThatIsGiven) {
  add(1);
  ::setenv("SOURCE_DATE_EPOCH", "1000000000", 1);
  const std::string told = outputOf("TZ=UTC pdfinfo -isodates '" + asBook().string() + "'");
  ::setenv("SOURCE_DATE_EPOCH", "yesterday", 1);
  const std::string none = outputOf("pdfinfo '" + asBook().string() + "'");
  ::unsetenv("SOURCE_DATE_EPOCH");
  EXPECT_NE(told.find("CreationDate:    2001-09-09T01:46:40"), std::string::npos) << told;
  EXPECT_EQ(none.find("CreationDate"), std::string::npos) << none;
}

TEST_F(ABook, SaysWhatItIs) {
  add(1);
  const std::string told = outputOf("pdfinfo '" + asBook().string() + "'");
  for (const char* words : {"Title:           A title", "Subject:         A subject",
                            "Keywords:        some words", "Creator:         a program"})
    EXPECT_NE(told.find(words), std::string::npos) << told;
}

TEST_F(ABook, TakesSixtyKilobytesAtTheMostForAMazeOfEightyBySixtyCellsWithItsAnswer) {
  add(1, 80, 60);
  plan_.title = "Summer";
  EXPECT_LE(fs::file_size(asBook()), 60U * 1024);
}

TEST_F(ABook, IsNotWrittenOnceItsWriterIsStopped) {
  add(3);
  const PlannedBook planned = planPages(plan_, records_);
  GrowingFile file(temp_.path() / "book.pdf");
  int asked = 0;
  const auto done = writeBook(planned.book, records_, wordPagesOf(planned.book, plan_, records_), kAbout,
                              store_, file, [&] { return ++asked > 2; });
  EXPECT_FALSE(done);
  EXPECT_EQ(asked, 3);
}

TEST_F(ABook, HasNoWordsSetOnceItsWriterIsStopped) {
  add(5);
  const PlannedBook planned = planPages(plan_, records_);
  int asked = 0;
  const std::string words = wordPagesOf(planned.book, plan_, records_, [&] { return ++asked > 2; });
  EXPECT_EQ(asked, 3);
  EXPECT_LT(words.size(), wordPagesOf(planned.book, plan_, records_).size());
}

TEST_F(ABook, IsGivenUpBetweenItsPages) {
  add(3);
  const PlannedBook planned = planPages(plan_, records_);
  const std::string words = wordPagesOf(planned.book, plan_, records_);
  int asked = 0;
  GrowingFile file(temp_.path() / "book.pdf");
  ASSERT_TRUE(writeBook(planned.book, records_, words, kAbout, store_, file, [&] { return ++asked < 0; }));
  const int drawings = 6;  // of three mazes and their answers
  EXPECT_EQ(asked, static_cast<int>(planned.book.pages.size()) + drawings);
}

TEST_F(ABook, OfAPartCarriesItsList) {
  add(2);
  const std::string part = asPart().string();
  EXPECT_EQ(outputOf("qpdf --show-attachment=list.json '" + part + "'"), "the list");
  EXPECT_NE(outputOf("pdfinfo '" + part + "'").find("Pages:           4"), std::string::npos);
}

}  // namespace
}  // namespace gridwright::test
