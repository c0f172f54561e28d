#include "session/remembered.h"

#include <sstream>
#include <string>
#include <string_view>

#include "printing/page.h"
#include "session/arrivals.h"

namespace gridwright {

namespace {

constexpr std::string_view kRecent = "recent", kWhiteGround = "whiteground", kStatusLine = "statusline",
                           kKeysTold = "keystold", kTool = "tool", kFont = "font";
constexpr std::string_view kOn = "on", kOff = "off";

std::string recentKey(std::size_t place) { return std::string(kRecent) + std::to_string(place + 1); }

const ToolSettings& toolInHand(const Workshop& w) { return w.sheet ? w.sheet->settings() : w.firstTool; }

std::string wordsOf(const ToolSettings& tool) {
  std::ostringstream words;
  words << static_cast<int>(tool.tool) << ' ' << tool.size << ' ' << tool.oneCell << ' ' << tool.snap << ' '
        << tool.outline << ' ' << static_cast<int>(tool.mirror) << ' ' << tool.colour;
  return words.str();
}

ToolSettings toolOf(const std::string& words) {
  ToolSettings tool;
  int kind = 0, mirror = 0;
  std::istringstream in(words);
  in >> kind >> tool.size >> tool.oneCell >> tool.snap >> tool.outline >> mirror >> tool.colour;
  const bool isTool = !in.fail() && kind >= 0 && kind <= static_cast<int>(Tool::pick) && mirror >= 0 &&
                      mirror <= static_cast<int>(Mirror::both);
  if (!isTool) return {};
  tool.tool = static_cast<Tool>(kind);
  tool.mirror = static_cast<Mirror>(mirror);
  return tool;
}

/// Asks the desktop, once.
std::string recalled(Program& program, std::string_view key) {
  std::string value = program.platform.remembered(key);
  program.remembered[std::string(key)] = value;
  return value;
}

void put(Program& program, std::string_view key, const std::string& value) {
  std::string& known = program.remembered[std::string(key)];
  if (known == value) return;
  known = value;
  program.platform.remember(key, value);
}

}  // namespace

void recallSettings(Program& program) {
  for (std::size_t place = 0; place < kMostRecent; ++place) {
    const std::filesystem::path file = recalled(program, recentKey(place));
    if (file.is_absolute()) program.recent.push_back(file);
  }
  listArrivals(program);
  program.statusLineOff = recalled(program, kStatusLine) == kOff;
  program.menus.setChecked(Item::statusline, !program.statusLineOff);
  if (recalled(program, kKeysTold) == kOn) program.keysHintTold = true;
  program.workshop.firstTool = toolOf(recalled(program, kTool));
  const std::string font = recalled(program, kFont);
  if (!font.empty()) program.workshop.words.font = font;
  setWhiteGround(program, recalled(program, kWhiteGround) == kOn);
}

void rememberSettings(Program& program) {
  for (std::size_t place = 0; place < kMostRecent; ++place) {
    put(program, recentKey(place), place < program.recent.size() ? program.recent[place].string() : "");
  }
  const auto tick = [&](std::string_view key, bool isSet, std::string_view word) {
    put(program, key, std::string(isSet ? word : ""));
  };
  tick(kStatusLine, program.statusLineOff, kOff);
  tick(kKeysTold, program.keysHintTold, kOn);
  tick(kWhiteGround, program.state.print.whiteGround, kOn);
  const ToolSettings& tool = toolInHand(program.workshop);
  put(program, kTool, tool == ToolSettings{} ? "" : wordsOf(tool));
  const std::string& font = program.workshop.words.font;
  put(program, kFont, font == WordSettings{}.font ? "" : font);
}

}  // namespace gridwright
