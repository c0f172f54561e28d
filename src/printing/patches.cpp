#include "printing/patches.h"

#include <algorithm>
#include <cstdint>
#include <numeric>
#include <unordered_map>
#include <utility>

namespace gridwright {

namespace {

constexpr int kFree = -1;  // the rank of what is not drawn

/// Neighbours in a row, `begin` to before `end`, whose colour has this rank in the order of drawing.
struct Run {
  int rank = 0, begin = 0, end = 0;
  friend bool operator==(const Run&, const Run&) = default;
  friend bool operator<(const Run& a, const Run& b) {
    return a.rank != b.rank ? a.rank < b.rank : a.begin < b.begin;
  }
};
using Runs = std::vector<Run>;

/// A picture, and what of it is there already.
struct Sight {
  const BitmapView* below;  ///< Null where nothing is.
  const BitmapView& picture;

  /// The colour of a pixel that is to be drawn; nothing of one that is there.
  [[nodiscard]] std::optional<Colour> at(const Colour* row, const Colour* rowBelow, int x) const {
    const Colour colour = row[x] & kColourBits;
    if (rowBelow != nullptr && (rowBelow[x] & kColourBits) == colour) return std::nullopt;
    return colour;
  }
  [[nodiscard]] const Colour* rowBelow(int y) const { return below == nullptr ? nullptr : below->row(y); }
  [[nodiscard]] bool isLikeRowAbove(int y) const {
    return picture.isLikeRowAbove(y) && (below == nullptr || below->isLikeRowAbove(y));
  }
};

/// Calls `take(colour or nothing, begin, end)` for the runs of a row, from the left.
template <class Take>
void walkRow(const Sight& sight, int y, Take&& take) {
  const Colour* row = sight.picture.row(y);
  const Colour* below = sight.rowBelow(y);
  const int width = sight.picture.width;
  for (int begin = 0; begin < width;) {
    const auto colour = sight.at(row, below, begin);
    int end = begin + 1;
    while (end < width && sight.at(row, below, end) == colour) ++end;
    take(colour, begin, end);
    begin = end;
  }
}

/// The colours by how many pixels have them, of as many the one that comes first in the picture.
class Ranking {
 public:
  explicit Ranking(const Sight& sight) {
    std::vector<std::pair<Colour, int>> spans;  // of the last row that was walked
    for (int y = 0; y < sight.picture.height; ++y) {
      if (y == 0 || !sight.isLikeRowAbove(y)) {
        spans.clear();
        walkRow(sight, y, [&](std::optional<Colour> colour, int begin, int end) {
          if (colour) spans.emplace_back(*colour, end - begin);
        });
      }
      for (const auto& [colour, pixels] : spans) count(colour, pixels);
    }
    std::vector<std::size_t> order(colours_.size());
    std::iota(order.begin(), order.end(), std::size_t{0});
    std::stable_sort(order.begin(), order.end(),
                     [&](std::size_t a, std::size_t b) { return counts_[a] > counts_[b]; });
    std::vector<Colour> sorted;
    for (const std::size_t place : order) {
      ranks_[colours_[place]] = static_cast<int>(sorted.size());
      sorted.push_back(colours_[place]);
    }
    colours_ = std::move(sorted);
  }

  [[nodiscard]] int of(std::optional<Colour> colour) const { return colour ? ranks_.at(*colour) : kFree; }
  [[nodiscard]] const std::vector<Colour>& colours() const { return colours_; }

 private:
  void count(Colour colour, int pixels) {
    const auto [entry, isNew] = ranks_.try_emplace(colour, static_cast<int>(colours_.size()));
    if (isNew) {
      colours_.push_back(colour);
      counts_.push_back(0);
    }
    counts_[static_cast<std::size_t>(entry->second)] += pixels;
  }

  std::unordered_map<Colour, int> ranks_;
  std::vector<Colour> colours_;
  std::vector<std::int64_t> counts_;
};

/// Cuts a picture row by row.
class Cutter {
 public:
  Cutter(const Sight& sight, std::size_t most)
      : sight_(sight), ranking_(sight), most_(most), first_(sight.below == nullptr ? 1 : 0) {
    for (const Colour colour : ranking_.colours()) layers_.push_back({colour, {}});
    // The most frequent colour lies below everything, unless there is something below already.
    if (first_ == 1 && !layers_.empty()) {
      layers_.front().patches.push_back({0, 0, sight.picture.width, sight.picture.height});
      made_ = 1;
    }
  }

