#include "trials/maze_trial.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <memory>
#include <random>
#include <sstream>

#include "patterns/pattern_sets.h"
#include "session/input.h"
#include "support/maze_reading.h"
#include "support/trail_reading.h"
#include "support/world.h"
#include "trials/thirty_drawings.h"

namespace gridwright::test {

namespace {

constexpr std::array kLevels = {Item::mode1, Item::mode2, Item::mode3, Item::mode4, Item::mode5, Item::mode6};
constexpr std::array kFinishes = {Item::userplace, Item::largestsolution, Item::includeunderpasses,
                                  Item::mostunderpasses};
constexpr std::array kKindNames = {"regular", "pipes", "3-d"};
constexpr std::array kPatternNames = {"own patterns", "no patterns", "random patterns", "a set of patterns"};

Item kindItem(MazeKind kind) {
  switch (kind) {
    case MazeKind::pipe:
      return Item::create3dpipe;
    case MazeKind::threeD:
      return Item::create3d;
    default:
      return Item::createreg;
  }
}

/// Four step lists of up to a dozen steps each.
std::string setByChance(std::mt19937& chance) {
  std::ostringstream text;
  for (int direction = 1; direction <= 4; ++direction) {
    text << direction << '\n';
    for (auto steps = chance() % 12; steps > 0; --steps) text << 1 + chance() % 5 << '\n';
    text << "9999,88\n";
  }
  return text.str();
}

/// One sitting from the title to the answer.
class Sitting {
 public:
  explicit Sitting(const MazeTrial& trial)
      : trial_(trial),
        chance_(trial.seed),
        picture_(trialDrawing(trial.drawing, trial.size, trial.wall, chance_)) {}

