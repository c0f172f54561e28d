// The one record of values that the routines share. The pixels of the Canvas are the maze; this is
// everything else. Positions are Canvas pixels; flags are false and true where the vocabulary says 0
// and 1. What one subsystem alone uses stands in a record of its own, named for it.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "canvas/colour.h"
#include "canvas/geometry.h"
#include "state/modes.h"

namespace gridwright {

/// The last rescue of a stranded walker, until something is carved.
struct RescueHelp {
  CellCorner cell;        ///< The free cell.
  Square beside;          ///< Where the walker was put.
  bool sentAway = false;  ///< It came over the finish, which sent it to the origin.
  bool held = false;      ///< The second time for that cell: the finish sends it back here.
};

/// What is known of cells that did not stop the fill cursor, and what their tests went by besides the pixels.
struct SweepMemory {
  struct Ground {
    MazeKind mazeKind = MazeKind::regular;
    bool mazeMadeOnce = false;
    int wallWidth = 0, wallHeight = 0, stepX = 0, stepY = 0, canvasWidth = 0, canvasHeight = 0;
    Square start, finish, walkStart;
    std::uint64_t colours = 0;
    std::size_t givenUp = 0;  ///< How many cells are given up: none comes back within a maze.
    friend bool operator==(const Ground&, const Ground&) = default;
  } ground;
  enum class Cell : std::uint8_t { unknown, passed, carved };  ///< A carved cell does not stop it either.
  std::vector<Cell> cells;                                     ///< Of the cursor's way, in its order.
};

/// A cell of the fill cursor's way.
struct CellPlace {
  int column = 0, row = 0;
};

/// Cells of that way: columns and rows from the first up to and not including the second.
struct CellSpan {
  int fromColumn = 0, toColumn = 0, fromRow = 0, toRow = 0;
};

/// What the rescue need not look for again, as long as nothing is painted there, and room for its floods.
/// It is forgotten with the fill cursor's memory.
struct RescueMemory {
  int treesFromRow = 0;             ///< In no row before this one can a new tree begin.
  CellSpan besideCarved;            ///< Free ground lies beside carved ground here at most.
  std::vector<std::uint32_t> seen;  ///< One for each cell: the last flood that came there.
  std::uint32_t flood = 0;
  std::vector<CellPlace> cells;  ///< Of the present flood; it grows from the middle to both ends.
  CellCorner freeGround;         ///< Where the fill cursor was stopped last: floods look there first.
};

/// What the last test for a trap was made on, and how many directions it found blocked.
struct TrapTest {
  Square square;
  MazeKind mazeKind = MazeKind::regular;
  int wallWidth = 0, wallHeight = 0;
  bool mazeMadeOnce = false;
  std::uint64_t changes = 0, colours = 0;  ///< Of the Canvas and of the colour sets.
  bool autoRedraw = false;
  int count = 0;
  friend bool operator==(const TrapTest&, const TrapTest&) = default;
};

/// The carving walker's own values.
struct WalkerState {
  WalkMode lastWalkMode = WalkMode::none;  ///< `walkMode` at the last move.
  CreationMode lastCreationMode = CreationMode::user;
  int lastStepCode = step::none;
  int leadX = 0, leadY = 0;     ///< Leading edge of the square for the present step.
  int patternValue = 0;         ///< Last number read from the step file.
  Colour coveredColor = 0;      ///< Colour under the square; -20 at a start.
  Colour cellColorAtEntry = 0;  ///< Pixel at the square's corner, read on arrival.
  Colour previousMazeColor = 0;
  Colour cellBaseColor = 0;  ///< A palette colour whose maze colour is wanted.
  bool cellBaseKnown = false;
  Square walkStart;            ///< Where the walker begins and returns to from the finish.
  bool walkStartKept = false;  ///< Set by `mpdrawing`.
  Square resume;               ///< The walker as it stood when `makemaze` returned.
  WalkMode resumeWalkMode = WalkMode::back;
  Square lastStop, keptStop;  ///< Last remembered dead end, and that at `mpdrawing`.
  bool stopSeen = false;
  bool stopMaking = false;   ///< Set by `rfinish`; ends the loop.
  bool sweepActive = false;  ///< The sweep over all directions after a refused underpass.
  int sweepCode = 0;
  bool savedMazeMadeOnce = false;
  bool backToMaze = false;  ///< From `backtomaze` until `makemaze2` has run.
  Phase phaseAtRestart = Phase::drawing;
  std::int64_t passesSinceCarved = 0;  ///< Full passes since anything was carved.
  std::optional<RescueHelp> help;      ///< Nothing was carved since.
  std::set<CellCorner> givenUpCells;   ///< Cells of this maze that are left free: the rescue was in vain.
  bool freeCellMetSinceStep = false;   ///< The fill sweep has met a free cell and nothing moved since.
  std::size_t channelPosition = 0;     ///< How far the open step file was read.
  SweepMemory sweepMemory;
  RescueMemory rescueMemory;
  TrapTest trapTest;
};

/// One step in the kinds with underpasses, shared by the walker and the pattern preview.
struct UnderpassState {
  int aheadTwoState = 3, aheadOneState = 3;  ///< 0 free, 1 carved, 3 neither.
  int sideState = 0;                         ///< 1 a corridor lies alongside; then the walk-back distance.
  bool underpassOk = true;                   ///< Until the step moved plainly or a tunnel was refused.
  bool notMovedYet = true;
  int crossCount = 0;  ///< Corridors that the trial would run beside.
  Square probe;        ///< The trial square and its leading edge.
  int probeLeadX = 0, probeLeadY = 0;
};

/// Start, finish and what the placing loop keeps of them.
struct EndsState {
  Colour underStart = 0, underFinish = 0;          ///< Last colours read under the squares.
  Colour startMazeColor = 0, finishMazeColor = 0;  ///< What each square covers.
  struct Covers {
    Colour underStart = 0, underFinish = 0, startMazeColor = 0, finishMazeColor = 0;
  } kept;                        ///< The four as they stood when `placesandf` returned.
  Square savedFinish;            ///< The finish at the first placement of a maze.
  Square lastFinish;             ///< Where the finish was painted last pass.
  Square pipeStart, pipeFinish;  ///< End squares for the pipe grid; -10 when none.
  bool firstPlacement = false;   ///< A maze's ends have not been placed yet.
  bool startColorMoved = false, finishColorMoved = false;  ///< Set by the colour keys, cleared each pass.
  bool startMovedOnce = false, finishMovedOnce = false;
};

/// The walk's whole state in a cell.
struct WalkMark {
  int probeX = 0, probeY = 0, deltaX = 0, deltaY = 0, underpassLock = 0;
  friend bool operator==(const WalkMark&, const WalkMark&) = default;
};

/// The wall follower's own values.
struct SolverState {
  int probeX = 0, probeY = 0;  ///< The wall-following pixel.
  Colour trailPaint = 0;       ///< `startColor`, or `mazeColor` when a trail is taken back.
  int pathLength = 0, bestPathLength = 0;
  int pathUnderpasses = 0, bestPathUnderpasses = 0;
  int underpassLock = 0;
  int startReturns = 0;
  int playSteps = 0;  ///< Of a person, since solving began.
  int trailEndX = 0, trailEndY = 0;
  FinishMethod activeFinishMethod = FinishMethod::user;
  PlayMode playModeSeen = PlayMode::off, playModeAtPause = PlayMode::off;
  bool trailOffSeen = false;
  std::vector<WalkMark> seenInStart;  ///< In this search, while the walk was in the start cell.
  Colour markerGround = 0;            ///< The maze colour that the play marker stands on.
};

/// The print job's values.
struct PrintState {
  PrintMode printMode = PrintMode::none;
  int printTotal = 0, printedCount = 0;
  bool printedNow = false;                       ///< A blank maze of a with-answers job went to the printer.
  bool trailOffAtPrint = false;                  ///< As the panel found it in phase 3.
  PlayMode playModeAtPrint = PlayMode::off;      ///< Likewise.
  int withoutAnswer = 0;                         ///< Mazes of the job that no way leads through.
  PrintMode printKindPending = PrintMode::none;  ///< What the open panel asks for.
  PrintMode printKindSaved = PrintMode::none;
  bool whiteGround = false;  ///< Pages show the picture without its ground, which prints white.
};

/// The pattern editor's own values.
struct EditorState {
  Phase phaseBeforePatterns = Phase::drawing;
  /// What the field takes over and gives back.
  struct Kept {
    Square cur, prev;
    int wallWidth = 0, wallHeight = 0, stepX = 0, stepY = 0;
    int gridRight = 0, gridBottom = 0, gridColumns = 0, gridRows = 0;
    WalkMode walkMode = WalkMode::carve;
    Colour mazeColor = 0;
    int deltaX = 0, deltaY = 0, stepCode = 0;
  } kept;
  bool fieldCoversPicture = false;  ///< Something was drawn on the picture under the field.
  Phase editorCallerPhase = static_cast<Phase>(-10);
  bool editorAutoRedraw = false;
  bool patternRewriting = false;  ///< A dead end writes its 5 to the open pattern.
  bool patternRecording = false;  ///< An underpass writes its step to it.
  bool randomRunning = false;
  int randomSizeSaved = 0;
  bool preparing = false;        ///< A maze is being prepared: all but quit and stop is refused.
  bool drawingOffSaved = false;  ///< `drawingOff` as the save panel found it.
  int openDirection = 0;         ///< The pattern open for appending, 0 none.
  std::vector<int> openSteps;
};

/// The colour editor's own values.
struct ColourEditorState {
  bool individualMazeColors = false;  ///< A right click picks for one background, not for all.
  Colour editedPaletteColor = 0;      ///< The background whose maze colour is being picked.
  int mazeColorPick = 0;              ///< 0 idle, 1 the maze colour panel is wanted, 2 a colour was picked.
  bool colorTicksReady = false;       ///< The drawing colour panel's own ticks do not count as clicks.
};

/// The names that the file panels remember.
struct FileState {
  std::string lastDrawing, lastSet;
};

/// The paint tool's own values.
struct DrawingState {
  int squareWidth = 0, squareHeight = 0;
  bool skipPaintOnce = false;  ///< No painting this pass, and measure again.
  bool firstPaint = true;      ///< Until the first stroke.
  Colour lastColor = 0;        ///< `drawColor` of the pass before.
  bool cursorRestoreAllowed = false;
  Square savedCur;  ///< The brush as it stood when the drawing was left.
  Colour savedDrawColor = 0;
  bool reloadDrawing = false;         ///< "drawing1.bmp" waits to be painted again.
  Square mirror, prevMirror;          ///< Where symmetry repeats the stroke.
  int centreLeft = 0, centreTop = 0;  ///< The cell that key C jumps to.
  bool newSizeRequest = false;        ///< The wall size panel was opened for a new drawing.
  bool newSizeEmpties = false;        ///< Settled when it opens: Enter empties the picture.
};

/// What panels keep of the drawing under them.
struct PanelState {
  std::optional<bool> panelKeptRedraw;  ///< `AutoRedraw` as the open panel found it.
};

/// Patterns made by chance.
struct RandomPatternState {
  int randomPatternSize = 5;  ///< 2 to 99.
  bool randomSizeVaries = false;
  bool randomUsesGo = false;  ///< Random steps may turn to walking back.
  int randomStepsDone = 0;    ///< Fresh cells walked in the present random pattern.
  int randomPatternMode = 0;  ///< 5 while random patterns are made for every maze.
  bool randomFlagLeft = false, randomFlagRight = false, randomFlagUp = false, randomFlagDown = false;
  bool randomPatternsWanted = false;  ///< A restart asks for them before the maze goes on.
};

/// What only the main loop and its commands know.
struct SessionState {
  int bookMode = 0;
  int slideIndex = 0;
  int autoMinimizeStyle = 0;
  bool resumeMaze = false;     ///< The walker goes on from its resume square.
  bool tightForPipes = false;  ///< Fewer than three free cells at pipe pitch.
  int carvedBefore = 0;        ///< Cells that counted as carved before the walker began the present maze.
  int begun = 0;  ///< Grows whenever carving or solving begins anew, so that its time is taken anew.
};

/// At the top stands what several rooms share, with who they are; every command and the roof see all of it.
struct ProgramState {
  // Phase and kind: every room
  Phase phase = Phase::title;
  MazeKind mazeKind = MazeKind::regular;
  bool keyBusy = false;    ///< A command was taken in this pump; only the next clears it (menus, session).
  bool panelOpen = false;  ///< menus, colours, patterns, maze, drawing, solve
  bool paused = false;
  int editedPattern = 0;  ///< 0 none, 1 left, 2 right, 3 up, 4 down (menus, patterns, drawing, maze).
  Phase mazeStage = Phase::drawing;  ///< How far the present maze has come (maze, solve, session).
  bool mazeMadeOnce = false;         ///< menus, underpass, maze, drawings

