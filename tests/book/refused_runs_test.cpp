// Runs of gridwright-book that leave less than a book, or nothing, and say why.
#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <utility>
#include <vector>

#include "book/shop.h"
#include "support/child_program.h"

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

}  // namespace
}  // namespace gridwright::test
