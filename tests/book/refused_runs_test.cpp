// Runs of gridwright-book that leave less than a book, or nothing, and say why.
#include <gtest/gtest.h>

#include <filesystem>
#include <string>
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

}  // namespace
}  // namespace gridwright::test
