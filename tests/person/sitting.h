// A session of a made-up person at the headless twin: lines are made up, or read, as the program goes on.
#pragma once

#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "canvas/geometry.h"
#include "person/choices.h"
#include "state/program.h"

namespace gridwright::person {

/// Gives the next line; nothing when the session is over.
using Deeds = std::function<std::optional<std::string>(const Program&)>;

/// So many lines of somebody who tries everything, beginning with the seed of the program's own chances.
Deeds madeUp(Choices& choices, std::function<bool()> isOver);
/// Lines that stand.
Deeds asWritten(std::vector<std::string> lines);

struct Ground {
  std::filesystem::path folder;  ///< Holds `kit`, `work` and `content`, and nothing else may come into it.
  Size size{130, 100};
  /// Asked before a line is run: whoever outlives the program knows then what brought it down.
  std::function<void(const std::string& line)> note = [](const std::string&) {};
  std::function<void()> noteRefused = [] {};  ///< The line noted last was refused.
};

struct Story {
  std::string fault;               ///< What went wrong; empty for nothing.
  std::vector<std::string> lines;  ///< Those that were not refused.
};

/// Runs a session. After `close` the program starts again in the same folder, for as long as there are deeds.
Story sit(const Ground& ground, const Deeds& deeds);

/// Makes the folders of a ground, empty but for the kit.
void prepareGround(const std::filesystem::path& folder);
/// The working folder as a session finds it.
void layOutAnew(const std::filesystem::path& folder);

}  // namespace gridwright::person
