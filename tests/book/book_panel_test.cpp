// The panel that makes a book: what it hands on, what it leaves behind, and that its book is the command's.
#include "session/book_panel.h"

#include <gtest/gtest.h>

#include <chrono>
#include <filesystem>
#include <memory>
#include <sstream>
#include <string>
#include <thread>

#include "book/shop.h"
#include "platform/book/book_maker.h"
#include "platform/headless/headless_desktop.h"
#include "session/input.h"
#include "session/main_loop.h"
#include "session/workshop.h"
#include "support/disk_session.h"
#include "support/full_disk.h"

namespace gridwright::test {
namespace {

namespace fs = std::filesystem;

// The panel

const Bitmap kDrawn = drawing({",,,,,,", ",,,,,,", ",,,,,,", ",,,,,,"});

struct Place {
  TempFolder temp;
};

struct Author : Place, DiskSession {
  Author() : DiskSession(temp.path(), kDrawn) {
    draw();
    desktop.seed = 77;
    desktop.menu(Item::makebook);
  }
  void accept(const BookWish& wish = {}) {
    desktop.act([wish](Program& p) {
      BookWish wanted = wish;
      wanted.seed = "7";
      wanted.file = "book-1.pdf";
      input::bookAccepted(p, wanted);
    });
  }
  void news(const BookNews& news) {
    desktop.act([news](Program& p) { bookNews(p, news); });
  }
  static BookNews ended(BookEnd end) { return {3, 3, {}, std::move(end)}; }
  [[nodiscard]] bool has(const std::string& name) const { return fs::exists(program.files->path() / name); }
};

TEST(ThePanelOfABook, OpensWithANewSeedAndAFreeNameAndHoldsTheProgram) {
  Author a;
  a.run();
  EXPECT_TRUE(a.program.book.open && a.program.state.panelOpen);
  EXPECT_EQ(a.program.book.wish.seed, "77");
  EXPECT_EQ(a.program.book.wish.file, "book-1.pdf");
  EXPECT_FALSE(a.program.book.hasSheet);
}

TEST(ThePanelOfABook, PassesOverNamesThatAreTaken) {
  for (const char* name : {"book-1.pdf", "book-1.maze", "book-1.bmp"}) {
    Author a;
    std::ofstream(a.program.files->path() / name) << "x";
    a.run();
    EXPECT_EQ(a.program.book.wish.file, "book-2.pdf") << name;
    EXPECT_EQ(a.program.book.files.drawing, "book-2.maze") << name;
  }
}

TEST(ThePanelOfABook, SavesTheDrawingFirstAndHandsTheWordsOn) {
  Author a;
  a.accept();
  a.run();
  EXPECT_FALSE(a.program.book.open || a.program.state.panelOpen);
  ASSERT_EQ(a.desktop.books.size(), 1U);
  EXPECT_EQ(a.desktop.books[0].words, (Words{"--seed", "7", "-o", "book-1.pdf", "book-1.maze"}));
  EXPECT_EQ(a.desktop.books[0].folder, a.program.files->path());
  const auto saved = readBitmapFile(a.program.files->path() / "book-1.bmp");
  ASSERT_TRUE(saved && a.has("book-1.maze"));
  EXPECT_TRUE(samePicture(saved.value(), kDrawn));
}

TEST(ThePanelOfABook, StaysWithOneLineAndLeavesNothingWhereNoBookCanBegin) {
  Author a;
  a.desktop.bookBegins = Fault{Fault::Kind::malformed, "--wall 3: a wall is 5 to 50 pixels"};
  BookWish wish;
  wish.walls = "3";
  a.accept(wish);
  a.run();
  EXPECT_TRUE(a.program.book.open && a.program.state.panelOpen);
  EXPECT_EQ(a.program.book.line, "--wall 3: a wall is 5 to 50 pixels");
  EXPECT_EQ(a.program.book.wish.walls, "3") << "what was typed stays";
  EXPECT_FALSE(a.has("book-1.maze") || a.has("book-1.bmp"));
  EXPECT_FALSE(a.program.book.making.underWay);
}

TEST(ThePanelOfABook, RefusesWhatNoCommandLineWouldSay) {
  struct Case {
    void (*spoil)(BookWish&);
    const char* line;
  };
  for (const Case& c :
       {Case{[](BookWish& w) { w.drawing = false; }, "a book needs a picture or a list of names"},
        Case{[](BookWish& w) { w.sheet = true; }, "there is no sheet yet; the workshop has it"},
        Case{[](BookWish& w) { w.seed.clear(); }, "a seed is 0 to 4294967295"},
        Case{[](BookWish& w) { w.file.clear(); }, "the book has no name yet"},
        Case{[](BookWish& w) { w.file = "b"; }, "a book's name ends in .pdf, not so b"},
        Case{[](BookWish& w) { w.file = "book-1.maze"; }, "a book's name ends in .pdf, not so book-1.maze"},
        Case{[](BookWish& w) { w.answers = "there.pdf"; },
             "there.pdf is there already; another name keeps it"}}) {
    Author a;
    std::ofstream(a.program.files->path() / "there.pdf") << "x";
    BookWish wish;
    wish.seed = "7";
    wish.file = "b.pdf";
    c.spoil(wish);
    a.desktop.act([wish](Program& p) { input::bookAccepted(p, wish); });
    a.run();
    EXPECT_EQ(a.program.book.line, c.line);
    EXPECT_TRUE(a.desktop.books.empty());
    EXPECT_FALSE(a.has("book-1.maze"));
  }
}

TEST(ThePanelOfABook, SaysSoWhereTheDrawingCannotBeWritten) {
  Author a;
  a.desktop.full = a.program.files->path();
  a.accept();
  a.run();
  EXPECT_EQ(a.program.book.line, "book-1.maze can't be written; no book is made");
  EXPECT_FALSE(a.has("book-1.maze") || a.has("book-1.bmp"));
}

TEST(ThePanelOfABook, SavesTheSheetOfTheWorkshop) {
  Author a;
  a.desktop.act(input::bookEscaped);
  a.desktop.menu(Item::workshop);
  a.desktop.act([](Program& p) { leaveWorkshop(p); });
  a.desktop.menu(Item::makebook);
  BookWish wish;
  wish.drawing = false;
  wish.sheet = true;
  a.accept(wish);
  a.run();
  ASSERT_EQ(a.desktop.books.size(), 1U);
  EXPECT_EQ(a.desktop.books[0].words.back(), "sheet-1.bmp");
  const auto saved = readBitmapFile(a.program.files->path() / "sheet-1.bmp");
  ASSERT_TRUE(saved);
  EXPECT_TRUE(samePicture(saved.value(), a.program.workshop.sheet->picture()));
  EXPECT_FALSE(a.has("book-1.maze"));
}

// The book under way

TEST(ABookThatIsMade, IsToldWithItsFileAndKeepsWhatItWasMadeFrom) {
  Author a;
  a.accept();
  a.news(Author::ended({3, false, {}}));
  a.run();
  EXPECT_EQ(a.program.notices.words(), "book-1.pdf is made, with 3 mazes");
  EXPECT_EQ(a.program.notices.opens(), a.program.files->path() / "book-1.pdf");
  EXPECT_TRUE(a.has("book-1.maze") && a.has("book-1.bmp"));
  EXPECT_FALSE(a.program.book.making.underWay);
}

TEST(ABookThatIsNotMade, LeavesNothingAndSaysWhy) {
  for (const auto& [end, words] :
       {std::pair{BookEnd{0, true, {}}, std::string("the book is cancelled; nothing is left of it")},
        std::pair{BookEnd{0, false, {"a.png: there is no such file"}},
                  std::string("no book is made: a.png: there is no such file")}}) {
    Author a;
    a.accept();
    a.news(Author::ended(end));
    a.run();
    EXPECT_EQ(a.program.notices.words(), words);
    EXPECT_EQ(a.program.notices.opens(), "");
    EXPECT_EQ(a.desktop.lines.back(), words) << "a script reads it";
    EXPECT_FALSE(a.has("book-1.maze") || a.has("book-1.bmp"));
  }
}

TEST(ABookThatIsNotMade, LeavesADrawingThatAPersonHasSavedOverItsOwn) {
  Author a;
  a.accept();
  a.desktop.look([&a](Program&) { a.temp.put("book-1.maze", "a person's"); });
  a.news(Author::ended({0, true, {}}));
  a.run();
  EXPECT_EQ(a.temp.get("book-1.maze"), "a person's");
  EXPECT_FALSE(a.has("book-1.bmp"));
}

TEST(ABookWithMazesThatAreMissing, SaysWhichIsTheFirst) {
  Author a;
  a.accept();
  a.news(
      Author::ended({1, false, {"closet: maze 1 can't be made: why", "closet: maze 3 can't be made: why"}}));
  a.run();
  EXPECT_EQ(a.program.notices.words(), "book-1.pdf is made, with 1 maze; closet: maze 1 can't be made: why");
}

TEST(ABookUnderWay, LetsNoOtherBegin) {
  Author a;
  a.accept();
  a.desktop.menu(Item::makebook);
  a.accept();
  a.run();
  EXPECT_EQ(a.desktop.books.size(), 1U);
  EXPECT_TRUE(a.program.book.open);
  EXPECT_EQ(a.program.book.line, "a book is being made; this one can be made after it");
  EXPECT_TRUE(a.has("book-1.maze")) << "of the one under way";
  EXPECT_FALSE(a.has("book-2.maze"));
}

TEST(ABookUnderWay, IsStoppedByCancelAndByTheEndOfTheProgram) {
  Author a;
  a.desktop.act(input::bookCancelled);
  a.desktop.look([&a](Program&) { EXPECT_EQ(a.desktop.booksStopped, 0) << "there is none"; });
  a.accept();
  a.desktop.act(input::bookCancelled);
  a.run();
  EXPECT_EQ(a.desktop.booksStopped, 1);
  EXPECT_TRUE(a.program.book.making.stopping);
  EXPECT_EQ(a.desktop.booksEnded, 1);
}

TEST(ABookUnderWay, KeepsItsNewestPagesAlone) {
  Author a;
  a.accept();
  for (int i = 1; i <= 50; ++i) a.news({static_cast<std::size_t>(i), 60, {{i, plainBitmap(2, 2, 0)}}, {}});
  a.run();
  const BookMaking& making = a.program.book.making;
  EXPECT_EQ(making.done, 50U);
  EXPECT_EQ(making.all, 60U);
  ASSERT_EQ(making.pages.size(), kMostSmallPages);
  EXPECT_EQ(making.pages.front().number, 11);
  EXPECT_EQ(making.pages.back().number, 50);
}

TEST(TheLineThatIsCopied, NamesFilesThatAreThereAndStay) {
  Author a;
  std::string line;
  a.desktop.act([&line](Program& p) {
    line = takeBookLine(p, p.book.wish);
    EXPECT_TRUE(p.book.open && p.state.panelOpen);
  });
  a.accept();
  a.news(Author::ended({0, true, {}}));
  a.run();
  EXPECT_EQ(line, "cd " + a.program.files->path().string() +
                      " && gridwright-book --seed 77 -o book-1.pdf book-1.maze");
  EXPECT_TRUE(a.has("book-1.maze") && a.has("book-1.bmp")) << "somebody has the line";
}

// With the command's own code

struct AShopWithATwin : AShop {
  Ended twin(const std::string& script) {
    HeadlessOptions options;
    options.size = {120, 100};
    HeadlessDesktop desktop("s.txt",
                            "seed 77\nclick Command2\nmenu importdrawing\ntype Text8 \"room\"\n"
                            "enter Text8\n" +
                                script,
                            options);
    const auto program = std::make_unique<Program>(desktop, folder.path());
    Ended ended;
    try {
      runProgram(*program);
    } catch (const ProgramEnd&) {
    } catch (const ScriptStop& stop) {
      ended = {stop.status, {}, stop.message};
    }
    line = bookLine(program->book.wish, program->book.files, program->book.folder);
    notice = program->notices.words();
    pages = program->book.making.pages.size();
    return ended;
  }
  std::string line, notice;
  std::size_t pages = 0;
};

TEST_F(AShopWithATwin, MakesTheBookOfTheCommandThatThePanelShows) {
  folder.put("names.txt", "Mia\nZoë\n");
  EXPECT_EQ(
      twin("book \"--drawing hall.bmp --words names.txt --total 6 --kind regular,3d --wall 10,14 --title "
           "'Bob'\\''s «mazes»' --caption '{n}: {picture}' --answers after --paper a5\"\n"
           "expect panelOpen 1\naccept\nexpect panelOpen 0\n"
           "expect notice \"book-1.pdf is made, with 6 mazes\"\n")
          .err,
      "");
  EXPECT_EQ(pages, 6U);
  const std::string made = folder.get("book-1.pdf");
  ASSERT_TRUE(made.starts_with("%PDF"));
  fs::remove(folder.path() / "book-1.pdf");
  const std::string command = GRIDWRIGHT_BOOK;
  const std::string shell =
      "PATH=" + fs::path(command).parent_path().string() + ":$PATH; { " + line + "; } >/dev/null";
  EXPECT_EQ(std::system(shell.c_str()), 0) << line;
  EXPECT_TRUE(folder.get("book-1.pdf") == made) << line;
}

TEST_F(AShopWithATwin, SaysInOneLineWhyThereIsNoBook) {
  const auto goneAndWhy = [this](const std::string& options, const std::string& why) {
    const Words before = files();
    EXPECT_EQ(twin("book \"" + options + "\"\naccept\nexpect message \"" + why + "\"\n").err, "") << options;
    EXPECT_EQ(folder.get("there.pdf"), "mine");
    EXPECT_EQ(files(), before) << options;
  };
  folder.put("there.pdf", "mine");
  fs::create_directory(folder.path() / "folder.pdf");
  twin("");  // what the program leaves behind of itself
  goneAndWhy("--wall 3", "--wall 3: a wall is 5 to 50 pixels");
  goneAndWhy("-n 0", "-n 0: a picture has 1 to 1000000 mazes");
  goneAndWhy("-o there.pdf", "there.pdf is there already; another name keeps it");
  goneAndWhy("-o folder.pdf", "folder.pdf is there already; another name keeps it");
  goneAndWhy("-o a.folder", "a book's name ends in .pdf, not so a.folder");
  goneAndWhy("-o gone/b.pdf", in("gone/b.pdf") + " can't be written: no such folder");
  goneAndWhy("gone.png", "no book is made: " + in("gone.png") + ": there is no such file");
  goneAndWhy("closet.bmp",
             "no book is made: no maze could be made; closet: maze 1 can't be made: fewer than "
             "three free cells");
}

TEST_F(AShopWithATwin, LeavesNothingOnAFullDisk) {
  twin("");
  const Words before = files();
  const FullDisk full(3000);
  EXPECT_EQ(twin("book \"hall.bmp -n 3\"\naccept\n").err, "");
  EXPECT_TRUE(notice.starts_with("no book is made: ")) << notice;
  EXPECT_EQ(notice.find('\n'), std::string::npos);
  EXPECT_EQ(files(), before);
}

TEST_F(AShopWithATwin, UnderstandsTheOptionsOfThePanelAndNoOthers) {
  for (const char* word : {"--force", "--jobs", "--part", "--landscape", "--wall", "-n 2 --total"}) {
    const Ended ended = twin("book \"" + std::string(word) + "\"\n");
    EXPECT_EQ(ended.status, 2) << word;
    const std::string last = std::string(word).substr(std::string(word).rfind(' ') + 1);
    EXPECT_EQ(ended.err, "s.txt:6: not understood: " + last);
  }
  EXPECT_EQ(twin("book \"--title 'a\"\n").err, "s.txt:6: not understood: a");
  EXPECT_EQ(twin("menu workshop\nbook \"-n 2\"\n").err, "s.txt:7: makebook is disabled or hidden");
  EXPECT_EQ(twin("book \"-n 2\"\ncancel\nexpect panelOpen 0\nexpect menu makebook enabled\n").err, "");
}

TEST_F(AShop, StopsABookBesideAProgramAtOnceAndLeavesNoFile) {
  const Words before = files();
  for (const bool byItsEnd : {false, true}) {
    auto maker = std::make_unique<book::BookMaker>([] {});
    ASSERT_TRUE(maker->begin({{"room.bmp", "-n", "1000000", "--seed", "1", "-o", "b.pdf"}, folder.path()}));
    EXPECT_FALSE(maker->begin({{"room.bmp"}, folder.path()})) << "one at a time";
    while (!maker->hasNews()) std::this_thread::sleep_for(std::chrono::milliseconds(1));
    const auto begin = std::chrono::steady_clock::now();
    if (byItsEnd) {
      maker.reset();
    } else {
      maker->stop();
      maker->wait();
      const BookNews news = maker->takeNews();
      ASSERT_TRUE(news.end.has_value());
      EXPECT_TRUE(news.end->stopped);
      EXPECT_EQ(news.all, 1000000U);
      EXPECT_LE(news.pages.size(), kMostSmallPages);
    }
    EXPECT_LT(std::chrono::steady_clock::now() - begin, std::chrono::seconds(1));
    EXPECT_EQ(files(), before);
  }
}

TEST(ASmallPicture, HasTheMeanOfWhatItCovers) {
  Bitmap picture = plainBitmap(200, 100, 0xFFFFFF);
  for (int y = 0; y < 100; ++y) {
    for (int x = 0; x < 100; x += 2) pixelAt(picture, x, y) = 0x000001;
  }
  const Bitmap small = book::smallPicture(picture, 50);
  EXPECT_EQ(small.width, 50);
  EXPECT_EQ(small.height, 25);
  EXPECT_EQ(small.at(3, 3), 0x808080U);
  EXPECT_EQ(small.at(40, 3), 0xFFFFFFU);
  EXPECT_EQ(book::smallPicture(picture, 200).width, 200);
}

}  // namespace
}  // namespace gridwright::test
