#include "menus/keys_sheet.h"

#include <string>

#include "menus/status_words.h"
#include "state/phase_keys.h"
#include "state/shortcuts.h"

namespace gridwright {

namespace {

/// A pattern that is about to be edited has the keys of the editor.
Phase phaseOfKeys(const ProgramState& s) {
  return s.phase == Phase::patternRequest || s.editedPattern != 0 ? Phase::patternEditing : s.phase;
}

KeysSheet::Row rowOfKeys(const PhaseKeys& keys) {
  KeysSheet::Row row{{}, std::string(keys.words)};
  for (const int code : keys.codes) {
    if (code != 0) row.caps.emplace_back(capOf(code));
  }
  return row;
}

bool isFunctionKey(std::string_view keys) { return keys.size() > 1 && keys.front() == 'F'; }

/// The function keys that can be used now, as the menus call what they do.
void addFunctionKeys(const Program& program, KeysSheet& sheet) {
  for (const Shortcut& shortcut : kShortcuts) {
    if (!isFunctionKey(shortcut.keys) || shortcut.item == Item::showkeys) continue;
    if (itemOfKeys(program.menus, shortcut.keys) != shortcut.item) continue;
    if (!program.menus.available(shortcut.item)) continue;
    sheet.rows.push_back({{std::string(shortcut.keys)}, program.menus.caption(shortcut.item)});
  }
  sheet.rows.push_back({{"F10"}, "the menus; each item shows its own keys"});
}

}  // namespace

void showkeys(Program& program) {
  KeysSheet& sheet = program.keys;
  const Phase phase = phaseOfKeys(program.state);
  sheet.title = "Keys: " + phaseWords(program.state);
  sheet.rows.clear();
  for (const PhaseKeys& keys : kPhaseKeys) {
    if (keys.phase == phase) sheet.rows.push_back(rowOfKeys(keys));
  }
  addFunctionKeys(program, sheet);
  sheet.shown = true;
  ++sheet.revision;
}

bool hideKeys(Program& program) {
  if (!program.keys.shown) return false;
  program.keys.shown = false;
  ++program.keys.revision;
  return true;
}

void hintAtKeys(Program& program) {
  if (program.keysHintTold) return;
  program.keysHintTold = true;
  program.notices.tell("F1 shows the keys");
}

}  // namespace gridwright
