#include "state/phase_keys.h"

#include <algorithm>

namespace gridwright {

namespace {

struct Cap {
  int code;
  std::string_view words;
};
constexpr auto kCaps = std::to_array<Cap>({
    {key::left, "←"},
    {key::up, "↑"},
    {key::right, "→"},
    {key::down, "↓"},
    {key::escape, "Esc"},
    {key::space, "Space"},
    {key::comma, ","},
    {key::period, "."},
    {key::slash, "/"},
    {key::quote, "'"},
});
constexpr std::string_view kLetters = "ABCDEFGHIJKLMNOPQRSTUVWXYZ";

}  // namespace

bool isKeyOf(Phase phase, int code) {
  if (code == 0) return false;
  return std::any_of(kPhaseKeys.begin(), kPhaseKeys.end(), [&](const PhaseKeys& row) {
    return row.phase == phase && std::find(row.codes.begin(), row.codes.end(), code) != row.codes.end();
  });
}

std::string_view capOf(int code) {
  if (code >= 'A' && code <= 'Z') return kLetters.substr(static_cast<std::size_t>(code - 'A'), 1);
  const auto* cap = std::find_if(kCaps.begin(), kCaps.end(), [&](const Cap& c) { return c.code == code; });
  return cap == kCaps.end() ? std::string_view() : cap->words;
}

}  // namespace gridwright