  // Geometry: every room that paints
  int wallWidth = 10, wallHeight = 10;  ///< Wall size, 5 to 50.
  int stepX = 10, stepY = 10;           ///< Cell pitch.
  Square cur, prev;
  int canvasWidth = 0, canvasHeight = 0;  ///< state's grid, drawing, maze
  int gridRight = 0, gridBottom = 0;      ///< Left of the last column, top of the last row.
  int gridColumns = 0, gridRows = 0;      ///< drawing, and the patterns' field, which gives them back
  int scanX = 0, scanY = 0;               ///< A running sample point (drawing), and the fill cursor (maze).
  Square start, finish;                   ///< maze, solve, drawings

  // Colours
  Colour startColor = qb::lightMagenta, finishColor = 0;  ///< colours, solve, drawings
  Colour savedStartColor = 0, savedFinishColor = 0;       ///< colours, session, drawings
  bool savedStartColorValid = false, savedFinishColorValid = false;
  Colour mazeColor = 0;      ///< What the walker is laying now (colours, patterns, maze, drawing, solve).
  Colour keptMazeColor = 0;  ///< Given back to `mazeColor` at each return to drawing (colours, session).
  Colour drawColor = 0, backgroundDrawColor = 0, borderDrawColor = 0;  ///< colours, drawing, drawings

