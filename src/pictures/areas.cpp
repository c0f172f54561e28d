#include "pictures/areas.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <limits>
#include <numeric>
#include <utility>

#include "pictures/pixel_walk.h"

namespace gridwright {

namespace {

constexpr double kHardlyApart = 9;  // as colours look
constexpr int kWidestRim = 9;       // pixels
constexpr double kInk = 0.4;        // how near a darker colour counts: half a pixel of ink is ink
constexpr double kDetour = 1.15;    // how much longer the way over a mixture may be than the straight one

const Lab& lookOf(const Areas& areas, std::uint8_t label) {
  return label == kPaperLabel ? areas.paper : areas.colours[label];
}

/// Pixels by label.
std::vector<std::size_t> countsOf(const Areas& areas) {
  std::vector<std::size_t> counts(256, 0);
  for (const std::uint8_t label : areas.labels) ++counts[label];
  return counts;
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
  bool waits = false;  ///< A speck beside it is nearer still, and will have become something.
};

Speck speckAt(const Areas& areas, const Mask& kept, Mask& seen, std::size_t from) {
  const std::uint8_t label = areas.labels[from];
  double least = std::numeric_limits<double>::max();
  Speck speck;
  const Lab& own = lookOf(areas, label);
  double leastWaiting = least;
  const auto offer = [&](std::size_t neighbour) {
    if (areas.labels[neighbour] == label && kept[neighbour] == 0) return;
    const Lab& other = lookOf(areas, areas.labels[neighbour]);
    const double distance = apart(own, other) * (other.l < own.l ? kInk : 1);
    if (kept[neighbour] == 0) {
      leastWaiting = std::min(leastWaiting, distance);
    } else if (distance < least) {
      least = distance;
      speck.becomes = areas.labels[neighbour];
      speck.hasNeighbour = true;
    }
  };
  const auto take = [&](std::size_t at) {
    if (kept[at] != 0 || seen[at] != 0 || areas.labels[at] != label) return;
    seen[at] = 1;
    speck.places.push_back(at);
  };
  take(from);
  std::size_t next = 0;  // of the places, which grow meanwhile
  while (next < speck.places.size()) {
    const std::size_t at = speck.places[next++];
    forAround(areas.size, at, take);  // a line goes on by corners too
    forAround(areas.size, at, offer);
  }
  speck.waits = leastWaiting < least;
  return speck;
}

/// Gives specks their colours; those that wait for another only when `waiting`. \returns whether there were
/// any.
bool settle(const std::vector<Speck>& specks, bool waiting, Areas& areas, Mask& kept) {
  bool changed = false;
  for (const Speck& speck : specks) {
    if (!speck.hasNeighbour || speck.waits != waiting) continue;
    changed = true;
    for (const std::size_t at : speck.places) {
      areas.labels[at] = speck.becomes;
      kept[at] = 1;
    }
  }
  return changed;
}

/// Which labels look like a mixture of two others.
class Betweens {
 public:
  explicit Betweens(const Areas& areas) : count_(areas.colours.size() + 1), table_(count_ * count_ * count_) {
    for (std::size_t own = 0; own + 1 < count_; ++own) {
      for (std::size_t one = 0; one < count_; ++one) {
        for (std::size_t other = 0; other < count_; ++other) {
          const auto look = [&](std::size_t i) { return i + 1 == count_ ? areas.paper : areas.colours[i]; };
          table_[index(own, one, other)] = isBetween(areas.colours[own], look(one), look(other));
        }
      }
    }
  }

  [[nodiscard]] bool operator()(std::uint8_t own, std::uint8_t one, std::uint8_t other) const {
    return table_[index(own, std::min<std::size_t>(one, count_ - 1),
                        std::min<std::size_t>(other, count_ - 1))];
  }

 private:
  static bool isBetween(const Lab& own, const Lab& one, const Lab& other) {
    const double all = apart(one, other);
    return all > kHardlyApart && apart(one, own) + apart(own, other) < kDetour * all;
  }
  [[nodiscard]] std::size_t index(std::size_t own, std::size_t one, std::size_t other) const {
    return (own * count_ + one) * count_ + other;
  }

  std::size_t count_;  ///< The labels, and paper last.
  std::vector<bool> table_;
};

/// Narrow strips of one label, found row by row and column by column.
class Strips {
 public:
  Strips(const Areas& areas, const Betweens& between)
      : areas_(areas),
        between_(between),
        counts_(countsOf(areas)),
        becomes_(areas.labels),
        isLine_(areas.labels.size(), 0) {}

