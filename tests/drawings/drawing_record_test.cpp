#include "drawings/drawing_record.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>

namespace gridwright::test {
namespace {

DrawingRecord someDrawing() {
  DrawingRecord drawing;
  for (std::size_t i = 0; i < record::count; ++i) drawing.values[i] = static_cast<int>(i) * 7 - 30;
  drawing.values[record::wallWidth] = 5;
  drawing.values[record::wallHeight] = 50;
  drawing.values[record::mazeKind] = 2;
  for (std::size_t i = 0; i < drawing.lists.size(); ++i)
    drawing.lists[i] = Steps(i, static_cast<int>(i % 5) + 1);
  return drawing;
}

std::string replaced(std::string text, const std::string& old, const std::string& wanted) {
  const std::size_t at = text.rfind(old);
  EXPECT_NE(at, std::string::npos);
  return text.replace(at, old.size(), wanted);
}

TEST(ADrawingFile, IsOneLineOfValuesAndTwelveClosedLists) {
  const std::string text = formatDrawing(someDrawing());
  const std::string line = text.substr(0, text.find("\r\n"));
  EXPECT_EQ(std::count(line.begin(), line.end(), ','), 87);
  EXPECT_EQ(line.substr(0, 11), "-30,-23,-16");
  std::size_t lists = 0;
  for (std::size_t at = text.find("9999,88\r\n"); at != std::string::npos;
       at = text.find("9999,88\r\n", at + 1))
    ++lists;
  EXPECT_EQ(lists, 12U);
}

TEST(ADrawingFile, ReadsAsWhatWasWritten) {
  const auto read = parseDrawing(formatDrawing(someDrawing()));
  ASSERT_TRUE(read);
  EXPECT_EQ(read.value(), someDrawing());
}

TEST(TheListsOfADrawing, AreRegularThen3dThenPipe) {
  EXPECT_EQ(listPlace(0).kind, MazeKind::regular);
  EXPECT_EQ(listPlace(4).kind, MazeKind::threeD);
  EXPECT_EQ(listPlace(8).kind, MazeKind::pipe);
  for (std::size_t i = 0; i < 12; ++i) EXPECT_EQ(listPlace(i).direction, static_cast<int>(i % 4) + 1);
}

/// The text with another end of line, from `from` on.
std::string withLineEnds(const std::string& text, const std::string& ending, std::size_t from = 0) {
  std::string other = text.substr(0, from);
  for (std::size_t at = from; at < text.size(); ++at) {
    if (text[at] == '\r') continue;
    other += text[at] == '\n' ? ending : std::string(1, text[at]);
  }
  return other;
}

TEST(AnyLineEndAndAnyCommas, SeparateTheCodesOfTheLists) {
  const std::string text = formatDrawing(someDrawing());
  const std::size_t lists = text.find('\n') + 1;
  for (const std::string& form :
       {withLineEnds(text, "\n"), withLineEnds(text, "\r"), withLineEnds(text, ",", lists)}) {
    const auto read = parseDrawing(form);
    ASSERT_TRUE(read);
    EXPECT_EQ(read.value(), someDrawing());
  }
}

TEST(TheRecord, HasALineOfItsOwn) {
  EXPECT_FALSE(parseDrawing(withLineEnds(formatDrawing(someDrawing()), ",")));
}

TEST(TheLastList, StopsAtItsEndMark) {
  std::string text = formatDrawing(someDrawing());
  text.resize(text.size() - std::string(",88\r\n").size());
  EXPECT_TRUE(parseDrawing(text));
}

TEST(ADrawingFileCutOffAnywhere, IsRefused) {
  const std::string text = formatDrawing(someDrawing());
  const std::size_t end = text.size() - std::string(",88\r\n").size();
  for (std::size_t length = 0; length < end; ++length)
    EXPECT_FALSE(parseDrawing(text.substr(0, length))) << length;
}

TEST(AValueThatIsNoWholeNumber, IsRefused) {
  const DrawingRecord drawing = someDrawing();
  const std::string text = formatDrawing(drawing);
  for (const char* wrong : {"x", "1.5", "\"3\"", "", "99999999999", "0x10", "1 2", "--1"}) {
    for (const std::size_t place : {0U, 43U, 87U}) {
      std::string line;
      for (std::size_t i = 0; i < record::count; ++i)
        line += (i == 0 ? "" : ",") + (i == place ? std::string(wrong) : std::to_string(drawing.values[i]));
      EXPECT_FALSE(parseDrawing(line + text.substr(text.find("\r\n")))) << wrong << " at " << place;
    }
  }
}

TEST(AWallSizeOutsideItsRange, IsRefused) {
  for (const std::size_t side : {record::wallWidth, record::wallHeight}) {
    for (const int size : {-5, 0, 4, 51, 1000000}) {
      DrawingRecord drawing = someDrawing();
      drawing.values[side] = size;
      EXPECT_FALSE(parseDrawing(formatDrawing(drawing))) << size;
    }
  }
}

TEST(AnUnknownKind, IsRefused) {
  for (const int kind : {-1, 3, 77}) {
    DrawingRecord drawing = someDrawing();
    drawing.values[record::mazeKind] = kind;
    EXPECT_FALSE(parseDrawing(formatDrawing(drawing))) << kind;
  }
}

TEST(ACodeThatIsNoStep, IsRefused) {
  for (const int code : {-1, 0, 6, 88}) {
    for (const std::size_t list : {0U, 5U, 11U}) {
      DrawingRecord drawing = someDrawing();
      drawing.lists[list] = {1, code, 2};
      EXPECT_FALSE(parseDrawing(formatDrawing(drawing))) << code << " in " << list;
    }
  }
}

TEST(AListWithoutItsEndMark, IsRefused) {
  const std::string text = formatDrawing(someDrawing());
  EXPECT_FALSE(parseDrawing(replaced(text, "9999,88", "")));
}

TEST(AValueTooMany, IsRefusedWhereverItStandsAndWhateverItIs) {
  const std::string text = formatDrawing(someDrawing());
  const std::size_t end = text.find("\r\n");
  for (const char* extra : {"0", "1", "2", "5", "9999"}) {
    for (std::size_t at = 0; at < end; at = text.find(',', at) + 1) {
      std::string longer = text;
      EXPECT_FALSE(parseDrawing(longer.insert(at, std::string(extra) + ","))) << extra << " at " << at;
      if (text.find(',', at) > end) break;
    }
    std::string longer = text;
    EXPECT_FALSE(parseDrawing(longer.insert(end, "," + std::string(extra)))) << extra << " at the end";
  }
}

TEST(WhatFollowsTheLastList, IsRefusedButForTheClosingValue) {
  const std::string text = formatDrawing(someDrawing());
  EXPECT_TRUE(parseDrawing(text + "\r\n"));
  for (const char* rest : {"1\r\n9999,88\r\n", "88\r\n", "x", "9999"}) {
    EXPECT_FALSE(parseDrawing(text + rest)) << rest;
  }
}

TEST(AMissingValue, IsRefusedWhateverListFollows) {
  DrawingRecord drawing = someDrawing();
  for (Steps& list : drawing.lists) list = {step::left};  // its first code would pass for a value
  const std::string text = formatDrawing(drawing);
  const std::string record = text.substr(0, text.find("\r\n"));
  const std::string lists = text.substr(text.find("\r\n"));
  ASSERT_TRUE(parseDrawing(record + lists));
  for (std::size_t comma = record.find(','); comma != std::string::npos;
       comma = record.find(',', comma + 1)) {
    const std::size_t end = std::min(record.find(',', comma + 1), record.size());
    EXPECT_FALSE(parseDrawing(record.substr(0, comma + 1) + record.substr(end) + lists))
        << "empty at " << comma;
    EXPECT_FALSE(parseDrawing(record.substr(0, comma) + record.substr(end) + lists)) << "gone at " << comma;
  }
  EXPECT_FALSE(parseDrawing("," + record + lists));
}

}  // namespace
}  // namespace gridwright::test
