// What other programs find in a document.
#pragma once

#include <array>
#include <cstddef>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <string>

#include "canvas/bitmap.h"

namespace gridwright::test {

/// A picture as pdfimages and pdftoppm write it: "P6", sizes, 255, then three bytes a pixel.
inline Bitmap readPpm(const std::filesystem::path& path) {
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

/// What a command prints on standard output.
inline std::string outputOf(const std::string& command) {
  FILE* pipe = popen(command.c_str(), "r");
  std::string output;
  std::array<char, 4096> buffer{};
  for (std::size_t got = 0; (got = fread(buffer.data(), 1, buffer.size(), pipe)) > 0;)
    output.append(buffer.data(), got);
  return pclose(pipe) == 0 ? output : "failed: " + command;
}

}  // namespace gridwright::test
