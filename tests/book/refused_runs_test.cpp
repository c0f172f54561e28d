// Runs of gridwright-book that leave less than a book, or nothing, and say why.
#include <gtest/gtest.h>

#include <filesystem>
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

}  // namespace
}  // namespace gridwright::test
