// A folder with pictures, in which books are made by whole runs.
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <sstream>
#include <string>
#include <vector>

#include "platform/book/book_list.h"
#include "platform/book/run_book.h"
#include "platform/shared/image_files.h"
#include "support/offscreen.h"
#include "support/pictures.h"
#include "support/work_folders.h"

namespace gridwright::test {

using Words = std::vector<std::string>;

struct Ended {
  int status = 0;
  std::string out, err;
};

class AShop : public ::testing::Test {
 public:
  static void SetUpTestSuite() { beginOffscreen(); }

 protected:
  AShop() {
    paint("room", {"..........", "..........", ".....,,,,,", ".....,,,,,", "..........", ".........."});
    paint("hall", {"............", "............", "...######...", "...#....#...", "...######...",
                   "............", "............"});
    paint("closet", {"#####", "#..##", "#####"});
  }
  void paint(const std::string& name, const Text& cells) const {
    ASSERT_TRUE(writeBitmapFile(drawing(cells), folder.path() / (name + ".bmp")));
  }
  [[nodiscard]] std::string in(const std::string& name) const { return (folder.path() / name).string(); }
  /// Names of files that the folder holds, as words of a command line, become paths.
  Ended run(Words words) const {
    for (std::string& word : words) {
      if (word.find('.') != std::string::npos && word.front() != '-') word = in(word);
    }
    std::ostringstream out, err;
    const int status = book::runBook(words, {out, err, false});
    return {status, out.str(), err.str()};
  }
  [[nodiscard]] Words files() const {
    Words names;
    for (const auto& entry : std::filesystem::directory_iterator(folder.path()))
      names.push_back(entry.path().filename().string());
    std::sort(names.begin(), names.end());
    return names;
  }
  [[nodiscard]] book::BookList list(const std::string& name = "l.json") const {
    const auto read = book::parseList(folder.get(name));
    EXPECT_TRUE(read) << read.fault().words;
    return read ? read.value() : book::BookList{};
  }
  TempFolder folder;
};

}  // namespace gridwright::test
