// Any bytes as the choices of somebody who sits at the program: keys, clicks, panels, the workshop, words,
// undo, sizes, timers, and files that come, change and go. What no session may do is looked at after each
// deed, and a loop that waits for nothing runs into the limit of its wait.
//
// With GRIDWRIGHT_SESSION the lines are written into the file of that name as they are run, for
// `gridwright-person --replay`.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <fstream>
#include <iostream>

#include "person/sitting.h"
#include "support/work_folders.h"

namespace {

using namespace gridwright::person;

const std::filesystem::path& ground() {
  static const gridwright::test::TempFolder folder;
  static const bool isPrepared = [] {
    prepareGround(folder.path());
    return true;
  }();
  static_cast<void>(isPrepared);
  return folder.path();
}

}  // namespace

/// What the library of fonts keeps to the end it never gives back; all else that is lost is told.
extern "C" const char* __lsan_default_suppressions() { return "leak:libfontconfig.so\n"; }

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  constexpr int kSmallest = 50, kLargest = 120;  // mazes that are over soon
  ByteChoices choices(data, size);
  Ground here{ground(), {choices.between(kSmallest, kLargest), choices.between(kSmallest, kLargest)}};
  std::ofstream lines;
  if (const char* name = std::getenv("GRIDWRIGHT_SESSION")) {
    lines.open(name);
    lines << "# size: " << here.size.width << 'x' << here.size.height << std::endl;
    here.note = [&lines](const std::string& line) { lines << line << std::endl; };
  }
  layOutAnew(here.folder);
  const Story story = sit(here, madeUp(choices, [&choices] { return choices.isOver(); }));
  if (story.fault.empty()) return 0;
  std::cerr << "# " << story.fault << "\n# size: " << here.size.width << 'x' << here.size.height << '\n';
  for (const std::string& line : story.lines) std::cerr << line << '\n';
  std::abort();
}
