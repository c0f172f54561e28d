// Whole runs of gridwright-book, from the command line to the exit status and the files that are left.
#include "platform/book/run_book.h"

#include <gtest/gtest.h>

#include <QFont>
#include <QGuiApplication>
#include <algorithm>
#include <clocale>
#include <csignal>
#include <filesystem>
#include <memory>
#include <sstream>
#include <string>
#include <vector>

#include "book/shop.h"
#include "platform/book/progress_bar.h"
#include "platform/headless/headless_desktop.h"
#include "platform/shared/image_files.h"
#include "session/main_loop.h"
#include "support/child_program.h"
#include "support/pictures.h"
#include "support/turkish.h"

namespace gridwright::test {
namespace {

using namespace book;
namespace fs = std::filesystem;

const Words kPictures = {"closet.bmp", "hall.bmp", "room.bmp"};

TEST_F(AShop, MakesABookAndSaysSo) {
  const Ended ended =
      run({"room.bmp", "hall.bmp", "-n", "2", "--seed", "4294967295", "--list", "l.json", "-o", "b.pdf"});
  EXPECT_EQ(ended.status, 0);
  EXPECT_EQ(ended.err, "");
  EXPECT_EQ(ended.out, in("b.pdf") + ": 4 mazes, seed 4294967295\n");
  EXPECT_TRUE(folder.get("b.pdf").starts_with("%PDF"));
  const BookList made = list();
  ASSERT_EQ(made.mazes.size(), 4U);
  Words pictures;
  for (std::size_t i = 0; i < 4; ++i) {
    const MazeRecord& maze = made.mazes[i];
    EXPECT_EQ(maze.number, static_cast<int>(i) + 1);
    EXPECT_EQ(maze.seed, 4294967295U + static_cast<std::uint32_t>(i)) << "modulo 2 to the 32nd";
    EXPECT_EQ(maze.page, static_cast<int>(i) + 1);
    EXPECT_EQ(maze.answerPage, 5);
    pictures.push_back(maze.picture);
  }
  EXPECT_EQ(pictures, (Words{"room", "room", "hall", "hall"}));
  EXPECT_EQ(made.mazesAsked, 4);
}

TEST_F(AShop, GoesRoundThePicturesUntilThereAreEnough) {
  EXPECT_EQ(
      run({"room.bmp", "hall.bmp", "--total", "3", "--seed", "1", "--list", "l.json", "-o", "b.pdf"}).status,
      0);
  const BookList made = list();
  ASSERT_EQ(made.mazes.size(), 3U);
  EXPECT_EQ(made.mazes[0].picture, "room");
  EXPECT_EQ(made.mazes[1].picture, "hall");
  EXPECT_EQ(made.mazes[2].picture, "room");
}

TEST_F(AShop, MakesTheSameBookWhoeverMakesIt) {
  folder.put("names.txt", "Mia\r\n\r\n  Zoë \n");
  const Words options = {"room.bmp", "hall.bmp",   "--words",   "names.txt",       "--total", "9",
                         "--seed",   "7",          "--kind",    "regular,3d,pipe", "--wall",  "10,8",
                         "--sort",   "difficulty", "--answers", "key.pdf"};
  const auto with = [&](Words more) {
    Words all = options;
    all.insert(all.end(), more.begin(), more.end());
    return run(all);
  };
  EXPECT_EQ(with({"--jobs", "1", "-o", "b.pdf", "--list", "l.json"}).status, 0);
  const std::string book = folder.get("b.pdf"), answers = folder.get("key.pdf"), words = folder.get("l.json");
  const auto expectSame = [&](const std::string& who, const Ended& ended) {
    EXPECT_EQ(ended.status, 0) << who << ended.err;
    EXPECT_TRUE(folder.get("b.pdf") == book) << who;
    EXPECT_TRUE(folder.get("key.pdf") == answers) << who;
    EXPECT_EQ(folder.get("l.json"), words) << who;
  };
  for (const char* jobs : {"2", "8"})
    expectSame(std::string(jobs) + " jobs",
               with({"--jobs", jobs, "-o", "b.pdf", "--list", "l.json", "--force"}));
  folder.put("kept.json", words);
  expectSame("its list", run({"--from", "kept.json", "-o", "b.pdf", "--list", "l.json", "--answers",
                              "key.pdf", "--force"}));
  for (const char* part : {"1/3", "2/3", "3/3"}) {
    const std::string file = std::string("p") + part[0] + ".pdf";
    EXPECT_EQ(with({"--part", part, "-o", file}).status, 0) << part;
  }
  expectSame("three parts", run({"--join", "p3.pdf", "p1.pdf", "p2.pdf", "-o", "b.pdf", "--list", "l.json",
                                 "--answers", "key.pdf", "--force"}));
  const BookList made = list();
  EXPECT_TRUE(
      std::is_sorted(made.mazes.begin(), made.mazes.end(),
                     [](const MazeRecord& a, const MazeRecord& b) { return a.difficulty < b.difficulty; }));
  EXPECT_EQ(std::count_if(made.mazes.begin(), made.mazes.end(),
                          [](const MazeRecord& maze) { return maze.picture == "Zoë"; }),
            2);
}

TEST_F(AShop, MakesABookOfAllExamplesTheSameWithAnyNumberOfJobs) {
  folder.put("names.txt", "Mia\nAnna\n");
  Words pictures;
  for (const char* name : {"balloon", "butterfly", "cat", "name", "octopus", "snail", "window"})
    pictures.push_back((fs::path(GRIDWRIGHT_EXAMPLES) / name).string() + ".bmp");
  std::string book;
  for (const char* jobs : {"1", "2", "8"}) {
    Words words = pictures;
    for (const std::string& word :
         {std::string("--words"), in("names.txt"), std::string("--total"), std::string("24"),
          std::string("--seed"), std::string("3"), std::string("--jobs"), std::string(jobs),
          std::string("-o"), in("b.pdf"), std::string("--force")})
      words.push_back(word);
    std::ostringstream out, err;
    ASSERT_EQ(runBook(words, {out, err, false}), 0) << err.str();
    if (book.empty()) book = folder.get("b.pdf");
    EXPECT_TRUE(folder.get("b.pdf") == book) << jobs << " jobs";
  }
}

TEST_F(AShop, MakesTheSameBookWhateverFontsAndLanguageADesktopHas) {
  folder.put("words.svg",
             R"(<svg xmlns="http://www.w3.org/2000/svg" width="400" height="200"><text x="20" y="120")"
             R"( font-size="80">Abc gf</text></svg>)");
  folder.put("names.txt", "Zoë\n");
  const Words words = {"words.svg",
                       "hall.bmp",
                       "--words",
                       "names.txt",
                       "--seed",
                       "7",
                       "--title",
                       "Grüße",
                       "--name-line",
                       "--caption",
                       "{n}: {picture}, {difficulty}",
                       "--page-numbers",
                       "--force",
                       "-o",
                       "b.pdf"};
  EXPECT_EQ(run(words).status, 0);
  const std::string book = folder.get("b.pdf");
  ASSERT_FALSE(book.empty());
  const QFont font = QGuiApplication::font();
  QGuiApplication::setFont(QFont("DejaVu Serif", 17, QFont::Bold, true));
  QGuiApplication::setLayoutDirection(Qt::RightToLeft);
  {
    const Turkish turkish;
    EXPECT_STREQ(std::localeconv()->decimal_point, ",");
    const Ended ended = run(words);
    EXPECT_EQ(ended.status, 0) << ended.err;
  }
  QGuiApplication::setLayoutDirection(Qt::LayoutDirectionAuto);
  QGuiApplication::setFont(font);
  EXPECT_TRUE(folder.get("b.pdf") == book);
}

TEST_F(AShop, GrowsHarderWithSmallerWalls) {
  EXPECT_EQ(run({"room.bmp", "hall.bmp", "--total", "8", "--wall", "20,10,6,5", "--seed", "1", "-o", "b.pdf",
                 "--list", "l.json"})
                .status,
            0);
  const BookList made = list();
  for (std::size_t i = 1; i < made.mazes.size(); ++i) {
    if (made.mazes[i].settings.wall > made.mazes[i - 1].settings.wall) continue;  // the list begins anew
    EXPECT_GT(made.mazes[i].difficulty, made.mazes[i - 1].difficulty) << made.mazes[i].number;
  }
}

TEST_F(AShop, TellsASeedThatComesFromTheClock) {
  const Ended ended = run({"room.bmp", "-o", "b.pdf", "--list", "l.json", "--quiet"});
  EXPECT_EQ(ended.status, 0);
  EXPECT_EQ(ended.out, "seed " + std::to_string(list().plan.seed) + "\n");
}

TEST_F(AShop, IsQuietWhenAskedTo) {
  const Ended ended = run({"room.bmp", "-o", "b.pdf", "--seed", "1", "--quiet"});
  EXPECT_EQ(ended.status, 0);
  EXPECT_EQ(ended.out + ended.err, "");
}

TEST_F(AShop, GoesOnWithoutAMazeThatCannotBeMade) {
  folder.put("names.txt", "\xE2\x80\x8B\n");
  const Ended ended = run(
      {"closet.bmp", "hall.bmp", "--words", "names.txt", "--seed", "20", "-o", "b.pdf", "--list", "l.json"});
  EXPECT_EQ(ended.status, 1);
  EXPECT_EQ(ended.err,
            "gridwright-book: closet: maze 1 can't be made: fewer than three free cells\n"
            "gridwright-book: \xE2\x80\x8B: maze 3 can't be made: there is nothing to paint\n");
  const BookList made = list();
  ASSERT_EQ(made.mazes.size(), 1U);
  EXPECT_EQ(made.mazes[0].number, 2);
  EXPECT_EQ(made.mazes[0].seed, 21U);
  EXPECT_EQ(made.notMade, (std::vector{1, 3}));
}

TEST_F(AShop, StopsAtTheFirstSuchMazeWhenItIsStrict) {
  const Words before = files();
  const Ended ended = run(
      {"hall.bmp", "closet.bmp", "--total", "9", "--seed", "1", "--strict", "-o", "b.pdf", "--jobs", "4"});
  EXPECT_EQ(ended.status, 1);
  EXPECT_EQ(ended.err, "gridwright-book: closet: maze 2 can't be made: fewer than three free cells\n");
  EXPECT_EQ(files(), before);
}

TEST_F(AShop, WritesNothingWhereNoMazeAtAllCanBeMade) {
  const Words before = files();
  EXPECT_EQ(run({"closet.bmp", "--seed", "1", "-o", "b.pdf"}).status, 1);
  EXPECT_EQ(files(), before);
}

TEST_F(AShop, NamesAFileThatItCannotTake) {
  folder.put("no.png", "not a picture");
  folder.put("cut.bmp", folder.get("room.bmp").substr(0, 500));
  folder.put("no.maze", "1,2,3");
  folder.put("empty.txt", " \n\n");
  folder.put("set.pat", "1\n");
  const Words before = files();
  struct Case {
    Words words;
    std::string line;
  };
  for (const Case& c :
       {Case{{"room.bmp", "gone.bmp"}, in("gone.bmp") + ": there is no such file"},
        Case{{"no.png"}, "no.png is no picture"}, Case{{"cut.bmp"}, in("cut.bmp") + ": it cannot be read"},
        Case{{"no.maze"}, in("no.maze") + ": it is no Gridwright drawing"},
        Case{{"--words", "empty.txt"}, in("empty.txt") + ": there is no name in it"},
        Case{{"room.bmp", "--patterns", "gone.pat"}, in("gone.pat") + ": there is no such file"},
        Case{{"room.bmp", "--patterns", "set.pat"}, in("set.pat") + ": it is no set of patterns"},
        Case{{"room.bmp", "--patterns", "set.pat", "--kind", "pipe"},
             in("set.3d-pipe-pat") + ": there is no such file"},
        Case{{"--from", "gone.json"}, in("gone.json") + ": it cannot be read"},
        Case{{"--from", "no.maze"}, in("no.maze") + ": it is no list of a book"}}) {
    Words words = c.words;
    words.insert(words.end(), {"-o", "b.pdf"});
    const Ended ended = run(words);
    EXPECT_EQ(ended.status, 1) << c.line;
    EXPECT_EQ(ended.err.substr(0, 17 + c.line.size()), "gridwright-book: " + c.line);
    EXPECT_EQ(std::count(ended.err.begin(), ended.err.end(), '\n'), 1) << ended.err;
    EXPECT_EQ(ended.out, "");
    EXPECT_EQ(files(), before);
  }
}

TEST_F(AShop, MakesNoBookAgainOfAPictureThatHasChanged) {
  EXPECT_EQ(run({"room.bmp", "hall.bmp", "--seed", "1", "-o", "b.pdf", "--list", "l.json"}).status, 0);
  paint("hall", {"........", "........"});
  const Words before = files();
  const Ended changed = run({"--from", "l.json", "-o", "again.pdf"});
  EXPECT_EQ(changed.status, 1);
  EXPECT_EQ(changed.err, "gridwright-book: " + in("hall.bmp") + " has changed since the list was written\n");
  EXPECT_EQ(files(), before);
  fs::remove(folder.path() / "hall.bmp");
  const Ended gone = run({"--from", "l.json", "-o", "again.pdf"});
  EXPECT_EQ(gone.status, 1);
  EXPECT_EQ(gone.err, "gridwright-book: " + in("hall.bmp") + ": there is no such file\n");
}

TEST_F(AShop, MakesABookOfADrawingAgainOnlyWithBothItsFiles) {
  HeadlessOptions options;
  options.size = {100, 60};
  HeadlessDesktop desktop(
      "script",
      "click Command2\nmenu importdrawing\ntype Text8 \"room\"\nenter Text8\nmenu sdrawing\n"
      "type text1 \"mine\"\nenter text1\n",
      options);
  const auto program = std::make_unique<Program>(desktop, folder.path());
  EXPECT_THROW(runProgram(*program), ProgramEnd);
  ASSERT_EQ(run({"mine.maze", "--seed", "1", "-o", "b.pdf", "--list", "l.json"}).status, 0);
  const std::string book = folder.get("b.pdf");
  const BookList made = list();
  ASSERT_EQ(made.sums.size(), 2U);
  EXPECT_EQ(made.sums[0].name, in("mine.maze"));
  EXPECT_EQ(made.sums[1].name, in("mine.bmp"));
  EXPECT_EQ(made.mazes.at(0).picture, "mine");
  EXPECT_EQ(run({"--from", "l.json", "-o", "b.pdf", "--force"}).status, 0);
  EXPECT_TRUE(folder.get("b.pdf") == book);
  for (const char* file : {"mine.maze", "mine.bmp"}) {
    const std::string whole = folder.get(file);
    folder.put(file, whole + "\n");  // it makes the same maze still, but nobody knows that beforehand
    const Ended changed = run({"--from", "l.json", "-o", "again.pdf"});
    EXPECT_EQ(changed.status, 1);
    EXPECT_EQ(changed.err, "gridwright-book: " + in(file) + " has changed since the list was written\n");
    fs::remove(folder.path() / file);
    const Ended gone = run({"--from", "l.json", "-o", "again.pdf"});
    EXPECT_EQ(gone.status, 1);
    EXPECT_EQ(gone.err, "gridwright-book: " + in(file) + ": there is no such file\n");
    folder.put(file, whole);
  }
}

TEST_F(AShop, AsksForTheNameOfAnswersThatAListKeepsApart) {
  EXPECT_EQ(
      run({"room.bmp", "--seed", "1", "-o", "b.pdf", "--list", "l.json", "--answers", "key.pdf"}).status, 0);
  EXPECT_EQ(run({"--from", "l.json", "-o", "c.pdf"}).status, 1);
  EXPECT_EQ(run({"--from", "l.json", "-o", "c.pdf", "--answers", "key2.pdf"}).status, 0);
  EXPECT_TRUE(folder.get("key.pdf") == folder.get("key2.pdf"));
  EXPECT_EQ(run({"room.bmp", "--seed", "1", "-o", "d.pdf", "--list", "m.json"}).status, 0);
  EXPECT_EQ(run({"--from", "m.json", "-o", "e.pdf", "--answers", "key3.pdf"}).status, 1);
  EXPECT_EQ(run({"--from", "m.json", "-o", "p.pdf", "--part", "1/1"}).status, 0);
  const Ended joined = run({"--join", "p.pdf", "-o", "e.pdf", "--answers", "key3.pdf"});
  EXPECT_EQ(joined.status, 1);
  EXPECT_EQ(joined.err,
            "gridwright-book: the book has no answers in a file of their own; leave --answers out\n");
}

TEST_F(AShop, ReplacesNothingUnlessForced) {
  for (const char* name : {"b.pdf", "l.json", "key.pdf", "p.pdf"}) folder.put(name, "mine");
  const auto attempt = [&](const Words& words) {
    const Ended ended = run(words);
    EXPECT_EQ(ended.status, 1);
    EXPECT_NE(ended.err.find("--force writes over it"), std::string::npos) << ended.err;
    for (const char* name : {"b.pdf", "l.json", "key.pdf", "p.pdf"}) EXPECT_EQ(folder.get(name), "mine");
  };
  attempt({"room.bmp", "--seed", "1", "-o", "b.pdf"});
  attempt({"room.bmp", "--seed", "1", "-o", "c.pdf", "--list", "l.json"});
  attempt({"room.bmp", "--seed", "1", "-o", "c.pdf", "--answers", "key.pdf"});
  attempt({"room.bmp", "--seed", "1", "-o", "p.pdf", "--part", "1/1"});
  EXPECT_EQ(
      run({"room.bmp", "--seed", "1", "-o", "b.pdf", "--list", "l.json", "--answers", "key.pdf", "--force"})
          .status,
      0);
  for (const char* name : {"b.pdf", "l.json", "key.pdf"}) EXPECT_NE(folder.get(name), "mine") << name;
}

TEST_F(AShop, NamesABitmapThatOpensIntoItsGround) {
  Bitmap paper = plainBitmap(200, 150, kWhite);
  for (int y = 40; y < 100; ++y) {
    for (int x = 40; x < 140; ++x) pixelAt(paper, x, y) = kNavy;
  }
  ASSERT_TRUE(writeBitmapFile(paper, folder.path() / "paper.bmp"));
  const Ended ended = run({"paper.bmp", "room.bmp", "--seed", "1", "-o", "b.pdf"});
  EXPECT_EQ(ended.status, 0);
  EXPECT_EQ(ended.err, "gridwright-book: " + in("paper.bmp") +
                           ": its ground has the colour of corridors; gridwright-prepare makes it ready\n");
}

TEST_F(AShop, UnderstandsNoOtherCommandLine) {
  const Words before = files();
  const Ended ended = run({"room.bmp", "--wall", "3", "-o", "b.pdf"});
  EXPECT_EQ(ended.status, 2);
  EXPECT_EQ(ended.err, "gridwright-book: --wall 3: a wall is 5 to 50 pixels\n");
  EXPECT_EQ(files(), before);
}

TEST_F(AShop, LeavesNoFileWhenItIsInterrupted) {
  const Words before = files();
  for (const int signal : {SIGINT, SIGTERM}) {
    ChildProgram program(
        {GRIDWRIGHT_BOOK,
         {"room.bmp", "--total", "1000000", "--seed", "1", "-o", "b.pdf", "--list", "l.json", "--jobs", "3"},
         folder.path(),
         {},
         {}});
    ASSERT_TRUE(program.hasThreads(4)) << "its own, and one for each job";
    program.interrupt(signal);
    EXPECT_EQ(program.wait(), 128 + signal);
    EXPECT_EQ(files(), before);
    EXPECT_EQ(program.said(), "");
  }
}

TEST_F(AShop, SaysHowItIsUsedAndWhichVersionItIs) {
  const auto statusOf = [](const Words& words) {
    return ChildProgram({GRIDWRIGHT_BOOK, words, {}, {}, {}}).wait();
  };
  for (const char* asked : {"--help", "--version"}) {
    EXPECT_EQ(statusOf({asked}), 0);
    EXPECT_EQ(statusOf({"--quiet", asked}), 0);
    EXPECT_EQ(statusOf({"a.bmp", "--wall", "3", asked, "--colour"}), 0) << "whatever else is wrong";
    EXPECT_EQ(statusOf({"--part", asked}), 2) << "the value of an option";
    EXPECT_EQ(statusOf({"--", asked}), 1) << "a picture that is not there";
  }
  EXPECT_EQ(statusOf({}), 2);
}

TEST(TheProgress, IsABarWithTheRateAndTheTimeLeft) {
  EXPECT_EQ(progressLine(0, 24, 0.2), "[" + std::string(30, '.') + "] 0 of 24 mazes");
  EXPECT_EQ(progressLine(12, 24, 2),
            "[" + std::string(15, '#') + std::string(15, '.') + "] 12 of 24 mazes, 6.0 a second, 2 s left");
  EXPECT_NE(progressLine(10, 1000, 1).find("10.0 a second, 1:39 min left"), std::string::npos);
  EXPECT_NE(progressLine(1, 10001, 1).find(", 2:46 h left"), std::string::npos);
}

TEST(TheProgress, FitsIntoALineOfATerminal) {
  for (const std::size_t all : {24U, 10'000U, 1'000'000U}) {
    for (const double rate : {0.01, 8.3, 150.0, 12345.6}) {
      for (const std::size_t done : {std::size_t{0}, std::size_t{1}, all / 2, all - 1, all}) {
        const std::string line = progressLine(done, all, static_cast<double>(done) / rate);
        EXPECT_LE(line.size(), 79U) << line;
        EXPECT_GE(line.find(']'), 11U) << line;
      }
    }
  }
}

TEST(TheProgress, IsTakenAwayAndNeverShownWithoutATerminal) {
  std::ostringstream terminal, file;
  {
    ProgressBar shown(terminal, true), hidden(file, false);
    for (ProgressBar* bar : {&shown, &hidden}) bar->show(1, 2);
  }
  EXPECT_NE(terminal.str().find("1 of 2 mazes"), std::string::npos);
  EXPECT_TRUE(terminal.str().ends_with("\r\x1b[K"));
  EXPECT_EQ(file.str(), "");
}

}  // namespace
}  // namespace gridwright::test
