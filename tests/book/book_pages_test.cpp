// Books as files: their parts, what joins them, and what a run leaves on the disk.
#include "platform/book/book_pages.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <iterator>
#include <string>
#include <thread>
#include <vector>

#include "platform/book/book_list.h"
#include "platform/book/new_files.h"
#include "platform/book/part_document.h"
#include "support/full_disk.h"
#include "support/made_up_mazes.h"
#include "support/offscreen.h"
#include "support/printed_pages.h"
#include "support/small_disk.h"
#include "support/work_folders.h"

namespace gridwright::test {
namespace {

using namespace book;
namespace fs = std::filesystem;

class ARun : public ::testing::Test {
 public:
  static void SetUpTestSuite() { beginOffscreen(); }

 protected:
  ARun() {
    plan_.seed = 100;
    plan_.title = "Summer";
    plan_.caption = "{n} {picture}";
    plan_.pageNumbers = true;
    plan_.answersPerPage = {2, 2};
    run_.output = temp_.path() / "book.pdf";
  }

  /// Maze i of the book: they are of several sizes, and every fourth is a picture too motley for vectors.
  static MadeMaze maze(int number) {
    MadeMaze made = MadeUpMaze(8 + number % 3, 7, 10, static_cast<std::uint32_t>(number)).made(number);
    if (number % 4 != 0) return made;
    made.record.width = made.record.height = 160;
    made.maze = plainBitmap(160, 160, 0);
    for (std::size_t i = 0; i < made.maze.pixels.size(); ++i)
      made.maze.pixels[i] = static_cast<Colour>(i * i * 2654435761U % 16777213U);
    made.answer = made.maze;
    std::fill_n(made.answer.pixels.begin(), 500, kRed);
    return made;
  }

  [[nodiscard]] BookList emptyList(std::optional<Part> part = {}) const {
    BookList list;
    list.plan = plan_;
    list.part = part;
    list.sums = {{"cat.bmp", std::string(64, 'c')}};
    list.mazesAsked = kMazes;
    return list;
  }

  /// Makes the book, or a part of it, by so many threads.
  Outcome<Done> make(const BookRun& run, int threads = 1) {
    BookList list = emptyList(run.part);
    const int first = run.part ? run.part->number : 1;
    const int step = run.part ? run.part->of : 1;
    BookPages pages(plan_, run);
    std::vector<int> numbers;
    for (int i = first; i <= kMazes; i += step) numbers.push_back(i);
    std::vector<std::jthread> workers;
    for (int worker = 0; worker < threads; ++worker) {
      workers.emplace_back([&, worker] {
        for (auto i = static_cast<std::size_t>(worker); i < numbers.size();
             i += static_cast<std::size_t>(threads))
          EXPECT_TRUE(pages.take(maze(numbers[numbers.size() - 1 - i])));
      });
    }
    workers.clear();
    for (const int number : numbers) list.mazes.push_back(maze(number).record);
    const auto done = pages.finish(list, run, {});
    made_ = list;
    return done;
  }

  fs::path makePart(int number, int of) {
    BookRun run = run_;
    run.part = Part{number, of};
    run.output = temp_.path() / ("part" + std::to_string(number) + ".pdf");
    run.mayReplace = true;
    EXPECT_TRUE(make(run));
    return run.output;
  }

  BookRun joinOf(std::vector<fs::path> parts) {
    BookRun run = run_;
    run.output = temp_.path() / "joined.pdf";
    run.join = std::move(parts);
    return run;
  }
  std::string joinFault(std::vector<fs::path> parts) {
    const auto joined = joinBook(joinOf(std::move(parts)), {});
    EXPECT_FALSE(fs::exists(temp_.path() / "joined.pdf"));
    std::string words = joined ? "" : joined.fault().words;
    const std::string folder = temp_.path().string() + "/";
    for (auto at = words.find(folder); at != std::string::npos; at = words.find(folder))
      words.erase(at, folder.size());
    return words;
  }