  TrialOutcome run() {
    world_.desktop.seed = trial_.seed;
    world_.desktop.quiet = [](const Program&) { return std::int64_t{10'000}; };
    world_.begin(picture_);
    world_.desktop.look([](Program& p) {
      p.history.reset();  // nobody takes anything back here
      p.lookOn = nullptr;
    });
    chooseSettings();
    makeMaze();
    const std::string trouble = world_.run();
    if (outcome_.fault.empty()) outcome_.fault = trouble;
    if (!trouble.empty())
      outcome_.fault += " in phase " + std::to_string(static_cast<int>(world_.state.phase));
    return outcome_;
  }

 private:
  /// An item that is not there is passed by: small drawings offer no pipes.
  void choose(Item item) {
    world_.desktop.act([item](Program& p) {
      if (p.menus.available(item)) input::menuClick(p, item);
    });
  }
  void answer(Item item, ControlId box, const std::string& text) {
    choose(item);
    world_.desktop.act([box, text](Program& p) { input::textTyped(p, box, text); });
    world_.desktop.act([box](Program& p) { input::enterPressed(p, box); });
  }

  void chooseSettings() {
    if (trial_.kind != MazeKind::regular) choose(kindItem(trial_.kind));
    if (trial_.wall != 10) answer(Item::changewallsize, ControlId::Text2, std::to_string(trial_.wall));
    choosePatterns();
    choose(kLevels.at(static_cast<std::size_t>(trial_.difficulty - 1)));
    choose(trial_.largePaths ? Item::plarge : Item::pnormal);
    choose(trial_.longUnderpasses ? Item::pthin : Item::pthick);
    if (trial_.untilReached) choose(Item::stopfinish);
    choose(Item::cgenerate);
    choose(trial_.finish);
  }

  void choosePatterns() {
    switch (trial_.patterns) {
      case MazeTrial::Patterns::own:
        break;
      case MazeTrial::Patterns::none:
        choose(Item::dontusepattern);
        break;
      case MazeTrial::Patterns::random:
        choose(Item::crnd1);
        choose(trial_.patternsOfAnySize ? Item::usernd : Item::maxrnd);
        answer(Item::srndpatterns, ControlId::Text7, std::to_string(trial_.patternSize));
        break;
      case MazeTrial::Patterns::set:
        choose(Item::usepattern);
        world_.folder.texts["set" + std::string(setEnding(trial_.kind))] = setByChance(chance_);
        answer(Item::loadpatterns, ControlId::Text6, "set");
        break;
    }
  }

  void makeMaze() {
    BareDesktop& desktop = world_.desktop;
    choose(Item::newmaze);
    // Random patterns are made first, in a field with a grid of its own.
    desktop.until([](const Program& p) { return p.state.phase >= Phase::drawing; });
    desktop.look([this](Program& p) {
      if (p.state.wallWidth != trial_.wall) outcome_.fault = "the wall size was not taken";
      if (!world_.desktop.messages.empty()) outcome_.fault = world_.desktop.messages.back();
      outcome_.cells = p.state.gridColumns * p.state.gridRows;
      since_ = world_.desktop.pumps;
      const bool onPaper = drawingKind(trial_.drawing).showsMazeColours;
      world_.desktop.limit = since_ + kMostPassesBesides +
                             (onPaper ? kMostPassesOfACellOnPaper : kMostPassesOfACell) * outcome_.cells;
    });
    desktop.until([](const Program& p) { return p.state.phase != Phase::making; });
    desktop.look([this](Program& p) {
      outcome_.making = lap();
      outcome_.refused = p.state.phase == Phase::drawing;
      if (!outcome_.refused) waitForEnds();
    });
  }

  void waitForEnds() {
    BareDesktop& desktop = world_.desktop;
    desktop.until([](const Program& p) {
      const ProgramState& s = p.state;
      return s.phase == Phase::placing && (s.finishMethod == FinishMethod::user || s.finishFound);
    });
    desktop.pumpsPass(1);
    desktop.look([this](Program&) { outcome_.searching = lap(); });
    desktop.menu(Item::solvemaze);
    desktop.look([this](Program& p) { readMaze(p); });
    desktop.until([this](const Program& p) {
      return p.state.phase == Phase::solved || !world_.desktop.messages.empty();
    });
    desktop.look([this](Program& p) { judge(p); });
  }

  /// Passes since it was asked last.
  std::int64_t lap() {
    const std::int64_t passes = world_.desktop.pumps - since_;
    since_ = world_.desktop.pumps;
    return passes;
  }

  [[nodiscard]] bool isInside(const Square& end) const {
    return end.left >= 0 && end.top >= 0 && end.right < picture_.width && end.bottom < picture_.height;
  }

  void readMaze(const Program& p) {
    const ProgramState& s = p.state;
    PlainSets sets(p.colours);
    sets.maze.push_back(s.startColor);
    sets.maze.push_back(s.finishColor);
    reading_ = std::make_unique<TunnelReading>(*world_.desktop.file("drawing3.bmp"), std::move(sets),
                                               s.wallWidth, s.mazeKind != MazeKind::regular, 0);
    const bool areInside = isInside(s.start) && isInside(s.finish);
    if (!areInside && !drawingKind(trial_.drawing).showsMazeColours)
      outcome_.fault = "an end lies outside the Canvas";
    if (!areInside) return;  // the twin knows no cell there
    start_ = reading_->cellOf(s.start);
    finish_ = reading_->cellOf(s.finish);
    const auto reach = reading_->reachFrom(start_);
    // A last column or row that the Canvas cuts off holds no cell.
    outcome_.joined =
        static_cast<std::size_t>(finish_) < reach.size() && reach[static_cast<std::size_t>(finish_)].reached;
  }

  void judge(const Program& p) {
    outcome_.solving = lap();
    const bool solved = p.state.phase == Phase::solved;
    const bool isTree = !drawingKind(trial_.drawing).showsMazeColours;
    if (outcome_.joined && !solved) outcome_.fault = "its ends are joined and it was not solved";
    if (isTree && solved && !outcome_.joined) outcome_.fault = "it was solved and its ends are not joined";
    if (!outcome_.fault.empty() || !isTree) return;
    if (solved) outcome_.fault = trailFault(*reading_, p, start_, finish_);
    if (p.state.mazeKind == MazeKind::regular && !trial_.untilReached && outcome_.cells <= kFewCells) {
      const std::string fault =
          MazeReading(picture_, *world_.desktop.file("drawing3.bmp"), PlainSets(p.colours), trial_.wall)
              .fault();
      if (!fault.empty()) outcome_.fault = fault;
    }
  }

  static constexpr int kFewCells = 400;  // the twin that looks at each pixel again takes its time
  const MazeTrial& trial_;
  std::mt19937 chance_;
  const Bitmap picture_;
  World world_;
  TrialOutcome outcome_;
  std::int64_t since_ = 0;
  std::unique_ptr<TunnelReading> reading_;
  int start_ = 0, finish_ = 0;
};

}  // namespace

MazeTrial trialOf(std::uint32_t seed, int number, int largest) {
  std::seed_seq mixed{seed, static_cast<std::uint32_t>(number)};
  std::mt19937 chance(mixed);
  const auto from = [&](int least, int most) {
    return least + static_cast<int>(chance() % static_cast<unsigned>(most - least + 1));
  };
  // Small ones are many: the cells of a Canvas grow with the square of its side.
  const auto side = [&] {
    const double part = from(0, 1000) / 1000.0;
    return 50 + static_cast<int>((largest - 50) * std::pow(part, 3));
  };
  MazeTrial trial;
  trial.seed = static_cast<std::uint32_t>(chance());
  trial.drawing = number % kDrawingCount;
  trial.size = {side(), side()};
  const int widest = std::clamp(std::min(trial.size.width, trial.size.height) / 5, 5, 50);
  trial.wall = from(5, from(0, 9) == 0 ? 50 : widest);
  trial.kind = static_cast<MazeKind>(from(0, 2));
  trial.difficulty = from(1, 6);
  trial.largePaths = from(0, 1) == 1;
  trial.longUnderpasses = from(0, 1) == 1;
  trial.patterns = static_cast<MazeTrial::Patterns>(from(0, 3));
  trial.patternSize = from(1, 30);
  trial.patternsOfAnySize = from(0, 1) == 1;
  trial.finish = kFinishes.at(static_cast<std::size_t>(from(0, 3)));
  trial.untilReached = from(0, 7) == 0;
  return trial;
}

std::string MazeTrial::words() const {
  std::ostringstream text;
  text << drawingKind(drawing).name << ", " << size.width << "x" << size.height << ", wall " << wall << ", "
       << kKindNames.at(static_cast<std::size_t>(kind));
  if (kind == MazeKind::pipe) text << (longUnderpasses ? ", long underpasses" : ", short underpasses");
  if (kind != MazeKind::regular)
    text << ", difficulty " << difficulty << (largePaths ? ", large paths" : ", normal paths");
  text << ", " << kPatternNames.at(static_cast<std::size_t>(patterns));
  if (patterns == Patterns::random)
    text << " of size " << patternSize << (patternsOfAnySize ? " and below" : "");
  text << ", " << rowOf(finish).name << (untilReached ? ", only until the ends are reached" : "") << ", seed "
       << seed;
  return text.str();
}

TrialOutcome runTrial(const MazeTrial& trial) { return std::make_unique<Sitting>(trial)->run(); }

}  // namespace gridwright::test
