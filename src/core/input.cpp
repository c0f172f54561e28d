#include "core/input.h"

#include <algorithm>
#include <array>

#include "core/enable_table.h"
#include "core/main_loop.h"
#include "core/menu_commands.h"
#include "core/panels.h"
#include "core/title.h"

namespace gridwright::input {

namespace {

bool isLive(const Program& program, ControlId id) {
  return program.controls[id].visible && program.controls[id].enabled;
}

/// The box that a file list fills.
struct ListOfPanel {
  ControlId list, box;
};
constexpr std::array kLists = {ListOfPanel{ControlId::File5, ControlId::Text8}};

}  // namespace

void menuClick(Program& program, Item item) {
  applyEnableTableIfChanged(program);
  if (program.state.keyBusy || !program.menus.available(item)) return;
  const Command command = commandOf(item);
  if (command == nullptr) return;
  program.state.keyBusy = true;
  command(program);
}

void keyDown(Program& /*program*/, int /*code*/) {}

void mouseDown(Program& /*program*/, int /*button*/) {}

void timerTick(Program& /*program*/, ControlId /*timer*/) {}

void buttonClick(Program& program, ControlId button) {
  if (!isLive(program, button)) return;
  if (button == ControlId::Command2) command2(program);
  if (button == ControlId::Command7) endProgram();
}

void textTyped(Program& program, ControlId box, std::string_view text) {
  if (isLive(program, box)) program.controls.setText(box, text);
}

void enterPressed(Program& program, ControlId box) {
  if (isLive(program, box)) panelEntered(program, box);
}

void escapePressed(Program& program, ControlId box) {
  if (isLive(program, box)) panelEscaped(program, box);
}

void listClick(Program& program, ControlId list, int entry) {
  const Control& control = program.controls[list];
  if (!isLive(program, list) || entry < 0 || entry >= static_cast<int>(control.entries.size())) return;
  const auto* row =
      std::find_if(kLists.begin(), kLists.end(), [&](const ListOfPanel& l) { return l.list == list; });
  if (row == kLists.end()) return;
  program.controls.setSelected(list, entry);
  program.controls.setText(row->box, control.entries[static_cast<std::size_t>(entry)]);
  program.controls.setFocus(row->box);
}

void resized(Program& program, Size size) {
  const ProgramState& s = program.state;
  if (s.phase != Phase::title && s.phase != Phase::drawing) return;
  if (s.editedPattern != 0 || program.platform.windowState() == WindowState::minimised) return;
  program.canvas.resize(size);
}

}  // namespace gridwright::input
