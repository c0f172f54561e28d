// The examples of docs/formats.md are what the program reads and writes.
#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

#include "canvas/bitmap_encode.h"
#include "drawings/drawing_record.h"
#include "files/step_files.h"
#include "patterns/pattern_sets.h"

namespace gridwright::test {
namespace {

/// The fenced blocks under a heading, in order, line ends as in the document.
std::vector<std::string> examplesUnder(const std::string& heading) {
  std::ifstream in(GRIDWRIGHT_FORMATS_DOCUMENT);
  std::vector<std::string> blocks;
  bool here = false;
  bool inside = false;
  for (std::string line; std::getline(in, line);) {
    if (line.rfind("## ", 0) == 0) here = line.rfind("## " + heading, 0) == 0;
    if (!here) continue;
    if (line == "```") {
      inside = !inside;
      if (inside) blocks.emplace_back();
    } else if (inside) {
      blocks.back() += line + "\n";
    }
  }
  return blocks;
}

/// A line end stands for CR LF.
std::string fileText(const std::string& example) {
  std::string text;
  for (const char c : example) text += c == '\n' ? std::string("\r\n") : std::string(1, c);
  return text;
}

/// The bytes that two hexadecimal digits each stand for.
std::string fileBytes(const std::string& example) {
  std::istringstream in(example);
  std::string bytes;
  for (std::string digits; in >> digits;) bytes += static_cast<char>(std::stoi(digits, nullptr, 16));
  return bytes;
}

TEST(TheStepFileExamples, AreTheBytesThatTheProgramReadsAndWrites) {
  const auto examples = examplesUnder("Step files");
  ASSERT_EQ(examples.size(), 4U);
  const std::string pattern = fileText(examples[0]);
  EXPECT_EQ(fileBytes(examples[1]), pattern);
  EXPECT_EQ(parseSteps(pattern), (Steps{step::left, step::left, step::up}));
  EXPECT_EQ(formatSteps(parseSteps(pattern)), pattern);
  const std::string ordinary = fileText(examples[2]);
  EXPECT_EQ(fileBytes(examples[3]), ordinary);
  EXPECT_EQ(parseSteps(ordinary), Steps{step::left});
  EXPECT_EQ(defaultStepText(step::left), ordinary);
}

TEST(ThePatternSetExample, IsTheSetOfDefaults) {
  const auto examples = examplesUnder("Pattern sets");
  ASSERT_EQ(examples.size(), 1U);
  const auto set = parseSet(fileText(examples[0]));
  ASSERT_TRUE(set);
  EXPECT_EQ(set.value(), (PatternSet{{{1}, {2}, {3}, {4}}}));
  EXPECT_EQ(formatSet(set.value()), fileText(examples[0]));
}

TEST(TheDrawingExample, IsADrawingOnceTheTenMoreListsFollow) {
  const auto examples = examplesUnder("Drawings");
  ASSERT_EQ(examples.size(), 1U);
  std::string text = fileText(examples[0]);
  EXPECT_FALSE(parseDrawing(text)) << "two lists are too few";
  for (std::size_t list = 2; list < 12; ++list) text += formatSteps({listPlace(list).direction});
  const auto drawing = parseDrawing(text);
  ASSERT_TRUE(drawing);
  EXPECT_EQ(formatDrawing(drawing.value()), text);
  const auto line = examples[0].substr(0, examples[0].find('\n'));
  EXPECT_EQ(std::count(line.begin(), line.end(), ',') + 1, static_cast<std::ptrdiff_t>(record::count));
  const auto& values = drawing.value().values;
  EXPECT_EQ(values[record::wallWidth], 10);
  EXPECT_EQ(values[record::creationMode], -1);
  EXPECT_EQ(values[record::windowState], 2);
  EXPECT_EQ(values[record::randomPatternSize], 5);
  EXPECT_EQ(values[record::backgroundDrawColor], 8388608);
}

TEST(TheBitmapExample, IsTheHeaderThatTheProgramWrites) {
  const auto examples = examplesUnder("Bitmaps");
  ASSERT_EQ(examples.size(), 1U);
  const std::string header = fileBytes(examples[0]);
  EXPECT_EQ(encodeBitmapFile(plainBitmap(800, 600, 0)).substr(0, header.size()), header);
}

}  // namespace
}  // namespace gridwright::test
