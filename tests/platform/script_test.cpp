#include "platform/headless/script.h"

#include <gtest/gtest.h>

namespace gridwright::test {
namespace {

using Words = std::vector<std::string>;

TEST(ALine, IsCutIntoWordsAndKeepsItsNumber) {
  const auto lines = readScript("click Command2\n\n  menu   newmaze\t \nkey 74 3");
  ASSERT_EQ(lines.size(), 3U);
  EXPECT_EQ(lines[0].words, (Words{"click", "Command2"}));
  EXPECT_EQ(lines[0].number, 1);
  EXPECT_EQ(lines[1].words, (Words{"menu", "newmaze"}));
  EXPECT_EQ(lines[1].number, 3);
  EXPECT_EQ(lines[2].words, (Words{"key", "74", "3"}));
  EXPECT_EQ(lines[2].number, 4);
}

TEST(ANumberSign, StartsACommentUnlessItStandsInAText) {
  const auto lines = readScript("# all of it\nclick Command2 # the rest\ntype Text2 \"no # comment\"\n#");
  ASSERT_EQ(lines.size(), 2U);
  EXPECT_EQ(lines[0].words, (Words{"click", "Command2"}));
  EXPECT_EQ(lines[1].text, "no # comment");
}

TEST(AText, RunsFromTheFirstQuoteOfTheLineToTheLast) {
  const auto lines =
      readScript("expect text menu4 \"Press \"I\",\"k\" or\"\ntype Text2 \"\"\nexpect caption \"open");
  ASSERT_EQ(lines.size(), 3U);
  EXPECT_EQ(lines[0].text, "Press \"I\",\"k\" or");
  EXPECT_TRUE(lines[1].hasText);
  EXPECT_EQ(lines[1].text, "");
  EXPECT_FALSE(lines[2].hasText) << "one quote alone makes no text";
}

TEST(LineEndsOfOtherSystems, AreNoPartOfAWord) {
  const auto lines = readScript("menu newmaze\r\nexpect message \"a\"\r\n");
  ASSERT_EQ(lines.size(), 2U);
  EXPECT_EQ(lines[0].words.back(), "newmaze");
  EXPECT_EQ(lines[1].text, "a");
}

TEST(AnEmptyScript, HasNoLines) {
  EXPECT_TRUE(readScript("").empty());
  EXPECT_TRUE(readScript("\n\n   \n# words").empty());
}

TEST(AWholeNumber, IsDecimalWithAnOptionalSignAndNothingElse) {
  EXPECT_EQ(wholeNumber("12").value(), 12);
  EXPECT_EQ(wholeNumber("-12").value(), -12);
  EXPECT_EQ(wholeNumber("+12").value(), 12);
  EXPECT_EQ(wholeNumber("4294967296").value(), 4294967296);
  for (const char* word : {"", "-", "+", "1x", "x1", "1.5", "0x10", "99999999999999999999", "+-1", " 1"}) {
    EXPECT_FALSE(wholeNumber(word)) << word;
  }
}

TEST(ASize, LiesBetweenFiftyAndAThousand) {
  EXPECT_EQ(sizeWord("800x600").value(), (std::pair{800, 600}));
  EXPECT_EQ(sizeWord("50x1000").value(), (std::pair{50, 1000}));
  for (const char* word :
       {"49x100", "100x1001", "800", "800x", "x600", "800X600", "800x600x2", "-800x600", ""}) {
    EXPECT_FALSE(sizeWord(word)) << word;
  }
}

}  // namespace
}  // namespace gridwright::test
