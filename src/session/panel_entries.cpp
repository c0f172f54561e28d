#include "session/panel_entries.h"

#include <algorithm>
#include <array>

#include "drawings/drawing_files.h"
#include "drawings/import_drawing.h"
#include "drawings/wall_size.h"
#include "patterns/pattern_sets.h"
#include "patterns/random_size.h"
#include "printing/print_job.h"

namespace gridwright {

namespace {

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

}  // namespace

void panelEntered(Program& program, ControlId box) {
  if (const Handlers* handlers = handlersOf(box)) handlers->entered(program);
}

void panelEscaped(Program& program, ControlId box) {
  if (const Handlers* handlers = handlersOf(box)) handlers->escaped(program);
}

}  // namespace gridwright
