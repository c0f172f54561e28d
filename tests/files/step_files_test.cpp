#include "files/step_files.h"

#include <gtest/gtest.h>

#include "support/no_plain_files.h"
#include "support/work_folders.h"

namespace gridwright::test {
namespace {

TEST(ADefaultPattern, IsOneLineWithTheDirectionsOwnCode) {
  EXPECT_EQ(defaultStepText(1), "1,9999,88\r\n");
  EXPECT_EQ(defaultStepText(2), "2,9999,88\r\n");
  EXPECT_EQ(defaultStepText(3), "3,9999,88\r\n");
  EXPECT_EQ(defaultStepText(4), "4,9999,88\r\n");
}

TEST(AStepFile, HasOneCodeALineAndEndsWithTheClosingLine) {
  EXPECT_EQ(formatSteps({1, 3, 3, 5}), "1\r\n3\r\n3\r\n5\r\n9999,88\r\n");
}

TEST(AStepFileThatHoldsOnlyTheClosingRecord, ReadsAsAnEmptyPattern) {
  EXPECT_EQ(parseSteps("9999,88\r\n"), Steps{});
  EXPECT_EQ(formatSteps({}), "9999,88\r\n");
}

TEST(AReader, StopsAtTheEndMarkAndLeavesTheClosingValueUnread) {
  EXPECT_EQ(parseSteps("1\r\n2\r\n9999,88\r\n4\r\n"), (Steps{1, 2}));
  EXPECT_EQ(formatSteps(parseSteps("1,9999,88")), "1\r\n9999,88\r\n") << "a copy writes the end anew";
}

TEST(AReader, TakesCommasAndAnyLineEndsAsSeparators) {
  EXPECT_EQ(parseSteps("1,2,3\n4\r5\r\n\r\n 2 ,9999,88"), (Steps{1, 2, 3, 4, 5, 2}));
}

TEST(TheEndOfATextWithoutAnEndMark, CountsAsOne) {
  EXPECT_EQ(parseSteps("1\r\n2"), (Steps{1, 2}));
  EXPECT_EQ(parseSteps(""), Steps{});
}

TEST(WhatIsNoNumber, IsNoStep) {
  for (const int code : parseSteps("left\r\n-\r\n99999999999999999999\r\n9999,88")) {
    EXPECT_FALSE(code >= 1 && code <= 5) << code;
  }
}

TEST(EverySpellingOfTheTwelveFiles, IsTheWritersOwn) {
  EXPECT_EQ(stepFileName(MazeKind::regular, 1), "Left.pt");
  EXPECT_EQ(stepFileName(MazeKind::regular, 2), "Right.pt");
  EXPECT_EQ(stepFileName(MazeKind::regular, 3), "up.pt");
  EXPECT_EQ(stepFileName(MazeKind::regular, 4), "down.pt");
  EXPECT_EQ(stepFileName(MazeKind::threeD, 1), "3dLeft.pt");
  EXPECT_EQ(stepFileName(MazeKind::threeD, 2), "3dRight.pt");
  EXPECT_EQ(stepFileName(MazeKind::threeD, 3), "3dup.pt");
  EXPECT_EQ(stepFileName(MazeKind::threeD, 4), "3ddown.pt");
  EXPECT_EQ(stepFileName(MazeKind::pipe, 1), "3dpipeLeft.pt");
  EXPECT_EQ(stepFileName(MazeKind::pipe, 2), "3dpipeRight.pt");
  EXPECT_EQ(stepFileName(MazeKind::pipe, 3), "3dpipeup.pt");
  EXPECT_EQ(stepFileName(MazeKind::pipe, 4), "3dpipedown.pt");
}

TEST(ResettingAll, WritesTheTwelveDefaults) {
  MemoryFolder folder;
  StepFiles files(folder);
  files.resetAll();
  EXPECT_EQ(folder.texts.size(), 12U);
  EXPECT_EQ(folder.texts["Left.pt"], "1,9999,88\r\n");
  EXPECT_EQ(folder.texts["3dpipedown.pt"], "4,9999,88\r\n");
}

TEST(ResettingAKind, LeavesTheOthersAlone) {
  MemoryFolder folder;
  StepFiles files(folder);
  files.write(MazeKind::regular, 1, {5, 5});
  files.write(MazeKind::pipe, 1, {5, 5});
  files.resetKind(MazeKind::regular);
  EXPECT_EQ(files.steps(MazeKind::regular, 1), Steps{1});
  EXPECT_EQ(files.steps(MazeKind::pipe, 1), (Steps{5, 5}));
}

TEST(AMissingFile, ReadsAsTheDirectionsDefault) {
  MemoryFolder folder;
  StepFiles files(folder);
  EXPECT_EQ(files.steps(MazeKind::regular, 3), Steps{3});
  EXPECT_EQ(files.steps(MazeKind::threeD, 2), Steps{2});
}

TEST(AFileWithoutAStep, ReadsAsTheDirectionsDefault) {
  for (const char* text : {"", "9999,88\r\n", "0\r\n88\r\n9999,88\r\n", "left,right"}) {
    MemoryFolder folder;
    StepFiles files(folder);
    folder.texts["up.pt"] = folder.texts["3dRight.pt"] = text;
    EXPECT_EQ(files.steps(MazeKind::regular, 3), Steps{3}) << text;
    EXPECT_EQ(files.steps(MazeKind::threeD, 2), Steps{2}) << text;
  }
}

TEST(APatternOfTheWalkBackCodeAlone, IsNoEmptyOne) {
  MemoryFolder folder;
  StepFiles files(folder);
  folder.texts["up.pt"] = "5\r\n9999,88\r\n";
  EXPECT_EQ(files.steps(MazeKind::regular, 3), Steps{5});
}

TEST(AListWithoutAStep, IsInstalledAsTheDirectionsDefault) {
  MemoryFolder folder;
  StepFiles files(folder);
  files.install(MazeKind::regular, 4, {});
  EXPECT_EQ(folder.texts["down.pt"], "4,9999,88\r\n");
  EXPECT_EQ(files.steps(MazeKind::regular, 4), Steps{4});
}

TEST(TheWalker, ReadsNoDiskWhileNothingHasChanged) {
  MemoryFolder folder;
  StepFiles files(folder);
  files.resetAll();
  for (int i = 0; i < 1000; ++i) files.steps(MazeKind::regular, 1 + i % 4);
  EXPECT_TRUE(folder.reads.empty());
}

TEST(AFilePutIntoTheFolderByHand, CountsFromTheNextMazeOn) {
  MemoryFolder folder;
  StepFiles files(folder);
  files.resetAll();
  folder.texts["Left.pt"] = "3\r\n4\r\n9999,88\r\n";
  EXPECT_EQ(files.steps(MazeKind::regular, 1), Steps{1});
  files.rereadFromDisk();
  EXPECT_EQ(files.steps(MazeKind::regular, 1), (Steps{3, 4}));
}

TEST(AFailedWrite, LosesNothing) {
  MemoryFolder folder;
  StepFiles files(folder);
  files.resetAll();
  folder.writesFail = true;
  files.write(MazeKind::regular, 2, {2, 2, 4});
  files.rereadFromDisk();
  EXPECT_EQ(files.steps(MazeKind::regular, 2), (Steps{2, 2, 4})) << "not the older file";
}

TEST(AStepFileThatIsNoPlainFile, IsKeptInMemoryAndToldOnce) {
  for (const NoPlainFile kind : kNoPlainFiles) {
    SCOPED_TRACE(nameOf(kind));
    const TempFolder temp;
    const TempFolder elsewhere;
    elsewhere.put("mine", "4,9999,88");
    put(kind, temp.path() / "Left.pt", elsewhere.path() / "mine");
    WorkFolder folder(temp.path());
    std::vector<std::string> told;
    folder.tellThrough([&](std::string_view words) { told.emplace_back(words); });
    StepFiles files(folder);
    files.resetAll();
    files.write(MazeKind::regular, 1, {1, 1, 3});
    files.rereadFromDisk();
    EXPECT_EQ(files.steps(MazeKind::regular, 1), (Steps{1, 1, 3}));
    EXPECT_EQ(temp.get("Right.pt"), "2,9999,88\r\n") << "the others are files as ever";
    EXPECT_EQ(elsewhere.get("mine"), "4,9999,88");
    EXPECT_EQ(told,
              std::vector<std::string>{"Error: Left.pt is not a plain file; nothing is written to it."});
  }
}

}  // namespace
}  // namespace gridwright::test
