// The twin in a folder of its own, one script after the other.
#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "platform/headless/headless_desktop.h"
#include "platform/shared/image_files.h"
#include "session/main_loop.h"
#include "support/pictures.h"
#include "support/work_folders.h"

namespace gridwright::test {

/// A run of a script: exit status, and what it said on standard error.
struct Ended {
  int status = 0;
  std::string words;
};

struct Twin {
  Twin() {
    options.size = {120, 100};
    put("room.bmp", drawing({".........", ".........", ".........", "........."}));
  }
  void put(const std::string& name, const Bitmap& picture) const {
    ASSERT_TRUE(writeBitmapFile(picture, temp.path() / name));
  }
  Ended run(const std::string& script) {
    HeadlessDesktop desktop("s.txt", script, options);
    const auto program = std::make_unique<Program>(desktop, temp.path());
    try {
      runProgram(*program);
    } catch (const ProgramEnd&) {
      written = desktop.writeDocument() ? 1 : 0;
      return {0, {}};
    } catch (const ScriptStop& stop) {
      return {stop.status, stop.message};
    }
  }
  HeadlessOptions options;
  TempFolder temp;
  int written = -1;
};

inline const std::string kDrawing = "click Command2\nmenu importdrawing\ntype Text8 \"room\"\nenter Text8\n";
inline const std::string kMaze = "seed 5\n" + kDrawing + "menu cgenerate\nmenu newmaze\nuntil phase 2\n";

}  // namespace gridwright::test
