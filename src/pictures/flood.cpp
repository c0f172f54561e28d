#include "pictures/flood.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstdint>
#include <cstring>
#include <limits>
#include <vector>

#include "pictures/pixel_walk.h"

namespace gridwright {

namespace {

/// Which of 64 pixels have a colour. Compared first and packed afterwards, so that a compiler does many at
/// once.
BitPlane::Word bitsOf(const Colour* pixels, Colour colour) {
  std::array<std::uint8_t, BitPlane::kWordBits> equal{};
  for (std::size_t i = 0; i < equal.size(); ++i) equal[i] = pixels[i] == colour ? 1 : 0;
  BitPlane::Word bits = 0;
  for (std::size_t i = 0; i < equal.size(); i += 8) {
    BitPlane::Word eight = 0;
    if constexpr (std::endian::native == std::endian::little) {
      std::memcpy(&eight, equal.data() + i, sizeof eight);
    } else {
      for (std::size_t byte = 0; byte < 8; ++byte) eight |= BitPlane::Word{equal[i + byte]} << (8 * byte);
    }
    bits |= (eight * 0x0102040810204080U >> 56)
            << i;  // gathers the lowest bits of the eight bytes, first one lowest
  }
  return bits;
}

/// Which pixels have a colour.
BitPlane pixelsOf(const Bitmap& picture, Colour colour) {
  BitPlane plane({picture.width, picture.height});
  for (int y = 0; y < picture.height; ++y) {
    const Colour* const row = picture.row(y);
    BitPlane::Word* const words = plane.row(y);
    for (int x = 0; x < picture.width; x += BitPlane::kWordBits) {
      BitPlane::Word bits = 0;
      if (x + BitPlane::kWordBits <= picture.width) {
        bits = bitsOf(row + x, colour);
      } else {
        for (int i = 0; x + i < picture.width; ++i) bits |= BitPlane::Word{row[x + i] == colour} << i;
      }
      words[x / BitPlane::kWordBits] = bits;
    }
  }
  return plane;
}

BitPlane edgeOf(Size size) {
  BitPlane edge(size);
  edge.setSpan(0, 0, size.width - 1);
  edge.setSpan(size.height - 1, 0, size.width - 1);
  for (int y = 0; y < size.height; ++y) {
    edge.set(0, y);
    edge.set(size.width - 1, y);
  }
  return edge;
}

bool reachesEdge(const BitPlane& plane) {
  const Square box = plane.bounds();
  return box.left == 0 || box.top == 0 || box.right == plane.width() - 1 || box.bottom == plane.height() - 1;
}

/// What is set, and all beside it.
BitPlane grown(const BitPlane& plane) {
  const Size size = plane.size();
  BitPlane around(size);
  forRuns(plane, [&](int y, int left, int right) {
    around.setSpan(y, left - 1, right + 1);
    around.setSpan(y - 1, left, right);
    around.setSpan(y + 1, left, right);
  });
  return around;
}

/// The first place of those wanted that is met on a walk over the ground, by sides, from a set of places; and
/// the way back from it.
class Walk {
 public:
  Walk(const BitPlane& ground, const BitPlane& from) : size_(ground.size()) {
    came_.assign(placeOf(size_, 0, size_.height), kNever);
    forRuns(from, [&](int y, int left, int right) {
      for (int x = left; x <= right; ++x) {
        came_[placeOf(size_, x, y)] = kBegin;
        open_.push_back(placeOf(size_, x, y));
      }
    });
    ground_ = &ground;
  }

  /// From the place that was met to where the walk began; empty when there is none.
  std::vector<Corner> wayFrom(const BitPlane& wanted) {
    for (std::size_t next = 0; next < open_.size(); ++next) {
      const std::size_t at = open_[next];
      if (wanted.at(cornerOf(at).x, cornerOf(at).y)) return wayBack(at);
      forSides(size_, at, [&](std::size_t to) {
        if (came_[to] != kNever || !ground_->at(cornerOf(to).x, cornerOf(to).y)) return;
        came_[to] = at;
        open_.push_back(to);
      });
    }
    return {};
  }

 private:
  static constexpr std::size_t kNever = std::numeric_limits<std::size_t>::max(), kBegin = kNever - 1;

  [[nodiscard]] Corner cornerOf(std::size_t at) const {
    const auto width = static_cast<std::size_t>(size_.width);
    return {static_cast<int>(at % width), static_cast<int>(at / width)};
  }
  [[nodiscard]] std::vector<Corner> wayBack(std::size_t at) const {
    std::vector<Corner> way;
    for (; at != kBegin; at = came_[at]) way.push_back(cornerOf(at));
    return way;
  }

