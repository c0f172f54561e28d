// What another program finds in a printed document: every pixel of the Canvas, and nothing lossy.
#include <gtest/gtest.h>

#include <array>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>

#include "canvas/canvas.h"
#include "platform/shared/image_files.h"
#include "support/pictures.h"
#include "support/work_folders.h"

namespace gridwright::test {
namespace {

/// A page as busy as a maze: no two neighbours need be alike.
Bitmap motleyPage(int width, int height) {
  Bitmap page = plainBitmap(width, height, 0);
  std::uint32_t value = 7;
  for (Colour& pixel : page.pixels) {
    value = value * 1664525U + 1013904223U;
    pixel = kPalette[value >> 28];
  }
  return page;
}

/// A picture as pdfimages writes it: "P6", sizes, 255, then three bytes a pixel.
Bitmap readPpm(const std::filesystem::path& path) {
  std::ifstream in(path, std::ios::binary);
  std::string magic;
  int width = 0;
  int height = 0;
  int most = 0;
  in >> magic >> width >> height >> most;
  in.get();
  Bitmap picture = plainBitmap(width, height, 0);
  for (Colour& pixel : picture.pixels) {
    std::array<char, 3> rgb{};
    in.read(rgb.data(), 3);
    const auto channel = [&](std::size_t i) {
      return static_cast<Colour>(static_cast<unsigned char>(rgb[i]));
    };
    pixel = channel(0) | channel(1) << 8 | channel(2) << 16;
  }
  return picture;
}

std::string outputOf(const std::string& command) {
  FILE* pipe = popen(command.c_str(), "r");
  std::string output;
  std::array<char, 4096> buffer{};
  for (std::size_t got = 0; (got = fread(buffer.data(), 1, buffer.size(), pipe)) > 0;)
    output.append(buffer.data(), got);
  return pclose(pipe) == 0 ? output : "failed: " + command;
}

TEST(APrintedPage, HoldsTheCanvasPixelForPixelWhenAnotherProgramReadsIt) {
  const TempFolder temp;
  const std::array pages = {motleyPage(800, 600), motleyPage(333, 777)};
  PdfDocument document(temp.path() / "out.pdf");
  for (const Bitmap& page : pages) ASSERT_TRUE(document.addPage(page));
  ASSERT_TRUE(document.finish());

  const std::string folder = temp.path().string();
  EXPECT_NE(outputOf("pdfinfo '" + folder + "/out.pdf'").find("Pages:           2"), std::string::npos);
  ASSERT_EQ(outputOf("pdfimages '" + folder + "/out.pdf' '" + folder + "/page'"), "");
  for (std::size_t i = 0; i < pages.size(); ++i) {
    EXPECT_TRUE(samePicture(readPpm(temp.path() / ("page-00" + std::to_string(i) + ".ppm")), pages[i]));
  }
}

TEST(APrintedPage, FillsThePaperInOneDirectionAndKeepsItsShape) {
  const TempFolder temp;
  PdfDocument document(temp.path() / "out.pdf");
  ASSERT_TRUE(document.addPage(plainBitmap(800, 600, kPalette[1])));
  ASSERT_TRUE(document.finish());
  const std::string folder = temp.path().string();
  // 72 pixels an inch: A4 lying on its side is 842 by 595, less 28 of margin all round.
  ASSERT_EQ(outputOf("pdftoppm -r 72 '" + folder + "/out.pdf' '" + folder + "/sheet'"), "");
  const Bitmap sheet = readPpm(temp.path() / "sheet-1.ppm");
  ASSERT_EQ(sheet.width, 842);
  ASSERT_EQ(sheet.height, 595);
  const auto isInk = [&](int x, int y) { return sheet.at(x, y) == kPalette[1]; };
  EXPECT_TRUE(isInk(421, 31) && isInk(421, 563)) << "as high as the printable area";
  EXPECT_FALSE(isInk(421, 25) || isInk(421, 570));
  EXPECT_TRUE(isInk(69, 297) && isInk(772, 297)) << "four to three";
  EXPECT_FALSE(isInk(60, 297) || isInk(781, 297));
}

}  // namespace
}  // namespace gridwright::test
