#include "platform/book/make_maze.h"

#include <array>
#include <memory>
#include <utility>

#include "canvas/free_cell.h"
#include "patterns/pattern_sets.h"
#include "pictures/regions.h"
#include "platform/book/book_desktop.h"
#include "platform/book/book_words.h"
#include "platform/book/memory_folder.h"
#include "session/input.h"
#include "session/main_loop.h"
#include "solve/default_ends.h"
#include "solve/maze_measure.h"
#include "state/grid.h"

namespace gridwright::book {

namespace {

constexpr std::array kLevels = {Item::mode1, Item::mode2, Item::mode3, Item::mode4, Item::mode5, Item::mode6};

Item createItem(MazeKind kind) {
  switch (kind) {
    case MazeKind::pipe:
      return Item::create3dpipe;
    case MazeKind::threeD:
      return Item::create3d;
    default:
      return Item::createreg;
  }
}

/// In regular mazes there are no underpasses: both ways to count them are the farthest.
Item endsItem(Ends ends, MazeKind kind) {
  if (kind == MazeKind::regular || ends == Ends::farthest) return Item::largestsolution;
  return ends == Ends::farthestUnderpasses ? Item::includeunderpasses : Item::mostunderpasses;
}

Ends endsOf(FinishMethod method) {
  switch (method) {
    case FinishMethod::user:
      return Ends::set;
    case FinishMethod::includeUnderpasses:
      return Ends::farthestUnderpasses;
    case FinishMethod::mostUnderpasses:
      return Ends::mostUnderpasses;
    default:
      return Ends::farthest;
  }
}

const std::string kTooSmall = "fewer than three free cells";

/// One sitting at a desktop, from the title to the answer.
class Sitting {
 public:
  Sitting(const MazeOrder& order, RegionStarts& starts, const std::atomic<bool>& stop)
      : order_(order),
        wish_(order.wish),
        starts_(starts),
        bitmap_(order.picture.picture.unpacked()),
        desk_(order.picture.canvas(), order.seed, bitmap_, stop) {}

  Outcome<MadeMaze> run() {
    auto folder = std::make_unique<MemoryFolder>();
    if (order_.picture.isDrawing()) folder->put("picture.maze", order_.picture.drawing);
    folder->put("picture.bmp", {});  // its pixels come from the desktop
    if (!order_.patternSet.empty())
      folder->put("set" + std::string(setEnding(kindOf(wish_, order_.picture))), order_.patternSet);
    const auto program = std::make_unique<Program>(desk_, std::move(folder));
    bringPicture();
    try {
      runProgram(*program);
    } catch (const ListDone&) {
      return std::move(made_);
    } catch (const NotMade& trouble) {
      return Fault{Fault::Kind::malformed, trouble.why};
    } catch (const Stopped&) {
    }
    return Fault{Fault::Kind::notReadable, {}};
  }

 private:
  void bringPicture() {
    desk_.click(ControlId::Command2);
    desk_.look([](Program& p) {
      p.history.reset();  // nobody takes anything back here
      p.lookOn = nullptr;
    });
    if (order_.picture.isDrawing()) {
      desk_.answer(Item::ldrawing, ControlId::Text4, "picture");
    } else {
      desk_.answer(Item::importdrawing, ControlId::Text8, "picture");
    }
    desk_.look([this](Program& p) { choose(p); });
  }