  /// Names in the folder, sorted.
  [[nodiscard]] std::vector<std::string> files() const {
    std::vector<std::string> names;
    for (const auto& entry : fs::directory_iterator(temp_.path())) names.push_back(entry.path().filename());
    std::sort(names.begin(), names.end());
    return names;
  }

  static constexpr int kMazes = 9;
  TempFolder temp_;
  BookPlan plan_;
  BookRun run_;
  BookList made_;
};

using Names = std::vector<std::string>;

TEST_F(ARun, LeavesItsFilesInTheFolderThatItBeganIn) {
  const TempFolder elsewhere;
  const fs::path folder = temp_.path() / "books";
  const fs::path away = temp_.path() / "away";
  fs::create_directory(folder);
  BookRun run = run_;
  run.output = folder / "book.pdf";
  run.list = folder / "book.json";
  BookList list = emptyList({});
  BookPages pages(plan_, run);
  for (int number = 1; number <= kMazes; ++number) {
    EXPECT_TRUE(pages.take(maze(number)));
    list.mazes.push_back(maze(number).record);
  }
  fs::rename(folder, away);
  fs::create_directory_symlink(elsewhere.path(), folder);
  EXPECT_TRUE(pages.finish(list, run, {}));
  EXPECT_TRUE(fs::exists(away / "book.pdf") && fs::exists(away / "book.json"));
  EXPECT_TRUE(fs::is_empty(elsewhere.path()));
}

TEST_F(ARun, LeavesTheBookAloneWhereNothingElseIsAskedFor) {
  ASSERT_TRUE(make(run_));
  EXPECT_EQ(files(), Names({"book.pdf"}));
  EXPECT_NE(outputOf("pdfinfo '" + run_.output.string() + "'").find("Pages:           12"),
            std::string::npos);
}

TEST_F(ARun, SetsThePagesInTheListAndWhyAMazeIsPixels) {
  run_.list = temp_.path() / "book.json";
  ASSERT_TRUE(make(run_));
  EXPECT_EQ(temp_.get("book.json"), formatList(made_));
  const auto read = parseList(temp_.get("book.json"));
  ASSERT_TRUE(read);
  ASSERT_EQ(read.value().mazes.size(), 9U);
  EXPECT_EQ(read.value().mazes[4].page, 5);
  EXPECT_EQ(read.value().mazes[4].answerPage, 11);
  EXPECT_EQ(read.value().mazes[3].notVector, "more than 20000 rectangles");
  EXPECT_EQ(read.value().mazes[4].notVector, std::nullopt);
}

TEST_F(ARun, WritesTheSameBytesByOneThreadAndByEight) {
  ASSERT_TRUE(make(run_));
  BookRun other = run_;
  other.output = temp_.path() / "other.pdf";
  ASSERT_TRUE(make(other, 8));
  EXPECT_TRUE(temp_.get("book.pdf") == temp_.get("other.pdf"));
}

TEST_F(ARun, PutsTheEasiestMazeFirstWhereThatIsAskedFor) {
  plan_.sortByDifficulty = true;
  ASSERT_TRUE(make(run_));
  EXPECT_TRUE(std::is_sorted(made_.mazes.begin(), made_.mazes.end(),
                             [](const auto& a, const auto& b) { return a.difficulty < b.difficulty; }));
  const std::string first = outputOf("pdftotext -f 1 -l 1 '" + run_.output.string() + "' -");
  EXPECT_NE(first.find(made_.mazes[0].picture), std::string::npos) << first;
  EXPECT_EQ(made_.mazes[0].page, 1);
}

TEST_F(ARun, CanHaveItsAnswersInAFileOfTheirOwn) {
  plan_.answers = Answers::file;
  run_.answersFile = temp_.path() / "answers.pdf";
  ASSERT_TRUE(make(run_));
  EXPECT_EQ(files(), Names({"answers.pdf", "book.pdf"}));
  EXPECT_NE(outputOf("pdfinfo '" + run_.output.string() + "'").find("Pages:           9"), std::string::npos);
  const std::string told = outputOf("pdfinfo '" + run_.answersFile.string() + "'");
  EXPECT_NE(told.find("Pages:           3"), std::string::npos) << told;
  EXPECT_NE(told.find("Answers to 9 mazes from seed 100"), std::string::npos) << told;
}

TEST_F(ARun, OfWhichNoMazeCouldBeMadeLeavesNothing) {
  BookPages pages(plan_, run_);
  BookList list = emptyList();
  EXPECT_FALSE(pages.finish(list, run_, {}));
  EXPECT_EQ(files(), Names());
}

TEST_F(ARun, ThatIsStoppedLeavesNothing) {
  BookPages pages(plan_, run_);
  BookList list = emptyList();
  ASSERT_TRUE(pages.take(maze(1)));
  list.mazes = {maze(1).record};
  EXPECT_FALSE(pages.finish(list, run_, [] { return true; }));
  EXPECT_EQ(files(), Names());
}

class AJoin : public ARun {};

TEST_F(AJoin, OfAllPartsIsTheBookOfOneMachineByteForByte) {
  ASSERT_TRUE(make(run_, 2));
  std::vector<fs::path> parts;
  for (int i = 4; i >= 1; --i) parts.push_back(makePart(i, 4));
  const auto joined = joinBook(joinOf(parts), {});
  ASSERT_TRUE(joined) << joined.fault().words;
  EXPECT_TRUE(temp_.get("book.pdf") == temp_.get("joined.pdf"));
}

TEST_F(AJoin, HasTheListOfOneMachineToo) {
  run_.list = temp_.path() / "book.json";
  ASSERT_TRUE(make(run_));
  run_.list.clear();
  BookRun join = joinOf({makePart(1, 2), makePart(2, 2)});
  join.list = temp_.path() / "joined.json";
  ASSERT_TRUE(joinBook(join, {}));
  EXPECT_EQ(temp_.get("book.json"), temp_.get("joined.json"));
}

TEST_F(AJoin, GrowsHarderOverAllParts) {
  plan_.sortByDifficulty = true;
  plan_.answers = Answers::after;
  ASSERT_TRUE(make(run_));
  ASSERT_TRUE(joinBook(joinOf({makePart(1, 3), makePart(2, 3), makePart(3, 3)}), {}));
  EXPECT_TRUE(temp_.get("book.pdf") == temp_.get("joined.pdf"));
}

TEST_F(AJoin, WithoutAnswersIsThatOfOneMachine) {
  plan_.answers = Answers::none;
  ASSERT_TRUE(make(run_));
  ASSERT_TRUE(joinBook(joinOf({makePart(1, 2), makePart(2, 2)}), {}));
  EXPECT_TRUE(temp_.get("book.pdf") == temp_.get("joined.pdf"));
}

TEST_F(AJoin, TakesPartsWithoutAnyMaze) {
  ASSERT_TRUE(make(run_));
  std::vector<fs::path> parts;
  for (int i = 1; i <= kMazes + 2; ++i) parts.push_back(makePart(i, kMazes + 2));
  EXPECT_EQ(outputOf("qpdf --check '" + parts.back().string() + "' 2>&1 >/dev/null"), "");
  ASSERT_TRUE(joinBook(joinOf(parts), {}));
  EXPECT_TRUE(temp_.get("book.pdf") == temp_.get("joined.pdf"));
}

TEST_F(AJoin, WantsANameForAnswersThatAreAFileOfTheirOwn) {
  plan_.answers = Answers::file;
  const std::vector<fs::path> parts{makePart(1, 2), makePart(2, 2)};
  EXPECT_NE(joinFault(parts).find("--answers FILE.pdf"), std::string::npos);
  BookRun join = joinOf(parts);
  join.answersFile = temp_.path() / "answers.pdf";
  EXPECT_TRUE(joinBook(join, {}));
  EXPECT_TRUE(fs::exists(join.answersFile));
}

TEST_F(AJoin, NamesThePartThatDoesNotFitAndWritesNothing) {
  const fs::path first = makePart(1, 2);
  const fs::path second = makePart(2, 2);
  EXPECT_EQ(joinFault({first}), "part 2/2 is missing");
  EXPECT_EQ(joinFault({first, second, first}), "part1.pdf is part 1/2, and so is part1.pdf");
  EXPECT_EQ(joinFault({first, temp_.path() / "none.pdf"}), "none.pdf is not there");
  plan_.title = "Winter";
  EXPECT_EQ(joinFault({first, makePart(2, 2)}), "part2.pdf was made with other options than part1.pdf");
  temp_.put("text.pdf", "no document");
  EXPECT_EQ(joinFault({first, temp_.path() / "text.pdf"}), "text.pdf is no part of a book, or is cut");
  ASSERT_TRUE(make(run_));
  EXPECT_EQ(joinFault({first, run_.output}), "book.pdf is no part of a book");
}

TEST_F(AJoin, NamesAPartThatIsCutAnywhere) {
  const fs::path first = makePart(1, 2);
  const std::string whole = temp_.get(makePart(2, 2).filename());
  for (const std::size_t length : {whole.size() - 3, whole.size() - 600, whole.size() / 2, std::size_t{9}}) {
    temp_.put("part2.pdf", whole.substr(0, length));
    EXPECT_EQ(joinFault({first, temp_.path() / "part2.pdf"}).substr(0, 12), "part2.pdf is") << length;
  }
}

TEST_F(AJoin, NamesAPartWithADamagedPage) {
  const fs::path first = makePart(1, 2);
  const std::string whole = temp_.get(makePart(2, 2).filename());
  int drawings = 0;
  for (auto at = whole.find("/Type /XObject"); at != std::string::npos;
       at = whole.find("/Type /XObject", at + 1)) {
    std::string bytes = whole;
    const std::size_t packed = bytes.find("stream", at) + 7;
    for (std::size_t i = 30; i < 34; ++i) bytes[packed + i] = static_cast<char>(~bytes[packed + i]);
    temp_.put("part2.pdf", bytes);
    EXPECT_EQ(joinFault({first, temp_.path() / "part2.pdf"}), "part2.pdf is damaged") << at;
    ++drawings;
  }
  EXPECT_EQ(drawings, 2 * 4);
}

class FilesOfARun : public ARun {
 protected:
  std::string faultOf(const BookRun& run) const {
    const auto may = mayWrite(run);
    return may ? "" : may.fault().words.substr(temp_.path().string().size() + 1);
  }
};

TEST_F(FilesOfARun, AreNotReplacedUnlessThatIsAskedFor) {
  run_.list = temp_.path() / "book.json";
  run_.answersFile = temp_.path() / "answers.pdf";
  EXPECT_EQ(faultOf(run_), "");
  for (const char* name : {"book.pdf", "book.json", "answers.pdf"}) {
    temp_.put(name, "old");
    EXPECT_EQ(faultOf(run_), std::string(name) + " is there already; --force writes over it");
    run_.mayReplace = true;
    EXPECT_EQ(faultOf(run_), "");
    run_.mayReplace = false;
    fs::remove(temp_.path() / name);
  }
}

TEST_F(FilesOfARun, AreNotReplacedAlsoWhenTheyCameWhileMazesWereMade) {
  run_.list = temp_.path() / "book.json";
  temp_.put("book.json", "another's");
  const auto done = make(run_);
  ASSERT_FALSE(done);
  EXPECT_NE(done.fault().words.find("book.json is there already"), std::string::npos);
  EXPECT_EQ(files(), Names({"book.json"}));
  EXPECT_EQ(temp_.get("book.json"), "another's");
}

TEST_F(FilesOfARun, GiveWayToNewOnesWhereThatIsAskedFor) {
  temp_.put("book.pdf", "old");
  run_.mayReplace = true;
  ASSERT_TRUE(make(run_));
  EXPECT_EQ(temp_.get("book.pdf").substr(0, 5), "%PDF-");
  EXPECT_EQ(files(), Names({"book.pdf"}));
}

TEST_F(FilesOfARun, AreNoLinksNorFoldersAndLieInFoldersThatAreThere) {
  fs::create_symlink("elsewhere.pdf", temp_.path() / "link.pdf");
  fs::create_directory(temp_.path() / "folder.pdf");
  run_.mayReplace = true;
  run_.output = temp_.path() / "link.pdf";
  EXPECT_EQ(faultOf(run_), "link.pdf is no plain file");
  run_.output = temp_.path() / "folder.pdf";
  EXPECT_EQ(faultOf(run_), "folder.pdf is no plain file");
  run_.output = temp_.path() / "none/book.pdf";
  EXPECT_EQ(faultOf(run_), "none/book.pdf can't be written: no such folder");
}

TEST_F(FilesOfARun, AreNeverTwoOfOneName) {
  EXPECT_EQ(whyOneFile(run_), std::nullopt);
  run_.list = temp_.path() / "." / "book.pdf";
  EXPECT_EQ(whyOneFile(run_), run_.list.string() + " is named for two files; each has a name of its own");
  run_.list = "book.json";
  run_.answersFile = "./none/../book.json";
  EXPECT_NE(whyOneFile(run_), std::nullopt) << "none of them is there yet";
}

TEST_F(FilesOfARun, StayAsTheyWereWhenTheDiskIsFull) {
  temp_.put("book.pdf", "old");
  run_.mayReplace = true;
  ASSERT_TRUE(make(joinOf({})));
  const auto whole = fs::file_size(temp_.path() / "joined.pdf");
  fs::remove(temp_.path() / "joined.pdf");
  // The bare pages are refused, or the book is that comes of them.
  for (const auto bytes : {whole / 3, whole - 100}) {
    const FullDisk full(bytes);
    BookPages pages(plan_, run_);
    BookList list = emptyList();
    bool refused = false;
    for (int i = 1; i <= kMazes; ++i) {
      if (pages.take(maze(i))) {
        list.mazes.push_back(maze(i).record);
      } else {
        refused = true;
      }
    }
    if (bytes < whole / 2) {
      EXPECT_TRUE(refused);
    } else {
      EXPECT_FALSE(refused);
      EXPECT_FALSE(pages.finish(list, run_, {}));
    }
  }
  EXPECT_EQ(temp_.get("book.pdf"), "old");
  EXPECT_EQ(files(), Names({"book.pdf"}));
}

TEST_F(FilesOfARun, StayAsTheyWereOnADiskThatFillsUp) {
  const auto outcome = onSmallDisk(temp_.path(), 64, [&] {
    temp_.put("book.pdf", "old");
    run_.mayReplace = true;
    BookPages pages(plan_, run_);
    BookList list = emptyList();
    bool refused = false;
    for (int i = 1; i <= kMazes && !refused; ++i) {
      refused = !pages.take(maze(i));
      if (!refused) list.mazes.push_back(maze(i).record);
    }
    EXPECT_TRUE(refused || !pages.finish(list, run_, {}));
    EXPECT_EQ(temp_.get("book.pdf"), "old");
    EXPECT_EQ(files(), Names({"book.pdf"}));
  });
  if (outcome == OnSmallDisk::notAllowed) GTEST_SKIP() << "no file system can be made here";
  EXPECT_EQ(outcome, OnSmallDisk::passed);
}

}  // namespace
}  // namespace gridwright::test
