#include "printing/patches.h"

#include <algorithm>
#include <cstdint>
#include <numeric>
#include <unordered_map>
#include <utility>

namespace gridwright {

namespace {

/// Neighbours in a row, `begin` to before `end`, whose colour has this rank in the order of drawing.
struct Run {
  int rank = 0, begin = 0, end = 0;
  friend bool operator==(const Run&, const Run&) = default;
  friend bool operator<(const Run& a, const Run& b) {
    return a.rank != b.rank ? a.rank < b.rank : a.begin < b.begin;
  }
};
using Runs = std::vector<Run>;

/// A picture row by row as runs of what is to be drawn. Rows that are alike are looked at once.
class Rows {
 public:
  /// \param below what is drawn already, and stays; null where nothing is.
  Rows(const BitmapView* below, const BitmapView& picture) {
    for (int y = 0; y < picture.height; ++y) {
      const bool isLikeAbove =
          y > 0 && picture.isLikeRowAbove(y) && (below == nullptr || below->isLikeRowAbove(y));
      if (!isLikeAbove) read(picture.row(y), below == nullptr ? nullptr : below->row(y), picture.width);
      ++heights_.back();
      kinds_.push_back(rows_.size() - 1);
    }
    rank();
  }

  [[nodiscard]] int count() const { return static_cast<int>(kinds_.size()); }
  [[nodiscard]] bool areAlike(int a, int b) const { return kindOf(a) == kindOf(b); }
  [[nodiscard]] const Runs& at(int y) const { return rows_[kindOf(y)]; }
  /// The colours by how many pixels have them, of as many the one that comes first in the picture.
  [[nodiscard]] const std::vector<Colour>& colours() const { return colours_; }

 private:
  [[nodiscard]] std::size_t kindOf(int y) const { return kinds_[static_cast<std::size_t>(y)]; }

  void read(const Colour* row, const Colour* below, int width) {
    Runs runs;
    const auto isThere = [&](int x) { return below != nullptr && ((row[x] ^ below[x]) & kColourBits) == 0; };
    for (int begin = 0; begin < width;) {
      const Colour colour = row[begin] & kColourBits;
      const bool stays = isThere(begin);
      int end = begin + 1;
      while (end < width && isThere(end) == stays && (stays || (row[end] & kColourBits) == colour)) ++end;
      if (!stays) runs.push_back({placeOf(colour), begin, end});
      begin = end;
    }
    rows_.push_back(std::move(runs));
    heights_.push_back(0);
  }

  int placeOf(Colour colour) {
    if (!colours_.empty() && colours_[static_cast<std::size_t>(last_)] == colour) return last_;
    const auto [entry, isNew] = places_.try_emplace(colour, static_cast<int>(colours_.size()));
    if (isNew) colours_.push_back(colour);
    return last_ = entry->second;
  }

  /// Gives each run the rank of its colour instead of its place among those that were met.
  void rank() {
    std::vector<std::int64_t> counts(colours_.size());
    for (std::size_t i = 0; i < rows_.size(); ++i)
      for (const Run& run : rows_[i])
        counts[static_cast<std::size_t>(run.rank)] += heights_[i] * std::int64_t{run.end - run.begin};
    std::vector<std::size_t> order(colours_.size());
    std::iota(order.begin(), order.end(), std::size_t{0});
    std::stable_sort(order.begin(), order.end(),
                     [&](std::size_t a, std::size_t b) { return counts[a] > counts[b]; });
    std::vector<int> ranks(order.size());
    std::vector<Colour> ranked;
    for (const std::size_t place : order) {
      ranks[place] = static_cast<int>(ranked.size());
      ranked.push_back(colours_[place]);
    }
    for (Runs& row : rows_)
      for (Run& run : row) run.rank = ranks[static_cast<std::size_t>(run.rank)];
    colours_ = std::move(ranked);
  }

