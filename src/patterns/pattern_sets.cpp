#include "patterns/pattern_sets.h"

#include "files/earlier_one.h"
#include "files/plain_file.h"
#include "files/step_values.h"
#include "menus/panels.h"
#include "patterns/pattern_commands.h"

namespace gridwright {

namespace {

PatternSet presentSet(Program& program) {
  PatternSet set;
  for (int direction = step::left; direction <= step::down; ++direction) {
    Steps& steps = set[static_cast<std::size_t>(direction - 1)];
    steps = program.steps.steps(program.state.mazeKind, direction);
    std::erase_if(steps, [](int code) { return !step::isCode(code); });  // a set that can be loaded again
  }
  return set;
}

/// Writes a set; one that was there stays as the one before, and a notice says so. On failure both stand as
/// they were.
Outcome<Done> saveSet(Program& program, const std::string& name) {
  const FilePlace target = program.files->resolve(name);
  if (isNoPlainFile(target)) return Fault{Fault::Kind::notPlain, target.path().string()};
  const bool over = isThere(target);
  auto written = saveOverEarlier(
      target,
      [&] { return program.files->writeText(name, formatSet(presentSet(program)), Overwrite::atOnce); },
      Fault{Fault::Kind::notWritable, target.path().string()});
  if (written && over) {
    program.notices.tell(target.filename() + " is saved; the one before it stays as " +
                         earlierName(target).filename());
  }
  return written;
}

void refreshLists(Program& program) {
  for (const ControlId list : {ControlId::File3, ControlId::File4}) {
    refreshList(program, list, setEnding(program.state.mazeKind));
  }
}

/// The panel goes; in the editor the window stays held.
void closeSetPanel(Program& program, const Panel& panel) {
  ProgramState& s = program.state;
  closePanel(program, panel);
  s.panelOpen = s.editedPattern != 0;
}

std::string fileName(const Program& program, const std::string& base) {
  return base + std::string(setEnding(program.state.mazeKind));
}

void installSet(Program& program, const PatternSet& set) {
  ProgramState& s = program.state;
  for (int direction = step::left; direction <= step::down; ++direction) {
    program.steps.install(s.mazeKind, direction, set[static_cast<std::size_t>(direction - 1)]);
  }
  s.patternDirection = 0;
  s.stepCode = step::none;
  s.walker.channelPosition = 0;
}

}  // namespace

std::string_view setEnding(MazeKind kind) {
  switch (kind) {
    case MazeKind::threeD:
      return ".3d-pat";
    case MazeKind::pipe:
      return ".3d-pipe-pat";
    default:
      return ".pat";
  }
}

std::string formatSet(const PatternSet& set) {
  std::string text;
  for (const Steps& steps : set) text += formatSteps(steps);
  return text;
}

Outcome<PatternSet> parseSet(std::string_view text) {
  PatternSet set;
  StepValues values(text);
  for (Steps& list : set) {
    if (values.atEnd()) return Fault{Fault::Kind::malformed, "a list is missing"};
    auto steps = readStepList(values, &list == &set.back(), AtEnd::endsList);
    if (!steps) return Fault{Fault::Kind::malformed, "a list of steps"};
    list = std::move(*steps);
  }
  return set;
}

void savepatterns(Program& program) {
  ProgramState& s = program.state;
  refreshLists(program);
  s.editor.drawingOffSaved = s.drawingOff;
  s.drawingOff = true;
  openPanelOverScreen(program, kSaveSetPanel, "");
}

void saveSetEntered(Program& program) {
  const std::string base = baseName(program.controls[ControlId::Text5].text);
  saveSetEscaped(program);
  finishOpenPattern(program);
  program.files->tellIfMoved();
  const auto saved = staysInFolder(base) ? saveSet(program, fileName(program, base))
                                         : Outcome<Done>(Fault{Fault::Kind::notWritable, base});
  if (!saved) {
    if (!program.files->tellIfNoPlainFile(saved.fault()))
      program.platform.messageBox("Error: bad file name.");
    return;
  }
  refreshLists(program);
}

void saveSetEscaped(Program& program) {
  closeSetPanel(program, kSaveSetPanel);
  program.state.drawingOff = program.state.editor.drawingOffSaved;
}

void loadpatterns(Program& program) {
  refreshLists(program);
  std::string& last = program.state.files.lastSet;
  last = nameToOffer(program, ControlId::File4, last);
  openPanelOverScreen(program, kLoadSetPanel, last);
}

void loadSetEntered(Program& program) {
  const std::string base = baseName(program.controls[ControlId::Text6].text);
  closeSetPanel(program, kLoadSetPanel);
  loadSet(program, base);
}

void loadSet(Program& program, const std::string& base) {
  finishOpenPattern(program);
  const auto text = staysInFolder(base) ? program.files->readText(fileName(program, base))
                                        : Outcome<std::string>(Fault{Fault::Kind::notFound, base});
  const auto set = text ? parseSet(text.value()) : Outcome<PatternSet>(text.fault());
  if (!set) {
    program.platform.messageBox("Error: can't find file.");
    return;
  }
  installSet(program, set.value());
}

void loadSetEscaped(Program& program) { closeSetPanel(program, kLoadSetPanel); }

}  // namespace gridwright