  // Settings: their room, the marks of the menus, and the drawing files
  CreationMode creationMode = CreationMode::user;
  PlayMode playMode = PlayMode::off, chosenPlayMode = PlayMode::off;
  bool trailOff = false;
  FinishMethod finishMethod = FinishMethod::user;
  bool finishFound = false;  ///< maze, solve, session
  int pathSize = 1;          ///< 1 normal, 2 large.
  int difficultyLevel = 4;   ///< 1 to 6.
  bool autoMinimize = false;
  bool minimizedNow = false;  ///< maze, solve, session
  bool stopAtFinish = false;
  bool shortUnderpasses = true;  ///< underpass, maze, solve
  bool drawingOff = false;
  Symmetry symmetryMode = Symmetry::off;

  // The step in hand: underpass, patterns, maze, solve
  WalkMode walkMode = WalkMode::carve;
  int stepCode = step::none;
  int deltaX = 0, deltaY = 0;
  int patternDirection = 0;
  PatternState patternState = PatternState::choose;
  bool randomStepsTemporary = false;  ///< Random steps were taken up only for this walk back.
  int testCount = 0;
  int sweepX = 0, sweepY = 0;

  // Restarts: maze, session
  bool keepPicture = false;  ///< `backtomaze` has painted the picture already.
  bool nrefreshDue = false;  ///< A maze was made part of every maze (menus and drawings too).

  WalkerState walker;
  UnderpassState underpass;
  EndsState ends;
  SolverState solver;
  PrintState print;
  DrawingState drawing;
  ColourEditorState colours;
  EditorState editor;
  RandomPatternState randomPatterns;
  PanelState panels;
  SessionState session;
  FileState files;
};

/// Whether a finish is being searched for: the computer is to find one and has not found it.
inline bool isSearching(const ProgramState& state) {
  return state.finishMethod != FinishMethod::user && !state.finishFound;
}

}  // namespace gridwright
