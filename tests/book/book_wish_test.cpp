// The words that a book is asked for by, there and back.
#include "state/book_wish.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace gridwright::test {
namespace {

using Words = std::vector<std::string>;

BookWish unlikeTheUsual() {
  BookWish wish;
  wish.sheet = true;
  wish.pictures = {"-a b.png", "/pictures/it's.svg"};
  wish.names = "names \"of\" all.txt";
  wish.number = "12";
  wish.inAll = true;
  wish.kinds = "regular,3d";
  wish.walls = "14,10";
  wish.patterns = "none,random:8";
  wish.paper = "180x240mm";
  wish.perPage = "2x2";
  wish.answers = "answers.pdf";
  wish.answersPerPage = "3x4";
  wish.title = "Bob's $mazes \\ more";
  wish.caption = "";
  wish.seed = "7";
  wish.file = "book-1.pdf";
  return wish;
}

TEST(TheWordsOfABook, AreReadBackIntoWhatWasWanted) {
  BookWish wanted = unlikeTheUsual();
  const BookFiles files{"book-1.maze", "sheet-1.bmp"};
  const auto words = shellWords(shellLine(bookWords(wanted, files)));
  ASSERT_TRUE(words);
  EXPECT_EQ(words.value(), bookWords(wanted, files));
  const auto read = bookWishOf(words.value(), {});
  ASSERT_TRUE(read) << read.fault().words;
  // As files they are pictures like others.
  wanted.drawing = wanted.sheet = false;
  wanted.pictures.insert(wanted.pictures.begin(), {"book-1.maze", "sheet-1.bmp"});
  EXPECT_EQ(read.value(), wanted);
}

TEST(TheWordsOfABook, LeaveOutWhatIsAsUsual) {
  BookWish wish;
  wish.seed = "7";
  wish.file = "b.pdf";
  EXPECT_EQ(bookLine(wish, {"book-1.maze", ""}, "/home/a b"),
            "cd '/home/a b' && gridwright-book --seed 7 -o b.pdf book-1.maze");
}

TEST(TheWordsOfABook, MeanTheDrawingWhereTheyNameNoPicture) {
  const auto wish = [](const Words& words) { return bookWishOf(words, {}).value(); };
  EXPECT_TRUE(wish({"-n", "3"}).drawing);
  EXPECT_FALSE(wish({"a.png"}).drawing);
  EXPECT_FALSE(wish({"--words", "n.txt"}).drawing);
  EXPECT_FALSE(wish({"--sheet"}).drawing);
  EXPECT_TRUE(wish({"--drawing", "--sheet", "a.png"}).drawing);
}

TEST(TheWordsOfABook, AreTakenApartAsAShellDoes) {
  const auto words = shellWords(R"( a  'b c'"d \" \e"f\ g '' )");
  ASSERT_TRUE(words);
  EXPECT_EQ(words.value(), (Words{"a", "b cd \" \\ef g", ""}));
  EXPECT_FALSE(shellWords("a 'b"));
  EXPECT_FALSE(shellWords("a \\"));
}

}  // namespace
}  // namespace gridwright::test
