#include "menus/panels.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdlib>
#include <string>

namespace gridwright {

namespace {

constexpr std::array kPanels = {kWallSizePanel, kRandomSizePanel, kSavePanel,  kLoadPanel,
                                kSaveSetPanel,  kLoadSetPanel,    kPrintPanel, kImportPanel};

void hidePanel(Program& program, const Panel& panel) {
  program.controls.hide(panel.box);
  program.controls.hide(panel.label);
  if (panel.list) program.controls.hide(*panel.list);
}

}  // namespace

std::string_view whyHeld(const Program& program) {
  const ProgramState& s = program.state;
  if (s.editor.preparing) return "Not now: random patterns are being made for the next maze";
  if (s.phase == Phase::patternRequest || s.phase == Phase::patternEditing || s.editedPattern != 0)
    return "Not now: leave the pattern editor first";
  return s.panelOpen || s.paused ? "Not now: a panel is open" : "";
}

void holdWindow(Program& program) { program.state.panelOpen = program.state.paused = true; }

void holdWindowOverScreen(Program& program) {
  program.state.panels.panelKeptRedraw = program.canvas.autoRedraw();
  program.canvas.setAutoRedraw(false);
  holdWindow(program);
}

void releaseWindow(Program& program) {
  std::optional<bool>& kept = program.state.panels.panelKeptRedraw;
  if (kept) program.canvas.setAutoRedraw(*kept);
  kept.reset();
  program.state.panelOpen = program.state.paused = false;
}

void openPanel(Program& program, const Panel& panel, std::string_view content) {
  holdWindow(program);
  program.controls.show(panel.label);
  program.controls.show(panel.box);
  if (panel.list) program.controls.show(*panel.list);
  program.controls.setText(panel.box, content);
  program.controls.setFocus(panel.box);
}

void openPanelOverScreen(Program& program, const Panel& panel, std::string_view content) {
  holdWindowOverScreen(program);
  openPanel(program, panel, content);
}

void closePanel(Program& program, const Panel& panel) {
  releaseWindow(program);
  hidePanel(program, panel);
  program.controls.setText(panel.box, "");
  program.controls.setFocus(std::nullopt);
}

void hideTextPanels(Program& program) {
  for (const Panel& panel : kPanels) hidePanel(program, panel);
  program.controls.setFocus(std::nullopt);
}

int numberTyped(std::string_view text) {
  text.remove_prefix(std::min(text.find_first_not_of(" \t"), text.size()));
  std::size_t length = !text.empty() && (text[0] == '-' || text[0] == '+') ? 1 : 0;
  bool fraction = false;
  for (; length < text.size(); ++length) {
    const char c = text[length];
    if (c == '.' && !fraction) {
      fraction = true;
    } else if (c < '0' || c > '9') {
      break;
    }
  }
  const double value = std::strtod(std::string(text.substr(0, length)).c_str(), nullptr);
  return static_cast<int>(std::floor(std::clamp(value, -1e9, 1e9)));
}

void refreshList(Program& program, ControlId list, std::string_view ending) {
  const Control& control = program.controls[list];
  const bool chosen = control.selected >= 0;
  const std::string name = chosen ? control.entries[static_cast<std::size_t>(control.selected)] : "";
  program.controls.setEntries(list, program.files->list(ending));
  const auto& entries = program.controls[list].entries;
  const auto again = std::find(entries.begin(), entries.end(), name);
  if (chosen && again != entries.end())
    program.controls.setSelected(list, static_cast<int>(again - entries.begin()));
}

std::string nameToOffer(const Program& program, ControlId list, std::string_view lastName) {
  const Control& control = program.controls[list];
  if (control.entries.empty()) return {};
  if (control.selected >= 0) return control.entries[static_cast<std::size_t>(control.selected)];
  return lastName.empty() ? control.entries.front() : std::string(lastName);
}

}  // namespace gridwright
