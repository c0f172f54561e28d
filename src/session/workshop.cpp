#include "session/workshop.h"

#include <algorithm>
#include <utility>

#include "canvas/free_cell.h"
#include "canvas/size_words.h"
#include "colours/colour_editor.h"
#include "drawings/import_drawing.h"
#include "drawings/last_picture.h"
#include "history/history.h"
#include "menus/panels.h"
#include "pictures/on_paper.h"
#include "session/arrivals.h"
#include "session/prepare_panel.h"
#include "state/grid.h"

namespace gridwright {

namespace {

/// What is on the Canvas as a sheet holds it: its ground is paper.
InkPicture drawingInInks(const Program& program) { return inInks(program.canvas.imageOnGround(kPaper)); }

/// Tool, words and stamp take another colour where the maze is carved in theirs.
void avoidTakenInks(Workshop& w) {
  const ColourSets sets = w.sets();
  int other = kPaperInk;
  for (int ink = kPaperInk - 1; ink >= 0; --ink) {
    const InkRole role = roleOf(ink, sets);
    if (role == InkRole::grows || (other == kPaperInk && role == InkRole::border)) other = ink;
  }
  ToolSettings tool = w.sheet->settings();
  if (roleOf(tool.colour, sets) == InkRole::taken) tool.colour = other;
  w.sheet->choose(tool);
  if (w.words.colour && roleOf(*w.words.colour, sets) == InkRole::taken) w.words.colour = other;
  if (roleOf(w.stamp.colour, sets) == InkRole::taken) w.stamp.colour = other;
}

/// Whether two pictures show the same, each with paper all round it.
bool showSame(const Bitmap& one, const Bitmap& other) {
  const Size both{std::max(one.width, other.width), std::max(one.height, other.height)};
  return resized(one, both) == resized(other, both);
}

/// The one that the run before left, else paper.
void layFirstSheet(Program& program) {
  Workshop& w = program.workshop;
  const auto kept = keptSheet(program);
  const bool isThere = kept && !kept->picture.pixels.empty();
  w.keptIn = isThere ? kept->place : std::filesystem::path();
  w.sheet = std::make_unique<Sheet>(isThere ? Sheet::asKept(kept->picture) : Sheet(w.canvas));
  w.sheet->choose(w.firstTool);
}

/// The drawing comes onto the sheet where it is not what the sheet was last used or left for.
void takeTheDrawing(Program& program) {
  Workshop& w = program.workshop;
  if (program.state.phase != Phase::drawing) return;  // a maze is no drawing
  InkPicture drawing = drawingInInks(program);
  if (showSame(drawing.picture, w.seen)) return;
  giveUpSheet(program);
  w.sheet->replace(drawing.picture, Meaning::ofTheDrawing);
  if (drawing.others > 0) {
    w.note = std::to_string(drawing.others) +
             " pixels had colours that the sheet does not hold: they have the nearest";
  }
  w.seen = std::move(drawing.picture);
}

void closeWorkshop(Program& program) {
  Workshop& w = program.workshop;
  w.sheet->endStroke();
  w.open = w.firstFills = false;
  w.placed.reset();
  w.note.clear();
  w.page = WorkshopPage::sheet;
  ++w.revision;
  closePreparation(program);
  releaseWindow(program);
}

}  // namespace

void workshop(Program& program) { openWorkshop(program, false); }

void openWorkshop(Program& program, bool forPicture) {
  Workshop& w = program.workshop;
  if (w.open) return;
  const ProgramState& s = program.state;
  w.canvas = canvasFor(program.platform.maximise());
  if (s.phase == Phase::drawing) {
    noteResize(program);
    followWindow(program, program.platform.clientSize());  // all of the drawing, also what lay beyond
  }
  holdWindowOverScreen(program);
  if (!w.sheet) layFirstSheet(program);
  const int pitch = pitchOf(s.wallWidth, s.mazeKind);
  w.sheet->setPitch({pitch, pitch, s.wallWidth});
  w.drawingSets = program.colours;
  w.open = true;
  w.firstFills = forPicture;
  takeTheDrawing(program);
  avoidTakenInks(w);
  w.filled = false;
  w.countedAt = 0;
  ++w.revision;
}

void useWorkshop(Program& program) {
  Workshop& w = program.workshop;
  if (!w.open) return;
  if (program.prepare.open) {
    if (program.prepare.working) {
      program.prepare.useWhenMade = true;
      return;
    }
    placePrepared(program, std::nullopt, std::nullopt);
  }
  w.sheet->endStroke();
  const bool isPainted = w.filled || !showSame(w.sheet->picture(), w.seen);
  Bitmap picture = resized(w.sheet->picture(), w.canvas);
  const bool resets = w.sheet->meaning() == Meaning::ofTheStart;
  closeWorkshop(program);
  if (!isPainted) return;
  w.seen = picture;
  w.sheet->setMeaning(Meaning::ofTheDrawing);
  takeInDrawing(program, [picture = std::move(picture), resets](Program& p) {
    if (resets) resetcolors(p);
    takePicture(p, picture);
  });
}

void leaveWorkshop(Program& program) {
  if (program.workshop.open) closeWorkshop(program);
}

void onSheet(Program& program, const std::function<void(Sheet&)>& act) {
  Workshop& w = program.workshop;
  if (!w.open) return;
  const std::uint64_t before = w.sheet->revision();
  const ToolSettings tool = w.sheet->settings();
  act(*w.sheet);
  if (w.sheet->revision() != before) {
    w.filled = false;
    w.placed.reset();
    w.note.clear();
    stopFilling(program);
  }
  if (w.sheet->revision() != before || w.sheet->settings() != tool) ++w.revision;
}

void stopFilling(Program& program) {
  if (!std::exchange(program.workshop.firstFills, false)) return;
  preparationResized(program);  // it is to come onto this sheet now
}

void newsheet(Program& program) {
  if (program.workshop.open) giveUpSheet(program);
  onSheet(program, [&](Sheet& sheet) { sheet.newsheet(program.workshop.canvas); });
}

void turnPage(Program& program, WorkshopPage page) {
  Workshop& w = program.workshop;
  if (!w.open || w.page == page || (page == WorkshopPage::prepare && !program.prepare.open)) return;
  w.sheet->endStroke();
  w.page = page;
  ++w.revision;
}

void choosePictureForSheet(Program& program) {
  if (program.workshop.open) openpicture(program);
}

void countSheet(Program& program) {
  Workshop& w = program.workshop;
  if (!w.sheet || w.countedAt == w.sheet->revision()) return;
  w.countedAt = w.sheet->revision();
  const ProgramState& s = program.state;
  w.map = mapRegions(w.sheet->picture(), w.sets(), gridOn(w.sheet->size(), s.wallWidth, s.mazeKind));
  w.line = regionLine(w.map.count);
  ++w.revision;
}

std::string sheetNote(const Program& program) {
  const Workshop& w = program.workshop;
  if (!w.sheet) return {};
  std::string note = w.sheet->note();
  const auto add = [&](const std::string& words) {
    note += (note.empty() || words.empty() ? "" : "; ") + words;
  };
  add(w.note);
  if (w.sheet->size() != w.canvas) {
    const bool isCut = w.sheet->size().width > w.canvas.width || w.sheet->size().height > w.canvas.height;
    add("the sheet is " + sizeWords(w.sheet->size()) + ", the Canvas " + sizeWords(w.canvas) + ": Use " +
        (isCut ? "cuts it" : "fills it up with paper"));
  }
  return note;
}

void keepLastSheet(Program& program) {
  Workshop& w = program.workshop;
  if (!w.sheet) return;
  w.sheet->endStroke();
  if (isPaperAlone(w.sheet->picture())) return;
  const auto place = keepSheet(program, w.sheet->picture(), w.keptIn);
  if (!place.empty()) w.keptIn = place;  // else its earlier state is still where it was
}

void giveUpSheet(Program& program) {
  keepLastSheet(program);
  program.workshop.keptIn.clear();
}

void autosaveSheet(Program& program) {
  const Workshop& w = program.workshop;
  if (w.sheet && !w.sheet->isPressed()) keepLastSheet(program);
}

void workshopResized(Program& program) {
  Workshop& w = program.workshop;
  const Size canvas = canvasFor(program.platform.clientSize());
  if (!w.open || canvas == w.canvas) return;
  w.canvas = canvas;
  ++w.revision;
}

}  // namespace gridwright
