#include "pictures/regions.h"

#include <algorithm>
#include <array>
#include <cstddef>

#include "canvas/canvas.h"
#include "canvas/free_cell.h"
#include "pictures/pixel_walk.h"

namespace gridwright {

namespace {

/// The colour at (1, 1) is a border before a maze is made, whatever its swatch says.
ColourSets setsBeforeMaze(const BitmapView& picture, ColourSets sets) {
  if (picture.width < 2 || picture.height < 2) return sets;
  const auto& background = sets.background();
  const auto* slot = std::find(background.begin(), background.end(), picture.row(1)[1] & kColourBits);
  if (slot != background.end()) sets.makeFrameBorder(static_cast<int>(slot - background.begin()));
  sets.setExtraBackgroundByRule();
  return sets;
}

/// The cells of a grid by column and row, each with a number: 0 not free, -1 free, then its region.
struct Cells {
  int columns = 0, rows = 0;
  std::vector<int> numbers;

  [[nodiscard]] std::size_t index(int column, int row) const {
    return static_cast<std::size_t>(row) * static_cast<std::size_t>(columns) +
           static_cast<std::size_t>(column);
  }
};

Cells freeCells(const BitmapView& picture, const ColourSets& sets, const CellGrid& grid) {
  Canvas canvas;
  canvas.resize({picture.width, picture.height});
  canvas.setPicture(picture);
  const Pixels pixels(canvas, sets);
  Cells cells;
  cells.columns = (grid.right - grid.wallWidth) / grid.stepX + 1;
  cells.rows = (grid.bottom - grid.wallHeight) / grid.stepY + 1;
  cells.numbers.reserve(static_cast<std::size_t>(cells.columns) * static_cast<std::size_t>(cells.rows));
  grid.first([&](Corner at) {
    cells.numbers.push_back(isFreeCell(pixels, grid, at) ? -1 : 0);
    return false;
  });
  return cells;
}

/// Numbers the regions. \returns how many there are.
int numberRegions(Cells& cells) {
  int regions = 0;
  for (std::size_t i = 0; i < cells.numbers.size(); ++i) {
    if (cells.numbers[i] != -1) continue;
    ++regions;
    floodFrom(
        {cells.columns, cells.rows}, i,
        [&](std::size_t /*from*/, std::size_t to) { return cells.numbers[to] == -1; },
        [&](std::size_t at) { cells.numbers[at] = regions; });
  }
  return regions;
}

/// Each free pixel that a cell covers gets the number of its region.
void coverWithCells(RegionMap& map, const Cells& cells, const CellGrid& grid, int width) {
  for (int row = 0; row < cells.rows; ++row) {
    for (int column = 0; column < cells.columns; ++column) {
      const int number = cells.numbers[cells.index(column, row)];
      if (number == 0) continue;
      const int left = grid.wallWidth + column * grid.stepX;
      const int top = grid.wallHeight + row * grid.stepY;
      for (int y = top; y < top + grid.wallHeight; ++y) {
        const auto begin = map.regions.begin() + std::ptrdiff_t{y} * width + left;
        std::fill(begin, begin + grid.wallWidth, number);
      }
    }
  }
}

/// Marks the areas in which no cell lies. \returns how many there are.
int markSmall(RegionMap& map, const std::vector<std::uint8_t>& free, Size size) {
  constexpr std::uint8_t kSeen = 2;
  std::vector<std::uint8_t> left = free;
  std::vector<std::size_t> area;
  int small = 0;
  for (std::size_t i = 0; i < left.size(); ++i) {
    if (left[i] != 1) continue;
    area.clear();
    bool holdsCell = false;
    floodFrom(
        size, i, [&](std::size_t /*from*/, std::size_t to) { return left[to] == 1; },
        [&](std::size_t at) {
          left[at] = kSeen;
          area.push_back(at);
          holdsCell = holdsCell || map.regions[at] != 0;
        });
    if (holdsCell) continue;
    ++small;
    for (const std::size_t at : area) map.small[at] = 1;
  }
  return small;
}

}  // namespace

RegionMap mapRegions(const Bitmap& picture, const ColourSets& given, const CellGrid& grid) {
  RegionMap map;
  map.regions.assign(picture.pixels.size(), 0);
  map.small.assign(picture.pixels.size(), 0);
  if (picture.pixels.empty()) return map;
  const ColourSets sets = setsBeforeMaze(picture, given);
  Cells cells = freeCells(picture, sets, grid);
  map.count.cells = static_cast<int>(std::count(cells.numbers.begin(), cells.numbers.end(), -1));
  map.count.regions = numberRegions(cells);
  coverWithCells(map, cells, grid, picture.width);
  std::vector<std::uint8_t> free(picture.pixels.size());
  std::transform(picture.pixels.begin(), picture.pixels.end(), free.begin(),
                 [&](Colour pixel) { return std::uint8_t{sets.isFree(pixel)}; });
  map.count.tooSmall = markSmall(map, free, {picture.width, picture.height});
  return map;
}

RegionCount countRegions(const Bitmap& picture, const ColourSets& sets, const CellGrid& grid) {
  return mapRegions(picture, sets, grid).count;
}

std::optional<Corner> firstCellOfLargest(const BitmapView& picture, const ColourSets& sets,
                                         const CellGrid& grid) {
  if (picture.isEmpty()) return std::nullopt;
  Cells cells = freeCells(picture, setsBeforeMaze(picture, sets), grid);
  std::vector<int> sizes(static_cast<std::size_t>(numberRegions(cells)) + 1);
  for (const int number : cells.numbers) sizes[static_cast<std::size_t>(number)] += number != 0;
  const auto largest = static_cast<int>(std::max_element(sizes.begin(), sizes.end()) - sizes.begin());
  const auto first = std::find(cells.numbers.begin(), cells.numbers.end(), largest);
  if (largest == 0 || first == cells.numbers.end()) return std::nullopt;
  const auto place = static_cast<int>(first - cells.numbers.begin());
  return Corner{grid.wallWidth + place % cells.columns * grid.stepX,
                grid.wallHeight + place / cells.columns * grid.stepY};
}

namespace {

/// Areas without a cell are red, the colour of the thing to look at; no region is.
constexpr auto kRegionColours =
    std::to_array<Colour>({0xE0A030, 0x40B050, 0xC050A0, 0x30A0D0, 0xA0A020, 0x8060E0, 0x60C0A0, 0xD08080});
constexpr Colour kTooSmall = 0x0000FF;

}  // namespace

Bitmap inColours(const RegionMap& map, Size size) {
  Bitmap colours = plainBitmap(size.width, size.height, kOutside);
  for (std::size_t i = 0; i < colours.pixels.size(); ++i) {
    if (map.small[i] != 0) colours.pixels[i] = kTooSmall;
    if (map.regions[i] == 0) continue;
    colours.pixels[i] = kRegionColours[static_cast<std::size_t>(map.regions[i] - 1) % kRegionColours.size()];
  }
  return colours;
}

namespace {

std::string withCommas(int number) {
  std::string digits = std::to_string(number);
  for (auto at = static_cast<std::ptrdiff_t>(digits.size()) - 3; at > 0; at -= 3) {
    digits.insert(static_cast<std::size_t>(at), 1, ',');
  }
  return digits;
}

}  // namespace

std::string regionLine(const RegionCount& count) {
  return withCommas(count.cells) + " cells in " + withCommas(count.regions) + " regions; " +
         withCommas(count.tooSmall) + " areas too small for a cell";
}

}  // namespace gridwright