  /// Takes the labels in a row or column, `count` of them from `first`, each `step` further on.
  void look(std::size_t first, std::size_t step, int count) {
    int begin = 0;  // of the strip, once it has one
    bool isBegun = false;
    for (int i = 1; i < count; ++i) {
      const std::size_t at = first + step * static_cast<std::size_t>(i);
      if (areas_.labels[at] == areas_.labels[at - step]) continue;
      if (isBegun && i - begin <= kWidestRim) takeStrip(first, step, begin, i);
      begin = i;
      isBegun = true;
    }
  }

  /// \returns the labels without rims.
  [[nodiscard]] std::vector<std::uint8_t> withoutRims() const {
    std::vector<std::uint8_t> labels = areas_.labels;
    for (std::size_t at = 0; at < labels.size(); ++at) {
      if (isLine_[at] == 0) labels[at] = becomes_[at];
    }
    return labels;
  }

 private:
  void takeStrip(std::size_t first, std::size_t step, int begin, int end) {
    const std::size_t from = first + step * static_cast<std::size_t>(begin);
    const std::size_t beyond = first + step * static_cast<std::size_t>(end);
    const std::uint8_t own = areas_.labels[from];
    const std::uint8_t one = areas_.labels[from - step];
    const std::uint8_t other = areas_.labels[beyond];
    if (own == kPaperLabel) return;
    const bool isRim = one != other && between_(own, one, other);
    const std::uint8_t into = isRim ? intoWhich(own, one, other) : own;
    for (std::size_t at = from; at != beyond; at += step) {
      if (one == other) isLine_[at] = 1;
      if (isRim) becomes_[at] = into;
    }
  }

  /// Into the nearer one, but never into a smaller colour: two strips beside each other would change places.
  [[nodiscard]] std::uint8_t intoWhich(std::uint8_t own, std::uint8_t one, std::uint8_t other) const {
    const Lab& look = areas_.colours[own];
    const std::uint8_t nearer =
        apart(look, lookOf(areas_, one)) <= apart(look, lookOf(areas_, other)) ? one : other;
    return counts_[nearer] > counts_[own] ? nearer : own;
  }

  const Areas& areas_;
  const Betweens& between_;
  std::vector<std::size_t> counts_;
  std::vector<std::uint8_t> becomes_;
  Mask isLine_;
};

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

void joinAlike(Areas& areas) {
  const std::vector<std::size_t> counts = countsOf(areas);
  std::vector<std::size_t> largestFirst(areas.colours.size());
  std::iota(largestFirst.begin(), largestFirst.end(), std::size_t{0});
  std::stable_sort(largestFirst.begin(), largestFirst.end(),
                   [&](std::size_t one, std::size_t other) { return counts[one] > counts[other]; });
  std::array<std::uint8_t, 256> becomes{};
  std::iota(becomes.begin(), becomes.end(), std::uint8_t{0});
  for (auto label = largestFirst.begin(); label != largestFirst.end(); ++label) {
    const auto alike = std::find_if(largestFirst.begin(), label, [&](std::size_t larger) {
      return apart(areas.colours[*label], areas.colours[larger]) < kHardlyApart;
    });
    if (alike != label) becomes.at(*label) = becomes.at(*alike);
  }
  for (std::uint8_t& label : areas.labels) label = becomes.at(label);
}

void removeRims(Areas& areas) {
  constexpr int kStrips = 4;  // beside one another, each a mixture of what it lies between
  const Betweens between(areas);
  for (int round = 0; round < kStrips; ++round) {
    Strips strips(areas, between);
    const auto width = static_cast<std::size_t>(areas.size.width);
    for (int y = 0; y < areas.size.height; ++y) strips.look(placeOf(areas.size, 0, y), 1, areas.size.width);
    for (int x = 0; x < areas.size.width; ++x)
      strips.look(placeOf(areas.size, x, 0), width, areas.size.height);
    std::vector<std::uint8_t> labels = strips.withoutRims();
    if (labels == areas.labels) return;
    areas.labels = std::move(labels);
  }
}

void removeSpecks(Areas& areas, int least, PictureWork& work) {
  Mask kept = largePieces(areas, least, work);
  // Pieces of a line that differ a little are settled from where the line is whole: each takes its neighbour.
  for (bool changed = true; changed;) {
    Mask seen(kept.size(), 0);
    std::vector<Speck> specks;
    for (std::size_t at = 0; at < kept.size(); ++at) {
      if (kept[at] == 0 && seen[at] == 0) specks.push_back(speckAt(areas, kept, seen, at));
    }
    changed = settle(specks, false, areas, kept) || settle(specks, true, areas, kept);
  }
}

std::uint8_t linesOf(const Areas& areas, int cell, PictureWork& work) {
  const std::vector<std::size_t> counts = countsOf(areas);
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
    forAround(size, at, [&](std::size_t near) {
      if (areas.labels[near] != kPaperLabel) wide[near] = 1;
    });
  }
  return wide;
}

}  // namespace gridwright