  /// Everything that a person would choose before the maze, in an order in which each item is there when its
  /// turn comes.
  void choose(const Program& program) {
    const ProgramState& s = program.state;
    kind_ = wish_.kind.value_or(s.mazeKind);
    const bool isDrawing = order_.picture.isDrawing();
    const bool resizes = isDrawing ? wish_.wall.has_value() : wish_.wall.value_or(s.wallWidth) != s.wallWidth;
    // A drawing in which no maze was made yet offers no other kind and no other wall size; what comes in as a
    // bitmap does, and it is the same picture.
    if ((resizes || kind_ != s.mazeKind) && !s.mazeMadeOnce)
      desk_.answer(Item::importdrawing, ControlId::Text8, "picture");
    if (kind_ != s.mazeKind) desk_.menu(createItem(kind_));
    if (resizes) desk_.answer(Item::changewallsize, ControlId::Text2, std::to_string(*wish_.wall));
    chooseMazeColours(program);
    choosePatterns();
    chooseSettings();
    if (s.creationMode == CreationMode::user) desk_.menu(Item::cgenerate);
    if (s.playMode != PlayMode::off) desk_.menu(Item::playmodeoff);
    if (s.trailOff) desk_.menu(Item::leavetrail);
    desk_.look([this](Program& p) { chooseEnds(p); });
  }

  void chooseMazeColours(const Program& program) {
    if (wish_.mazeColours.empty()) return;
    const auto left = [this](ControlId swatch) {
      desk_.act([swatch](Program& p) {
        if (!p.controls[swatch].visible || !p.controls[swatch].enabled)
          throw NotMade{"the last plain colour of its kind can be no maze colour"};
        input::swatchLeft(p, swatch);
      });
    };
    desk_.menu(Item::choosew);
    if (!program.state.colours.individualMazeColors) left(ControlId::Check33);
    for (const ColourPair& pair : wish_.mazeColours) {
      desk_.act([pair](Program& p) { input::swatchRight(p, classifySwatch(pair.ground)); });
      left(mazeSwatch(pair.corridor));
    }
    desk_.click(ControlId::Command1);
  }

  void choosePatterns() {
    if (!wish_.patterns) return;
    switch (wish_.patterns->kind) {
      case PatternWish::Kind::none:
        desk_.menu(Item::dontusepattern);
        break;
      case PatternWish::Kind::random:
        desk_.menu(Item::crnd1);
        desk_.menu(Item::maxrnd);
        desk_.answer(Item::srndpatterns, ControlId::Text7, std::to_string(wish_.patterns->size));
        break;
      case PatternWish::Kind::set:
        desk_.menu(Item::usepattern);
        desk_.answer(Item::loadpatterns, ControlId::Text6, "set");
        break;
    }
  }

  /// The menus of the other kinds are not shown in regular mazes, nor the length of underpasses but in pipes.
  void chooseSettings() {
    if (kind_ == MazeKind::regular) return;
    if (wish_.difficulty) desk_.menu(kLevels.at(static_cast<std::size_t>(*wish_.difficulty - 1)));
    if (wish_.largePaths) desk_.menu(*wish_.largePaths ? Item::plarge : Item::pnormal);
    if (kind_ == MazeKind::pipe && wish_.shortUnderpasses)
      desk_.menu(*wish_.shortUnderpasses ? Item::pthick : Item::pthin);
  }

  /// Ends that a drawing brought stay, where the wall size and the picture let them: that may be another one
  /// than they were set in. Else the start goes to the largest region.
  void chooseEnds(Program& program) {
    const ProgramState& s = program.state;
    const bool searches = s.finishMethod != FinishMethod::user;
    const bool mayKeep = !wish_.ends || wish_.ends == Ends::set;
    ownEnds_ = order_.picture.isDrawing() && mayKeep && canStay(program, searches);
    if (!ownEnds_) {
      const bool given = wish_.ends && wish_.ends != Ends::set;
      if (given || !searches) desk_.menu(endsItem(given ? *wish_.ends : Ends::farthest, kind_));
      putStart(program);
    }
    desk_.menu(Item::newmaze);
    desk_.until([](const Program& p) { return hasEnds(p); });
    desk_.settle();
    desk_.look([this](Program& p) { takeMaze(p); });
    desk_.menu(Item::solvemaze);
    desk_.until([](const Program& p) { return p.state.phase == Phase::solved; });
    desk_.settle();
    desk_.look([this](Program& p) { made_.answer = p.canvas.shownImage(); });
  }

