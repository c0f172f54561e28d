#include "patterns/open_pattern.h"

namespace gridwright {

void appendToOpenPattern(Program& program, int code) { program.state.editor.openSteps.push_back(code); }

void closeOpenPattern(Program& program) {
  const EditorState& e = program.state.editor;
  if (e.openDirection != 0) program.steps.write(program.state.mazeKind, e.openDirection, e.openSteps);
  dropOpenPattern(program.state);
}

void dropOpenPattern(ProgramState& state) {
  state.editor.openDirection = 0;
  state.editor.openSteps.clear();
}

}  // namespace gridwright
