// The program in its window, without its main loop: the test is the loop.
#pragma once

#include <QLineEdit>
#include <QTemporaryDir>

#include "platform/qt/qt_desktop.h"

namespace gridwright {

struct Session {
  QTemporaryDir folder;
  QtDesktop desktop{folder.path().toStdString()};
  Program program{desktop, folder.path().toStdString()};

  Session() {
    program.state.phase = Phase::drawing;
    pump(Pace::working);
  }
  void pump(Pace pace) {
    program.state.keyBusy = false;
    desktop.doEvents(program, pace);
  }
  QLineEdit* box(ControlId id) { return static_cast<QLineEdit*>(desktop.controls().widget(id)); }
};

}  // namespace gridwright
