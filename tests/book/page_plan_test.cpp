#include "platform/book/page_plan.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

namespace gridwright::book {
namespace {

constexpr double kNear = 0.01;  // points

/// A plan of 100 by 200 mm with margins of 10 mm and no words, answers in no place.
BookPlan plainPlan() {
  BookPlan plan;
  plan.paper = {"100x200mm", 283465, 566929};
  plan.margin = 28346;
  plan.caption.clear();
  plan.answers = Answers::none;
  return plan;
}

std::vector<MazeRecord> mazes(int count, int width = 400, int height = 400) {
  std::vector<MazeRecord> records;
  for (int i = 1; i <= count; ++i) {
    MazeRecord record;
    record.number = i;
    record.width = width;
    record.height = height;
    records.push_back(record);
  }
  return records;
}

std::vector<int> pagesOf(const std::vector<MazeRecord>& records, int MazeRecord::*page) {
  std::vector<int> pages(records.size());
  std::transform(records.begin(), records.end(), pages.begin(),
                 [page](const MazeRecord& record) { return record.*page; });
  return pages;
}

double inMillimetres(double points) { return points / kPointsAMillimetre; }

TEST(AMaze, StandsInTheMiddleOfWhatTheMarginsLeaveAsLargeAsItFits) {
  auto records = mazes(1, 800, 400);
  const PlannedBook planned = planPages(plainPlan(), records);
  ASSERT_EQ(planned.book.pages.size(), 1U);
  EXPECT_NEAR(inMillimetres(planned.book.width), 100, kNear);
  EXPECT_NEAR(inMillimetres(planned.book.height), 200, kNear);
  const Box place = planned.book.pages[0].mazes.at(0).place;
  EXPECT_NEAR(inMillimetres(place.x), 10, kNear);
  EXPECT_NEAR(inMillimetres(place.width), 80, kNear);
  EXPECT_NEAR(inMillimetres(place.height), 40, kNear);
  EXPECT_NEAR(inMillimetres(place.y), 80, kNear);
  EXPECT_FALSE(planned.book.pages[0].mazes[0].caption);
}

TEST(ALandscapePage, IsWiderThanHighHoweverThePaperWasMeasured) {
  BookPlan plan = plainPlan();
  plan.landscape = true;
  auto records = mazes(1);
  EXPECT_NEAR(inMillimetres(planPages(plan, records).book.width), 200, kNear);
  std::swap(plan.paper.width, plan.paper.height);
  EXPECT_NEAR(inMillimetres(planPages(plan, records).book.width), 200, kNear);
}

TEST(TheGutter, WidensTheBoundSideWhichIsLeftOnOddPagesAndRightOnEvenOnes) {
  BookPlan plan = plainPlan();
  plan.gutter = 14173;  // 5 mm
  auto records = mazes(2);
  const PlannedBook planned = planPages(plan, records);
  EXPECT_NEAR(inMillimetres(planned.book.pages.at(0).mazes.at(0).place.x), 15, kNear);
  EXPECT_NEAR(inMillimetres(planned.book.pages.at(1).mazes.at(0).place.x), 10, kNear);
  EXPECT_NEAR(inMillimetres(planned.book.pages[0].mazes[0].place.width), 75, kNear);
}

TEST(Pages, AreFilledRowByRow) {
  BookPlan plan = plainPlan();
  plan.perPage = {2, 3};
  auto records = mazes(8);
  const PlannedBook planned = planPages(plan, records);
  ASSERT_EQ(planned.book.pages.size(), 2U);
  const auto& first = planned.book.pages[0].mazes;
  ASSERT_EQ(first.size(), 6U);
  EXPECT_LT(first[0].place.x + first[0].place.width, first[1].place.x);
  EXPECT_DOUBLE_EQ(first[0].place.y, first[1].place.y);
  EXPECT_LT(first[1].place.y + first[1].place.height, first[2].place.y);
  EXPECT_DOUBLE_EQ(first[0].place.x, first[2].place.x);
  const auto& second = planned.book.pages[1].mazes;
  ASSERT_EQ(second.size(), 2U);
  EXPECT_EQ(second[0].place, first[0].place) << "a page that is not full begins as a full one";
  EXPECT_EQ(pagesOf(records, &MazeRecord::page), std::vector<int>({1, 1, 1, 1, 1, 1, 2, 2}));
}

TEST(AnswersAtTheEnd, FollowTheLastMazeOnPagesOfTheirOwn) {
  BookPlan plan = plainPlan();
  plan.answers = Answers::end;
  plan.answersPerPage = {1, 2};
  auto records = mazes(3);
  const PlannedBook planned = planPages(plan, records);
  EXPECT_EQ(planned.book.pages.size(), 5U);
  EXPECT_FALSE(planned.answers);
  EXPECT_EQ(pagesOf(records, &MazeRecord::page), std::vector<int>({1, 2, 3}));
  EXPECT_EQ(pagesOf(records, &MazeRecord::answerPage), std::vector<int>({4, 4, 5}));
  EXPECT_TRUE(planned.book.pages[3].isAnswers);
  EXPECT_FALSE(planned.book.pages[2].isAnswers);
}

TEST(AnswersAfter, FollowEachPageOfMazes) {
  BookPlan plan = plainPlan();
  plan.answers = Answers::after;
  plan.perPage = plan.answersPerPage = {1, 2};
  auto records = mazes(3);
  EXPECT_EQ(planPages(plan, records).book.pages.size(), 4U);
  EXPECT_EQ(pagesOf(records, &MazeRecord::page), std::vector<int>({1, 1, 3}));
  EXPECT_EQ(pagesOf(records, &MazeRecord::answerPage), std::vector<int>({2, 2, 4}));
}

TEST(AnswersInAFileOfTheirOwn, AreCountedFromItsFirstPage) {
  BookPlan plan = plainPlan();
  plan.answers = Answers::file;
  plan.answersPerPage = {1, 2};
  auto records = mazes(3);
  const PlannedBook planned = planPages(plan, records);
  ASSERT_TRUE(planned.answers);
  EXPECT_EQ(planned.book.pages.size(), 3U);
  EXPECT_EQ(planned.answers->pages.size(), 2U);
  EXPECT_EQ(pagesOf(records, &MazeRecord::answerPage), std::vector<int>({1, 1, 2}));
}

TEST(ABookWithoutAnswers, HasNoPagesOfThem) {
  auto records = mazes(3);
  records[1].answerPage = 7;  // of a book that was laid out before
  EXPECT_EQ(planPages(plainPlan(), records).book.pages.size(), 3U);
  EXPECT_EQ(pagesOf(records, &MazeRecord::answerPage), std::vector<int>({0, 0, 0}));
}

TEST(WordsOnAPage, TakeRoomOfTheMazesAndTheLineForANameOfNoAnswers) {
  BookPlan plan = plainPlan();
  plan.title = "Summer";
  plan.pageNumbers = plan.nameLine = true;
  plan.answers = Answers::end;
  plan.answersPerPage = {1, 1};
  auto records = mazes(1, 300, 900);
  const PlannedBook planned = planPages(plan, records);
  const PlannedPage& maze = planned.book.pages.at(0);
  const PlannedPage& answer = planned.book.pages.at(1);
  ASSERT_TRUE(maze.nameLine && maze.title && maze.pageNumber);
  EXPECT_NEAR(inMillimetres(maze.nameLine->y), 10, kNear);
  EXPECT_NEAR(maze.title->y, maze.nameLine->y + maze.nameLine->height, kNear);
  EXPECT_NEAR(maze.mazes[0].place.y, maze.title->y + maze.title->height, kNear);
  EXPECT_NEAR(maze.pageNumber->y, maze.mazes[0].place.y + maze.mazes[0].place.height, kNear);
  EXPECT_NEAR(inMillimetres(maze.pageNumber->y + maze.pageNumber->height), 190, kNear);
  EXPECT_FALSE(answer.nameLine);
  EXPECT_TRUE(answer.title && answer.pageNumber);
}

TEST(ACaption, StandsJustBelowItsMazeOverTheWidthOfItsTile) {
  BookPlan plan = plainPlan();
  plan.caption = "{n}";
  auto records = mazes(1, 200, 900);
  const PlacedMaze placed = planPages(plan, records).book.pages.at(0).mazes.at(0);
  ASSERT_TRUE(placed.caption);
  EXPECT_NEAR(placed.caption->y, placed.place.y + placed.place.height, kNear);
  EXPECT_NEAR(inMillimetres(placed.caption->width), 80, kNear);
  EXPECT_NEAR(inMillimetres(placed.caption->y + placed.caption->height), 190, kNear);
}

TEST(AFormatOfCaptions, TakesWhatStandsInBracesFromTheRecord) {
  MazeRecord maze;
  maze.number = 12;
  maze.picture = "cat {n}";
  maze.seed = 4294967295U;
  maze.cells = 321;
  maze.difficulty = 41.27;
  EXPECT_EQ(captionOf("{n}. {picture}: {seed}, {cells} cells, {difficulty}", maze),
            "12. cat {n}: 4294967295, 321 cells, 41.3");
  EXPECT_EQ(captionOf("{N} {} {n", maze), "{N} {} {n");
  EXPECT_EQ(captionOf("", maze), "");
}

TEST(ABookThatGrowsHarder, BeginsWithTheEasiestMazeAndOfEqualOnesWithTheLowerNumber) {
  BookPlan plan = plainPlan();
  auto records = mazes(4);
  records[0].difficulty = 30;
  records[1].difficulty = 10;
  records[2].difficulty = 30;
  records[3].difficulty = 20;
  std::swap(records[0], records[2]);
  putInOrder(records, plan);
  EXPECT_EQ(pagesOf(records, &MazeRecord::number), std::vector<int>({1, 2, 3, 4}));
  plan.sortByDifficulty = true;
  putInOrder(records, plan);
  EXPECT_EQ(pagesOf(records, &MazeRecord::number), std::vector<int>({2, 4, 1, 3}));
}

TEST(APlan, IsRefusedWhereNothingUsefulIsLeftOfItsPaper) {
  BookPlan plan = plainPlan();
  EXPECT_EQ(whyNoPages(plan), std::nullopt);
  plan.perPage = {5, 1};
  EXPECT_EQ(whyNoPages(plan), "paper, margins and words leave no 15 mm each way for a maze");
  plan.perPage = {1, 1};
  plan.answersPerPage = {5, 1};
  EXPECT_EQ(whyNoPages(plan), std::nullopt) << "there are no answers";
  plan.answers = Answers::end;
  EXPECT_EQ(whyNoPages(plan), "paper, margins and words leave no 15 mm each way for an answer");
  plan.answersPerPage = {1, 1};
  plan.gutter = plan.paper.width;
  EXPECT_TRUE(whyNoPages(plan).has_value());
  plan.gutter = 0;
  plan.margin = plan.paper.width;
  EXPECT_TRUE(whyNoPages(plan).has_value());
}

TEST(APart, HasAPageForEachMazeAndThenOneForEachAnswer) {
  BookPlan plan = plainPlan();
  auto records = mazes(3);
  numberPartPages(plan, records);
  EXPECT_EQ(pagesOf(records, &MazeRecord::answerPage), std::vector<int>({0, 0, 0}));
  plan.answers = Answers::after;
  numberPartPages(plan, records);
  EXPECT_EQ(pagesOf(records, &MazeRecord::page), std::vector<int>({1, 2, 3}));
  EXPECT_EQ(pagesOf(records, &MazeRecord::answerPage), std::vector<int>({4, 5, 6}));
}

}  // namespace
}  // namespace gridwright::book