  Size size_;
  const BitPlane* ground_ = nullptr;
  std::vector<std::size_t> came_, open_;
};

/// How far a place is from side to side in one direction, and the middle of that.
struct Width {
  double pixels;
  Corner middle;
};

/// The last place on a straight way from here that one comes to by sides too.
Corner endOfWay(const BitPlane& ground, Corner at, int dx, int dy) {
  while (ground.at(at.x + dx, at.y + dy) && (ground.at(at.x + dx, at.y) || ground.at(at.x, at.y + dy)))
    at = {at.x + dx, at.y + dy};
  return at;
}

/// The shortest of four directions.
Width widthAt(const BitPlane& ground, Corner at) {
  Width shortest{std::numeric_limits<double>::max(), at};
  for (const Corner by : {Corner{1, 0}, Corner{0, 1}, Corner{1, 1}, Corner{1, -1}}) {
    const Corner from = endOfWay(ground, at, -by.x, -by.y);
    const Corner to = endOfWay(ground, at, by.x, by.y);
    const int steps = std::max(to.x - from.x, to.y - from.y) + 1;
    const double pixels = by.x != 0 && by.y != 0 ? steps * 1.414 : steps;
    if (pixels < shortest.pixels) shortest = {pixels, {(from.x + to.x) / 2, (from.y + to.y) / 2}};
  }
  return shortest;
}

/// The middle of the narrowest place of a way: of the first stretch of it that is as narrow as any.
Corner narrowestOf(const BitPlane& ground, const std::vector<Corner>& way) {
  std::vector<Width> widths;
  widths.reserve(way.size());
  for (const Corner at : way) widths.push_back(widthAt(ground, at));
  const auto first = std::min_element(widths.begin(), widths.end(), [](const Width& one, const Width& other) {
    return one.pixels < other.pixels;
  });
  const auto end =
      std::find_if(first, widths.end(), [&](const Width& width) { return width.pixels != first->pixels; });
  return (first + (end - first - 1) / 2)->middle;
}

/// The boxes of a cell's size that hold a place.
Square boxesWith(Corner at, Size cell) { return {at.x - cell.width + 1, at.y - cell.height + 1, at.x, at.y}; }

/// Where in the flood boxes of a cell's size fit that hang together with where it began: from a narrow place,
/// with the nearest of them.
BitPlane roomAround(const BitPlane& flood, const BitPlane& boxes, Corner begin, Size cell) {
  if (!boxes.any(boxesWith(begin, cell))) {
    BitPlane seed(flood.size());
    seed.set(begin.x, begin.y);
    const auto way = Walk(flood, seed).wayFrom(boxes.coveredByBoxes(cell));
    if (way.empty()) return BitPlane(flood.size());
    begin = way.front();
  }
  BitPlane near(flood.size());
  near.setBox(boxesWith(begin, cell));
  return floodedFrom(boxes, near);
}

std::optional<Corner> gapOf(const BitPlane& flood, Corner begin, Size cell) {
  const BitPlane boxes = flood.boxesThatFit(cell);
  const BitPlane near = roomAround(flood, boxes, begin, cell);
  const Square box = near.bounds();
  const bool isWide = box.left == 0 || box.top == 0 || box.right == flood.width() - cell.width ||
                      box.bottom == flood.height() - cell.height;
  if (box.left > box.right || isWide) return std::nullopt;
  const BitPlane room = near.coveredByBoxes(cell);
  BitPlane outside = flood;
  outside.without(room);
  const BitPlane edge = edgeOf(flood.size());
  BitPlane out = floodedFrom(outside, edge);
  BitPlane doors = grown(room);
  doors &= out;
  BitPlane goal = boxes.coveredByBoxes(cell);  // from there on it is wide again
  goal |= edge;
  const auto way = Walk(out, doors).wayFrom(goal);
  if (way.empty()) return std::nullopt;
  return narrowestOf(flood, way);
}

}  // namespace

Flood floodOf(const Bitmap& picture, int x, int y, Size cell) {
  Flood flood{floodedFrom(pixelsOf(picture, picture.at(x, y)), x, y), {}};
  if (reachesEdge(flood.pixels)) flood.gap = gapOf(flood.pixels, {x, y}, cell);
  return flood;
}

}  // namespace gridwright