  /// \returns whether it was done with so many patches as may be.
  bool cut() {
    const int height = sight_.picture.height;
    Runs above;
    Runs row = height > 0 ? runsOf(0) : Runs{};
    int alike = 0;  // rows above this one that are like it
    for (int y = 0; y < height && made_ <= most_; ++y) {
      const bool goesOn = y + 1 < height && sight_.isLikeRowAbove(y + 1);
      Runs next = y + 1 >= height ? Runs{} : goesOn ? row : runsOf(y + 1);
      // Amid its like a row is covered as the one above it, unless that one still touched another.
      const bool isAsAbove = alike >= 2 && goesOn;
      if (!isAsAbove) takeRow(layered(above, row, next), y);
      alike = goesOn ? alike + 1 : 0;
      above = std::move(row);
      row = std::move(next);
    }
    takeRow({}, height);
    return made_ <= most_;
  }

  ColourLayers layers() && { return std::move(layers_); }

 private:
  [[nodiscard]] Runs runsOf(int y) const {
    Runs runs;
    walkRow(sight_, y, [&](std::optional<Colour> colour, int begin, int end) {
      runs.push_back({ranking_.of(colour), begin, end});
    });
    return runs;
  }

  /// What each colour covers of a row: its own pixels, and those of later colours that touch one of its own.
  [[nodiscard]] Runs layered(const Runs& above, const Runs& row, const Runs& below) const {
    Runs covered;
    for (const Runs* touching : {&above, &row, &below}) reach(*touching, row, covered);
    std::sort(covered.begin(), covered.end());
    Runs joined;
    for (const Run& run : covered) {
      if (!joined.empty() && joined.back().rank == run.rank && joined.back().end >= run.begin) {
        joined.back().end = std::max(joined.back().end, run.end);
      } else {
        joined.push_back(run);
      }
    }
    return joined;
  }

  /// What the runs of one row reach of another, or of the same, one pixel beyond their ends.
  void reach(const Runs& from, const Runs& row, Runs& covered) const {
    for (const Run& run : from) {
      if (run.rank < first_) continue;
      auto part = std::upper_bound(row.begin(), row.end(), run.begin - 1,
                                   [](int x, const Run& other) { return x < other.end; });
      for (; part != row.end() && part->begin <= run.end; ++part) {
        if (part->rank < run.rank) continue;
        covered.push_back({run.rank, std::max(part->begin, run.begin - 1), std::min(part->end, run.end + 1)});
      }
    }
  }

  /// Patches go on where the row has the same run, and end where it has not.
  void takeRow(const Runs& row, int y) {
    std::vector<int> since(row.size(), y);
    auto old = open_.begin();
    for (std::size_t i = 0; i < row.size(); ++i) {
      while (old != open_.end() && *old < row[i]) end(old++, y);
      if (old == open_.end()) continue;
      if (*old == row[i]) {
        since[i] = since_[static_cast<std::size_t>(old - open_.begin())];
        ++old;
      }
    }
    while (old != open_.end()) end(old++, y);
    open_ = row;
    since_ = std::move(since);
  }

  void end(Runs::const_iterator run, int y) {
    const int top = since_[static_cast<std::size_t>(run - open_.cbegin())];
    layers_[static_cast<std::size_t>(run->rank)].patches.push_back(
        {run->begin, top, run->end - run->begin, y - top});
    ++made_;
  }

  const Sight& sight_;
  Ranking ranking_;
  std::size_t most_;
  int first_;  ///< The rank of the first colour that is cut.
  ColourLayers layers_;
  std::size_t made_ = 0;
  Runs open_;  ///< Of the row before, in order.
  std::vector<int> since_;
};

std::optional<ColourLayers> cut(const Sight& sight, std::size_t most) {
  Cutter cutter(sight, most);
  if (!cutter.cut()) return std::nullopt;
  return std::move(cutter).layers();
}

}  // namespace

std::size_t countPatches(const ColourLayers& layers) {
  return std::accumulate(
      layers.begin(), layers.end(), std::size_t{0},
      [](std::size_t sum, const ColourLayer& layer) { return sum + layer.patches.size(); });
}

std::optional<ColourLayers> layersOf(const BitmapView& picture, std::size_t most) {
  return cut({nullptr, picture}, most);
}

std::optional<ColourLayers> layersOver(const BitmapView& below, const BitmapView& picture, std::size_t most) {
  return cut({&below, picture}, most);
}

}  // namespace gridwright
