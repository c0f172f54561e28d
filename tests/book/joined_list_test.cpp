#include "platform/book/joined_list.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace gridwright::book {
namespace {

/// A part of a book of `total` mazes, as it would be made.
PartList part(int number, int of, int total = 7) {
  PartList part{"p" + std::to_string(number) + ".pdf", {}};
  part.list.part = Part{number, of};
  part.list.mazesAsked = total;
  part.list.sums = {{"cat.bmp", std::string(64, 'a')}};
  for (int i = number; i <= total; i += of) {
    MazeRecord record;
    record.number = i;
    record.difficulty = total - i;
    part.list.mazes.push_back(record);
  }
  return part;
}

std::string faultOf(const std::vector<PartList>& parts) {
  const auto joined = joinLists(parts);
  return joined ? "" : joined.fault().words;
}

std::vector<int> numbersOf(const BookList& list) {
  std::vector<int> numbers;
  for (const MazeRecord& record : list.mazes) numbers.push_back(record.number);
  return numbers;
}

TEST(AllParts, AreTheListOfTheBookInWhateverOrderTheyAreNamed) {
  const auto joined = joinLists({part(3, 3), part(1, 3), part(2, 3)});
  ASSERT_TRUE(joined);
  EXPECT_EQ(numbersOf(joined.value()), std::vector<int>({1, 2, 3, 4, 5, 6, 7}));
  EXPECT_FALSE(joined.value().part);
  EXPECT_EQ(joined.value().mazesAsked, 7);
  EXPECT_EQ(joined.value().sums.size(), 1U);
}

TEST(PartsOfABookThatGrowsHarder, AreJoinedByHowDifficultTheirMazesAre) {
  std::vector<PartList> parts{part(1, 2), part(2, 2)};
  for (PartList& p : parts) p.list.plan.sortByDifficulty = true;
  EXPECT_EQ(numbersOf(joinLists(parts).value()), std::vector<int>({7, 6, 5, 4, 3, 2, 1}));
}

TEST(MazesThatPartsCouldNotMake, StayUnmadeInTheBook) {
  std::vector<PartList> parts{part(1, 2), part(2, 2)};
  parts[0].list.mazes.pop_back();
  parts[0].list.notMade = {7};
  parts[1].list.mazes.pop_back();
  parts[1].list.notMade = {6};
  EXPECT_EQ(joinLists(parts).value().notMade, std::vector<int>({6, 7}));
}

TEST(APartThatIsMissing, IsNamed) {
  EXPECT_EQ(faultOf({part(1, 4), part(2, 4), part(4, 4)}), "part 3/4 is missing");
  EXPECT_EQ(faultOf({}), "no part is named");
}

TEST(APartThatIsThereTwice, IsNamedWithItsTwin) {
  PartList again = part(2, 2);
  again.name = "copy.pdf";
  EXPECT_EQ(faultOf({part(1, 2), part(2, 2), again}), "copy.pdf is part 2/2, and so is p2.pdf");
}

TEST(APartOfAnotherBook, IsNamed) {
  EXPECT_EQ(faultOf({part(1, 2), part(2, 3)}), "p2.pdf is part 2/3, but p1.pdf is part 1/2");
  PartList other = part(2, 2);
  other.list.plan.title = "Winter";
  EXPECT_EQ(faultOf({part(1, 2), other}), "p2.pdf was made with other options than p1.pdf");
  other = part(2, 2);
  other.list.plan.seed = 8;
  EXPECT_EQ(faultOf({part(1, 2), other}), "p2.pdf was made with other options than p1.pdf");
  other = part(2, 2);
  other.list.mazesAsked = 9;
  EXPECT_EQ(faultOf({part(1, 2), other}), "p2.pdf was made with other options than p1.pdf");
  other = part(2, 2);
  other.list.sums[0].sha256[0] = 'b';
  EXPECT_EQ(faultOf({part(1, 2), other}), "p2.pdf was made of other pictures than p1.pdf");
}

TEST(AWholeBook, IsNoPart) {
  PartList whole = part(1, 1);
  whole.list.part.reset();
  EXPECT_EQ(faultOf({whole}), "p1.pdf is no part of a book");
  EXPECT_EQ(faultOf({part(1, 1), whole}), "p1.pdf is no part of a book");
}

}  // namespace
}  // namespace gridwright::book
