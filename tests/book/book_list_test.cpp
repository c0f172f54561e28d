// The list of a book comes back as it was written, and nothing else is taken for one.
#include "platform/book/book_list.h"

#include <gtest/gtest.h>

#include <string>

#include "platform/book/book_words.h"

namespace gridwright::test {
namespace {

using namespace gridwright::book;

MazeRecord maze(int number) {
  MazeRecord m;
  m.number = number;
  m.picture = "Zoë \"the\" cat";
  m.seed = 4294967295U;
  m.settings = {MazeKind::pipe, 50, 6, true, false, "stairs.pat", Ends::mostUnderpasses, true};
  m.width = 1000;
  m.height = 50;
  m.cells = 12;
  m.wayLength = 7;
  m.deadEnds = 3;
  m.junctions = 2;
  m.underpasses = 1;
  m.difficulty = 12.34;
  m.page = 5;
  m.answerPage = 9;
  m.notVector = "a photograph";
  return m;
}

/// Nothing in it is as it is by itself.
BookList everythingSaid() {
  BookList list;
  BookPlan& plan = list.plan;
  plan.pictures = {"a.bmp", "b c.maze"};
  plan.words = "names.txt";
  plan.mazesAPicture = 3;
  plan.wished.kinds = {MazeKind::threeD, MazeKind::regular, MazeKind::pipe};
  plan.wished.walls = {5, 50};
  plan.wished.difficulties = {1, 6};
  plan.wished.largePaths = {true, false};
  plan.wished.shortUnderpasses = {false, true};
  plan.wished.patterns = {{PatternWish::Kind::random, 99, {}}, {}, {PatternWish::Kind::set, 5, "stairs"}};
  plan.wished.ends = {Ends::set, Ends::farthest, Ends::farthestUnderpasses, Ends::mostUnderpasses};
  plan.wished.mazeColours = {{1, 15}, {2, 13}};
  plan.seed = 4294967295U;
  plan.paper = *paperOf("180x240.5mm");
  plan.landscape = true;
  plan.margin = 1;
  plan.gutter = 28346;
  plan.perPage = {2, 3};
  plan.answers = Answers::file;
  plan.answersPerPage = {5, 6};
  plan.title = "Mazes of the zoo";
  plan.caption = "{n}: {picture}";
  plan.pageNumbers = plan.nameLine = plan.sortByDifficulty = true;
  plan.format = MazeFormat::pixels;
  list.part = Part{2, 4};
  list.sums = {{"a.bmp", std::string(64, 'a')}, {"names.txt", std::string(64, '0')}};
  list.mazesAsked = 17;
  list.mazes = {maze(2), maze(6)};
  list.notMade = {10, 14};
  return list;
}

TEST(AList, ComesBackAsItWasWritten) {
  for (const BookList& list : {everythingSaid(), [] {
                                 BookList plain;
                                 plain.plan.pictures = {"a.bmp"};
                                 plain.plan.total = 17;
                                 plain.mazesAsked = 17;
                                 return plain;
                               }()}) {
    const std::string text = formatList(list);
    const auto read = parseList(text);
    ASSERT_TRUE(read) << read.fault().words;
    EXPECT_EQ(read.value().plan, list.plan);
    EXPECT_EQ(read.value().part, list.part);
    EXPECT_EQ(read.value().sums, list.sums);
    EXPECT_EQ(read.value().notMade, list.notMade);
    EXPECT_EQ(formatList(read.value()), text) << "the mazes too";
  }
}

TEST(AList, SaysOfEachMazeWhatAPersonAsksFor) {
  const std::string text = formatList(everythingSaid());
  for (const char* line :
       {R"("picture": "Zoë \"the\" cat")", R"("seed": 4294967295)", R"("cells": 12)", R"("way": 7)",
        R"("deadEnds": 3)", R"("junctions": 2)", R"("underpasses": 1)", R"("difficulty": 12.34)",
        R"("page": 5)", R"("answerPage": 9)", R"("notVector": "a photograph")", R"("kind": "pipe")",
        R"("wall": 50)", R"("ends": "most-underpasses")", R"("sha256": "aaaa)", R"("part": "2/4")",
        R"("navy=white")"}) {
    EXPECT_NE(text.find(line), std::string::npos) << line;
  }
}

std::string faultOf(const std::string& text) {
  const auto read = parseList(text);
  return read ? "" : read.fault().words;
}

