#include "pictures/paper.h"

#include <algorithm>
#include <array>

#include "pictures/pixel_walk.h"

namespace gridwright {

namespace {

constexpr int kNoise = 36;  // a channel, from the paper's colour
constexpr int kShade = 96;  // a channel, from the paper's colour, where it comes on slowly
constexpr int kSlowly = 5;  // a channel, from one pixel to the next
constexpr int kOutOf = 2;   // one out of so many of the edge's pixels make a paper

std::vector<std::size_t> edgeOf(Size size) {
  std::vector<std::size_t> edge;
  for (int x = 0; x < size.width; ++x) {
    edge.push_back(placeOf(size, x, 0));
    if (size.height > 1) edge.push_back(placeOf(size, x, size.height - 1));
  }
  for (int y = 1; y + 1 < size.height; ++y) {
    edge.push_back(placeOf(size, 0, y));
    if (size.width > 1) edge.push_back(placeOf(size, size.width - 1, y));
  }
  return edge;
}

/// Channel by channel, the value in the middle.
Colour medianOf(const std::vector<std::size_t>& places, const Bitmap& picture) {
  std::array<std::array<std::size_t, 256>, 3> counts{};
  for (const std::size_t at : places) {
    for (unsigned c = 0; c < 3; ++c)
      ++counts.at(c).at(static_cast<std::size_t>(picture.pixels[at] >> 8 * c & 0xFF));
  }
  Colour colour = 0;
  for (unsigned c = 0; c < 3; ++c) {
    std::size_t seen = 0;
    Colour value = 0;
    while ((seen += counts.at(c).at(static_cast<std::size_t>(value))) * 2 < places.size()) ++value;
    colour |= value << 8 * c;
  }
  return colour;
}

}  // namespace

Paper findPaper(const Layer& layer) {
  Paper paper;
  const Size size = layer.size();
  const auto& pixels = layer.colours.pixels;
  paper.mask = layer.clear.empty() ? Mask(pixels.size(), 0) : layer.clear;
  std::vector<std::size_t> edge = edgeOf(size);
  const std::size_t whole = edge.size();
  edge.erase(std::remove_if(edge.begin(), edge.end(), [&](std::size_t at) { return layer.isClear(at); }),
             edge.end());
  if (edge.empty() || edge.size() * kOutOf < whole) return paper;  // it is cut out already
  const Colour colour = medianOf(edge, layer.colours);
  const auto isPaper = [&](std::size_t at) { return channelsApart(pixels[at], colour) <= kNoise; };
  const auto like = static_cast<std::size_t>(std::count_if(edge.begin(), edge.end(), isPaper));
  if (like * kOutOf < edge.size()) return paper;
  paper.hasColour = true;
  paper.colour = colour;
  const auto enter = [&](std::size_t from, std::size_t to) {
    if (paper.mask[to] != 0) return false;
    if (isPaper(to)) return true;
    return channelsApart(pixels[to], colour) <= kShade && channelsApart(pixels[to], pixels[from]) <= kSlowly;
  };
  for (const std::size_t at : edge) {
    if (paper.mask[at] == 0 && isPaper(at))
      floodFrom(size, at, enter, [&](std::size_t p) { paper.mask[p] = 1; });
  }
  return paper;
}

Square subjectOf(const Mask& paper, Size size, int speck, PictureWork& work) {
  Mask subject(paper.size());
  std::transform(paper.begin(), paper.end(), subject.begin(), [](std::uint8_t p) { return p == 0 ? 1 : 0; });
  subject = work.withoutSpecks(subject, size, speck);
  Square box{size.width, size.height, -1, -1};
  for (int y = 0; y < size.height; ++y) {
    for (int x = 0; x < size.width; ++x) {
      if (subject[placeOf(size, x, y)] == 0) continue;
      box = {std::min(box.left, x), std::min(box.top, y), std::max(box.right, x), std::max(box.bottom, y)};
    }
  }
  return box;
}

}  // namespace gridwright
