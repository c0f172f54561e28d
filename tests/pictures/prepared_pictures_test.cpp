// Every picture that was brought, made ready: which colours come out, what stays closed, how it looks.
#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>
#include <map>
#include <sstream>

#include "canvas/bitmap_decode.h"
#include "canvas/bitmap_encode.h"
#include "canvas/canvas.h"
#include "canvas/free_cell.h"
#include "pictures/brought.h"
#include "pictures/golden.h"
#include "pictures/prepare.h"
#include "pictures/ready.h"
#include "platform/pictures/leptonica_work.h"
#include "support/pictures.h"

namespace gridwright::test {
namespace {

Prepared madeReady(const std::string& name, const PrepareSettings& settings = {}, PrepareGround ground = {}) {
  LeptonicaWork work;
  const Picture picture = readBrought(name);
  if (ground.canvas == Size{}) ground.canvas = picture.whole.size();
  return prepare(picture, settings, ground, work);
}

/// Areas of free pixels, by the side, that hold no free cell, with plain loops.
int plainCountOfSmallAreas(const Bitmap& picture, const CellGrid& grid) {
  const ColourSets sets = startingSets();
  const auto isFree = [&](int x, int y) {
    return x >= 0 && y >= 0 && x < picture.width && y < picture.height && sets.isFree(picture.at(x, y));
  };
  std::vector<int> area(picture.pixels.size(), -1);
  std::vector<bool> holds;
  for (int y = 0; y < picture.height; ++y) {
    for (int x = 0; x < picture.width; ++x) {
      const auto at = [&](int px, int py) -> int& {
        return area[static_cast<std::size_t>(py) * static_cast<std::size_t>(picture.width) +
                    static_cast<std::size_t>(px)];
      };
      if (!isFree(x, y) || at(x, y) >= 0) continue;
      const int number = static_cast<int>(holds.size());
      holds.push_back(false);
      std::vector<std::pair<int, int>> open{{x, y}};
      at(x, y) = number;
      while (!open.empty()) {
        const auto [px, py] = open.back();
        open.pop_back();
        for (const auto& [nx, ny] : {std::pair{px - 1, py}, {px + 1, py}, {px, py - 1}, {px, py + 1}}) {
          if (!isFree(nx, ny) || at(nx, ny) >= 0) continue;
          at(nx, ny) = number;
          open.emplace_back(nx, ny);
        }
      }
    }
  }
  for (int y = grid.wallHeight; y <= grid.bottom; y += grid.stepY) {
    for (int x = grid.wallWidth; x <= grid.right; x += grid.stepX) {
      bool whole = true;
      for (int dy = 0; dy < grid.wallHeight; ++dy) {
        for (int dx = 0; dx < grid.wallWidth; ++dx) whole = whole && isFree(x + dx, y + dy);
      }
      if (whole)
        holds[static_cast<std::size_t>(
            area[static_cast<std::size_t>(y) * static_cast<std::size_t>(picture.width) +
                 static_cast<std::size_t>(x)])] = true;
    }
  }
  return static_cast<int>(std::count(holds.begin(), holds.end(), false));
}

class EveryPicture : public ::testing::TestWithParam<std::string> {};

TEST_P(EveryPicture, ComesOutInPaletteColoursWithoutWhiteOnPaper) {
  const std::array grounds = {PrepareGround{}, PrepareGround{{800, 600}, 5, MazeKind::threeD},
                              PrepareGround{{333, 500}, 23, MazeKind::pipe}};
  for (const PrepareGround& ground : grounds) {
    for (const Outlines outlines : {Outlines::automatic, Outlines::none, Outlines::thick}) {
      PrepareSettings settings;
      settings.outlines = outlines;
      const Prepared prepared = madeReady(GetParam(), settings, ground);
      const Bitmap& picture = prepared.picture;
      ASSERT_TRUE(isReady(picture, startingSets()));
      for (int y = 0; y < picture.height; ++y) {
        for (int x = 0; x < picture.width; ++x) {
          const int wall = ground.wallSize;
          if (x >= wall && y >= wall && x < picture.width - wall && y < picture.height - wall) continue;
          ASSERT_EQ(picture.at(x, y), kPaper) << x << ", " << y << " lies in the frame";
        }
      }
    }
  }
}

TEST_P(EveryPicture, HasItsTickedColoursAmongTheBackgroundsAndTheOthersAmongTheBorders) {
  for (const int colours : {2, 6, 16}) {
    PrepareSettings settings;
    settings.colours = colours;
    settings.grow = {1, 3};
    const Prepared prepared = madeReady(GetParam(), settings);
    const ColourSets sets = startingSets();
    ASSERT_LE(prepared.found.size(), static_cast<std::size_t>(colours));
    std::map<Colour, int> taken;
    for (std::size_t i = 0; i < prepared.found.size(); ++i) {
      const FoundColour& found = prepared.found[i];
      EXPECT_EQ(found.grows, i == 0 || i == 2);
      EXPECT_TRUE(found.grows ? sets.isFree(found.becomes) : sets.isBorder(found.becomes));
      EXPECT_TRUE(i == 0 || found.area <= prepared.found[i - 1].area) << "the largest first";
      ++taken[found.becomes];
    }
    if (prepared.found.size() <= 6) {
      for (const auto& [colour, times] : taken) EXPECT_EQ(times, 1) << colour;
    }
  }
}

TEST_P(EveryPicture, CountsEveryAreaTooSmallForACell) {
  for (const MazeKind kind : {MazeKind::regular, MazeKind::pipe}) {
    const PrepareGround ground{{600, 450}, 14, kind};
    const Prepared prepared = madeReady(GetParam(), {}, ground);
    EXPECT_EQ(prepared.count.tooSmall,
              plainCountOfSmallAreas(prepared.picture, gridOn(ground.canvas, ground.wallSize, kind)));
  }
}

TEST_P(EveryPicture, ComesOutTheSameEachTime) {
  EXPECT_EQ(encodeBitmapFile(madeReady(GetParam()).picture), encodeBitmapFile(madeReady(GetParam()).picture));
}

TEST_P(EveryPicture, IsReadBackToTheByte) {
  const Bitmap picture = madeReady(GetParam()).picture;
  const std::string bytes = encodeBitmapFile(picture);
  const auto again = decodeBitmapFile(bytes, Canvas::kSide);
  ASSERT_TRUE(again);
  EXPECT_EQ(encodeBitmapFile(again.value()), bytes);
}

TEST_P(EveryPicture, LooksAsItDid) { EXPECT_TRUE(looksAsItDid(madeReady(GetParam()).picture, GetParam())); }

INSTANTIATE_TEST_SUITE_P(Brought, EveryPicture, ::testing::ValuesIn(allBrought()),
                         [](const auto& one) { return asWord(one.param); });

struct Regions {
  Square subject;
  std::vector<std::pair<int, int>> points;
};

Regions regionsOf(const std::string& name) {
  std::istringstream in(bytesOf(brought(name.substr(0, name.find('.')) + ".regions")));
  Regions regions;
  in >> regions.subject.left >> regions.subject.top >> regions.subject.right >> regions.subject.bottom;
  for (int x = 0, y = 0; in >> x >> y;) regions.points.emplace_back(x, y);
  return regions;
}

/// Pixels that a maze could spread over from a point.
std::vector<bool> spreadFrom(const Bitmap& picture, int x, int y) {
  const ColourSets sets = startingSets();
  std::vector<bool> reached(picture.pixels.size(), false);
  std::vector<std::pair<int, int>> open{{x, y}};
  while (!open.empty()) {
    const auto [px, py] = open.back();
    open.pop_back();
    const auto at =
        static_cast<std::size_t>(py) * static_cast<std::size_t>(picture.width) + static_cast<std::size_t>(px);
    if (reached[at] || !sets.isFree(picture.pixels[at])) continue;
    reached[at] = true;
    if (px > 0) open.emplace_back(px - 1, py);
    if (py > 0) open.emplace_back(px, py - 1);
    if (px + 1 < picture.width) open.emplace_back(px + 1, py);
    if (py + 1 < picture.height) open.emplace_back(px, py + 1);
  }
  return reached;
}

class EveryOutlinedPicture : public ::testing::TestWithParam<std::string> {};

TEST_P(EveryOutlinedPicture, KeepsItsClosedRegionsClosed) {
  const Regions regions = regionsOf(GetParam());
  ASSERT_GE(regions.points.size(), 2U);
  const Picture brought = readBrought(GetParam());
  LeptonicaWork work;
  Preparation preparation(brought, work);
  for (const Size canvas : {brought.own, Size{1000, 1000}, Size{420, 400}}) {
    const PrepareGround ground{canvas, 8, MazeKind::regular};
    for (const int detail : {1, 3, 5}) {
      for (const int colours : {2, 3, 6, 16}) {
        PrepareSettings settings;
        settings.detail = detail;
        settings.colours = colours;
        const Bitmap picture = preparation.make(settings, ground).picture;
        Square subject{picture.width, picture.height, -1, -1};
        for (int y = 0; y < picture.height; ++y) {
          for (int x = 0; x < picture.width; ++x) {
            if (picture.at(x, y) == kPaper) continue;
            subject = {std::min(subject.left, x), std::min(subject.top, y), std::max(subject.right, x),
                       std::max(subject.bottom, y)};
          }
        }
        const auto mapped = [](int value, int from, int to, int newFrom, int newTo) {
          return newFrom + static_cast<int>(std::lround(static_cast<double>(value - from) *
                                                        (newTo - newFrom) / (to - from)));
        };
        std::vector<std::pair<int, int>> points;
        for (const auto& [x, y] : regions.points) {
          points.emplace_back(
              mapped(x, regions.subject.left, regions.subject.right, subject.left, subject.right),
              mapped(y, regions.subject.top, regions.subject.bottom, subject.top, subject.bottom));
        }
        for (std::size_t i = 0; i < points.size(); ++i) {
          const auto reached = spreadFrom(picture, points[i].first, points[i].second);
          ASSERT_GT(std::count(reached.begin(), reached.end(), true), 100)
              << "point " << i << ", detail " << detail << ", " << colours << " colours, canvas "
              << picture.width;
          for (std::size_t j = 0; j < points.size(); ++j) {
            if (i == j) continue;
            ASSERT_FALSE(
                reached[static_cast<std::size_t>(points[j].second * picture.width + points[j].first)])
                << i << " reaches " << j << ", detail " << detail << ", " << colours << " colours, canvas "
                << picture.width;
          }
        }
      }
    }
  }
}

INSTANTIATE_TEST_SUITE_P(Brought, EveryOutlinedPicture,
                         ::testing::Values("thin_lines.png", "soft_lines.png", "colouring_page.png",
                                           "scan.jpg"),
                         [](const auto& one) { return asWord(one.param); });

}  // namespace
}  // namespace gridwright::test
