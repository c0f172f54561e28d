// What a command line of gridwright-book may hold, and the one line that each other one gets.
#include "platform/book/book_options.h"

#include <gtest/gtest.h>

#include <sstream>
#include <string>
#include <vector>

namespace gridwright::test {
namespace {

using namespace book;
using Words = std::vector<std::string>;

BookLine understood(const Words& words) {
  const auto line = readBookLine(words);
  EXPECT_TRUE(line) << line.fault().words;
  return line ? line.value() : BookLine{};
}

TEST(ABookOfOnePicture, IsMadeAsNobodyHasSaidOtherwise) {
  const BookLine line = understood({"cat.bmp"});
  BookPlan usual;
  usual.pictures = {"cat.bmp"};
  EXPECT_EQ(line.plan, usual);
  EXPECT_EQ(line.plan.paper.name, "a4");
  EXPECT_EQ(line.plan.margin, 42520) << "15 mm";
  EXPECT_EQ(line.plan.answers, Answers::end);
  EXPECT_EQ(line.plan.answersPerPage, (Tiles{3, 4}));
  EXPECT_EQ(line.plan.caption, "{n}");
  EXPECT_EQ(line.run.output, "book.pdf");
  EXPECT_FALSE(line.hasSeed);
  EXPECT_FALSE(line.run.mayReplace);
  EXPECT_GE(line.run.jobs, 1);
}

TEST(EachOption, IsTakenAsItSays) {
  const BookLine line = understood({"a.bmp",
                                    "-n",
                                    "3",
                                    "--words",
                                    "names.txt",
                                    "--kind",
                                    "3d,pipe,regular",
                                    "--wall",
                                    "14,10,8",
                                    "--paths",
                                    "large",
                                    "--difficulty",
                                    "1,6",
                                    "--underpasses",
                                    "long",
                                    "--patterns",
                                    "none,random,random:9,my/stairs.pat",
                                    "--ends",
                                    "set,most-underpasses",
                                    "--seed",
                                    "4294967295",
                                    "--paper",
                                    "8x10in",
                                    "--landscape",
                                    "--margin",
                                    "0.5in",
                                    "--gutter",
                                    "10mm",
                                    "--per-page",
                                    "2x1",
                                    "--answers",
                                    "key.pdf",
                                    "--answers-per-page",
                                    "4x5",
                                    "--title",
                                    "Zoo",
                                    "--caption",
                                    "{n}: {picture}, {seed}, {cells}, {difficulty}",
                                    "--page-numbers",
                                    "--name-line",
                                    "--sort",
                                    "difficulty",
                                    "--format",
                                    "pixels",
                                    "--list",
                                    "l.json",
                                    "--jobs",
                                    "3",
                                    "--part",
                                    "2/4",
                                    "--force",
                                    "--strict",
                                    "--quiet",
                                    "-o",
                                    "b.pdf",
                                    "--maze-colours",
                                    "navy=yellow,green=grey",
                                    "--",
                                    "-z.bmp"});
  const BookPlan& plan = line.plan;
  EXPECT_EQ(plan.pictures, (Words{"a.bmp", "-z.bmp"}));
  EXPECT_EQ(plan.words, "names.txt");
  EXPECT_EQ(plan.mazesAPicture, 3);
  EXPECT_EQ(plan.wished.kinds, (std::vector{MazeKind::threeD, MazeKind::pipe, MazeKind::regular}));
  EXPECT_EQ(plan.wished.walls, (std::vector{14, 10, 8}));
  EXPECT_EQ(plan.wished.difficulties, (std::vector{1, 6}));
  EXPECT_EQ(plan.wished.largePaths, std::vector{true});
  EXPECT_EQ(plan.wished.shortUnderpasses, std::vector{false});
  using Kind = PatternWish::Kind;
  EXPECT_EQ(plan.wished.patterns,
            (std::vector{PatternWish{}, PatternWish{Kind::random, 5, {}}, PatternWish{Kind::random, 9, {}},
                         PatternWish{Kind::set, 5, "my/stairs.pat"}}));
  EXPECT_EQ(plan.wished.ends, (std::vector{Ends::set, Ends::mostUnderpasses}));
  EXPECT_EQ(plan.wished.mazeColours, (std::vector{ColourPair{1, 14}, ColourPair{2, 8}}));
  EXPECT_EQ(plan.seed, 4294967295U);
  EXPECT_TRUE(line.hasSeed);
  EXPECT_EQ(plan.paper.width, 576000);
  EXPECT_TRUE(plan.landscape && plan.pageNumbers && plan.nameLine && plan.sortByDifficulty);
  EXPECT_EQ(plan.margin, 36000);
  EXPECT_EQ(plan.gutter, 28346);
  EXPECT_EQ(plan.perPage, (Tiles{2, 1}));
  EXPECT_EQ(plan.answers, Answers::file);
  EXPECT_EQ(plan.answersPerPage, (Tiles{4, 5}));
  EXPECT_EQ(plan.title, "Zoo");
  EXPECT_EQ(plan.caption, "{n}: {picture}, {seed}, {cells}, {difficulty}");
  EXPECT_EQ(plan.format, MazeFormat::pixels);
  const BookRun& run = line.run;
  EXPECT_EQ(run.answersFile, "key.pdf");
  EXPECT_EQ(run.list, "l.json");
  EXPECT_EQ(run.jobs, 3);
  EXPECT_EQ(run.part, (Part{2, 4}));
  EXPECT_TRUE(run.mayReplace && run.strict && run.quiet);
  EXPECT_EQ(run.output, "b.pdf");
}

TEST(TheLastOfTwoAnswers, Counts) {
  const BookLine line = understood({"a.bmp", "--answers", "key.pdf", "--answers", "after"});
  EXPECT_EQ(line.plan.answers, Answers::after);
  EXPECT_EQ(line.run.answersFile, "");
  EXPECT_EQ(line.plan.answersPerPage, (Tiles{1, 1})) << "as large as the mazes before them";
  EXPECT_EQ(understood({"a.bmp", "--answers", "after", "--per-page", "2x1"}).plan.answersPerPage,
            (Tiles{2, 1}));
  EXPECT_EQ(understood({"a.bmp", "--answers", "after", "--answers-per-page", "3x4"}).plan.answersPerPage,
            (Tiles{3, 4}));
}

TEST(PartsAndLists, TakeTheirOwnOptionsAlone) {
  const BookLine parts =
      understood({"--join", "p1.pdf", "p2.pdf", "-o", "b.pdf", "--answers", "key.pdf", "--force"});
  EXPECT_EQ(parts.run.join.size(), 2U);
  EXPECT_TRUE(parts.plan.pictures.empty());
  const BookLine again =
      understood({"--from", "l.json", "-o", "b.pdf", "--part", "1/2", "--strict", "--list", "m.json"});
  EXPECT_EQ(again.run.from, "l.json");
  EXPECT_EQ(again.run.part, (Part{1, 2}));
}

struct Refused {
  Words words;
  std::string line;
};

class ACommandLine : public ::testing::TestWithParam<Refused> {};

TEST_P(ACommandLine, IsToldWhatIsAllowedInOneLine) {
  const auto line = readBookLine(GetParam().words);
  ASSERT_FALSE(line);
  EXPECT_EQ(line.fault().words.substr(0, GetParam().line.size()), GetParam().line);
  EXPECT_EQ(line.fault().words.find('\n'), std::string::npos);
}

INSTANTIATE_TEST_SUITE_P(
    OutOfRange, ACommandLine,
    ::testing::Values(
        Refused{{}, "no picture is named"},
        Refused{{"a.bmp", "--colour"}, "--colour: there is no such option"},
        Refused{{"a.bmp", "--wall"}, "--wall: a value is missing, 5..50"},
        Refused{{""}, "a name of a file is empty"},
        Refused{{"a.bmp", "-n", "0"}, "-n 0: a picture has 1 to 1000000"},
        Refused{{"a.bmp", "--total", "1000001"}, "--total 1000001: a book has 1 to 1000000"},
        Refused{{"a.bmp", "b.bmp", "-n", "500001"}, "-n: a book has at most 1000000 mazes"},
        Refused{{"a.bmp", "--words", "n.txt", "-n", "1000000"}, "-n: a book has at most 1000000"},
        Refused{{"--words", ""}, "--words : it is a file"},
        Refused{{"a.bmp", "--kind", "2d"}, "--kind 2d: a kind is"},
        Refused{{"a.bmp", "--wall", "4"}, "--wall 4: a wall is 5 to 50"},
        Refused{{"a.bmp", "--wall", "51"}, "--wall 51: a wall is 5 to 50"},
        Refused{{"a.bmp", "--wall", "10,,8"}, "--wall 10,,8: a wall"},
        Refused{{"a.bmp", "--wall", "+8"}, "--wall +8: a wall"},
        Refused{{"a.bmp", "--difficulty", "7"}, "--difficulty 7: a difficulty is 1 to 6"},
        Refused{{"a.bmp", "--paths", "wide"}, "--paths wide: paths are"},
        Refused{{"a.bmp", "--underpasses", "no"}, "--underpasses no: underpasses are"},
        Refused{{"a.bmp", "--patterns", "random:1"}, "--patterns random:1: patterns are"},
        Refused{{"a.bmp", "--patterns", ""}, "--patterns : patterns are"},
        Refused{{"a.bmp", "--maze-colours", "navy"}, "--maze-colours navy: two different"},
        Refused{{"a.bmp", "--maze-colours", "navy=navy"}, "--maze-colours navy=navy: two different"},
        Refused{{"a.bmp", "--ends", "near"}, "--ends near: ends are"},
        Refused{{"a.bmp", "--seed", "4294967296"}, "--seed 4294967296: a seed is 0 to 4294967295"},
        Refused{{"a.bmp", "--seed", "-1"}, "--seed -1: a seed"},
        Refused{{"a.bmp", "--seed", ""}, "--seed : a seed"},
        Refused{{"a.bmp", "--sort", "size"}, "--sort size: a book is sorted by difficulty"}));

INSTANTIATE_TEST_SUITE_P(
    OutOfThePage, ACommandLine,
    ::testing::Values(Refused{{"a.bmp", "--paper", "a6"}, "--paper a6: a paper is"},
                      Refused{{"a.bmp", "--paper", "10x10mm"}, "--paper 10x10mm: a paper is"},
                      Refused{{"a.bmp", "--margin", "15"}, "--margin 15: a length is"},
                      Refused{{"a.bmp", "--gutter", "-1mm"}, "--gutter -1mm: a length is"},
                      Refused{{"a.bmp", "--per-page", "0x1"}, "--per-page 0x1: it is columns and rows"},
                      Refused{{"a.bmp", "--answers", "maybe"}, "--answers maybe: answers are"},
                      Refused{{"a.bmp", "--answers", "file"}, "--answers file: answers are"},
                      Refused{{"a.bmp", "--answers-per-page", "3"}, "--answers-per-page 3: it is columns"},
                      Refused{{"a.bmp", "--caption", "{name}"}, "--caption {name}: what stands in braces"},
                      Refused{{"a.bmp", "--caption", "{n"}, "--caption {n: what stands in braces"},
                      Refused{{"a.bmp", "--caption", "n}"}, "--caption n}: what stands in braces"},
                      Refused{{"a.bmp", "--format", "png"}, "--format png: a format is"},
                      Refused{{"a.bmp", "-o", ""}, "-o : a file has a name"},
                      Refused{{"a.bmp", "--jobs", "0"}, "--jobs 0: there are 1 to 1024 jobs"},
                      Refused{{"a.bmp", "--part", "5/4", "--seed", "1"}, "--part 5/4: a part is"}));

INSTANTIATE_TEST_SUITE_P(
    ThatContradictsItself, ACommandLine,
    ::testing::Values(Refused{{"a.bmp", "-n", "2", "--total", "9"}, "-n and --total contradict each other"},
                      Refused{{"a.bmp", "--part", "1/2"}, "--part needs --seed"},
                      Refused{{"a.bmp", "--answers", "none", "--answers-per-page", "2x2"},
                              "--answers-per-page contradicts"},
                      Refused{{"a.bmp", "--margin", "110mm"}, ""},
                      Refused{{"a.bmp", "--gutter", "190mm"}, ""},
                      Refused{{"--join"}, "--join: no part is named"},
                      Refused{{"--join", "p.pdf", "--seed", "1"}, "--seed does not go with --join"},
                      Refused{{"--join", "p.pdf", "--part", "1/2"}, "--part does not go with --join"},
                      Refused{{"--join", "p.pdf", "--from", "l.json"}, "--from does not go with --join"},
                      Refused{{"--join", "p.pdf", "--answers", "end"}, "--answers does not go with --join"},
                      Refused{{"--from", "l.json", "a.bmp"}, "a.bmp does not go with --from"},
                      Refused{{"--from", "l.json", "--wall", "9"}, "--wall does not go with --from"},
                      Refused{{"--from", "l.json", "--answers", "none"},
                              "--answers does not go with --from"}));

TEST(TheHelp, ComesWhereverItIsAskedFor) {
  EXPECT_EQ(saidInstead({"a.bmp", "--quiet", "--help", "--version"}), bookUsage());
  EXPECT_TRUE(saidInstead({"--version", "--help"}).value_or("").starts_with("gridwright-book "));
  EXPECT_EQ(saidInstead({"a.bmp", "--title", "--help", "--", "--help"}), std::nullopt);
}

TEST(TheHelp, NamesEveryOptionInLinesOfATerminal) {
  const std::string usage = bookUsage();
  for (const char* option : {"-o",
                             "-n",
                             "--total",
                             "--words",
                             "--kind",
                             "--wall",
                             "--difficulty",
                             "--paths",
                             "--underpasses",
                             "--patterns",
                             "--maze-colours",
                             "--ends",
                             "--seed",
                             "--paper",
                             "--landscape",
                             "--margin",
                             "--gutter",
                             "--per-page",
                             "--answers",
                             "--answers-per-page",
                             "--title",
                             "--caption",
                             "--page-numbers",
                             "--name-line",
                             "--sort",
                             "--format",
                             "--list",
                             "--from",
                             "--jobs",
                             "--part",
                             "--join",
                             "--force",
                             "--strict",
                             "--quiet",
                             "--help",
                             "--version"}) {
    EXPECT_NE(usage.find(std::string(option)), std::string::npos) << option;
  }
  std::istringstream lines(usage);
  for (std::string line; std::getline(lines, line);) EXPECT_LE(line.size(), 100U) << line;
}

}  // namespace
}  // namespace gridwright::test