TEST(WhatIsNoList, IsToldSo) {
  const std::string none = "it is no list of a book, or not all of one";
  const std::string whole = formatList(everythingSaid());
  for (const std::string& text :
       {std::string(), std::string("{}"), std::string("[1]"), whole.substr(0, whole.size() / 2)})
    EXPECT_EQ(faultOf(text), none);
}

TEST(AListOfAnotherVersion, IsNotTaken) {
  std::string text = formatList(everythingSaid());
  const std::string version = "\"version\": \"";
  text.insert(text.find(version) + version.size(), "9");
  EXPECT_TRUE(faultOf(text).starts_with("it comes from version 9")) << faultOf(text);
}

TEST(AListThatSomebodyChanged, IsNotTakenWhereItSaysWhatNoOptionCan) {
  const std::string whole = formatList(everythingSaid());
  struct Change {
    const char *from, *to;
  };
  for (const Change& change :
       {Change{R"("wall": 50)", R"("wall": 51)"}, Change{R"("seed": 4294967295)", R"("seed": -1)"},
        Change{R"("seed": 4294967295)", R"("seed": 4294967296)"},
        Change{R"("paper": "180x240.5mm")", R"("paper": "b4")"},
        Change{R"("landscape": true)", R"("landscape": 1)"}, Change{R"("part": "2/4")", R"("part": "5/4")"},
        Change{R"("sort": "difficulty")", R"("sort": "colour")"},
        Change{R"("per-page": "2x3")", R"("per-page": "0x3")"}, Change{R"("number": 2)", R"("number": 0)"},
        Change{R"("n": 3)", R"("n": 0)"}, Change{R"("mazesAsked": 17)", R"("mazesAsked": "17")"},
        Change{R"("navy=white")", R"("navy=navy")"}, Change{R"("n": 3)", R"("n": 1000001)"},
        Change{R"("n": 3)", R"("n": 3, "total": 17)"}, Change{R"({n}: {picture})", R"({n}: {colour})"},
        Change{R"({n}: {picture})", R"(n}: picture)"}, Change{R"("gutter": 28.346)", R"("gutter": 2834.6)"},
        Change{R"("answers-per-page": "5x6")", R"("answers-per-page": "20x20")"},
        Change{R"("b c.maze")", R"("")"}}) {
    std::string text = whole;
    const auto at = text.find(change.from);
    ASSERT_NE(at, std::string::npos) << change.from;
    text.replace(at, std::string(change.from).size(), change.to);
    EXPECT_EQ(faultOf(text), "it is a list of a book, but not as one is written") << change.to;
  }
}

TEST(AWord, IsReadAsTheValueThatItWasWrittenFor) {
  EXPECT_EQ(paperOf("a4")->width, 595276);
  EXPECT_EQ(paperOf("a4")->height, 841890);
  EXPECT_EQ(paperOf("letter")->width, 612000);
  EXPECT_EQ(paperOf("8.5x14in")->height, 1008000);
  for (const char* bad :
       {"a6", "", "100x100", "100mm", "x100mm", "10x100mm", "100x2000mm", "1e2x100mm", "-60x100mm"})
    EXPECT_FALSE(paperOf(bad)) << bad;
  EXPECT_EQ(lengthOf("15mm"), 42520);
  EXPECT_EQ(lengthOf("0.5in"), 36000);
  EXPECT_EQ(lengthOf("0"), 0);
  for (const char* bad : {"15", "mm", "", "-1mm", "1 mm", "1.2.3mm"}) EXPECT_FALSE(lengthOf(bad)) << bad;
  EXPECT_EQ(tilesOf("3x4"), (Tiles{3, 4}));
  for (const char* bad : {"3", "0x4", "3x", "x4", "21x1", "3x4x5"}) EXPECT_FALSE(tilesOf(bad)) << bad;
  EXPECT_EQ(partOf("4/4"), (Part{4, 4}));
  for (const char* bad : {"0/4", "5/4", "4", "/4", "4/", "1/0"}) EXPECT_FALSE(partOf(bad)) << bad;
  EXPECT_EQ(colourPairOf("fuchsia=grey"), (ColourPair{13, 8}));
  for (const char* bad : {"navy", "navy=", "=navy", "navy=navy", "grey=gray", "navy=pink"})
    EXPECT_FALSE(colourPairOf(bad)) << bad;
}

}  // namespace
}  // namespace gridwright::test
