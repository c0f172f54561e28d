// A view with its controls, and what came of presses on swatches.
#pragma once

#include <utility>
#include <vector>

#include "platform/qt/canvas_view.h"
#include "platform/qt/control_mirror.h"

namespace gridwright {

struct Desk {
  QWidget window;
  CanvasView view{&window};
  InputQueue inputs;
  std::vector<std::pair<ControlId, Qt::MouseButton>> presses;
  ControlMirror mirror{view, inputs,
                       [this](ControlId id, Qt::MouseButton button) { presses.emplace_back(id, button); }};
  ControlModel model;

  Desk() {
    window.resize(800, 600);
    view.resize(800, 600);
    window.show();
  }
  void show() { mirror.mirror(model); }
  template <class T>
  T* as(ControlId id) {
    return static_cast<T*>(mirror.widget(id));
  }
};

}  // namespace gridwright
