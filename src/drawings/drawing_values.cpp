#include "drawings/drawing_values.h"

#include <algorithm>

#include "colours/colour_repairs.h"
#include "menus/menu_rules.h"
#include "solve/finish_methods.h"
#include "state/grid.h"

namespace gridwright {

namespace {

using Values = std::array<int, record::count>;

void putSquare(Values& values, std::size_t at, const Square& square) {
  values[at] = square.left;
  values[at + 1] = square.top;
  values[at + 2] = square.right;
  values[at + 3] = square.bottom;
}
Square squareAt(const Values& values, std::size_t at) {
  return {values[at], values[at + 1], values[at + 2], values[at + 3]};
}

/// The value if it lies in its range, else the setting's default.
int within(int value, int lowest, int highest, int otherwise) {
  return value >= lowest && value <= highest ? value : otherwise;
}
bool flagAt(const Values& values, std::size_t at) { return values[at] == 1; }
/// A sentinel keeps a slot from matching; no picture, brush or corridor has it.
Colour colourAt(const Values& values, std::size_t at, Colour otherwise) {
  const Colour colour = within(values[at], 0, 0xFFFFFF, otherwise);
  return isSentinel(colour) ? otherwise : colour;
}

void putColours(const Program& program, Values& values) {
  const ProgramState& s = program.state;
  values[record::drawColor] = s.drawColor;
  values[record::startColor] = s.startColor;
  values[record::finishColor] = s.finishColor;
  values[record::mazeColor] = s.mazeColor;
  values[record::backColor] = program.canvas.backColor();
  values[record::individualMazeColors] = s.colours.individualMazeColors;
  values[record::backgroundDrawColor] = s.backgroundDrawColor;
  values[record::borderDrawColor] = s.borderDrawColor;
  for (int i = 0; i < kSlots; ++i) {
    const auto slot = static_cast<std::size_t>(i);
    values[record::swatches + slot] = program.controls[classifySwatch(i)].value;
    values[record::mazeColors + slot] = program.colours.maze()[slot];
  }
}

void putSettings(const Program& program, Values& values) {
  const ProgramState& s = program.state;
  values[record::mazeKind] = static_cast<int>(s.mazeKind);
  values[record::difficultyLevel] = s.difficultyLevel;
  values[record::phase] = static_cast<int>(s.phase);
  values[record::drawingOff] = s.drawingOff;
  values[record::playMode] = static_cast<int>(s.playMode);
  values[record::finishMethod] = static_cast<int>(s.finishMethod);
  values[record::trailOff] = s.trailOff;
  values[record::creationMode] = static_cast<int>(s.creationMode);
  values[record::pathSize] = s.pathSize;
  values[record::autoMinimize] = s.autoMinimize;
  values[record::symmetryMode] = static_cast<int>(s.symmetryMode);
  values[record::patternState] = static_cast<int>(s.patternState);
  values[record::stopAtFinish] = s.stopAtFinish;
  values[record::randomPatternSize] = s.randomPatterns.randomPatternSize;
  values[record::randomStepsDone] = s.randomPatterns.randomStepsDone;
  values[record::randomPatternMode] = s.randomPatterns.randomPatternMode;
  values[record::randomFlagLeft] = s.randomPatterns.randomFlagLeft;
  values[record::randomFlagRight] = s.randomPatterns.randomFlagRight;
  values[record::randomFlagUp] = s.randomPatterns.randomFlagUp;
  values[record::randomFlagDown] = s.randomPatterns.randomFlagDown;
  values[record::randomSizeVaries] = s.randomPatterns.randomSizeVaries;
  values[record::randomUsesGo] = s.randomPatterns.randomUsesGo;
  values[record::mazeMadeOnce] = s.mazeMadeOnce;
  values[record::pipeWidth] = program.menus.checked(Item::pthick) ? 0 : 1;
}

void putWindow(Program& program, Values& values) {
  const WindowPlace place = program.platform.normalPlace();
  values[record::scaleWidth] = program.canvas.scaleWidth();
  values[record::scaleHeight] = program.canvas.scaleHeight();
  values[record::windowState] = static_cast<int>(program.platform.windowState());
  values[record::windowLeft] = place.left;
  values[record::windowTop] = place.top;
  values[record::windowHeight] = place.height;
  values[record::windowWidth] = place.width;
}

constexpr int kUnset = -10;

/// No random pattern has more fresh cells than the largest Canvas has pixels.
constexpr int kMostSteps = Canvas::kSide * Canvas::kSide;
/// A desktop's coordinates take 16 bits.
constexpr int kFarthest = 32767;

/// Whether all four sides lie on the Canvas, or no more than down to `lowest` above and left of it.
bool liesOn(const Canvas& canvas, const Square& square, int lowest) {
  const auto inside = [&](int side, int extent) { return side >= lowest && side < extent; };
  return inside(square.left, canvas.scaleWidth()) && inside(square.right, canvas.scaleWidth()) &&
         inside(square.top, canvas.scaleHeight()) && inside(square.bottom, canvas.scaleHeight());
}

/// The brush is as large as a person made it, else it goes to the first cell.
Square brushFrom(const Program& program, const Square& square) {
  const bool isBrush =
      liesOn(program.canvas, square, 0) && square.left < square.right && square.top < square.bottom;
  return isBrush ? square : firstCell(program.state);
}

/// An end fills a cell of the grid but for the pixel around it, or is not placed: it stands a little above
/// and left of the Canvas then, at -10 and up, or has no extent. One beside the grid, and for pipes beside
/// their grid of twice the wall size, would have the whole maze made beside it, and no walk on the grid
/// reaches it.
Square endFrom(const Program& program, const Square& square) {
  constexpr Square kNotPlaced{};
  if (!liesOn(program.canvas, square, kUnset)) return kNotPlaced;
  const int wall = program.state.wallWidth;
  const bool fillsCell =
      square.right - square.left == wall - 3 && square.bottom - square.top == wall - 3 &&
      square.left % wall == 1 && square.top % wall == 1 &&
      (program.state.mazeKind != MazeKind::pipe || presentGrid(program.state).onPipeGrid(square));
  return fillsCell || !isPlaced(square) ? square : kNotPlaced;
}

void takeGeometry(Program& program, const Values& values) {
  ProgramState& s = program.state;
  s.mazeKind = static_cast<MazeKind>(values[record::mazeKind]);
  s.wallWidth = s.wallHeight = values[record::wallWidth];
  pitchFromKind(s);
  s.cur = s.prev = brushFrom(program, squareAt(values, record::cur));
  s.start = endFrom(program, squareAt(values, record::start));
  const Square finish = squareAt(values, record::finish);
  s.finish = finish == kTakenOff ? finish : endFrom(program, finish);
}

/// A window that no desktop could show leaves the present one where it is.
void takeWindowPlace(Program& program, const Values& values) {
  const WindowPlace place{values[record::windowLeft], values[record::windowTop], values[record::windowWidth],
                          values[record::windowHeight]};
  const auto isPosition = [](int at) { return at >= -kFarthest && at <= kFarthest; };
  const auto isSize = [](int size) { return size > 0 && size <= kFarthest; };
  if (isPosition(place.left) && isPosition(place.top) && isSize(place.width) && isSize(place.height))
    program.platform.setNormalPlace(place);
}

void takeColours(Program& program, const Values& values) {
  ProgramState& s = program.state;
  for (int i = 0; i < kSlots; ++i) {
    const auto slot = static_cast<std::size_t>(i);
    program.controls.setValue(classifySwatch(i),
                              within(values[record::swatches + slot], 0, 1, i < 8 ? 1 : 0));
    program.colours.setMaze(i, colourAt(values, record::mazeColors + slot, kPalette[15]));
  }
  refillSetsFromSwatches(program);
  captionSwatches(program);
  s.colours.individualMazeColors = flagAt(values, record::individualMazeColors);
  s.drawColor = colourAt(values, record::drawColor, kPalette[14]);
  s.startColor = s.savedStartColor = colourAt(values, record::startColor, qb::lightMagenta);
  s.finishColor = s.savedFinishColor = colourAt(values, record::finishColor, 0);
  s.savedStartColorValid = s.savedFinishColorValid = true;
  s.mazeColor = s.keptMazeColor = colourAt(values, record::mazeColor, kPalette[15]);
  s.backgroundDrawColor = colourAt(values, record::backgroundDrawColor, kPalette[1]);
  s.borderDrawColor = colourAt(values, record::borderDrawColor, kPalette[14]);
  program.canvas.setBackColor(colourAt(values, record::backColor, qb::yellow));
}

void takeSettings(Program& program, const Values& values) {
  ProgramState& s = program.state;
  s.difficultyLevel = within(values[record::difficultyLevel], 1, 6, 4);
  s.drawingOff = flagAt(values, record::drawingOff);
  s.playMode = s.chosenPlayMode = static_cast<PlayMode>(within(values[record::playMode], 0, 2, 0));
  s.finishMethod = static_cast<FinishMethod>(within(values[record::finishMethod], 0, 3, 0));
  s.finishFound = false;
  s.trailOff = flagAt(values, record::trailOff);
  s.creationMode = values[record::creationMode] == 1 ? CreationMode::computer : CreationMode::user;
  s.pathSize = within(values[record::pathSize], 1, 2, 1);
  s.autoMinimize = flagAt(values, record::autoMinimize);
  s.minimizedNow = false;
  s.symmetryMode = static_cast<Symmetry>(within(values[record::symmetryMode], 0, 3, 0));
  s.randomPatterns.randomPatternMode = values[record::randomPatternMode] == 5 ? 5 : 0;
  // Random steps beside the mode of random patterns were temporary, and that ends with a load.
  const bool randomSteps = values[record::patternState] == 3 && s.randomPatterns.randomPatternMode != 5;
  s.patternState = randomSteps ? PatternState::random : PatternState::choose;
  s.patternDirection = s.patternState == PatternState::random ? step::up : 0;
  s.randomStepsTemporary = false;
  s.stopAtFinish = flagAt(values, record::stopAtFinish);
  s.randomPatterns.randomPatternSize = within(values[record::randomPatternSize], 2, 99, 5);
  s.randomPatterns.randomStepsDone = within(values[record::randomStepsDone], 0, kMostSteps, 0);
  s.randomPatterns.randomFlagLeft = flagAt(values, record::randomFlagLeft);
  s.randomPatterns.randomFlagRight = flagAt(values, record::randomFlagRight);
  s.randomPatterns.randomFlagUp = flagAt(values, record::randomFlagUp);
  s.randomPatterns.randomFlagDown = flagAt(values, record::randomFlagDown);
  s.randomPatterns.randomSizeVaries = flagAt(values, record::randomSizeVaries);
  s.randomPatterns.randomUsesGo = flagAt(values, record::randomUsesGo);
  s.mazeMadeOnce = flagAt(values, record::mazeMadeOnce);
}

void markAll(Program& program, const Values& values) {
  const ProgramState& s = program.state;
  MenuModel& menus = program.menus;
  markOne(menus, {Item::pthick, Item::pthin}, values[record::pipeWidth] == 1 ? Item::pthin : Item::pthick);
  markOne(menus, {Item::aon, Item::aoff}, s.autoMinimize ? Item::aon : Item::aoff);
  markOne(menus, {Item::usepattern, Item::dontusepattern, Item::crnd1},
          s.patternState == PatternState::random    ? Item::dontusepattern
          : s.randomPatterns.randomPatternMode == 5 ? Item::crnd1
                                                    : Item::usepattern);
  constexpr std::array kPlay = {Item::playmodeoff, Item::easymode, Item::hardmode};
  markOne(menus, {Item::playmodeoff, Item::easymode, Item::hardmode},
          kPlay.at(static_cast<std::size_t>(s.playMode)));
  markOne(menus, {Item::usernd, Item::maxrnd},
          s.randomPatterns.randomSizeVaries ? Item::usernd : Item::maxrnd);
  markOne(menus, {Item::gofinish, Item::stopfinish}, s.stopAtFinish ? Item::stopfinish : Item::gofinish);
  keepFinishMethodPossible(program);
  markSettings(program);
  mazemenus(program);
  captionRandomSizes(program);
  captionDrawing(program);
  showCreateItems(program);
}

/// The window first: squares are held against the Canvas that they will lie on.
void takeWindow(Program& program, const Values& values) {
  takeWindowPlace(program, values);
  program.canvas.resize(program.platform.maximise());
}

void takeRecord(Program& program, const DrawingRecord& drawing) {
  ProgramState& s = program.state;
  s.files.lastSet.clear();
  takeGeometry(program, drawing.values);
  takeColours(program, drawing.values);
  takeSettings(program, drawing.values);
  for (std::size_t i = 0; i < drawing.lists.size(); ++i) {
    const ListPlace place = listPlace(i);
    program.steps.install(place.kind, place.direction, drawing.lists[i]);
  }
  program.platform.raise();
  s.drawing.skipPaintOnce = s.drawing.firstPaint = true;
  markAll(program, drawing.values);
}

}  // namespace

DrawingRecord recordOf(Program& program) {
  const ProgramState& s = program.state;
  DrawingRecord drawing;
  Values& values = drawing.values;
  putSquare(values, record::cur, s.cur);
  putSquare(values, record::start, s.start);
  putSquare(values, record::finish, s.finish);
  values[record::wallWidth] = s.wallWidth;
  values[record::wallHeight] = s.wallHeight;
  values[record::stepX] = s.stepX;
  values[record::stepY] = s.stepY;
  putColours(program, values);
  putSettings(program, values);
  putWindow(program, values);
  for (std::size_t i = 0; i < drawing.lists.size(); ++i) {
    const ListPlace place = listPlace(i);
    drawing.lists[i] = program.steps.steps(place.kind, place.direction);
    std::erase_if(drawing.lists[i], [](int code) { return !step::isCode(code); });
  }
  return drawing;
}

void takeValues(Program& program, const DrawingRecord& drawing) {
  takeWindow(program, drawing.values);
  takeRecord(program, drawing);
}

void install(Program& program, const DrawingRecord& drawing, const Bitmap& picture) {
  takeWindow(program, drawing.values);
  program.canvas.setPicture(picture);
  takeRecord(program, drawing);
  program.canvas.setAutoRedraw(false);
  program.canvas.cls();
}

}  // namespace gridwright
