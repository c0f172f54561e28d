// A maze of a book is the one that a script of the twin makes, to the last pixel.
#include "platform/book/make_maze.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <memory>
#include <sstream>
#include <string>

#include "drawings/drawing_record.h"
#include "platform/headless/headless_desktop.h"
#include "platform/shared/image_files.h"
#include "session/main_loop.h"
#include "support/pictures.h"
#include "support/work_folders.h"

namespace gridwright::test {
namespace {

using namespace gridwright::book;
namespace fs = std::filesystem;

/// Two rooms, the larger one below, and a border that bulges into it.
const Text kRooms = {"................",  //
                     "................",  //
                     "################",  //
                     "................",  //
                     ".....,,,,.......",  //
                     ".....,,,,...##..",  //
                     "............##..",  //
                     "................",  //
                     "................"};

SourcePicture bitmap(const Text& cells = kRooms, int wall = 10) {
  SourcePicture picture;
  picture.name = "rooms";
  picture.picture = PackedPicture(drawing(cells, wall));
  return picture;
}

Outcome<MadeMaze> made(const SourcePicture& picture, const MazeWish& wish, std::uint32_t seed,
                       const std::string& set = {}) {
  RegionStarts starts;
  const std::atomic<bool> stop = false;
  return makeMaze({7, seed, wish, picture, set}, starts, stop);
}

/// What a script leaves in its folder.
struct Twin {
  /// The script goes on from the picture on the Canvas to the two snapshots.
  void run(const SourcePicture& picture, std::uint32_t seed, const std::string& choices) {
    ASSERT_TRUE(writeBitmapFile(picture.picture.unpacked(), temp.path() / "picture.bmp"));
    if (picture.isDrawing()) temp.put("picture.maze", picture.drawing);
    const std::string bring = picture.isDrawing()
                                  ? "menu ldrawing\ntype Text4 \"picture\"\nenter Text4\n"
                                  : "menu importdrawing\ntype Text8 \"picture\"\nenter Text8\n";
    const std::string script =
        "seed " + std::to_string(seed) + "\nclick Command2\n" + bring + choices +
        "settle\nsnapshot made.bmp\nmenu solvemaze\nuntil phase 4\nsettle\nsnapshot answer.bmp\n";
    play(script, picture.canvas());
  }
  void play(const std::string& script, Size size) const {
    HeadlessOptions options;
    options.size = size;
    HeadlessDesktop desktop("script", script, options);
    const auto program = std::make_unique<Program>(desktop, temp.path());
    try {
      runProgram(*program);
    } catch (const ProgramEnd&) {
    } catch (const ScriptStop& stop) {
      FAIL() << stop.message;
    }
  }
  [[nodiscard]] Bitmap picture(const std::string& name) const {
    return readBitmapFile(temp.path() / name).value();
  }
  TempFolder temp;
};

void expectSame(const Outcome<MadeMaze>& maze, const Twin& twin) {
  ASSERT_TRUE(maze) << maze.fault().words;
  EXPECT_TRUE(maze.value().maze == twin.picture("made.bmp")) << "the maze";
  EXPECT_TRUE(maze.value().answer == twin.picture("answer.bmp")) << "its answer";
  EXPECT_FALSE(maze.value().answer == maze.value().maze) << "the trail is seen";
}

TEST(AMazeOfABook, IsTheOneThatAScriptMakes) {
  const SourcePicture picture = bitmap();
  Twin twin;
  twin.run(picture, 4000000001U,
           "menu cgenerate\nstartat 10 40\nmenu largestsolution\nmenu createreg\nuntil finishFound 1\n");
  expectSame(made(picture, {}, 4000000001U), twin);
}

TEST(AMazeOfABook, TakesTheSettingsOfAllMenus) {
  const SourcePicture picture = bitmap();
  MazeWish wish;
  wish.kind = MazeKind::threeD;
  wish.wall = 7;
  wish.difficulty = 6;
  wish.largePaths = true;
  wish.patterns = PatternWish{PatternWish::Kind::random, 9, {}};
  wish.ends = Ends::mostUnderpasses;
  wish.mazeColours = {{1, 13}, {2, 15}};
  Twin twin;
  twin.run(picture, 5,
           "menu create3d\nmenu changewallsize\ntype Text2 \"7\"\nenter Text2\nmenu choosew\nclick Check33\n"
           "rightclick Check2\nclick Check48\nrightclick Check3\nclick Check50\nclick Command1\nmenu "
           "crnd1\nmenu maxrnd\n"
           "menu srndpatterns\ntype Text7 \"9\"\nenter Text7\nmenu mode6\nmenu plarge\nmenu cgenerate\n"
           "menu mostunderpasses\nstartat 14 42\nmenu create3d\nuntil finishFound 1\n");
  const auto maze = made(picture, wish, 5);
  expectSame(maze, twin);
  const MazeSettings& settings = maze.value().record.settings;
  EXPECT_EQ(settings.kind, MazeKind::threeD);
  EXPECT_EQ(settings.wall, 7);
  EXPECT_EQ(settings.difficulty, 6);
  EXPECT_TRUE(settings.largePaths);
  EXPECT_EQ(settings.patterns, "random:9");
  EXPECT_EQ(settings.ends, Ends::mostUnderpasses);
}

TEST(AMazeOfABook, TakesALengthOfUnderpassesAndASetOfPatterns) {
  const SourcePicture picture = bitmap(kRooms, 16);
  const std::string set = "1\n3\n9999,88\n2\n4\n9999,88\n3\n9999,88\n4\n9999,88\n";
  MazeWish wish;
  wish.kind = MazeKind::pipe;
  wish.wall = 8;
  wish.shortUnderpasses = false;
  wish.patterns = PatternWish{PatternWish::Kind::set, 5, "stairs"};
  wish.ends = Ends::farthestUnderpasses;
  Twin twin;
  twin.temp.put("set.3d-pipe-pat", set);
  twin.run(
      picture, 77,
      "menu create3dpipe\nmenu changewallsize\ntype Text2 \"8\"\nenter Text2\nmenu usepattern\nmenu "
      "loadpatterns\n"
      "type Text6 \"set\"\nenter Text6\nmenu pthin\nmenu cgenerate\nmenu includeunderpasses\nstartat 24 72\n"
      "menu create3dpipe\nuntil finishFound 1\n");
  const auto maze = made(picture, wish, 77, set);
  expectSame(maze, twin);
  EXPECT_FALSE(maze.value().record.settings.shortUnderpasses);
  EXPECT_EQ(maze.value().record.settings.patterns, "stairs");
}

/// The lines of a document that stand as a script does.
std::string scriptIn(const std::string& document) {
  std::istringstream lines(document);
  std::string script;
  for (std::string line; std::getline(lines, line);) {
    if (line.starts_with("    seed ") || (!script.empty() && line.starts_with("    ")))
      script += line.substr(4) + "\n";
    else if (!script.empty())
      break;
  }
  return script;
}

TEST(TheScriptInTheDocument, MakesTheMazeOfTheBook) {
  SourcePicture picture;
  picture.picture = PackedPicture(readBitmapFile(fs::path(GRIDWRIGHT_EXAMPLES) / "cat.bmp").value());
  std::ifstream in(GRIDWRIGHT_BOOKS_DOCUMENT);
  const std::string script = scriptIn({std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()});
  ASSERT_TRUE(script.starts_with("seed 11\n")) << script;
  Twin twin;
  ASSERT_TRUE(writeBitmapFile(picture.picture.unpacked(), twin.temp.path() / "cat.bmp"));
  twin.play(script, picture.canvas());
  const auto maze = made(picture, {}, 11);
  ASSERT_TRUE(maze) << maze.fault().words;
  EXPECT_TRUE(maze.value().maze == twin.picture("maze.bmp"));
  EXPECT_TRUE(maze.value().answer == twin.picture("answer.bmp"));
}

/// A drawing of the rooms as a person saved it.
SourcePicture savedDrawing(const std::string& choices) {
  SourcePicture picture = bitmap();
  TempFolder temp;
  EXPECT_TRUE(writeBitmapFile(picture.picture.unpacked(), temp.path() / "picture.bmp"));
  HeadlessOptions options;
  options.size = picture.canvas();
  HeadlessDesktop desktop("script",
                          "click Command2\nmenu importdrawing\ntype Text8 \"picture\"\nenter Text8\n" +
                              choices + "menu sdrawing\ntype text1 \"mine\"\nenter text1\n",
                          options);
  const auto program = std::make_unique<Program>(desktop, temp.path());
  try {
    runProgram(*program);
  } catch (const ProgramEnd&) {
  } catch (const ScriptStop& stop) {
    ADD_FAILURE() << stop.message;
  }
  picture.drawing = temp.get("mine.maze");
  EXPECT_FALSE(picture.drawing.empty());
  return picture;
}

TEST(ADrawing, KeepsTheSettingsAndTheEndsThatItBrings) {
  // A person has made a maze in the smaller room, and gone back to the drawing with its ends.
  const SourcePicture picture = savedDrawing(
      "menu changewallsize\ntype Text2 \"8\"\nenter Text2\nmenu cgenerate\nstartat 8 8\nmenu "
      "largestsolution\n"
      "menu newmaze\nuntil finishFound 1\nmenu userplace\nmenu backtodrawing\n");
  const auto maze = made(picture, {}, 3);
  Twin twin;
  twin.run(picture, 3, "menu newmaze\nuntil phase 2\n");
  expectSame(maze, twin);
  EXPECT_TRUE(maze.value().record.settings.ownEnds);
  EXPECT_EQ(maze.value().record.settings.wall, 8);

  MazeWish finer;
  finer.wall = 6;
  Twin anew;
  anew.run(picture, 3,
           "menu changewallsize\ntype Text2 \"6\"\nenter Text2\nmenu largestsolution\nstartat 12 42\nmenu "
           "newmaze\n"
           "until finishFound 1\n");
  const auto others = made(picture, finer, 3);
  expectSame(others, anew);
  EXPECT_FALSE(others.value().record.settings.ownEnds) << "its ends go with its grid";
}

/// A drawing with both ends in the upper room.
SourcePicture withEndsAbove() {
  return savedDrawing(
      "menu cgenerate\nstartat 10 10\nmenu largestsolution\nmenu newmaze\nuntil finishFound 1\nmenu "
      "userplace\nmenu backtodrawing\n");
}

TEST(ADrawing, LosesItsEndsToThoseThatAreAskedFor) {
  const SourcePicture picture = withEndsAbove();
  MazeWish wish;
  wish.ends = Ends::farthest;
  const auto maze = made(picture, wish, 3);
  ASSERT_TRUE(maze) << maze.fault().words;
  EXPECT_FALSE(maze.value().record.settings.ownEnds);
  EXPECT_GT(maze.value().record.cells, 100);
  wish.ends = Ends::set;
  const auto own = made(picture, wish, 3);
  ASSERT_TRUE(own) << own.fault().words;
  EXPECT_TRUE(own.value().record.settings.ownEnds);
}

TEST(ADrawing, LosesEndsThatItsPictureHasNoRoomForAnyMore) {
  // Somebody has painted over one of them since.
  SourcePicture picture = withEndsAbove();
  const auto ends = parseDrawing(picture.drawing).value();
  const auto cellOf = [&](std::size_t end) {
    return Corner{ends.values.at(end) - 1, ends.values.at(end + 1) - 1};
  };
  for (const Corner& cell : {cellOf(record::start), cellOf(record::finish)}) {
    Bitmap changed = drawing(kRooms);
    ASSERT_LT(cell.y, 30) << "the smaller room";
    for (int y = cell.y; y < cell.y + 10; ++y) {
      for (int x = cell.x; x < cell.x + 10; ++x) pixelAt(changed, x, y) = changed.at(15, 35);
    }
    picture.picture = PackedPicture(changed);
    const auto maze = made(picture, {}, 3);
    ASSERT_TRUE(maze) << maze.fault().words;
    EXPECT_FALSE(maze.value().record.settings.ownEnds);
    EXPECT_EQ(maze.value().record.settings.ends, Ends::farthest);
    EXPECT_GT(maze.value().record.cells, 40) << "of the larger room";
    Twin twin;
    twin.run(picture, 3, "menu largestsolution\nstartat 10 40\nmenu newmaze\nuntil finishFound 1\n");
    expectSame(maze, twin);
  }
}

TEST(ADrawingWithoutAMaze, TakesAnotherKindAndWallSizeAllTheSame) {
  // A new drawing offers no other kind, and its picture would go with another wall size.
  SourcePicture picture = savedDrawing("menu cgenerate\n");
  auto record = parseDrawing(picture.drawing).value();
  record.values[record::mazeMadeOnce] = 0;
  picture.drawing = formatDrawing(record);
  MazeWish wish;
  wish.kind = MazeKind::pipe;
  wish.wall = 5;
  const auto maze = made(picture, wish, 9);
  ASSERT_TRUE(maze) << maze.fault().words;
  EXPECT_EQ(maze.value().record.settings.kind, MazeKind::pipe);
  EXPECT_EQ(maze.value().record.settings.wall, 5);
}

TEST(ADrawingWithoutAMaze, IsMadeInItsOwnKind) {
  SourcePicture picture = savedDrawing("menu create3dpipe\nmenu cgenerate\n");
  auto record = parseDrawing(picture.drawing).value();
  record.values[record::mazeMadeOnce] = 0;
  picture.drawing = formatDrawing(record);
  picture.kind = MazeKind::pipe;
  const auto maze = made(picture, {}, 9);
  ASSERT_TRUE(maze) << maze.fault().words;
  EXPECT_EQ(maze.value().record.settings.kind, MazeKind::pipe);
  EXPECT_EQ(maze.value().record.settings.wall, 10);
  MazeWish wish;
  wish.kind = MazeKind::regular;
  const auto other = made(picture, wish, 9);
  ASSERT_TRUE(other) << other.fault().words;
  EXPECT_EQ(other.value().record.settings.kind, MazeKind::regular);
}

TEST(EndsInDifferentRegions, AreToldAndNoMaze) {
  SourcePicture picture = savedDrawing("menu cgenerate\n");
  auto record = parseDrawing(picture.drawing).value();
  const auto put = [&](std::size_t at, const Square& q) {
    const std::array<int, 4> sides = {q.left, q.top, q.right, q.bottom};
    for (std::size_t i = 0; i < 4; ++i) record.values.at(at + i) = sides.at(i);
  };
  put(record::start, {11, 11, 18, 18});
  put(record::finish, {11, 51, 18, 58});
  picture.drawing = formatDrawing(record);
  const auto maze = made(picture, {}, 9);
  ASSERT_FALSE(maze);
  EXPECT_EQ(maze.fault().words, "its ends lie in different regions");
}

TEST(APictureWithTooLittleGround, IsToldAndNoMaze) {
  const auto two = made(bitmap({"##########", "##..######", "##########"}), {}, 1);
  ASSERT_FALSE(two);
  EXPECT_EQ(two.fault().words, "fewer than three free cells");
  const auto none = made(bitmap({"##########", "##########"}), {}, 1);
  ASSERT_FALSE(none);
  EXPECT_EQ(none.fault().words, "fewer than three free cells");
  const auto apart = made(bitmap({"#.#.#.#.##", "##########"}), {}, 1);
  ASSERT_FALSE(apart);
  EXPECT_EQ(apart.fault().words, "no two free cells hang together");
}

TEST(APictureThatCannotBeTried, SaysWhy) {
  SourcePicture picture = bitmap();
  picture.whyNot = "there is nothing to paint";
  const auto maze = made(picture, {}, 1);
  ASSERT_FALSE(maze);
  EXPECT_EQ(maze.fault().words, picture.whyNot);
}

TEST(AMazeOfABook, TouchesNoFile) {
  const SourcePicture plain = bitmap();
  const SourcePicture saved = savedDrawing("menu cgenerate\n");
  const TempFolder folder;
  const fs::path before = fs::current_path();
  fs::current_path(folder.path());
  MazeWish wish;
  wish.kind = MazeKind::pipe;
  wish.patterns = PatternWish{PatternWish::Kind::random, 6, {}};
  for (const SourcePicture* picture : {&plain, &saved}) EXPECT_TRUE(made(*picture, wish, 1));
  fs::current_path(before);
  EXPECT_TRUE(fs::is_empty(folder.path()));
}

TEST(AMazeThatIsStopped, IsNoneAndHasNoReason) {
  const SourcePicture picture = bitmap();
  RegionStarts starts;
  const std::atomic<bool> stop = true;
  const auto maze = makeMaze({1, 1, {}, picture, {}}, starts, stop);
  ASSERT_FALSE(maze);
  EXPECT_EQ(maze.fault().words, "");
}

TEST(TheCanvasOfAPicture, IsAsLargeAsItBetween50And1000) {
  SourcePicture picture;
  picture.picture = PackedPicture(plainBitmap(20, 700, 0));
  EXPECT_EQ(picture.canvas(), (Size{50, 700}));
  picture.picture = PackedPicture(plainBitmap(1000, 50, 0));
  EXPECT_EQ(picture.canvas(), (Size{1000, 50}));
}

TEST(APackedPicture, HasEveryPixelAgain) {
  Bitmap picture = drawing(kRooms, 9);
  for (int i = 0; i < picture.height; ++i)
    pixelAt(picture, (i * 37) % picture.width, i) = i * 70001 & kColourBits;
  const PackedPicture packed(picture);
  EXPECT_EQ(packed.size(), (Size{picture.width, picture.height}));
  EXPECT_TRUE(packed.unpacked() == picture);
}

TEST(ListsOfSettings, AreTakenInTurnEachByItsOwnLength) {
  WishedSettings wished;
  wished.walls = {14, 10, 8};
  wished.kinds = {MazeKind::regular, MazeKind::pipe};
  EXPECT_EQ(wishOf(wished, 4).wall, 10);
  EXPECT_EQ(wishOf(wished, 4).kind, MazeKind::regular);
  EXPECT_EQ(wishOf(wished, 5).wall, 8);
  EXPECT_EQ(wishOf(wished, 5).kind, MazeKind::pipe);
  EXPECT_FALSE(wishOf(wished, 5).difficulty);
}

}  // namespace
}  // namespace gridwright::test
