#include "person/kit.h"

#include <sys/stat.h>

#include <algorithm>
#include <fstream>
#include <iterator>
#include <limits>
#include <random>
#include <string>
#include <vector>

#include "canvas/bitmap.h"
#include "drawings/drawing_record.h"
#include "patterns/pattern_sets.h"
#include "platform/headless/headless_desktop.h"
#include "platform/shared/image_files.h"
#include "session/main_loop.h"

namespace gridwright::person {

namespace fs = std::filesystem;

namespace {

constexpr int kWall = 10;
constexpr Colour kFrame = 16711680, kGround = 8388608;  // blue, a border, and navy, where mazes grow

void put(const fs::path& path, std::string_view bytes) { std::ofstream(path, std::ios::binary) << bytes; }

std::string bytesOf(const fs::path& path) {
  std::ifstream in(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

void fillBox(Bitmap& picture, int left, int top, Size size, Colour colour) {
  for (int y = std::max(top, 0); y < std::min(top + size.height, picture.height); ++y) {
    for (int x = std::max(left, 0); x < std::min(left + size.width, picture.width); ++x) {
      picture.pixels[static_cast<std::size_t>(y) * static_cast<std::size_t>(picture.width) +
                     static_cast<std::size_t>(x)] = colour;
    }
  }
}

/// Cells of ground in a frame one wall wide.
Bitmap room(int columns, int rows) {
  Bitmap picture = plainBitmap((columns + 2) * kWall, (rows + 2) * kWall, kFrame);
  fillBox(picture, kWall, kWall, {columns * kWall, rows * kWall}, kGround);
  return picture;
}

/// Each column of three cells in the next of these colours.
Bitmap striped(const std::vector<Colour>& colours) {
  Bitmap picture = room(static_cast<int>(colours.size()) * 3, 8);
  int left = kWall;
  for (const Colour colour : colours) {
    fillBox(picture, left, kWall, {3 * kWall, 8 * kWall}, colour);
    left += 3 * kWall;
  }
  return picture;
}

std::vector<Colour> halfWayColours() {
  std::vector<Colour> near(kPalette.begin(), kPalette.begin() + 8);
  for (Colour& colour : near) colour ^= 0x010101;
  return near;
}

Bitmap comb() {
  Bitmap picture = room(14, 9);
  for (int column = 2; column < 14; column += 2)
    fillBox(picture, column * kWall, 2 * kWall, {kWall, 8 * kWall}, kFrame);
  return picture;
}

Bitmap soft() {
  Bitmap picture = plainBitmap(90, 70, 0xFFFFFF);
  for (int y = 10; y < 60; ++y) {
    for (int x = 10; x < 80; ++x) fillBox(picture, x, y, {1, 1}, (x * 3) << 16 | (y * 4) << 8 | (x + y));
  }
  return picture;
}

void makePictures(const fs::path& folder) {
  const auto write = [&](const char* name, const Bitmap& picture) {
    writeBitmapFile(picture, folder / name);
  };
  write("room.bmp", room(9, 7));
  write("halls.bmp", striped({kGround, kFrame, 32768, kFrame, 128}));
  write("comb.bmp", comb());
  write("tiny.bmp", room(-1, -1));
  write("wide.bmp", plainBitmap(1100, 20, kGround));
  write("near.bmp", striped(halfWayColours()));
  write("numbers.bmp", striped({300, 301, 302, 331, kDarkGreen, kGround}));
  write("paper.bmp", plainBitmap(60, 60, 0xFFFFFF));
  writePngFile(soft(), folder / "soft.png");
  const std::string whole = bytesOf(folder / "room.bmp");
  put(folder / "cut.bmp", whole.substr(0, whole.size() / 2));
  std::string lying = whole;
  std::fill_n(lying.begin() + 18, 3, '\x7f');  // the width
  put(folder / "lying.bmp", lying);
  put(folder / "words.bmp", "these are words\n");
  put(folder / "empty.bmp", "");
  put(folder / "shape.svg",
      "<svg xmlns='http://www.w3.org/2000/svg' width='60' height='50'>"
      "<circle cx='30' cy='25' r='20' fill='#008000'/></svg>");
  put(folder / "torn.svg", "<svg xmlns='http://www.w3.org/2000/svg'><path d='M0 0L");
  const std::string png = bytesOf(folder / "soft.png");
  put(folder / "cut.png", png.substr(0, png.size() / 2));
}

void makeSteps(const fs::path& folder) {
  put(folder / "good.pat", formatSet({{{1, 3, 1, 4}, {2, 2, 4}, {3, 2, 3}, {4, 1}}}));
  put(folder / "cut.pat", "1\r\n1\r\n");
  put(folder / "turns.pat", formatSet({{{5}, {5, 5}, {5}, {5}}}));
  put(folder / "good.steps", formatSteps({1, 3, 1, 1, 4, 2}));
  put(folder / "turns.steps", formatSteps({5, 5, 5}));
  put(folder / "long.steps", formatSteps(Steps(200, 3)));
  put(folder / "words.steps", "one\r\ntwo,,,,\r\n99999999999999999999\r\n-7\r\n");
  put(folder / "empty.steps", "");
}

/// The program itself saves one.
void saveDrawing(const fs::path& folder) {
  HeadlessOptions options;
  options.size = {130, 100};
  HeadlessDesktop desktop("kit",
                          "seed 1\nclick Command2\nmenu importdrawing\ntype Text8 \"room\"\nenter Text8\n"
                          "menu sdrawing\ntype text1 \"good\"\nenter text1\npumps 3\n",
                          options);
  Program program(desktop, folder);
  try {
    runProgram(program);
  } catch (const ProgramEnd&) {
  }
}

/// Drawings whose records hold what no program has saved.
void makeDrawings(const fs::path& folder) {
  saveDrawing(folder);
  const std::string good = bytesOf(folder / "good.maze");
  put(folder / "cut.maze", good.substr(0, good.size() / 2));
  put(folder / "words.maze", "these are words\n");
  constexpr auto kFar =
      std::to_array<int>({-1, 0, 1, 5, 300, 331, 65535, 1'000'000, -2'000'000'000,
                          std::numeric_limits<int>::max(), std::numeric_limits<int>::min()});
  std::mt19937 random(1);
  for (int number = 0; number < 4; ++number) {
    DrawingRecord drawing = parseDrawing(good).value();
    for (std::size_t at = 0; at < record::count; ++at) {
      const bool stays = at == record::wallWidth || at == record::wallHeight || at == record::mazeKind;
      if (!stays && random() % 4 == 0) drawing.values[at] = kFar[random() % kFar.size()];
    }
    const std::string name = "far" + std::to_string(number);
    put(folder / (name + ".maze"), formatDrawing(drawing));
  }
}

}  // namespace

void makeKit(const fs::path& folder) {
  makePictures(folder);
  makeSteps(folder);
  makeDrawings(folder);
  for (const auto& entry : fs::directory_iterator(folder)) {
    const std::string name = entry.path().filename().string();
    if (std::find(kKitFiles.begin(), kKitFiles.end(), name) == kKitFiles.end()) fs::remove(entry.path());
  }
}

void layOut(const fs::path& kit, const fs::path& folder) {
  constexpr auto kWhole = std::to_array<std::string_view>(
      {"room.bmp", "halls.bmp", "comb.bmp", "near.bmp", "numbers.bmp", "cut.bmp", "words.bmp", "good.maze",
       "good.bmp", "cut.maze", "far0.maze", "far1.maze", "far2.maze", "far3.maze", "good.pat", "turns.pat"});
  for (const std::string_view name : kWhole) fs::copy_file(kit / name, folder / name);
  for (const char* name : {"far0.bmp", "far1.bmp", "far2.bmp", "far3.bmp"})
    fs::copy_file(kit / "room.bmp", folder / name);
  fs::create_directory(folder / "folder.bmp");
  fs::create_symlink("room.bmp", folder / "link.bmp");
  fs::create_symlink("loop.bmp", folder / "loop.bmp");
  fs::create_symlink("nowhere.bmp", folder / "gone.bmp");
  ::mkfifo((folder / "pipe.bmp").c_str(), 0600);
}

}  // namespace gridwright::person
