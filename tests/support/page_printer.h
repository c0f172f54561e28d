// Documents of pages, printed for a test and looked at by other programs.
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <sstream>
#include <string>

#include "platform/shared/image_files.h"
#include "support/offscreen.h"
#include "support/pictures.h"
#include "support/printed_pages.h"
#include "support/work_folders.h"

namespace gridwright::test {

/// A page as busy as a maze: no two neighbours need be alike.
inline Bitmap motleyPage(int width, int height) {
  Bitmap page = plainBitmap(width, height, 0);
  std::uint32_t value = 7;
  for (Colour& pixel : page.pixels) {
    value = value * 1664525U + 1013904223U;
    pixel = kPalette[value >> 28];
  }
  return page;
}

/// As good as the same: a viewer that scales a plain picture may end a step beside its colour.
inline bool isAbout(Colour pixel, Colour colour) {
  for (const int shift : {0, 8, 16}) {
    if (std::abs((pixel >> shift & 255) - (colour >> shift & 255)) > 1) return false;
  }
  return true;
}

/// The box of all pixels of a colour; empty when `left` is greater than `right`.
inline Square boxOf(const Bitmap& picture, Colour colour) {
  Square box{picture.width, picture.height, -1, -1};
  for (int y = 0; y < picture.height; ++y) {
    for (int x = 0; x < picture.width; ++x) {
      if (!isAbout(picture.at(x, y), colour)) continue;
      box = {std::min(box.left, x), std::min(box.top, y), std::max(box.right, x), std::max(box.bottom, y)};
    }
  }
  return box;
}

/// Words on a page need fonts, and those an application.
class PagePrinter : public ::testing::Test {
 public:
  static void SetUpTestSuite() { beginOffscreen(); }

 protected:
  /// The page at 72 pixels an inch, as another program shows it.
  Bitmap printed(const Bitmap& picture, const PageLook& look) {
    PdfDocument document(temp_.path() / "out.pdf");
    EXPECT_TRUE(document.addPage(picture, look));
    EXPECT_TRUE(document.finish());
    EXPECT_EQ(outputOf("pdftoppm -r 72 '" + file() + "' '" + temp_.path().string() + "/sheet'"), "");
    const bool isSpread = look.setup.tiles.count() > 1;
    return isSpread ? Bitmap{} : readPpm(temp_.path() / "sheet-1.ppm");
  }
  /// One of its sheets, from 1.
  Bitmap sheetAt(int sheet, int dots) {
    const std::string number = std::to_string(sheet);
    EXPECT_EQ(outputOf("pdftoppm -r " + std::to_string(dots) + " -singlefile -f " + number + " -l " + number +
                       " '" + file() + "' '" + temp_.path().string() + "/one'"),
              "");
    return readPpm(temp_.path() / "one.ppm");
  }
  /// Its words in reading order, one blank between two.
  std::string words() {
    std::string flat;
    std::istringstream in(outputOf("pdftotext -layout '" + file() + "' -"));
    for (std::string word; in >> word;) flat += flat.empty() ? word : " " + word;
    return flat;
  }
  std::string file() { return (temp_.path() / "out.pdf").string(); }

  TempFolder temp_;
};

}  // namespace gridwright::test
