// The pictures that the script beside this file has painted, and what the tests ask of them.
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

#include "pictures/picture.h"
#include "platform/pictures/read_picture.h"

namespace gridwright::test {

inline std::filesystem::path brought(const std::string& name) {
  return std::filesystem::path(GRIDWRIGHT_BROUGHT) / name;
}

/// All of them, by name.
inline std::vector<std::string> allBrought() {
  std::vector<std::string> names;
  for (const auto& entry : std::filesystem::directory_iterator(GRIDWRIGHT_BROUGHT)) {
    if (entry.path().has_extension() && entry.path().extension() != ".regions") {
      names.push_back(entry.path().filename().string());
    }
  }
  std::sort(names.begin(), names.end());
  return names;
}

inline Picture readBrought(const std::string& name) {
  auto picture = readPicture(brought(name), {1000, 1000});
  EXPECT_TRUE(picture) << (picture ? "" : picture.fault().words);
  return picture ? picture.value() : Picture{};
}

inline std::string bytesOf(const std::filesystem::path& path) {
  std::ifstream in(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

/// A name as a test may be called.
inline std::string asWord(std::string name) {
  std::replace_if(
      name.begin(), name.end(), [](char c) { return std::isalnum(static_cast<unsigned char>(c)) == 0; }, '_');
  return name;
}

}  // namespace gridwright::test
