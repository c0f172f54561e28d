#include "menus/panels.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdlib>
#include <string>

#include "colours/colour_editor.h"
#include "drawings/drawing_files.h"
#include "drawings/import_drawing.h"
#include "drawings/wall_size.h"
#include "patterns/pattern_sets.h"
#include "patterns/random_size.h"
#include "printing/print_job.h"

namespace gridwright {

namespace {

constexpr std::array kPanels = {kWallSizePanel, kRandomSizePanel, kSavePanel,  kLoadPanel,
                                kSaveSetPanel,  kLoadSetPanel,    kPrintPanel, kImportPanel};

struct Handlers {
  ControlId box;
  void (*entered)(Program&);
  void (*escaped)(Program&);
};
constexpr std::array kHandlers = {
    Handlers{ControlId::Text2, wallSizeEntered, wallSizeEscaped},
    Handlers{ControlId::Text7, randomSizeEntered, randomSizeEscaped},
    Handlers{ControlId::text1, saveEntered, saveEscaped},
    Handlers{ControlId::Text4, loadEntered, loadEscaped},
    Handlers{ControlId::Text5, saveSetEntered, saveSetEscaped},
    Handlers{ControlId::Text6, loadSetEntered, loadSetEscaped},
    Handlers{ControlId::Text3, printEntered, printEscaped},
    Handlers{ControlId::Text8, importEntered, importEscaped},
};

const Handlers* handlersOf(ControlId box) {
  const auto* row =
      std::find_if(kHandlers.begin(), kHandlers.end(), [&](const Handlers& h) { return h.box == box; });
  return row == kHandlers.end() ? nullptr : row;
}

void hidePanel(Program& program, const Panel& panel) {
  program.controls.hide(panel.box);
  program.controls.hide(panel.label);
  if (panel.list) program.controls.hide(*panel.list);
}

}  // namespace

void openPanel(Program& program, const Panel& panel, std::string_view content) {
  program.state.panelOpen = program.state.paused = true;
  program.controls.show(panel.label);
  program.controls.show(panel.box);
  if (panel.list) program.controls.show(*panel.list);
  program.controls.setText(panel.box, content);
  program.controls.setFocus(panel.box);
}

void openPanelOverScreen(Program& program, const Panel& panel, std::string_view content) {
  program.state.panelKeptRedraw = program.canvas.autoRedraw();
  program.canvas.setAutoRedraw(false);
  openPanel(program, panel, content);
}

void closePanel(Program& program, const Panel& panel) {
  if (program.state.panelKeptRedraw) program.canvas.setAutoRedraw(*program.state.panelKeptRedraw);
  program.state.panelKeptRedraw.reset();
  program.state.panelOpen = program.state.paused = false;
  hidePanel(program, panel);
  program.controls.setText(panel.box, "");
  program.controls.setFocus(std::nullopt);
}

void hideAllPanels(Program& program) {
  for (const Panel& panel : kPanels) hidePanel(program, panel);
  hideColourPanels(program);
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

void panelEntered(Program& program, ControlId box) {
  if (const Handlers* handlers = handlersOf(box)) handlers->entered(program);
}

void panelEscaped(Program& program, ControlId box) {
  if (const Handlers* handlers = handlersOf(box)) handlers->escaped(program);
}

}  // namespace gridwright
