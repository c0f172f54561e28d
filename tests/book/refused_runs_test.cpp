// Runs of gridwright-book that leave less than a book, or nothing, and say why.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <string>
#include <utility>
#include <vector>

#include "book/shop.h"
#include "support/child_program.h"
#include "support/printed_pages.h"

namespace gridwright::test {
namespace {

using namespace book;
namespace fs = std::filesystem;

TEST_F(AShop, WritesNoTwoFilesUnderOneName) {
  const Words before = files();
  for (const Words& twice :
       {Words{"-o", "x.pdf", "--list", "./x.pdf"}, Words{"--answers", "./book.pdf"},
        Words{"--answers", "key.pdf", "--list", "../" + folder.path().filename().string() + "/key.pdf"}}) {
    Words words = {"room.bmp", "--seed", "1", "--force"};
    words.insert(words.end(), twice.begin(), twice.end());
    ChildProgram program({GRIDWRIGHT_BOOK, words, folder.path(), {}, {}});
    EXPECT_EQ(program.wait(), 2);
    EXPECT_EQ(program.said(),
              "gridwright-book: " + twice.back() + " is named for two files; each has a name of its own\n");
    EXPECT_EQ(files(), before);
  }
}

TEST_F(AShop, MakesNoBookAgainOfAListThatSaysWhatNoOptionCan) {
  ASSERT_EQ(run({"room.bmp", "--seed", "1", "-o", "b.pdf", "--list", "l.json"}).status, 0);
  const std::string whole = folder.get("l.json");
  for (const auto& [said, instead] : std::vector<std::pair<std::string, std::string>>{
           {R"("caption": "{n}")", R"("caption": "{colour}")"},
           {R"("margin": 42.52)", R"("margin": 400)"},
           {R"("seed": 1,)", R"("seed": 1, "n": 2, "total": 3,)"}}) {
    std::string text = whole;
    ASSERT_NE(text.find(said), std::string::npos) << said;
    folder.put("l.json", text.replace(text.find(said), said.size(), instead));
    const Words before = files();
    const Ended ended = run({"--from", "l.json", "-o", "again.pdf"});
    EXPECT_EQ(ended.status, 1) << instead;
    EXPECT_EQ(ended.err,
              "gridwright-book: " + in("l.json") + ": it is a list of a book, but not as one is written\n");
    EXPECT_EQ(files(), before);
  }
}

TEST_F(AShop, JoinsPartsThatLackMazesAndSaysWhichOnes) {
  const Words book = {"closet.bmp", "hall.bmp", "room.bmp", "--total", "4", "--seed", "1"};
  const auto with = [&](Words more) {
    more.insert(more.begin(), book.begin(), book.end());
    return run(more);
  };
  const std::string first = "gridwright-book: closet: maze 1 can't be made: fewer than three free cells\n";
  const std::string fourth = "gridwright-book: closet: maze 4 can't be made: fewer than three free cells\n";
  EXPECT_EQ(with({"-o", "b.pdf", "--list", "l.json"}).err, first + fourth);
  // Of three parts the first has neither of its mazes, of four parts the last has none either.
  for (const int of : {3, 4}) {
    Words join = {"--join"};
    for (int part = 1; part <= of; ++part) {
      const std::string which = std::to_string(part) + "/" + std::to_string(of);
      join.push_back("p" + std::to_string(part) + ".pdf");
      const Ended ended = with({"--part", which, "-o", join.back(), "--force"});
      EXPECT_EQ(ended.err, (part == 1 ? first : "") + (part == (of == 3 ? 1 : 4) ? fourth : "")) << which;
      EXPECT_EQ(ended.status, ended.err.empty() ? 0 : 1) << which;
      EXPECT_EQ(outputOf("qpdf --check '" + in(join.back()) + "' 2>&1 >/dev/null"), "");
    }
    EXPECT_EQ(outputOf("qpdf --show-npages '" + in("p1.pdf") + "'"), "1\n") << "a blank one";
    EXPECT_EQ(outputOf("pdftoppm -r 20 '" + in("p1.pdf") + "' 2>&1 >/dev/null"), "");
    join.insert(join.end(), {"-o", "j.pdf", "--list", "j.json", "--force"});
    const Ended joined = run(join);
    EXPECT_EQ(joined.status, 1);
    EXPECT_EQ(joined.err,
              "gridwright-book: maze 1 is not in the book: its part could not make it\n"
              "gridwright-book: maze 4 is not in the book: its part could not make it\n");
    EXPECT_TRUE(folder.get("j.pdf") == folder.get("b.pdf"));
    EXPECT_EQ(folder.get("j.json"), folder.get("l.json"));
  }
}

TEST_F(AShop, MakesTheSameBookWhereTheSystemGivesNoThread) {
  ASSERT_EQ(run({"room.bmp", "hall.bmp", "-n", "3", "--seed", "1", "-o", "b.pdf"}).status, 0);
  const auto noThreads = [] {
    // A thread's stack is as large as this allows, and larger than all memory that there may be.
    const rlimit stack{std::size_t{64} << 30, RLIM_INFINITY};
    const rlimit memory{std::size_t{8} << 30, RLIM_INFINITY};
    if (::setrlimit(RLIMIT_STACK, &stack) != 0 || ::setrlimit(RLIMIT_AS, &memory) != 0) ::_exit(126);
  };
  ChildProgram program(
      {GRIDWRIGHT_BOOK,
       {in("room.bmp"), in("hall.bmp"), "-n", "3", "--seed", "1", "-o", "c.pdf", "--jobs", "8"},
       folder.path(),
       {},
       noThreads});
  EXPECT_EQ(program.wait(), 0);
  EXPECT_EQ(program.said(), "");
  EXPECT_TRUE(folder.get("c.pdf") == folder.get("b.pdf"));
}

TEST_F(AShop, LeavesNothingWhereMemoryEnds) {
  folder.put("old.pdf", "old");
  const Words before = files();
  int refused = 0;
  for (std::size_t spare = 1; spare <= 64; spare *= 2) {
    const pid_t child = ::fork();
    if (child == 0) {
      // What this process has already, and so many megabytes.
      std::size_t pages = 0;
      std::ifstream("/proc/self/statm") >> pages;
      const rlimit memory{pages * static_cast<std::size_t>(::sysconf(_SC_PAGESIZE)) + (spare << 20),
                          RLIM_INFINITY};
      if (::setrlimit(RLIMIT_AS, &memory) != 0) ::_exit(126);
      const Ended ended = run({"hall.bmp", "--total", "40", "--seed", "1", "-o", "old.pdf", "--force"});
      if (ended.status == 0) ::_exit(0);
      ::_exit(ended.err == "gridwright-book: there is not enough memory; fewer --jobs need less\n" ? 1 : 125);
    }
    int status = 0;
    ASSERT_EQ(::waitpid(child, &status, 0), child);
    ASSERT_TRUE(WIFEXITED(status)) << spare << " MB: signal " << WTERMSIG(status);
    ASSERT_LE(WEXITSTATUS(status), 1) << spare << " MB";
    if (WEXITSTATUS(status) == 1) {
      ++refused;
      EXPECT_EQ(folder.get("old.pdf"), "old");
    }
    EXPECT_EQ(files(), before);
  }
  EXPECT_GT(refused, 0);
}

TEST_F(AShop, ListsNoPictureWhoseNameAListCannotSay) {
  const std::string latin = "Zo\xEB.bmp";
  fs::copy_file(in("room.bmp"), in(latin));
  const Words before = files();
  for (const Words& asked : {Words{"--list", "l.json"}, Words{"--part", "1/2"}}) {
    Words words = {latin, "--seed", "1", "-o", "b.pdf"};
    words.insert(words.end(), asked.begin(), asked.end());
    const Ended ended = run(words);
    EXPECT_EQ(ended.status, 1);
    EXPECT_EQ(ended.err, "gridwright-book: " + in(latin) +
                             ": it is not UTF-8, so no list and no part can say what the book is made of\n");
    EXPECT_EQ(files(), before);
    words.front() = "room.bmp";
    words.insert(words.end(), {"--title", "\xFF"});
    EXPECT_EQ(run(words).status, 1) << "nor any other words";
    EXPECT_EQ(files(), before);
  }
  EXPECT_EQ(run({latin, "--seed", "1", "-o", "b.pdf"}).status, 0) << "the book alone can be made";
}

TEST_F(AShop, MakesNoMoreThanAMillionMazes) {
  folder.put("names.txt", "Mia\nZoe\n");
  const Words before = files();
  const std::string line = "a book has at most 1000000 mazes\n";
  const Ended seen = run({"room.bmp", "hall.bmp", "-n", "500001", "-o", "b.pdf"});
  EXPECT_EQ(seen.status, 2) << "the command line shows it";
  EXPECT_EQ(seen.err, "gridwright-book: -n: " + line);
  const Ended read = run({"--words", "names.txt", "-n", "500001", "-o", "b.pdf"});
  EXPECT_EQ(read.status, 1) << "the file of names shows it";
  EXPECT_EQ(read.err, "gridwright-book: " + line);
  EXPECT_EQ(files(), before);
}

TEST_F(AShop, MakesNoBookOfASeedThatNobodyIsTold) {
  const Words before = files();
  const auto toFullDevice = [] {
    const int full = ::open("/dev/full", O_WRONLY);
    if (full < 0 || ::dup2(full, STDOUT_FILENO) < 0) ::_exit(126);
  };
  ChildProgram program({GRIDWRIGHT_BOOK, {"room.bmp", "-o", "b.pdf"}, folder.path(), {}, toFullDevice});
  EXPECT_EQ(program.wait(), 1);
  EXPECT_EQ(program.said(), "gridwright-book: the seed can't be told: standard output takes no more\n");
  EXPECT_EQ(files(), before);
}

}  // namespace
}  // namespace gridwright::test