  /// By the picture alone, as it is read before a maze: in the drawing phase the brush shows above it.
  static bool canStay(Program& program, bool searches) {
    const ProgramState& s = program.state;
    const bool redraws = program.canvas.autoRedraw();
    program.canvas.setAutoRedraw(true);
    const bool can = isGoodStart(program, s.start) && (searches || isGoodFinish(program, s.finish, s.start));
    program.canvas.setAutoRedraw(redraws);
    return can;
  }

  void putStart(Program& program) {
    const ProgramState& s = program.state;
    const auto cell = starts_.at(s.wallWidth, kind_, [&] {
      const CellGrid grid =
          gridOn({program.canvas.scaleWidth(), program.canvas.scaleHeight()}, s.wallWidth, kind_);
      return firstCellOfLargest(program.canvas.imageView(), program.colours, grid);
    });
    if (!cell) throw NotMade{kTooSmall};
    desk_.act([cell](Program& p) {
      if (!input::startPut(p, cell->x, cell->y)) throw NotMade{"the start can't be placed"};
    });
  }

  /// The maze is made, and a search for its finish is over.
  static bool hasEnds(const Program& program) {
    const ProgramState& s = program.state;
    if (s.phase == Phase::drawing) throw NotMade{kTooSmall};
    return s.phase == Phase::placing && (s.finishMethod == FinishMethod::user || s.finishFound);
  }

  void takeMaze(Program& program) {
    const ProgramState& s = program.state;
    made_.maze = program.canvas.shownImage();
    const MazeMeasure m = measureMaze({made_.maze, program.colours, s.startColor, s.finishColor, s.mazeKind,
                                       s.wallWidth, s.start, s.finish});
    if (!m.solved)
      throw NotMade{ownEnds_ ? "its ends lie in different regions" : "no two free cells hang together"};
    MazeRecord& r = made_.record;
    r.number = order_.number;
    r.picture = order_.picture.name;
    r.seed = order_.seed;
    r.settings = settingsOf(program);
    r.width = made_.maze.width;
    r.height = made_.maze.height;
    r.cells = m.carved - carvedBefore(program);
    r.wayLength = m.wayLength;
    r.deadEnds = m.deadEnds;
    r.junctions = m.junctions;
    r.underpasses = m.underpasses;
    r.difficulty = m.difficulty;
  }

  /// What looked like a corridor before there was a maze: ground of a corridor's colour.
  static int carvedBefore(Program& program) {
    const ProgramState& s = program.state;
    return MazeWays({program.pictures.load("drawing1.bmp"), program.colours, kOutside, kOutside, s.mazeKind,
                     s.wallWidth, s.start, s.finish})
        .carvedCells();
  }

  [[nodiscard]] MazeSettings settingsOf(const Program& program) const {
    const ProgramState& s = program.state;
    MazeSettings settings;
    settings.kind = s.mazeKind;
    settings.wall = s.wallWidth;
    settings.difficulty = s.difficultyLevel;
    settings.largePaths = s.pathSize == 2;
    settings.shortUnderpasses = !program.menus.checked(Item::pthin);
    if (wish_.patterns) settings.patterns = wordOf(*wish_.patterns);
    settings.ends = endsOf(s.finishMethod);
    settings.ownEnds = ownEnds_;
    return settings;
  }

  const MazeOrder& order_;
  const MazeWish& wish_;
  RegionStarts& starts_;
  const Bitmap bitmap_;
  BookDesktop desk_;
  MazeKind kind_ = MazeKind::regular;
  bool ownEnds_ = false;
  MadeMaze made_;
};

}  // namespace

Outcome<MadeMaze> makeMaze(const MazeOrder& order, RegionStarts& starts, const std::atomic<bool>& stop) {
  if (!order.picture.whyNot.empty()) return Fault{Fault::Kind::malformed, order.picture.whyNot};
  return Sitting(order, starts, stop).run();
}

}  // namespace gridwright::book
