// Writes the pictures that journeys begin with into a folder.
#include "support/pictures.h"

#include <array>
#include <cmath>
#include <filesystem>
#include <fstream>
#include <iostream>

#include "platform/shared/image_files.h"
#include "support/bitmap_files.h"

namespace {

using namespace gridwright;
using namespace gridwright::test;

/// A disc with two holes and a bar across, no edge of it on the grid.
Bitmap silhouette() {
  Bitmap picture = plainBitmap(300, 220, kBlue);
  const auto within = [](int x, int y, int cx, int cy, double radius) {
    return std::hypot(x - cx, y - cy) < radius;
  };
  for (int y = 0; y < picture.height; ++y) {
    for (int x = 0; x < picture.width; ++x) {
      const bool body = within(x, y, 150, 110, 103.5);
      const bool hole = within(x, y, 110, 80, 22.5) || within(x, y, 190, 80, 22.5);
      const bool bar = std::abs(y - 150) < 6 && std::abs(x - 150) < 50;
      if (body && !hole && !bar) pixelAt(picture, x, y) = kNavy;
    }
  }
  return picture;
}

/// A disc with a soft rim on paper that is almost white: each pixel is as dark as the part of it inside.
Bitmap softDisc() {
  constexpr int kParts = 4;
  Bitmap picture = plainBitmap(300, 220, 0xFEFEFE);
  for (int y = 0; y < picture.height; ++y) {
    for (int x = 0; x < picture.width; ++x) {
      int inside = 0;
      for (int part = 0; part < kParts * kParts; ++part) {
        const int column = part % kParts;
        const int row = part / kParts;
        const double dx = x + (column + 0.5) / kParts - 150.0;
        const double dy = y + (row + 0.5) / kParts - 110.0;
        inside += std::hypot(dx, dy) < 103.5 ? 1 : 0;
      }
      const auto blend = [&](int paper, int ink) {
        return (paper * (kParts * kParts - inside) + ink * inside) / (kParts * kParts);
      };
      pixelAt(picture, x, y) = blend(254, 128) * 0x10000 + blend(254, 0) * 0x101;
    }
  }
  return picture;
}

void writeBytes(const std::filesystem::path& path, const std::string& bytes) {
  std::ofstream(path, std::ios::binary) << bytes;
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 2) return 2;
  const std::filesystem::path folder = argv[1];
  const Bitmap room = drawing(Text(8, std::string(12, '.')));
  const auto pictures = std::to_array<std::pair<const char*, Bitmap>>({
      {"room.bmp", room},
      {"navy.bmp", plainBitmap(130, 90, kNavy)},
      {"two.bmp", drawing({"#########", "#.#####.#", "#########", "#########"})},
      {"regions.bmp", drawing({"....#....##....", "....#....##....", "....#....##....", "....#....##....",
                               "###############", "....########...", "....########..."})},
      {"colours.bmp",
       drawing({"....,,,,oooo", "....,,,,oooo", "....,,,,oooo", ".,.,.,.,.o.o", "dddddddddddd"})},
      {"silhouette.bmp", silhouette()},
      {"soft.bmp", softDisc()},
  });
  for (const auto& [name, picture] : pictures) {
    if (!writeBitmapFile(picture, folder / name)) {
      std::cerr << "cannot be written: " << folder / name << '\n';
      return 1;
    }
  }
  const std::string whole = fileOf(room, {24});
  std::string lying = whole;
  poke(lying, 18, 13'000);
  writeBytes(folder / "cut.bmp", whole.substr(0, whole.size() / 2));
  writeBytes(folder / "lying.bmp", lying);
  writeBytes(folder / "words.bmp", "This is a text.\n");
  writeBytes(folder / "photo.png", "\x89PNG\r\n");
  writeBytes(folder / "coded.bmp", fileOf(room, {8, false, false, true}));
  std::filesystem::create_directory(folder / "folder.bmp");
  return 0;
}
