#include "pictures/harden.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>

#include "pictures/fit.h"
#include "pictures/pixel_walk.h"

namespace gridwright {

namespace {

constexpr int kFaintest = 32;   // a channel: how far from what is around it a line stands at least
constexpr int kAboveNoise = 4;  // and how many times further than the picture's pixels do for the most part
constexpr int kPastPart = 4;    // pixels beside a picture that the hardening of its edge may reach
constexpr int kFlat = 20;       // a channel: colours that near make no edge

/// How far, a channel, the picture's pixels lie from what is around them, for the most part.
int roughnessOf(const Bitmap& picture, const Bitmap& around) {
  std::array<std::size_t, 256> counts{};
  for (std::size_t at = 0; at < picture.pixels.size(); ++at) {
    ++counts.at(static_cast<std::size_t>(channelsApart(picture.pixels[at], around.pixels[at])));
  }
  std::size_t seen = 0;
  int noise = 0;
  while ((seen += counts.at(static_cast<std::size_t>(noise))) * 2 < picture.pixels.size()) ++noise;
  return noise;
}

/// The median of the whole picture. It takes most of the time that a preparation does, so it leaves out the
/// paper around the part, of which it would make the same.
Bitmap smoothedAround(const Bitmap& picture, const Square& part, int side, PictureWork& work) {
  // The median at the cut's own edge must be one of paper alone, and so must all that it looks at.
  const int reach = kPastPart + 2 * side;
  const Square around{std::max(part.left - reach, 0), std::max(part.top - reach, 0),
                      std::min(part.right + reach, picture.width - 1),
                      std::min(part.bottom + reach, picture.height - 1)};
  if (around.left > around.right || around.top > around.bottom) return picture;
  const Bitmap inside = work.smoothed(cutOut(picture, around), side);
  Bitmap smooth = picture;
  for (int y = 0; y < inside.height; ++y) {
    std::copy_n(inside.row(y), inside.width,
                smooth.pixels.begin() + static_cast<std::ptrdiff_t>(placeOf({picture.width, picture.height},
                                                                            around.left, around.top + y)));
  }
  return smooth;
}

int squaresApart(Colour one, Colour other) {
  const int red = (one & 0xFF) - (other & 0xFF);
  const int green = (one >> 8 & 0xFF) - (other >> 8 & 0xFF);
  const int blue = (one >> 16 & 0xFF) - (other >> 16 & 0xFF);
  return red * red + green * green + blue * blue;
}

/// Whether a colour is what a lens or a soft edge makes of two others.
bool isMixture(Colour mixed, Colour one, Colour other) {
  constexpr double kDetour = 1.15;  // how much longer the way over it may be than the straight one
  const auto distance = [](Colour a, Colour b) { return std::sqrt(static_cast<double>(squaresApart(a, b))); };
  return distance(one, mixed) + distance(mixed, other) <= kDetour * distance(one, other);
}

/// A piece of line: pixels of the mask that hang together by sides or corners, all darker or all lighter than
/// what is around them.
std::vector<std::size_t> pieceAt(std::size_t from, Size size, std::vector<std::uint8_t>& sides) {
  const std::uint8_t side = sides[from];
  std::vector<std::size_t> piece{from};
  sides[from] = 0;
  for (std::size_t next = 0; next < piece.size(); ++next) {
    forAround(size, piece[next], [&](std::size_t at) {
      if (sides[at] != side) return;
      sides[at] = 0;
      piece.push_back(at);
    });
  }
  return piece;
}

/// The colour that nine tenths of a piece are fainter than.
Colour boldestOf(const Bitmap& picture, std::vector<std::size_t> piece, bool isDark) {
  const auto nth = piece.begin() + static_cast<std::ptrdiff_t>(piece.size() / 10);
  std::nth_element(piece.begin(), nth, piece.end(), [&](std::size_t one, std::size_t other) {
    const int a = brightnessOf(picture.pixels[one]);
    const int b = brightnessOf(picture.pixels[other]);
    if (a != b) return isDark ? a < b : a > b;
    return one < other;
  });
  return picture.pixels[*nth];
}

/// Lays the lines of the mask over `smooth`. One that runs a little askew is bold and faint by turns, and
/// would come to pieces: what is a mixture of the piece's boldest colour and what is around it becomes bold.
void solidify(const Bitmap& picture, Bitmap& smooth, const Mask& thin) {
  constexpr std::uint8_t kDark = 1, kLight = 2;
  const Size size{picture.width, picture.height};
  std::vector<std::uint8_t> sides(thin.size(), 0);
  for (std::size_t at = 0; at < thin.size(); ++at) {
    if (thin[at] == 0) continue;
    sides[at] = brightnessOf(picture.pixels[at]) < brightnessOf(smooth.pixels[at]) ? kDark : kLight;
  }
  for (std::size_t from = 0; from < sides.size(); ++from) {
    if (sides[from] == 0) continue;
    const bool isDark = sides[from] == kDark;
    const std::vector<std::size_t> piece = pieceAt(from, size, sides);
    const Colour bold = boldestOf(picture, piece, isDark);
    for (const std::size_t at : piece) {
      const Colour own = picture.pixels[at];
      smooth.pixels[at] = isMixture(own, bold, smooth.pixels[at]) ? bold : own;
    }
  }
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

/// The side of the edge that the pixel in the middle belongs to.
Colour nearerSide(const std::array<Colour, 9>& colours) {
  const Colour own = colours[4];
  const Colour one = furthest(colours, own);
  const Colour other = furthest(colours, one);
  const bool oneIsDarker = brightnessOf(one) < brightnessOf(other);
  const std::int64_t toDarker = squaresApart(own, oneIsDarker ? one : other);
  const std::int64_t toLighter = squaresApart(own, oneIsDarker ? other : one);
  // Half a pixel of ink counts as ink: a fine line that lies between two rows must not vanish from both.
  constexpr int kInk = 2;
  return (kInk * toLighter < toDarker) == oneIsDarker ? other : one;
}

/// Where two neighbours by a side differ: an edge runs there, or near.
std::vector<std::size_t> edgesOf(const Bitmap& picture) {
  const Size size{picture.width, picture.height};
  std::vector<bool> near(picture.pixels.size(), false);
  const auto mark = [&](int x, int y) {
    if (x >= 0 && y >= 0 && x < size.width && y < size.height) near[placeOf(size, x, y)] = true;
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
    if (near[at]) places.push_back(at);
  }
  return places;
}

}  // namespace

bool isNoisy(const Bitmap& picture, const Mask& clear) {
  constexpr int kNoisy = 5;  // a channel, from one pixel to the next, for the most part
  std::array<std::size_t, 256> counts{};
  std::size_t pairs = 0;
  for (std::size_t at = 1; at < picture.pixels.size(); ++at) {
    if (clear[at] != 0 || clear[at - 1] != 0) continue;
    ++counts.at(static_cast<std::size_t>(channelsApart(picture.pixels[at], picture.pixels[at - 1])));
    ++pairs;
  }
  std::size_t quiet = 0;
  for (std::size_t i = 0; i < kNoisy; ++i) quiet += counts.at(i);
  return quiet * 2 < pairs;
}

Bitmap withoutNoise(const Bitmap& picture, const Square& part, int side, int speck, PictureWork& work) {
  Bitmap smooth = smoothedAround(picture, part, side, work);
  const Size size{picture.width, picture.height};
  const int least = std::max(kFaintest, kAboveNoise * roughnessOf(picture, smooth));
  Mask thin(picture.pixels.size());
  for (std::size_t at = 0; at < thin.size(); ++at) {
    thin[at] = channelsApart(picture.pixels[at], smooth.pixels[at]) > least ? 1 : 0;
  }
  thin = work.withoutSpecks(thin, size, speck);
  solidify(picture, smooth, thin);
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
