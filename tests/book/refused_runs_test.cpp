// Runs of gridwright-book that leave less than a book, or nothing, and say why.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <string>
#include <utility>
#include <vector>

#include "book/shop.h"
#include "support/child_program.h"
#include "support/full_disk.h"
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
           {R"("title": "")", R"("title": "", "n": 2, "total": 3)"}}) {
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

#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
/// Sanitizers take more memory than any limit gives, and end the process where there is no more.
constexpr bool kMemoryCanEnd = false;
#else
constexpr bool kMemoryCanEnd = true;
#endif

TEST_F(AShop, MakesTheSameBookWhereTheSystemGivesNoThread) {
  if (!kMemoryCanEnd) GTEST_SKIP() << "under a sanitizer";
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
  if (!kMemoryCanEnd) GTEST_SKIP() << "under a sanitizer";
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
      const Ended ended = run({"hall.bmp", "--total", "4", "--seed", "1", "-o", "old.pdf", "--force"});
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
  if (refused == 0) GTEST_SKIP() << "tests before it left this process more memory than it takes";
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

TEST_F(AShop, LeavesAllItsOldFilesWhereTheDiskHasNoRoomForOneOfTheNew) {
  const Words names = {"b.pdf", "key.pdf", "l.json"};
  const auto make = [&] {
    return run({"room.bmp", "hall.bmp", "-n", "8", "--seed", "1", "-o", "b.pdf", "--answers", "key.pdf",
                "--list", "l.json", "--force"});
  };
  ASSERT_EQ(make().status, 0);
  Words whole;
  for (const std::string& name : names) {
    whole.push_back(folder.get(name));
    folder.put(name, "old " + name);
  }
  const Words before = files();
  for (const std::string& file : whole) {
    const FullDisk full(file.size() - 1);
    const Ended ended = make();
    EXPECT_EQ(ended.status, 1);
    EXPECT_EQ(std::count(ended.err.begin(), ended.err.end(), '\n'), 1) << ended.err;
    for (const std::string& name : names) EXPECT_EQ(folder.get(name), "old " + name);
    EXPECT_EQ(files(), before);
  }
  EXPECT_EQ(make().status, 0);
  for (std::size_t i = 0; i < names.size(); ++i) EXPECT_TRUE(folder.get(names[i]) == whole[i]) << names[i];
}

}  // namespace
}  // namespace gridwright::test