  std::vector<Runs> rows_;          // of each kind of row, in order
  std::vector<int> heights_;        // how many rows of the picture are of it
  std::vector<std::size_t> kinds_;  // by row of the picture
  std::vector<Colour> colours_;
  std::unordered_map<Colour, int> places_;
  int last_ = 0;
};

/// Cuts a picture row by row.
class Cutter {
 public:
  Cutter(const BitmapView* below, const BitmapView& picture, std::size_t most)
      : rows_(below, picture), most_(most), first_(below == nullptr ? 1 : 0) {
    for (const Colour colour : rows_.colours()) layers_.push_back({colour, {}});
    // The most frequent colour lies below everything, unless there is something below already.
    if (first_ == 1 && !layers_.empty()) {
      layers_.front().patches.push_back({0, 0, picture.width, picture.height});
      made_ = 1;
    }
  }

  /// \returns whether it was done with so many patches as may be.
  bool cut() {
    const int height = rows_.count();
    int alike = 0;  // rows above this one that are like it
    for (int y = 0; y < height && made_ <= most_; ++y) {
      const bool goesOn = y + 1 < height && rows_.areAlike(y, y + 1);
      // Amid its like a row is covered as the one above it, unless that one still touched another.
      const bool isAsAbove = alike >= 2 && goesOn;
      if (!isAsAbove) takeRow(covered(y), y);
      alike = goesOn ? alike + 1 : 0;
    }
    takeRow({}, height);
    return made_ <= most_;
  }

  ColourLayers layers() && { return std::move(layers_); }

 private:
  /// What each colour covers of a row: its own pixels, and those of later colours that touch one of its own.
  [[nodiscard]] Runs covered(int y) const {
    const Runs& row = rows_.at(y);
    Runs parts;
    int last = 0;  // rank in the row
    for (const Run& run : row) {
      last = std::max(last, run.rank);
      if (run.rank >= first_) parts.push_back(run);
    }
    for (int touching = std::max(0, y - 1); touching <= std::min(y + 1, rows_.count() - 1); ++touching)
      reach(rows_.at(touching), row, last, parts);
    std::sort(parts.begin(), parts.end());
    Runs joined;
    for (const Run& run : parts) {
      if (!joined.empty() && joined.back().rank == run.rank && joined.back().end >= run.begin) {
        joined.back().end = std::max(joined.back().end, run.end);
      } else {
        joined.push_back(run);
      }
    }
    return joined;
  }

  /// What the runs of one row reach below the later ones of another, or of the same, one pixel beyond their
  /// ends.
  void reach(const Runs& from, const Runs& row, int last, Runs& parts) const {
    for (const Run& run : from) {
      if (run.rank < first_ || run.rank >= last) continue;
      auto part = std::upper_bound(row.begin(), row.end(), run.begin - 1,
                                   [](int x, const Run& other) { return x < other.end; });
      for (; part != row.end() && part->begin <= run.end; ++part) {
        if (part->rank <= run.rank) continue;
        parts.push_back({run.rank, std::max(part->begin, run.begin - 1), std::min(part->end, run.end + 1)});
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

  Rows rows_;
  std::size_t most_;
  int first_;  ///< The rank of the first colour that is cut.
  ColourLayers layers_;
  std::size_t made_ = 0;
  Runs open_;  ///< Of the row before, in order.
  std::vector<int> since_;
};

std::optional<ColourLayers> cut(const BitmapView* below, const BitmapView& picture, std::size_t most) {
  Cutter cutter(below, picture, most);
  if (!cutter.cut()) return std::nullopt;
  return std::move(cutter).layers();
}

}  // namespace

std::size_t mostPatches(int cells) {
  constexpr std::size_t kAnyPicture = 20000, kACell = 4;
  return std::max(kAnyPicture, kACell * static_cast<std::size_t>(std::max(0, cells)));
}

std::size_t countPatches(const ColourLayers& layers) {
  return std::accumulate(
      layers.begin(), layers.end(), std::size_t{0},
      [](std::size_t sum, const ColourLayer& layer) { return sum + layer.patches.size(); });
}

std::optional<ColourLayers> layersOf(const BitmapView& picture, std::size_t most) {
  return cut(nullptr, picture, most);
}

std::optional<ColourLayers> layersOver(const BitmapView& below, const BitmapView& picture, std::size_t most) {
  return cut(&below, picture, most);
}

}  // namespace gridwright
