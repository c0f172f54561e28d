#include "solve/maze_measure.h"

#include <algorithm>
#include <cmath>

namespace gridwright {

namespace {

/// How a cell was come to first.
struct Step {
  int from = -1;
  MazeWays::Side side = MazeWays::left;
  bool under = false, reached = false, onWay = false;
};

class Counter {
 public:
  explicit Counter(const MazePicture& maze) : ways_(maze), steps_(static_cast<std::size_t>(ways_.cells())) {}

  MazeMeasure count() {
    MazeMeasure m;
    m.carved = ways_.carvedCells();
    if (ways_.start() == -1) return m;
    reachAll(m);
    if (ways_.finish() == -1 || ways_.finish() == ways_.start() || !at(ways_.finish()).reached) return m;
    m.solved = true;
    const double way = weighWay(m);
    m.difficulty = std::round((std::log2(1 + way) + weighBranches(m)) * 100) / 100;
    return m;
  }

 private:
  Step& at(int cell) { return steps_.at(static_cast<std::size_t>(cell)); }

  /// Cell by cell away from the start, so that each is come to by the shortest way.
  void reachAll(MazeMeasure& m) {
    order_ = {ways_.start()};
    at(ways_.start()).reached = true;
    std::size_t underEnds = 0;
    for (std::size_t i = 0; i < order_.size(); ++i) {
      const int cell = order_[i];
      m.cells += ways_.isOfKind(cell);
      const MazeWays::Fork& fork = ways_.from(cell);
      m.deadEnds += fork.count == 1 && cell != ways_.start() && cell != ways_.finish();
      for (const MazeWays::Way& way : fork) {
        underEnds += way.under;
        if (at(way.to).reached) continue;
        at(way.to) = {cell, way.side, way.under, true, false};
        order_.push_back(way.to);
      }
    }
    m.underpasses = static_cast<int>(underEnds / 2);
  }

  /// Whether the step to a cell goes on in another direction than the one before it.
  bool turns(int cell) {
    const int before = at(cell).from;
    return before != -1 && at(before).from != -1 && at(before).side != at(cell).side;
  }

  /// What the step to a cell adds to the weight of its stretch.
  int weight(int cell) { return ways_.isOfKind(cell) + turns(cell) + 2 * at(cell).under; }

  double weighWay(MazeMeasure& m) {
    int sum = 0;
    for (int cell = ways_.finish(); cell != -1; cell = at(cell).from) {
      at(cell).onWay = true;
      m.wayLength += ways_.isOfKind(cell) || cell == ways_.finish();
      m.turns += turns(cell);
      sum += weight(cell);
    }
    return sum;
  }

  /// Each cell beside the way belongs to the branch of the cell that it was come from.
  double weighBranches(MazeMeasure& m) {
    std::vector<int> branchOf(steps_.size(), -1);
    std::vector<int> weights;
    std::vector<bool> branches(steps_.size());
    for (const int cell : order_) {
      if (at(cell).onWay) continue;
      const int from = at(cell).from;
      int& branch = branchOf[static_cast<std::size_t>(cell)];
      branch = branchOf[static_cast<std::size_t>(from)];
      if (at(from).onWay) {
        branches[static_cast<std::size_t>(from)] = true;
        branch = static_cast<int>(weights.size());
        weights.push_back(0);
      }
      weights[static_cast<std::size_t>(branch)] += weight(cell);
    }
    m.junctions = static_cast<int>(std::count(branches.begin(), branches.end(), true));
    double sum = 0;
    for (const int weight : weights) sum += std::log2(1 + weight);
    return sum;
  }

  const MazeWays ways_;
  std::vector<Step> steps_;
  std::vector<int> order_;  // in which the cells were come to
};

}  // namespace

MazeMeasure measureMaze(const MazePicture& maze) { return Counter(maze).count(); }

}  // namespace gridwright
