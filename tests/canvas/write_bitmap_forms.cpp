// Writes every form of bitmap into a folder, and beside each what the program reads out of it: rows from the
// top, three bytes a pixel. Another reader can then be held against it.
//
//   bitmap-forms FOLDER
#include <filesystem>
#include <fstream>
#include <iostream>

#include "canvas/bitmap_decode.h"
#include "canvas/canvas.h"
#include "support/bitmap_forms.h"

namespace {

void write(const std::filesystem::path& path, const std::string& bytes) {
  std::ofstream(path, std::ios::binary) << bytes;
}

std::string bytesOfPixels(const gridwright::Bitmap& picture) {
  std::string bytes;
  for (const gridwright::Colour pixel : picture.pixels) {
    for (const int shift : {0, 8, 16}) bytes += static_cast<char>(pixel >> shift & 255);
  }
  return bytes;
}

}  // namespace

int main(int argc, char** argv) {
  using namespace gridwright;
  if (argc != 2) return 2;
  const std::filesystem::path folder = argv[1];
  std::filesystem::create_directories(folder);
  int refused = 0;
  for (const test::FormedBitmap& file : test::everyWholeBitmap()) {
    const auto picture = decodeBitmapFile(file.bytes, Canvas::kSide);
    if (!picture) {
      std::cerr << file.name << ": " << picture.fault().words << '\n';
      ++refused;
      continue;
    }
    write(folder / (file.name + ".bmp"), file.bytes);
    write(folder / (file.name + ".rgb"), bytesOfPixels(picture.value()));
  }
  return refused == 0 ? 0 : 1;
}
