#include "pictures/areas.h"

#include <algorithm>
#include <cstddef>
#include <limits>

#include "pictures/pixel_walk.h"

namespace gridwright {

namespace {

const Lab& lookOf(const Areas& areas, std::uint8_t label) {
  return label == kPaperLabel ? areas.paper : areas.colours[label];
}

/// 1 where a piece of a label, paper not counted, is at least so large.
Mask largePieces(const Areas& areas, int least, PictureWork& work) {
  Mask kept(areas.labels.size(), 0);
  for (std::size_t label = 0; label < areas.colours.size(); ++label) {
    const Mask mask = maskOf(areas, static_cast<std::uint8_t>(label));
    const Mask large = work.withoutSpecks(mask, areas.size, least);
    for (std::size_t at = 0; at < kept.size(); ++at) kept[at] |= large[at];
  }
  for (std::size_t at = 0; at < kept.size(); ++at) {
    if (areas.labels[at] == kPaperLabel) kept[at] = 1;
  }
  return kept;
}

/// The piece of specks of one label that `from` belongs to, and the nearest of the kept colours around it.
struct Speck {
  std::vector<std::size_t> places;
  std::uint8_t becomes = 0;
  bool hasNeighbour = false;
};

Speck speckAt(const Areas& areas, const Mask& kept, Mask& seen, std::size_t from) {
  const std::uint8_t label = areas.labels[from];
  double least = std::numeric_limits<double>::max();
  Speck speck;
  const auto enter = [&](std::size_t /*at*/, std::size_t to) {
    if (kept[to] != 0) {
      const double distance = apart(lookOf(areas, label), lookOf(areas, areas.labels[to]));
      if (distance < least) {
        least = distance;
        speck.becomes = areas.labels[to];
        speck.hasNeighbour = true;
      }
      return false;
    }
    return seen[to] == 0 && areas.labels[to] == label;
  };
  floodFrom(areas.size, from, enter, [&](std::size_t at) {
    seen[at] = 1;
    speck.places.push_back(at);
  });
  return speck;
}

/// Whether edges between colours run along the label for the most part.
bool drawsTheEdges(const Areas& areas, std::uint8_t label) {
  std::size_t own = 0;
  std::size_t others = 0;
  const auto take = [&](std::uint8_t one, std::uint8_t other) {
    if (one == other) return;
    if (one == label || other == label) {
      ++own;
    } else if (one != kPaperLabel && other != kPaperLabel) {
      ++others;
    }
  };
  for (int y = 0; y < areas.size.height; ++y) {
    for (int x = 0; x < areas.size.width; ++x) {
      const std::uint8_t here = areas.labels[placeOf(areas.size, x, y)];
      if (x + 1 < areas.size.width) take(here, areas.labels[placeOf(areas.size, x + 1, y)]);
      if (y + 1 < areas.size.height) take(here, areas.labels[placeOf(areas.size, x, y + 1)]);
    }
  }
  return own > others;
}

}  // namespace

Mask maskOf(const Areas& areas, std::uint8_t label) {
  Mask mask(areas.labels.size());
  std::transform(areas.labels.begin(), areas.labels.end(), mask.begin(),
                 [&](std::uint8_t l) { return l == label ? 1 : 0; });
  return mask;
}

void removeSpecks(Areas& areas, int least, PictureWork& work) {
  Mask kept = largePieces(areas, least, work);
  // A speck among specks waits until one of them has become something.
  for (bool changed = true; changed;) {
    changed = false;
    Mask seen(kept.size(), 0);
    std::vector<Speck> specks;
    for (std::size_t at = 0; at < kept.size(); ++at) {
      if (kept[at] == 0 && seen[at] == 0) specks.push_back(speckAt(areas, kept, seen, at));
    }
    for (const Speck& speck : specks) {
      if (!speck.hasNeighbour) continue;
      changed = true;
      for (const std::size_t at : speck.places) {
        areas.labels[at] = speck.becomes;
        kept[at] = 1;
      }
    }
  }
}

std::uint8_t linesOf(const Areas& areas, int cell, PictureWork& work) {
  std::vector<std::size_t> counts(256, 0);
  for (const std::uint8_t label : areas.labels) ++counts[label];
  std::uint8_t darkest = kPaperLabel;
  for (std::size_t label = 0; label < areas.colours.size(); ++label) {
    if (counts[label] == 0) continue;
    if (darkest == kPaperLabel || areas.colours[label].l < areas.colours[darkest].l) {
      darkest = static_cast<std::uint8_t>(label);
    }
  }
  if (darkest == kPaperLabel) return kPaperLabel;
  const auto depths = work.depths(maskOf(areas, darkest), areas.size);
  const int widest = 2 * *std::max_element(depths.begin(), depths.end()) - 1;
  return widest < cell && drawsTheEdges(areas, darkest) ? darkest : kPaperLabel;
}

void widenThinPlaces(Areas& areas, const std::vector<bool>& isBorder) {
  const Size size = areas.size;
  const std::vector<std::uint8_t> before = areas.labels;
  const auto has = [&](int x, int y, std::uint8_t label) {
    return x >= 0 && y >= 0 && x < size.width && y < size.height && before[placeOf(size, x, y)] == label;
  };
  for (int y = 0; y < size.height; ++y) {
    for (int x = 0; x < size.width; ++x) {
      const std::uint8_t label = before[placeOf(size, x, y)];
      if (label == kPaperLabel || !isBorder[label]) continue;
      const auto isBlock = [&](int left, int top) {
        return has(left, top, label) && has(left + 1, top, label) && has(left, top + 1, label) &&
               has(left + 1, top + 1, label);
      };
      if (isBlock(x, y) || isBlock(x - 1, y) || isBlock(x, y - 1) || isBlock(x - 1, y - 1)) continue;
      for (int ny = y; ny <= std::min(y + 1, size.height - 1); ++ny) {
        for (int nx = x; nx <= std::min(x + 1, size.width - 1); ++nx) {
          areas.labels[placeOf(size, nx, ny)] = label;
        }
      }
    }
  }
}

Mask outlinesOf(const Areas& areas, bool thick) {
  const Size size = areas.size;
  Mask mask(areas.labels.size(), 0);
  const auto take = [&](std::size_t one, std::size_t other) {
    const std::uint8_t a = areas.labels[one];
    const std::uint8_t b = areas.labels[other];
    if (a != b && a != kPaperLabel && b != kPaperLabel) mask[one] = mask[other] = 1;
  };
  for (int y = 0; y < size.height; ++y) {
    for (int x = 0; x < size.width; ++x) {
      const std::size_t at = placeOf(size, x, y);
      if (x + 1 < size.width) take(at, placeOf(size, x + 1, y));
      if (y + 1 == size.height) continue;
      take(at, placeOf(size, x, y + 1));
      if (x + 1 < size.width) take(at, placeOf(size, x + 1, y + 1));
      if (x > 0) take(at, placeOf(size, x - 1, y + 1));
    }
  }
  if (!thick) return mask;
  Mask wide = mask;
  for (std::size_t at = 0; at < mask.size(); ++at) {
    if (mask[at] == 0) continue;
    const int x = static_cast<int>(at % static_cast<std::size_t>(size.width));
    const int y = static_cast<int>(at / static_cast<std::size_t>(size.width));
    for (int ny = std::max(0, y - 1); ny <= std::min(size.height - 1, y + 1); ++ny) {
      for (int nx = std::max(0, x - 1); nx <= std::min(size.width - 1, x + 1); ++nx) {
        const std::size_t near = placeOf(size, nx, ny);
        if (areas.labels[near] != kPaperLabel) wide[near] = 1;
      }
    }
  }
  return wide;
}

}  // namespace gridwright
