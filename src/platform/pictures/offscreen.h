// What a program without a window needs of Qt, and what it keeps from people's terminals.
#pragma once

#include <memory>

#include "files/plain_file.h"

class QGuiApplication;

namespace gridwright {

/// Fonts and paper need an application object; this one looks for no display and says nothing. One at a time,
/// in the program's first thread, under the program's name.
std::unique_ptr<QGuiApplication> applicationWithoutScreen(const char* name);

/// Decoders of pictures have words of their own for standard error; while this lives nobody hears them, from
/// any thread. A person gets our line instead.
class NobodyHears {
 public:
  NobodyHears();
  ~NobodyHears();
  NobodyHears(const NobodyHears&) = delete;
  NobodyHears& operator=(const NobodyHears&) = delete;

 private:
  OpenFile kept_;
};

}  // namespace gridwright
