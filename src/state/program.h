// Everything one run of the program holds. There are no globals: a test makes as many as it likes.
//
// The routines are free functions over it; a handler changes state and leaves acting on it to the
// running loop's next pass.
#pragma once

#include <filesystem>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "canvas/canvas.h"
#include "canvas/colour_sets.h"
#include "files/step_files.h"
#include "files/work_folder.h"
#include "files/work_pictures.h"
#include "state/book_panel.h"
#include "state/controls.h"
#include "state/export_panel.h"
#include "state/hearing.h"
#include "state/keys_sheet.h"
#include "state/menu_tree.h"
#include "state/notices.h"
#include "state/page_setup.h"
#include "state/platform.h"
#include "state/prepare_panel.h"
#include "state/program_state.h"
#include "state/random.h"
#include "state/workshop.h"

namespace gridwright {

struct History;  // history/history.h

/// Whether the drawing has a step that can be taken back, and one that can be done again.
struct UndoMarks {
  bool canUndo = false, canRedo = false;
};

/// What is known of last-drawing.bmp. Each drawing bears a number: begun at the title, new, imported or
/// loaded.
struct LastPicture {
  int drawing = 1;              ///< The one on the Canvas; undo brings back an earlier one.
  int newest = 1;               ///< The highest number that was given.
  int inFile = 0;               ///< The one that was kept last; 0 for one of another run.
  std::filesystem::path place;  ///< The folder that it was kept in.
  /// What the drawing before `beforeOf` left, where no file holds it.
  std::optional<Bitmap> before;
  int beforeOf = 0;
};

struct Program {
  /// \param workFolder where every file lies; it must exist.
  Program(Platform& desktop, const std::filesystem::path& workFolder)
      : Program(desktop, std::make_unique<WorkFolder>(workFolder)) {}
  Program(Platform& desktop, std::unique_ptr<WorkFolder> folder)
      : platform(desktop), files(std::move(folder)), pictures(desktop, *files), steps(*files) {}
  Program(const Program&) = delete;
  Program& operator=(const Program&) = delete;

  ProgramState state;
  Canvas canvas;
  ColourSets colours;
  MenuModel menus;
  ControlModel controls;
  Notices notices;
  Random random;
  Platform& platform;
  std::unique_ptr<WorkFolder> files;
  WorkPictures pictures;
  StepFiles steps;

  PreparePanel prepare;
  PagePanel pages;
  ExportPanel exporting;
  BookPanel book;
  Workshop workshop;
  RegionsView regions;
  KeysSheet keys;
  Hearing hearing;
  bool keysHintTold = false;   ///< A person was told once how the keys are shown.
  bool statusLineOff = false;  ///< The window does without its status line.
  bool markColours = false;    ///< The window marks colours by letters, and both ends by shapes.
  std::vector<std::filesystem::path> recent;  ///< Opened from anywhere, the last first, at most ten.
  std::function<void(Program&)> whenDrawing;  ///< Waits for the stage of drawing, which runs it once.

  /// What the desktop remembers, as far as it was asked or told; see session/remembered.h.
  std::map<std::string, std::string, std::less<>> remembered;

  LastPicture lastPicture;  ///< See drawings/last_picture.h.

  std::shared_ptr<History> history;  ///< Steps of the drawing; null where nobody keeps any.
  UndoMarks undoMarks;
  /// Called at the head of each pass of the drawing: who stands above the rooms sees there what they did.
  std::function<void(Program&)> lookOn;

  /// Where a drawing is kept that the working folder does not take; empty for nowhere.
  std::filesystem::path dataFolder;
  /// What a person must know of the working folder, told at "Click to Begin"; empty when told or nothing.
  std::string wordsAtBegin;
  bool toldUnwritable = false;

  [[nodiscard]] Pixels pixels() const { return {canvas, colours}; }
};

}  // namespace gridwright
