#include "pictures/harden.h"

#include <algorithm>
#include <array>
#include <cstdint>

#include "pictures/pixel_walk.h"

namespace gridwright {

namespace {

constexpr int kFaintest = 32;   // a channel: how far from what is around it a line stands at least
constexpr int kAboveNoise = 4;  // and how many times further than the picture's pixels do for the most part
constexpr int kFlat = 20;       // a channel: colours that near make no edge

/// The picture's noise: how far, a channel, its pixels lie from what is around them, for the most part.
int noiseOf(const Bitmap& picture, const Bitmap& around) {
  std::array<std::size_t, 256> counts{};
  for (std::size_t at = 0; at < picture.pixels.size(); ++at) {
    ++counts.at(static_cast<std::size_t>(channelsApart(picture.pixels[at], around.pixels[at])));
  }
  std::size_t seen = 0;
  int noise = 0;
  while ((seen += counts.at(static_cast<std::size_t>(noise))) * 2 < picture.pixels.size()) ++noise;
  return noise;
}

/// The darkest or the lightest of a pixel and its neighbours.
Colour extremeAround(const Bitmap& picture, int x, int y, bool darkest) {
  Colour best = picture.at(x, y);
  for (int ny = std::max(0, y - 1); ny <= std::min(picture.height - 1, y + 1); ++ny) {
    for (int nx = std::max(0, x - 1); nx <= std::min(picture.width - 1, x + 1); ++nx) {
      const Colour colour = picture.at(nx, ny);
      const int difference = brightnessOf(colour) - brightnessOf(best);
      if (darkest ? difference < 0 : difference > 0) best = colour;
    }
  }
  return best;
}

int squaresApart(Colour one, Colour other) {
  const int red = (one & 0xFF) - (other & 0xFF);
  const int green = (one >> 8 & 0xFF) - (other >> 8 & 0xFF);
  const int blue = (one >> 16 & 0xFF) - (other >> 16 & 0xFF);
  return red * red + green * green + blue * blue;
}

/// The nine colours of a pixel and its neighbours; at the edge the pixel stands for those that are missing.
std::array<Colour, 9> around(const Bitmap& picture, std::size_t at) {
  const int width = picture.width;
  const int x = static_cast<int>(at % static_cast<std::size_t>(width));
  const int y = static_cast<int>(at / static_cast<std::size_t>(width));
  std::array<Colour, 9> colours{};
  if (x > 0 && y > 0 && x + 1 < width && y + 1 < picture.height) {
    const Colour* row = picture.pixels.data() + at - width - 1;
    for (std::size_t i = 0; i < 9; i += 3, row += width) std::copy(row, row + 3, colours.begin() + i);
    return colours;
  }
  std::size_t i = 0;
  for (int ny = y - 1; ny <= y + 1; ++ny) {
    for (int nx = x - 1; nx <= x + 1; ++nx) {
      const bool inside = nx >= 0 && ny >= 0 && nx < width && ny < picture.height;
      colours.at(i++) = inside ? picture.at(nx, ny) : picture.pixels[at];
    }
  }
  return colours;
}

Colour furthest(const std::array<Colour, 9>& colours, Colour from) {
  return *std::max_element(colours.begin(), colours.end(), [&](Colour one, Colour other) {
    return squaresApart(one, from) < squaresApart(other, from);
  });
}

/// The side of the edge that the pixel in the middle is nearer to.
Colour nearerSide(const std::array<Colour, 9>& colours) {
  const Colour own = colours[4];
  const Colour one = furthest(colours, own);
  const Colour other = furthest(colours, one);
  return squaresApart(own, one) < squaresApart(own, other) ? one : other;
}

/// Where two neighbours by a side differ: an edge runs there, or near.
std::vector<std::size_t> edgesOf(const Bitmap& picture) {
  const Size size{picture.width, picture.height};
  std::vector<std::uint8_t> near(picture.pixels.size(), 0);
  const auto mark = [&](int x, int y) {
    if (x >= 0 && y >= 0 && x < size.width && y < size.height) near[placeOf(size, x, y)] = 1;
  };
  for (int y = 0; y < size.height; ++y) {
    for (int x = 0; x < size.width; ++x) {
      const Colour colour = picture.at(x, y);
      const auto differs = [&](int nx, int ny) {
        const Colour next = picture.at(nx, ny);
        return next != colour && channelsApart(next, colour) > kFlat / 2;
      };
      if (x + 1 < size.width && differs(x + 1, y)) {
        for (int dx = -1; dx <= 2; ++dx) mark(x + dx, y);
      }
      if (y + 1 < size.height && differs(x, y + 1)) {
        for (int dy = -1; dy <= 2; ++dy) mark(x, y + dy);
      }
    }
  }
  std::vector<std::size_t> places;
  for (std::size_t at = 0; at < near.size(); ++at) {
    if (near[at] != 0) places.push_back(at);
  }
  return places;
}

}  // namespace

Bitmap withoutNoise(const Bitmap& picture, int side, int speck, PictureWork& work) {
  Bitmap smooth = work.smoothed(picture, side);
  const Size size{picture.width, picture.height};
  const int least = std::max(kFaintest, kAboveNoise * noiseOf(picture, smooth));
  Mask thin(picture.pixels.size());
  for (std::size_t at = 0; at < thin.size(); ++at) {
    thin[at] = channelsApart(picture.pixels[at], smooth.pixels[at]) > least ? 1 : 0;
  }
  thin = work.withoutSpecks(thin, size, speck);
  for (int y = 0; y < size.height; ++y) {
    for (int x = 0; x < size.width; ++x) {
      const std::size_t at = placeOf(size, x, y);
      if (thin[at] == 0) continue;
      const bool isDark = brightnessOf(picture.pixels[at]) < brightnessOf(smooth.pixels[at]);
      smooth.pixels[at] = extremeAround(picture, x, y, isDark);
    }
  }
  return smooth;
}

void hardenEdges(Bitmap& picture, int times) {
  const std::vector<std::size_t> places = edgesOf(picture);
  std::vector<Colour> made(places.size());
  for (int round = 0; round < times; ++round) {
    std::transform(places.begin(), places.end(), made.begin(),
                   [&](std::size_t at) { return nearerSide(around(picture, at)); });
    for (std::size_t i = 0; i < places.size(); ++i) picture.pixels[places[i]] = made[i];
  }
}

}  // namespace gridwright
