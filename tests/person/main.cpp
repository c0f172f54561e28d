// gridwright-person: somebody who tries everything, at the headless twin, session after session.
//
// What goes wrong is printed as the shortest script that still does it.
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <cstdlib>
#include <fstream>
#include <iostream>
#include <string>
#include <string_view>
#include <vector>

#include "person/watched_run.h"
#include "platform/headless/script.h"
#include "support/work_folders.h"

namespace {

using namespace gridwright;
using namespace gridwright::person;

constexpr std::string_view kUsage =
    "usage: gridwright-person [--sessions N] [--inputs N] [--seed N] [--patience SECONDS] [--tries N]\n"
    "       gridwright-person --replay SCRIPT [--shorten]";

struct Wishes {
  int sessions = 10, inputs = 1000, seed = 1;
  int patience = 300;  ///< Seconds that one input may take.
  int tries = 2000;    ///< To cut a script down.
  std::string replay;
  bool shorten = false;
};

constexpr int kMost = 1'000'000'000;

/// \returns whether all was understood.
bool readWishes(const std::vector<std::string>& words, Wishes& wishes) {
  for (std::size_t i = 0; i < words.size(); ++i) {
    if (words[i] == "--shorten") {
      wishes.shorten = true;
      continue;
    }
    if (i + 1 == words.size()) return false;
    const std::string& name = words[i];
    const std::string& value = words[++i];
    if (name == "--replay") {
      wishes.replay = value;
      continue;
    }
    int* number = name == "--sessions"   ? &wishes.sessions
                  : name == "--inputs"   ? &wishes.inputs
                  : name == "--seed"     ? &wishes.seed
                  : name == "--patience" ? &wishes.patience
                  : name == "--tries"    ? &wishes.tries
                                         : nullptr;
    if (number == nullptr || !readNumber(value, 0, kMost, *number)) return false;
  }
  return true;
}

/// Odd sizes, small ones for the most part: a maze is over sooner there, and more happens.
Size sizeFor(Choices& choices) {
  const int most = choices.oneIn(4) ? 300 : 140;
  return {choices.between(50, most), choices.between(50, most)};
}

std::string words(Size size) { return std::to_string(size.width) + "x" + std::to_string(size.height); }

void print(const Ground& ground, const Story& story) {
  std::cout << "# " << story.fault << "\n# size: " << words(ground.size) << '\n';
  for (const std::string& line : story.lines) std::cout << line << '\n';
  std::cout << std::flush;
}

/// Cuts a story down for as long as it goes wrong in the same way.
Story shortened(const Ground& ground, const Story& story, const Wishes& wishes) {
  const auto patience = static_cast<unsigned>(wishes.patience);
  Story best = story;
  const std::string kind = kindOf(story.fault);
  shortest(
      story.lines,
      [&](const Lines& lines) {
        const Story now = watchedRun(ground, asWritten(lines), patience);
        if (now.fault.empty() || kindOf(now.fault) != kind) return false;
        best = now;
        return true;
      },
      wishes.tries);
  return best;
}

/// One session. \returns whether all held.
bool session(const std::filesystem::path& folder, const Wishes& wishes, int number) {
  SeededChoices choices(static_cast<std::uint32_t>(wishes.seed + number));
  const Ground ground{folder, sizeFor(choices)};
  int left = wishes.inputs;
  const auto patience = static_cast<unsigned>(wishes.patience);
  const Story story = watchedRun(ground, madeUp(choices, [&left] { return left-- == 0; }), patience);
  if (story.fault.empty()) return true;
  std::cout << "# session " << wishes.seed + number << ", after " << story.lines.size()
            << " lines, cut down:\n";
  print(ground, shortened(ground, story, wishes));
  return false;
}

/// A script that was printed. Its size is in a remark.
int replay(const std::filesystem::path& folder, const Wishes& wishes) {
  std::ifstream in(wishes.replay);
  Ground ground{folder, {130, 100}};
  Lines lines;
  for (std::string line; std::getline(in, line);) {
    constexpr std::string_view kSize = "# size: ";
    if (line.starts_with(kSize)) {
      const auto size = sizeWord(line.substr(kSize.size()));
      if (size) ground.size = {size.value().first, size.value().second};
    }
    lines.push_back(line);
  }
  const auto patience = static_cast<unsigned>(wishes.patience);
  const Story story = watchedRun(ground, asWritten(lines), patience);
  print(ground, wishes.shorten && !story.fault.empty() ? shortened(ground, story, wishes) : story);
  return story.fault.empty() ? EXIT_SUCCESS : EXIT_FAILURE;
}

/// Where files cost nothing, if there is such a place.
void workInMemory() {
  std::error_code failed;
  if (std::getenv("TMPDIR") == nullptr && std::filesystem::is_directory("/dev/shm", failed))
    ::setenv("TMPDIR", "/dev/shm", 0);
}

}  // namespace

int main(int argc, char** argv) {
  Wishes wishes;
  if (!readWishes({argv + 1, argv + argc}, wishes)) {
    std::cerr << kUsage << '\n';
    return EXIT_FAILURE;
  }
  workInMemory();
  const test::TempFolder place;
  prepareGround(place.path());
  if (!wishes.replay.empty()) return replay(place.path(), wishes);
  int bad = 0;
  for (int number = 0; number < wishes.sessions; ++number) {
    if (!session(place.path(), wishes, number)) ++bad;
    std::cout << '[' << number + 1 << '/' << wishes.sessions << "] sessions" << std::endl;
  }
  std::cout << wishes.sessions << " sessions of " << wishes.inputs << " inputs, " << bad << " went wrong\n";
  return bad == 0 ? EXIT_SUCCESS : EXIT_FAILURE;
}
