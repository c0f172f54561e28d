// Pictures as they were when they were looked at.
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <sstream>
#include <string>

#include "canvas/bitmap.h"

namespace gridwright::test {

/// Runs of one colour, row by row: a picture of few colours, small and readable in a change.
inline std::string runsOf(const Bitmap& picture) {
  std::ostringstream text;
  text << picture.width << ' ' << picture.height << '\n';
  for (std::size_t from = 0, at = 0; from < picture.pixels.size(); from = at) {
    while (at < picture.pixels.size() && picture.pixels[at] == picture.pixels[from]) ++at;
    const auto* slot = std::find(kPalette.begin(), kPalette.end(), picture.pixels[from]);
    text << (slot == kPalette.end() ? "paper"
                                    : kPaletteNames.at(static_cast<std::size_t>(slot - kPalette.begin())))
         << ' ' << at - from << '\n';
  }
  return text.str();
}

/// Where new expectations are wanted, they are written: GRIDWRIGHT_WRITE_GOLDEN=1, and then looked at.
inline ::testing::AssertionResult looksAsItDid(const Bitmap& picture, const std::string& name) {
  const auto path = std::filesystem::path(GRIDWRIGHT_GOLDEN) / (name + ".txt");
  const std::string text = runsOf(picture);
  if (std::getenv("GRIDWRIGHT_WRITE_GOLDEN") != nullptr) std::ofstream(path) << text;
  std::ifstream in(path, std::ios::binary);
  const std::string known{std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
  if (known == text) return ::testing::AssertionSuccess();
  return ::testing::AssertionFailure() << "not the picture of " << path;
}

}  // namespace gridwright::test
